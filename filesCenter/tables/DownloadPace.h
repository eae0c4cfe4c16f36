#pragma once

#include <QHash>
#include <QString>

namespace vemo_filesCenter {

/// How fast downloads get on, by the progress that they reported: for "time left". A plain value; the caller gives the
/// time, of a clock that never steps.
class DownloadPace final
{
public:
    /// `progress` in percent of footage of `footageMs`.
    void note(const QString& key, int progress, qint64 footageMs, qint64 nowMs);
    /// Paused or ended: what it did before says nothing about what it does next.
    void forget(const QString& key);

    /// Seconds until the download is done; -1 while that can't be told.
    qint64 secondsLeft(const QString& key, qint64 nowMs) const;
    /// Seconds until all that are known and `waitingMs` of footage more are done, if they go on as now; -1 as above.
    qint64 secondsLeftForAll(qint64 waitingMs, qint64 nowMs) const;
    /// Seconds since the download was first noted; 0 when it never was.
    double secondsRun(const QString& key, qint64 nowMs) const;

private:
    struct Run
    {
        qint64 beginMs = 0;
        int beginProgress = 0;
        int progress = 0;
        qint64 footageMs = 0;

        double footageLeft() const;
        double speed(qint64 nowMs) const; ///< footage over wall time; 0 unknown
    };

    QHash<QString, Run> m_runs;
};

} // namespace vemo_filesCenter
