#include "BoxWriter.h"
#include "ClockText.h"
#include "FolderTest.h"
#include "FragmentFormat.h"
#include "FragmentScanner.h"
#include "GrowingFile.h"
#include "Mp4Finalizer.h"
#include "Mp4Reader.h"
#include "Mp4Repair.h"
#include "SmallDisk.h"
#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace vaws;
using testing::HasSubstr;

const MovieTags tags{"Gate", "Recorder 1"};

class Repair : public FolderTest
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

TEST(Journal, isReadOnlyWhereAllIsThereThatARepairNeeds)
{
    const std::string whole =
        R"("version":1,"task":"t","path":"/v/a.mp4","token":7,"volume":1,"file":2,"asked_begin":-5,"asked_end":6,)"
        R"("channel":"Gate","recorder":"NVR")";
    const auto without = [&](const std::string& part) {
        std::string text = whole;
        text.erase(text.find(part), part.size());
        return '{' + text + '}';
    };
    struct Row
    {
        std::string text;
        bool readable;
    };
    for (const Row& row :
         {Row{'{' + whole + '}', true}, Row{'{' + whole + R"(,"whole_seconds":true})", true},
          Row{'{' + whole + R"(,"of a newer one":5,"and":"more","even":false})", true},
          Row{'{' + whole + "}\n{\"volume\":3,\"file\":[]}\n", true}, Row{without(R"("token":7,)"), false},
          Row{without(R"("path":"/v/a.mp4",)"), false}, Row{without("/v/a.mp4"), false},
          Row{without(R"(,"recorder":"NVR")") + "}", false}, Row{'{' + whole + R"(,"version":2})", false},
          Row{'{' + whole + R"(,"x":null})", false}, Row{'{' + whole + R"(,"x":1.5})", false},
          Row{'{' + whole + R"(,"x":[]})", false}, Row{'{' + whole + R"(,"x":{"token":8}})", false},
          Row{"[{" + whole + "}]", false}, Row{'{' + whole, false}, Row{"7", false}, Row{"", false}}) {
        JournalEntry entry;
        ASSERT_EQ(TaskJournal::parse(row.text, entry), row.readable) << row.text;
        if (row.readable) {
            EXPECT_EQ(entry.path, "/v/a.mp4");
            EXPECT_EQ(entry.token, 7u);
            EXPECT_EQ(entry.askedBeginNs, -5);
            EXPECT_EQ(entry.identity, (FileIdentity{1, 2})) << "half an identity is none";
        }
    }
}

TEST_F(Repair, passesOverWhatIsNoJournalAndTellsOneThatIsDamaged)
{
    const std::filesystem::path journals = folder / "journals";
    std::filesystem::create_directories(journals / "folder.vjournal");
    saveBytes(journals / "notes.txt", {'x'});
    saveBytes(journals / "0000000000000007.vjournal.part", {'{'}); // cut before it got its name
    saveBytes(journals / "0000000000000008.vjournal", {'{'});
    std::vector<TaskJournal::Left> found = TaskJournal::leftIn(journals);
    ASSERT_EQ(found.size(), 1u);
    const RepairRecord record = Mp4Repair::repair(found.front());
    EXPECT_EQ(record.outcome, RepairOutcome::Failed);
    EXPECT_THAT(record.error, HasSubstr("0000000000000008.vjournal\" cannot be read"));
    EXPECT_FALSE(journalsLeft()) << "it is told once";
    EXPECT_TRUE(std::filesystem::exists(journals / "notes.txt") &&
                std::filesystem::exists(journals / "folder.vjournal"));
    EXPECT_FALSE(std::filesystem::exists(journals / "0000000000000007.vjournal.part"));
}

TEST_F(Repair, tellsWhatBecameOfAFileThatItCannotOpen)
{
    saveBytes(path("file"), {'x'});
    std::filesystem::create_directories(path("folder.mp4"));
    std::filesystem::create_symlink(path("file"), path("link.mp4"));
    struct Row
    {
        std::string name;
        RepairOutcome outcome;
        const char* said;
    };
    for (const Row& row : {Row{"gone.mp4", RepairOutcome::Kept, "not there any more"},
                           Row{"folder.mp4", RepairOutcome::Kept, "not there any more"},
                           Row{"link.mp4", RepairOutcome::Kept, "not there any more"},
                           Row{"file/below.mp4", RepairOutcome::Kept, "not there any more"},
                           Row{std::string(300, 'x') + ".mp4", RepairOutcome::Failed, "could not be opened"}}) {
        TaskJournal::Left journal = left("out.mp4", {'x'}, 7, false);
        journal.entry.path = path(row.name);
        const RepairRecord record = Mp4Repair::repair(journal);
        EXPECT_EQ(record.outcome, row.outcome) << row.name << ": " << record.error;
        EXPECT_THAT(record.error, HasSubstr(row.said));
        EXPECT_EQ(journalsLeft(), row.outcome == RepairOutcome::Failed) << row.name;
    }
    EXPECT_TRUE(std::filesystem::is_symlink(path("link.mp4")) && std::filesystem::is_directory(path("folder.mp4")));
}

TEST_F(Repair, leavesAnEmptyFileThatStoodThereBeforeTheJournal)
{
    saveBytes(path("out.mp4"), {});
    if (birthTimeNs(path("out.mp4")) == 0)
        GTEST_SKIP() << "the file system does not tell when a file came to be";
    do { // until its clock has moved on
        std::filesystem::remove(path("later"));
        saveBytes(path("later"), {});
    } while (birthTimeNs(path("later")) <= birthTimeNs(path("out.mp4")));
    TaskJournal::Left journal = left("out.mp4", {}, 7, false);
    EXPECT_EQ(Mp4Repair::repair(journal).outcome, RepairOutcome::Kept);
    EXPECT_TRUE(std::filesystem::exists(path("out.mp4")));
}

TEST_F(Repair, waitsForRoomAndThenGoesOn)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    const GrowingFile growing(source);
    for (const bool switched : {false, true}) {
        MemoryFile file = growing.file;
        if (switched) {
            std::uint8_t word[8];
            put32(word, 1);
            put32(word + 4, fourcc("mdat"));
            file.writeAt(switchOffset, word, sizeof word); // a header that is switched without an index behind
        }
        TaskJournal::Left journal = left("out.mp4", file.bytes, growing.plan->header.token);
        for (const std::uint64_t room :
             {std::uint64_t{switchOffset}, growing.fragmentsEnd, growing.fragmentsEnd + 512}) {
            const SmallDisk disk(room);
            const RepairRecord record = Mp4Repair::repair(journal);
            EXPECT_EQ(record.outcome, RepairOutcome::Failed) << room;
            EXPECT_THAT(record.error, HasSubstr("could not be repaired: File too large"));
            EXPECT_TRUE(journalsLeft());
        }
        EXPECT_EQ(ffmpegPacketMd5(path("out.mp4"), 0), source.payloadMd5(0)) << "it plays meanwhile";
        EXPECT_EQ(Mp4Repair::repair(journal).outcome, RepairOutcome::Repaired);
        EXPECT_EQ(ffmpegPacketMd5(path("out.mp4"), 0), source.payloadMd5(0));
        EXPECT_FALSE(journalsLeft());
    }
}

TEST_F(Repair, endsASpanThatIsNotWholeOnAWholeSecond)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    const GrowingFile growing(source);
    for (const bool anySecond : {true, false}) {
        std::vector<std::uint8_t> bytes = growing.file.bytes;
        if (!anySecond)
            bytes.resize(static_cast<std::size_t>(growing.fragments[1].offset));
        TaskJournal::Left journal = left("out.mp4", bytes, growing.plan->header.token);
        journal.entry.wholeSeconds = true;
        journal.entry.askedBeginNs = source.beginNs();
        journal.entry.askedEndNs = source.beginNs() + 3600 * nsPerSecond;
        const RepairRecord record = Mp4Repair::repair(journal);
        EXPECT_EQ(record.outcome, anySecond ? RepairOutcome::Repaired : RepairOutcome::EmptyRemoved) << record.error;
        EXPECT_EQ(std::filesystem::exists(path("out.mp4")), anySecond);
        if (anySecond) {
            EXPECT_EQ(record.endNs, source.beginNs() + 8 * nsPerSecond);
        }
        EXPECT_EQ(std::string(repairOutcomeText(record.outcome)), anySecond ? "repaired" : "empty removed");
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
