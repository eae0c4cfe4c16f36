#include "CreditGate.h"
#include "ReceiverFixture.h"
#include "ReplayEndJudge.h"

#include <gtest/gtest.h>

using namespace rtptest;
using namespace vms_sdk::rtsp;

namespace {

class Replay : public ReceiverFixture, public testing::Test
{
protected:
    void SetUp() override { addTrack(videoMedia("H264")); }
    const std::vector<BatchLog::Frame>& frames()
    {
        receiver.flush();
        return log.frames;
    }
};

} // namespace

TEST_F(Replay, tellsGapsFromTheFlagAndFromTheTime)
{
    picture(0, true, baseNs, Gap); // the flag on the very first frame is no gap
    for (int i = 1; i < 10; ++i)
        picture(i, false, baseNs + i * frameNs);
    picture(10, true, baseNs + 60'000'000'000, Gap);
    for (int i = 11; i < 20; ++i)
        picture(i, false, baseNs + 60'000'000'000 + (i - 10) * frameNs);
    picture(20, true, baseNs + 7'200'000'000'000);                 // no flag
    picture(21, false, baseNs + 7'200'000'000'000 + 30 * frameNs); // 1.2 s is a slow frame, no gap
    ASSERT_EQ(frames().size(), 22u);
    for (std::size_t i = 0; i < 22; ++i)
        EXPECT_EQ((frames()[i].header.flags & vav::Discontinuity) != 0, i == 10 || i == 20) << i;
    EXPECT_EQ(frames()[10].header.gapBeginNs, baseNs + 10 * frameNs);
    EXPECT_EQ(frames()[20].header.gapBeginNs, baseNs + 60'000'000'000 + 10 * frameNs);
}

TEST_F(Replay, seesNoGapsInASlowRecordingOrInPictureOrder)
{
    // One picture in five seconds.
    for (int i = 0; i < 20; ++i)
        picture(i, true, baseNs + i * 5'000'000'000LL);
    // B pictures.
    const int order[] = {0, 4, 2, 1, 3, 8, 6, 5, 7};
    for (const int i : order)
        send(h264Nal(1, 20, 1), static_cast<std::uint32_t>(100 + i) * frameTicks, true,
             baseNs + 95'000'000'000 + i * frameNs);
    for (const BatchLog::Frame& frame : frames())
        EXPECT_EQ(frame.header.flags & vav::Discontinuity, 0) << frame.header.timeNs;
    EXPECT_EQ(receiver.lastTimeNs(), baseNs + 95'000'000'000 + 8 * frameNs);
}

TEST_F(Replay, endsOnlyWhenNoEarlierPictureCanFollow)
{
    const std::int64_t endNs = baseNs + 8 * frameNs;
    for (const int i : {0, 4, 2, 1, 3, 8, 6})
        picture(i, i == 0, baseNs + i * frameNs);
    receiver.flush();
    EXPECT_FALSE(receiver.allReached(endNs)) << "pictures 5 and 7 come behind picture 8";
    for (const int i : {5, 7, 12, 10, 9, 11})
        picture(i, false, baseNs + i * frameNs);
    EXPECT_TRUE(receiver.allReached(endNs));
}

TEST_F(Replay, waitsForEveryTrackToEnd)
{
    addTrack(audioMedia("PCMU", 8'000));
    picture(0, true, baseNs);
    picture(1, false, {}, Terminal);
    EXPECT_TRUE(receiver.leadTerminal());
    EXPECT_FALSE(receiver.allTerminal());
    send(Bytes(160, 1), 0, false, baseNs, Terminal, 2);
    EXPECT_TRUE(receiver.allTerminal());
    ASSERT_EQ(frames().size(), 3u);
    EXPECT_TRUE(frames()[1].header.flags & vav::EndOfRecording);

    sendRaw(1, bye());
    EXPECT_FALSE(receiver.allBye());
    sendRaw(3, bye());
    EXPECT_TRUE(receiver.allBye());
}

TEST_F(Replay, dropsWhatComesTwiceAfterAResume)
{
    const int order[] = {0, 4, 2, 1, 3, 8, 6, 5, 7};
    const auto play = [&](std::size_t from, std::size_t to, std::int64_t shiftNs) {
        for (std::size_t i = from; i < to; ++i)
            send(h264Nal(order[i] == 0 ? 5 : 1, 20, static_cast<std::uint8_t>(order[i])),
                 static_cast<std::uint32_t>(order[i]) * frameTicks, true, baseNs + shiftNs + order[i] * frameNs,
                 i == 0 ? Gap : 0);
    };
    play(0, 7, 0);
    send(fragments(h264Nal(1, 4'000, 5), 1'000)[0], 5 * frameTicks, false, baseNs + 5 * frameNs);
    receiver.resumed(true);
    sequence() = 7;
    play(0, 9, 600'000); // from the key frame again, with times rounded otherwise
    ASSERT_EQ(frames().size(), 9u);
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(frames()[i].header.timeNs, baseNs + order[i] * frameNs + (i < 7 ? 0 : 600'000)) << i;
        EXPECT_EQ(frames()[i].header.flags, i == 0 ? vav::KeyFrame : 0) << i;
    }
}

TEST_F(Replay, putsMixedUpPacketsInOrderAndWaitsForLostOnesInBounds)
{
    const auto at = [this](int number) { sequence() = static_cast<std::uint16_t>(65'530 + number); };
    for (const int number : {0, 2, 1, 3, 7, 6, 5, 4, 4, 8}) {
        at(number);
        picture(number, number == 0, baseNs + number * frameNs);
    }
    ASSERT_EQ(frames().size(), 9u);
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(frames()[i].header.timeNs, baseNs + static_cast<std::int64_t>(i) * frameNs);
        EXPECT_EQ(frames()[i].header.flags & vav::LossBefore, 0) << i;
    }
    for (int number = 10; number < 60; ++number) {
        at(number);
        picture(number, false, baseNs + number * frameNs);
    }
    ASSERT_EQ(frames().size(), 59u);
    EXPECT_EQ(frames()[9].header.lostBefore, 1u);
    EXPECT_EQ(receiver.lostPackets(), 1u);
}

TEST_F(Replay, keepsWaitingWhenEarlyPacketsComeTwice)
{
    picture(0, true, baseNs);
    const std::uint16_t first = sequence();
    // More pairs than the queue has places, each turned round and the early packet doubled.
    constexpr int pairs = 40;
    for (int pair = 0; pair < pairs; ++pair) {
        const int number = 1 + 2 * pair;
        for (const int offset : {1, 1, 0}) {
            sequence() = static_cast<std::uint16_t>(first + number - 1 + offset);
            picture(number + offset, false, baseNs + (number + offset) * frameNs);
        }
    }
    receiver.finish();
    EXPECT_EQ(frames().size(), std::size_t(1 + 2 * pairs));
    EXPECT_EQ(receiver.lostPackets(), 0u);
}

TEST_F(Replay, keepsSoundInStepWithoutTimesOfItsOwn)
{
    addTrack(audioMedia("PCMA", 8'000));
    receiver.setRangeBegin(baseNs + 3'000'000'000, 60'000'000'000);
    picture(0, true, baseNs);
    send(Bytes(160, 1), 777'000, false, {}, 0, 2);
    EXPECT_EQ(frames().back().header.timeNs, baseNs) << "the picture began at the key frame before the asked time";
}

TEST_F(Replay, makesBatchesThatEndAtAccessUnits)
{
    addTrack(audioMedia("PCMA", 8'000));
    for (int i = 0; i < 100; ++i) {
        const std::vector<Bytes> parts = fragments(h264Nal(i == 0 ? 5 : 1, 9'000, static_cast<std::uint8_t>(i)), 1'400);
        for (std::size_t part = 0; part < parts.size(); ++part) {
            send(parts[part], static_cast<std::uint32_t>(i) * frameTicks, part + 1 == parts.size(),
                 baseNs + i * frameNs);
            if (part == 3)
                send(Bytes(320, static_cast<std::uint8_t>(i)), static_cast<std::uint32_t>(i) * 320, false,
                     baseNs + i * frameNs, 0, 2);
            if (i == 50 && part == 3)
                receiver.flush(); // in the middle of an access unit
        }
    }
    receiver.finish();
    EXPECT_TRUE(log.readable);
    EXPECT_EQ(log.ofTrack(0).size(), 100u);
    EXPECT_EQ(log.ofTrack(1).size(), 100u);
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_EQ(log.ofTrack(0)[i].payload,
                  lengthPrefixed({h264Nal(i == 0 ? 5 : 1, 9'000, static_cast<std::uint8_t>(i))}));
        EXPECT_EQ(log.ofTrack(1)[i].payload, Bytes(320, static_cast<std::uint8_t>(i)));
    }
    EXPECT_LE(log.batchBytes.size(), 20u) << "about 64 KiB a batch";
}

TEST_F(Replay, beginsWithTheDescriptionWhenTheFirstPictureIsBroken)
{
    addTrack(audioMedia("PCMU", 8000));
    const std::vector<Bytes> parts = fragments(h264Nal(5, 3'000, 1), 1'000);
    send(parts[0], 0, false, baseNs);
    send(Bytes(160, 7), 0, true, baseNs, 0, 2);
    lose(1);
    send(parts[2], 0, true, baseNs);
    picture(1, false, baseNs + frameNs);
    receiver.finish();
    ASSERT_FALSE(frames().empty());
    EXPECT_EQ(frames().front().header.track, 1);
    EXPECT_EQ(frames().front().infosBefore, 1u) << "sound came before anybody knew of what kind";
}

TEST_F(Replay, boundsWhatWaitsForAPictureThatNeverComes)
{
    addTrack(audioMedia("PCMA", 8'000));
    picture(0, true, baseNs);
    send(fragments(h264Nal(1, 4'000, 5), 1'000)[0], frameTicks, false);
    for (int i = 0; i < 1'000; ++i)
        send(Bytes(1'000, 1), static_cast<std::uint32_t>(i) * 1'000, false, {}, 0, 2);
    EXPECT_GE(log.ofTrack(1).size(), 900u);
}

TEST(ReplayEndJudge, tellsHowAStreamEnded)
{
    const qint64 second = 1'000'000'000;
    const struct
    {
        const char* name;
        EndCause cause;
        EndPosition position;
        StreamOutcome end;
    } rows[] = {
        {"frames past the end", EndCause::ReachedEnd, {baseNs, frameNs, baseNs, 0}, StreamOutcome::EndOfRecording},
        {"last frame marked, end open", EndCause::Terminal, {baseNs, frameNs, 0, 0}, StreamOutcome::EndOfRecording},
        {"last frame marked at the end",
         EndCause::Terminal,
         {baseNs - frameNs, frameNs, baseNs, 0},
         StreamOutcome::EndOfRecording},
        {"last frame marked early",
         EndCause::Terminal,
         {baseNs - 5 * second, frameNs, baseNs, 0},
         StreamOutcome::EndByDevice},
        {"torn down early", EndCause::TornDown, {baseNs - 5 * second, frameNs, baseNs, 0}, StreamOutcome::EndByDevice},
        {"torn down at the recording's end",
         EndCause::TornDown,
         {baseNs, frameNs, baseNs + 9 * second, baseNs},
         StreamOutcome::EndOfRecording},
        {"closed at the end", EndCause::Closed, {baseNs - frameNs, frameNs, baseNs, 0}, StreamOutcome::EndOfRecording},
        {"closed while pictures before the newest were missing",
         EndCause::Closed,
         {baseNs - frameNs, frameNs, baseNs, 0, 3 * frameNs},
         StreamOutcome::Broken},
        {"closed behind a coder's usual frames",
         EndCause::Closed,
         {baseNs - frameNs, frameNs, baseNs, 0, frameNs},
         StreamOutcome::EndOfRecording},
        {"closed half a second early",
         EndCause::Closed,
         {baseNs - second / 2, frameNs, baseNs, 0},
         StreamOutcome::Broken},
        {"closed, end open", EndCause::Closed, {baseNs, frameNs, 0, 0}, StreamOutcome::Broken},
        {"silence at the end", EndCause::Silence, {baseNs, frameNs, baseNs, 0}, StreamOutcome::EndOfRecording},
        {"silence early", EndCause::Silence, {baseNs - second, frameNs, baseNs, 0}, StreamOutcome::Broken},
        {"nonsense at the end", EndCause::Fault, {baseNs, frameNs, baseNs, 0}, StreamOutcome::Broken},
    };
    for (const auto& row : rows)
        EXPECT_EQ(judgeEnd(row.cause, row.position), row.end) << row.name;
}

TEST(CreditGate, closesAtItsLimitAndSavesNothingUp)
{
    CreditGate gate(100);
    gate.spend(99);
    EXPECT_FALSE(gate.isClosed());
    gate.spend(1);
    EXPECT_TRUE(gate.isClosed());
    gate.giveBack(500);
    gate.spend(100);
    EXPECT_TRUE(gate.isClosed());
    gate.giveBack(-5);
    EXPECT_TRUE(gate.isClosed());
}
