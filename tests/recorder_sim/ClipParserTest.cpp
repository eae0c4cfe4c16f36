#include "media/ClipParser.h"

#include <gtest/gtest.h>

using namespace recorder_sim;
using namespace std::string_literals;

namespace {

std::vector<std::string> nalsOf(const std::string& bytes)
{
    std::vector<std::string> out;
    for (const Slice& slice : splitAnnexB(bytes))
        out.push_back(bytes.substr(slice.offset, slice.size));
    return out;
}

std::string adtsFrame(std::size_t payload, char fill)
{
    const std::size_t length = payload + 7;
    // AAC LC, 48 kHz (index 3), stereo, no CRC.
    std::string frame = {'\xff',
                         '\xf1',
                         '\x4c',
                         static_cast<char>(0x80 | length >> 11),
                         static_cast<char>(length >> 3 & 0xff),
                         static_cast<char>((length & 7) << 5 | 0x1f),
                         '\xfc'};
    return frame + std::string(payload, fill);
}

} // namespace

TEST(ClipParser, splitsStartCodesOfThreeAndFourBytes)
{
    const struct
    {
        const char* what;
        std::string bytes;
        std::vector<std::string> nals;
    } rows[] = {
        {"nothing", "", {}},
        {"no start code", "\1\2\3"s, {}},
        {"three and four bytes", "\0\0\1ab\0\0\0\1cd"s, {"ab", "cd"}},
        {"trailing zeros belong to no unit", "\0\0\1ab\0\0\0\0\0\1cd\0\0"s, {"ab", "cd"}},
        {"an empty unit is none", "\0\0\1\0\0\1x"s, {"x"}},
        {"emulation prevention stays", "\0\0\1a\0\0\3\1b"s, {"a\0\0\3\1b"s}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(nalsOf(row.bytes), row.nals) << row.what;
}

TEST(ClipParser, splitsAdtsAndRefusesLyingLengths)
{
    const std::string good = adtsFrame(10, 'a') + adtsFrame(2000, 'b');
    const std::vector<Slice> units = splitAdts(good);
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(good.substr(units[1].offset, units[1].size), std::string(2000, 'b'));
    EXPECT_TRUE(splitAdts(good.substr(0, good.size() - 1)).empty());
    EXPECT_TRUE(splitAdts("x" + good).empty());
    EXPECT_EQ(audioSpecificConfig(good), "\x11\x90") << "AAC LC, 48 kHz, stereo";
}

TEST(ClipParser, refusesClipsThatAreNoClosedGops)
{
    std::string error;
    VideoClip clip;
    clip.codec = Codec::H264;
    EXPECT_FALSE(indexVideo(clip, parseProbe("0,10\n1,10\n"), error)) << "too few pictures";

    // 400 pictures of one unit each, key frames with parameter sets every 50; then one key frame is made a plain
    // picture.
    const std::string key = "\0\0\1\x67spsX\0\0\1\x68pps\0\0\1\x65idr"s;
    const std::string plain = "\0\0\1\x41pic"s;
    for (const std::size_t broken : {std::size_t{0}, std::size_t{100}}) {
        std::string csv;
        clip.bytes.clear();
        for (std::size_t i = 0; i < 400; ++i) {
            const std::string& unit = i % 50 == 0 && (broken == 0 || i != broken) ? key : plain;
            clip.bytes += unit;
            csv += std::to_string(i * 512) + "," + std::to_string(unit.size()) + "\n";
        }
        EXPECT_EQ(indexVideo(clip, parseProbe(csv), error), broken == 0) << error;
    }
}
