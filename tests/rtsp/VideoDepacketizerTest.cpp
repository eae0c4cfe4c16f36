#include "AccessUnitAssembler.h"
#include "ReceiverFixture.h"

#include <gtest/gtest.h>

using namespace rtptest;
using vms_sdk::rtsp::MediaLimit;

namespace {

Bytes stap(const std::vector<Bytes>& nals)
{
    Bytes out = {0x78};
    for (const Bytes& nal : nals) {
        put16(out, static_cast<unsigned>(nal.size()));
        append(out, nal);
    }
    return out;
}

Bytes h265Nal(unsigned type, std::size_t bodyBytes, std::uint8_t fill)
{
    Bytes nal = {static_cast<std::uint8_t>(type << 1), 0x01};
    for (std::size_t i = 0; i < bodyBytes; ++i)
        nal.push_back(static_cast<std::uint8_t>(fill + i * 5));
    if (bodyBytes > 0)
        nal[2] |= 0x80;
    return nal;
}

Bytes fromHex(const char* hex)
{
    const QByteArray bytes = QByteArray::fromHex(hex);
    return Bytes(bytes.begin(), bytes.end());
}

/// Parameter sets as x265 makes them for 1280 x 720.
const std::vector<Bytes>& h265Sets()
{
    static const std::vector<Bytes> sets = {
        fromHex("40010c01ffff01600000030090000003000003005d959809"),
        fromHex("42010101600000030090000003000003005da00280802d165959a4932bc05a020000030002000003003210"),
        fromHex("4401c172b46240"),
    };
    return sets;
}

/// Writes parameter sets that no encoder at hand makes.
class BitWriter
{
public:
    BitWriter& bits(std::uint32_t value, unsigned count)
    {
        while (count-- > 0)
            m_bits.push_back((value >> count & 1) != 0);
        return *this;
    }
    BitWriter& ue(std::uint32_t value)
    {
        unsigned length = 0;
        while ((value + 1) >> (length + 1) != 0)
            ++length;
        return bits(0, length).bits(value + 1, length + 1);
    }
    Bytes nal(Bytes bytes) const
    {
        std::vector<bool> all = m_bits;
        all.push_back(true);
        all.resize((all.size() + 7) / 8 * 8);
        unsigned zeros = 0;
        for (std::size_t i = 0; i < all.size(); i += 8) {
            unsigned byte = 0;
            for (std::size_t bit = 0; bit < 8; ++bit)
                byte = byte << 1 | (all[i + bit] ? 1u : 0u);
            if (zeros >= 2 && byte <= 3) {
                bytes.push_back(3);
                zeros = 0;
            }
            zeros = byte == 0 ? zeros + 1 : 0;
            bytes.push_back(static_cast<std::uint8_t>(byte));
        }
        return bytes;
    }

private:
    std::vector<bool> m_bits;
};

class H264 : public ReceiverFixture, public testing::Test
{
protected:
    void SetUp() override { addTrack(videoMedia("H264")); }
    std::vector<Bytes> payloads()
    {
        receiver.finish();
        EXPECT_TRUE(log.readable);
        std::vector<Bytes> some;
        for (const BatchLog::Frame& frame : log.frames)
            some.push_back(frame.payload);
        return some;
    }
};

} // namespace

TEST_F(H264, putsAllPacketFormsTogether)
{
    const Bytes sei = {0x06, 5, 1, 0xAA, 0x80};
    const Bytes first = h264Nal(5, 5'000, 1);
    const Bytes second = h264Nal(5, 900, 2, false);
    send(stap({sps640(), pps(), sei}), 0, false, baseNs);
    for (const Bytes& part : fragments(first, 1'400))
        send(part, 0, false);
    send(second, 0, true);
    send(h264Nal(1, 30, 3), frameTicks, true);
    // Without a marker the next time ends the access unit.
    send(h264Nal(1, 30, 4), 2 * frameTicks, false);
    send(h264Nal(1, 30, 5), 3 * frameTicks, true);
    const std::vector<Bytes> expected = {lengthPrefixed({sps640(), pps(), sei, first, second}),
                                         lengthPrefixed({h264Nal(1, 30, 3)}), lengthPrefixed({h264Nal(1, 30, 4)}),
                                         lengthPrefixed({h264Nal(1, 30, 5)})};
    ASSERT_EQ(payloads(), expected);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(log.frames[i].header.timeNs, baseNs + static_cast<std::int64_t>(i) * frameNs);
        EXPECT_EQ(log.frames[i].header.flags, i == 0 ? vav::KeyFrame : 0);
    }
    ASSERT_EQ(log.infos.size(), 1u) << "sets that are those of the description are no change";
    EXPECT_EQ(log.infos[0].tracks[0].width, 640);
}

TEST_F(H264, seesThroughMarkersOnEveryPacket)
{
    for (int i = 0; i < 4; ++i) {
        send(h264Nal(1, 40, 1), static_cast<std::uint32_t>(i) * frameTicks, true);
        send(h264Nal(1, 40, 2, false), static_cast<std::uint32_t>(i) * frameTicks, true);
        send(h264Nal(1, 40, 3, false), static_cast<std::uint32_t>(i) * frameTicks, true);
    }
    const Bytes whole = lengthPrefixed({h264Nal(1, 40, 1), h264Nal(1, 40, 2, false), h264Nal(1, 40, 3, false)});
    EXPECT_EQ(payloads(), std::vector<Bytes>(4, whole));
}

TEST_F(H264, givesParameterSetsWithATimeOfTheirOwnToTheNextPicture)
{
    send(sps640(), 100, true, baseNs);
    send(pps(), 200, true);
    send(h264Nal(5, 40, 1), frameTicks, true);
    EXPECT_EQ(payloads(), std::vector<Bytes>{lengthPrefixed({sps640(), pps(), h264Nal(5, 40, 1)})});
    EXPECT_EQ(log.frames[0].header.timeNs, baseNs + 3'500LL * 1'000'000'000 / 90'000);
}

TEST_F(H264, countsRecoveryPointsAsKeyFramesOnlyWhenTheyAreExactAndIntra)
{
    const Bytes exact = {0x06, 6, 1, 0xC4, 0x80};
    const Bytes later = {0x06, 6, 1, 0x48, 0x80};
    const Bytes intra = {0x41, 0x88, 1, 2, 3};     // first_mb 0, slice type 7
    const Bytes predicted = {0x41, 0x9A, 1, 2, 3}; // first_mb 0, slice type 5
    int number = 0;
    for (const std::vector<Bytes>& unit :
         {std::vector<Bytes>{exact, intra}, {exact, predicted}, {later, intra}, {intra}})
        send(stap(unit), static_cast<std::uint32_t>(number++) * frameTicks, true);
    receiver.finish();
    ASSERT_EQ(log.frames.size(), 4u);
    EXPECT_EQ(log.frames[0].header.flags, vav::KeyFrame);
    for (std::size_t i = 1; i < 4; ++i)
        EXPECT_EQ(log.frames[i].header.flags, 0) << i;
}

TEST_F(H264, dropsDamagedUnitsAndTellsHowMany)
{
    const std::vector<Bytes> parts = fragments(h264Nal(5, 4'000, 1), 1'000);
    struct Row
    {
        const char* name;
        std::function<void()> broken; ///< the pictures 1 to ...
        std::size_t lost;
    };
    const auto at = [](int number) { return static_cast<std::uint32_t>(number) * frameTicks; };
    const Row rows[] = {
        {"a fragment in the middle",
         [&] {
             send(parts[0], at(1), false);
             lose(1);
             send(parts[2], at(1), false);
             send(parts[3], at(1), true);
         },
         1},
        {"the last fragment with its marker",
         [&] {
             send(parts[0], at(1), false);
             lose(3);
         },
         1},
        {"the first fragment",
         [&] {
             lose(1);
             send(parts[1], at(1), false);
             send(parts[2], at(1), false);
             send(parts[3], at(1), true);
         },
         1},
        {"a whole picture", [&] { lose(4); }, 1},
        {"the first slice",
         [&] {
             lose(1);
             send(h264Nal(1, 9, 1, false), at(1), true);
         },
         1},
        {"no loss, but no start of the fragments",
         [&] {
             send(parts[1], at(1), false);
             send(parts[3], at(1), true);
         },
         1},
        {"no loss, but no end of the fragments",
         [&] {
             send(parts[0], at(1), false);
             send(parts[1], at(1), true);
         },
         1},
        {"a start inside a start",
         [&] {
             send(parts[0], at(1), false);
             send(parts[0], at(1), false);
             send(parts[3], at(1), true);
         },
         1},
        {"an aggregate that lies",
         [&] {
             send({0x78, 0x00, 0x09, 0x61, 0x80}, at(1), true);
         },
         1},
        {"an empty NAL unit in an aggregate",
         [&] {
             send({0x78, 0, 0, 0x61, 0x80, 0}, at(1), true);
         },
         1},
        {"a packet of the interleaved mode",
         [&] {
             send({0x79, 0, 0, 0, 0}, at(1), true);
         },
         1},
        {"a fragment without a byte",
         [&] {
             send({0x7C, 0xC5}, at(1), true);
         },
         1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        log = BatchLog();
        receiver.flush();
        picture(0, true);
        row.broken();
        picture(2, false);
        picture(3, false);
        receiver.giveUpWaiting();
        receiver.flush();
        ASSERT_EQ(log.frames.size(), 3u);
        EXPECT_TRUE(log.frames[1].header.flags & vav::LossBefore);
        EXPECT_EQ(log.frames[1].header.lostBefore, row.lost);
        EXPECT_EQ(log.frames[2].header.flags, 0);
    }
    EXPECT_EQ(receiver.lostUnits(), std::size(rows));
}

TEST_F(H264, announcesChangedParameterSetsBeforeTheirFirstFrame)
{
    const Bytes otherSps = fromHex("674d401eeca05809360220000003002000000641e2c5b2c0");
    const Bytes otherPps = fromHex("68ebe3cb20");
    picture(0, true, baseNs);
    picture(1, false);
    send(stap({otherSps, otherPps, h264Nal(5, 40, 9)}), 2 * frameTicks, true);
    picture(3, false);
    receiver.finish();
    ASSERT_EQ(log.infos.size(), 2u);
    ASSERT_EQ(log.frames.size(), 4u);
    EXPECT_EQ(log.frames[1].infosBefore, 1u);
    EXPECT_EQ(log.frames[2].infosBefore, 2u);
    EXPECT_EQ(log.infos[1].tracks[0].width, 704);
    EXPECT_EQ(log.infos[1].tracks[0].height, 576);
    EXPECT_EQ(log.infos[1].tracks[0].parameterSets, lengthPrefixed({otherSps, otherPps}))
        << "sets made for the old sequence parameter set are gone";
}

TEST(H264WithoutSets, waitsForThemInTheStream)
{
    ReceiverFixture feed;
    feed.addTrack(videoMedia("H264", false));
    feed.addTrack(audioMedia("PCMA", 8'000));
    feed.picture(0, false, baseNs);
    feed.send(Bytes(160, 0xD5), 0, false, baseNs, 0, 2);
    feed.send(sps640(), frameTicks, false);
    feed.send(pps(), frameTicks, false);
    feed.send(h264Nal(5, 40, 1), frameTicks, true);
    feed.receiver.finish();
    ASSERT_EQ(feed.log.infos.size(), 1u);
    EXPECT_EQ(feed.log.infos[0].tracks.size(), 2u);
    EXPECT_EQ(feed.log.infos[0].tracks[0].parameterSets, lengthPrefixed({sps640(), pps()}));
    EXPECT_EQ(feed.log.ofTrack(0).size(), 1u);
    ASSERT_EQ(feed.log.ofTrack(1).size(), 1u) << "sound that came before is not lost";
    EXPECT_EQ(feed.log.ofTrack(1)[0].infosBefore, 1u);
}

TEST_F(H264, stopsAtTheLimits)
{
    MediaLimit limit = MediaLimit::None;
    for (int i = 0; i < 5'000 && limit == MediaLimit::None; ++i)
        limit = send(stap({{0x61, 0x80}}), 0, false);
    EXPECT_EQ(limit, MediaLimit::TooManyNalUnits);

    ReceiverFixture large;
    large.addTrack(videoMedia("H264"));
    limit = MediaLimit::None;
    std::size_t sent = 0;
    Bytes part(60'000, 0x11);
    part[0] = 0x7C;
    for (part[1] = 0x85; limit == MediaLimit::None && sent < 20'000'000; part[1] = 0x05) {
        limit = large.send(part, 0, false);
        sent += part.size();
    }
    EXPECT_EQ(limit, MediaLimit::UnitTooLarge);
    EXPECT_LE(sent, vav::maxPayloadBytes + 120'000);
    large.receiver.finish();
    EXPECT_TRUE(large.log.frames.empty());
}

TEST(H265, putsAllPacketFormsTogether)
{
    ReceiverFixture feed;
    feed.addTrack(videoMedia("H265"));
    Bytes aggregate = {48 << 1, 1};
    for (const Bytes& set : h265Sets()) {
        put16(aggregate, static_cast<unsigned>(set.size()));
        append(aggregate, set);
    }
    const Bytes irap = h265Nal(19, 3'000, 1);
    feed.send(aggregate, 0, false, baseNs);
    for (std::size_t at = 2; at < irap.size(); at += 1'000) {
        const std::size_t end = std::min(at + 1'000, irap.size());
        Bytes part = {static_cast<std::uint8_t>(49 << 1), 1,
                      static_cast<std::uint8_t>((at == 2 ? 0x80 : 0) | (end == irap.size() ? 0x40 : 0) | 19)};
        part.insert(part.end(), irap.begin() + static_cast<std::ptrdiff_t>(at),
                    irap.begin() + static_cast<std::ptrdiff_t>(end));
        feed.send(part, 0, end == irap.size());
    }
    feed.send(h265Nal(1, 50, 2), frameTicks, true);
    feed.receiver.finish();
    ASSERT_EQ(feed.log.frames.size(), 2u);
    std::vector<Bytes> all = h265Sets();
    all.push_back(irap);
    EXPECT_EQ(feed.log.frames[0].payload, lengthPrefixed(all));
    EXPECT_EQ(feed.log.frames[0].header.flags, vav::KeyFrame);
    EXPECT_EQ(feed.log.frames[1].header.flags, 0);
    ASSERT_EQ(feed.log.infos.size(), 1u);
    EXPECT_EQ(feed.log.infos[0].tracks[0].parameterSets, lengthPrefixed(h265Sets()));
    EXPECT_EQ(feed.log.infos[0].tracks[0].width, 1280);
}

TEST(H265, dropsWhatLies)
{
    for (const Bytes& broken : {Bytes{0x60, 1, 0, 9, 1, 1}, Bytes{0x60, 1, 0, 1, 1}, Bytes{0x62, 1, 0x81},
                                Bytes{0x62, 1, 0x13, 1}, Bytes{0x64, 1, 1, 1}, Bytes{0x26}}) {
        ReceiverFixture feed;
        feed.addTrack(videoMedia("H265"));
        std::vector<Bytes> unit = h265Sets();
        unit.push_back(h265Nal(19, 40, 1));
        for (const Bytes& nal : unit)
            feed.send(nal, 0, &nal == &unit.back());
        feed.send(broken, frameTicks, true);
        feed.send(h265Nal(1, 40, 2), 2 * frameTicks, true);
        feed.receiver.finish();
        ASSERT_EQ(feed.log.frames.size(), 2u) << unsigned(broken[0]);
        EXPECT_EQ(feed.log.frames[1].header.lostBefore, 1u) << unsigned(broken[0]);
    }
}

TEST(ParameterSets, readsPictureSizes)
{
    const struct
    {
        bool isH264;
        const char* sps;
        int width;
        int height;
    } rows[] = {
        {true, "6742c01ed900a02ff97011000003000100000300320f162e48", 640, 360},
        {true, "67640028acd940780227e5c044000003000400000300c83c60c658", 1920, 1080},
        {true, "67640028acd94078044fde0220000003002000000643e2c5b2c0", 1920, 1080}, // interlaced
        {true, "674d401eeca05809360220000003002000000641e2c5b2c0", 704, 576},
        {false, "42010101600000030090000003000003005da00280802d165959a4932bc05a020000030002000003003210", 1280, 720},
        {false, "420101022000000300900000030000030078a003c4801107248d96566924caf0168080000003008000000c84", 1922, 1082},
    };
    for (const auto& row : rows) {
        const Bytes nal = fromHex(row.sps);
        vms_sdk::rtsp::PictureSize size;
        const auto parse = row.isH264 ? vms_sdk::rtsp::parseH264Sps : vms_sdk::rtsp::parseH265Sps;
        ASSERT_TRUE(parse(nal.data(), nal.size(), size)) << row.sps;
        EXPECT_EQ(size.width, row.width);
        EXPECT_EQ(size.height, row.height);
        for (std::size_t cut = 0; cut < 8; ++cut) {
            const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[cut]);
            std::copy_n(nal.begin(), cut, exact.get());
            EXPECT_FALSE(parse(exact.get(), cut, size)) << cut;
        }
    }
}

TEST(ParameterSets, readsRareFormsOfSequenceParameterSets)
{
    using vms_sdk::rtsp::PictureSize;
    PictureSize size;

    // High 4:4:4 with separate planes, scaling lists, picture order type 1, fields, cropped.
    BitWriter high;
    high.bits(244, 8).bits(0, 8).bits(40, 8).ue(3).ue(3).bits(1, 1).ue(0).ue(0).bits(0, 1).bits(1, 1);
    for (int list = 0; list < 12; ++list) {
        high.bits(list % 2 == 0, 1);
        for (int i = 0; list % 2 == 0 && i < (list < 6 ? 16 : 64); ++i)
            high.ue(0);
    }
    high.ue(0).ue(1).bits(0, 1).ue(2).ue(1).ue(2).ue(3).ue(4).ue(4).bits(0, 1);
    high.ue(44).ue(17).bits(0, 1).bits(0, 1).bits(1, 1).bits(1, 1).ue(2).ue(3).ue(4).ue(5).bits(0, 1);
    const Bytes highSps = high.nal({0x67});
    ASSERT_TRUE(vms_sdk::rtsp::parseH264Sps(highSps.data(), highSps.size(), size));
    EXPECT_EQ(size.id, 3u);
    EXPECT_EQ(size.width, 45 * 16 - 5);
    EXPECT_EQ(size.height, 18 * 32 - 9 * 2);

    // Two temporal layers with levels of their own, 4:2:2, cropped.
    BitWriter layered;
    layered.bits(0, 4).bits(2, 3).bits(1, 1);
    for (int i = 0; i < 12; ++i)
        layered.bits(0x5A, 8);
    layered.bits(0b1101, 4).bits(0, 12);
    for (int i = 0; i < 11 + 1 + 1; ++i)
        layered.bits(0xFF, 8);
    layered.ue(2).ue(2).ue(1'936).ue(1'100).bits(1, 1).ue(4).ue(4).ue(10).ue(10);
    const Bytes layeredSps = layered.nal({0x42, 0x01});
    ASSERT_TRUE(vms_sdk::rtsp::parseH265Sps(layeredSps.data(), layeredSps.size(), size));
    EXPECT_EQ(size.width, 1'920);
    EXPECT_EQ(size.height, 1'080);

    // Larger than sixteen bits, or cropped to nothing.
    const Bytes huge = BitWriter()
                           .bits(66, 8)
                           .bits(0, 16)
                           .ue(0)
                           .ue(0)
                           .ue(2)
                           .ue(1)
                           .bits(0, 1)
                           .ue(5'000)
                           .ue(10)
                           .bits(1, 1)
                           .bits(0, 2)
                           .nal({0x67});
    EXPECT_FALSE(vms_sdk::rtsp::parseH264Sps(huge.data(), huge.size(), size));
    const Bytes nothing = BitWriter()
                              .bits(66, 8)
                              .bits(0, 16)
                              .ue(0)
                              .ue(0)
                              .ue(2)
                              .ue(1)
                              .bits(0, 1)
                              .ue(1)
                              .ue(1)
                              .bits(1, 1)
                              .bits(0, 1)
                              .bits(1, 1)
                              .ue(9)
                              .ue(9)
                              .ue(0)
                              .ue(0)
                              .nal({0x67});
    EXPECT_FALSE(vms_sdk::rtsp::parseH264Sps(nothing.data(), nothing.size(), size));
}
