#pragma once

#include "ChannelDay.h"
#include "SpanPick.h"

#include <QObject>
#include <QTimer>
#include <QVector>

class QWidget;

namespace vemo_client {

/// Asks the module that keeps the download queue for recordings and spans, and tells how many of them came to be stored
/// there: the store leaves out what is waiting or running already. GUI thread.
class QueueRequests final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QueueRequests)

public:
    explicit QueueRequests(QObject* parent = nullptr);

    struct Recording
    {
        ChannelRef channel;
        vms_sdk::VideoRecording recording;
    };
    void askFor(const QVector<Recording>& recordings, QWidget* asker);
    /// One request a channel.
    void askFor(const QVector<ChannelRef>& channels, const vemo_base::TimeSpan& span, QWidget* asker);

signals:
    void signalQueued(int added, int asked);

private:
    void expect(int asked);
    void tell();

    int m_asked = 0;
    int m_added = 0;
    QTimer m_answerTimer;
};

} // namespace vemo_client
