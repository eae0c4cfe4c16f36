#include "MjpegDepacketizer.h"

#include "ByteOrder.h"

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t mainHeaderBytes = 8;
constexpr std::size_t restartHeaderBytes = 4;
constexpr std::size_t tableHeaderBytes = 4;

} // namespace

struct MjpegDepacketizer::Header
{
    std::size_t offset = 0;
    unsigned type = 0;
    unsigned quality = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint16_t restartInterval = 0;
    const std::uint8_t* tables = nullptr;
    std::size_t tableBytes = 0;
    const std::uint8_t* scan = nullptr;
    std::size_t scanBytes = 0;
};

MjpegDepacketizer::MjpegDepacketizer(vav::TrackInfo track, TrackOutput& output, StreamDescription& description)
    : m_track(std::move(track))
    , m_output(output)
    , m_batcher(output.batcher())
    , m_description(description)
{}

MediaLimit MjpegDepacketizer::push(const TimedPacket& packet)
{
    const std::uint32_t timestamp = packet.rtp.timestamp;
    if (m_open && timestamp != m_timestamp)
        breakFrame();
    if (timestamp != m_timestamp)
        m_broken = false;
    m_timestamp = timestamp;
    m_timeNs = packet.timeNs;

    Header header;
    const bool parsed = parseHeader(packet.rtp.payload, packet.rtp.payloadBytes, header);
    if (parsed && header.offset == 0 && !m_open && !m_broken) {
        m_output.beginUnit();
        m_open = true;
        m_expectedOffset = 0;
        if (!beginFrame(header))
            breakFrame();
    } else if (!m_open && !m_broken) {
        m_broken = true;
        m_output.noteLost(1);
    }
    if (!m_open)
        return MediaLimit::None;
    m_output.noteExtension(packet.rtp.replay);
    if (!parsed || header.offset != m_expectedOffset) {
        breakFrame();
        return MediaLimit::None;
    }
    if (m_batcher.unitBytes() + header.scanBytes + 2 > vav::maxPayloadBytes)
        return MediaLimit::UnitTooLarge;
    m_batcher.append(header.scan, header.scanBytes);
    m_expectedOffset += header.scanBytes;
    if (packet.rtp.marker)
        closeFrame();
    return MediaLimit::None;
}

void MjpegDepacketizer::interrupt()
{
    if (m_open)
        m_batcher.dropUnit();
    m_open = false;
}

bool MjpegDepacketizer::parseHeader(const std::uint8_t* data, std::size_t bytes, Header& header)
{
    if (bytes < mainHeaderBytes)
        return false;
    header.offset = readBe24(data + 1);
    header.type = data[4];
    header.quality = data[5];
    header.width = static_cast<std::uint16_t>(data[6] * 8);
    header.height = static_cast<std::uint16_t>(data[7] * 8);
    data += mainHeaderBytes;
    bytes -= mainHeaderBytes;
    if (header.type >= 64 && header.type < 128) {
        if (bytes < restartHeaderBytes)
            return false;
        header.restartInterval = readBe16(data);
        data += restartHeaderBytes;
        bytes -= restartHeaderBytes;
    }
    if (header.quality >= 128 && header.offset == 0) {
        if (bytes < tableHeaderBytes)
            return false;
        const std::uint8_t precision = data[1];
        header.tableBytes = readBe16(data + 2);
        data += tableHeaderBytes;
        bytes -= tableHeaderBytes;
        if (header.tableBytes > bytes || (header.tableBytes > 0 && precision != 0))
            return false;
        header.tables = data;
        data += header.tableBytes;
        bytes -= header.tableBytes;
    }
    header.scan = data;
    header.scanBytes = bytes;
    return (header.type & 0x3F) < 2 && header.type < 128 && header.width > 0 && header.height > 0 && header.quality > 0;
}

bool MjpegDepacketizer::beginFrame(const Header& header)
{
    JpegFrame frame;
    frame.width = header.width;
    frame.height = header.height;
    frame.halfHeightChroma = (header.type & 1) != 0;
    frame.restartInterval = header.restartInterval;
    if (!quantizers(header, frame))
        return false;
    if (m_track.width != frame.width || m_track.height != frame.height) {
        m_track.width = frame.width;
        m_track.height = frame.height;
        m_description.setTrack(m_track, true);
    }
    const std::vector<std::uint8_t> head = makeJfifHeader(frame);
    m_batcher.append(head.data(), head.size());
    return true;
}

bool MjpegDepacketizer::quantizers(const Header& header, JpegFrame& frame)
{
    if (header.quality < 128) {
        makeQuantizers(header.quality, frame.luma, frame.chroma);
        return true;
    }
    Tables tables;
    if (header.tableBytes >= 128) {
        std::copy_n(header.tables, 64, tables.luma);
        std::copy_n(header.tables + 64, 64, tables.chroma);
        if (header.quality < 255)
            m_tables[header.quality] = tables;
    } else {
        const auto known = m_tables.find(header.quality);
        if (known == m_tables.end())
            return false;
        tables = known->second;
    }
    std::copy_n(tables.luma, 64, frame.luma);
    std::copy_n(tables.chroma, 64, frame.chroma);
    return true;
}

void MjpegDepacketizer::closeFrame()
{
    static constexpr std::uint8_t endOfImage[2] = {0xFF, 0xD9};
    const std::uint8_t* end = m_batcher.unitData() + m_batcher.unitBytes();
    if (!std::equal(endOfImage, endOfImage + 2, end - 2))
        m_batcher.append(endOfImage, 2);
    m_output.closeUnit(m_timeNs, true, 0);
    m_open = false;
}

void MjpegDepacketizer::breakFrame()
{
    m_output.dropUnit();
    m_open = false;
    m_broken = true;
}

} // namespace vms_sdk::rtsp
