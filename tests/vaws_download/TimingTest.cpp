#include "ClockText.h"
#include "DecodeTimes.h"
#include "GapTimeline.h"
#include "ParameterSets.h"
#include "SampleEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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

/// Writes the bits of a raw byte sequence payload.
class Bits
{
public:
    Bits& u(int count, std::uint64_t value)
    {
        for (int i = count - 1; i >= 0; --i)
            m_bits.push_back((value >> i & 1) != 0);
        return *this;
    }
    Bits& ue(std::uint32_t value)
    {
        int length = 0;
        while ((value + 1) >> (length + 1) != 0)
            ++length;
        return u(length, 0).u(length + 1, value + 1);
    }
    Bits& se(int value) { return ue(static_cast<std::uint32_t>(value > 0 ? 2 * value - 1 : -2 * value)); }
    /// A NAL unit with emulation prevention, so many bytes of it at most.
    std::vector<std::uint8_t> nal(std::size_t most = SIZE_MAX) const
    {
        std::vector<std::uint8_t> bytes;
        int zeros = 0;
        for (std::size_t at = 0; at < m_bits.size() && bytes.size() < most; at += 8) {
            std::uint8_t byte = 0;
            for (std::size_t i = 0; i < 8; ++i)
                byte = static_cast<std::uint8_t>(byte << 1 | (at + i < m_bits.size() ? m_bits[at + i] : i == 0));
            if (zeros >= 2 && byte <= 3) {
                bytes.push_back(3);
                zeros = 0;
            }
            zeros = byte == 0 ? zeros + 1 : 0;
            bytes.push_back(byte);
        }
        return bytes;
    }

private:
    std::vector<bool> m_bits;
};

Bits h264Sps(std::uint32_t profile, std::uint32_t constraints = 0)
{
    return Bits().u(8, 0x67).u(8, profile).u(8, constraints).u(8, 40).ue(0);
}

/// From the order of pictures on: 1920 by 1088 luma samples before cropping, `fieldRows` of 16 high.
Bits& h264Size(Bits& bits, bool framesOnly, std::uint32_t fieldRows)
{
    bits.ue(4).u(1, 0).ue(119).ue(fieldRows - 1).u(1, framesOnly ? 1 : 0);
    return framesOnly ? bits.u(1, 1) : bits.u(1, 0).u(1, 1);
}

Bits& crop(Bits& bits, std::uint32_t bottom)
{
    return bits.u(1, 1).ue(0).ue(0).ue(0).ue(bottom);
}

struct ShapeCase
{
    const char* name;
    vav::Codec codec;
    std::vector<std::uint8_t> sps;
    std::uint32_t width, height; ///< 0: does not parse
    int reorder;                 ///< -1: not told
    int chroma, depth;
};

class Shape : public testing::TestWithParam<ShapeCase>
{};

TEST_P(Shape, isReadOutOfEveryFormOfSequenceParameterSet)
{
    const ShapeCase& row = GetParam();
    vav::TrackInfo track;
    track.codec = row.codec;
    track.parameterSets.assign(4 + row.sps.size(), 0);
    track.parameterSets[3] = static_cast<std::uint8_t>(row.sps.size());
    std::copy(row.sps.begin(), row.sps.end(), track.parameterSets.begin() + 4);
    const VideoShape shape = videoShape(track);
    ASSERT_EQ(shape.known, row.width > 0);
    EXPECT_EQ(shape.width, row.width);
    EXPECT_EQ(shape.height, row.height);
    EXPECT_EQ(shape.reorderKnown ? static_cast<int>(shape.reorderDepth) : -1, row.reorder);
    EXPECT_EQ(shape.chromaFormat, row.chroma);
    EXPECT_EQ(shape.lumaDepth, row.depth);
}

/// Every part of the usability information there is, with both kinds of buffer sizes.
std::vector<std::uint8_t> h264WithEverything(std::uint32_t reorder)
{
    Bits bits = h264Sps(77);
    h264Size(bits.ue(0).ue(4), true, 68);
    crop(bits, 4);
    bits.u(1, 1).u(1, 1).u(8, 255).u(16, 4).u(16, 3);     // aspect ratio
    bits.u(1, 1).u(1, 0);                                 // overscan
    bits.u(1, 1).u(3, 5).u(1, 0).u(1, 1).u(24, 0x010101); // colours
    bits.u(1, 1).ue(1).ue(1);                             // place of chroma samples
    bits.u(1, 1).u(32, 1).u(32, 50).u(1, 1);              // timing
    for (int hrd = 0; hrd < 2; ++hrd)
        bits.u(1, 1).ue(1).u(8, 0x12).ue(999).ue(99).u(1, 0).ue(1999).ue(199).u(1, 1).u(20, 0xbdef8);
    bits.u(1, 0).u(1, 1); // low delay, picture structure
    bits.u(1, 1).u(1, 1).ue(2).ue(1).ue(16).ue(16).ue(reorder).ue(4).u(1, 1);
    return bits.nal();
}

std::vector<std::uint8_t> h264Interlaced()
{
    // High 4:2:2 with scaling lists, of which one ends early and one is not there; order of pictures by a cycle.
    Bits bits = h264Sps(122);
    bits.ue(2).ue(2).ue(2).u(1, 0).u(1, 1);
    bits.u(1, 1).se(-8).u(1, 0);
    for (int list = 2; list < 8; ++list) {
        bits.u(1, 1);
        for (int i = 0; i < (list < 6 ? 16 : 64); ++i)
            bits.se(i % 2 ? -1 : 1);
    }
    h264Size(bits.ue(0).ue(1).u(1, 0).se(-2).se(1).ue(2).se(3).se(-3), false, 34);
    return crop(bits, 4).u(1, 0).u(1, 1).nal();
}

/// 4:4:4 with planes apart: cropping counts single samples.
std::vector<std::uint8_t> h264Planes()
{
    Bits bits = h264Sps(244);
    bits.ue(3).u(1, 1).ue(0).ue(0).u(1, 0).u(1, 0);
    h264Size(bits.ue(0).ue(2), true, 68);
    return crop(bits, 8).u(1, 0).u(1, 1).nal();
}

std::vector<std::uint8_t> h264Baseline(std::uint32_t profile, std::uint32_t constraints, std::uint32_t cropped)
{
    Bits bits = h264Sps(profile, constraints);
    h264Size(bits.ue(0).ue(0).ue(2), true, 68);
    return crop(bits, cropped).u(1, 0).u(1, 1).nal();
}

/// `layers` temporal layers below the highest, each with what it may say of itself.
std::vector<std::uint8_t> h265(int layers, std::uint32_t chroma, std::uint32_t reorder, bool everyLayer)
{
    Bits bits;
    bits.u(16, 0x4201).u(4, 0).u(3, static_cast<std::uint64_t>(layers)).u(1, 1).u(8, 1).u(32, 0x60000000);
    bits.u(48, 0x900000000000).u(8, 120);
    for (int i = 0; i < layers; ++i)
        bits.u(1, i == 0).u(1, 1);
    if (layers > 0)
        bits.u(2 * (8 - layers), 0);
    for (int i = 0; i < layers; ++i)
        bits.u(i == 0 ? 32 : 0, 0x01600000).u(i == 0 ? 56 : 0, 5).u(8, 90);
    bits.ue(0).ue(chroma);
    if (chroma == 3)
        bits.u(1, 0);
    bits.ue(1920).ue(1088);
    crop(bits, chroma == 1 ? 4 : 8).ue(2).ue(2).ue(4).u(1, everyLayer);
    for (int i = everyLayer ? 0 : layers; i <= layers; ++i)
        bits.ue(4).ue(i == layers ? reorder : 0).ue(0);
    return bits.u(1, 1).nal();
}

constexpr vav::Codec avc = vav::Codec::H264;
constexpr vav::Codec hevc = vav::Codec::H265;

INSTANTIATE_TEST_SUITE_P(
    Sets, Shape,
    testing::Values(ShapeCase{"Everything", avc, h264WithEverything(2), 1920, 1080, 2, 1, 8},
                    ShapeCase{"DepthThatCannotBe", avc, h264WithEverything(17), 1920, 1080, -1, 1, 8},
                    ShapeCase{"Interlaced", avc, h264Interlaced(), 1920, 1080, -1, 2, 10},
                    ShapeCase{"Planes", avc, h264Planes(), 1920, 1080, 0, 3, 8},
                    ShapeCase{"Baseline", avc, h264Baseline(66, 0, 4), 1920, 1080, 0, 1, 8},
                    ShapeCase{"Main", avc, h264Baseline(77, 0, 4), 1920, 1080, -1, 1, 8},
                    ShapeCase{"MainWithoutB", avc, h264Baseline(77, 0x80, 4), 1920, 1080, 0, 1, 8},
                    ShapeCase{"CroppedToNothing", avc, h264Baseline(66, 0, 544), 0, 0, 0, 1, 8},
                    ShapeCase{"Layers", hevc, h265(2, 1, 3, true), 1920, 1080, 3, 1, 10},
                    ShapeCase{"HighestLayer", hevc, h265(1, 3, 1, false), 1920, 1080, 1, 3, 10},
                    ShapeCase{"DepthThatCannotBe265", hevc, h265(0, 1, 17, true), 1920, 1080, -1, 1, 10}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ParameterSets, believesNoSetThatIsCutAnywhere)
{
    struct Row
    {
        std::vector<std::uint8_t> whole;
        VideoShape (*parse)(const std::uint8_t*, std::size_t);
    };
    for (const Row& row : {Row{h264Interlaced(), parseH264Sps}, Row{h265(2, 1, 3, true), parseH265Sps}}) {
        const std::size_t needed = row.whole.size() - 1; // the last byte holds what ends the set, and little else
        for (std::size_t size = 0; size < needed; ++size)
            EXPECT_FALSE(row.parse(row.whole.data(), size).known) << "cut to " << size << " of " << row.whole.size();
        EXPECT_TRUE(row.parse(row.whole.data(), row.whole.size()).known);
    }
    // A number of more than 31 bits, and lists that never end.
    const std::vector<std::uint8_t> zeros = {0x67, 66, 0, 40, 0, 0, 3, 0, 0, 3, 0, 0, 3, 0, 0x80, 0xff, 0xff, 0xff};
    EXPECT_FALSE(parseH264Sps(zeros.data(), zeros.size()).known);
}

TEST(ParameterSets, areTakenOutOfAnAccessUnitWithoutTheRest)
{
    const std::vector<std::uint8_t> unit = {0, 0, 0,    2, 0x09, 0xf0, 0, 0, 0,    3, 0x67, 1, 2, 0, 0,
                                            0, 2, 0x68, 3, 0,    0,    0, 3, 0x65, 4, 5,    0, 0, 0, 9};
    const std::vector<std::uint8_t> sets = {0, 0, 0, 3, 0x67, 1, 2, 0, 0, 0, 2, 0x68, 3};
    EXPECT_EQ(parameterSetsIn(avc, unit.data(), unit.size()), sets) << "the length at the end lies";
    EXPECT_TRUE(parameterSetsIn(hevc, unit.data(), unit.size()).empty());
}

} // namespace
