#include "Mp4Repair.h"

#include "ClockText.h"
#include "FragmentScanner.h"
#include "Mp4Finalizer.h"
#include "Mp4Reader.h"

#include <algorithm>
#include <cerrno>

namespace vaws {
namespace {

constexpr std::int64_t creationWindowNs = 10 * nsPerSecond;

/// An output that was made just behind its journal and has no byte yet: nothing but that tells it from a stranger's.
bool madeWithJournal(const std::filesystem::path& output, const std::filesystem::path& journal)
{
    const std::int64_t distance = birthTimeNs(output) - birthTimeNs(journal);
    return distance >= 0 && distance < creationWindowNs;
}

/// The first block never came to the disk whole: still zeros after a power cut, or cut, which only a file that is known
/// to be ours may be taken for.
bool beginsEmpty(MediaFile& file, bool mayBeCut)
{
    std::vector<std::uint8_t> block(blockBytes);
    std::size_t got = 0;
    if (file.readAt(0, block.data(), block.size(), got) != 0)
        return false;
    return (mayBeCut && got < block.size()) ||
           std::all_of(block.begin(), block.end(), [](std::uint8_t byte) { return byte == 0; });
}

std::filesystem::path findOutput(const JournalEntry& entry)
{
    const std::filesystem::path path = pathFromUtf8(entry.path);
    if (!entry.identity.known() || identityOf(path) == entry.identity)
        return path;
    return findByIdentity(path.parent_path(), entry.identity);
}

} // namespace

const char* repairOutcomeText(RepairOutcome outcome)
{
    switch (outcome) {
    case RepairOutcome::Repaired:
        return "repaired";
    case RepairOutcome::Kept:
        return "kept";
    case RepairOutcome::EmptyRemoved:
        return "empty removed";
    case RepairOutcome::Failed:
    case RepairOutcome::Unknown:
        break;
    }
    return "failed";
}

RepairRecord Mp4Repair::repair(TaskJournal::Left& left)
{
    RepairRecord record;
    const JournalEntry& entry = left.entry;
    record.task = entry.task;
    record.path = entry.path;
    record.askedEndNs = entry.askedEndNs;
    if (!left.readable) {
        record.outcome = RepairOutcome::Failed;
        record.path = utf8FromPath(left.journal.path());
        record.error = "The journal \"" + record.path + "\" cannot be read.";
        left.journal.drop();
        return record;
    }
    const std::filesystem::path path = findOutput(entry);
    std::unique_ptr<DirectFile> file;
    const int error = path.empty() ? ENOENT : DirectFile::open(path, false, file);
    // Something else may stand at its place, or at its folder's.
    if (error == ENOENT || error == EINVAL || error == ELOOP || error == ENOTDIR || error == EISDIR) {
        record.outcome = RepairOutcome::Kept;
        record.error = "The file \"" + entry.path + "\" is not there any more.";
        left.journal.drop();
        return record;
    }
    if (error != 0) {
        record.outcome = RepairOutcome::Failed;
        record.error = "The file \"" + entry.path + "\" could not be opened: " + errorText(error) + ".";
        return record;
    }
    record.path = utf8FromPath(path);
    record.outcome = repairFile(*file, entry, record);
    if (record.outcome == RepairOutcome::EmptyRemoved) {
        const bool ours = entry.identity.known() || madeWithJournal(path, left.journal.path());
        const int removal = ours ? file->remove(path) : 0;
        if (ours && removal == 0)
            record.bytes = 0;
        if (!ours)
            record.outcome = RepairOutcome::Kept;
        if (removal != 0) {
            record.outcome = RepairOutcome::Failed;
            record.error = "The empty file \"" + record.path + "\" could not be removed: " + errorText(removal) + ".";
        }
    }
    if (record.outcome != RepairOutcome::Failed)
        left.journal.drop();
    return record;
}

RepairOutcome Mp4Repair::repairFile(DirectFile& file, const JournalEntry& entry, RepairRecord& record)
{
    auto fail = [&](const std::string& what, int code) {
        record.error = "The file \"" + record.path + "\" " + what + ": " + errorText(code) + ".";
        return RepairOutcome::Failed;
    };
    FragmentScanner scanner(file);
    ScanResult scan = scanner.scan({entry.channelName, entry.deviceName});
    if (scan.error != 0)
        return fail("could not be read", scan.error);
    const bool foreign =
        scan.state != FileState::Unknown && scan.state != FileState::Empty && scan.header.token != entry.token;
    std::uint64_t length = 0;
    file.length(length);
    record.bytes = length;
    if (foreign || (scan.state == FileState::Unknown && (!entry.identity.known() || length > 0))) {
        // Without a first block of ours nothing says whose the bytes are, unless the file number does and there is no
        // block at all.
        if (!foreign && beginsEmpty(file, entry.identity.known()))
            return RepairOutcome::EmptyRemoved;
        record.error = "The file \"" + record.path + "\" is not the one that was being written; it was left alone.";
        return RepairOutcome::Kept;
    }
    if (scan.state == FileState::Empty)
        return RepairOutcome::EmptyRemoved;
    scan.assembly.setAskedEnd(entry.askedEndNs);
    record.beginNs = scan.assembly.beginNs();
    record.endNs = scan.assembly.endNs();
    if (entry.wholeSeconds && record.endNs < entry.askedEndNs) {
        const std::int64_t second = scan.assembly.endOnWholeSecond(entry.askedBeginNs);
        if (second == 0 && scan.state != FileState::Finished)
            return RepairOutcome::EmptyRemoved;
        record.endNs = second > 0 ? second : record.endNs;
    }
    if (scan.state == FileState::Finished) {
        const int error = file.sync();
        return error == 0 ? RepairOutcome::Kept : fail("could not be brought safely to the disk", error);
    }
    if (scan.state == FileState::Broken) {
        if (const int error = Mp4Finalizer::revert(file))
            return fail("could not be repaired", error);
    }
    IndexPlace place;
    const Movie movie = scan.assembly.movie();
    if (const int error = Mp4Finalizer::finish(file, scan.fragmentsEnd, movie, SyncOrder::EveryStep, place))
        return fail("could not be repaired", error);
    Mp4Reader reader(file);
    if (!reader.agrees(movie, place)) {
        record.error = "The file \"" + record.path + "\" was repaired but not read back right. " + reader.problem();
        return RepairOutcome::Failed;
    }
    record.bytes = place.offset + place.bytes;
    return RepairOutcome::Repaired;
}

} // namespace vaws
