#include "BackupDeviceCheck.h"

#include <BaseTools.h>
#include <ClientSecretKey.h>
#include <DevsMgrData.h>
#include <PwdStrength.h>

namespace vemo_filesCenter {

namespace {

constexpr int trustedDevType = 6;

bool isWeak(VCOMMON::PwdStrength strength)
{
    return strength == VCOMMON::PwdStrength::VeryWeak || strength == VCOMMON::PwdStrength::Weak;
}

} // namespace

QString BackupDeviceCheck::refusal(const Facts& facts)
{
    using vms_sdk::DevStatus;
    switch (facts.status) {
    case DevStatus::Offline:
        return tr("Failed to start backup:device offline");
    case DevStatus::Online:
        if (facts.type != trustedDevType && !facts.isAllPowerful && facts.hasWeakPassword)
            return tr("Failed to start backup:device uses weak password");
        return {};
    case DevStatus::WrongLogin:
        return tr("Failed to start backup:wrong user name or password for connecting device");
    case DevStatus::ConnectionLimit:
        return tr("Failed to start backup:the connection limit of the device has been reached");
    case DevStatus::DefaultPassword:
        if (facts.type != trustedDevType && !facts.hasOwnPassword)
            return tr("Failed to start backup:device uses default password");
        return {};
    case DevStatus::NotActive:
        return tr("Failed to start backup:device not active");
    case DevStatus::Locked:
        return tr("Failed to start backup:device login is locked");
    case DevStatus::LoginLimit:
        return tr("Failed to start backup:the login limit of the device has been reached");
    case DevStatus::RelayBroken:
        return tr("Failed to start backup:device relay connection broken");
    case DevStatus::Unknown:
        break;
    }
    return tr("Failed to start backup:device status unknown");
}

QString BackupDeviceCheck::refusal(const QString& channelId)
{
    const QString devId = vemo_base::BaseTools::instance().formatChannelId(channelId).first;
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    const vemo_data::PasswordTraits password = devices.passwordTraits(devId);
    Facts facts;
    facts.status = devices.getDevStatus(devId);
    facts.type = devices.getDevInfoById(devId).type;
    facts.isAllPowerful = vemo_worker::ClientSecretKey::instance().isAllPowerful();
    facts.hasWeakPassword = isWeak(VCOMMON::checkPwdStrength(password.length, password.kinds));
    facts.hasOwnPassword = password.length > 0;
    return refusal(facts);
}

} // namespace vemo_filesCenter
