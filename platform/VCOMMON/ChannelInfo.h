#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

namespace VCOMMON {

/// A channel as the local index stores and the local playback know it.
struct ChannelInfo
{
    QString devId;
    int channelNo = 0;
    QString devLabel;    ///< the device's name
    QString channelName; ///< as the person knows it; may be empty
};

} // namespace VCOMMON

Q_DECLARE_METATYPE(VCOMMON::ChannelInfo)
Q_DECLARE_METATYPE(QList<VCOMMON::ChannelInfo>)
