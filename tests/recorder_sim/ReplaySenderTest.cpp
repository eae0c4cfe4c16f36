#include "rtsp/ReplaySender.h"
#include "media/ReplaySchedule.h"
#include "SyntheticClips.h"

#include <gtest/gtest.h>

#include <map>

using namespace recorder_sim;

namespace {

constexpr std::int64_t midnight = 1'768'003'200 * nsPerSecond; // 2026-01-10 UTC

std::array<SenderTrack, trackCount> tracks()
{
    std::array<SenderTrack, trackCount> out;
    out[0] = {true, 4, 5, 0x01020304, 0xfffe, 0xffffff00};
    out[1] = {true, 6, 7, 0x05060708, 10, 20};
    return out;
}

std::uint32_t read32(std::string_view bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

struct Counted
{
    int rtp = 0;
    int extensions = 0;
    int reports = 0;
    int byes = 0;
    std::uint16_t lastSequence = 0;
    std::uint32_t lastTime = 0;
    std::uint8_t allFlags = 0;
    std::uint32_t lastNtpSeconds = 0;
};

class ReplaySenderTest : public testing::Test
{
protected:
    ChannelFootage footage{syntheticLoop(1), syntheticLoop(2),
                           RecordingCalendar(QDate(2026, 1, 10), 1, QTimeZone::utc(), 1), QTimeZone::utc()};
    PacketPlanCache plans;

    /// Plays seconds of the day as fast as it goes; what came by interleaved channel.
    std::map<int, Counted> play(ReplaySender& sender, int beginSecond, int endSecond)
    {
        ReplayRange range;
        range.beginNs = midnight + beginSecond * nsPerSecond;
        range.endNs = midnight + endSecond * nsPerSecond;
        sender.play(footage.schedule(range), 0, 77);
        std::map<int, Counted> counted;
        std::string_view data;
        int waitMs = 0;
        while (sender.next(data, waitMs) == ReplaySender::Step::Data) {
            while (!data.empty()) {
                const std::size_t length = 4 + (read32(data, 0) & 0xffff);
                EXPECT_EQ(data[0], '$');
                count(counted[static_cast<unsigned char>(data[1])], data.substr(4, length - 4));
                data.remove_prefix(length);
            }
        }
        EXPECT_FALSE(sender.isPlaying());
        return counted;
    }

private:
    static void count(Counted& c, std::string_view packet)
    {
        const int type = static_cast<unsigned char>(packet[1]);
        if (type == 200) {
            ++c.reports;
            return;
        }
        if (type == 201) {
            ++c.byes;
            return;
        }
        const auto sequence = static_cast<std::uint16_t>(read32(packet, 0));
        if (c.rtp > 0) {
            EXPECT_EQ(sequence, static_cast<std::uint16_t>(c.lastSequence + 1))
                << "sequence numbers go up by one, over the wrap as well";
        }
        ++c.rtp;
        c.lastSequence = sequence;
        c.lastTime = read32(packet, 4);
        if (packet[0] & 0x10) {
            ++c.extensions;
            EXPECT_EQ(read32(packet, 12), 0xabac0003u);
            c.lastNtpSeconds = read32(packet, 16);
            c.allFlags |= static_cast<std::uint8_t>(packet[24]);
            EXPECT_EQ(packet[25], 77) << "the low byte of CSeq";
        }
    }
};

} // namespace

TEST_F(ReplaySenderTest, marksAccessUnitsByTheExtension)
{
    const struct
    {
        ExtensionMode mode;
        bool once;
        int videoExtensions;
        int audioExtensions;
    } rows[] = {
        // Two seconds: 50 pictures, the key frame in three packets; 100 audio packets.
        {ExtensionMode::None, false, 0, 0},
        {ExtensionMode::None, true, 1, 1},
        {ExtensionMode::AccessUnit, false, 50, 100},
        {ExtensionMode::EveryPacket, false, 52, 100},
    };
    for (const auto& row : rows) {
        ReplaySender::Options options;
        options.plan.extension = row.mode;
        options.extensionOnce = row.once;
        ReplaySender sender(plans, options, tracks());
        std::map<int, Counted> counted = play(sender, 8 * 3600, 8 * 3600 + 2);
        EXPECT_EQ(counted[4].rtp, 52);
        EXPECT_EQ(counted[6].rtp, 100);
        EXPECT_EQ(counted[4].extensions, row.videoExtensions);
        EXPECT_EQ(counted[6].extensions, row.audioExtensions);
        EXPECT_EQ(counted[5].reports, 1);
        EXPECT_EQ(counted[5].byes, 1);
        EXPECT_EQ(counted[7].byes, 1);
    }
}

TEST_F(ReplaySenderTest, keepsTimeOverLoopsAndGaps)
{
    ReplaySender sender(plans, {}, tracks());
    // From the end of one segment over the gap of 20 s, into the second loop of the next.
    const std::map<int, Counted> counted = play(sender, 8 * 3600 + 1790, 8 * 3600 + 1840);
    const Counted& video = counted.at(4);
    EXPECT_EQ(video.rtp, 30 * 25 + 15 * 2) << "30 s of pictures, two packets more for each key frame";
    // The last picture in decoding order is the last but one in presentation: 49.96 s behind the begin.
    EXPECT_EQ(video.lastTime, static_cast<std::uint32_t>(0xffffff00u + 4996 * 900u))
        << "RTP time follows the footage's time";
    EXPECT_EQ(counted.at(6).lastTime, 20u + (50 * 8000u - 160));
    EXPECT_EQ(video.allFlags & 0x70, 0x70) << "E before the gap, D behind it, T at the end";
}

TEST_F(ReplaySenderTest, stepsTheClockOfTheFootage)
{
    const auto lastOf = [&](std::int64_t stepSeconds, int endSecond) {
        ReplaySender::Options options;
        options.clockStepNs = stepSeconds * nsPerSecond;
        ReplaySender sender(plans, options, tracks());
        return play(sender, 8 * 3600, 8 * 3600 + endSecond).at(6);
    };
    const Counted plain = lastOf(0, 12);
    EXPECT_EQ(lastOf(-100, 12).lastNtpSeconds, plain.lastNtpSeconds - 100);
    EXPECT_EQ(lastOf(-100, 12).lastTime, plain.lastTime) << "RTP time goes on";
    EXPECT_EQ(lastOf(-100, 8).lastNtpSeconds, lastOf(0, 8).lastNtpSeconds) << "not yet";
}

TEST_F(ReplaySenderTest, leavesOutTracksThatWereNotSetUp)
{
    std::array<SenderTrack, trackCount> only = tracks();
    only[0].on = false;
    ReplaySender sender(plans, {}, only);
    const std::map<int, Counted> counted = play(sender, 8 * 3600, 8 * 3600 + 20);
    EXPECT_EQ(counted.count(4), 0u);
    EXPECT_EQ(counted.at(6).rtp, 1000);
}

TEST_F(ReplaySenderTest, sendsInTheAskedMultipleOfRealTime)
{
    for (const int speed : {1, 4}) {
        std::int64_t nowNs = 1;
        ReplaySender::Options options;
        options.clockNs = [&] { return nowNs; };
        ReplaySender sender(plans, options, tracks());
        ReplayRange range;
        range.beginNs = midnight + 8 * 3600 * nsPerSecond;
        sender.play(footage.schedule(range), speed, 1);
        std::string_view data;
        int waitMs = 0;
        // Ten seconds pass, as the sender asks for; it gives what is due and no more.
        while (nowNs < 10 * nsPerSecond) {
            if (sender.next(data, waitMs) == ReplaySender::Step::Wait) {
                ASSERT_TRUE(waitMs >= 1 && waitMs <= 41) << waitMs;
                nowNs += waitMs * 1'000'000;
            }
        }
        const std::int64_t sentUntil = sender.nextUtcNs() - range.beginNs;
        EXPECT_NEAR(static_cast<double>(sentUntil) / 1e9, 10.0 * speed, 0.2) << "at speed " << speed;
    }
}
