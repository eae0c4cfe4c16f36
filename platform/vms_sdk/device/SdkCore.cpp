#include "SdkCore.h"

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
    connect(soap, &SoapWorker::replayFound, soap, delivery(m_mailbox, m_streams, &StreamRegistry::takeReplay),
            Qt::DirectConnection);
    connect(&m_searches, &SearchRequests::timedOut, this, [this](const QString& requestId) {
        m_soap.post([requestId](SoapWorker& worker) { worker.cancelSearch(requestId); });
    });
    connect(&m_streams, &StreamRegistry::replayWanted, this,
            [this](quint64 streamId, const QString& devId, int channelNo, const QString& recordingToken) {
                m_soap.post([=](SoapWorker& worker) { worker.findReplay(streamId, devId, channelNo, recordingToken); });
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

void SdkCore::cancelSearch(const QString& requestId)
{
    if (m_searches.isWaiting(requestId))
        m_soap.post([requestId](SoapWorker& worker) { worker.cancelSearch(requestId); });
}

} // namespace vms_sdk
