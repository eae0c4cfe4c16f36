#pragma once

#include "ChannelRef.h"

#include <QByteArray>

#include <optional>

class QMimeData;

namespace vemo_client {

/// A channel as data that is dragged from the tree and dropped on a tile. Plain functions.
class ChannelMime final
{
public:
    ChannelMime() = delete;

    static QString type();
    /// Device id, NUL, channel number; UTF-8.
    static QByteArray encode(const ChannelRef& channel);
    /// Nothing when the data is no channel.
    static std::optional<ChannelRef> decode(const QMimeData* data);
};

} // namespace vemo_client
