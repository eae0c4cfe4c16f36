#include "vav_frame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Status = vav::PacketReader::Status;

vav::StreamInfo twoTracks()
{
    vav::StreamInfo info;
    info.beginNs = 1'700'000'000'123'456'789;
    info.endNs = std::numeric_limits<std::int64_t>::max();
    info.channelName = "Einfahrt \xC3\xB6stlich";
    info.deviceName = std::string(1'024, 'd');
    vav::TrackInfo video;
    video.codec = vav::Codec::H265;
    video.clockRate = 90'000;
    video.width = 65'535;
    video.height = 2'160;
    video.parameterSets = Bytes(vav::maxParameterSetBytes, 0xAB);
    vav::TrackInfo audio;
    audio.track = 1;
    audio.codec = vav::Codec::Aac;
    audio.clockRate = 48'000;
    audio.channels = 2;
    audio.bitRate = 128'000;
    audio.parameterSets = {0x11, 0x90};
    info.tracks = {video, audio};
    return info;
}

void appendFrame(Bytes& batch, vav::FrameHeader header, const Bytes& payload)
{
    header.payloadBytes = static_cast<std::uint32_t>(payload.size());
    batch.resize(batch.size() + vav::headerBytes);
    vav::writeFrameHeader(batch.data() + batch.size() - vav::headerBytes, header);
    batch.insert(batch.end(), payload.begin(), payload.end());
}

vav::FrameHeader someHeader()
{
    vav::FrameHeader header;
    header.track = 3;
    header.flags = vav::KeyFrame | vav::LossBefore;
    header.durationUs = 40'000;
    header.timeNs = -5;
    header.gapBeginNs = 1'700'000'000'000'000'001;
    header.lostBefore = 7;
    return header;
}

/// In memory of exactly its own size, so that a sanitizer sees each read past the end.
std::unique_ptr<std::uint8_t[]> exactly(const Bytes& bytes, std::size_t size)
{
    std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[size]);
    std::copy_n(bytes.begin(), size, exact.get());
    return exact;
}

} // namespace

TEST(PacketReader, readsBackWhatWasWritten)
{
    const vav::StreamInfo info = twoTracks();
    Bytes batch = vav::encodeStreamInfo(info);
    appendFrame(batch, someHeader(), {1, 2, 3});
    appendFrame(batch, vav::FrameHeader(), {});

    vav::PacketReader reader(batch.data(), batch.size());
    ASSERT_EQ(reader.next(), Status::Packet);
    ASSERT_EQ(reader.kind(), vav::PacketKind::StreamInfo);
    EXPECT_EQ(reader.streamInfo().beginNs, info.beginNs);
    EXPECT_EQ(reader.streamInfo().endNs, info.endNs);
    EXPECT_EQ(reader.streamInfo().channelName, info.channelName);
    EXPECT_EQ(reader.streamInfo().deviceName, info.deviceName);
    EXPECT_EQ(reader.streamInfo().tracks, info.tracks);
    EXPECT_EQ(reader.streamInfo().tracks[1].bitRate, 128'000u);

    ASSERT_EQ(reader.next(), Status::Packet);
    const vav::FrameHeader expected = someHeader();
    EXPECT_EQ(reader.frame().track, expected.track);
    EXPECT_EQ(reader.frame().flags, expected.flags);
    EXPECT_EQ(reader.frame().durationUs, expected.durationUs);
    EXPECT_EQ(reader.frame().timeNs, expected.timeNs);
    EXPECT_EQ(reader.frame().gapBeginNs, expected.gapBeginNs);
    EXPECT_EQ(reader.frame().lostBefore, expected.lostBefore);
    EXPECT_EQ(Bytes(reader.payload(), reader.payload() + reader.frame().payloadBytes), (Bytes{1, 2, 3}));

    ASSERT_EQ(reader.next(), Status::Packet);
    EXPECT_EQ(reader.frame().payloadBytes, 0u);
    EXPECT_EQ(reader.next(), Status::End);
    EXPECT_EQ(reader.next(), Status::End);
}

TEST(PacketReader, isTornWhereverTheBatchIsCut)
{
    Bytes batch;
    appendFrame(batch, someHeader(), {1, 2, 3});
    for (std::size_t size = 1; size < batch.size(); ++size) {
        const auto exact = exactly(batch, size);
        vav::PacketReader reader(exact.get(), size);
        ASSERT_EQ(reader.next(), Status::Torn) << size;
        ASSERT_EQ(reader.next(), Status::Torn) << size;
    }
}

TEST(PacketReader, skipsUnknownKindsOfPackets)
{
    Bytes batch;
    appendFrame(batch, someHeader(), {9, 9, 9, 9});
    batch[5] = 77;
    appendFrame(batch, someHeader(), {1});
    vav::PacketReader reader(batch.data(), batch.size());
    ASSERT_EQ(reader.next(), Status::Packet);
    EXPECT_EQ(reader.frame().payloadBytes, 1u);
    EXPECT_EQ(reader.next(), Status::End);
}

TEST(PacketReader, refusesWhatIsNotItsFormat)
{
    struct Row
    {
        const char* name;
        std::size_t offset;
        std::uint8_t value;
    };
    Bytes good;
    appendFrame(good, someHeader(), {1, 2, 3});
    for (const Row& row :
         {Row{"magic", 0, 'X'}, Row{"version", 4, 2}, Row{"track", 6, 4}, Row{"payload beyond the limit", 11, 0x7F}}) {
        Bytes bad = good;
        bad[row.offset] = row.value;
        vav::PacketReader reader(bad.data(), bad.size());
        EXPECT_EQ(reader.next(), Status::Invalid) << row.name;
        EXPECT_EQ(reader.next(), Status::Invalid) << row.name;
    }

    // A stream info that is shorter than its fields say, at every length.
    vav::StreamInfo info = twoTracks();
    info.deviceName = "recorder";
    info.tracks[0].parameterSets = {1, 2, 3};
    const Bytes whole = vav::encodeStreamInfo(info);
    for (std::size_t size = vav::headerBytes; size < whole.size(); ++size) {
        const auto exact = exactly(whole, size);
        vav::FrameHeader header;
        header.payloadBytes = static_cast<std::uint32_t>(size - vav::headerBytes);
        vav::writeFrameHeader(exact.get(), header);
        exact[5] = static_cast<std::uint8_t>(vav::PacketKind::StreamInfo);
        vav::PacketReader reader(exact.get(), size);
        ASSERT_EQ(reader.next(), Status::Invalid) << size;
    }
}

TEST(StreamInfo, isNotWrittenBeyondItsLimits)
{
    vav::StreamInfo info = twoTracks();
    info.tracks.clear();
    EXPECT_TRUE(vav::encodeStreamInfo(info).empty());
    info = twoTracks();
    info.tracks.resize(vav::maxTracks + 1);
    EXPECT_TRUE(vav::encodeStreamInfo(info).empty());
    info = twoTracks();
    info.tracks[0].parameterSets.push_back(0);
    EXPECT_TRUE(vav::encodeStreamInfo(info).empty());
    info = twoTracks();
    info.channelName.assign(1'025, 'x');
    EXPECT_TRUE(vav::encodeStreamInfo(info).empty());
}
