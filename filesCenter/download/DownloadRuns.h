#pragma once

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QString>

namespace vemo_filesCenter {

/// The tasks that run in the media download SDK, for its callbacks, which come on its threads. A task id may run more
/// than once, one after the other; each run has a number, so that what was said of an earlier run is known as such. Any
/// thread.
class DownloadRuns final
{
public:
    struct Run
    {
        quint64 number = 0;   ///< 0: does not run
        quint64 streamId = 0; ///< 0: is fed by no stream
    };

    quint64 begin(const QString& taskId);
    void setStream(const QString& taskId, quint64 streamId);
    void end(const QString& taskId);

    Run run(const char* taskId) const;
    Run run(const QString& taskId) const;

private:
    mutable QMutex m_mutex;
    QHash<QByteArray, Run> m_runs; ///< guarded by m_mutex; the key is UTF-8
    quint64 m_lastNumber = 0;      ///< guarded by m_mutex
};

} // namespace vemo_filesCenter
