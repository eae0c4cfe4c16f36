#include "BackupManifest.h"

#include "BackupManifestFile.h"
#include "download/DiskWork.h"
#include "download/TaskFiles.h"

#include <BackupTaskData.h>
#include <FileChecksum.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPointer>

#include <algorithm>
#include <memory>

namespace vemo_filesCenter {

using vemo_data::BackupTaskInfo;

Q_LOGGING_CATEGORY(lcManifest, "vemo.backup.manifest")

BackupManifest::BackupManifest(QObject* parent)
    : QObject(parent)
    , m_checksum(new VCOMMON::FileChecksum(this))
{
    connect(m_checksum, &VCOMMON::FileChecksum::signalFinished, this, &BackupManifest::summed);
    connect(m_checksum, &VCOMMON::FileChecksum::signalFailed, this,
            [this](VCOMMON::FileChecksum::Failure failure, const QString& text) {
                qCWarning(lcManifest).noquote() << "not summed up:" << text;
                if (failure == VCOMMON::FileChecksum::Failure::Missing)
                    forgetIfRemoved();
                else
                    over(false);
            });
    const QList<Job> remembered = vemo_data::BackupTaskData::instance().getUnlisted();
    for (const Job& job : remembered)
        add(job);
}

BackupManifest::~BackupManifest() = default;

BackupManifest& BackupManifest::instance()
{
    // Goes with the application, whose threads and event loop it needs.
    static QPointer<BackupManifest> manifest;
    if (!manifest)
        manifest = new BackupManifest(QCoreApplication::instance());
    return *manifest;
}

void BackupManifest::add(const BackupTaskInfo& task, const QString& filePath)
{
    const Job job{filePath, task.deviceNo, task.channelNo, task.channelName};
    vemo_data::BackupTaskData::instance().addUnlisted(job);
    add(job);
}

void BackupManifest::complete(const BackupTaskInfo& task)
{
    QStringList paths;
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
        if (entry.finished && !entry.filePath.isEmpty())
            paths.append(entry.filePath);
    }
    auto unlisted = std::make_shared<QStringList>();
    ++m_lookups;
    DiskWork::run([paths, unlisted] { *unlisted = BackupManifestFile::unlisted(paths); }, this,
                  [this, task, unlisted] {
                      --m_lookups;
                      for (const QString& path : qAsConst(*unlisted))
                          add(task, path);
                      if (isIdle())
                          emit signalIdle();
                  },
                  0);
}

void BackupManifest::add(const Job& job)
{
    const auto isIt = [&job](const Job& other) { return other.filePath == job.filePath; };
    if ((m_busy && isIt(m_current)) || std::any_of(m_waiting.cbegin(), m_waiting.cend(), isIt))
        return;
    m_waiting.append(job);
    startNext();
}

void BackupManifest::startNext()
{
    if (m_busy || m_waiting.isEmpty())
        return;
    m_current = m_waiting.takeFirst();
    m_busy = true;
    m_checksum->start(m_current.filePath);
}

void BackupManifest::summed(const QByteArray& sha256, qint64 bytes)
{
    BackupManifestFile::Record record;
    const QFileInfo file(m_current.filePath);
    record.file = file.fileName();
    record.device = m_current.deviceNo;
    record.channelNo = m_current.channelNo;
    record.channel = m_current.channelName;
    record.bytes = bytes;
    record.sha256 = sha256;
    auto isWritten = std::make_shared<bool>(false);
    DiskWork::run(
        [record, isWritten, path = m_current.filePath, folder = file.path()]() mutable {
            // Its disk may have been pulled since it was read: another one in that place gets nothing, and a manifest
            // that came to lie there tells nobody of the file.
            const auto isThere = [&path, &record] {
                const QFileInfo present(path);
                return present.isFile() && present.size() == record.bytes;
            };
            if (isThere()) {
                const RecordingFile recording = RecordingFile::read(path);
                record.begin = recording.begin;
                record.end = recording.end;
                *isWritten = BackupManifestFile::merge(folder, {record}) && isThere();
            }
            if (!*isWritten)
                qCWarning(lcManifest).noquote() << "the manifest of" << folder << "could not be written";
        },
        this, [this, isWritten] { over(*isWritten); }, 0);
}

/// A file whose folder has no manifest may be on a disk that was pulled: it stays remembered.
void BackupManifest::forgetIfRemoved()
{
    auto isRemoved = std::make_shared<bool>(false);
    const QString manifest = QFileInfo(m_current.filePath).path() % QLatin1Char('/') % BackupManifestFile::jsonName();
    DiskWork::run([isRemoved, manifest] { *isRemoved = QFileInfo(manifest).isFile(); }, this,
                  [this, isRemoved] { over(*isRemoved); }, 0);
}

void BackupManifest::over(bool isListed)
{
    if (isListed)
        vemo_data::BackupTaskData::instance().removeUnlisted(m_current.filePath);
    m_busy = false;
    m_current = {};
    startNext();
    if (isIdle())
        emit signalIdle();
}

} // namespace vemo_filesCenter
