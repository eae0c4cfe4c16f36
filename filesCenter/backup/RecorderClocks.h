#pragma once

#include <VmsTypes.h>

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>

namespace vemo_filesCenter {

/// What time it is where the footage is made. A computer whose clock is wrong, or is set while a backup runs, must not
/// take hours for recorded that lie ahead, so each recorder's own clock counts, which was heard at its login and has
/// gone on since. A value; GUI thread.
class RecorderClocks final
{
public:
    /// The recorder has told its time; `now` is this computer's.
    void take(const vms_sdk::DevInfo& device, const QDateTime& now);
    /// Up to when the recorder can have recorded: its own time or the computer's, whichever is earlier. A recorder with
    /// a recording behind its time had its clock set. Without a login it is the computer's.
    QDateTime now(const QString& devId, const QDateTime& now, const QList<vms_sdk::VideoRecording>& recordings) const;

private:
    struct Reading
    {
        QDateTime time;
        qint64 readMs = 0; ///< by SteadyClock
    };

    QHash<QString, Reading> m_readings;
};

} // namespace vemo_filesCenter
