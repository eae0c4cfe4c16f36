#pragma once

#include "AudioTranscoder.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <array>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vaws {

struct LibavDeleter
{
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

/// The transcoder on libavcodec's AAC encoder. open() once, before anything else.
class AacTranscoder final : public AudioTranscoder
{
public:
    bool open(const vav::TrackInfo& source, std::string& error);
    AacTranscoder() = default;
    AacTranscoder(const AacTranscoder&) = delete;
    AacTranscoder& operator=(const AacTranscoder&) = delete;
    ~AacTranscoder() override;

    const vav::TrackInfo& track() const override { return m_track; }
    void push(std::int64_t mediaNs, const std::uint8_t* data, std::size_t size) override;
    bool take(Packet& packet) override;
    void drain() override;
    std::size_t backlogBytes() const override;

private:
    struct Chunk
    {
        std::int64_t mediaNs;
        std::vector<std::uint8_t> bytes;
    };
    void run();
    void encodeAll();
    void encodeChunk(const Chunk& chunk);
    void encodeFrame();
    void completeWithSilence();
    void receive();

    vav::TrackInfo m_track;
    std::array<float, 256> m_expansion{};

    // The encoding thread's own.
    std::unique_ptr<AVCodecContext, LibavDeleter> m_encoder;
    std::unique_ptr<AVFrame, LibavDeleter> m_frame;
    std::unique_ptr<AVPacket, LibavDeleter> m_packet;
    std::vector<float> m_partial; ///< interleaved, less than one frame
    std::int64_t m_position = 0;  ///< media time of the next sample in, ticks
    bool m_started = false;
    bool m_primed = false;
    std::deque<std::int64_t> m_framePositions; ///< of the packets to come

    // Guarded by m_mutex.
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Chunk> m_in;
    std::deque<Packet> m_out;
    std::size_t m_backlog = 0;
    bool m_draining = false;
    bool m_drained = false;
    bool m_noMemory = false; ///< the thread has ended, and take() says so
    bool m_stop = false;

    std::thread m_thread;
};

} // namespace vaws
