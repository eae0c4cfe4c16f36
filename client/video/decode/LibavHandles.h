#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libswscale/swscale.h>
}

namespace vemo_decode {

struct LibavCloser
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVBufferRef* buffer) const { av_buffer_unref(&buffer); }
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};

template <typename T>
using Libav = std::unique_ptr<T, LibavCloser>;

} // namespace vemo_decode
