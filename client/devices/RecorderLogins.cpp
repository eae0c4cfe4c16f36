#include "RecorderLogins.h"

#include <ClientSignals.h>
#include <DeviceLogins.h>
#include <DevsMgrData.h>
#include <PasswordStore.h>

namespace vemo_client {

namespace {

using vemo_data::DevsMgrData;
using vms_sdk::ErrorKind;

constexpr int lookMs = 120'000;
constexpr int againMs = 5000;

} // namespace

RecorderLogins::RecorderLogins(QObject* parent)
    : QObject(parent)
{
    const vms_sdk::ClientSignals& client = vms_sdk::ClientSignals::instance();
    connect(&client, &vms_sdk::ClientSignals::signalDevLoginRes, this, &RecorderLogins::takeLogin);
    connect(&client, &vms_sdk::ClientSignals::signalDevStatusPush, this, &RecorderLogins::takeStatus);
    connect(&client, &vms_sdk::ClientSignals::signalDevCertificate, this, &RecorderLogins::takeCertificate);
    connect(&vemo_worker::DeviceLogins::instance(), &vemo_worker::DeviceLogins::signalPasswordMissing, this,
            [this](const QString& devId) {
                if (m_logins.contains(devId))
                    setPhase(devId, Phase::PasswordWanted);
            });
    // A keyring that waited to be unlocked.
    connect(&vemo_worker::PasswordStore::instance(), &vemo_worker::PasswordStore::signalKeyringOpened, this, [this] {
        const QStringList devIds = m_logins.keys();
        for (const QString& devId : devIds) {
            if (login(devId).phase == Phase::PasswordWanted)
                retry(devId);
        }
    });
    connect(&m_lookTimer, &QTimer::timeout, this, &RecorderLogins::look);
}

RecorderLogins::~RecorderLogins() = default;

bool RecorderLogins::retriesAfter(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::Unreachable:
    case ErrorKind::TimedOut:
    case ErrorKind::BrokenOff:
    case ErrorKind::LimitReached:
        return true;
    default:
        return false;
    }
}

void RecorderLogins::start()
{
    const DevsMgrData& devices = DevsMgrData::instance();
    const QStringList devIds = devices.devIds();
    for (const QString& devId : devIds) {
        const bool isOnline = devices.getDevStatus(devId) == vms_sdk::DevStatus::Online;
        setPhase(devId, !devices.devRecord(devId).enabled ? Phase::Disabled
                        : isOnline                        ? Phase::Online
                                                          : Phase::Connecting);
    }
    vemo_worker::DeviceLogins::instance().start();
    m_lookTimer.start(lookMs);
}

QString RecorderLogins::add(const vemo_data::DevRecord& record, const QString& password)
{
    DevsMgrData& devices = DevsMgrData::instance();
    const QString devId = devices.addDev(record);
    keepPassword(devId, password);
    setPhase(devId, Phase::Connecting);
    devices.login(devId, password);
    return devId;
}

void RecorderLogins::addWithoutPassword(const vemo_data::DevRecord& record)
{
    const QString devId = DevsMgrData::instance().addDev(record);
    const bool needsNone = record.user.isEmpty();
    setPhase(devId, !record.enabled ? Phase::Disabled : needsNone ? Phase::Connecting : Phase::PasswordWanted);
    if (record.enabled && needsNone)
        logIn(devId);
}

void RecorderLogins::change(const vemo_data::DevRecord& record, const std::optional<QString>& password)
{
    if (!m_logins.contains(record.devId))
        return;
    DevsMgrData& devices = DevsMgrData::instance();
    devices.addDev(record);
    if (!record.enabled) {
        if (password)
            keepPassword(record.devId, *password);
        emit signalChanged(record.devId);
        return;
    }
    setPhase(record.devId, Phase::Connecting);
    if (password) {
        keepPassword(record.devId, *password);
        devices.login(record.devId, *password);
    } else {
        logIn(record.devId);
    }
}

void RecorderLogins::remove(const QString& devId)
{
    if (m_logins.remove(devId) == 0)
        return;
    vemo_worker::PasswordStore::instance().remove(devId);
    DevsMgrData::instance().removeDev(devId);
    emit signalChanged(devId);
}

void RecorderLogins::retry(const QString& devId)
{
    if (!m_logins.contains(devId) || login(devId).phase == Phase::Disabled)
        return;
    setPhase(devId, Phase::Connecting);
    logIn(devId);
}

void RecorderLogins::trust(const QString& devId, const QByteArray& shownKeySha256)
{
    const Login login = this->login(devId);
    if (login.phase != Phase::CertificateUnknown || login.offeredKeySha256 != shownKeySha256)
        return;
    vemo_data::DevRecord record = DevsMgrData::instance().devRecord(devId);
    record.pinnedKeySha256 = shownKeySha256;
    change(record, std::nullopt);
}

void RecorderLogins::setEnabled(const QString& devId, bool enabled)
{
    const bool isEnabled = login(devId).phase != Phase::Disabled;
    if (!m_logins.contains(devId) || isEnabled == enabled)
        return;
    // First the phase: what the logging out is answered by is nothing new.
    m_logins[devId] = Login();
    m_logins[devId].phase = enabled ? Phase::Connecting : Phase::Disabled;
    DevsMgrData::instance().setEnabled(devId, enabled);
    emit signalChanged(devId);
    if (enabled)
        logIn(devId);
}

void RecorderLogins::moveTo(const QString& devId, const QUrl& address)
{
    vemo_data::DevRecord record = DevsMgrData::instance().devRecord(devId);
    record.address = address;
    change(record, std::nullopt);
}

QStringList RecorderLogins::offline() const
{
    QStringList devIds;
    for (auto login = m_logins.cbegin(); login != m_logins.cend(); ++login) {
        const Phase phase = login->phase;
        if (phase == Phase::Failed || phase == Phase::PasswordWanted || phase == Phase::CertificateUnknown)
            devIds.append(login.key());
    }
    return devIds;
}

/// With the kept password, whatever the recorder's status is; the phase stays until the answer.
void RecorderLogins::logIn(const QString& devId)
{
    DevsMgrData& devices = DevsMgrData::instance();
    if (devices.devRecord(devId).user.isEmpty()) {
        devices.login(devId, QString());
        return;
    }
    vemo_worker::PasswordStore::instance().get(devId, this, [this, devId](const QString& password, bool found) {
        if (!m_logins.contains(devId) || login(devId).phase == Phase::Disabled)
            return;
        if (found)
            DevsMgrData::instance().login(devId, password);
        else if (login(devId).phase != Phase::Online)
            setPhase(devId, Phase::PasswordWanted);
    });
}

void RecorderLogins::keepPassword(const QString& devId, const QString& password)
{
    vemo_worker::PasswordStore::instance().put(devId, password, this, [this, devId](bool kept) {
        if (!kept)
            emit signalPasswordNotKept(devId);
    });
}

void RecorderLogins::look()
{
    const QStringList devIds = m_logins.keys();
    for (const QString& devId : devIds) {
        if (login(devId).phase == Phase::Online)
            logIn(devId);
    }
}

void RecorderLogins::setPhase(const QString& devId, Phase phase)
{
    m_logins[devId].phase = phase;
    emit signalChanged(devId);
}

void RecorderLogins::takeLogin(const QString& devId, const vms_sdk::Error& error)
{
    const auto login = m_logins.find(devId);
    if (login == m_logins.end() || error.kind == ErrorKind::Cancelled || login->phase == Phase::Disabled)
        return;
    // The certificate itself tells more than the failure that it causes.
    if (error.kind == ErrorKind::CertificateRefused && !login->offeredKeySha256.isEmpty()) {
        setPhase(devId, Phase::CertificateUnknown);
        return;
    }
    *login = Login();
    login->error = error;
    setPhase(devId, error ? Phase::Failed : Phase::Online);
}

/// Between logins: a search or a stream found the recorder gone.
void RecorderLogins::takeStatus(const QString& devId, vms_sdk::DevStatus status)
{
    const auto login = m_logins.find(devId);
    if (login == m_logins.end() || login->phase != Phase::Online || status != vms_sdk::DevStatus::Offline)
        return;
    login->error = {ErrorKind::Unreachable, tr("The recorder stopped answering."), {}};
    setPhase(devId, Phase::Failed);
    QTimer::singleShot(againMs, this, [this, devId] {
        if (this->login(devId).phase == Phase::Failed)
            logIn(devId);
    });
}

/// A recorder that is online stays so until its own login is refused: a stream may come from elsewhere.
void RecorderLogins::takeCertificate(const QString& devId, const QSslCertificate& certificate,
                                     const QByteArray& keySha256, const QString& reason)
{
    const auto login = m_logins.find(devId);
    if (login == m_logins.end() || login->phase == Phase::Disabled)
        return;
    login->offeredKeySha256 = keySha256;
    login->offeredCertificate = certificate;
    login->certificateReason = reason;
    const vemo_data::DevRecord record = DevsMgrData::instance().devRecord(devId);
    login->trustedKeySha256 = record.pinnedKeySha256;
    login->host = record.address.host();
    if (login->phase != Phase::Online)
        setPhase(devId, Phase::CertificateUnknown);
}

} // namespace vemo_client
