#include "media/ReplaySchedule.h"
#include "SyntheticClips.h"

#include <gtest/gtest.h>

#include <set>

using namespace recorder_sim;

namespace {

constexpr std::int64_t second = nsPerSecond;
constexpr std::int64_t midnight = 1'768'003'200 * second; // 2026-01-10 UTC

constexpr std::int64_t at(int hour, int minute, double seconds = 0)
{
    return midnight + (hour * 3600 + minute * 60) * second + static_cast<std::int64_t>(seconds * 1000) * 1'000'000;
}

struct Sent
{
    int track;
    std::int64_t utcNs;
    bool key;
    int width;
};

std::vector<Sent> sentOf(const ReplaySchedule& schedule)
{
    std::vector<Sent> out;
    for (const ReplayRun& run : schedule) {
        for (std::int64_t position = run.firstPosition; position < run.endPosition; ++position) {
            const MediaItem& item = run.loop->itemAt(position);
            if (run.isSent(position))
                out.push_back(
                    {item.track, run.utcNs(position), item.track == videoTrack && item.key, run.loop->video().width});
        }
    }
    return out;
}

class ReplayScheduleTest : public testing::Test
{
protected:
    ChannelFootage footage{syntheticLoop(1), syntheticLoop(2),
                           RecordingCalendar(QDate(2026, 1, 10), 2, QTimeZone::utc(), 1), QTimeZone::utc()};

    ReplayRange range(std::int64_t begin, std::int64_t end) const
    {
        ReplayRange out;
        out.beginNs = begin;
        out.endNs = end;
        return out;
    }
};

} // namespace

TEST_F(ReplayScheduleTest, givesEachFrameOfTheRangeOnceFromTheKeyFrameOn)
{
    const struct
    {
        std::int64_t begin;
        std::int64_t end;
        std::int64_t firstKey;
    } rows[] = {
        {at(8, 0), at(8, 1), at(8, 0)},
        {at(8, 0, 1.999), at(8, 0, 2.001), at(8, 0)},
        {at(8, 0, 14.5), at(8, 0, 17.3), at(8, 0, 14)},
        {at(8, 0, 0.04), at(8, 0, 0.08), at(8, 0)},
    };
    for (const auto& row : rows) {
        std::set<std::int64_t> shown;
        const std::vector<Sent> sent = sentOf(footage.schedule(range(row.begin, row.end)));
        ASSERT_FALSE(sent.empty());
        EXPECT_TRUE(sent.front().key);
        EXPECT_EQ(sent.front().utcNs, row.firstKey);
        for (const Sent& item : sent) {
            if (item.track == videoTrack)
                EXPECT_TRUE(shown.insert(item.utcNs).second) << "a frame comes once";
            else
                EXPECT_TRUE(item.utcNs >= row.firstKey && item.utcNs < row.end) << "audio inside the range";
        }
        for (std::int64_t t = row.firstKey; t < row.end; t += 40'000'000)
            EXPECT_EQ(shown.erase(t), 1u) << "a frame is missing";
        EXPECT_LE(shown.size(), 1u) << "beyond the end only what the last frames are made from";
    }
}

TEST_F(ReplayScheduleTest, framesDependOnTheTimeAlone)
{
    const auto unitAt = [&](std::int64_t begin, std::int64_t utcNs) {
        for (const ReplayRun& run : footage.schedule(range(begin, utcNs + second))) {
            for (std::int64_t position = run.firstPosition; position < run.endPosition; ++position) {
                if (run.loop->itemAt(position).track == videoTrack && run.utcNs(position) == utcNs)
                    return run.loop->itemAt(position).unit;
            }
        }
        return ~0u;
    };
    const std::int64_t time = at(8, 10, 3.4);
    EXPECT_EQ(unitAt(at(8, 0), time), unitAt(at(8, 10), time));
    EXPECT_EQ(unitAt(at(4, 0), time), unitAt(at(8, 10, 2.5), time)) << "begun in the gap before the segment";
}

TEST_F(ReplayScheduleTest, flagsGapsAndEnds)
{
    const ReplaySchedule schedule = footage.schedule(range(at(8, 29), at(8, 31)));
    ASSERT_EQ(schedule.size(), 2u);
    EXPECT_TRUE(schedule[0].endsAtGap);
    EXPECT_FALSE(schedule[0].followsGap);
    EXPECT_TRUE(schedule[1].followsGap);
    EXPECT_FALSE(schedule[1].endsAtGap);
    EXPECT_EQ(schedule[1].utcNs(schedule[1].firstPosition), at(8, 30, 20)) << "a segment begins with a key frame";
    for (const ReplayRun& run : schedule) {
        for (const std::int64_t last : run.lastPosition)
            EXPECT_TRUE(last >= run.firstPosition && last < run.endPosition && run.isSent(last));
    }
    EXPECT_TRUE(footage.schedule(range(at(8, 30), at(8, 30, 20))).empty()) << "wholly in the gap";
    EXPECT_TRUE(footage.schedule(range(at(72, 0), at(73, 0))).empty()) << "after all footage";
    EXPECT_EQ(footage.schedule(range(at(0, 0), ReplayRange::open)).size(), footage.calendar.segments().size());
}

TEST_F(ReplayScheduleTest, faultsBendTheRange)
{
    ReplayRange bent = range(at(8, 1, 1), at(8, 2));
    bent.earlierGops = 3;
    bent.endsEarlierNs = 10 * second;
    std::vector<Sent> sent = sentOf(footage.schedule(bent));
    EXPECT_EQ(sent.front().utcNs, at(8, 0, 54));
    EXPECT_EQ(sent.back().utcNs / second, at(8, 1, 49) / second);

    bent = range(at(8, 30, 21), at(8, 31));
    bent.earlierGops = 100;
    EXPECT_EQ(sentOf(footage.schedule(bent)).front().utcNs, at(8, 30, 20)) << "never beyond the segment's begin";

    const struct
    {
        const char* what;
        DayMoment moment;
    } rows[] = {
        {"so long after the begin", {false, 31}},
        {"at a time of the day", {true, 8 * 3600 + 90}},
    };
    const std::int64_t changeNs = at(8, 1, 30);
    for (const auto& row : rows) {
        bent = range(at(8, 1), at(8, 2));
        bent.change = row.moment;
        std::int64_t lastOld = 0;
        std::int64_t firstNew = 0;
        for (const Sent& item : sentOf(footage.schedule(bent))) {
            if (item.track != videoTrack)
                continue;
            if (item.width == 1) {
                EXPECT_EQ(firstNew, 0) << row.what << ": back to the old parameter sets";
                lastOld = std::max(lastOld, item.utcNs);
            } else if (firstNew == 0) {
                EXPECT_TRUE(item.key) << row.what;
                firstNew = item.utcNs;
            }
        }
        EXPECT_EQ(firstNew, changeNs) << row.what;
        EXPECT_EQ(firstNew - lastOld, 40'000'000) << row.what << ": no frame is lost by the change";
    }

    bent = range(at(8, 1), at(8, 2));
    bent.gap = DayMoment{true, 8 * 3600 + 70};
    const ReplaySchedule broken = footage.schedule(bent);
    ASSERT_EQ(broken.size(), 2u);
    EXPECT_EQ(broken[0].endNs, at(8, 1, 10));
    EXPECT_TRUE(broken[0].endsAtGap);
    EXPECT_TRUE(broken[1].followsGap);
    EXPECT_EQ(broken[1].utcNs(broken[1].firstPosition), at(8, 1, 20));
    const ReplaySchedule unbroken = footage.schedule(range(at(8, 1, 20), at(8, 2)));
    EXPECT_EQ(broken[1].firstPosition, unbroken[0].firstPosition)
        << "behind the gap the footage is as it would be without";
}
