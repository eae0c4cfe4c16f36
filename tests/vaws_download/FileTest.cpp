#include "BoxWriter.h"
#include "ClockText.h"
#include "FolderTest.h"
#include "FragmentFormat.h"
#include "FragmentScanner.h"
#include "GrowingFile.h"
#include "Mp4Finalizer.h"
#include "Mp4Reader.h"
#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <functional>
#include <random>

namespace {

using namespace vaws;
using testing::HasSubstr;
using testing::IsEmpty;

const MovieTags tags{"Gate", "Recorder 1"};

class File : public FolderTest
{
protected:
    /// Both independent players open the file and find its picture track.
    void expectOpens(const std::string& file, const std::string& when) const
    {
        EXPECT_EQ(probe(file, "-show_entries stream=codec_name"), "h264\naac") << "ffmpeg, " << when;
        int code = 0;
        const std::string text = shellOutput(
            "gst-launch-1.0 -q filesrc location='" + file +
                "' ! qtdemux name=d d.video_0 ! queue ! fakesink num-buffers=5 sync=false d.audio_0 ! queue ! "
                "fakesink sync=false 2>&1",
            &code);
        EXPECT_EQ(code, 0) << "GStreamer, " << when << ": " << text;
    }
};

bool isPrefix(const std::vector<std::string>& part, const std::vector<std::string>& whole)
{
    return part.size() <= whole.size() && std::equal(part.begin(), part.end(), whole.begin());
}

TEST_F(File, playsAfterEveryPrefixOfEveryStepOfFinishing)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    const Movie movie = growing.assembly.movie();
    const std::uint64_t indexBytes =
        BoxWriter::serialize(nullptr, [&](BoxWriter& out) { MovieWriter::movie(out, movie, false); });
    // Torn inside the index at a few places, then at every byte of the two words that follow it.
    std::vector<std::size_t> limits = {
        0, 1, 7, 8, 100, 4096, static_cast<std::size_t>(indexBytes) / 2, static_cast<std::size_t>(indexBytes) - 1};
    for (std::size_t tail = 0; tail <= 16; ++tail)
        limits.push_back(static_cast<std::size_t>(indexBytes) + tail);
    for (const std::size_t limit : limits) {
        GrowingFile copy = growing;
        copy.file.writeLimit = limit;
        IndexPlace place;
        ASSERT_EQ(Mp4Finalizer::finish(copy.file, copy.fragmentsEnd, movie, SyncOrder::EveryStep, place), 0);
        const std::string name = path("torn.mp4");
        saveBytes(name, copy.file.bytes);
        const std::string when = "torn after " + std::to_string(limit) + " bytes of " + std::to_string(indexBytes + 16);
        expectOpens(name, when);
        EXPECT_EQ(ffmpegPacketMd5(name, 0), source.payloadMd5(0)) << when;
        EXPECT_EQ(Mp4Reader(copy.file).readIndex(), limit == indexBytes + 16) << when;

        copy.file.writeLimit = SIZE_MAX;
        ScanResult scan = FragmentScanner(copy.file).scan(tags);
        ASSERT_NE(scan.state, FileState::Unknown) << when;
        EXPECT_EQ(scan.assembly.samples(), growing.assembly.samples()) << when;
        EXPECT_EQ(scan.fragmentsEnd, growing.fragmentsEnd) << when;
    }
}

TEST_F(File, isScannedBackAsItWasWritten)
{
    ClipSource::Options options;
    options.seconds = 24;
    ClipSource source(TaskDriver::clip("h264_aac"), options);
    auto& frames = source.frames();
    const std::int64_t from = source.beginNs() + 8 * nsPerSecond;
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                                [&](const ClipSource::Frame& frame) {
                                    return frame.header.timeNs >= from && frame.header.timeNs < from + 8 * nsPerSecond;
                                }),
                 frames.end());
    AssemblyRequest request;
    request.beginNs = source.beginNs() + nsPerSecond;
    request.clockTrack = true;
    GrowingFile growing(source, 16 * 1024, request);
    ScanResult scan = FragmentScanner(growing.file).scan(tags);
    ASSERT_EQ(scan.state, FileState::Growing);
    const auto index = [](const MovieAssembly& assembly) {
        const Movie movie = assembly.movie();
        return BoxWriter::toBytes([&](BoxWriter& out) { MovieWriter::movie(out, movie, false); });
    };
    EXPECT_EQ(index(scan.assembly), index(growing.assembly)) << "the repair makes another index than the writer";
    EXPECT_EQ(scan.assembly.timeline().gaps().size(), 1u);
    EXPECT_EQ(scan.assembly.beginNs(), source.beginNs() + nsPerSecond);
}

TEST_F(File, keepsWholeFragmentsOfAFileThatIsCutAnywhere)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    const GrowingFile growing(source);
    std::mt19937 random(20260110);
    const std::vector<std::string> video = source.payloadMd5(0);
    const std::vector<std::string> sound = source.payloadMd5(1);
    for (int round = 0; round < 40; ++round) {
        MemoryFile file = growing.file;
        file.bytes.resize(random() % file.bytes.size());
        const std::size_t length = file.bytes.size();
        ScanResult scan = FragmentScanner(file).scan(tags);
        std::uint64_t whole = 0;
        for (const FragmentInfo& fragment : growing.fragments)
            whole += fragment.offset + fragment.bytes <= length ? fragment.runs.front().samples.size() : 0;
        EXPECT_EQ(scan.assembly.pictures(), whole) << "cut at " << length;
        if (whole == 0 || round % 4 != 0)
            continue;
        IndexPlace place;
        ASSERT_EQ(Mp4Finalizer::finish(file, scan.fragmentsEnd, scan.assembly.movie(), SyncOrder::EveryStep, place), 0);
        EXPECT_TRUE(Mp4Reader(file).readIndex());
        const std::string name = path("cut.mp4");
        saveBytes(name, file.bytes);
        EXPECT_TRUE(isPrefix(ffmpegPacketMd5(name, 0), video)) << "cut at " << length;
        EXPECT_TRUE(isPrefix(ffmpegPacketMd5(name, 1), sound)) << "cut at " << length;
        EXPECT_EQ(ffmpegPacketMd5(name, 0).size(), whole);
        EXPECT_THAT(decodeErrors(name), IsEmpty());
    }
}

TEST_F(File, doesNotBelieveDataThatAPowerCutLeftOut)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    const GrowingFile growing(source);
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        MemoryFile file = growing.file;
        // One sector behind the header never came to the disk.
        const std::size_t sector = 8192 + random() % (file.bytes.size() - 8192) / 512 * 512;
        const std::size_t end = std::min(file.bytes.size(), sector + 512);
        if (std::all_of(file.bytes.begin() + static_cast<std::ptrdiff_t>(sector),
                        file.bytes.begin() + static_cast<std::ptrdiff_t>(end),
                        [](std::uint8_t byte) { return byte == 0; }))
            continue;
        std::fill(file.bytes.begin() + static_cast<std::ptrdiff_t>(sector),
                  file.bytes.begin() + static_cast<std::ptrdiff_t>(end), std::uint8_t{0});
        std::uint64_t whole = 0;
        for (const FragmentInfo& fragment : growing.fragments) {
            const std::uint64_t used = fragment.offset + blockBytes + fragment.record.dataBytes;
            const bool hit = sector < used && end > fragment.offset;
            if (hit)
                break;
            whole += fragment.runs.front().samples.size();
        }
        EXPECT_EQ(FragmentScanner(file).scan(tags).assembly.pictures(), whole) << "sector at " << sector;
    }
}

TEST_F(File, keepsAllThatItHoldsWhateverCallOfTheDiskFails)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    const GrowingFile growing(source, 256 * 1024);
    const Movie movie = growing.assembly.movie();
    IndexPlace place;
    MemoryFile whole = growing.file;
    ASSERT_EQ(Mp4Finalizer::finish(whole, growing.fragmentsEnd, movie, SyncOrder::EveryStep, place), 0);
    std::size_t finishing = 0;
    for (;; ++finishing) {
        MemoryFile file = growing.file;
        file.bytes.resize(file.bytes.size() + 100); // the beginning of a fragment that never came whole
        file.goodCalls = finishing;
        IndexPlace reached;
        const int error = Mp4Finalizer::finish(file, growing.fragmentsEnd, movie, SyncOrder::EveryStep, reached);
        file.goodCalls = SIZE_MAX;
        EXPECT_EQ(FragmentScanner(file).scan(tags).assembly.pictures(), growing.assembly.pictures()) << finishing;
        if (error == 0)
            break;
        EXPECT_EQ(error, EIO) << finishing;
    }
    EXPECT_GE(finishing, 8u) << "length, cut, index and two words, each with its sync";
    for (std::size_t calls = 0;; ++calls) {
        MemoryFile file = whole;
        file.goodCalls = calls;
        Mp4Reader reader(file);
        if (reader.agrees(movie, place))
            break;
        EXPECT_THAT(reader.problem(), HasSubstr("could not be read back")) << calls;
        file.goodCalls = calls;
        const ScanResult scan = FragmentScanner(file).scan(tags);
        EXPECT_TRUE(scan.error == EIO || scan.assembly.pictures() <= growing.assembly.pictures()) << calls;
        ASSERT_LT(calls, 10'000u);
    }
    MemoryFile file = whole;
    file.goodCalls = 0;
    EXPECT_EQ(Mp4Finalizer::revert(file), EIO);
}

/// Where a box of this type begins behind `from`.
std::size_t boxAt(const std::vector<std::uint8_t>& bytes, const char* type, std::size_t from = 0)
{
    const auto found = std::search(bytes.begin() + static_cast<std::ptrdiff_t>(from), bytes.end(), type, type + 4);
    EXPECT_NE(found, bytes.end()) << type;
    return static_cast<std::size_t>(found - bytes.begin()) - 4;
}

/// A box of ones that only nest.
std::vector<std::uint8_t> nested(const char* type, std::size_t depth)
{
    std::vector<std::uint8_t> bytes(depth * 8);
    for (std::size_t i = 0; i < depth; ++i) {
        put32(bytes.data() + i * 8, static_cast<std::uint32_t>((depth - i) * 8));
        std::copy_n(type, 4, bytes.begin() + static_cast<std::ptrdiff_t>(i * 8 + 4));
    }
    return bytes;
}

TEST_F(File, refusesAnIndexThatContradictsItselfAndSaysHow)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    const Movie movie = growing.assembly.movie();
    IndexPlace place;
    ASSERT_EQ(Mp4Finalizer::finish(growing.file, growing.fragmentsEnd, movie, SyncOrder::Afterwards, place), 0);
    const auto index = static_cast<std::size_t>(place.offset);
    using Bytes = std::vector<std::uint8_t>;
    /// Adds to the number that stands so far behind the beginning of a box of the index.
    const auto add = [index](const char* type, std::size_t behind, std::uint32_t value) {
        return [=](Bytes& bytes) {
            std::uint8_t* at = bytes.data() + boxAt(bytes, type, index) + behind;
            put32(at, get32(at) + value);
        };
    };
    /// Puts something in place of the index's content.
    const auto fill = [index](const Bytes& content) {
        return [=](Bytes& bytes) {
            bytes.resize(index + 8);
            put32(bytes.data() + index, static_cast<std::uint32_t>(8 + content.size()));
            bytes.insert(bytes.end(), content.begin(), content.end());
        };
    };
    Bytes manyTracks;
    for (int i = 0; i < 9; ++i) {
        const std::size_t trak = boxAt(growing.file.bytes, "trak", index);
        manyTracks.insert(manyTracks.end(), growing.file.bytes.begin() + static_cast<std::ptrdiff_t>(trak),
                          growing.file.bytes.begin() +
                              static_cast<std::ptrdiff_t>(trak + get32(growing.file.bytes.data() + trak)));
    }
    struct Row
    {
        const char* name;
        std::function<void(Bytes&)> change;
        const char* problem;
    };
    const Row rows[] = {
        {"nothing", [](Bytes& bytes) { bytes.clear(); }, "is cut"},
        {"a beginning alone", [](Bytes& bytes) { bytes.resize(switchOffset); }, "is cut"},
        {"long form cut", [](Bytes& bytes) { bytes.resize(switchOffset + 12); }, "is cut"},
        {"no index", [=](Bytes& bytes) { bytes.resize(index); }, "is cut"},
        {"index cut", [](Bytes& bytes) { bytes.resize(bytes.size() - 4096); }, "wrong length"},
        {"bytes behind the index", [](Bytes& bytes) { bytes.resize(bytes.size() + 8); }, "does not consist"},
        {"another type", [](Bytes& bytes) { bytes[4] = 'x'; }, "does not consist"},
        {"a box of no length", add("mvhd", 0, 0u - 108), "wrong length"},
        {"a box beyond its parent", add("trak", 0, 1u << 30), "wrong length"},
        {"half a box", fill({0, 0, 0}), "is cut"},
        {"half a long box", fill({0, 0, 0, 1, 'f', 'r', 'e', 'e'}), "is cut"},
        {"a long box without end",
         fill({0, 0, 0, 1, 'f', 'r', 'e', 'e', 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff}), "wrong length"},
        {"boxes in boxes", fill(nested("mdia", 1000)), "nested too deeply"},
        {"tracks in tracks", fill(nested("trak", 1000)), "nested too deeply"},
        {"nine tracks", fill(manyTracks), "a track that can't be read"},
        {"a track of nothing", fill(nested("trak", 1)), "contradict"},
        {"another form of header", add("mvhd", 8, 0xff000000), "unknown version"},
        {"a table that is too long", add("stts", 12, 1), "table of the index has a wrong length"},
        {"one time too many", add("stts", 16, 1), "contradict"},
        {"one offset too many", add("ctts", 16, 1), "contradict"},
        {"one sample a chunk more", add("stsc", 20, 1), "contradict"},
        {"chunks out of order", add("stsc", 16, 1000), "contradict"},
        {"a sample as long as the file", add("stsz", 20, 1u << 30), "contradict"},
        {"a chunk in front of the data", add("stco", 16, 0x80000000), "contradict"},
    };
    for (const Row& row : rows) {
        MemoryFile file = growing.file;
        row.change(file.bytes);
        Mp4Reader reader(file);
        EXPECT_FALSE(reader.readIndex()) << row.name;
        EXPECT_THAT(reader.problem(), HasSubstr(row.problem)) << row.name;
    }
    const Row lies[] = {{"a length that was not written", add("mvhd", 36, 1), "does not say what was written"},
                        {"bytes that a power cut left out",
                         [](Bytes& bytes) { std::fill(bytes.end() - 64, bytes.end(), std::uint8_t{9}); },
                         "is not the one that was written"}};
    for (const Row& row : lies) {
        MemoryFile file = growing.file;
        row.change(file.bytes);
        Mp4Reader reader(file);
        EXPECT_TRUE(reader.readIndex()) << row.name << ": " << reader.problem();
        EXPECT_FALSE(reader.agrees(movie, place)) << row.name;
        EXPECT_THAT(reader.problem(), HasSubstr(row.problem)) << row.name;
    }
}

/// Makes the checksums of a fragment's first block right again, after somebody changed its `moof`.
void seal(std::uint8_t* block)
{
    constexpr std::size_t recordBytes = 60;
    const std::uint32_t moofBytes = get32(block);
    std::uint8_t* record = block + moofBytes + 8;
    put32(block + moofBytes, static_cast<std::uint32_t>(blockBytes - mdatHeaderBytes - moofBytes));
    put32(block + moofBytes + 4, fourcc("free"));
    put32(record + 4, moofBytes);
    put32(record + 8, checksum(block, moofBytes));
    put32(record + recordBytes - 4, checksum(record, recordBytes - 4));
}

TEST_F(File, endsAtAFragmentThatClaimsWhatCannotBeHoweverWellItIsSealed)
{
    const ClipSource source(TaskDriver::clip("h264_plain"));
    const GrowingFile growing(source);
    const FragmentInfo& second = growing.fragments[1];
    const std::uint64_t before = growing.fragments[0].runs.front().samples.size();
    using Block = std::vector<std::uint8_t>;
    const auto put = [](const char* type, std::size_t behind, std::uint32_t value) {
        return [=](Block& block) { put32(block.data() + boxAt(block, type) + behind, value); };
    };
    /// Another box at the end of the track fragment.
    const auto append = [](const Block& box) {
        return [=](Block& block) {
            const std::size_t moofBytes = get32(block.data());
            const std::size_t traf = boxAt(block, "traf");
            block.insert(block.begin() + static_cast<std::ptrdiff_t>(moofBytes), box.begin(), box.end());
            block.erase(block.end() - static_cast<std::ptrdiff_t>(mdatHeaderBytes + box.size()),
                        block.end() - static_cast<std::ptrdiff_t>(mdatHeaderBytes));
            put32(block.data(), static_cast<std::uint32_t>(moofBytes + box.size()));
            put32(block.data() + traf, static_cast<std::uint32_t>(get32(block.data() + traf) + box.size()));
        };
    };
    struct Row
    {
        const char* name;
        std::function<void(Block&)> change;
    };
    const Row rows[] = {
        {"a track that is not there", put("tfhd", 12, 9)},
        {"a second track that is not there", append({0, 0, 0, 16, 't', 'f', 'h', 'd', 0, 2, 0, 0, 0x7f, 0, 0, 0})},
        {"a box that is cut", append({0, 0, 0, 9, 't', 'f', 'd', 't', 1})},
        {"a box beyond its parent", append({0, 0, 1, 0, 'f', 'r', 'e', 'e'})},
        {"samples of another form", put("trun", 8, 0x01000301)},
        {"no sample", put("trun", 12, 0)},
        {"more samples than a fragment has", put("trun", 12, 5000)},
        {"samples beyond its data", put("trun", 24, 1u << 24)},
        {"samples before its data", put("trun", 16, 0)},
        {"a time before zero", put("tfdt", 12, 0xffffffff)},
        {"a time long ago", [&](Block& block) { put32(block.data() + boxAt(block, "tfdt") + 16, 0); }},
        {"no track", [](Block& block) { block[boxAt(block, "traf") + 4] = 'x'; }},
    };
    for (const Row& row : rows) {
        MemoryFile file = growing.file;
        const auto at = file.bytes.begin() + static_cast<std::ptrdiff_t>(second.offset);
        Block block(at, at + static_cast<std::ptrdiff_t>(blockBytes));
        const std::size_t moofBytes = get32(block.data());
        const Block record(block.begin() + static_cast<std::ptrdiff_t>(moofBytes),
                           block.begin() + static_cast<std::ptrdiff_t>(moofBytes + 8 + 60));
        row.change(block);
        ASSERT_EQ(block.size(), blockBytes);
        std::copy(record.begin(), record.end(), block.begin() + get32(block.data()));
        seal(block.data());
        std::copy(block.begin(), block.end(), at);
        EXPECT_EQ(FragmentScanner(file).scan(tags).assembly.pictures(), before) << row.name;
    }
}

TEST_F(File, takesNoHeaderForItsOwnThatIsNot)
{
    const ClipSource source(TaskDriver::clip("h264_plain"));
    const GrowingFile growing(source);
    using Bytes = std::vector<std::uint8_t>;
    const auto put = [](const char* type, std::size_t behind, std::uint32_t value) {
        return [=](Bytes& bytes) { put32(bytes.data() + boxAt(bytes, type, switchOffset) + behind, value); };
    };
    const Bytes deep = nested("mdia", 120'000);
    struct Row
    {
        const char* name;
        std::function<void(Bytes&)> change;
    };
    const Row rows[] = {
        {"another beginning", [](Bytes& bytes) { bytes[7] = 'x'; }},
        {"a switch half thrown", put("free", 0, 17)},
        {"no movie", put("moov", 4, fourcc("skip"))},
        {"a track numbered otherwise", put("tkhd", 28, 2)},
        {"a track without time", put("mdhd", 28, 0)},
        {"a track cut", put("mdhd", 0, 1u << 20)},
        {"a part of a track cut", [](Bytes& bytes) { bytes[boxAt(bytes, "tkhd") + 3] = 20; }},
        {"no track", put("trak", 4, fourcc("skip"))},
        {"a damaged record", [](Bytes& bytes) { bytes[boxAt(bytes, "VHDR") + 12] ^= 1; }},
        {"tracks in tracks without end",
         [&](Bytes& bytes) {
             const std::size_t moov = boxAt(bytes, "moov");
             const std::size_t trak = boxAt(bytes, "trak");
             const std::size_t grown = roundUpToBlock(deep.size());
             Bytes more = deep;
             more.resize(grown);
             put32(more.data() + deep.size(), static_cast<std::uint32_t>(grown - deep.size()));
             bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(trak + 8), more.begin(), more.end());
             for (const std::size_t box : {moov, trak})
                 put32(bytes.data() + box, static_cast<std::uint32_t>(get32(bytes.data() + box) + grown));
         }},
    };
    ASSERT_NE(deep.size() % blockBytes, 0u);
    for (const Row& row : rows) {
        MemoryFile file = growing.file;
        row.change(file.bytes);
        EXPECT_EQ(FragmentScanner(file).scan(tags).state, FileState::Unknown) << row.name;
    }
}

} // namespace
