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

private:
    SystemMsg();
};

} // namespace vemo_contact
