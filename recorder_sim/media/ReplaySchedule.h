#pragma once

#include "media/MediaLoop.h"
#include "media/RecordingCalendar.h"

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace recorder_sim {

/// A stretch of footage that is sent without interruption from one loop.
struct ReplayRun
{
    std::shared_ptr<const MediaLoop> loop;
    std::int64_t originNs = 0;      ///< UTC time of the loop's position 0
    std::int64_t firstPosition = 0; ///< always a key frame
    std::int64_t endPosition = 0;
    std::int64_t endNs = 0; ///< audio presented at or after it is left out
    bool followsGap = false;
    bool endsAtGap = false;                              ///< or at the end of all footage
    std::array<std::int64_t, trackCount> lastPosition{}; ///< of each track; -1 without any

    std::int64_t utcNs(std::int64_t position) const { return originNs + loop->ptsAt(position); }
    bool isSent(std::int64_t position) const
    {
        return loop->itemAt(position).track == videoTrack || utcNs(position) < endNs;
    }
};

/// What a replay plays: runs in order.
using ReplaySchedule = std::vector<ReplayRun>;

/// A moment by the begin of a range, or one of each day by local time.
struct DayMoment
{
    bool ofDay = false;
    std::int64_t seconds = 0;
};

/// Asked for and bent by faults. Times are UTC nanoseconds.
struct ReplayRange
{
    static constexpr std::int64_t open = std::numeric_limits<std::int64_t>::max();

    std::int64_t beginNs = 0;
    std::int64_t endNs = open;
    int earlierGops = 0;             ///< begin so many key frames earlier, as far as the segment reaches
    std::int64_t endsEarlierNs = 0;  ///< end so much before the asked end
    std::optional<DayMoment> change; ///< from then on to the end of the segment or day, the other parameter sets
    std::optional<DayMoment> gap;    ///< from then on ten seconds are missing
};

/// A channel's footage: its loop, the loop with other parameter sets, and when it has recorded. What is sent for a
/// range depends on the range and the time alone: position 0 of the loop stands at the begin of each segment.
/// Immutable.
struct ChannelFootage
{
    std::shared_ptr<const MediaLoop> loop;
    std::shared_ptr<const MediaLoop> changedLoop;
    RecordingCalendar calendar;
    QTimeZone zone;

    /// The loop of a smaller second live stream; null for channels that have none.
    std::shared_ptr<const MediaLoop> subLoop() const
    {
        return changedLoop->video().width < loop->video().width ? changedLoop : nullptr;
    }

    /// Begins at the key frame at or before the asked time; in a gap, with the next segment. Empty when nothing was
    /// recorded.
    ReplaySchedule schedule(const ReplayRange& range) const;
};

/// An endless run of a loop, its position 0 at `originNs`, from the last key frame at or before `beginNs`.
ReplaySchedule liveSchedule(const std::shared_ptr<const MediaLoop>& loop, std::int64_t originNs, std::int64_t beginNs);

} // namespace recorder_sim
