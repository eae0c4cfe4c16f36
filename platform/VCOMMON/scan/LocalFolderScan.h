#pragma once

#include "LocalIndexRescan.h"
#include "LocalRecordingStore.h"
#include "LocalSnapImageIndexInfo.h"

#include <QHash>

#include <atomic>
#include <functional>

namespace VCOMMON {

/// The devices and channels that the client knows, as they were when the rescan began: files tell names, not ids.
struct KnownDevices
{
    QHash<QString, QString> idByName;                    ///< of devices; names that two share are left out
    QHash<QString, QHash<QString, int>> channelsByDevId; ///< channel numbers by names
};

/// One pass over folders, on a thread of its own. Talks to the database by its jobs, a batch of files at a time.
class LocalFolderScan final
{
public:
    /// Takes the snapshots that changed and the paths of those that are gone; called on the scan's thread.
    using SnapshotsChanged =
        std::function<void(const QList<LocalSnapImageIndexInfo>& records, const QStringList& gone)>;

    LocalFolderScan(KnownDevices devices, const std::atomic<bool>& cancelled, SnapshotsChanged snapshotsChanged)
        : m_devices(std::move(devices))
        , m_cancelled(cancelled)
        , m_snapshotsChanged(std::move(snapshotsChanged))
    {}

    LocalRescanResult scan(const QStringList& folders);

private:
    enum class Kind : int { Recordings, Snapshots };

    void scanFolder(const QString& folder);
    void takeBatch(const QStringList& paths, Kind kind);
    void readRecordings(const QStringList& paths);
    void readSnapshots(const QStringList& paths);
    QStringList changed(const QStringList& paths, Kind kind);
    void dropGone(const QString& folder, Kind kind);
    bool isSameVolume(const QString& folder);
    void fail(const QString& sentence) { m_result.problems.append(sentence); }

    const KnownDevices m_devices;
    const std::atomic<bool>& m_cancelled;
    const SnapshotsChanged m_snapshotsChanged;
    LocalRescanResult m_result;
};

} // namespace VCOMMON
