#pragma once

#include "devices/ChannelRef.h"

#include <QMimeData>

#include <optional>

namespace vemo_client {

/// A channel on its way from one widget to another by drag and drop.
namespace ChannelMime {

inline QString type()
{
    return QStringLiteral("application/x-vemo-channel");
}

/// Identifier of the recorder, NUL, number of the channel.
inline QByteArray encode(const ChannelRef& channel)
{
    return channel.devId.toUtf8() + '\0' + QByteArray::number(channel.channelNo);
}

inline std::optional<ChannelRef> decode(const QMimeData* data)
{
    const QByteArray bytes = data ? data->data(type()) : QByteArray();
    const int middle = bytes.indexOf('\0');
    const int channelNo = middle > 0 ? bytes.mid(middle + 1).toInt() : 0;
    if (channelNo <= 0)
        return std::nullopt;
    return ChannelRef{QString::fromUtf8(bytes.left(middle)), channelNo};
}

} // namespace ChannelMime

} // namespace vemo_client
