#include "PlaybackClock.h"

namespace vemo_client {

PlaybackClock::PlaybackClock(QObject* parent)
    : QObject(parent)
{}

void PlaybackClock::setUtcNs(qint64 utcNs)
{
    if (m_utcNs.exchange(utcNs, std::memory_order_relaxed) != utcNs)
        emit signalChanged();
}

} // namespace vemo_client
