#pragma once

#include "onvif/ProbeMatches.h"
#include "VmsTypes.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <memory>
#include <vector>

class QUdpSocket;

namespace vms_sdk {

/// One discovery: WS-Discovery probes (OASIS WS-Discovery 2005/04, ONVIF Core clause 7) by multicast out of every IPv4
/// interface, the loopback one included, and the answers until the time is up. Lives on the SOAP thread, owned by
/// SoapWorker. A probe is sent twice, because datagrams get lost; what answers it is bounded in size and number, so
/// that a hostile network costs at most a second of processor time. finished() comes exactly once, later; with an error
/// only when there was no interface to ask on.
class DiscoveryJob final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DiscoveryJob)

public:
    DiscoveryJob(QString requestId, int timeoutMs, QObject* parent = nullptr);
    ~DiscoveryJob() override;

    void start();
    void cancel();

signals:
    void found(const QString& requestId, const vms_sdk::DiscoveredDev& dev);
    void finished(const QString& requestId, const vms_sdk::Error& error);

private:
    void openSockets();
    void probe();
    void read(QUdpSocket& socket);
    void take(const onvif::ProbeMatch& match);
    void finish(const Error& error);

    const QString m_requestId;
    std::vector<std::unique_ptr<QUdpSocket>> m_sockets; ///< one an interface
    QStringList m_messageIds;                           ///< of the probes sent
    QHash<QString, DiscoveredDev> m_devices;            ///< by endpoint
    int m_datagrams = 0;
    bool m_isFinished = false;
    QTimer m_timeout;
    QTimer m_again;
};

} // namespace vms_sdk
