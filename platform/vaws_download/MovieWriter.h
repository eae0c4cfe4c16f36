#pragma once

#include "MediaTypes.h"
#include "SampleTable.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

class BoxWriter;

/// One entry of an edit list. Media time in the track's timescale, -1 for an empty edit; length in the movie's.
struct Edit
{
    std::int64_t mediaTime = 0;
    std::uint64_t length = 0;
};

struct MovieTrack
{
    TrackFormat format;
    const SampleTable* table = nullptr; ///< nullptr: the track lies in fragments
    std::vector<Edit> edits;
    std::uint64_t length = 0; ///< shown length in the movie's timescale
};

struct Chapter
{
    std::int64_t beginNs = 0; ///< in the movie's time
    std::string title;
};

/// Everything that a `moov` says. `beginNs` and `endNs` are the recording's UTC.
struct Movie
{
    std::vector<MovieTrack> tracks;
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    std::uint64_t length = 0; ///< in the movie's timescale
    MovieTags tags;
    std::vector<Chapter> chapters;
};

/// The boxes of a file's beginning and end (ISO/IEC 14496-12): `ftyp`, and the `moov` of a fragmented or of a finished
/// file.
class MovieWriter final
{
public:
    static void fileType(BoxWriter& out);
    static constexpr std::uint64_t fileTypeBytes = 32;

    /// With sample tables, filled up to whole blocks; or with `mvex` when `fragmented`.
    static void movie(BoxWriter& out, const Movie& movie, bool fragmented);
};

} // namespace vaws
