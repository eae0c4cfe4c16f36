#include "LocalFolderScan.h"

#include "LocalSnapImageStore.h"
#include "RecordingFile.h"
#include "SnapImageFile.h"
#include "SqlStep.h"

#include <Database.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QStorageInfo>

#include <algorithm>

namespace VCOMMON {

namespace {

using vemo_data::Database;

constexpr int batchFiles = 200;
constexpr int batchRecords = 1000;
constexpr int maxFiles = 2'000'000;

QString tr(const char* text)
{
    return QCoreApplication::translate("VCOMMON::LocalFolderScan", text);
}

bool isRecording(const QString& path)
{
    return path.endsWith(QLatin1String(".mp4"), Qt::CaseInsensitive);
}

bool isThere(const QString& path)
{
    const QFileInfo info(path);
    return info.isFile() && !info.isSymLink();
}

QString volumeOf(const QString& folder)
{
    const QStorageInfo storage(folder);
    return QString::fromUtf8(storage.device()) + QLatin1Char(' ') + storage.rootPath();
}

QString volumeStored(const QString& folder)
{
    QString volume;
    Database::instance().run([&](QSqlDatabase& db) {
        SqlStep find(db, "SELECT volume FROM local_folders WHERE folder = ?");
        const bool ok = find.run({folder});
        if (ok && find.query().next())
            volume = find.query().value(0).toString();
        return ok;
    });
    return volume;
}

} // namespace

LocalRescanResult LocalFolderScan::scan(const QStringList& folders)
{
    for (const QString& folder : folders)
        scanFolder(QDir::cleanPath(folder));
    m_result.cancelled = m_cancelled;
    return m_result;
}

void LocalFolderScan::scanFolder(const QString& folder)
{
    const QFileInfo root(folder);
    if (!root.isDir() || !root.isReadable()) {
        fail(tr("The folder %1 is not there or can't be read.").arg(QDir::toNativeSeparators(folder)));
        return;
    }
    const bool mayDrop = isSameVolume(folder);
    QDirIterator files(folder,
                       {QStringLiteral("*.mp4"), QStringLiteral("*.jpg"), QStringLiteral("*.jpeg"),
                        QStringLiteral("*.bmp"), QStringLiteral("*.png")},
                       QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    QStringList recordings;
    QStringList snapshots;
    for (int count = 0; files.hasNext() && !m_cancelled; ++count) {
        if (count == maxFiles) {
            fail(tr("The folder %1 has more than %2 files; the rest was left out.")
                     .arg(QDir::toNativeSeparators(folder))
                     .arg(maxFiles));
            break;
        }
        const QString path = files.next();
        (isRecording(path) ? recordings : snapshots).append(path);
        if (recordings.size() >= batchFiles)
            takeBatch(std::exchange(recordings, {}), Kind::Recordings);
        if (snapshots.size() >= batchFiles)
            takeBatch(std::exchange(snapshots, {}), Kind::Snapshots);
    }
    takeBatch(recordings, Kind::Recordings);
    takeBatch(snapshots, Kind::Snapshots);
    if (m_cancelled || !mayDrop)
        return;
    dropGone(folder, Kind::Recordings);
    dropGone(folder, Kind::Snapshots);
}

/// The folder lies where it lay, so that what is missing in it was taken away. The folder of another volume counts as
/// the same again when it has any file that the records name: a disk may come back under another name.
bool LocalFolderScan::isSameVolume(const QString& folder)
{
    const QString volume = volumeOf(folder);
    const QString before = volumeStored(folder);
    bool isSame = before == volume;
    if (!isSame) {
        QStringList some;
        Database::instance().run([&](QSqlDatabase& db) {
            SqlStep find(db, "SELECT file_path FROM local_recordings WHERE file_path > ? AND file_path < ? "
                             "UNION ALL SELECT file_path FROM local_snapshots WHERE file_path > ? AND file_path < ?");
            const QString from = folder + QLatin1Char('/');
            const QString to = folder + QLatin1Char('0'); // the character behind the slash
            if (!find.run({from, to, from, to}))
                return false;
            while (find.query().next() && some.size() < batchRecords)
                some.append(find.query().value(0).toString());
            return true;
        });
        isSame = some.isEmpty() || std::any_of(some.cbegin(), some.cend(), isThere);
        if (!isSame && !before.isEmpty())
            fail(tr("Another disk lies at %1; the files known there are kept in the list.")
                     .arg(QDir::toNativeSeparators(folder)));
    }
    if (isSame || before.isEmpty()) {
        Database::instance().run([&](QSqlDatabase& db) {
            SqlStep put(db, "INSERT OR REPLACE INTO local_folders (folder, volume, scanned_utc_ms) VALUES (?, ?, ?)");
            return put.run({folder, volume, QDateTime::currentMSecsSinceEpoch()});
        });
    }
    return isSame;
}

/// Those whose size or time of writing is not the one on record.
QStringList LocalFolderScan::changed(const QStringList& paths, Kind kind)
{
    QHash<QString, FileMark> known;
    Database::instance().run([&](QSqlDatabase& db) {
        SqlStep find(db, kind == Kind::Recordings
                             ? "SELECT bytes, written_utc_ms FROM local_recordings WHERE file_path = ?"
                             : "SELECT bytes, written_utc_ms FROM local_snapshots WHERE file_path = ?");
        for (const QString& path : paths) {
            if (!find.run({path}))
                return false;
            if (find.query().next())
                known.insert(path, {find.query().value(0).toLongLong(), find.query().value(1).toLongLong()});
        }
        return true;
    });
    QStringList changed;
    for (const QString& path : paths) {
        const QFileInfo info(path);
        const auto mark = known.constFind(path);
        if (mark == known.constEnd() || !(*mark == FileMark{info.size(), info.lastModified().toMSecsSinceEpoch()}))
            changed.append(path);
    }
    return changed;
}

void LocalFolderScan::takeBatch(const QStringList& paths, Kind kind)
{
    if (paths.isEmpty() || m_cancelled)
        return;
    (kind == Kind::Recordings ? m_result.recordings : m_result.snapshots) += paths.size();
    const QStringList unread = changed(paths, kind);
    m_result.read += unread.size();
    if (kind == Kind::Recordings)
        readRecordings(unread);
    else
        readSnapshots(unread);
}

void LocalFolderScan::readRecordings(const QStringList& paths)
{
    QList<LocalRecordingIndexInfo> records;
    QHash<QString, FileMark> marks;
    for (const QString& path : paths) {
        if (m_cancelled)
            break;
        const RecordingFile file = RecordingFile::read(path);
        LocalRecordingIndexInfo record;
        record.devId = m_devices.idByName.value(file.recorderName);
        record.channelNo =
            file.channelNo > 0 ? file.channelNo : m_devices.channelsByDevId.value(record.devId).value(file.channelName);
        if (!record.devId.isEmpty() && record.channelNo > 0)
            record.channelId = record.devId + QLatin1Char('|') + QString::number(record.channelNo);
        record.channelName = file.channelName;
        record.devName = file.recorderName;
        record.beginTime = file.likelyBegin;
        record.endTime = file.likelyEnd;
        record.filePath = path;
        record.bytes = file.bytes;
        record.problem = file.problem;
        record.isSpanGuessed = file.source == RecordingFile::Source::WriteTime;
        records.append(record);
        marks.insert(path, {file.bytes, file.writtenUtcMs});
        m_result.broken += record.ok() ? 0 : 1;
    }
    if (!records.isEmpty())
        Database::instance().run([&](QSqlDatabase& db) { return LocalRecordingStore::putScanned(db, records, marks); });
}

void LocalFolderScan::readSnapshots(const QStringList& paths)
{
    QList<LocalSnapImageIndexInfo> records;
    QHash<QString, FileMark> marks;
    for (const QString& path : paths) {
        if (m_cancelled)
            break;
        const SnapImageFile file = SnapImageFile::read(path);
        LocalSnapImageIndexInfo record;
        record.devId = m_devices.idByName.value(file.devName);
        record.channelNo = m_devices.channelsByDevId.value(record.devId).value(file.channelName);
        record.channelName = file.channelName;
        record.devName = file.devName;
        record.captureTime = file.captureTime;
        record.filePath = path;
        record.bytes = file.bytes;
        record.problem = file.problem;
        records.append(record);
        marks.insert(path, {file.bytes, file.writtenUtcMs});
        m_result.broken += record.ok() ? 0 : 1;
    }
    const auto put = [&](QSqlDatabase& db) { return LocalSnapImageStore::put(db, records, marks); };
    if (!records.isEmpty() && Database::instance().run(put))
        m_snapshotsChanged(records, {});
}

void LocalFolderScan::dropGone(const QString& folder, Kind kind)
{
    const QString end = folder + QLatin1Char('0'); // the character behind the slash
    for (QString last = folder + QLatin1Char('/'); !last.isEmpty() && !m_cancelled;) {
        QStringList paths;
        Database::instance().run([&](QSqlDatabase& db) {
            SqlStep find(db, kind == Kind::Recordings
                                 ? "SELECT file_path FROM local_recordings WHERE file_path > ? AND file_path < ? "
                                   "ORDER BY file_path LIMIT ?"
                                 : "SELECT file_path FROM local_snapshots WHERE file_path > ? AND file_path < ? "
                                   "ORDER BY file_path LIMIT ?");
            if (!find.run({last, end, batchRecords}))
                return false;
            while (find.query().next())
                paths.append(find.query().value(0).toString());
            return true;
        });
        last = paths.isEmpty() ? QString() : paths.constLast();
        paths.erase(std::remove_if(paths.begin(), paths.end(), isThere), paths.end());
        if (paths.isEmpty() || !QFileInfo(folder).isDir()) // it went in the meantime
            continue;
        m_result.gone += paths.size();
        Database::instance().run([&](QSqlDatabase& db) {
            LocalRecordingStore::Records removed;
            return kind == Kind::Recordings ? LocalRecordingStore::remove(db, paths, &removed)
                                            : LocalSnapImageStore::remove(db, paths);
        });
        if (kind == Kind::Snapshots)
            m_snapshotsChanged({}, paths);
    }
}

} // namespace VCOMMON
