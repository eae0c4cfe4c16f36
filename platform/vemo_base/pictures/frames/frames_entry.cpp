#include "FrameEntry.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswscale/swscale.h>
}

#if defined(_WIN32)
#define VEMO_FRAMES_EXPORT __declspec(dllexport)
#else
#define VEMO_FRAMES_EXPORT __attribute__((visibility("default")))
#endif

namespace vemo_frames {

namespace {

using Clock = std::chrono::steady_clock;

/// Bytes: the scaler's vector code writes past the end of a row.
constexpr std::size_t roomBehind = 256;
constexpr int maxEdge = 16384;
constexpr std::int64_t maxPixels = 64'000'000;
constexpr int probeBytes = 1024 * 1024;
constexpr int packetLimit = 64; ///< from the first key frame on; a decoder has given a picture long before

int isOver(void* deadline)
{
    return Clock::now() > *static_cast<Clock::time_point*>(deadline);
}

struct FormatCloser
{
    void operator()(AVFormatContext* context) const { avformat_close_input(&context); }
};

struct CodecCloser
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};

struct PacketCloser
{
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

struct FrameCloser
{
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

struct ScalerCloser
{
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};

using Format = std::unique_ptr<AVFormatContext, FormatCloser>;
using Codec = std::unique_ptr<AVCodecContext, CodecCloser>;

/// The file and nothing it refers to: one demuxer, one protocol.
Format openFile(const std::string& path, Clock::time_point* deadline)
{
    AVFormatContext* context = avformat_alloc_context();
    if (!context)
        return nullptr;
    context->interrupt_callback = {isOver, deadline};
    context->probesize = probeBytes;
    context->flags |= AVFMT_FLAG_NOPARSE;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "file", 0);
    av_dict_set(&options, "format_whitelist", "mov,mp4,m4a,3gp,3g2,mj2", 0);
    const int result = avformat_open_input(&context, ("file:" + path).c_str(), av_find_input_format("mp4"), &options);
    av_dict_free(&options);
    return Format(result < 0 ? nullptr : context); // a failure frees the context
}

Codec openDecoder(const AVStream& stream)
{
    const AVCodec* decoder = avcodec_find_decoder(stream.codecpar->codec_id);
    Codec codec(decoder ? avcodec_alloc_context3(decoder) : nullptr);
    if (!codec || avcodec_parameters_to_context(codec.get(), stream.codecpar) < 0)
        return nullptr;
    codec->thread_count = 1;
    codec->max_pixels = maxPixels;
    codec->skip_frame = AVDISCARD_NONKEY;
    codec->skip_loop_filter = AVDISCARD_ALL;
    codec->pkt_timebase = stream.time_base;
    return avcodec_open2(codec.get(), decoder, nullptr) < 0 ? nullptr : std::move(codec);
}

bool decode(AVFormatContext& format, int stream, AVCodecContext& codec, AVFrame& frame, Clock::time_point deadline)
{
    const std::unique_ptr<AVPacket, PacketCloser> packet(av_packet_alloc());
    bool seenKey = false;
    for (int left = packetLimit; packet && left > 0 && Clock::now() < deadline;) {
        const int read = av_read_frame(&format, packet.get());
        if (read >= 0 && packet->stream_index != stream) {
            av_packet_unref(packet.get());
            continue;
        }
        seenKey = seenKey || (read >= 0 && (packet->flags & AV_PKT_FLAG_KEY));
        if (seenKey || read < 0) {
            --left;
            avcodec_send_packet(&codec, read < 0 ? nullptr : packet.get());
            if (avcodec_receive_frame(&codec, &frame) >= 0)
                return true;
        }
        av_packet_unref(packet.get());
        if (read < 0)
            return false;
    }
    return false;
}

bool scale(const AVFrame& from, const FrameWish& wish, const AVRational& aspect, Frame& to)
{
    if (from.width <= 0 || from.height <= 0 || from.width > maxEdge || from.height > maxEdge || wish.maxWidth <= 0 ||
        wish.maxHeight <= 0)
        return false;
    const double stretch = aspect.num > 0 && aspect.den > 0 ? std::clamp(av_q2d(aspect), 0.25, 4.0) : 1.0;
    const double width = from.width * stretch;
    const double across = wish.maxWidth / width;
    const double down = double(wish.maxHeight) / from.height;
    const double factor = std::min(1.0, wish.covers ? std::max(across, down) : std::min(across, down));
    to.width = std::max(1, int(std::lround(width * factor)));
    to.height = std::max(1, int(std::lround(from.height * factor)));
    to.pictureWidth = from.width;
    to.pictureHeight = from.height;
    const std::unique_ptr<SwsContext, ScalerCloser> scaler(
        sws_getContext(from.width, from.height, AVPixelFormat(from.format), to.width, to.height, AV_PIX_FMT_BGRA,
                       SWS_AREA, nullptr, nullptr, nullptr));
    if (!scaler)
        return false;
    to.pixels.resize(std::size_t(to.width) * std::size_t(to.height) * 4 + roomBehind);
    std::uint8_t* rows[] = {to.pixels.data(), nullptr, nullptr, nullptr};
    const int strides[] = {to.width * 4, 0, 0, 0};
    return sws_scale(scaler.get(), from.data, from.linesize, 0, from.height, rows, strides) == to.height;
}

bool firstKeyFrame(const FrameWish& wish, Frame& result)
{
    Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(wish.limitMs);
    const Format format = openFile(wish.path, &deadline);
    if (!format)
        return false;
    const int stream = av_find_best_stream(format.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    if (stream < 0)
        return false;
    for (unsigned i = 0; i < format->nb_streams; ++i)
        format->streams[i]->discard = int(i) == stream ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    const AVStream& video = *format->streams[stream];
    const Codec codec = openDecoder(video);
    const std::unique_ptr<AVFrame, FrameCloser> frame(av_frame_alloc());
    return codec && frame && decode(*format, stream, *codec, *frame, deadline) &&
           scale(*frame, wish, av_guess_sample_aspect_ratio(format.get(), format->streams[stream], frame.get()),
                 result);
}

constexpr FrameEntry entry{firstKeyFrame};

} // namespace

} // namespace vemo_frames

extern "C" VEMO_FRAMES_EXPORT const vemo_frames::FrameEntry* vemo_frames_entry();

const vemo_frames::FrameEntry* vemo_frames_entry()
{
    av_log_set_level(AV_LOG_QUIET);
    return &vemo_frames::entry;
}
