#include "vav_frame.h"

namespace vav {
namespace {

constexpr std::size_t maxNameBytes = 1024;

void put16(std::uint8_t* out, std::uint16_t value)
{
    out[0] = static_cast<std::uint8_t>(value);
    out[1] = static_cast<std::uint8_t>(value >> 8);
}

void put32(std::uint8_t* out, std::uint32_t value)
{
    put16(out, static_cast<std::uint16_t>(value));
    put16(out + 2, static_cast<std::uint16_t>(value >> 16));
}

void put64(std::uint8_t* out, std::uint64_t value)
{
    put32(out, static_cast<std::uint32_t>(value));
    put32(out + 4, static_cast<std::uint32_t>(value >> 32));
}

std::uint16_t get16(const std::uint8_t* in)
{
    return static_cast<std::uint16_t>(in[0] | (in[1] << 8));
}

std::uint32_t get32(const std::uint8_t* in)
{
    return get16(in) | (static_cast<std::uint32_t>(get16(in + 2)) << 16);
}

std::uint64_t get64(const std::uint8_t* in)
{
    return get32(in) | (static_cast<std::uint64_t>(get32(in + 4)) << 32);
}

/// Grows a byte vector by little-endian fields.
class Sink
{
public:
    explicit Sink(std::vector<std::uint8_t>& bytes)
        : m_bytes(bytes)
    {}

    void u8(std::uint8_t value) { m_bytes.push_back(value); }
    void u16(std::uint16_t value) { put16(grow(2), value); }
    void u32(std::uint32_t value) { put32(grow(4), value); }
    void u64(std::uint64_t value) { put64(grow(8), value); }
    void text(const std::string& value)
    {
        u16(static_cast<std::uint16_t>(value.size()));
        m_bytes.insert(m_bytes.end(), value.begin(), value.end());
    }
    void blob(const std::vector<std::uint8_t>& value)
    {
        u32(static_cast<std::uint32_t>(value.size()));
        m_bytes.insert(m_bytes.end(), value.begin(), value.end());
    }

private:
    std::uint8_t* grow(std::size_t count)
    {
        m_bytes.resize(m_bytes.size() + count);
        return m_bytes.data() + m_bytes.size() - count;
    }

    std::vector<std::uint8_t>& m_bytes;
};

/// Takes little-endian fields from bytes; past the end it delivers zeros and remembers that it did.
class Source
{
public:
    Source(const std::uint8_t* data, std::size_t size)
        : m_data(data)
        , m_left(size)
    {}

    bool good() const { return m_good; }
    std::uint8_t u8()
    {
        const auto* at = take(1);
        return at ? *at : std::uint8_t{0};
    }
    std::uint16_t u16()
    {
        const auto* at = take(2);
        return at ? get16(at) : std::uint16_t{0};
    }
    std::uint32_t u32()
    {
        const auto* at = take(4);
        return at ? get32(at) : 0;
    }
    std::uint64_t u64()
    {
        const auto* at = take(8);
        return at ? get64(at) : 0;
    }
    std::string text()
    {
        const std::size_t size = u16();
        if (size > maxNameBytes)
            m_good = false;
        const auto* at = take(size);
        return at ? std::string(reinterpret_cast<const char*>(at), size) : std::string();
    }
    std::vector<std::uint8_t> blob()
    {
        const std::size_t size = u32();
        if (size > maxParameterSetBytes)
            m_good = false;
        const auto* at = take(size);
        return at ? std::vector<std::uint8_t>(at, at + size) : std::vector<std::uint8_t>();
    }

private:
    const std::uint8_t* take(std::size_t count)
    {
        if (!m_good || count > m_left) {
            m_good = false;
            return nullptr;
        }
        const auto* at = m_data;
        m_data += count;
        m_left -= count;
        return at;
    }

    const std::uint8_t* m_data;
    std::size_t m_left;
    bool m_good = true;
};

void writeHeader(std::uint8_t* out, PacketKind kind, const FrameHeader& header)
{
    put32(out, magic);
    out[4] = version;
    out[5] = static_cast<std::uint8_t>(kind);
    out[6] = header.track;
    out[7] = header.flags;
    put32(out + 8, header.payloadBytes);
    put32(out + 12, header.durationUs);
    put64(out + 16, static_cast<std::uint64_t>(header.timeNs));
    put64(out + 24, static_cast<std::uint64_t>(header.gapBeginNs));
    put32(out + 32, header.lostBefore);
    put32(out + 36, 0);
}

bool parseStreamInfo(const std::uint8_t* data, std::size_t size, StreamInfo& info)
{
    Source source(data, size);
    info = StreamInfo();
    info.beginNs = static_cast<std::int64_t>(source.u64());
    info.endNs = static_cast<std::int64_t>(source.u64());
    info.channelName = source.text();
    info.deviceName = source.text();
    const std::size_t count = source.u8();
    if (!source.good() || count == 0 || count > maxTracks)
        return false;
    for (std::size_t i = 0; i < count && source.good(); ++i) {
        TrackInfo track;
        track.track = source.u8();
        track.codec = static_cast<Codec>(source.u8());
        track.clockRate = source.u32();
        track.width = source.u16();
        track.height = source.u16();
        track.channels = source.u16();
        track.bitRate = source.u32();
        track.parameterSets = source.blob();
        if (track.track >= maxTracks)
            return false;
        info.tracks.push_back(std::move(track));
    }
    return source.good();
}

} // namespace

bool isVideo(Codec codec)
{
    return codec == Codec::H264 || codec == Codec::H265 || codec == Codec::Mjpeg;
}

bool TrackInfo::operator==(const TrackInfo& other) const
{
    return track == other.track && codec == other.codec && clockRate == other.clockRate && width == other.width &&
           height == other.height && channels == other.channels && parameterSets == other.parameterSets;
}

void writeFrameHeader(std::uint8_t* out, const FrameHeader& header)
{
    writeHeader(out, PacketKind::Frame, header);
}

std::vector<std::uint8_t> encodeStreamInfo(const StreamInfo& info)
{
    std::vector<std::uint8_t> packet(headerBytes);
    if (info.tracks.empty() || info.tracks.size() > maxTracks || info.channelName.size() > maxNameBytes ||
        info.deviceName.size() > maxNameBytes)
        return {};
    Sink sink(packet);
    sink.u64(static_cast<std::uint64_t>(info.beginNs));
    sink.u64(static_cast<std::uint64_t>(info.endNs));
    sink.text(info.channelName);
    sink.text(info.deviceName);
    sink.u8(static_cast<std::uint8_t>(info.tracks.size()));
    for (const TrackInfo& track : info.tracks) {
        if (track.parameterSets.size() > maxParameterSetBytes)
            return {};
        sink.u8(track.track);
        sink.u8(static_cast<std::uint8_t>(track.codec));
        sink.u32(track.clockRate);
        sink.u16(track.width);
        sink.u16(track.height);
        sink.u16(track.channels);
        sink.u32(track.bitRate);
        sink.blob(track.parameterSets);
    }
    FrameHeader header;
    header.payloadBytes = static_cast<std::uint32_t>(packet.size() - headerBytes);
    writeHeader(packet.data(), PacketKind::StreamInfo, header);
    return packet;
}

PacketReader::PacketReader(const void* data, std::size_t size)
    : m_data(static_cast<const std::uint8_t*>(data))
    , m_size(size)
{}

PacketReader::Status PacketReader::next()
{
    while (m_failed == Status::Packet) {
        const std::size_t left = m_size - m_offset;
        if (left == 0)
            return Status::End;
        if (left < headerBytes)
            return m_failed = Status::Torn;
        const std::uint8_t* at = m_data + m_offset;
        const std::size_t payloadBytes = get32(at + 8);
        if (get32(at) != magic || at[4] != version || payloadBytes > maxPayloadBytes)
            return m_failed = Status::Invalid;
        if (payloadBytes > left - headerBytes)
            return m_failed = Status::Torn;
        m_offset += headerBytes + payloadBytes;
        m_kind = static_cast<PacketKind>(at[5]);
        if (m_kind == PacketKind::StreamInfo) {
            if (!parseStreamInfo(at + headerBytes, payloadBytes, m_info))
                return m_failed = Status::Invalid;
            return Status::Packet;
        }
        if (m_kind != PacketKind::Frame)
            continue;
        m_frame.track = at[6];
        m_frame.flags = at[7];
        m_frame.payloadBytes = static_cast<std::uint32_t>(payloadBytes);
        m_frame.durationUs = get32(at + 12);
        m_frame.timeNs = static_cast<std::int64_t>(get64(at + 16));
        m_frame.gapBeginNs = static_cast<std::int64_t>(get64(at + 24));
        m_frame.lostBefore = get32(at + 32);
        m_payload = at + headerBytes;
        if (m_frame.track >= maxTracks)
            return m_failed = Status::Invalid;
        return Status::Packet;
    }
    return m_failed;
}

} // namespace vav
