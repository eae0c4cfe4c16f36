#pragma once

#include "net/ConnectionServer.h"
#include "onvif/WsDiscovery.h"
#include "RecorderState.h"

#include <QString>

#include <memory>

namespace recorder_sim {

/// One simulated recorder: makes its footage, opens its ports, serves on threads of its own until it is destroyed.
class Simulator final
{
public:
    explicit Simulator(const Options& options);
    ~Simulator();
    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;

    /// Blocks while clips are made. False with a sentence in error().
    bool start();
    const QString& error() const { return m_error; }

    /// The addresses as one line of JSON, without line end.
    QByteArray addresses() const;

private:
    bool loadChannels();
    bool listen(std::unique_ptr<ConnectionServer>& server, ConnectionServer::Handler handler, int portOffset,
                std::uint16_t& port, const std::shared_ptr<TlsContext>& tls = nullptr);
    void goOffline(int seconds);

    RecorderState m_state;
    QString m_error;
    std::unique_ptr<ConnectionServer> m_onvif;
    std::unique_ptr<ConnectionServer> m_rtsp;
    std::unique_ptr<ConnectionServer> m_control;
    std::unique_ptr<ConnectionServer> m_onvifTls;
    std::unique_ptr<ConnectionServer> m_rtspTls;
    std::unique_ptr<WsDiscovery> m_discovery;
};

} // namespace recorder_sim
