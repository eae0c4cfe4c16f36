#include "rtsp/PacketFaults.h"

#include <gtest/gtest.h>

using namespace recorder_sim;

namespace {

/// Interleaved packets of 20 bytes of RTP whose second byte is the number.
std::string packets(int count)
{
    std::string out;
    for (int i = 0; i < count; ++i) {
        out += std::string("$\0\0\x14\x80", 5);
        out += static_cast<char>(i);
        out += std::string(18, 'x');
    }
    return out;
}

std::string numbersOf(const std::string& bytes)
{
    std::string out;
    for (std::size_t at = 0; at + 24 <= bytes.size(); at += 24)
        out += std::to_string(static_cast<unsigned char>(bytes[at + 5])) + " ";
    return out;
}

} // namespace

TEST(PacketFaults, strikeWhereTheyShould)
{
    const struct
    {
        const char* what;
        void (*set)(PacketFaults&);
        const char* wanted;
    } rows[] = {
        {"reorder", [](PacketFaults& f) { f.reorderEvery = 3; }, "0 1 3 2 4 "},
        {"duplicate", [](PacketFaults& f) { f.duplicateEvery = 2; }, "0 1 1 2 3 3 4 5 5 "},
        {"lose all", [](PacketFaults& f) { f.lossRate = 1; }, ""},
    };
    for (const auto& row : rows) {
        PacketFaults faults;
        row.set(faults);
        std::string out;
        faults.rewrite(packets(6), out);
        EXPECT_EQ(numbersOf(out), row.wanted) << row.what;
    }
}

TEST(PacketFaults, loseTheSamePacketsForTheSameSeedAndAboutTheAskedShare)
{
    const auto lost = [](std::uint64_t seed) {
        PacketFaults faults;
        faults.lossRate = 0.1;
        faults.seed = seed;
        std::string out;
        faults.rewrite(packets(10'000), out);
        return std::make_pair(faults.lost(), out);
    };
    EXPECT_EQ(lost(7), lost(7));
    EXPECT_NE(lost(7).second, lost(8).second);
    EXPECT_NEAR(static_cast<double>(lost(7).first), 1000, 150);
}

TEST(PacketFaults, tearAndMisstateOnePacketOnly)
{
    PacketFaults faults;
    faults.tornAt = 2;
    std::string out;
    faults.rewrite(packets(3), out);
    EXPECT_EQ(out.size(), 3 * 24u - 10);
    faults = {};
    faults.wrongLengthAt = 1;
    faults.rewrite(packets(2), out);
    EXPECT_EQ(out.size(), 2 * 24u);
    EXPECT_EQ(out[3], 20 + faults.wrongLengthBy);
    EXPECT_EQ(out[24 + 3], 20);
}
