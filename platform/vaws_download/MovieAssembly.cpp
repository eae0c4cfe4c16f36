#include "MovieAssembly.h"

#include "ClockText.h"

#include <algorithm>

namespace vaws {
namespace {

constexpr std::int64_t leastBeginGapNs =
    nsPerSecond; ///< a recording that begins this much later than asked has a gap there

}

MovieAssembly::MovieAssembly(std::vector<TrackFormat> formats, const HeaderRecord& header, MovieTags tags)
    : m_formats(std::move(formats))
    , m_tables(m_formats.size())
    , m_header(header)
    , m_tags(std::move(tags))
    , m_timeline(header.baseNs, header.leadNs)
{}

void MovieAssembly::addFragment(const FragmentInfo& fragment)
{
    if (fragment.record.gap.endNs > fragment.record.gap.beginNs)
        m_timeline.addGap(fragment.record.gap);
    m_lostUnits += fragment.record.lostUnits;
    for (const TrackRun& run : fragment.runs) {
        m_tables[run.trackId - 1].append(run);
        m_samples += run.samples.size();
    }
}

std::size_t MovieAssembly::leadingTrack() const
{
    std::size_t best = m_formats.size();
    for (std::size_t i = 0; i < m_formats.size(); ++i) {
        const bool usable = m_tables[i].sampleCount() > 0 && m_formats[i].kind != TrackKind::Text;
        if (usable && (best == m_formats.size() || (m_formats[i].isVideo() && !m_formats[best].isVideo())))
            best = i;
    }
    return best;
}

std::uint64_t MovieAssembly::pictures() const
{
    const std::size_t leading = leadingTrack();
    return leading < m_tables.size() ? m_tables[leading].sampleCount() : 0;
}

std::int64_t MovieAssembly::mediaNs(std::size_t track, std::int64_t ticks) const
{
    return ticksToNs(ticks, m_formats[track].timescale) - m_timeline.leadNs();
}

std::int64_t MovieAssembly::shownBeginNs() const
{
    const std::size_t leading = leadingTrack();
    if (leading == m_formats.size())
        return 0;
    const std::int64_t first = mediaNs(leading, m_tables[leading].firstPresentation());
    if (m_header.askedBeginNs <= m_header.baseNs)
        return std::max<std::int64_t>(first, 0);
    return std::max(first, m_timeline.toMediaNs(m_header.askedBeginNs));
}

std::int64_t MovieAssembly::shownEndNs() const
{
    const std::size_t leading = leadingTrack();
    if (leading == m_formats.size())
        return 0;
    std::int64_t end = mediaNs(leading, m_tables[leading].presentationEnd());
    if (m_askedEndNs > 0)
        end = std::min(end, m_timeline.toMediaNs(m_askedEndNs));
    return std::max(end, shownBeginNs());
}

std::int64_t MovieAssembly::beginNs() const
{
    return empty() ? 0 : m_timeline.toUtcNs(shownBeginNs());
}

std::int64_t MovieAssembly::endNs() const
{
    // One ns before the end is certainly on this side of a gap that begins there.
    return empty() ? 0 : m_timeline.toUtcNs(shownEndNs() - 1) + 1;
}

std::int64_t MovieAssembly::completeNs() const
{
    const std::size_t leading = leadingTrack();
    if (leading == m_formats.size())
        return 0;
    const SampleTable& table = m_tables[leading];
    // Decode times are the presentation times in order, less the reorder depth: when the last one is not that of the
    // picture shown last, pictures before it are missing.
    const std::int64_t depth = table.firstPresentation() - table.firstDecodeTime();
    if (table.lastDecodeTime() + depth >= table.lastPresentation())
        return endNs();
    const std::int64_t decoded = table.firstDecodeTime() + static_cast<std::int64_t>(table.decodeDuration());
    return m_timeline.toUtcNs(mediaNs(leading, decoded) - 1) + 1;
}

std::int64_t MovieAssembly::endOnWholeSecond(std::int64_t fromNs)
{
    const std::int64_t second =
        empty() ? 0 : lastWholeSecond(std::min(endNs(), completeNs()), std::max(fromNs, beginNs()));
    if (second > 0)
        setAskedEnd(second);
    return second;
}

std::int64_t MovieAssembly::lastWholeSecond(std::int64_t untilNs, std::int64_t fromNs)
{
    const std::int64_t second = untilNs / nsPerSecond * nsPerSecond;
    return second > fromNs ? second : 0;
}

std::int64_t MovieAssembly::lastFrameNs() const
{
    const std::size_t leading = leadingTrack();
    if (leading == m_formats.size())
        return 0;
    const std::int64_t last = mediaNs(leading, m_tables[leading].lastPresentation());
    return std::min(m_timeline.toUtcNs(last), std::max(endNs() - 1, beginNs()));
}

MovieTrack MovieAssembly::trackOf(std::size_t index, std::int64_t beginNs, std::int64_t endNs) const
{
    MovieTrack track;
    track.format = m_formats[index];
    const SampleTable& table = m_tables[index];
    if (table.sampleCount() == 0)
        return track;
    const std::int64_t firstNs = mediaNs(index, table.firstPresentation());
    const std::int64_t fromNs = std::max(beginNs, firstNs);
    const std::int64_t toNs = std::min(endNs, mediaNs(index, table.presentationEnd()));
    if (toNs <= fromNs)
        return track;
    track.table = &table;
    const std::int64_t lateBy = nsToTicks(fromNs - beginNs, movieTimescale);
    if (lateBy > 0)
        track.edits.push_back({-1, static_cast<std::uint64_t>(lateBy)});
    Edit edit;
    edit.mediaTime =
        std::max(nsToTicks(fromNs + m_timeline.leadNs(), m_formats[index].timescale), table.firstPresentation()) -
        table.firstDecodeTime();
    edit.length = static_cast<std::uint64_t>(nsToTicks(toNs - fromNs, movieTimescale));
    track.edits.push_back(edit);
    track.length = static_cast<std::uint64_t>(std::max<std::int64_t>(lateBy, 0)) + edit.length;
    return track;
}

Movie MovieAssembly::movie() const
{
    Movie movie;
    movie.tags = m_tags;
    movie.beginNs = beginNs();
    movie.endNs = endNs();
    const std::int64_t begin = shownBeginNs();
    const std::int64_t end = shownEndNs();
    for (std::size_t i = 0; i < m_formats.size(); ++i) {
        MovieTrack track = trackOf(i, begin, end);
        if (!track.table)
            continue;
        movie.length = std::max(movie.length, track.length);
        movie.tracks.push_back(std::move(track));
    }
    const std::vector<Gap>& gaps = m_timeline.gaps();
    const std::int64_t lateNs = m_header.askedBeginNs > 0 ? movie.beginNs - m_header.askedBeginNs : 0;
    if (gaps.empty() && lateNs < leastBeginGapNs)
        return movie;
    movie.chapters.push_back({0, localTimeOfDay(movie.beginNs)});
    if (lateNs >= leastBeginGapNs)
        movie.chapters.back().title += ", after " + lengthText(lateNs) + " " + gapCauseText(GapCause::NotRecorded);
    for (std::size_t i = 0; i < gaps.size(); ++i) {
        const Gap& gap = gaps[i];
        const std::int64_t at = m_timeline.gapMediaNs(i) + (gap.collapsed ? 0 : gap.endNs - gap.beginNs);
        if (at > begin && at < end)
            movie.chapters.push_back({at - begin, localTimeOfDay(gap.endNs) + ", after " +
                                                      lengthText(gap.endNs - gap.beginNs) + " " +
                                                      gapCauseText(gap.cause)});
    }
    return movie;
}

} // namespace vaws
