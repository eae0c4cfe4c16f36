#include "AacDepacketizer.h"

#include "BitReader.h"
#include "ByteOrder.h"
#include "RtpClock.h"

namespace vms_sdk::rtsp {

AacDepacketizer::AacDepacketizer(const Format& format, TrackOutput& output)
    : m_format(format)
    , m_output(output)
{}

MediaLimit AacDepacketizer::push(const TimedPacket& packet)
{
    const std::uint8_t* data = packet.rtp.payload;
    std::size_t bytes = packet.rtp.payloadBytes;
    m_output.noteExtension(packet.rtp.replay);
    if (packet.lossBefore) {
        m_fragment.clear();
        m_output.noteLost(1);
    }
    if (bytes < 2)
        return MediaLimit::None;
    const std::size_t headerBits = readBe16(data);
    const std::size_t headerBytes = (headerBits + 7) / 8;
    data += 2;
    bytes -= 2;
    m_units.clear();
    if (headerBytes > bytes || !readHeaders(data, headerBits, m_units)) {
        m_output.noteLost(1);
        return MediaLimit::None;
    }
    data += headerBytes;
    bytes -= headerBytes;

    if (m_units.size() == 1 && m_units.front().bytes > bytes) {
        pushFragment(packet, data, bytes, m_units.front().bytes);
        return MediaLimit::None;
    }
    if (!m_fragment.empty()) {
        m_fragment.clear();
        m_output.noteLost(1);
    }
    std::int64_t position = 0;
    for (const Unit& unit : m_units) {
        if (unit.bytes > bytes) {
            m_output.noteLost(1);
            return MediaLimit::None;
        }
        position += unit.delta;
        const std::int64_t timeNs = packet.timeNs + ticksToNs(position * m_format.ticksPerUnit, m_format.clockRate);
        if (unit.bytes > 0)
            m_output.frame(timeNs, durationUs(), data, unit.bytes);
        ++position;
        data += unit.bytes;
        bytes -= unit.bytes;
    }
    return MediaLimit::None;
}

bool AacDepacketizer::readHeaders(const std::uint8_t* data, std::size_t headerBits, std::vector<Unit>& units) const
{
    BitReader reader(data, (headerBits + 7) / 8);
    std::size_t left = headerBits;
    while (left > 0) {
        const bool first = units.empty();
        const unsigned indexBits = first ? m_format.indexLength : m_format.indexDeltaLength;
        if (left < m_format.sizeLength + indexBits)
            break;
        left -= m_format.sizeLength + indexBits;
        const std::size_t size = reader.bits(m_format.sizeLength);
        const unsigned delta = reader.bits(indexBits);
        units.push_back({size, first ? 0 : delta});
    }
    return reader.good() && !units.empty();
}

void AacDepacketizer::pushFragment(const TimedPacket& packet, const std::uint8_t* data, std::size_t bytes,
                                   std::size_t unitBytes)
{
    const bool goesOn = !m_fragment.empty() && packet.rtp.timestamp == m_fragmentTimestamp &&
                        unitBytes == m_fragmentUnitBytes && m_fragment.size() + bytes <= unitBytes;
    if (!goesOn) {
        if (!m_fragment.empty())
            m_output.noteLost(1);
        m_fragment.clear();
        m_fragmentTimestamp = packet.rtp.timestamp;
        m_fragmentTimeNs = packet.timeNs;
        m_fragmentUnitBytes = unitBytes;
    }
    if (packet.lossBefore || unitBytes > maxUnitBytes)
        return;
    m_fragment.insert(m_fragment.end(), data, data + bytes);
    if (m_fragment.size() == unitBytes) {
        m_output.frame(m_fragmentTimeNs, durationUs(), m_fragment.data(), m_fragment.size());
        m_fragment.clear();
    }
}

std::uint32_t AacDepacketizer::durationUs() const
{
    return static_cast<std::uint32_t>(std::uint64_t{m_format.ticksPerUnit} * 1'000'000 / m_format.clockRate);
}

} // namespace vms_sdk::rtsp
