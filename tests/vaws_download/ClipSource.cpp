#include "ClipSource.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/md5.h>
}

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>
#include <stdexcept>
#include <utility>

// platform file: a child process read through a pipe
#ifdef _WIN32
#define popen _popen
#define pclose _pclose
#endif

namespace {

constexpr std::int64_t nsPerSecond = 1'000'000'000;

vav::Codec codecOf(AVCodecID id)
{
    switch (id) {
    case AV_CODEC_ID_H264:
        return vav::Codec::H264;
    case AV_CODEC_ID_HEVC:
        return vav::Codec::H265;
    case AV_CODEC_ID_MJPEG:
        return vav::Codec::Mjpeg;
    case AV_CODEC_ID_AAC:
        return vav::Codec::Aac;
    case AV_CODEC_ID_PCM_ALAW:
        return vav::Codec::PcmA;
    case AV_CODEC_ID_PCM_MULAW:
        return vav::Codec::PcmU;
    default:
        return vav::Codec::Unknown;
    }
}

void appendNal(std::vector<std::uint8_t>& out, const std::uint8_t* nal, std::size_t size)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        out.push_back(static_cast<std::uint8_t>(size >> shift));
    out.insert(out.end(), nal, nal + size);
}

/// The parameter sets of an AVCDecoderConfigurationRecord or HEVCDecoderConfigurationRecord (ISO/IEC 14496-15).
std::vector<std::uint8_t> parameterSetsOf(const AVCodecParameters& codec)
{
    std::vector<std::uint8_t> sets;
    const std::uint8_t* at = codec.extradata;
    const std::uint8_t* end = at + codec.extradata_size;
    auto takeSets = [&](int count) {
        for (int i = 0; i < count && at + 2 <= end; ++i) {
            const std::size_t size = static_cast<std::size_t>(at[0] << 8 | at[1]);
            appendNal(sets, at + 2, size);
            at += 2 + size;
        }
    };
    if (codec.codec_id == AV_CODEC_ID_H264) {
        at += 5;
        takeSets(*at++ & 0x1f);
        takeSets(*at++);
    } else {
        int arrays = at[22];
        at += 23;
        while (arrays-- > 0) {
            const int count = at[1] << 8 | at[2];
            at += 3;
            takeSets(count);
        }
    }
    return sets;
}

} // namespace

std::string shellOutput(const std::string& command, int* exitCode)
{
    std::string text;
    std::FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        throw std::runtime_error("cannot run: " + command);
    char block[4096];
    for (std::size_t got; (got = std::fread(block, 1, sizeof block, pipe)) > 0;)
        text.append(block, got);
    const int status = pclose(pipe);
    if (exitCode)
        *exitCode = status;
    return text;
}

std::vector<std::string> ffmpegPacketMd5(const std::string& path, int stream, bool ignoreEditList)
{
    const std::string text =
        shellOutput("ffmpeg -v error " + std::string(ignoreEditList ? "-ignore_editlist 1 " : "") + "-i '" + path +
                    "' -map 0:" + std::to_string(stream) + " -c copy -f framemd5 - 2>/dev/null");
    std::vector<std::string> result;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const auto comma = line.rfind(',');
        if (line.empty() || line[0] == '#' || comma == std::string::npos)
            continue;
        result.push_back(line.substr(line.find_first_not_of(' ', comma + 1)));
    }
    return result;
}

void ClipSource::makeClip(const std::string& path, double seconds, const std::string& arguments)
{
    if (std::filesystem::exists(path))
        return;
    const std::string length = std::to_string(seconds);
    // Test programs that run side by side may make the same clip: each under a name of its own, and the first one
    // stays.
    const std::string part =
        path + "." + std::to_string(std::random_device()()) + std::filesystem::path(path).extension().string();
    int code = 0;
    const std::string output =
        shellOutput("ffmpeg -nostdin -v error -y -f lavfi -i testsrc2=size=640x360:rate=25:duration=" + length +
                        " -f lavfi -i sine=frequency=440:sample_rate=48000:duration=" + length + " " + arguments +
                        " '" + part + "' 2>&1",
                    &code);
    if (code != 0)
        throw std::runtime_error("ffmpeg could not make " + path + ": " + output);
    std::error_code exists;
    std::filesystem::create_hard_link(part, path, exists);
    std::filesystem::remove(part);
    if (exists && !std::filesystem::exists(path))
        throw std::runtime_error("no room for " + path + ": " + exists.message());
}

ClipSource::ClipSource(const std::string& path)
    : ClipSource(path, Options())
{}

ClipSource::ClipSource(const std::string& path, const Options& options)
{
    load(path, options);
    if (options.seconds > 0)
        loop(options.seconds);
    m_info.endNs = endNs();
}

void ClipSource::load(const std::string& path, const Options& options)
{
    AVFormatContext* context = nullptr;
    if (avformat_open_input(&context, path.c_str(), nullptr, nullptr) < 0)
        throw std::runtime_error("cannot open " + path);
    if (avformat_find_stream_info(context, nullptr) < 0)
        throw std::runtime_error("cannot read " + path);
    m_info.beginNs = options.beginNs;
    m_info.channelName = options.channelName;
    m_info.deviceName = options.deviceName;
    std::map<unsigned, std::uint8_t> trackOf;
    std::int64_t originNs = INT64_MAX;
    for (unsigned i = 0; i < context->nb_streams; ++i) {
        const AVStream& stream = *context->streams[i];
        const AVCodecParameters& codec = *stream.codecpar;
        vav::TrackInfo track;
        track.codec = codecOf(codec.codec_id);
        if (track.codec == vav::Codec::Unknown || (!vav::isVideo(track.codec) && !options.audio))
            continue;
        track.track = vav::isVideo(track.codec) ? 0 : 1;
        track.clockRate = vav::isVideo(track.codec) ? 90000u : static_cast<std::uint32_t>(codec.sample_rate);
        track.width = static_cast<std::uint16_t>(codec.width);
        track.height = static_cast<std::uint16_t>(codec.height);
        track.channels = static_cast<std::uint16_t>(codec.ch_layout.nb_channels);
        track.bitRate = static_cast<std::uint32_t>(codec.bit_rate);
        if (track.codec == vav::Codec::H264 || track.codec == vav::Codec::H265)
            track.parameterSets = parameterSetsOf(codec);
        else if (track.codec == vav::Codec::Aac)
            track.parameterSets.assign(codec.extradata, codec.extradata + codec.extradata_size);
        trackOf[i] = track.track;
        m_info.tracks.push_back(track);
    }
    AVPacket* packet = av_packet_alloc();
    while (av_read_frame(context, packet) >= 0) {
        const auto found = trackOf.find(static_cast<unsigned>(packet->stream_index));
        if (found != trackOf.end() && packet->pts != AV_NOPTS_VALUE) {
            const AVRational base = context->streams[packet->stream_index]->time_base;
            Frame frame;
            frame.header.track = found->second;
            if (packet->flags & AV_PKT_FLAG_KEY)
                frame.header.flags = vav::KeyFrame;
            frame.header.timeNs = av_rescale_q(packet->pts, base, AVRational{1, static_cast<int>(nsPerSecond)});
            frame.header.durationUs =
                static_cast<std::uint32_t>(av_rescale_q(packet->duration, base, AVRational{1, 1'000'000}));
            frame.header.payloadBytes = static_cast<std::uint32_t>(packet->size);
            frame.payload.assign(packet->data, packet->data + packet->size);
            if (found->second == 0)
                originNs = std::min(originNs, frame.header.timeNs);
            m_frames.push_back(std::move(frame));
        }
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    avformat_close_input(&context);
    if (originNs == INT64_MAX)
        originNs = m_frames.empty() ? 0 : m_frames.front().header.timeNs;
    // As a recorder sends: the first packet of the stream that can be decoded is the first key frame, no sound lies
    // before it.
    m_frames.erase(std::remove_if(m_frames.begin(), m_frames.end(),
                                  [&](const Frame& frame) { return frame.header.timeNs < originNs; }),
                   m_frames.end());
    for (Frame& frame : m_frames)
        frame.header.timeNs += options.beginNs - originNs;
}

void ClipSource::loop(double seconds)
{
    const std::vector<Frame> once = m_frames;
    const std::int64_t lengthNs = endNs() - beginNs();
    const auto wantedNs = static_cast<std::int64_t>(seconds * static_cast<double>(nsPerSecond));
    m_frames.clear();
    for (std::int64_t shiftNs = 0; shiftNs < wantedNs; shiftNs += lengthNs) {
        for (Frame frame : once) {
            frame.header.timeNs += shiftNs;
            if (frame.header.timeNs >= m_info.beginNs + shiftNs + lengthNs)
                continue;
            if (frame.header.timeNs < m_info.beginNs + wantedNs)
                m_frames.push_back(std::move(frame));
        }
    }
}

std::int64_t ClipSource::beginNs() const
{
    return m_info.beginNs;
}

std::int64_t ClipSource::endNs() const
{
    std::int64_t end = m_info.beginNs;
    for (const Frame& frame : m_frames) {
        if (frame.header.track == 0)
            end = std::max(end, frame.header.timeNs + std::int64_t{frame.header.durationUs} * 1000);
    }
    return end;
}

std::vector<std::uint8_t> ClipSource::packet(const Frame& frame)
{
    std::vector<std::uint8_t> bytes(vav::headerBytes);
    vav::FrameHeader header = frame.header;
    header.payloadBytes = static_cast<std::uint32_t>(frame.payload.size());
    vav::writeFrameHeader(bytes.data(), header);
    bytes.insert(bytes.end(), frame.payload.begin(), frame.payload.end());
    return bytes;
}

std::vector<std::vector<std::uint8_t>> ClipSource::batches(std::size_t batchBytes) const
{
    std::vector<std::vector<std::uint8_t>> result;
    std::vector<std::uint8_t> batch = vav::encodeStreamInfo(m_info);
    for (const Frame& frame : m_frames) {
        const std::vector<std::uint8_t> bytes = packet(frame);
        if (!batch.empty() && batch.size() + bytes.size() > batchBytes)
            result.push_back(std::exchange(batch, {}));
        batch.insert(batch.end(), bytes.begin(), bytes.end());
    }
    if (!batch.empty())
        result.push_back(std::move(batch));
    return result;
}

std::vector<std::string> ClipSource::payloadMd5(int track) const
{
    std::vector<std::string> result;
    for (const Frame& frame : m_frames) {
        if (frame.header.track != track)
            continue;
        std::uint8_t digest[16];
        av_md5_sum(digest, frame.payload.data(), frame.payload.size());
        std::string text;
        for (const std::uint8_t byte : digest) {
            char digits[3];
            std::snprintf(digits, sizeof digits, "%02x", byte);
            text += digits;
        }
        result.push_back(text);
    }
    return result;
}
