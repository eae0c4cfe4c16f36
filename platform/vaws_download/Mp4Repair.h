#pragma once

#include "TaskJournal.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vaws {

enum class RepairOutcome : std::uint8_t {
    Unknown = 0,
    Repaired,     ///< an index was made of what the fragments hold
    Kept,         ///< the file was finished already, or is not there, or is not ours: nothing was changed
    EmptyRemoved, ///< it held no sample and is gone
    Failed,       ///< the disk did not let us; the journal stays for the next time
};

struct RepairRecord
{
    std::string task;
    std::string path; ///< UTF-8, as found
    RepairOutcome outcome = RepairOutcome::Unknown;
    std::uint64_t bytes = 0;
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    std::int64_t askedEndNs = 0;
    std::string error; ///< a sentence, "" when there is nothing to say
};

const char* repairOutcomeText(RepairOutcome outcome);

/// Finishes what a crash left open. Only a file that is the journal's own, by file number and by the token in its first
/// block, is ever changed. A crash during the repair is repaired the same way at the next start. Waits for the disk.
class Mp4Repair final
{
public:
    static RepairRecord repair(TaskJournal::Left& left);

private:
    static RepairOutcome repairFile(DirectFile& file, const JournalEntry& entry, RepairRecord& record);
};

} // namespace vaws
