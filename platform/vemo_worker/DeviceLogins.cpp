#include "DeviceLogins.h"

#include "PasswordStore.h"

#include <ClientSignals.h>
#include <DataSignals.h>
#include <DevsMgrData.h>

#include <QTimer>

#include <algorithm>

namespace vemo_worker {

namespace {

constexpr int firstRetryMs = 15'000;
constexpr int longestRetryMs = 300'000;

bool isWorthAnotherTry(vms_sdk::ErrorKind kind)
{
    switch (kind) {
    case vms_sdk::ErrorKind::Unreachable:
    case vms_sdk::ErrorKind::TimedOut:
    case vms_sdk::ErrorKind::BrokenOff:
    case vms_sdk::ErrorKind::LimitReached:
        return true;
    default:
        return false;
    }
}

} // namespace

DeviceLogins::DeviceLogins()
{
    connect(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevLoginRes, this,
            &DeviceLogins::answered);
    connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalDevRemoved, this,
            &DeviceLogins::forget);
}

DeviceLogins& DeviceLogins::instance()
{
    static DeviceLogins logins;
    return logins;
}

int DeviceLogins::retryAfterMs(int failures)
{
    int ms = firstRetryMs;
    for (int i = 1; i < failures && ms < longestRetryMs; ++i)
        ms *= 2;
    return qMin(ms, longestRetryMs);
}

void DeviceLogins::start()
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    QStringList devIds = devices.devIds();
    devIds.erase(std::remove_if(devIds.begin(), devIds.end(),
                                [&devices](const QString& devId) { return !devices.devRecord(devId).enabled; }),
                 devIds.end());
    m_starting = QSet<QString>(devIds.cbegin(), devIds.cend());
    for (const QString& devId : devIds)
        logIn(devId);
    if (devIds.isEmpty())
        QMetaObject::invokeMethod(this, &DeviceLogins::signalStarted, Qt::QueuedConnection);
}

void DeviceLogins::logIn(const QString& devId)
{
    vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    if (!devices.devRecord(devId).enabled) {
        forget(devId);
        asked(devId);
        return;
    }
    // A device behind a login without user needs no password.
    if (devices.devRecord(devId).user.isEmpty()) {
        devices.login(devId, QString());
        asked(devId);
        return;
    }
    PasswordStore::instance().get(devId, this, [this, devId](const QString& password, bool found) {
        vemo_data::DevsMgrData& known = vemo_data::DevsMgrData::instance();
        // A person may have logged it in meanwhile, or removed it.
        if (found && known.devRecord(devId).enabled && known.contains(devId) &&
            known.getDevStatus(devId) != vms_sdk::DevStatus::Online)
            known.login(devId, password);
        else if (!found)
            emit signalPasswordMissing(devId);
        asked(devId);
    });
}

void DeviceLogins::asked(const QString& devId)
{
    if (m_starting.remove(devId) && m_starting.isEmpty())
        QMetaObject::invokeMethod(this, &DeviceLogins::signalStarted, Qt::QueuedConnection);
}

void DeviceLogins::answered(const QString& devId, const vms_sdk::Error& error)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    if (!devices.contains(devId))
        return;
    if (!devices.devRecord(devId).enabled || !isWorthAnotherTry(error.kind)) {
        forget(devId);
        return;
    }
    const int failures = ++m_failures[devId];
    QTimer*& retry = m_retries[devId];
    if (!retry) {
        retry = new QTimer(this);
        retry->setSingleShot(true);
        connect(retry, &QTimer::timeout, this, [this, devId] { logIn(devId); });
    }
    retry->start(retryAfterMs(failures));
}

void DeviceLogins::forget(const QString& devId)
{
    m_failures.remove(devId);
    if (QTimer* retry = m_retries.take(devId))
        retry->deleteLater();
}

} // namespace vemo_worker
