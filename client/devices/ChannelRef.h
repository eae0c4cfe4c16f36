#pragma once

#include <QMetaType>
#include <QString>

namespace vemo_client {

/// A channel of a recorder.
struct ChannelRef
{
    QString devId;
    int channelNo = 0;

    bool operator==(const ChannelRef& other) const { return devId == other.devId && channelNo == other.channelNo; }
};

} // namespace vemo_client

Q_DECLARE_METATYPE(vemo_client::ChannelRef)
