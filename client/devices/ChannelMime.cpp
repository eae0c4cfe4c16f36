#include "ChannelMime.h"

#include <QMimeData>

namespace vemo_client {

namespace {

constexpr int longestData = 1024;

} // namespace

QString ChannelMime::type()
{
    return QStringLiteral("application/x-vemo-channel");
}

QByteArray ChannelMime::encode(const ChannelRef& channel)
{
    return channel.devId.toUtf8() + '\0' + QByteArray::number(channel.channelNo);
}

std::optional<ChannelRef> ChannelMime::decode(const QMimeData* data)
{
    // Any program can be the source of a drop.
    const QByteArray bytes = data ? data->data(type()) : QByteArray();
    const int at = bytes.indexOf('\0');
    if (at <= 0 || bytes.size() > longestData)
        return std::nullopt;
    bool isNumber = false;
    const int channelNo = bytes.mid(at + 1).toInt(&isNumber);
    if (!isNumber || channelNo < 1)
        return std::nullopt;
    return ChannelRef{QString::fromUtf8(bytes.left(at)), channelNo};
}

} // namespace vemo_client
