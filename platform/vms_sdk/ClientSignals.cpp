#include "ClientSignals.h"

#include <QCoreApplication>
#include <QThread>

namespace vms_sdk {

ClientSignals::ClientSignals(QObject* parent)
    : QObject(parent)
{
    qRegisterMetaType<vms_sdk::Error>();
    qRegisterMetaType<vms_sdk::DevStatus>();
    qRegisterMetaType<vms_sdk::DevInfo>();
    qRegisterMetaType<vms_sdk::VideoRecording>();
    qRegisterMetaType<QList<vms_sdk::VideoRecording>>();
    qRegisterMetaType<vms_sdk::DiscoveredDev>();
    qRegisterMetaType<vms_sdk::StreamEvent>();
    if (QCoreApplication::instance() != nullptr)
        moveToThread(QCoreApplication::instance()->thread());
}

ClientSignals& ClientSignals::instance()
{
    static ClientSignals signalHub;
    return signalHub;
}

} // namespace vms_sdk
