#include "ReplayTimeline.h"
#include "RtpBuilder.h"

#include <gtest/gtest.h>

#include <cstdlib>

using namespace vms_sdk::rtsp;

namespace {

constexpr std::int64_t baseNs = 1'700'000'000'000'000'000;
constexpr std::int64_t minuteNs = 60'000'000'000;

RtpPacket packet(std::uint32_t timestamp, std::int64_t ntpNs = 0)
{
    RtpPacket packet;
    packet.timestamp = timestamp;
    packet.replay.present = ntpNs != 0;
    packet.replay.ntpTime = ntpNs != 0 ? rtptest::ntpOf(ntpNs) : 0;
    return packet;
}

/// Where recorders put the replay extension.
enum class Extension { FirstOfStream, FirstOfUnit, EveryPacket };

} // namespace

TEST(ReplayTimeline, spacesFramesExactlyWhereverTheExtensionStands)
{
    for (const Extension extension : {Extension::FirstOfStream, Extension::FirstOfUnit, Extension::EveryPacket}) {
        ReplayTimeline timeline(90'000);
        // Recorders round their NTP time to milliseconds; spacing must not show it. RTP time wraps on the way.
        for (std::int64_t i = 0; i < 5'000; ++i) {
            const std::int64_t trueNs = baseNs + i * 100'100'100 / 3;
            const std::int64_t roundedNs = trueNs / 1'000'000 * 1'000'000;
            const auto timestamp = static_cast<std::uint32_t>(0xFFFFF000 + i * 3'003);
            const bool first = extension == Extension::FirstOfStream ? i == 0 : true;
            const std::int64_t timeNs = timeline.packetTime(packet(timestamp, first ? roundedNs : 0), 0);
            const bool second = extension == Extension::EveryPacket;
            ASSERT_EQ(timeline.packetTime(packet(timestamp, second ? roundedNs : 0), 0), timeNs);
            ASSERT_EQ(timeNs, baseNs + i * 3'003 * 1'000'000'000 / 90'000) << i;
        }
    }
}

TEST(ReplayTimeline, staysNearTheRecordersClockWhenRtpTimeDrifts)
{
    ReplayTimeline timeline(90'000);
    for (std::int64_t i = 0; i < 200'000; ++i) {
        // 200 ppm fast: 1.6 s over this span.
        const std::int64_t trueNs = baseNs + i * 40'000'000 + i * 8'000;
        const std::int64_t timeNs = timeline.packetTime(packet(static_cast<std::uint32_t>(i * 3'600), trueNs), 0);
        ASSERT_LE(std::llabs(timeNs - trueNs), 20'000'000) << i;
    }
}

TEST(ReplayTimeline, followsTheRecorderAcrossGapsAndClockSteps)
{
    ReplayTimeline timeline(90'000);
    EXPECT_EQ(timeline.packetTime(packet(0, baseNs), 0), baseNs);
    EXPECT_EQ(timeline.packetTime(packet(3'600, baseNs + 10 * minuteNs), 0), baseNs + 10 * minuteNs);
    EXPECT_EQ(timeline.packetTime(packet(7'200), 0), baseNs + 10 * minuteNs + 40'000'000);
    EXPECT_EQ(timeline.packetTime(packet(10'800, baseNs + minuteNs), 0), baseNs + minuteNs);
}

TEST(ReplayTimeline, fallsBackInOrder)
{
    const std::int64_t believable = minuteNs;
    {
        SCOPED_TRACE("a report before the first packet");
        ReplayTimeline timeline(90'000);
        timeline.setRangeBegin(baseNs, believable);
        timeline.senderReport(rtptest::ntpOf(baseNs + 1'000'000'000), 90'000);
        EXPECT_EQ(timeline.packetTime(packet(3'600), 0), baseNs + 40'000'000);
    }
    {
        SCOPED_TRACE("a report on the server's wall clock");
        ReplayTimeline timeline(90'000);
        timeline.setRangeBegin(baseNs, believable);
        timeline.senderReport(rtptest::ntpOf(baseNs + 90 * minuteNs), 90'000);
        EXPECT_EQ(timeline.packetTime(packet(3'600), 0), baseNs);
        timeline.senderReport(rtptest::ntpOf(baseNs + 90 * minuteNs), 90'000);
        timeline.senderReport(rtptest::ntpOf(baseNs + 91 * minuteNs), 90'000 * 61);
        EXPECT_EQ(timeline.packetTime(packet(7'200), 0), baseNs + 40'000'000);
    }
    {
        SCOPED_TRACE("a wall clock near the recording's, while a minute comes in a second");
        ReplayTimeline timeline(90'000);
        timeline.setRangeBegin(baseNs, believable);
        timeline.packetTime(packet(0), 0);
        for (int second = 0; second < 8; ++second)
            timeline.senderReport(rtptest::ntpOf(baseNs + second * 1'000'000'000LL),
                                  static_cast<std::uint32_t>(second) * 60 * 90'000);
        EXPECT_EQ(timeline.packetTime(packet(8 * 60 * 90'000), 0), baseNs + 8 * minuteNs);
    }
    {
        SCOPED_TRACE("RTP-Info");
        ReplayTimeline timeline(90'000);
        timeline.setRangeBegin(baseNs, believable);
        timeline.setRtpInfo(9'000);
        EXPECT_EQ(timeline.packetTime(packet(9'000 + 3'600), 0), baseNs + 40'000'000);
    }
    {
        SCOPED_TRACE("the other track");
        ReplayTimeline timeline(8'000);
        timeline.setRangeBegin(baseNs, believable);
        EXPECT_EQ(timeline.packetTime(packet(160), baseNs - 5'000'000), baseNs - 5'000'000);
    }
    {
        SCOPED_TRACE("a report corrects a guess, an extension corrects all");
        ReplayTimeline timeline(90'000);
        timeline.setRangeBegin(baseNs, believable);
        EXPECT_EQ(timeline.packetTime(packet(0), 0), baseNs);
        timeline.senderReport(rtptest::ntpOf(baseNs - 500'000'000), 0);
        EXPECT_EQ(timeline.packetTime(packet(3'600), 0), baseNs - 460'000'000);
        EXPECT_EQ(timeline.packetTime(packet(7'200, baseNs + 7'000'000), 0), baseNs + 7'000'000);
        timeline.senderReport(rtptest::ntpOf(baseNs - 500'000'000), 7'200);
        EXPECT_EQ(timeline.packetTime(packet(7'200), 0), baseNs + 7'000'000);
    }
}

TEST(ReplayTimeline, goesOnAfterAPause)
{
    ReplayTimeline timeline(90'000);
    timeline.setRangeBegin(baseNs, minuteNs);
    timeline.packetTime(packet(0), 0);
    timeline.setRangeBegin(baseNs + 1'000'000'000, minuteNs);
    timeline.setRtpInfo(90'000);
    EXPECT_EQ(timeline.packetTime(packet(90'000), 0), baseNs + 1'000'000'000);
    timeline.setRangeBegin(baseNs + 5'000'000'000, minuteNs);
    timeline.setRtpInfo(77);
    EXPECT_EQ(timeline.packetTime(packet(77), 0), baseNs + 5'000'000'000);
}

TEST(ReplayTimeline, takesOverTheClockOfALiveDeviceWithoutATurnBack)
{
    const struct
    {
        const char* what;
        std::int64_t correctionMs;
        std::int64_t endMs; ///< off the arrival times after a minute
    } rows[] = {
        {"the delay of the network", -300, -300},    {"a device that is ahead", 2'500, 2'500},
        {"a device that is behind", -9'000, -9'000}, {"a clock of another hour", 3'600'000, 0},
        {"no clock at all", -baseNs / 1'000'000, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        ReplayTimeline timeline(90'000);
        timeline.setLive();
        timeline.setRangeBegin(baseNs, 24 * 60 * minuteNs);
        std::int64_t last = timeline.packetTime(packet(0), baseNs);
        EXPECT_EQ(last, baseNs);
        for (std::uint32_t i = 1; i <= 25 * 60; ++i) {
            const std::int64_t arrivalNs = baseNs + i * 40'000'000LL;
            if (i % 50 == 25)
                timeline.senderReport(rtptest::ntpOf(arrivalNs + row.correctionMs * 1'000'000), i * 3'600);
            const std::int64_t timeNs = timeline.packetTime(packet(i * 3'600), arrivalNs);
            ASSERT_GE(timeNs - last, 29'000'000) << i;
            ASSERT_LE(timeNs - last, 51'000'000) << i;
            last = timeNs;
        }
        EXPECT_LE(std::llabs(last - baseNs - minuteNs - row.endMs * 1'000'000), 16'000'000);
    }
}

TEST(ReplayTimeline, survivesHostileTimes)
{
    ReplayTimeline timeline(1'000);
    timeline.setRangeBegin(baseNs, minuteNs);
    std::uint32_t timestamp = 0;
    for (int i = 0; i < 300'000; ++i) {
        timestamp += 0x7FFFFFFF;
        timeline.senderReport(std::uint64_t{timestamp} << 32, timestamp);
        timeline.packetTime(packet(timestamp, i % 3 == 0 ? static_cast<std::int64_t>(timestamp) * 1'000'000'000 : 0),
                            0);
    }
}
