#include "Simulator.h"

#include "control/ControlServer.h"
#include "media/ClipMaker.h"
#include "net/HttpConnection.h"
#include "onvif/OnvifServer.h"
#include "rtsp/RtspConnection.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>

#include <chrono>

namespace recorder_sim {

Simulator::Simulator(const Options& options)
    : m_state(options)
{}

Simulator::~Simulator()
{
    // The control address reaches for the other servers, so it ends first.
    m_control.reset();
}

bool Simulator::loadChannels()
{
    ClipSet clips;
    ClipMaker maker(m_state.options.clipsFolder);
    if (!maker.load(clips)) {
        m_error = maker.error();
        return false;
    }
    // Channels beyond the clips repeat them; a change of parameter sets is the same codec in another size.
    std::vector<std::shared_ptr<const MediaLoop>> loops;
    std::vector<std::shared_ptr<const MediaLoop>> changedLoops;
    const std::size_t kinds = clips.video.size();
    for (std::size_t i = 0; i < kinds; ++i) {
        loops.push_back(std::make_shared<MediaLoop>(clips.video[i], clips.audio[i]));
        changedLoops.push_back(std::make_shared<MediaLoop>(clips.video[(i + 2) % kinds], clips.audio[i]));
    }
    const Options& options = m_state.options;
    for (int channel = 1; channel <= options.channels; ++channel) {
        const std::size_t kind = static_cast<std::size_t>(channel - 1) % kinds;
        m_state.channels.push_back({loops[kind], changedLoops[kind],
                                    RecordingCalendar(options.firstDay, options.days, options.zone, channel),
                                    options.zone});
    }
    return true;
}

bool Simulator::listen(std::unique_ptr<ConnectionServer>& server, ConnectionServer::Handler handler, int portOffset,
                       std::uint16_t& port, const std::shared_ptr<TlsContext>& tls)
{
    const Options& options = m_state.options;
    const std::uint16_t wanted =
        options.port == 0 ? std::uint16_t{0} : static_cast<std::uint16_t>(options.port + portOffset);
    server = std::make_unique<ConnectionServer>(std::move(handler), tls);
    std::string error;
    if (!server->listen(options.bind, wanted, error)) {
        m_error = QStringLiteral("cannot listen on %1 port %2: %3")
                      .arg(QString::fromStdString(options.bind))
                      .arg(wanted)
                      .arg(QString::fromStdString(error));
        return false;
    }
    port = server->port();
    return true;
}

bool Simulator::start()
{
    const Options& options = m_state.options;
    std::string error;
    int offlineSeconds = 0;
    for (const std::string& fault : options.faults) {
        if (!m_state.faults.setFromArgument(fault, error)) {
            m_error = QString::fromStdString(error);
            return false;
        }
    }
    if (const auto offline = m_state.faults.number("offline")) {
        offlineSeconds = static_cast<int>(*offline);
        m_state.faults.clear("offline");
    }
    std::shared_ptr<TlsContext> tls;
    if (!options.tlsCertificate.empty()) {
        tls = TlsContext::load(options.tlsCertificate, options.tlsKey, error);
        if (!tls) {
            m_error = QString::fromStdString(error);
            return false;
        }
    }
    if (!loadChannels())
        return false;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    m_state.liveOriginNs = std::chrono::duration_cast<std::chrono::seconds>(now).count() * nsPerSecond;

    const auto rtsp = [this](ByteStreamPtr stream, const std::atomic<bool>& stopping) {
        RtspConnection(m_state, std::move(stream)).run(stopping);
    };
    const auto http = [](auto server) {
        return [server](ByteStreamPtr stream, const std::atomic<bool>& stopping) {
            HttpConnection(std::move(stream), [&](const TextRequest& request, const ByteStream& from) {
                return server->handle(request, from);
            }).run(stopping);
        };
    };
    const auto onvif = http(std::make_shared<OnvifServer>(m_state));
    const auto control = http(std::make_shared<ControlServer>(m_state, [this](int seconds) { goOffline(seconds); }));
    ServerPorts& ports = m_state.ports;
    const bool plain = listen(m_onvif, onvif, 0, ports.onvif) && listen(m_rtsp, rtsp, 1, ports.rtsp) &&
                       listen(m_control, control, 2, ports.control);
    if (!plain ||
        (tls && (!listen(m_onvifTls, onvif, 3, ports.onvifs, tls) || !listen(m_rtspTls, rtsp, 4, ports.rtsps, tls))))
        return false;
    if (offlineSeconds > 0)
        goOffline(offlineSeconds);
    if (!options.discovery)
        return true;
    m_discovery = std::make_unique<WsDiscovery>(m_state);
    return m_discovery->start(m_error);
}

void Simulator::goOffline(int seconds)
{
    for (const auto& server : {m_onvif.get(), m_rtsp.get(), m_onvifTls.get(), m_rtspTls.get()}) {
        if (server)
            server->goOffline(seconds * 1000);
    }
}

QByteArray Simulator::addresses() const
{
    const QString host = QString::fromStdString(m_state.options.bind == "0.0.0.0" ? "127.0.0.1" : m_state.options.bind);
    const auto url = [&](const char* scheme, std::uint16_t port, const char* path) {
        return QStringLiteral("%1://%2:%3%4")
            .arg(QLatin1String(scheme), host, QString::number(port), QLatin1String(path));
    };
    const ServerPorts& ports = m_state.ports;
    QJsonObject line{{QStringLiteral("onvif"), url("http", ports.onvif, "/onvif/device_service")},
                     {QStringLiteral("rtsp"), url("rtsp", ports.rtsp, "")},
                     {QStringLiteral("control"), url("http", ports.control, "")},
                     {QStringLiteral("pid"), QCoreApplication::applicationPid()}};
    if (ports.onvifs != 0) {
        line.insert(QStringLiteral("onvifs"), url("https", ports.onvifs, "/onvif/device_service"));
        line.insert(QStringLiteral("rtsps"), url("rtsps", ports.rtsps, ""));
    }
    return QJsonDocument(line).toJson(QJsonDocument::Compact);
}

} // namespace recorder_sim
