#include "media/ReplaySchedule.h"

#include <QDateTime>
#include <QTime>

#include <algorithm>

namespace recorder_sim {
namespace {

constexpr std::int64_t gopNs = MediaLoop::gopNs;

void findLastPositions(ReplayRun& run)
{
    run.lastPosition.fill(-1);
    int missing = trackCount;
    for (std::int64_t at = run.endPosition - 1; at >= run.firstPosition && missing > 0; --at) {
        std::int64_t& last = run.lastPosition[run.loop->itemAt(at).track];
        if (last < 0 && run.isSent(at)) {
            last = at;
            --missing;
        }
    }
}

/// A run of the loop whose position 0 stands at `originNs`, from the GOP of `beginNs` to `endNs`.
ReplayRun makeRun(const std::shared_ptr<const MediaLoop>& loop, std::int64_t originNs, std::int64_t beginNs,
                  std::int64_t endNs)
{
    ReplayRun run;
    run.loop = loop;
    run.originNs = originNs;
    run.firstPosition = loop->gopPosition((beginNs - originNs) / gopNs);
    run.endPosition = loop->endPosition(endNs - originNs);
    run.endNs = endNs;
    findLastPositions(run);
    return run;
}

/// A part of a segment that comes from one loop without interruption, cut at GOPs of the segment.
struct Piece
{
    TimeSpan span;
    std::int64_t originNs = 0;
    bool changed = false;
    bool followsGap = false;
    bool endsAtGap = false;
};

/// The spans that begin at a moment, on each day of the segment where it is one of the day, and last `durationNs`, or
/// without one to the end of the day or segment; cut to the segment and its GOPs.
std::vector<TimeSpan> spansFrom(const std::optional<DayMoment>& moment, const ReplayRange& range,
                                const TimeSpan& segment, const QTimeZone& zone, std::optional<std::int64_t> durationNs)
{
    std::vector<TimeSpan> spans;
    if (moment && !moment->ofDay) {
        const std::int64_t begin = range.beginNs + moment->seconds * nsPerSecond;
        spans.push_back({begin, durationNs ? begin + *durationNs : segment.endNs});
    } else if (moment) {
        QDate day = QDateTime::fromMSecsSinceEpoch(segment.beginNs / 1'000'000, zone).date();
        const QDate last = QDateTime::fromMSecsSinceEpoch(segment.endNs / 1'000'000, zone).date();
        for (; day <= last; day = day.addDays(1)) {
            const QDateTime time(day, QTime(0, 0).addSecs(static_cast<int>(moment->seconds)), zone);
            const QDateTime midnight(day.addDays(1), QTime(0, 0), zone);
            const std::int64_t begin = time.toMSecsSinceEpoch() * 1'000'000;
            spans.push_back({begin, durationNs ? begin + *durationNs : midnight.toMSecsSinceEpoch() * 1'000'000});
        }
    }
    std::vector<TimeSpan> cut;
    for (const TimeSpan& span : spans) {
        const auto toGop = [&](std::int64_t ns) { return ns - (ns - segment.beginNs) % gopNs; };
        const TimeSpan part{toGop(std::max(span.beginNs, segment.beginNs)),
                            std::min(toGop(std::max(span.endNs, segment.beginNs)), segment.endNs)};
        if (part.beginNs < part.endNs)
            cut.push_back(part);
    }
    return cut;
}

std::vector<Piece> piecesOf(const TimeSpan& segment, const ReplayRange& range, const QTimeZone& zone)
{
    constexpr std::int64_t gapNs = 10 * nsPerSecond;
    std::vector<Piece> whole;
    std::int64_t at = segment.beginNs;
    for (const TimeSpan& part : spansFrom(range.change, range, segment, zone, std::nullopt)) {
        if (at < part.beginNs)
            whole.push_back({{at, part.beginNs}, segment.beginNs});
        whole.push_back({part, part.beginNs, true});
        at = part.endNs;
    }
    if (at < segment.endNs)
        whole.push_back({{at, segment.endNs}, segment.beginNs});
    whole.front().followsGap = true;
    whole.back().endsAtGap = true;

    std::vector<Piece> pieces;
    const std::vector<TimeSpan> gaps = spansFrom(range.gap, range, segment, zone, gapNs);
    for (Piece piece : whole) {
        for (const TimeSpan& gap : gaps) {
            if (gap.endNs <= piece.span.beginNs || gap.beginNs >= piece.span.endNs)
                continue;
            if (piece.span.beginNs < gap.beginNs) {
                pieces.push_back(piece);
                pieces.back().span.endNs = gap.beginNs;
                pieces.back().endsAtGap = true;
            }
            piece.span.beginNs = gap.endNs;
            piece.followsGap = true;
        }
        if (piece.span.beginNs < piece.span.endNs)
            pieces.push_back(piece);
    }
    return pieces;
}

} // namespace

ReplaySchedule ChannelFootage::schedule(const ReplayRange& range) const
{
    const std::int64_t end = std::min(range.endNs, calendar.whole().endNs) - range.endsEarlierNs;
    ReplaySchedule runs;
    for (const TimeSpan& segment : calendar.segments()) {
        if (segment.endNs <= range.beginNs || segment.beginNs >= end)
            continue;
        std::int64_t begin = std::max(segment.beginNs, range.beginNs);
        if (runs.empty())
            begin = std::max(segment.beginNs, begin - range.earlierGops * gopNs);
        for (const Piece& piece : piecesOf(segment, range, zone)) {
            if (piece.span.endNs <= begin || piece.span.beginNs >= end)
                continue;
            const std::int64_t runEnd = std::min(end, piece.span.endNs);
            ReplayRun run = makeRun(piece.changed ? changedLoop : loop, piece.originNs,
                                    std::max(begin, piece.span.beginNs), runEnd);
            run.followsGap = piece.followsGap && !runs.empty();
            run.endsAtGap = piece.endsAtGap && runEnd == piece.span.endNs;
            if (run.firstPosition < run.endPosition)
                runs.push_back(std::move(run));
        }
    }
    return runs;
}

ReplaySchedule liveSchedule(const std::shared_ptr<const MediaLoop>& loop, std::int64_t originNs, std::int64_t beginNs)
{
    ReplayRun run;
    run.loop = loop;
    run.originNs = originNs;
    run.firstPosition = loop->gopPosition(std::max<std::int64_t>(0, beginNs - originNs) / gopNs);
    run.endPosition = ReplayRange::open;
    run.endNs = ReplayRange::open;
    run.lastPosition.fill(-1);
    return {run};
}

} // namespace recorder_sim
