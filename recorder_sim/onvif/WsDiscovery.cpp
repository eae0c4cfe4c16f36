#include "onvif/WsDiscovery.h"

#include "onvif/SoapEnvelope.h"
#include "onvif/SoapService.h"

#include <QHostAddress>
#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QUdpSocket>
#include <QUuid>

#include <future>

namespace recorder_sim {
namespace {

constexpr quint16 discoveryPort = 3702;
constexpr qint64 maxProbeBytes = 64 * 1024;
constexpr int waitMs = 100;
constexpr char wsd[] = "http://schemas.xmlsoap.org/ws/2005/04/discovery";
constexpr char wsa[] = "http://schemas.xmlsoap.org/ws/2004/08/addressing";

QNetworkInterface interfaceOf(const QHostAddress& address)
{
    for (const QNetworkInterface& one : QNetworkInterface::allInterfaces()) {
        for (const QNetworkAddressEntry& entry : one.addressEntries()) {
            if (entry.ip() == address)
                return one;
        }
    }
    return {};
}

} // namespace

WsDiscovery::WsDiscovery(const RecorderState& recorder)
    : m_recorder(recorder)
{}

WsDiscovery::~WsDiscovery()
{
    m_stopping = true;
    if (m_thread.joinable())
        m_thread.join();
}

bool WsDiscovery::open(QUdpSocket& socket, QString& error) const
{
    const QHostAddress group(QStringLiteral("239.255.255.250"));
    const QNetworkInterface network = interfaceOf(QHostAddress(QString::fromStdString(m_recorder.options.bind)));
    const bool opened =
        socket.bind(QHostAddress::AnyIPv4, discoveryPort, QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint) &&
        (network.isValid() ? socket.joinMulticastGroup(group, network) : socket.joinMulticastGroup(group));
    if (!opened)
        error = QStringLiteral("cannot answer discovery on UDP port 3702: ") + socket.errorString();
    return opened;
}

bool WsDiscovery::start(QString& error)
{
    // The socket belongs to the thread that uses it, so the outcome of opening it comes back from there.
    std::promise<bool> opened;
    std::future<bool> outcome = opened.get_future();
    m_thread = std::thread([this, &error, promise = std::move(opened)]() mutable {
        QUdpSocket socket;
        const bool good = open(socket, error);
        promise.set_value(good);
        const QString endpoint = QString::fromStdString(m_recorder.endpoint);
        while (good && !m_stopping) {
            if (!socket.waitForReadyRead(waitMs))
                continue;
            while (socket.hasPendingDatagrams()) {
                const QNetworkDatagram probe = socket.receiveDatagram(maxProbeBytes);
                const bool any = m_recorder.options.bind == "0.0.0.0";
                const QString host =
                    any ? QStringLiteral("127.0.0.1") : QString::fromStdString(m_recorder.options.bind);
                const QString address =
                    QStringLiteral("http://%1:%2/onvif/device_service").arg(host).arg(m_recorder.ports.onvif);
                const QByteArray match = answer(probe.data(), endpoint, address);
                if (!match.isEmpty())
                    socket.writeDatagram(match, probe.senderAddress(), static_cast<quint16>(probe.senderPort()));
            }
        }
    });
    return outcome.get();
}

QByteArray WsDiscovery::answer(const QByteArray& probe, const QString& endpoint, const QString& serviceAddress)
{
    SoapRequest request;
    if (!request.parse(probe) || request.body->name != QLatin1String("Probe") ||
        request.body->nameSpace != QLatin1String(wsd))
        return {};
    const QString types = request.body->textAt("Types");
    if (!types.isEmpty() && !types.contains(QLatin1String("NetworkVideoTransmitter")) &&
        !types.contains(QLatin1String("Device")))
        return {};
    const QString messageId = request.envelope.textAt("Header/MessageID");

    QByteArray out;
    QXmlStreamWriter xml(&out);
    xml.writeStartDocument();
    xml.writeNamespace(QLatin1String(onvif_ns::envelope), QStringLiteral("s"));
    xml.writeNamespace(QLatin1String(wsa), QStringLiteral("a"));
    xml.writeNamespace(QLatin1String(wsd), QStringLiteral("d"));
    xml.writeNamespace(QStringLiteral("http://www.onvif.org/ver10/network/wsdl"), QStringLiteral("dn"));
    xml.writeStartElement(QLatin1String(onvif_ns::envelope), QStringLiteral("Envelope"));
    {
        const XmlElement header(xml, onvif_ns::envelope, "Header");
        writeText(xml, wsa, "MessageID",
                  QStringLiteral("urn:uuid:") + QUuid::createUuid().toString(QUuid::WithoutBraces));
        writeText(xml, wsa, "RelatesTo", messageId);
        writeText(xml, wsa, "To", QStringLiteral("http://schemas.xmlsoap.org/ws/2004/08/addressing/role/anonymous"));
        writeText(xml, wsa, "Action", QLatin1String(wsd) + QStringLiteral("/ProbeMatches"));
    }
    {
        const XmlElement body(xml, onvif_ns::envelope, "Body");
        const XmlElement matches(xml, wsd, "ProbeMatches");
        const XmlElement match(xml, wsd, "ProbeMatch");
        {
            const XmlElement reference(xml, wsa, "EndpointReference");
            writeText(xml, wsa, "Address", endpoint);
        }
        writeText(xml, wsd, "Types", QStringLiteral("dn:NetworkVideoTransmitter"));
        writeText(xml, wsd, "Scopes",
                  QStringLiteral("onvif://www.onvif.org/Profile/G onvif://www.onvif.org/name/Simulated_recorder "
                                 "onvif://www.onvif.org/hardware/SIM-1"));
        writeText(xml, wsd, "XAddrs", serviceAddress);
        writeText(xml, wsd, "MetadataVersion", QStringLiteral("1"));
    }
    xml.writeEndDocument();
    return out;
}

} // namespace recorder_sim
