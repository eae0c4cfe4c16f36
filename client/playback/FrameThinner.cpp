#include "FrameThinner.h"

#include <cstddef>

namespace vemo_client {

namespace {

using vav::Codec;
using vav::PacketReader;

constexpr std::size_t lengthBytes = 4;

/// The first octet of the first NAL unit that belongs to a picture; -1: there is none.
int pictureUnit(Codec codec, const std::uint8_t* payload, std::size_t size)
{
    for (std::size_t at = 0; at + lengthBytes < size;) {
        const std::size_t length = std::size_t(payload[at]) << 24 | std::size_t(payload[at + 1]) << 16 |
                                   std::size_t(payload[at + 2]) << 8 | std::size_t(payload[at + 3]);
        const int octet = payload[at + lengthBytes];
        const int type = codec == Codec::H264 ? octet & 0x1f : octet >> 1 & 0x3f;
        const bool isPicture = codec == Codec::H264 ? type >= 1 && type <= 5 : type <= 31;
        if (length > 0 && isPicture)
            return octet;
        if (length > size - at - lengthBytes)
            break;
        at += lengthBytes + length;
    }
    return -1;
}

} // namespace

void FrameThinner::setKeep(Keep keep)
{
    if (m_keep == Keep::KeyFrames && keep != Keep::KeyFrames)
        m_waitsForKeyFrame = true;
    m_keep = keep;
}

void FrameThinner::reset()
{
    m_waitsForKeyFrame = false;
}

bool FrameThinner::isReference(const vav::FrameHeader& frame, const std::uint8_t* payload) const
{
    const Codec codec = codecOf(frame.track);
    if (codec != Codec::H264 && codec != Codec::H265)
        return true;
    const int octet = pictureUnit(codec, payload, frame.payloadBytes);
    if (octet < 0)
        return true;
    if (codec == Codec::H264)
        return (octet >> 5 & 3) != 0;
    const int type = octet >> 1 & 0x3f;
    return type > 15 || type % 2 == 1;
}

bool FrameThinner::isWanted(const vav::FrameHeader& frame, const std::uint8_t* payload)
{
    if (!vav::isVideo(codecOf(frame.track)))
        return m_keep == Keep::All;
    if (frame.flags & vav::KeyFrame) {
        m_waitsForKeyFrame = false;
        return true;
    }
    if (m_waitsForKeyFrame || m_keep == Keep::KeyFrames)
        return false;
    return m_keep == Keep::All || isReference(frame, payload);
}

QByteArray FrameThinner::thinned(const QByteArray& batch)
{
    const char* const begin = batch.constData();
    const auto size = std::size_t(batch.size());
    PacketReader reader(begin, size);
    QByteArray kept;
    bool isWhole = true;
    std::size_t offset = 0;
    while (reader.next() == PacketReader::Status::Packet) {
        if (reader.kind() == vav::PacketKind::StreamInfo) {
            m_codecs = {};
            for (const vav::TrackInfo& track : reader.streamInfo().tracks) {
                if (track.track < m_codecs.size())
                    m_codecs[track.track] = track.codec;
            }
            continue;
        }
        const char* const end = reinterpret_cast<const char*>(reader.payload()) + reader.frame().payloadBytes;
        const auto packetEnd = std::size_t(end - begin);
        const std::size_t packet = packetEnd - reader.frame().payloadBytes - vav::headerBytes;
        // What stands before the frame, such as the stream's description, always stays.
        if (isWanted(reader.frame(), reader.payload())) {
            if (!isWhole)
                kept.append(begin + offset, int(packetEnd - offset));
        } else {
            if (isWhole)
                kept = batch.left(int(packet));
            else
                kept.append(begin + offset, int(packet - offset));
            isWhole = false;
        }
        offset = packetEnd;
    }
    if (isWhole)
        return batch;
    return kept.append(begin + offset, int(size - offset));
}

} // namespace vemo_client
