#pragma once

#include "VmsTypes.h"

#include <QHash>
#include <QObject>

namespace vms_sdk {

/// What the GUI thread knows of the devices: status and information, as last told. Turns the SOAP thread's words into
/// the signals of ClientSignals; words of a login that was replaced or logged out meanwhile are dropped. GUI thread.
class DeviceRegistry final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceRegistry)

public:
    explicit DeviceRegistry(QObject* parent = nullptr);

    /// Returns the serial number that the login's answers carry.
    quint64 add(const DevLogin& login);
    void remove(const QString& devId);
    DevStatus status(const QString& devId) const { return m_devices.value(devId).status; }
    DevInfo info(const QString& devId) const { return m_devices.value(devId).info; }

    void takeLoginDone(const QString& devId, quint64 serial, const Error& error);
    void takeStatus(const QString& devId, quint64 serial, DevStatus status);
    void takeInfo(quint64 serial, const DevInfo& info);
    void takeCertificate(const QString& devId, quint64 serial, const QSslCertificate& certificate,
                         const QByteArray& keySha256, const QString& reason);

private:
    struct Device
    {
        QUrl address;
        quint64 firstSerial = 0; ///< of the logins to this address
        DevStatus status = DevStatus::Unknown;
        DevInfo info;
    };

    Device* find(const QString& devId, quint64 serial);

    QHash<QString, Device> m_devices;
    quint64 m_lastSerial = 0;
};

} // namespace vms_sdk
