#pragma once

#include "devices/ChannelRef.h"
#include "SpanPick.h"

#include <VmsTypes.h>

#include <QObject>
#include <QVector>

namespace vemo_client {

class RecordingSearch;

/// Searches the recordings of several channels in one span, a few channels at a time. GUI thread. start() ends a search
/// that runs; each channel is told once, found or failed, and signalFinished comes behind the last one. After cancel()
/// nothing more is told.
class DaySearch final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DaySearch)

public:
    explicit DaySearch(QObject* parent = nullptr);
    ~DaySearch() override;

    void start(const QVector<ChannelRef>& channels, const vemo_base::TimeSpan& span);
    void cancel();
    bool isRunning() const { return m_left > 0; }

signals:
    /// `index` as in the list given to start(); sorted by begin, each recording once.
    void signalFound(int index, const QList<vms_sdk::VideoRecording>& recordings);
    void signalFailed(int index, const vms_sdk::Error& error);
    void signalFinished();

private:
    void startNext();
    void take(RecordingSearch* search, int index);

    QVector<ChannelRef> m_channels;
    vemo_base::TimeSpan m_span;
    int m_next = 0;
    int m_left = 0;
    QVector<RecordingSearch*> m_running; ///< children of this
};

} // namespace vemo_client
