#include "SdkCore.h"

#include "ClientSignals.h"
#include "SearchJob.h"

namespace vms_sdk {

SdkCore::SdkCore(const SdkLimits& limits, std::shared_ptr<StreamFlowTable> flows)
    : m_searches(limits.requestTimeoutMs)
    , m_streams(limits, std::move(flows), m_mailbox)
    , m_soap(QStringLiteral("vms-soap"), limits)
{
    SoapWorker* soap = m_soap.worker();
    connect(soap, &SoapWorker::loginDone, soap, delivery(m_mailbox, m_devices, &DeviceRegistry::takeLoginDone),
            Qt::DirectConnection);
    connect(soap, &SoapWorker::statusChanged, soap, delivery(m_mailbox, m_devices, &DeviceRegistry::takeStatus),
            Qt::DirectConnection);
    connect(soap, &SoapWorker::infoChanged, soap, delivery(m_mailbox, m_devices, &DeviceRegistry::takeInfo),
            Qt::DirectConnection);
    connect(soap, &SoapWorker::certificateRefused, soap,
            delivery(m_mailbox, m_devices, &DeviceRegistry::takeCertificate), Qt::DirectConnection);
    connect(soap, &SoapWorker::searchDone, soap, delivery(m_mailbox, m_searches, &SearchRequests::answer),
            Qt::DirectConnection);
    connect(soap, &SoapWorker::sourceFound, soap, delivery(m_mailbox, m_streams, &StreamRegistry::takeSource),
            Qt::DirectConnection);
    connect(soap, &SoapWorker::devDiscovered, soap,
            delivery(m_mailbox, ClientSignals::instance(), &ClientSignals::signalDevDiscovered), Qt::DirectConnection);
    connect(soap, &SoapWorker::discoveryDone, soap,
            delivery(m_mailbox, ClientSignals::instance(), &ClientSignals::signalDiscoveryFinished),
            Qt::DirectConnection);
    connect(&m_searches, &SearchRequests::timedOut, this, [this](const QString& requestId) {
        m_soap.post([requestId](SoapWorker& worker) { worker.cancel(requestId); });
    });
    connect(&m_streams, &StreamRegistry::sourceWanted, this, [this](quint64 streamId, const StreamWish& wish) {
        m_soap.post([streamId, wish](SoapWorker& worker) { worker.findSource(streamId, wish); });
    });
    m_soap.start();
}

SdkCore::~SdkCore() = default;

void SdkCore::logIn(const DevLogin& login)
{
    const quint64 serial = m_devices.add(login);
    m_soap.post([login, serial](SoapWorker& worker) { worker.logIn(login, serial); });
}

void SdkCore::logOut(const QString& devId)
{
    m_streams.closeDevice(devId);
    m_devices.remove(devId);
    m_soap.post([devId](SoapWorker& worker) { worker.logOut(devId); });
}

void SdkCore::search(const RecsSearchCondition& condition)
{
    if (!m_searches.add(condition.requestId))
        return;
    if (!condition.begin.isValid() || !condition.end.isValid() || condition.end <= condition.begin) {
        const Error error{ErrorKind::NotFound, tr("The end of the time span lies before its begin."), {}};
        QMetaObject::invokeMethod(
            this, [this, condition, error] { m_searches.answer(condition.requestId, error, {}); },
            Qt::QueuedConnection);
        return;
    }
    m_soap.post([condition](SoapWorker& worker) { worker.search(condition); });
}

void SdkCore::discover(const QString& requestId, int timeoutMs)
{
    m_soap.post([requestId, timeoutMs](SoapWorker& worker) { worker.discover(requestId, timeoutMs); });
}

void SdkCore::cancelRequest(const QString& requestId)
{
    m_soap.post([requestId](SoapWorker& worker) { worker.cancel(requestId); });
    // The thread for SOAP may have the pages of two hundred devices to read before it hears of that.
    QMetaObject::invokeMethod(
        this,
        [this, requestId] {
            m_searches.answer(requestId, {ErrorKind::Cancelled, SearchJob::tr("The search was cancelled."), {}}, {});
        },
        Qt::QueuedConnection);
}

} // namespace vms_sdk
