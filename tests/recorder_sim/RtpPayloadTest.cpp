#include "media/RtpPayload.h"
#include "Depacketizer.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace recorder_sim;

namespace {

std::string nal(Codec codec, int type, std::size_t size)
{
    std::string out = codec == Codec::H265 ? std::string{static_cast<char>(type << 1), '\1'}
                                           : std::string{static_cast<char>(0x60 | type)};
    for (std::size_t i = out.size(); i < size; ++i)
        out += static_cast<char>(i * 7 + i / 251);
    return out;
}

std::string sampleOf(const std::vector<std::string>& nals)
{
    std::string out;
    for (const std::string& one : nals) {
        const std::size_t size = one.size();
        out += {static_cast<char>(size >> 24), static_cast<char>(size >> 16), static_cast<char>(size >> 8),
                static_cast<char>(size)};
        out += one;
    }
    return out;
}

} // namespace

TEST(RtpPayload, videoComesBackWholeAtEverySize)
{
    for (const Codec codec : {Codec::H264, Codec::H265}) {
        const bool h265 = codec == Codec::H265;
        const std::vector<int> sets = h265 ? std::vector<int>{35, 32, 33, 34, 39} : std::vector<int>{9, 7, 8, 6};
        // Sizes around the edges at which a unit needs one packet more.
        for (std::size_t size = 60; size < 760; ++size) {
            std::vector<std::string> nals;
            for (const int type : sets)
                nals.push_back(nal(codec, type, type == 9 || type == 35 ? 3 : 40));
            nals.push_back(nal(codec, h265 ? 19 : 5, size));
            nals.push_back(nal(codec, h265 ? 1 : 1, 30));
            const std::vector<std::string_view> views(nals.begin(), nals.end());
            constexpr std::size_t firstLimit = 184;
            constexpr std::size_t limit = 200;
            const std::vector<std::string> payloads = videoPayloads(codec, views, firstLimit, limit);
            ASSERT_LE(payloads.front().size(), firstLimit);
            ASSERT_TRUE(
                std::all_of(payloads.begin(), payloads.end(), [](const std::string& p) { return p.size() <= limit; }));
            bool good = false;
            ASSERT_EQ(joinVideo(codec, payloads, good), sampleOf(nals)) << codecName(codec) << " unit of " << size;
            ASSERT_TRUE(good) << codecName(codec) << " unit of " << size;
        }
    }
}

TEST(RtpPayload, parameterSetsShareOnePacket)
{
    const std::vector<std::string> nals = {nal(Codec::H264, 7, 25), nal(Codec::H264, 8, 6), nal(Codec::H264, 5, 100)};
    const std::vector<std::string> payloads = videoPayloads(Codec::H264, {nals.begin(), nals.end()}, 1372, 1388);
    ASSERT_EQ(payloads.size(), 2u);
    EXPECT_EQ(payloads[0][0] & 0x1f, 24) << "STAP-A";
    EXPECT_EQ(payloads[0][0] & 0x60, 0x60) << "as important as the most important unit in it";
}

TEST(RtpPayload, aacUnitsComeBack)
{
    const std::vector<std::string> units = {std::string(1, 'a'), std::string(1000, 'b'), std::string(8191, 'c')};
    bool good = false;
    EXPECT_EQ(splitAac(aacPayload({units.begin(), units.end()}), good), units);
    EXPECT_TRUE(good);
}
