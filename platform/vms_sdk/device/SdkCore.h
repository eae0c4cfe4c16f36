#pragma once

#include "DeviceRegistry.h"
#include "SdkLimits.h"
#include "SearchRequests.h"
#include "SoapWorker.h"
#include "StreamRegistry.h"
#include "WorkerThread.h"

#include <QObject>

namespace vms_sdk {

/// One life of the library, from init_sdk() to uninit_sdk(): ties the GUI thread's registries to the SOAP thread. Lives
/// on the GUI thread. Destroying it ends all threads; what they still had to say dies with the registries that would
/// have heard it.
class SdkCore final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SdkCore)

public:
    SdkCore(const SdkLimits& limits, std::shared_ptr<StreamFlowTable> flows);
    ~SdkCore() override;

    void logIn(const DevLogin& login);
    void logOut(const QString& devId);
    void search(const RecsSearchCondition& condition);
    void discover(const QString& requestId, int timeoutMs);
    void cancelRequest(const QString& requestId);

    const DeviceRegistry& devices() const { return m_devices; }
    SearchRequests& searches() { return m_searches; }
    StreamRegistry& streams() { return m_streams; }

private:
    Mailbox m_mailbox; ///< what the other threads have to say
    DeviceRegistry m_devices;
    SearchRequests m_searches;
    StreamRegistry m_streams;
    WorkerThread<SoapWorker> m_soap; ///< last: its thread ends first
};

} // namespace vms_sdk
