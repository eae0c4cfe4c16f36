#pragma once

#include "vemo_base_global.h"

#include <VmsTypes.h>

#include <QCoreApplication>
#include <QPair>
#include <QString>

namespace vemo_base {

/// Texts and look-ups that every page needs. One object a process, without state of its own; GUI thread.
class VEMO_BASE_EXPORT BaseTools final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_base::BaseTools)

public:
    BaseTools(const BaseTools&) = delete;
    BaseTools& operator=(const BaseTools&) = delete;

    static BaseTools& instance();

    /// Splits a channel id, "devId|channelNo", into its parts; an empty device id and 0 when it is not one.
    QPair<QString, int> formatChannelId(const QString& channelId) const;
    QString formatChannelId(const QString& devId, int channelNo) const;

    /// The channel's current name: what the device calls it, else "Channel n"; empty when its device is not known.
    QString getChannelName(const QString& channelId) const;
    QString getChannelName(const QString& devId, int channelNo) const;
    /// An empty devId when the device is not known.
    vms_sdk::DevInfo getDevInfo(const QString& devId) const;
    /// The channel is still in the client. A device whose channels were never read is given the benefit of the doubt.
    bool isVideoExist(const QString& channelId) const;

    /// Display text of a recording location: 0 device, 1 platform storage, 2 edge card, 3 cloud, 4 this computer.
    QString strReocordingLocation(int location) const;

private:
    BaseTools() = default;
};

} // namespace vemo_base
