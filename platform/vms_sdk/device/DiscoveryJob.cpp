#include "DiscoveryJob.h"

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QUdpSocket>
#include <QUuid>

namespace vms_sdk {

namespace {

constexpr quint16 discoveryPort = 3702;
constexpr int minTimeoutMs = 500;
constexpr int maxTimeoutMs = 60'000;
// Datagrams get lost: the probe goes out twice (SOAP over UDP 1.1, clause 4).
constexpr int againMs = 250;
constexpr int maxInterfaces = 32;
constexpr int maxDevices = 1000;
constexpr int maxDatagrams = 10'000;
constexpr int maxAddresses = 8;
// What is read in one turn of the event loop.
constexpr int datagramsATurn = 50;

} // namespace

DiscoveryJob::DiscoveryJob(QString requestId, int timeoutMs, QObject* parent)
    : QObject(parent)
    , m_requestId(std::move(requestId))
{
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(qBound(minTimeoutMs, timeoutMs, maxTimeoutMs));
    m_again.setSingleShot(true);
    m_again.setInterval(againMs);
    connect(&m_timeout, &QTimer::timeout, this, [this] { finish({}); });
    connect(&m_again, &QTimer::timeout, this, &DiscoveryJob::probe);
}

DiscoveryJob::~DiscoveryJob() = default;

void DiscoveryJob::start()
{
    openSockets();
    m_timeout.start();
    if (m_sockets.empty()) {
        const Error error{ErrorKind::Unreachable, tr("This computer is connected to no network."), {}};
        QMetaObject::invokeMethod(
            this, [this, error] { finish(error); }, Qt::QueuedConnection);
        return;
    }
    probe();
    m_again.start();
}

void DiscoveryJob::openSockets()
{
    for (const QNetworkInterface& network : QNetworkInterface::allInterfaces()) {
        const QNetworkInterface::InterfaceFlags flags = network.flags();
        const bool mayAsk =
            flags.testFlag(QNetworkInterface::IsRunning) &&
            (flags.testFlag(QNetworkInterface::CanMulticast) || flags.testFlag(QNetworkInterface::IsLoopBack));
        if (!mayAsk || m_sockets.size() == maxInterfaces)
            continue;
        for (const QNetworkAddressEntry& entry : network.addressEntries()) {
            if (entry.ip().protocol() != QAbstractSocket::IPv4Protocol)
                continue;
            auto socket = std::make_unique<QUdpSocket>();
            if (!socket->bind(entry.ip(), 0))
                continue;
            socket->setMulticastInterface(network);
            connect(socket.get(), &QUdpSocket::readyRead, this, [this, raw = socket.get()] { read(*raw); });
            m_sockets.push_back(std::move(socket));
            break;
        }
    }
}

void DiscoveryJob::probe()
{
    const QHostAddress group(QStringLiteral("239.255.255.250"));
    // A probe asks for all of its types at once, and devices know one of these or the other.
    for (const QLatin1String type : {QLatin1String("dn:NetworkVideoTransmitter"), QLatin1String("tds:Device")}) {
        const QString messageId = QStringLiteral("urn:uuid:") + QUuid::createUuid().toString(QUuid::WithoutBraces);
        m_messageIds.append(messageId);
        const QByteArray datagram = onvif::makeProbe(messageId, type);
        for (const auto& socket : m_sockets)
            socket->writeDatagram(datagram, group, discoveryPort);
    }
}

void DiscoveryJob::read(QUdpSocket& socket)
{
    for (int count = 0; !m_isFinished; ++count) {
        if (count == datagramsATurn) {
            QMetaObject::invokeMethod(
                &socket, [this, raw = &socket] { read(*raw); }, Qt::QueuedConnection);
            return;
        }
        // Until there is none: a readyRead() after which nothing was asked for is the last one. One byte more tells a
        // datagram that is too large.
        const QNetworkDatagram datagram = socket.receiveDatagram(onvif::maxProbeAnswerBytes + 1);
        if (!datagram.isValid())
            return;
        if (++m_datagrams > maxDatagrams)
            continue;
        for (const onvif::ProbeMatch& match :
             onvif::readProbeMatches(datagram.data(), datagram.senderAddress(), m_messageIds))
            take(match);
    }
}

void DiscoveryJob::take(const onvif::ProbeMatch& match)
{
    const auto known = m_devices.find(match.endpoint);
    if (known == m_devices.end()) {
        if (m_devices.size() < maxDevices) {
            m_devices.insert(match.endpoint, match);
            emit found(m_requestId, match);
        }
        return;
    }
    const int before = known->addresses.size();
    for (const QUrl& address : match.addresses) {
        if (!known->addresses.contains(address) && known->addresses.size() < maxAddresses)
            known->addresses.append(address);
    }
    if (known->addresses.size() > before)
        emit found(m_requestId, *known);
}

void DiscoveryJob::cancel()
{
    QMetaObject::invokeMethod(
        this, [this] { finish({}); }, Qt::QueuedConnection);
}

void DiscoveryJob::finish(const Error& error)
{
    if (m_isFinished)
        return;
    m_isFinished = true;
    m_timeout.stop();
    m_again.stop();
    for (const auto& socket : m_sockets)
        socket->close();
    emit finished(m_requestId, error);
}

} // namespace vms_sdk
