#include "StreamVideoDecoder.h"

#include "HardwareDevice.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vemo_decode {

namespace {

constexpr int maxEdge = 16384;
constexpr std::int64_t maxPixels = 64'000'000;
constexpr std::size_t lengthBytes = 4;
constexpr std::size_t maxNalUnits = 4096;
constexpr std::uint8_t startCode[] = {0, 0, 0, 1};

class LibavFrame final : public Frame
{
public:
    Libav<AVFrame> frame;
};

AVCodecID codecId(vav::Codec codec)
{
    switch (codec) {
    case vav::Codec::H264:
        return AV_CODEC_ID_H264;
    case vav::Codec::H265:
        return AV_CODEC_ID_HEVC;
    case vav::Codec::Mjpeg:
        return AV_CODEC_ID_MJPEG;
    default:
        return AV_CODEC_ID_NONE;
    }
}

std::size_t lengthAt(const std::uint8_t* data)
{
    return std::size_t(data[0]) << 24 | std::size_t(data[1]) << 16 | std::size_t(data[2]) << 8 | data[3];
}

/// Puts start codes (ITU-T H.264 annex B) in place of the lengths, which take as many bytes. False when the lengths do
/// not add up.
bool replaceLengths(std::uint8_t* data, std::size_t size)
{
    std::size_t at = 0;
    for (std::size_t units = 0; at < size; ++units) {
        if (size - at < lengthBytes || units >= maxNalUnits)
            return false;
        const std::size_t length = lengthAt(data + at);
        if (length > size - at - lengthBytes)
            return false;
        std::memcpy(data + at, startCode, lengthBytes);
        at += lengthBytes + length;
    }
    return true;
}

bool hasNalUnits(vav::Codec codec)
{
    return codec == vav::Codec::H264 || codec == vav::Codec::H265;
}

} // namespace

AVPixelFormat StreamVideoDecoder::pickFormat(AVCodecContext* context, const AVPixelFormat* offered)
{
    const auto* self = static_cast<const StreamVideoDecoder*>(context->opaque);
    for (const AVPixelFormat* format = offered; *format != AV_PIX_FMT_NONE; ++format) {
        if (*format == self->m_hardwareFormat)
            return *format;
    }
    return avcodec_default_get_format(context, offered);
}

bool StreamVideoDecoder::openCodec()
{
    const AVCodec* codec = avcodec_find_decoder(codecId(m_codec));
    m_context.reset(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!m_context)
        return false;
    m_context->thread_count = 1;
    m_context->max_pixels = maxPixels;
    m_context->pkt_timebase = {1, 1'000'000'000};
    m_context->opaque = this;
    const HardwareDevice& hardware = HardwareDevice::get();
    m_hardwareFormat = m_usesHardware ? hardware.formatFor(*codec) : AV_PIX_FMT_NONE;
    if (m_hardwareFormat != AV_PIX_FMT_NONE) {
        m_context->hw_device_ctx = av_buffer_ref(hardware.context);
        m_context->get_format = pickFormat;
    }
    m_setsPending = !m_parameterSets.empty();
    return avcodec_open2(m_context.get(), codec, nullptr) >= 0;
}

bool StreamVideoDecoder::open(vav::Codec codec, const std::vector<std::uint8_t>& parameterSets)
{
    m_codec = codec;
    m_onHardware = false;
    setParameterSets(parameterSets);
    if (!m_packet)
        m_packet.reset(av_packet_alloc());
    return m_packet && openCodec();
}

void StreamVideoDecoder::setParameterSets(const std::vector<std::uint8_t>& parameterSets)
{
    m_parameterSets.clear();
    if (hasNalUnits(m_codec)) {
        m_parameterSets = parameterSets;
        if (!replaceLengths(m_parameterSets.data(), m_parameterSets.size()))
            m_parameterSets.clear();
    }
    m_setsPending = !m_parameterSets.empty();
}

bool StreamVideoDecoder::fillPacket(const AccessUnit& unit)
{
    const std::size_t sets = m_setsPending ? m_parameterSets.size() : 0;
    if (unit.size == 0 || unit.size > vav::maxPayloadBytes ||
        av_new_packet(m_packet.get(), static_cast<int>(sets + unit.size)) < 0)
        return false;
    if (sets > 0)
        std::memcpy(m_packet->data, m_parameterSets.data(), sets);
    std::memcpy(m_packet->data + sets, unit.data, unit.size);
    if (hasNalUnits(m_codec) && !replaceLengths(m_packet->data + sets, unit.size)) {
        av_packet_unref(m_packet.get());
        return false;
    }
    m_packet->pts = unit.timeNs;
    m_setsPending = false;
    return true;
}

bool StreamVideoDecoder::send(const AccessUnit& unit)
{
    if (!m_context || !fillPacket(unit))
        return false;
    const int result = avcodec_send_packet(m_context.get(), m_packet.get());
    av_packet_unref(m_packet.get());
    if (result < 0 && m_hardwareFormat != AV_PIX_FMT_NONE)
        leaveHardware();
    return result >= 0;
}

/// The stream goes on in software from its next key frame on.
void StreamVideoDecoder::leaveHardware()
{
    m_usesHardware = false;
    m_onHardware = false;
    openCodec();
}

void StreamVideoDecoder::drain()
{
    if (m_context)
        avcodec_send_packet(m_context.get(), nullptr);
}

/// The picture in the computer's memory; nullptr when the hardware does not give it.
Libav<AVFrame> StreamVideoDecoder::fetched(Libav<AVFrame> frame)
{
    m_onHardware = frame->format == m_hardwareFormat && m_hardwareFormat != AV_PIX_FMT_NONE;
    if (!m_onHardware)
        return frame;
    Libav<AVFrame> copy(av_frame_alloc());
    if (!copy || av_hwframe_transfer_data(copy.get(), frame.get(), 0) < 0 ||
        av_frame_copy_props(copy.get(), frame.get()) < 0) {
        leaveHardware();
        return nullptr;
    }
    return copy;
}

std::shared_ptr<const Frame> StreamVideoDecoder::receive()
{
    while (m_context) {
        Libav<AVFrame> frame(av_frame_alloc());
        if (!frame || avcodec_receive_frame(m_context.get(), frame.get()) < 0)
            return nullptr;
        const bool isDamaged = (frame->flags & AV_FRAME_FLAG_CORRUPT) || frame->decode_error_flags != 0;
        const bool isSane =
            frame->width > 0 && frame->height > 0 && frame->width <= maxEdge && frame->height <= maxEdge;
        if (isDamaged || !isSane)
            continue;
        frame = fetched(std::move(frame));
        if (!frame)
            return nullptr;
        auto result = std::make_shared<LibavFrame>();
        const AVRational aspect = frame->sample_aspect_ratio;
        const double stretch = aspect.num > 0 && aspect.den > 0 ? std::clamp(av_q2d(aspect), 0.25, 4.0) : 1.0;
        result->timeNs = frame->pts == AV_NOPTS_VALUE ? 0 : frame->pts;
        result->width = frame->width;
        result->height = frame->height;
        result->shownWidth = std::max(1, int(std::lround(frame->width * stretch)));
        result->shownHeight = frame->height;
        result->frame = std::move(frame);
        return result;
    }
    return nullptr;
}

void StreamVideoDecoder::flush()
{
    if (m_context)
        avcodec_flush_buffers(m_context.get());
    m_setsPending = !m_parameterSets.empty();
}

void StreamVideoDecoder::setHurried(bool hurried)
{
    if (!m_context)
        return;
    m_context->skip_frame = hurried ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    m_context->skip_loop_filter = hurried ? AVDISCARD_ALL : AVDISCARD_DEFAULT;
}

bool StreamVideoDecoder::draw(const Frame& frame, int width, int height, std::uint8_t* pixels, int stride)
{
    return m_scaler.draw(*static_cast<const LibavFrame&>(frame).frame, width, height, pixels, stride);
}

const char* StreamVideoDecoder::device() const
{
    return m_onHardware ? HardwareDevice::get().name : "";
}

} // namespace vemo_decode
