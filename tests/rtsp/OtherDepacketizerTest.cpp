#include "AudioConfig.h"
#include "ReceiverFixture.h"

#include <gtest/gtest.h>

using namespace rtptest;

namespace {

/// An RFC 3640 payload: the header section, then the data. `sizes` are those told in the headers.
Bytes aacPayload(const std::vector<unsigned>& sizes, const Bytes& data)
{
    Bytes out;
    put16(out, static_cast<unsigned>(sizes.size() * 16));
    for (const unsigned size : sizes)
        put16(out, size << 3);
    append(out, data);
    return out;
}

vms_sdk::rtsp::SdpMedia aacMedia()
{
    vms_sdk::rtsp::SdpMedia media = audioMedia("MPEG4-GENERIC", 48'000);
    media.payloadType = 96;
    media.formatParameters.insert("mode", "AAC-hbr");
    media.formatParameters.insert("config", "1190");
    return media;
}

Bytes jpegPacket(unsigned offset, unsigned type, unsigned quality, const Bytes& rest)
{
    Bytes out = {0,
                 static_cast<std::uint8_t>(offset >> 16),
                 static_cast<std::uint8_t>(offset >> 8),
                 static_cast<std::uint8_t>(offset),
                 static_cast<std::uint8_t>(type),
                 static_cast<std::uint8_t>(quality),
                 40,
                 30};
    append(out, rest);
    return out;
}

} // namespace

TEST(AacDepacketizer, readsManyUnitsAPacketAndFragments)
{
    ReceiverFixture feed;
    feed.addTrack(aacMedia());
    feed.send(aacPayload({3, 2}, {1, 2, 3, 4, 5}), 0, true, baseNs);
    feed.send(aacPayload({6}, {1, 2, 3, 4}), 2'048, false);
    feed.send(aacPayload({6}, {5, 6}), 2'048, true);
    feed.send(aacPayload({2}, {7, 8}), 3'072, true);
    feed.receiver.finish();
    const std::vector<Bytes> expected = {{1, 2, 3}, {4, 5}, {1, 2, 3, 4, 5, 6}, {7, 8}};
    ASSERT_EQ(feed.log.frames.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(feed.log.frames[i].payload, expected[i]) << i;
        EXPECT_EQ(feed.log.frames[i].header.timeNs,
                  baseNs + static_cast<std::int64_t>(i) * 1'024 * 1'000'000'000 / 48'000)
            << i;
        EXPECT_EQ(feed.log.frames[i].header.durationUs, 21'333u);
        EXPECT_EQ(feed.log.frames[i].header.flags, vav::KeyFrame);
    }
    EXPECT_EQ(feed.log.infos[0].tracks[0].parameterSets, (Bytes{0x11, 0x90}));
}

TEST(AacDepacketizer, survivesHostileLengths)
{
    const Bytes rows[] = {
        {},
        {0},
        {0, 0},
        {0xFF, 0xFF},
        {0, 16},
        {0, 16, 0},
        {0, 1, 0xFF, 1, 2},
        aacPayload({8'191}, {1}),
        aacPayload({5, 9}, {1, 2, 3, 4, 5, 6}),
        aacPayload({0, 0, 0}, {}),
    };
    ReceiverFixture feed;
    feed.addTrack(aacMedia());
    std::uint32_t timestamp = 0;
    for (const Bytes& row : rows)
        feed.send(row, timestamp += 1'024, true);
    feed.send(aacPayload({2}, {7, 8}), timestamp + 1'024, true);
    feed.receiver.finish();
    ASSERT_FALSE(feed.log.frames.empty());
    EXPECT_EQ(feed.log.frames.back().payload, (Bytes{7, 8}));
}

TEST(AudioConfig, readsTheFormsThatRecordersSend)
{
    const struct
    {
        Bytes bytes;
        bool readable;
        unsigned objectType;
        std::uint32_t samplingRate;
        unsigned channels;
        unsigned samplesPerUnit;
    } rows[] = {
        {{0x11, 0x90}, true, 2, 48'000, 2, 1'024},
        {{0x14, 0x0C}, true, 2, 16'000, 1, 960},
        {{0x13, 0x38}, true, 2, 24'000, 7 + 1, 1'024},
        {{0x17, 0x80, 0x3E, 0x80, 0x10}, true, 2, 32'000, 2, 1'024}, // the rate in full
        {{0x2B, 0x11, 0x88, 0x00}, true, 2, 24'000, 2, 1'024},       // SBR told explicitly
        {{0xF9, 0x06, 0x40}, true, 32 + 8, 48'000, 2, 1'024},        // escaped object type
        {{0x16, 0x90}, false, 0, 0, 0, 0},                           // reserved rate
        {{0x11, 0xC8}, false, 0, 0, 0, 0},                           // reserved channels
        {{0x11}, false, 0, 0, 0, 0},
        {{}, false, 0, 0, 0, 0},
    };
    for (const auto& row : rows) {
        vms_sdk::rtsp::AudioConfig config;
        const bool readable = vms_sdk::rtsp::parseAudioSpecificConfig(row.bytes.data(), row.bytes.size(), config);
        ASSERT_EQ(readable, row.readable) << &row - rows;
        if (!readable)
            continue;
        EXPECT_EQ(config.objectType, row.objectType) << &row - rows;
        EXPECT_EQ(config.samplingRate, row.samplingRate) << &row - rows;
        EXPECT_EQ(config.channels, row.channels) << &row - rows;
        EXPECT_EQ(config.samplesPerUnit, row.samplesPerUnit) << &row - rows;
    }
}

TEST(RawAudio, makesOneFrameAPacket)
{
    const struct
    {
        const char* encoding;
        std::size_t bytes;
        unsigned durationUs;
    } rows[] = {{"PCMA", 160, 20'000},
                {"PCMU", 320, 40'000},
                {"G726-16", 40, 20'000},
                {"G726-32", 80, 20'000},
                {"G726-40", 100, 20'000}};
    for (const auto& row : rows) {
        ReceiverFixture feed;
        vms_sdk::rtsp::SdpMedia media = audioMedia(row.encoding, 8'000);
        media.payloadType = 96;
        feed.addTrack(media);
        feed.send(Bytes(row.bytes, 0x55), 8'000, false, baseNs);
        feed.lose(2);
        feed.send(Bytes(row.bytes, 0x56), 8'000 + 480, false);
        feed.receiver.finish();
        ASSERT_EQ(feed.log.frames.size(), 2u) << row.encoding;
        EXPECT_EQ(feed.log.frames[0].payload, Bytes(row.bytes, 0x55)) << row.encoding;
        EXPECT_EQ(feed.log.frames[0].header.durationUs, row.durationUs) << row.encoding;
        EXPECT_EQ(feed.log.frames[1].header.timeNs, baseNs + 60'000'000) << row.encoding;
        EXPECT_TRUE(feed.log.frames[1].header.flags & vav::LossBefore) << row.encoding;
    }
}

TEST(MjpegDepacketizer, makesAJfifImage)
{
    ReceiverFixture feed;
    vms_sdk::rtsp::SdpMedia media = videoMedia("JPEG");
    media.payloadType = 96;
    feed.addTrack(media);
    Bytes tables = {0, 0, 0, 128};
    for (unsigned i = 0; i < 128; ++i)
        tables.push_back(static_cast<std::uint8_t>(i + 1));
    Bytes first = tables;
    append(first, {9, 8, 7});
    feed.send(jpegPacket(0, 1, 200, first), 0, false, baseNs);
    feed.send(jpegPacket(3, 1, 200, {6, 5}), 0, true);
    // The tables of a quality from 128 on need come only once; type 64 has restart markers.
    feed.send(jpegPacket(0, 65, 200, {0, 4, 0xFF, 0xFF, 0, 0, 0, 0, 1}), frameTicks, true);
    feed.send(jpegPacket(0, 0, 50, {1, 2, 0xFF, 0xD9}), 2 * frameTicks, true);
    feed.receiver.finish();
    ASSERT_EQ(feed.log.frames.size(), 3u);
    const Bytes& image = feed.log.frames[0].payload;
    EXPECT_EQ(Bytes(image.begin(), image.begin() + 4), (Bytes{0xFF, 0xD8, 0xFF, 0xE0}));
    EXPECT_EQ(Bytes(image.end() - 7, image.end()), (Bytes{9, 8, 7, 6, 5, 0xFF, 0xD9}));
    EXPECT_EQ(Bytes(image.begin() + 25, image.begin() + 25 + 64), Bytes(tables.begin() + 4, tables.begin() + 68));
    EXPECT_EQ(feed.log.frames[1].payload.size(), image.size() + 6 - 4)
        << "a restart interval, and four bytes less of the scan";
    EXPECT_EQ(Bytes(feed.log.frames[2].payload.end() - 4, feed.log.frames[2].payload.end()), (Bytes{1, 2, 0xFF, 0xD9}));
    EXPECT_EQ(feed.log.infos[0].tracks[0].width, 320);
    EXPECT_EQ(feed.log.infos[0].tracks[0].height, 240);
}

TEST(MjpegDepacketizer, dropsBrokenImages)
{
    const std::vector<std::vector<Bytes>> rows = {
        {jpegPacket(0, 1, 50, {1, 2}), jpegPacket(5, 1, 50, {3})}, // a hole
        {jpegPacket(4, 1, 50, {1, 2})},                            // no beginning
        {jpegPacket(0, 1, 200, {0, 0, 0, 128, 1})},                // tables cut
        {jpegPacket(0, 1, 130, {0, 0, 0, 0, 1})},                  // tables never sent
        {jpegPacket(0, 1, 200, {0, 1, 0, 128, 1})},                // 16-bit tables
        {jpegPacket(0, 5, 50, {1})},                               // unknown type
        {jpegPacket(0, 64, 50, {1})},                              // restart header cut
        {Bytes{0, 0, 0}},
    };
    for (const std::vector<Bytes>& row : rows) {
        ReceiverFixture feed;
        vms_sdk::rtsp::SdpMedia media = videoMedia("JPEG");
        feed.addTrack(media);
        feed.send(jpegPacket(0, 1, 50, {1}), 0, true, baseNs);
        for (const Bytes& packet : row)
            feed.send(packet, frameTicks, &packet == &row.back());
        feed.send(jpegPacket(0, 1, 50, {2}), 2 * frameTicks, true);
        feed.receiver.finish();
        ASSERT_EQ(feed.log.frames.size(), 2u) << &row - rows.data();
        EXPECT_EQ(feed.log.frames[1].header.lostBefore, 1u) << &row - rows.data();
    }
}
