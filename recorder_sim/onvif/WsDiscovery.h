#pragma once

#include "RecorderState.h"

#include <atomic>
#include <thread>

class QUdpSocket;

namespace recorder_sim {

/// Answers WS-Discovery probes (WS-Discovery 2005/04, ONVIF Core 7) for a network video transmitter on
/// UDP port 3702, multicast and unicast, with the ONVIF address of this recorder. Has a thread of its own from start()
/// to destruction.
class WsDiscovery final
{
public:
    explicit WsDiscovery(const RecorderState& recorder);
    ~WsDiscovery();
    WsDiscovery(const WsDiscovery&) = delete;
    WsDiscovery& operator=(const WsDiscovery&) = delete;

    /// False with a sentence when the port can't be opened or the group not be joined.
    bool start(QString& error);

    /// The ProbeMatches for a probe; empty for anything else, and for probes that look for other types.
    static QByteArray answer(const QByteArray& probe, const QString& endpoint, const QString& serviceAddress);

private:
    bool open(QUdpSocket& socket, QString& error) const;

    const RecorderState& m_recorder;
    std::atomic<bool> m_stopping{false};
    std::thread m_thread;
};

} // namespace recorder_sim
