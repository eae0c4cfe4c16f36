#include "BaseTools.h"

#include <DevsMgrData.h>

#include <algorithm>

namespace vemo_base {

namespace {

const QChar separator(QLatin1Char('|'));

} // namespace

BaseTools& BaseTools::instance()
{
    static BaseTools tools;
    return tools;
}

QPair<QString, int> BaseTools::formatChannelId(const QString& channelId) const
{
    const int at = channelId.lastIndexOf(separator);
    bool isNumber = false;
    const int channelNo = channelId.mid(at + 1).toInt(&isNumber);
    if (at <= 0 || !isNumber || channelNo < 0)
        return {QString(), 0};
    return {channelId.left(at), channelNo};
}

QString BaseTools::formatChannelId(const QString& devId, int channelNo) const
{
    return devId + separator + QString::number(channelNo);
}

QString BaseTools::getChannelName(const QString& channelId) const
{
    const QPair<QString, int> parts = formatChannelId(channelId);
    return getChannelName(parts.first, parts.second);
}

QString BaseTools::getChannelName(const QString& devId, int channelNo) const
{
    const vemo_data::DevsMgrData& devs = vemo_data::DevsMgrData::instance();
    if (!devs.contains(devId))
        return {};
    const QList<vms_sdk::ChannelInfo> channels = devs.channels(devId);
    for (const vms_sdk::ChannelInfo& channel : channels) {
        if (channel.channelNo == channelNo && !channel.name.isEmpty())
            return channel.name;
    }
    return tr("Channel %1").arg(channelNo);
}

vms_sdk::DevInfo BaseTools::getDevInfo(const QString& devId) const
{
    return vemo_data::DevsMgrData::instance().getDevInfoById(devId);
}

bool BaseTools::isVideoExist(const QString& channelId) const
{
    const QPair<QString, int> parts = formatChannelId(channelId);
    const vemo_data::DevsMgrData& devs = vemo_data::DevsMgrData::instance();
    if (parts.first.isEmpty() || !devs.contains(parts.first))
        return false;
    const QList<vms_sdk::ChannelInfo> channels = devs.channels(parts.first);
    return channels.isEmpty() || std::any_of(channels.cbegin(), channels.cend(), [&parts](const auto& channel) {
               return channel.channelNo == parts.second;
           });
}

QString BaseTools::strReocordingLocation(int location) const
{
    switch (location) {
    case 0:
        return tr("Device");
    case 1:
        return tr("Platform Storage");
    case 2:
        return tr("Edge Card");
    case 3:
        return tr("Cloud");
    case 4:
        return tr("This Computer");
    default:
        return tr("Unknown");
    }
}

} // namespace vemo_base
