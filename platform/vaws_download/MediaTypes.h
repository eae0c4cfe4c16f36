#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What builder, finaliser and repair have in common.
namespace vaws {

constexpr std::size_t blockBytes = 4096; ///< fragments and their `moof` blocks stand at multiples of this
constexpr std::uint32_t movieTimescale = 90000;
constexpr std::uint32_t videoTimescale = 90000;

enum class TrackKind : std::uint8_t { Unknown = 0, Video, Sound, Text };

/// One track as its sample entry says it.
struct TrackFormat
{
    std::uint32_t trackId = 0; ///< 1 and up, in the order of the tracks
    TrackKind kind = TrackKind::Unknown;
    std::uint32_t timescale = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::vector<std::uint8_t> sampleEntry; ///< the whole box

    bool isVideo() const { return kind == TrackKind::Video; }
};

/// One sample in decode order; times in the track's timescale.
struct Sample
{
    std::int64_t decodeTime = 0;
    std::int32_t compositionOffset = 0;
    std::uint32_t bytes = 0;
    std::uint32_t duration = 0;
    bool key = false;
};

/// Samples of one track that lie one behind the other.
struct TrackRun
{
    std::uint32_t trackId = 0;
    std::uint64_t offset = 0; ///< of the first one, in the file
    std::vector<Sample> samples;
};

enum class GapCause : std::uint8_t { Unknown = 0, NotRecorded = 1, LostInTransfer = 2 };

/// A stretch of the asked time for which there is no picture; UTC in ns.
struct Gap
{
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    GapCause cause = GapCause::Unknown;
    bool collapsed = true; ///< left out of the movie's time; otherwise it stays as time
};

const char* gapCauseText(GapCause cause);

/// What a fragment knows of itself beyond its `moof`; it lies in the free space of the fragment's first block.
struct FragmentRecord
{
    std::uint32_t moofBytes = 0;
    std::uint32_t moofCrc = 0;
    std::uint32_t dataBytes = 0;   ///< payload of its `mdat`
    std::uint64_t signature = 0;   ///< dataSignature() of that payload
    std::uint64_t syncedBytes = 0; ///< file length that was safely on disk when the fragment was closed
    std::uint32_t lostUnits = 0;   ///< access units lost in transfer in front of its frames
    Gap gap;                       ///< in front of its first frame; endNs 0 when there is none
};

/// A closed fragment.
struct FragmentInfo
{
    std::uint64_t offset = 0; ///< of its first block
    std::uint64_t bytes = 0;  ///< up to the next fragment
    std::vector<TrackRun> runs;
    FragmentRecord record;
};

/// What the file's first block says of the output as a whole, for the repair.
struct HeaderRecord
{
    std::uint64_t token = 0; ///< names this output, as its journal does
    std::int64_t baseNs = 0; ///< UTC of the first key frame: media time 0
    std::int64_t leadNs =
        0; ///< what is added to media time before it becomes ticks, so that decode times are not negative
    std::int64_t askedBeginNs = 0; ///< playback starts here where it lies behind baseNs
};

/// Texts for the file's metadata.
struct MovieTags
{
    std::string channelName;
    std::string deviceName;
};

} // namespace vaws
