#include "DeviceRegistry.h"

#include "ClientSignals.h"

namespace vms_sdk {

DeviceRegistry::DeviceRegistry(QObject* parent)
    : QObject(parent)
{}

quint64 DeviceRegistry::add(const DevLogin& login)
{
    const quint64 serial = ++m_lastSerial;
    Device& device = m_devices[login.devId];
    if (device.firstSerial == 0 || device.address != login.address) {
        device = Device();
        device.address = login.address;
        device.firstSerial = serial;
    }
    return serial;
}

void DeviceRegistry::remove(const QString& devId)
{
    if (m_devices.remove(devId) > 0)
        emit ClientSignals::instance().signalDevStatusPush(devId, DevStatus::Unknown);
}

DeviceRegistry::Device* DeviceRegistry::find(const QString& devId, quint64 serial)
{
    const auto device = m_devices.find(devId);
    return device != m_devices.end() && serial >= device->firstSerial ? &*device : nullptr;
}

void DeviceRegistry::takeLoginDone(const QString& devId, quint64 serial, const Error& error)
{
    if (find(devId, serial) != nullptr)
        emit ClientSignals::instance().signalDevLoginRes(devId, error);
}

void DeviceRegistry::takeStatus(const QString& devId, quint64 serial, DevStatus status)
{
    if (Device* device = find(devId, serial)) {
        device->status = status;
        emit ClientSignals::instance().signalDevStatusPush(devId, status);
    }
}

void DeviceRegistry::takeInfo(quint64 serial, const DevInfo& info)
{
    if (Device* device = find(info.devId, serial)) {
        device->info = info;
        emit ClientSignals::instance().signalDevInfoPush(info);
    }
}

void DeviceRegistry::takeCertificate(const QString& devId, quint64 serial, const QSslCertificate& certificate,
                                     const QByteArray& keySha256, const QString& reason)
{
    if (find(devId, serial) != nullptr)
        emit ClientSignals::instance().signalDevCertificate(devId, certificate, keySha256, reason);
}

} // namespace vms_sdk
