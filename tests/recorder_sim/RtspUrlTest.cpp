#include "rtsp/RtspUrl.h"

#include <gtest/gtest.h>

using namespace recorder_sim;

TEST(RtspUrl, readsTheAddressesThatPlayersMake)
{
    using Kind = RtspUrl::Kind;
    const struct
    {
        const char* target;
        Kind kind;
        int channel;
        int track;
        const char* clock;
    } rows[] = {
        {"rtsp://h:1/replay/3", Kind::Replay, 3, -1, ""},
        {"rtsp://h:1/replay/3/", Kind::Replay, 3, -1, ""},
        {"rtsp://h:1/live/12/trackID=1", Kind::Live, 12, 1, ""},
        {"rtsp://h/replay/1/trackID=0?clock=a-b", Kind::Replay, 1, 0, "a-b"},
        {"rtsp://h/replay/1?clock=a-b&rate-control=yes", Kind::Replay, 1, -1, "a-b"},
        {"rtsp://h/replay/1?clock=a-b/trackID=1", Kind::Replay, 1, 1, "a-b"},
        {"rtsp://h", Kind::Server, 0, -1, ""},
        {"*", Kind::Server, 0, -1, ""},
        {"rtsp://h/other/1", Kind::Unknown, 0, -1, ""},
        {"rtsp://h/replay/1x", Kind::Unknown, 1, -1, ""},
    };
    for (const auto& row : rows) {
        const RtspUrl url = RtspUrl::parse(row.target);
        EXPECT_EQ(url.kind, row.kind) << row.target;
        EXPECT_EQ(url.channel, row.channel) << row.target;
        EXPECT_EQ(url.track, row.track) << row.target;
        EXPECT_EQ(url.queryValue("clock"), row.clock) << row.target;
    }
}

TEST(RtspRange, readsClockAndNpt)
{
    constexpr std::int64_t eight = 1'768'032'000'000'000'000; // 2026-01-10 08:00 UTC
    const struct
    {
        const char* text;
        bool good;
        bool isClock;
        std::int64_t begin; ///< -1: none
        std::int64_t end;
    } rows[] = {
        {"clock=20260110T080000Z-20260110T080001.5Z", true, true, eight, eight + 1'500'000'000},
        {"clock=20260110T080000.040Z-", true, true, eight + 40'000'000, -1},
        {" clock=20260110T080000Z-;time=x", true, true, eight, -1},
        {"npt=0.000-", true, false, 0, -1},
        {"npt=now-", true, false, -1, -1},
        {"npt=3977020800-3977020810", true, true, eight, eight + 10'000'000'000},
        {"clock=20260110T080000-", false, true, -1, -1},
        {"clock=20261310T080000Z-", false, true, -1, -1},
        {"clock=20260110T080000Z-never", false, true, -1, -1},
        {"smpte=0:00:00-", false, false, -1, -1},
    };
    for (const auto& row : rows) {
        const auto range = RtspRange::parse(row.text);
        ASSERT_EQ(range.has_value(), row.good) << row.text;
        if (!range)
            continue;
        EXPECT_EQ(range->isClock, row.isClock) << row.text;
        EXPECT_EQ(range->beginNs.value_or(-1), row.begin) << row.text;
        EXPECT_EQ(range->endNs.value_or(-1), row.end) << row.text;
    }
    EXPECT_EQ(clockText(eight + 40'000'000), "20260110T080000.04Z");
    EXPECT_EQ(parseClock(clockText(eight + 1)), eight + 1);
}
