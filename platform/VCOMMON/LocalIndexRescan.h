#pragma once

#include "VCOMMON_global.h"

#include <QElapsedTimer>
#include <QObject>
#include <QStringList>

#include <memory>

namespace VCOMMON {

/// What a rescan found.
struct LocalRescanResult
{
    int recordings = 0; ///< files looked at
    int snapshots = 0;
    int read = 0;   ///< of these: new or changed, so read
    int broken = 0; ///< of those that were read
    int gone = 0;   ///< records dropped, since their files are gone
    bool cancelled = false;
    QStringList problems; ///< sentences: folders that could not be looked through
};

/// Brings the indexes of recordings and snapshots in line with the folders they are about: finds files that were added,
/// changed or removed without the client. One object a process, on the GUI thread; the work is done on a thread of its
/// own at low priority, in batches, and reads only files whose size or time of writing has changed. Links are not
/// followed. A folder that is not there, or has become the mount point of a disk that was pulled, costs no record.
class VCOMMON_EXPORT LocalIndexRescan final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalIndexRescan)

public:
    static LocalIndexRescan& instance();
    ~LocalIndexRescan() override;

    /// Begins a rescan of these folders and what is below them; while one runs, another one of the same folders is made
    /// when it is over. Always ends in signalFinished.
    void start(const QStringList& folders);
    /// The same, unless the last one of any folders ended less than `ms` ago or is running.
    void startIfOlder(const QStringList& folders, int ms);
    /// The one that runs ends soon, with what it has found so far kept.
    void cancel();
    bool isRunning() const;

signals:
    /// On the GUI thread; both indexes answer with what was found.
    void signalFinished(const VCOMMON::LocalRescanResult& result);

private:
    LocalIndexRescan();

    void run();
    void stop();

    class Run;
    std::shared_ptr<Run> m_run; ///< the one that runs
    QStringList m_folders;
    bool m_again = false;
    QElapsedTimer m_sinceEnd;
};

} // namespace VCOMMON

Q_DECLARE_METATYPE(VCOMMON::LocalRescanResult)
