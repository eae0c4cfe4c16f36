#include "ClockText.h"
#include "DecodeTimes.h"
#include "GapTimeline.h"
#include "ParameterSets.h"
#include "SampleEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace {

using namespace vaws;
using testing::ElementsAre;

struct ReorderCase
{
    const char* name;
    std::size_t told;                        ///< depth that the parameter sets say
    std::vector<std::int64_t> presentations; ///< in decode order
    std::vector<std::int64_t> decode;
};

class DecodeOrder : public testing::TestWithParam<ReorderCase>
{};

TEST_P(DecodeOrder, isThePresentationOrderLessTheReorderDepth)
{
    DecodeTimes times(GetParam().told);
    for (const std::int64_t presentation : GetParam().presentations)
        times.observe(presentation);
    std::vector<std::int64_t> decode;
    for (const std::int64_t presentation : GetParam().presentations)
        decode.push_back(times.assign(presentation, 10));
    EXPECT_EQ(decode, GetParam().decode);
}

INSTANTIATE_TEST_SUITE_P(
    Streams, DecodeOrder,
    testing::Values(
        ReorderCase{"Plain", 0, {100, 110, 120, 130}, {100, 110, 120, 130}},
        ReorderCase{"OneB", 1, {100, 120, 110, 140, 130}, {90, 100, 110, 120, 130}},
        ReorderCase{
            "Pyramid", 2, {100, 140, 120, 110, 130, 180, 160, 150, 170}, {80, 90, 100, 110, 120, 130, 140, 150, 160}},
        ReorderCase{"FoundBySight", 0, {100, 130, 110, 120, 160, 140, 150}, {90, 100, 110, 120, 130, 140, 150}},
        ReorderCase{"DeeperThanNeeded", 2, {100, 110, 120, 130}, {80, 90, 100, 110}},
        ReorderCase{"SameTimeTwice", 0, {100, 100, 110}, {100, 101, 110}},
        ReorderCase{"UnevenSteps", 1, {100, 150, 120, 230, 180}, {90, 100, 120, 150, 180}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(DecodeTimes, staysMonotonousWhenTheDepthTurnsOutGreaterLater)
{
    DecodeTimes times(0);
    std::int64_t last = -1000;
    for (const std::int64_t presentation : {100, 110, 120, 160, 130, 140, 150, 200, 170, 180, 190, 240, 210}) {
        times.observe(presentation);
        const std::int64_t decode = times.assign(presentation, 10);
        EXPECT_GT(decode, last);
        last = decode;
    }
    EXPECT_LE(last, 210) << "decode times came to lie behind presentation";
}

TEST(GapTimeline, leavesGapsOutAndFindsThemAgain)
{
    constexpr std::int64_t s = nsPerSecond;
    GapTimeline timeline(1000 * s, 0);
    timeline.addGap({1010 * s, 1030 * s, GapCause::NotRecorded, true});
    timeline.addGap({1040 * s, 1041 * s, GapCause::LostInTransfer, false});
    timeline.addGap({1050 * s, 1150 * s, GapCause::NotRecorded, true});
    const std::vector<std::pair<std::int64_t, std::int64_t>> rows = {{1000, 0},  {1009, 9},  {1030, 10}, {1039, 19},
                                                                     {1041, 21}, {1049, 29}, {1150, 30}, {1160, 40}};
    for (const auto& [utc, media] : rows) {
        EXPECT_EQ(timeline.toMediaNs(utc * s), media * s) << utc;
        if (utc != 1150 && utc != 1030) {
            EXPECT_EQ(timeline.toUtcNs(media * s), utc * s) << media;
        }
    }
    EXPECT_EQ(timeline.toMediaNs(1029 * s + s / 2), 9 * s + s / 2)
        << "sound that resumes before the picture keeps its distance to it";
    EXPECT_EQ(timeline.gapMediaNs(0), 10 * s);
    EXPECT_EQ(timeline.gapMediaNs(2), 30 * s);
}

TEST(GapTimeline, roundsTicksToTheNearestWithoutDrift)
{
    constexpr std::int64_t day = 86400 * nsPerSecond;
    EXPECT_EQ(nsToTicks(day, 90000), 86400LL * 90000);
    EXPECT_EQ(nsToTicks(day + 33'366'667, 90000), 86400LL * 90000 + 3003);
    EXPECT_EQ(nsToTicks(-40'000'000, 90000), -3600);
    EXPECT_EQ(ticksToNs(nsToTicks(day * 365, 44100), 44100), day * 365);
}

TEST(ClockText, readsLocalAndUtcTimes)
{
    setenv("TZ", "Europe/Berlin", 1);
    tzset();
    std::int64_t time = 0;
    ASSERT_TRUE(parseClockText("20260110090000", time));
    EXPECT_EQ(isoUtcText(time), "2026-01-10T08:00:00.000Z");
    EXPECT_EQ(localClockText(time), "20260110090000");
    ASSERT_TRUE(parseClockText("20260110080000250Z", time));
    EXPECT_EQ(isoUtcText(time), "2026-01-10T08:00:00.250Z");
    EXPECT_EQ(localTimeOfDay(time), "09:00:00");
    std::int64_t again = 0;
    EXPECT_TRUE(parseIsoUtcText(isoUtcText(time), again));
    EXPECT_EQ(again, time);
    ASSERT_TRUE(parseClockText("20261025023000", time)) << "the hour that comes twice has some meaning";
    for (const char* wrong :
         {"", "2026", "2026011009000", "20261310090000", "20260110090000.5", "99991231235959", "2026-01-10T08:0"})
        EXPECT_FALSE(parseClockText(wrong, time)) << wrong;
    for (const char* wrong : {"", "2026-01-10T08:00:00", "2026-01-10T99:00:00.000Z", "2026-01-10 08:00:00.000Z",
                              "xxxxxxxxxxxxxxxxxxxxxxxxZ"})
        EXPECT_FALSE(parseIsoUtcText(wrong, time)) << wrong;
    unsetenv("TZ");
    tzset();
}

TEST(ParameterSets, refusesDamagedSetsWithASentence)
{
    for (const vav::Codec codec : {vav::Codec::H264, vav::Codec::H265, vav::Codec::Aac}) {
        for (const std::vector<std::uint8_t>& sets :
             {std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{0, 0, 0, 4, 0x67, 0x64, 0, 0x28},
              std::vector<std::uint8_t>{0, 0, 0xff, 0xff, 0x67}, std::vector<std::uint8_t>(64, 0),
              std::vector<std::uint8_t>(64, 0xff)}) {
            vav::TrackInfo track;
            track.codec = codec;
            track.parameterSets = sets;
            TrackFormat format;
            std::string error;
            if (!makeTrackFormat(track, 1, format, error)) {
                EXPECT_FALSE(error.empty());
            }
        }
    }
}

} // namespace
