#include "SdkCore.h"

namespace vms_sdk {

SdkCore::SdkCore(const SdkLimits& limits, std::shared_ptr<StreamFlowTable> flows)
    : m_searches(limits.requestTimeoutMs)
    , m_streams(limits, std::move(flows))
    , m_soap(QStringLiteral("vms-soap"), limits)
{
    qRegisterMetaType<QSslCertificate>();
    qRegisterMetaType<vms_sdk::ReplaySource>();
    SoapWorker* soap = m_soap.worker();
    connect(soap, &SoapWorker::loginDone, &m_devices, &DeviceRegistry::takeLoginDone);
    connect(soap, &SoapWorker::statusChanged, &m_devices, &DeviceRegistry::takeStatus);
    connect(soap, &SoapWorker::infoChanged, &m_devices, &DeviceRegistry::takeInfo);
    connect(soap, &SoapWorker::certificateRefused, &m_devices, &DeviceRegistry::takeCertificate);
    connect(soap, &SoapWorker::searchDone, &m_searches, &SearchRequests::answer);
    connect(soap, &SoapWorker::replayFound, &m_streams, &StreamRegistry::takeReplay);
    connect(&m_searches, &SearchRequests::timedOut, this, [this](const QString& requestId) {
        m_soap.post([requestId](SoapWorker& worker) { worker.cancelSearch(requestId); });
    });
    connect(&m_streams, &StreamRegistry::replayWanted, this,
            [this](quint64 streamId, const QString& devId, int channelNo, const QString& recordingToken) {
                m_soap.post([=](SoapWorker& worker) { worker.findReplay(streamId, devId, channelNo, recordingToken); });
            });
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
