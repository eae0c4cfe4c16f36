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

/// Where in [begin, end) the loop is switched: pieces of one loop each, cut at GOPs of the segment.
struct Piece
{
    TimeSpan span;
    bool changed = false;
};

std::vector<Piece> piecesOf(const TimeSpan& segment, const ReplayRange& range, const QTimeZone& zone)
{
    std::vector<TimeSpan> changed;
    if (range.changeAfterNs) {
        changed.push_back({range.beginNs + *range.changeAfterNs, segment.endNs});
    } else if (range.changeAtSecondOfDay) {
        QDate day = QDateTime::fromMSecsSinceEpoch(segment.beginNs / 1'000'000, zone).date();
        const QDate last = QDateTime::fromMSecsSinceEpoch(segment.endNs / 1'000'000, zone).date();
        for (; day <= last; day = day.addDays(1)) {
            const QDateTime begin(day, QTime(0, 0).addSecs(*range.changeAtSecondOfDay), zone);
            const QDateTime end(day.addDays(1), QTime(0, 0), zone);
            changed.push_back({begin.toMSecsSinceEpoch() * 1'000'000, end.toMSecsSinceEpoch() * 1'000'000});
        }
    }
    std::vector<Piece> pieces;
    std::int64_t at = segment.beginNs;
    for (TimeSpan part : changed) {
        part.beginNs = std::max(part.beginNs, segment.beginNs);
        part.beginNs -= (part.beginNs - segment.beginNs) % gopNs;
        part.endNs = std::min(part.endNs, segment.endNs);
        if (part.beginNs >= part.endNs)
            continue;
        if (at < part.beginNs)
            pieces.push_back({{at, part.beginNs}, false});
        pieces.push_back({part, true});
        at = part.endNs;
    }
    if (at < segment.endNs)
        pieces.push_back({{at, segment.endNs}, false});
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
        const std::size_t firstOfSegment = runs.size();
        for (const Piece& piece : piecesOf(segment, range, zone)) {
            if (piece.span.endNs <= begin || piece.span.beginNs >= end)
                continue;
            const std::int64_t origin = piece.changed ? piece.span.beginNs : segment.beginNs;
            ReplayRun run = makeRun(piece.changed ? changedLoop : loop, origin, std::max(begin, piece.span.beginNs),
                                    std::min(end, piece.span.endNs));
            run.endsAtGap = std::min(end, piece.span.endNs) == segment.endNs;
            if (run.firstPosition < run.endPosition)
                runs.push_back(std::move(run));
        }
        if (firstOfSegment > 0 && runs.size() > firstOfSegment)
            runs[firstOfSegment].followsGap = true;
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
