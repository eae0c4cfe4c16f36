#pragma once

#include <QObject>

#include <atomic>

namespace vemo_client {

/// The time of the footage that is to be seen now, for all decoders of a page. The page sets it, on the GUI thread, as
/// often as pictures are to change; it may be read on any thread. It must outlive the decoders that follow it.
class PlaybackClock final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackClock)

public:
    explicit PlaybackClock(QObject* parent = nullptr);

    /// ns since 1970-01-01 UTC; 0: not set yet, every picture waits.
    qint64 utcNs() const { return m_utcNs.load(std::memory_order_relaxed); }
    void setUtcNs(qint64 utcNs);

signals:
    void signalChanged();

private:
    std::atomic<qint64> m_utcNs{0};
};

} // namespace vemo_client
