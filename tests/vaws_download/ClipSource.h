#pragma once

#include "vav_frame.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// A media file as the packets that the device client SDK would deliver for it: what a recorder sent, without a
/// network. Loads the whole clip through libavformat; loops it when more is asked for than it holds. The list of frames
/// is the reference that a written file is judged against. Not for several threads; throws std::runtime_error where a
/// clip cannot be read.
class ClipSource
{
public:
    struct Options
    {
        std::int64_t beginNs = 1'768'032'000'000'000'000; ///< UTC of the first presented frame; 2026-01-10T08:00:00Z
        double seconds = 0;                               ///< length by looping, 0: the clip once
        bool audio = true;
        std::string channelName = "Gate";
        std::string deviceName = "Recorder 1";
    };

    struct Frame
    {
        vav::FrameHeader header;
        std::vector<std::uint8_t> payload;
    };

    /// Makes a clip with the ffmpeg program unless `path` stands already. `arguments` go between the generated inputs
    /// and the path: a test picture is input 0, a tone is input 1.
    static void makeClip(const std::string& path, double seconds, const std::string& arguments);

    ClipSource(const std::string& path, const Options& options);
    explicit ClipSource(const std::string& path);

    const vav::StreamInfo& info() const { return m_info; }
    vav::StreamInfo& info() { return m_info; }
    const std::vector<Frame>& frames() const { return m_frames; }
    std::vector<Frame>& frames() { return m_frames; }
    std::int64_t beginNs() const;
    std::int64_t endNs() const; ///< behind the last video frame

    /// The stream-info packet, then all frames, cut at packets into batches of about `batchBytes`.
    std::vector<std::vector<std::uint8_t>> batches(std::size_t batchBytes = 64 * 1024) const;

    /// MD5 of every payload of a track in decode order, as 32 hexadecimal digits: what ffmpeg's framemd5 must give for
    /// the file.
    std::vector<std::string> payloadMd5(int track) const;

    /// `frame` as one packet.
    static std::vector<std::uint8_t> packet(const Frame& frame);

private:
    void load(const std::string& path, const Options& options);
    void loop(double seconds);

    vav::StreamInfo m_info;
    std::vector<Frame> m_frames;
};

/// What stock ffmpeg reads from a file: MD5 of every packet of one stream, in file order.
std::vector<std::string> ffmpegPacketMd5(const std::string& path, int stream, bool ignoreEditList = true);

/// Standard output of a shell command; the exit code goes to `exitCode` when given.
std::string shellOutput(const std::string& command, int* exitCode = nullptr);
