#pragma once

#include "MediaTypes.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vaws {

class FragmentBuilder;
class GapTimeline;

/// The wall clock as a track of timed text (3GPP TS 26.245), which ordinary players show like subtitles: one sample
/// for every second by the clock, "2026-01-10 08:12:47 +01:00" in the process' zone. Made from the times of the leading
/// track's frames: a text begins no later than the frame that passes its second, so that a file that is cut off
/// anywhere has its clock. One object an output, on the thread of its builder.
class ClockTrack final
{
public:
    /// The track beside `video`, or beside sound where there are no pictures (nullptr).
    static TrackFormat format(std::uint32_t trackId, const TrackFormat* video);

    /// `track` is its index among the output's formats. The first text begins at `beginNs`, the first moment that is
    /// shown: players show a text that an edit list cuts into late.
    ClockTrack(std::size_t track, std::int64_t beginNs)
        : m_track(track)
        , m_nextNs(beginNs)
    {}

    /// A frame of the leading track was laid down: brings the clock up to it.
    void advance(FragmentBuilder& builder, const GapTimeline& timeline, std::int64_t utcNs);
    /// Before the builder and the timeline hear of it. In a gap that stays as time nothing is shown.
    void beginGap(FragmentBuilder& builder, const GapTimeline& timeline, const Gap& gap);

private:
    void append(FragmentBuilder& builder, const GapTimeline& timeline, std::int64_t beginNs, std::int64_t endNs,
                const std::string& text) const;

    std::size_t m_track;
    std::int64_t m_nextNs; ///< UTC at which the next text begins
    bool m_begun = false;
};

} // namespace vaws
