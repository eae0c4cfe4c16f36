#pragma once

#include "DirectFile.h"
#include "FragmentBuilder.h"
#include "MovieAssembly.h"
#include "Mp4Finalizer.h"
#include "TaskJournal.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vaws {

/// Why an output could not be written: an errno value and a plain sentence that names path and cause.
struct WriteFailure
{
    int code = 0;
    std::string sentence;

    explicit operator bool() const { return code != 0; }
};

/// A finished file, as it was read back.
struct FinishedOutput
{
    std::string path;
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    std::uint64_t bytes = 0;
    bool verified = false;
};

/// The file side of one output: journal, file, sync, finishing. The file is made when its first buffer comes. Used by
/// the task's writer thread alone; every function but setAbandoned() may wait for the disk. After a failure of write()
/// or sync() the caller calls rescue().
class OutputWriter final
{
public:
    struct Settings
    {
        std::string path; ///< UTF-8
        std::filesystem::path journalFolder;
        std::string task;
        std::int64_t askedBeginNs = 0;
        std::int64_t askedEndNs = 0;
        bool wholeSeconds = false; ///< for the repair; see endOnWholeSecond()
    };

    OutputWriter(Settings settings, std::shared_ptr<OutputPlan> plan);
    ~OutputWriter();

    /// Whether the output could be made: nothing stands there, the folder is there or can be made. No trace is left.
    static WriteFailure check(const std::string& path);

    /// Writes a buffer in parts, whole fragments each. Between parts it asks `goOn`; where that says no, the rest is
    /// left out and nothing more can be written.
    WriteFailure write(const MediaBuffer& buffer, const std::function<bool()>& goOn);
    /// Syncs what is written; the first time also the folder and the journal.
    WriteFailure sync();

    /// Before finish() or rescue(): as MovieAssembly::endOnWholeSecond().
    std::int64_t endOnWholeSecond() { return m_assembly.endOnWholeSecond(m_settings.askedBeginNs); }
    /// Likewise: nothing is shown behind `endNs`, which is returned; 0 when that leaves nothing.
    std::int64_t endAt(std::int64_t endNs);
    /// Makes an ordinary file of it and reads it back. With Afterwards the caller calls settle() later.
    WriteFailure finish(SyncOrder order, FinishedOutput& finished);
    /// After finish(): syncs and drops the journal.
    WriteFailure settle();
    /// After a failure: finishes what is there as far as the disk lets it; otherwise the file stays as it plays, its
    /// journal with it.
    void rescue(FinishedOutput& finished);
    /// Takes the file away.
    void remove();
    /// Gives the finished file a name of its own that nothing has, made from its span.
    WriteFailure renameToSpan(FinishedOutput& finished);

    const MovieAssembly& assembly() const { return m_assembly; }
    bool truncated() const { return m_cut; }
    std::uint64_t bytes() const { return m_fragmentsEnd; }
    double bytesPerSecond() const { return m_rate; } ///< of the disk, 0 while unknown

private:
    WriteFailure create();
    WriteFailure failure(int code, const char* action) const;
    WriteFailure writePart(const MediaBuffer& buffer, std::size_t begin, std::size_t end);
    std::size_t partLimit() const;

    Settings m_settings;
    std::filesystem::path m_path;
    std::shared_ptr<OutputPlan> m_plan;
    TaskJournal m_journal;
    JournalEntry m_entry;
    std::unique_ptr<DirectFile> m_file;
    std::unique_ptr<DirectFile> m_removed; ///< without a name: closing it gives its room back, which takes long
    MovieAssembly m_assembly;
    std::uint64_t m_fragmentsEnd = 0;
    double m_rate = 0;
    bool m_cut = false;
    bool m_unsynced = false;
    bool m_folderSynced = false;
};

} // namespace vaws
