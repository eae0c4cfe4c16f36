#include "ClipPackets.h"

#include "vav_frame.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace {

struct CloseInput
{
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};
struct FreePacket
{
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

vav::Codec codecOf(AVCodecID id)
{
    switch (id) {
    case AV_CODEC_ID_H264:
        return vav::Codec::H264;
    case AV_CODEC_ID_HEVC:
        return vav::Codec::H265;
    case AV_CODEC_ID_AAC:
        return vav::Codec::Aac;
    case AV_CODEC_ID_PCM_ALAW:
        return vav::Codec::PcmA;
    case AV_CODEC_ID_PCM_MULAW:
        return vav::Codec::PcmU;
    default:
        throw std::runtime_error("the clip has a codec that recorders do not send");
    }
}

/// Takes bytes from a decoder configuration record, bounds checked.
class RecordReader
{
public:
    explicit RecordReader(const AVCodecParameters& parameters)
        : m_at(parameters.extradata)
        , m_left(static_cast<std::size_t>(parameters.extradata_size))
    {}

    const std::uint8_t* take(std::size_t count)
    {
        if (count > m_left) {
            throw std::runtime_error("the clip's decoder configuration ends too early");
        }
        const auto* at = m_at;
        m_at += count;
        m_left -= count;
        return at;
    }
    unsigned u8() { return *take(1); }
    unsigned u16()
    {
        const auto* at = take(2);
        return static_cast<unsigned>(at[0] << 8 | at[1]);
    }
    /// Appends one NAL unit behind a length of four bytes.
    void nalUnit(std::vector<std::uint8_t>& out)
    {
        const unsigned size = u16();
        const auto* at = take(size);
        const std::uint8_t length[4] = {0, 0, static_cast<std::uint8_t>(size >> 8), static_cast<std::uint8_t>(size)};
        out.insert(out.end(), length, length + 4);
        out.insert(out.end(), at, at + size);
    }

private:
    const std::uint8_t* m_at;
    std::size_t m_left;
};

/// SPS and PPS out of an AVCDecoderConfigurationRecord (ISO/IEC 14496-15 clause 5.3.3.1).
std::vector<std::uint8_t> avcParameterSets(const AVCodecParameters& parameters)
{
    std::vector<std::uint8_t> sets;
    RecordReader record(parameters);
    record.take(5);
    for (unsigned count = record.u8() & 0x1f; count > 0; --count) {
        record.nalUnit(sets);
    }
    for (unsigned count = record.u8(); count > 0; --count) {
        record.nalUnit(sets);
    }
    return sets;
}

/// VPS, SPS and PPS out of an HEVCDecoderConfigurationRecord (clause 8.3.3.1); SEI messages are left out.
std::vector<std::uint8_t> hevcParameterSets(const AVCodecParameters& parameters)
{
    std::vector<std::uint8_t> sets;
    RecordReader record(parameters);
    record.take(22);
    for (unsigned arrays = record.u8(); arrays > 0; --arrays) {
        const unsigned type = record.u8() & 0x3f;
        for (unsigned count = record.u16(); count > 0; --count) {
            std::vector<std::uint8_t> unit;
            record.nalUnit(unit);
            if (type >= 32 && type <= 34) {
                sets.insert(sets.end(), unit.begin(), unit.end());
            }
        }
    }
    return sets;
}

vav::TrackInfo trackOf(const AVStream& stream, std::uint8_t number)
{
    const AVCodecParameters& parameters = *stream.codecpar;
    vav::TrackInfo track;
    track.track = number;
    track.codec = codecOf(parameters.codec_id);
    if (vav::isVideo(track.codec)) {
        track.clockRate = 90000;
        track.width = static_cast<std::uint16_t>(parameters.width);
        track.height = static_cast<std::uint16_t>(parameters.height);
        track.parameterSets =
            track.codec == vav::Codec::H264 ? avcParameterSets(parameters) : hevcParameterSets(parameters);
    } else {
        track.clockRate = static_cast<std::uint32_t>(parameters.sample_rate);
        track.channels = static_cast<std::uint16_t>(parameters.ch_layout.nb_channels);
        track.parameterSets.assign(parameters.extradata, parameters.extradata + parameters.extradata_size);
    }
    return track;
}

} // namespace

ClipPackets::ClipPackets(const std::string& path, std::int64_t beginNs)
{
    AVFormatContext* opened = nullptr;
    if (avformat_open_input(&opened, path.c_str(), nullptr, nullptr) < 0) {
        throw std::runtime_error("cannot open the clip " + path);
    }
    const std::unique_ptr<AVFormatContext, CloseInput> input(opened);
    if (avformat_find_stream_info(input.get(), nullptr) < 0) {
        throw std::runtime_error("cannot read the clip " + path);
    }

    vav::StreamInfo info;
    info.beginNs = beginNs;
    info.endNs = m_endNs = beginNs + input->duration * 1000;
    info.channelName = "Gate";
    info.deviceName = "Clip recorder";
    for (unsigned index = 0; index < input->nb_streams; ++index) {
        info.tracks.push_back(trackOf(*input->streams[index], static_cast<std::uint8_t>(index)));
    }
    m_streamInfo = vav::encodeStreamInfo(info);

    const std::unique_ptr<AVPacket, FreePacket> packet(av_packet_alloc());
    while (av_read_frame(input.get(), packet.get()) >= 0) {
        const AVStream& stream = *input->streams[packet->stream_index];
        vav::FrameHeader header;
        header.track = static_cast<std::uint8_t>(packet->stream_index);
        header.flags = static_cast<std::uint8_t>((packet->flags & AV_PKT_FLAG_KEY) != 0 ? vav::KeyFrame : 0);
        header.payloadBytes = static_cast<std::uint32_t>(packet->size);
        header.durationUs =
            static_cast<std::uint32_t>(av_rescale_q(packet->duration, stream.time_base, AVRational{1, 1000000}));
        header.timeNs = beginNs + av_rescale_q(packet->pts, stream.time_base, AVRational{1, 1000000000});
        Packet made;
        made.track = packet->stream_index;
        made.decodeTimeUs =
            std::max<std::int64_t>(0, av_rescale_q(packet->dts, stream.time_base, AVRational{1, 1000000}));
        made.bytes.resize(vav::headerBytes + static_cast<std::size_t>(packet->size));
        vav::writeFrameHeader(made.bytes.data(), header);
        std::copy(packet->data, packet->data + packet->size, made.bytes.data() + vav::headerBytes);
        m_packets.push_back(std::move(made));
        av_packet_unref(packet.get());
    }
}
