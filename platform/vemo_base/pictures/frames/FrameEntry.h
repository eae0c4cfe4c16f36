#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vemo_frames {

/// A decoded picture, 32 bits a pixel in the order blue, green, red, unused, rows packed; bytes behind the last row
/// mean nothing.
struct Frame
{
    int width = 0; ///< as shown: by the sample aspect ratio
    int height = 0;
    int pictureWidth = 0; ///< of the recording
    int pictureHeight = 0;
    std::vector<std::uint8_t> pixels;
};

struct FrameWish
{
    std::string path; ///< UTF-8, of a regular file
    int maxWidth = 0; ///< the frame is scaled down to fit into these
    int maxHeight = 0;
    bool covers = false; ///< to fill them instead
    int limitMs = 0;     ///< for reading and decoding together
};

/// What the frames library offers; it is a library of its own because the decoders that it links take longer to load
/// than everything else of the client. Both are built from one tree: the table has no version.
struct FrameEntry
{
    /// The first key frame of an MP4 file. Any thread. False when there is none that can be decoded within the limits.
    bool (*firstKeyFrame)(const FrameWish& wish, Frame& frame);
};

constexpr const char* frameEntryName = "vemo_frames_entry"; ///< extern "C" const FrameEntry* vemo_frames_entry()

} // namespace vemo_frames
