#pragma once

#include "DirectFile.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vaws {

/// What is known of an output while it is open, so that a crash can be repaired: one small file of JSON in the journal
/// folder.
struct JournalEntry
{
    std::string task;
    std::string path;              ///< UTF-8
    std::uint64_t token = 0;       ///< also in the output's first block
    FileIdentity identity;         ///< unknown between journalling and creating the output
    std::int64_t askedBeginNs = 0; ///< UTC, 0 open
    std::int64_t askedEndNs = 0;
    bool wholeSeconds = false; ///< a span that is not whole ends on a whole second
    std::string channelName;
    std::string deviceName;
};

/// One journal. On the disk before its output is made, and dropped after the output is finished and safely on disk. The
/// file's identity is written behind the rest, so that a power cut while it is written costs nothing else. Not for
/// several threads. Functions return 0 or an errno value.
class TaskJournal final
{
public:
    TaskJournal() = default;
    TaskJournal(const std::filesystem::path& folder, std::uint64_t token);

    int write(const JournalEntry& entry);
    int addIdentity(const FileIdentity& identity);
    int sync();
    int drop();
    const std::filesystem::path& path() const { return m_path; }

    struct Left;
    /// The journals that a crash left.
    static std::vector<Left> leftIn(const std::filesystem::path& folder);
    static bool parse(const std::string& text, JournalEntry& entry);

private:
    std::filesystem::path m_path;
};

/// A journal that was left: an entry, or only its file when it can't be read.
struct TaskJournal::Left
{
    TaskJournal journal;
    bool readable = false;
    JournalEntry entry;
};

std::filesystem::path pathFromUtf8(const std::string& text);
std::string utf8FromPath(const std::filesystem::path& path);

} // namespace vaws
