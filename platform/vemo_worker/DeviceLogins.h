#pragma once

#include "vemo_worker_global.h"

#include <VmsTypes.h>

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

class QTimer;

namespace vemo_worker {

/// Logs the stored devices in with their stored passwords and keeps at it: a device that can't be reached is tried
/// again after 15 s, then after twice as long each time, up to 5 minutes. A refused login, a certificate that needs a
/// person, and a missing password are not tried again by themselves; a disabled device is left alone. One object a
/// process, on the GUI thread; start() once the devices are loaded.
class VEMO_WORKER_EXPORT DeviceLogins final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DeviceLogins)

public:
    static DeviceLogins& instance();

    /// Logs every stored device in; signalStarted follows.
    void start();
    /// Logs one device in with its stored password.
    void logIn(const QString& devId);

    /// The time before the next try after so many failures in a row.
    static int retryAfterMs(int failures);

signals:
    /// The login of every stored device was asked for, as far as there is a password; streams and searches that are
    /// asked for from now on wait for it by themselves.
    void signalStarted();
    /// No password is kept for the device, so that it can't log in by itself.
    void signalPasswordMissing(const QString& devId);

private:
    DeviceLogins();

    void asked(const QString& devId);
    void answered(const QString& devId, const vms_sdk::Error& error);
    void forget(const QString& devId);

    QSet<QString> m_starting;       ///< devices whose password is being looked up for start()
    QHash<QString, int> m_failures; ///< in a row
    QHash<QString, QTimer*> m_retries;
};

} // namespace vemo_worker
