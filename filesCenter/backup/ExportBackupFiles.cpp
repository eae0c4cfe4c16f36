#include "ExportBackupFiles.h"

#include "BackupManifestFile.h"
#include "BackupPaths.h"
#include "download/DiskWork.h"

#include <RecordingFile.h>
#include <VCopyLocalFiles.h>

#include <QFileInfo>
#include <QLoggingCategory>

#include <memory>

namespace vemo_filesCenter {

using vemo_data::BackupTaskInfo;

Q_LOGGING_CATEGORY(lcExport, "vemo.backup.export")

namespace {

constexpr int whole = 100;
constexpr int mayWaitMs = 0;

using Record = BackupManifestFile::Record;

/// The original's record, as it was made when the file was backed up.
Record recordOf(const QString& source)
{
    const QFileInfo file(source);
    const QList<Record> records = BackupManifestFile::read(file.path());
    for (const Record& record : records) {
        if (record.file == file.fileName())
            return record;
    }
    return {};
}

/// Someone else's list of that name, which must not be replaced.
bool hasForeignManifest(const QString& folder)
{
    const QFileInfo sums(folder % QLatin1Char('/') % BackupManifestFile::sumsName());
    const QFileInfo json(folder % QLatin1Char('/') % BackupManifestFile::jsonName());
    if (sums.isSymLink() || json.isSymLink())
        return true;
    return (sums.exists() || json.exists()) && BackupManifestFile::read(folder).isEmpty();
}

} // namespace

/// The manifest of one export, written away from the GUI thread.
struct ExportBackupFiles::Listing
{
    QList<Copied> copied;
    QString device;
    int channelNo = 0;
    QString channel;
    QString folder;
    QStringList damaged; ///< originals that are not any more what they were

    void write();
    Record recordFor(const Copied& copy);
};

Record ExportBackupFiles::Listing::recordFor(const Copied& copy)
{
    Record record = recordOf(copy.source);
    if (record.sha256.isEmpty()) {
        const VCOMMON::RecordingFile recording = VCOMMON::RecordingFile::read(copy.target);
        record.device = device;
        record.channelNo = channelNo;
        record.channel = channel;
        record.begin = recording.begin;
        record.end = recording.end;
        record.bytes = recording.bytes;
        record.sha256 = copy.sha256;
    } else if (record.sha256 != copy.sha256) {
        // The copy keeps the sum of the day of its backup, which shows the damage to whoever checks.
        damaged.append(copy.source);
    }
    record.file = QFileInfo(copy.target).fileName();
    return record;
}

void ExportBackupFiles::Listing::write()
{
    QList<Record> records;
    for (const Copied& copy : qAsConst(copied))
        records.append(recordFor(copy));
    if (records.isEmpty())
        return;
    if (hasForeignManifest(folder))
        qCWarning(lcExport).noquote() << "a foreign list of checksums is kept in" << folder;
    else if (!BackupManifestFile::merge(folder, records))
        qCWarning(lcExport).noquote() << "the manifest of" << folder << "could not be written";
}

ExportBackupFiles::ExportBackupFiles(QObject* parent)
    : QObject(parent)
    , m_copier(new VCOMMON::VCopyLocalFiles(QStringLiteral("export"), this))
{
    using VCOMMON::VCopyLocalFiles;
    m_copier->setVerified(true);
    connect(m_copier, &VCopyLocalFiles::signalCopyFileBytes, this,
            [this](const QString&, qint64 done, qint64 size, int finished) { takeBytes(done, size, finished); });
    connect(m_copier, &VCopyLocalFiles::signalCopyFileSucceeded, this,
            [this](const QString&, const QString& source, const QString& target, const QByteArray& sha256) {
                m_copied.append({source, target, sha256});
            });
    connect(m_copier, &VCopyLocalFiles::signalCopyFileFailed, this,
            [this](const QString&, const QString& source, const QString& reason) {
                ++m_failed;
                tellFailure(source, reason);
            });
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesFinished, this,
            [this](const QString&, const QStringList&, const QStringList& failed) { takeEnd(failed.size()); });
    connect(m_copier, &VCopyLocalFiles::signalCopyFilesCancelled, this, [this] { takeEnd(m_failed); });
}

ExportBackupFiles::~ExportBackupFiles() = default;

bool ExportBackupFiles::exportTask(const BackupTaskInfo& task, const QString& destination)
{
    if (m_isWorking)
        return false;
    m_isWorking = true;
    m_isCancelled = false;
    m_task = task;
    m_destination = destination;
    m_folder = BackupPaths::folder(destination, task);
    m_totalBytes = 0;
    m_doneBytes = 0;
    m_copied.clear();
    m_failed = 0;
    struct Found
    {
        QStringList sources;
        qint64 bytes = 0;
    };
    auto found = std::make_shared<Found>();
    DiskWork::run(
        [found, entries = task.fileInfos] {
            for (const BackupTaskInfo::FileInfo& entry : entries) {
                const QFileInfo file(entry.filePath);
                if (!entry.finished || entry.filePath.isEmpty() || !file.isFile())
                    continue;
                found->sources.append(file.absoluteFilePath());
                found->bytes += file.size();
            }
        },
        this, [this, found] { begin(found->sources, found->bytes); }, mayWaitMs);
    return true;
}

void ExportBackupFiles::begin(const QStringList& sources, qint64 totalBytes)
{
    m_totalBytes = totalBytes;
    if (totalBytes == 0 || m_isCancelled) {
        m_isWorking = false;
        emit signalExportFinished(0, 0, 0);
        return;
    }
    QStringList targets;
    for (const QString& source : sources)
        targets.append(m_folder % QLatin1Char('/') % QFileInfo(source).fileName());
    m_copier->setRoot(m_destination);
    m_copier->copyFiles(sources, targets);
}

void ExportBackupFiles::cancel()
{
    if (!m_isWorking)
        return;
    m_isCancelled = true;
    m_copier->cancelCopyFiles();
}

void ExportBackupFiles::takeBytes(qint64 doneOfFile, qint64 sizeOfFile, int finishedCnt)
{
    const qint64 curSize = m_doneBytes + doneOfFile;
    // A file may have grown since its size was added up.
    const qint64 progress = qMin<qint64>(whole, curSize * whole / m_totalBytes);
    if (doneOfFile == sizeOfFile)
        m_doneBytes += sizeOfFile;
    emit signalExportProgress(curSize, finishedCnt, static_cast<int>(progress));
}

void ExportBackupFiles::tellFailure(const QString& source, const QString& reason)
{
    qCWarning(lcExport).noquote() << "not exported:" << reason;
    emit signalExportFileFailed(source);
}

void ExportBackupFiles::takeEnd(int failed)
{
    m_failed = failed;
    auto listing = std::make_shared<Listing>();
    listing->copied = m_copied;
    listing->device = m_task.deviceNo;
    listing->channelNo = m_task.channelNo;
    listing->channel = m_task.channelName;
    listing->folder = m_folder;
    DiskWork::run([listing] { listing->write(); }, this, [this, listing] { finish(listing->damaged); }, mayWaitMs);
}

void ExportBackupFiles::finish(const QStringList& damaged)
{
    for (const QString& source : damaged)
        tellFailure(source, tr("%1 is not any more what it was when it was backed up.").arg(source));
    const int total = m_copied.size() + m_failed;
    const int failures = m_failed + damaged.size();
    m_isWorking = false;
    emit signalExportFinished(total, total - failures, failures);
}

} // namespace vemo_filesCenter
