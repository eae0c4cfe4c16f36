#include "H265Depacketizer.h"

#include "ByteOrder.h"
#include "NalTypes.h"

#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t headerBytes = 2;

/// ISO/IEC 23008-2 clause 7.4.2.4.4.
bool startsUnit(unsigned type, const std::uint8_t* body, std::size_t bytes)
{
    if (h265::isPicture(type))
        return bytes > 0 && (body[0] & 0x80) != 0; // first_slice_segment_in_pic_flag
    return (type >= h265::vps && type <= h265::accessUnitDelimiter) || type == h265::prefixSei;
}

bool packetStartsUnit(const std::uint8_t* data, std::size_t bytes)
{
    const unsigned type = h265::nalType(data);
    if (type == h265::aggregation)
        return bytes > 6 && startsUnit(h265::nalType(data + 4), data + 6, bytes - 6);
    if (type == h265::fragmentation)
        return bytes > 3 && (data[2] & 0x80) != 0 && startsUnit(data[2] & 0x3Fu, data + 3, bytes - 3);
    return startsUnit(type, data + headerBytes, bytes - headerBytes);
}

} // namespace

H265Depacketizer::H265Depacketizer(AccessUnitAssembler assembler)
    : m_assembler(std::move(assembler))
{}

MediaLimit H265Depacketizer::push(const TimedPacket& packet)
{
    const std::uint8_t* data = packet.rtp.payload;
    const std::size_t bytes = packet.rtp.payloadBytes;
    if (bytes < headerBytes) {
        m_assembler.beginPacket(packet, false);
        if (bytes > 0)
            m_assembler.damage();
        return m_assembler.endPacket(packet.rtp.marker);
    }
    m_assembler.beginPacket(packet, packetStartsUnit(data, bytes));
    const unsigned type = h265::nalType(data);
    if (type == h265::fragmentation) {
        pushFragment(data, bytes);
    } else {
        if (m_assembler.isNalOpen())
            m_assembler.damage();
        if (type == h265::aggregation) {
            pushAggregation(data + headerBytes, bytes - headerBytes);
        } else if (type < h265::aggregation) {
            m_assembler.beginNal();
            m_assembler.append(data, bytes);
            m_assembler.endNal();
        } else {
            m_assembler.damage();
        }
    }
    return m_assembler.endPacket(packet.rtp.marker);
}

void H265Depacketizer::pushAggregation(const std::uint8_t* data, std::size_t bytes)
{
    while (bytes > 2) {
        const std::size_t size = readBe16(data);
        if (size < headerBytes || size > bytes - 2) {
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

void H265Depacketizer::pushFragment(const std::uint8_t* data, std::size_t bytes)
{
    if (bytes < 4) {
        m_assembler.damage();
        return;
    }
    const bool first = (data[2] & 0x80) != 0;
    const bool last = (data[2] & 0x40) != 0;
    if (first == m_assembler.isNalOpen()) {
        m_assembler.damage();
        if (!first)
            return;
    }
    if (first) {
        const std::uint8_t header[headerBytes] = {static_cast<std::uint8_t>((data[0] & 0x81) | (data[2] & 0x3F) << 1),
                                                  data[1]};
        m_assembler.beginNal();
        m_assembler.append(header, headerBytes);
    }
    m_assembler.append(data + 3, bytes - 3);
    if (last)
        m_assembler.endNal();
}

} // namespace vms_sdk::rtsp
