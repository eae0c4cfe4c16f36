#pragma once

#include "vemo_contact_global.h"

#include <QObject>

namespace vemo_contact {

/// What concerns the client as a whole, told to every module. One object a process, it lives on the GUI thread;
/// receivers there get the signals in order, also when one was emitted on a library thread (queued then).
class VEMO_CONTACT_EXPORT SystemMsg final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SystemMsg)

public:
    static SystemMsg& instance();

signals:
    /// The client is about to quit: whoever has work in flight ends it before the receiver returns.
    void signalPrepareQuitSystem();
    /// What all downloads together receive, in kbit/s, about once a second.
    void signalDownloadBitRate(qint64 kbitPerSecond);
    /// How many downloads of the queue run (those just being started included), wait, are paused, and have failed but
    /// are tried again by themselves. Told when one of the figures changed, once when the stored tasks were handed out,
    /// and never between two steps of one change: four zeros mean that nothing is left to do.
    void signalDownloadQueueChanged(int running, int waiting, int paused, int retrying);
    /// Seconds until the queue's running and waiting downloads are done if they go on as now; -1 while that can't be
    /// told, also when none runs. Told every few seconds while any runs.
    void signalDownloadTimeLeft(qint64 seconds);

private:
    SystemMsg();
};

} // namespace vemo_contact
