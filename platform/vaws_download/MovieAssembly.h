#pragma once

#include "GapTimeline.h"
#include "MovieWriter.h"

#include <cstdint>
#include <vector>

namespace vaws {

/// What lies in an output so far, fragment by fragment, as its index will say it. The same for a file that is being
/// written, where every fragment is added once it is on the disk, and for one that the repair reads. Not for several
/// threads.
class MovieAssembly final
{
public:
    MovieAssembly() = default;
    MovieAssembly(std::vector<TrackFormat> formats, const HeaderRecord& header, MovieTags tags);

    void addFragment(const FragmentInfo& fragment);
    /// Nothing from here on is shown; 0: all is.
    void setAskedEnd(std::int64_t utcNs) { m_askedEndNs = utcNs; }

    /// For a span that is not whole: what is shown ends on a whole second, because the rest of the span is asked for by
    /// the second, and so nothing is shown twice or left out where the two meet. Returns that second as UTC; 0 when not
    /// one whole second behind `fromNs` is there.
    std::int64_t endOnWholeSecond(std::int64_t fromNs);
    /// Of [fromNs, untilNs); 0 when there is none behind `fromNs`.
    static std::int64_t lastWholeSecond(std::int64_t untilNs, std::int64_t fromNs);

    /// The index. It refers to the tables of this object.
    Movie movie() const;

    bool empty() const { return m_samples == 0; }
    std::uint64_t samples() const { return m_samples; }
    std::uint64_t pictures() const; ///< samples of the leading track
    std::uint64_t lostUnits() const { return m_lostUnits; }
    const GapTimeline& timeline() const { return m_timeline; }
    std::int64_t beginNs() const;     ///< UTC of what is shown first; 0 while empty
    std::int64_t endNs() const;       ///< UTC behind what is shown last
    std::int64_t lastFrameNs() const; ///< UTC of the frame shown last
    std::int64_t completeNs() const;  ///< nothing that would be shown before this UTC is still to come

private:
    std::size_t leadingTrack() const;
    std::int64_t mediaNs(std::size_t track, std::int64_t ticks) const;
    std::int64_t shownBeginNs() const; ///< media time
    std::int64_t shownEndNs() const;
    MovieTrack trackOf(std::size_t index, std::int64_t beginNs, std::int64_t endNs) const;

    std::vector<TrackFormat> m_formats;
    std::vector<SampleTable> m_tables;
    HeaderRecord m_header;
    MovieTags m_tags;
    GapTimeline m_timeline;
    std::int64_t m_askedEndNs = 0;
    std::uint64_t m_samples = 0;
    std::uint64_t m_lostUnits = 0;
};

} // namespace vaws
