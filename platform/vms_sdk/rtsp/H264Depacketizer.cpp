#include "H264Depacketizer.h"

#include "ByteOrder.h"
#include "NalTypes.h"

#include <utility>

namespace vms_sdk::rtsp {
namespace {

/// `type` and the bytes behind the NAL unit's header: can this NAL unit only stand first in an access unit? (ISO/IEC
/// 14496-10 clause 7.4.1.2.3)
bool startsUnit(unsigned type, const std::uint8_t* body, std::size_t bytes)
{
    switch (type) {
    case h264::accessUnitDelimiter:
    case h264::sps:
    case h264::pps:
    case h264::sei:
        return true;
    case h264::slice:
    case h264::idr:
        return bytes > 0 && (body[0] & 0x80) != 0; // first_mb_in_slice is 0
    default:
        return false;
    }
}

bool packetStartsUnit(const std::uint8_t* data, std::size_t bytes)
{
    const unsigned type = h264::nalType(data);
    if (type == h264::stapA)
        return bytes > 3 && startsUnit(h264::nalType(data + 3), data + 4, bytes - 4);
    if (type == h264::fuA)
        return bytes > 2 && (data[1] & 0x80) != 0 && startsUnit(data[1] & 0x1Fu, data + 2, bytes - 2);
    return startsUnit(type, data + 1, bytes - 1);
}

} // namespace

H264Depacketizer::H264Depacketizer(AccessUnitAssembler assembler)
    : m_assembler(std::move(assembler))
{}

MediaLimit H264Depacketizer::push(const TimedPacket& packet)
{
    const std::uint8_t* data = packet.rtp.payload;
    const std::size_t bytes = packet.rtp.payloadBytes;
    if (bytes == 0) {
        m_assembler.beginPacket(packet, false);
        return m_assembler.endPacket(packet.rtp.marker);
    }
    m_assembler.beginPacket(packet, packetStartsUnit(data, bytes));
    const unsigned type = h264::nalType(data);
    if (type == h264::fuA) {
        pushFragment(data, bytes);
    } else {
        if (m_assembler.isNalOpen())
            m_assembler.damage();
        if (type == h264::stapA) {
            pushAggregation(data + 1, bytes - 1);
        } else if (type > 0 && type < h264::stapA) {
            m_assembler.beginNal();
            m_assembler.append(data, bytes);
            m_assembler.endNal();
        } else {
            // STAP-B, MTAP and FU-B belong to the interleaved mode, which is never asked for.
            m_assembler.damage();
        }
    }
    return m_assembler.endPacket(packet.rtp.marker);
}

void H264Depacketizer::pushAggregation(const std::uint8_t* data, std::size_t bytes)
{
    while (bytes > 2) {
        const std::size_t size = readBe16(data);
        if (size == 0 || size > bytes - 2) {
            m_assembler.damage();
            return;
        }
        m_assembler.beginNal();
        m_assembler.append(data + 2, size);
        m_assembler.endNal();
        data += 2 + size;
        bytes -= 2 + size;
    }
}

void H264Depacketizer::pushFragment(const std::uint8_t* data, std::size_t bytes)
{
    const bool first = bytes > 1 && (data[1] & 0x80) != 0;
    const bool last = bytes > 1 && (data[1] & 0x40) != 0;
    // A fragment may be empty behind its two header bytes (RFC 6184 clause 5.8), but no NAL unit is.
    if (bytes < 2 || (bytes == 2 && first && last)) {
        m_assembler.damage();
        return;
    }
    if (first == m_assembler.isNalOpen()) {
        m_assembler.damage();
        if (!first)
            return;
    }
    if (first) {
        const auto header = static_cast<std::uint8_t>((data[0] & 0xE0) | (data[1] & 0x1F));
        m_assembler.beginNal();
        m_assembler.append(&header, 1);
    }
    m_assembler.append(data + 2, bytes - 2);
    if (last)
        m_assembler.endNal();
}

} // namespace vms_sdk::rtsp
