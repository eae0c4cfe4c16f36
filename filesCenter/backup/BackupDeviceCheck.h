#pragma once

#include <VmsTypes.h>

#include <QCoreApplication>
#include <QString>

namespace vemo_filesCenter {

/// Whether a backup may start, by what is known of its device.
class BackupDeviceCheck final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_filesCenter::BackupDeviceCheck)

public:
    BackupDeviceCheck() = delete;

    struct Facts
    {
        vms_sdk::DevStatus status = vms_sdk::DevStatus::Unknown;
        int type = 0;               ///< of the device record; 6 is not asked for its password
        bool isAllPowerful = false; ///< the user
        bool hasWeakPassword = false;
        bool hasOwnPassword = false; ///< one was set for the device
    };

    /// Empty: allowed; else the reason as the task's message.
    static QString refusal(const Facts& facts);
    /// The same for the device of a channel as it is now.
    static QString refusal(const QString& channelId);
};

} // namespace vemo_filesCenter
