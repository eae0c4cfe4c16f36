#include "RtcpParser.h"
#include "RtpBuilder.h"
#include "RtpClock.h"
#include "RtpPacket.h"
#include "SequenceTracker.h"

#include <gtest/gtest.h>

#include <memory>

using namespace vms_sdk::rtsp;
using rtptest::Bytes;

namespace {

/// In memory of exactly its own size.
bool parse(const Bytes& bytes, RtpPacket& packet, std::unique_ptr<std::uint8_t[]>& keep)
{
    keep.reset(new std::uint8_t[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), keep.get());
    return parseRtpPacket(keep.get(), bytes.size(), packet);
}

} // namespace

TEST(RtpPacket, takesOffSourcesExtensionAndPadding)
{
    rtptest::Rtp header;
    header.csrcCount = 15;
    header.padding = 7;
    header.withReplay = true;
    header.ntpTime = 0x0123456789ABCDEF;
    header.replayFlags = rtptest::Gap | rtptest::Terminal;
    header.marker = true;
    header.sequence = 0xFEDC;
    RtpPacket packet;
    std::unique_ptr<std::uint8_t[]> keep;
    ASSERT_TRUE(parse(rtptest::rtp(header, {1, 2, 3}), packet, keep));
    EXPECT_EQ(Bytes(packet.payload, packet.payload + packet.payloadBytes), (Bytes{1, 2, 3}));
    EXPECT_TRUE(packet.marker && packet.replay.present && packet.replay.discontinuity && packet.replay.terminal);
    EXPECT_FALSE(packet.replay.cleanPoint || packet.replay.endOfSection);
    EXPECT_EQ(packet.replay.ntpTime, 0x0123456789ABCDEFu);
    EXPECT_EQ(packet.sequence, 0xFEDC);
}

TEST(RtpPacket, refusesEveryTruncationAndLyingLength)
{
    rtptest::Rtp header;
    header.csrcCount = 2;
    header.withReplay = true;
    const Bytes whole = rtptest::rtp(header, {});
    RtpPacket packet;
    std::unique_ptr<std::uint8_t[]> keep;
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(parse(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)), packet, keep))
            << size;
    ASSERT_TRUE(parse(whole, packet, keep));
    EXPECT_EQ(packet.payloadBytes, 0u);

    Bytes padded = rtptest::rtp({}, {1, 2, 3, 4});
    padded[0] |= 0x20;
    for (const unsigned padding : {0u, 5u, 255u}) {
        padded.back() = static_cast<std::uint8_t>(padding);
        EXPECT_FALSE(parse(padded, packet, keep)) << padding;
    }
    Bytes otherVersion = whole;
    otherVersion[0] = 0x40;
    EXPECT_FALSE(parse(otherVersion, packet, keep));
}

TEST(RtpPacket, turnsNtpTimeIntoUnixTime)
{
    EXPECT_EQ(ntpToUnixNs(std::uint64_t{2208988800u} << 32), 0);
    EXPECT_EQ(ntpToUnixNs(rtptest::ntpOf(1'700'000'000'123'000'000)), 1'700'000'000'123'000'000);
    // The era after 7 February 2036 begins with second 0.
    EXPECT_EQ(ntpToUnixNs(std::uint64_t{1} << 32) / 1'000'000'000, 2'085'978'497);
}

TEST(RtcpParser, readsCompoundsAndStopsAtALie)
{
    Bytes compound = rtptest::senderReport(0x1122334455667788, 99);
    rtptest::append(compound, {0x81, 202, 0, 1, 0, 0, 0, 0});
    rtptest::append(compound, rtptest::bye());
    RtcpReport report;
    ASSERT_TRUE(parseRtcp(compound.data(), compound.size(), report));
    EXPECT_TRUE(report.hasSenderReport && report.bye);
    EXPECT_EQ(report.ntpTime, 0x1122334455667788u);
    EXPECT_EQ(report.rtpTime, 99u);

    for (std::size_t size = 1; size < compound.size(); ++size) {
        const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[size]);
        std::copy_n(compound.begin(), size, exact.get());
        const bool whole = size == 28 || size == 36;
        EXPECT_EQ(parseRtcp(exact.get(), size, report), whole) << size;
    }
    const Bytes shortReport = {0x80, 200, 0, 1, 0, 0, 0, 0};
    EXPECT_FALSE(parseRtcp(shortReport.data(), shortReport.size(), report));
}

TEST(SequenceTracker, judgesLossWrapDuplicatesAndRestarts)
{
    using V = SequenceTracker::Verdict;
    SequenceTracker tracker;
    const struct
    {
        std::uint16_t sequence;
        std::uint32_t ssrc;
        V verdict;
    } rows[] = {
        {65'534, 1, V::InOrder}, {65'535, 1, V::InOrder}, {0, 1, V::InOrder},      {0, 1, V::Drop},
        {3, 1, V::Lost},         {2, 1, V::Drop},         {2, 1, V::Drop},         {4, 1, V::InOrder},
        {65'535, 1, V::Drop},    {30'000, 1, V::Restart}, {30'001, 1, V::InOrder}, {30'002, 2, V::Restart},
        {30'003, 2, V::InOrder}, {33'001, 2, V::Lost},
    };
    for (const auto& row : rows)
        ASSERT_EQ(tracker.update(row.sequence, row.ssrc), row.verdict) << row.sequence;
    EXPECT_EQ(tracker.lost(), 2u + 2997u);
    EXPECT_EQ(tracker.duplicates(), 3u);
    EXPECT_EQ(tracker.reordered(), 1u);
}

TEST(RtpClock, unwrapsBothWays)
{
    RtpClock clock;
    EXPECT_EQ(clock.unwrap(0xFFFFFF00), 0xFFFFFF00LL);
    EXPECT_EQ(clock.unwrap(0x00000100), 0x100000100LL);
    EXPECT_EQ(clock.unwrap(0xFFFFFFF0), 0xFFFFFFF0LL); // a B picture before the wrap
    EXPECT_EQ(clock.unwrap(0x00000200), 0x100000200LL);
    EXPECT_EQ(ticksToNs(-1, 90'000), -11'112);
    EXPECT_EQ(ticksToNs(90'000LL * 86'400 * 400 + 3'600, 90'000), 86'400LL * 400 * 1'000'000'000 + 40'000'000);
}
