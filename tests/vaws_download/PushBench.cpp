// Pushes synthetic frames into a task as fast as the library takes them and tells the rate, the CPU time and the time
// to finish.
//   vaws_push_bench TARGET.mp4 [MiB] [--kbit N] [--batch KiB] [--clock] [--stop]
#include "vav_frame.h"
#include "vaws_download.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

std::mutex mutex;
std::condition_variable changed;
std::int64_t underWay = 0;
int ended = 0;

double secondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double cpuSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// One second of 1080p25: a key frame and 24 others of the usual proportion, with sound.
class SyntheticStream
{
public:
    SyntheticStream(std::int64_t beginNs, std::size_t bytesPerSecond)
        : m_beginNs(beginNs)
    {
        m_noise.resize(bytesPerSecond + 4096);
        unsigned value = 1;
        for (std::uint8_t& byte : m_noise) {
            value = value * 1664525u + 1013904223u;
            byte = static_cast<std::uint8_t>(value >> 24);
        }
        m_frameBytes = bytesPerSecond / 32;
    }

    std::vector<std::uint8_t> info() const
    {
        vav::StreamInfo info;
        info.beginNs = m_beginNs;
        info.channelName = "Bench";
        vav::TrackInfo video;
        video.codec = vav::Codec::H264;
        video.clockRate = 90000;
        video.parameterSets = {0,    0,    0,    0x19, 0x67, 0x64, 0,    0x28, 0xac, 0xd9, 0x40, 0x78, 0x02,
                               0x27, 0xe5, 0xc0, 0x44, 0,    0,    0x03, 0,    0x04, 0,    0,    0x03, 0,
                               0xc8, 0x3c, 0x60, 0,    0,    0,    0x06, 0x68, 0xeb, 0xe3, 0xcb, 0x22, 0xc0};
        // Lengths of the two sets as the bytes above have them.
        video.parameterSets[3] = 25;
        vav::TrackInfo audio;
        audio.track = 1;
        audio.codec = vav::Codec::Aac;
        audio.clockRate = 48000;
        audio.channels = 2;
        audio.parameterSets = {0x11, 0x90};
        info.tracks = {video, audio};
        return vav::encodeStreamInfo(info);
    }

    void append(std::vector<std::uint8_t>& batch)
    {
        const std::int64_t timeNs = m_beginNs + m_frame * 40'000'000;
        const bool key = m_frame % 25 == 0;
        frame(batch, 0, key, timeNs, key ? m_frameBytes * 8 : m_frameBytes, 40'000);
        while (m_beginNs + m_sound * 1024 * 1'000'000'000 / 48000 <= timeNs) {
            frame(batch, 1, true, m_beginNs + m_sound * 1024 * 1'000'000'000 / 48000, 340, 21'333);
            ++m_sound;
        }
        ++m_frame;
    }

private:
    void frame(std::vector<std::uint8_t>& batch, std::uint8_t track, bool key, std::int64_t timeNs, std::size_t bytes,
               std::uint32_t durationUs)
    {
        vav::FrameHeader header;
        header.track = track;
        header.flags = static_cast<std::uint8_t>(key ? vav::KeyFrame : 0);
        header.timeNs = timeNs;
        header.durationUs = durationUs;
        header.payloadBytes = static_cast<std::uint32_t>(bytes);
        const std::size_t at = batch.size();
        batch.resize(at + vav::headerBytes + bytes);
        vav::writeFrameHeader(batch.data() + at, header);
        std::memcpy(batch.data() + at + vav::headerBytes, m_noise.data() + (m_frame * 64) % 4096, bytes);
    }

    std::int64_t m_beginNs;
    std::vector<std::uint8_t> m_noise;
    std::size_t m_frameBytes;
    std::int64_t m_frame = 0;
    std::int64_t m_sound = 0;
};

void onConsumed(const char*, std::int64_t bytes)
{
    const std::lock_guard lock(mutex);
    underWay -= bytes;
    changed.notify_all();
}

void onEvent(const char*, int event, int)
{
    const std::lock_guard lock(mutex);
    if (event != VAWS_EVENT_PROGRESS && event != VAWS_EVENT_WAITING)
        ended = event;
    changed.notify_all();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s TARGET.mp4 [MiB] [--kbit N] [--batch KiB] [--clock] [--stop]\n", argv[0]);
        return 2;
    }
    std::int64_t total = 1024;
    std::size_t kbit = 6000, batchBytes = 64 * 1024;
    bool stop = false;
    for (int i = 2; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--kbit" && i + 1 < argc)
            kbit = std::strtoul(argv[++i], nullptr, 10);
        else if (argument == "--batch" && i + 1 < argc)
            batchBytes = std::strtoul(argv[++i], nullptr, 10) * 1024;
        else if (argument == "--clock")
            vaws_download_set_clock_track(1);
        else if (argument == "--stop")
            stop = true;
        else
            total = std::strtol(argv[i], nullptr, 10);
    }
    total *= 1024 * 1024;
    std::filesystem::remove(argv[1]);
    const std::string journals = std::string(argv[1]) + ".journals";
    vaws_download_init_sdk(journals.c_str());
    vaws_download_register_consumed_callback(&onConsumed);
    vaws_download_register_event_callback(&onEvent);
    SyntheticStream stream(1'768'032'000'000'000'000, kbit * 125);

    // Batches are made ahead, so that only the library is measured; their times go on from round to round.
    const double cpuBefore = cpuSeconds();
    const auto begin = Clock::now();
    double making = 0;
    vaws_download_time_range("vavFrame", "20260110080000Z", "20270110080000Z", argv[1], "bench");
    std::vector<std::uint8_t> batch = stream.info();
    std::int64_t pushed = 0;
    double longest = 0;
    while (pushed < total && ended == 0) {
        const double before = cpuSeconds();
        while (batch.size() < batchBytes)
            stream.append(batch);
        making += cpuSeconds() - before;
        {
            std::unique_lock lock(mutex);
            const auto size = static_cast<std::int64_t>(batch.size());
            const std::int64_t credit = vaws_download_get_credit_hint("bench");
            changed.wait(lock, [&] { return underWay + size <= std::max(credit, size) || ended != 0; });
            underWay += size;
        }
        const auto pushBegin = Clock::now();
        vaws_download_push_vavframe("bench", batch.data(), batch.size());
        longest = std::max(longest, secondsSince(pushBegin));
        pushed += static_cast<std::int64_t>(batch.size());
        batch.clear();
    }
    const double pushing = secondsSince(begin);
    const auto endBegin = Clock::now();
    const double cpuEnd = cpuSeconds();
    if (stop) {
        std::int64_t count = 0;
        char text[24] = {};
        vaws_download_stop("bench", &count, text);
        std::printf("stopped after %lld ms of footage, last frame %s\n", static_cast<long long>(count), text);
    } else {
        vaws_download_push_player_event("bench", VAWS_PLAYER_ENDED);
        std::unique_lock lock(mutex);
        changed.wait(lock, [] { return ended != 0; });
    }
    const double ending = secondsSince(endBegin);
    const double endingCpu = cpuSeconds() - cpuEnd;
    const double wall = secondsSince(begin);
    const double cpu = cpuSeconds() - cpuBefore - making;
    const double gib = static_cast<double>(pushed) / (1024.0 * 1024 * 1024);
    std::printf("%.2f GiB in %.3f s: %.0f MB/s while pushing, %.0f MB/s in all, %.3f CPU s/GiB in the library; longest "
                "push %.2f ms; "
                "end %.1f ms, %.1f ms CPU; event %d\n",
                gib, wall, static_cast<double>(pushed) / 1e6 / pushing, static_cast<double>(pushed) / 1e6 / wall,
                cpu / gib, longest * 1e3, ending * 1e3, endingCpu * 1e3, ended);
    char report[4096];
    vaws_download_get_report("bench", report, sizeof report);
    std::printf("%s\n", report);
    vaws_download_shutdown();
    return ended == VAWS_EVENT_FINISHED || stop ? 0 : 1;
}
