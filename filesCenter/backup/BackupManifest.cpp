#include "BackupManifest.h"

#include "BackupManifestFile.h"
#include "download/DiskWork.h"
#include "download/TaskFiles.h"

#include <FileChecksum.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPointer>
#include <QSet>

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
            [this](VCOMMON::FileChecksum::Failure, const QString& text) {
                qCWarning(lcManifest).noquote() << "not summed up:" << text;
                over();
            });
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
    add({filePath, task.deviceNo, task.channelNo, task.channelName});
}

void BackupManifest::add(const Job& job)
{
    const auto isIt = [&job](const Job& other) { return other.path == job.path; };
    if ((m_busy && isIt(m_current)) || std::any_of(m_waiting.cbegin(), m_waiting.cend(), isIt))
        return;
    m_waiting.append(job);
    startNext();
}

void BackupManifest::addMissing(const BackupTaskInfo& task)
{
    QStringList paths;
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos) {
        if (entry.finished && !entry.filePath.isEmpty())
            paths.append(entry.filePath);
    }
    if (paths.isEmpty())
        return;
    ++m_looking;
    auto missing = std::make_shared<QStringList>();
    DiskWork::run(
        [paths, missing] {
            QHash<QString, QSet<QString>> named;
            for (const QString& path : paths) {
                const QFileInfo file(path);
                if (!named.contains(file.path())) {
                    const QList<BackupManifestFile::Record> records = BackupManifestFile::read(file.path());
                    for (const BackupManifestFile::Record& record : records)
                        named[file.path()].insert(record.file);
                }
                if (!named.value(file.path()).contains(file.fileName()) && file.isFile())
                    missing->append(path);
            }
        },
        this,
        [this, task, missing] {
            --m_looking;
            for (const QString& path : qAsConst(*missing))
                add(task, path);
            if (isIdle())
                emit signalIdle();
        },
        0);
}

void BackupManifest::startNext()
{
    if (m_busy || m_waiting.isEmpty())
        return;
    m_current = m_waiting.takeFirst();
    m_busy = true;
    m_checksum->start(m_current.path);
}

void BackupManifest::summed(const QByteArray& sha256, qint64 bytes)
{
    BackupManifestFile::Record record;
    const QFileInfo file(m_current.path);
    record.file = file.fileName();
    record.device = m_current.device;
    record.channelNo = m_current.channelNo;
    record.channel = m_current.channel;
    record.bytes = bytes;
    record.sha256 = sha256;
    DiskWork::run(
        [record, path = m_current.path, folder = file.path()]() mutable {
            const RecordingFile recording = RecordingFile::read(path);
            record.begin = recording.begin;
            record.end = recording.end;
            if (!BackupManifestFile::merge(folder, {record}))
                qCWarning(lcManifest).noquote() << "the manifest of" << folder << "could not be written";
        },
        this, [this] { over(); }, 0);
}

void BackupManifest::over()
{
    m_busy = false;
    m_current = {};
    startNext();
    if (isIdle())
        emit signalIdle();
}

} // namespace vemo_filesCenter
