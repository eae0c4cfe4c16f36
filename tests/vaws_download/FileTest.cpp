#include "BoxWriter.h"
#include "ClockText.h"
#include "FragmentFormat.h"
#include "FragmentScanner.h"
#include "GrowingFile.h"
#include "Mp4Finalizer.h"
#include "Mp4Reader.h"
#include "Mp4Repair.h"
#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace {

using namespace vaws;
using testing::HasSubstr;
using testing::IsEmpty;

const MovieTags tags{"Gate", "Recorder 1"};

/// A folder that goes with the test.
class File : public testing::Test
{
protected:
    File()
        : folder(std::filesystem::temp_directory_path() / ("vaws-file-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(folder);
    }
    ~File() override { std::filesystem::remove_all(folder); }

    std::string path(const std::string& name) const { return (folder / name).string(); }

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

    std::filesystem::path folder;
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

class Repair : public File
{
protected:
    /// A journal beside a file with these bytes, as a crash leaves them.
    TaskJournal::Left left(const std::string& name, const std::vector<std::uint8_t>& bytes, std::uint64_t token,
                           bool withIdentity = true)
    {
        saveBytes(path(name), bytes);
        JournalEntry entry;
        entry.task = "t";
        entry.path = path(name);
        entry.token = token;
        entry.channelName = tags.channelName;
        entry.deviceName = tags.deviceName;
        if (withIdentity)
            entry.identity = identityOf(path(name));
        TaskJournal journal(folder / "journals", token);
        std::filesystem::create_directories(folder / "journals");
        EXPECT_EQ(journal.write(entry), 0);
        std::vector<TaskJournal::Left> found = TaskJournal::leftIn(folder / "journals");
        EXPECT_EQ(found.size(), 1u);
        return found.front();
    }
    bool journalsLeft() const { return !TaskJournal::leftIn(folder / "journals").empty(); }
};

TEST_F(Repair, finishesAFileThatACrashLeftAndTwiceIsOnce)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    TaskJournal::Left journal = left("out.mp4", growing.file.bytes, growing.plan->header.token);
    const RepairRecord record = Mp4Repair::repair(journal);
    EXPECT_EQ(record.outcome, RepairOutcome::Repaired) << record.error;
    EXPECT_EQ(record.endNs, growing.assembly.endNs());
    EXPECT_FALSE(journalsLeft());
    EXPECT_EQ(ffmpegPacketMd5(path("out.mp4"), 0), source.payloadMd5(0));
    EXPECT_EQ(probe(path("out.mp4"), "-show_entries format_tags=title"), "Gate");
    TaskJournal::Left again = journal;
    EXPECT_EQ(Mp4Repair::repair(again).outcome, RepairOutcome::Kept);
}

TEST_F(Repair, rebuildsAFileWhoseIndexAPowerCutTook)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    IndexPlace place;
    Mp4Finalizer::finish(growing.file, growing.fragmentsEnd, growing.assembly.movie(), SyncOrder::Afterwards, place);
    growing.file.bytes.resize(static_cast<std::size_t>(place.offset + place.bytes / 2));
    TaskJournal::Left journal = left("out.mp4", growing.file.bytes, growing.plan->header.token);
    EXPECT_EQ(Mp4Repair::repair(journal).outcome, RepairOutcome::Repaired);
    EXPECT_EQ(ffmpegPacketMd5(path("out.mp4"), 0), source.payloadMd5(0));
}

TEST_F(Repair, findsTheFileUnderAnotherNameInItsFolder)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    TaskJournal::Left journal = left("out.mp4", growing.file.bytes, growing.plan->header.token);
    std::filesystem::rename(path("out.mp4"), path("renamed.mp4"));
    const RepairRecord record = Mp4Repair::repair(journal);
    EXPECT_EQ(record.outcome, RepairOutcome::Repaired);
    EXPECT_EQ(record.path, path("renamed.mp4"));
}

TEST_F(Repair, neverTouchesAFileThatIsNotItsOwn)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    GrowingFile other(source);
    const std::uint64_t token = growing.plan->header.token;
    struct Row
    {
        const char* name;
        std::vector<std::uint8_t> stranger;
        bool withIdentity;
    };
    const std::vector<std::uint8_t> text(10'000, 'x');
    for (const Row& row :
         {Row{"another recording at the same path", other.file.bytes, true}, Row{"some other file", text, true},
          Row{"a short one", std::vector<std::uint8_t>(10, 'x'), true}, Row{"made before we did", text, false},
          Row{"empty", {}, true}}) {
        TaskJournal::Left journal = left("out.mp4", growing.file.bytes, token, row.withIdentity);
        std::filesystem::rename(path("out.mp4"), folder / "journals" / "away"); // so that its file number stays taken
        saveBytes(path("out.mp4"), row.stranger);
        const RepairRecord record = Mp4Repair::repair(journal);
        EXPECT_EQ(record.outcome, RepairOutcome::Kept) << row.name << ": " << record.error;
        GrowingFile check = growing;
        std::vector<std::uint8_t> now(static_cast<std::size_t>(std::filesystem::file_size(path("out.mp4"))));
        std::unique_ptr<DirectFile> file;
        ASSERT_EQ(DirectFile::open(path("out.mp4"), true, file), 0);
        std::size_t got = 0;
        file->readAt(0, now.data(), now.size(), got);
        EXPECT_EQ(now, row.stranger) << row.name;
        std::filesystem::remove(path("out.mp4"));
        std::filesystem::remove(folder / "journals" / "away");
        EXPECT_FALSE(journalsLeft());
    }
}

TEST_F(Repair, removesItsOwnFileWhenItHoldsNothing)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    const GrowingFile growing(source);
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{100}, std::size_t{4096}, static_cast<std::size_t>(growing.fragments[0].offset)}) {
        std::vector<std::uint8_t> bytes = growing.file.bytes;
        bytes.resize(length);
        TaskJournal::Left journal = left("out.mp4", bytes, growing.plan->header.token);
        const RepairRecord record = Mp4Repair::repair(journal);
        EXPECT_EQ(record.outcome, RepairOutcome::EmptyRemoved) << length << ": " << record.error;
        EXPECT_FALSE(std::filesystem::exists(path("out.mp4")));
        EXPECT_FALSE(journalsLeft());
    }
}

TEST_F(Repair, removesZerosThatAPowerCutLeftOfAFileMadeJustBehindItsJournal)
{
    TaskJournal::Left journal = left("out.mp4", {}, 7, false);
    std::filesystem::remove(path("out.mp4"));
    saveBytes(path("out.mp4"), std::vector<std::uint8_t>(10'000, 0));
    const RepairRecord record = Mp4Repair::repair(journal);
    EXPECT_EQ(record.outcome, RepairOutcome::EmptyRemoved) << record.error;
    EXPECT_EQ(record.bytes, 0u);
    EXPECT_FALSE(std::filesystem::exists(path("out.mp4")));
}

TEST_F(Repair, readsAJournalWhoseAddedIdentityAPowerCutTore)
{
    JournalEntry entry;
    entry.path = path("out.mp4");
    entry.token = 7;
    std::filesystem::create_directories(folder / "journals");
    TaskJournal journal(folder / "journals", entry.token);
    ASSERT_EQ(journal.write(entry), 0);
    const auto firstLine = std::filesystem::file_size(journal.path());
    ASSERT_EQ(journal.addIdentity({3, 4}), 0);
    for (auto length = std::filesystem::file_size(journal.path()); length >= firstLine; --length) {
        std::filesystem::resize_file(journal.path(), length);
        const std::vector<TaskJournal::Left> found = TaskJournal::leftIn(folder / "journals");
        ASSERT_TRUE(found.size() == 1 && found[0].readable) << length;
        EXPECT_EQ(found[0].entry.path, entry.path);
        EXPECT_TRUE(!found[0].entry.identity.known() || found[0].entry.identity == (FileIdentity{3, 4})) << length;
    }
}

TEST_F(Repair, goesOnAfterACrashOfItsOwnAtAnyStep)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    GrowingFile growing(source);
    growing.file.bytes.resize(growing.file.bytes.size() - 5000);
    ScanResult first = FragmentScanner(growing.file).scan(tags);
    const std::uint64_t pictures = first.assembly.pictures();
    const Movie movie = first.assembly.movie();
    const std::uint64_t indexBytes =
        BoxWriter::serialize(nullptr, [&](BoxWriter& out) { MovieWriter::movie(out, movie, false); });
    for (const std::uint64_t limit : {std::uint64_t{1}, indexBytes / 3, indexBytes, indexBytes + 5, indexBytes + 8,
                                      indexBytes + 12, indexBytes + 15}) {
        MemoryFile file = growing.file;
        file.writeLimit = static_cast<std::size_t>(limit);
        IndexPlace place;
        Mp4Finalizer::finish(file, first.fragmentsEnd, movie, SyncOrder::EveryStep, place);
        file.writeLimit = SIZE_MAX;
        ScanResult second = FragmentScanner(file).scan(tags);
        EXPECT_EQ(second.assembly.pictures(), pictures);
        if (second.state == FileState::Broken) {
            EXPECT_EQ(Mp4Finalizer::revert(file), 0);
        }
        if (second.state != FileState::Finished) {
            EXPECT_EQ(
                Mp4Finalizer::finish(file, second.fragmentsEnd, second.assembly.movie(), SyncOrder::EveryStep, place),
                0);
        }
        EXPECT_TRUE(Mp4Reader(file).readIndex()) << "second crash after " << limit << " bytes";
    }
}

} // namespace
