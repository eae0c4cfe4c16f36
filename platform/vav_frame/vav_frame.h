#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The packet format that carries a recording from the device client SDK (which writes it) to the media download SDK
/// (which reads it). Our own format: self-describing, versioned, little-endian, checked on read.
///
/// A batch is any number of whole packets one behind the other. Every packet starts with a header of 40 bytes:
///
///     offset  size  field
///          0     4  magic "VAVF"
///          4     1  version (1)
///          5     1  kind (PacketKind)
///          6     1  track (0 video, 1 audio; up to maxTracks - 1)
///          7     1  flags (FrameFlag)
///          8     4  payload size in bytes, header not included
///         12     4  duration in microseconds, 0 when unknown
///         16     8  presentation time, nanoseconds since 1970-01-01T00:00:00Z, signed
///         24     8  begin of a gap before this frame (same unit), 0 when there is none or when it is not known
///         32     4  access units lost before this frame, as far as sequence numbers tell
///         36     4  reserved, written as 0 and ignored on read
///         40        payload
///
/// Frames are in decode order. A frame's payload is one access unit in the form that an MP4 sample has: H.264 and H.265
/// NAL units each behind a length of four bytes, big-endian (ISO/IEC 14496-15 clause 4.3.2), all NAL units as they were
/// sent, in their order; AAC as raw access unit without ADTS; G.711 and G.726 as raw octets; MJPEG as one JFIF image.
namespace vav {

constexpr std::uint32_t magic = 0x46564156u; ///< "VAVF" read as little-endian
constexpr std::uint8_t version = 1;
constexpr std::size_t headerBytes = 40;
constexpr std::size_t maxPayloadBytes = 16u * 1024 * 1024; ///< one access unit at most
constexpr std::size_t maxTracks = 4;
constexpr std::size_t maxParameterSetBytes = 64u * 1024;

enum class PacketKind : std::uint8_t { Unknown = 0, StreamInfo = 1, Frame = 2 };

enum FrameFlag : std::uint8_t {
    KeyFrame = 0x01,       ///< decoding can start here
    Discontinuity = 0x02,  ///< the recorder has nothing between the frame before and this one (a gap of the recording)
    LossBefore = 0x04,     ///< access units were lost in transfer before this one
    EndOfRecording = 0x08, ///< the recorder marked this as the last frame
};

enum class Codec : std::uint8_t {
    Unknown = 0,
    H264 = 1,
    H265 = 2,
    Mjpeg = 3,
    Aac = 16,
    PcmA = 17, ///< G.711 A-law
    PcmU = 18, ///< G.711 mu-law
    G726 = 19, ///< bit rate in TrackInfo::bitRate
};

bool isVideo(Codec codec);

/// One track of the stream. `parameterSets` is what a decoder needs out of band: for H.264 and H.265 the parameter-set
/// NAL units (SPS, PPS; VPS first for H.265), each behind a length of four bytes, big-endian; for AAC the
/// AudioSpecificConfig (ISO/IEC 14496-3); empty otherwise.
struct TrackInfo
{
    std::uint8_t track = 0;
    Codec codec = Codec::Unknown;
    std::uint32_t clockRate = 0; ///< sampling rate in Hz for audio, 90000 for video
    std::uint16_t width = 0;     ///< pixels, 0 when unknown
    std::uint16_t height = 0;
    std::uint16_t channels = 0; ///< audio channels
    std::uint32_t bitRate = 0;  ///< bit/s, 0 when unknown
    std::vector<std::uint8_t> parameterSets;

    bool operator==(const TrackInfo& other) const;
    bool operator!=(const TrackInfo& other) const { return !(*this == other); }
};

/// First packet of a stream, and sent again before the first frame to which changed tracks apply.
struct StreamInfo
{
    std::int64_t beginNs = 0; ///< begin of the recording as the recorder tells it, ns since 1970 UTC, 0 when unknown
    std::int64_t endNs = 0;   ///< its end
    std::vector<TrackInfo> tracks;
    std::string channelName; ///< UTF-8, for the file's metadata; at most 1,024 bytes
    std::string deviceName;  ///< UTF-8, the recorder; at most 1,024 bytes
};

struct FrameHeader
{
    std::uint8_t track = 0;
    std::uint8_t flags = 0;
    std::uint32_t payloadBytes = 0;
    std::uint32_t durationUs = 0;
    std::int64_t timeNs = 0;
    std::int64_t gapBeginNs = 0;
    std::uint32_t lostBefore = 0;
};

/// Writes the header of a frame packet into `out`, which has room for headerBytes.
void writeFrameHeader(std::uint8_t* out, const FrameHeader& header);

/// The whole stream-info packet, header included. Tracks beyond maxTracks and parameter sets beyond
/// maxParameterSetBytes are an error of the caller; the result is then empty.
std::vector<std::uint8_t> encodeStreamInfo(const StreamInfo& info);

/// Reads one packet after the other out of a batch. The bytes are not copied and must outlive the reader.
class PacketReader
{
public:
    enum class Status : std::uint8_t {
        Packet,  ///< a known packet was read: kind() and the fields are valid
        End,     ///< the batch ended at the end of a packet
        Torn,    ///< the batch ends inside a packet
        Invalid, ///< wrong magic or version, a length beyond its limit, or a stream-info that does not parse
    };

    PacketReader(const void* data, std::size_t size);

    /// Packets of an unknown kind are skipped. After Torn or Invalid every further call returns the same.
    Status next();

    PacketKind kind() const { return m_kind; }
    const FrameHeader& frame() const { return m_frame; }      ///< valid for PacketKind::Frame
    const std::uint8_t* payload() const { return m_payload; } ///< m_frame.payloadBytes bytes
    const StreamInfo& streamInfo() const { return m_info; }   ///< valid for PacketKind::StreamInfo

private:
    const std::uint8_t* m_data;
    std::size_t m_size;
    std::size_t m_offset = 0;
    Status m_failed = Status::Packet;
    PacketKind m_kind = PacketKind::Unknown;
    FrameHeader m_frame;
    const std::uint8_t* m_payload = nullptr;
    StreamInfo m_info;
};

} // namespace vav
