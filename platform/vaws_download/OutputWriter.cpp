#include "OutputWriter.h"

#include "ClockText.h"
#include "Mp4Reader.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace vaws {
namespace {

constexpr std::size_t leastPart = 256u * 1024;
constexpr double secondsAPart = 0.05; ///< a write lasts so long at most, for the sake of stop and cancel
constexpr int maxNameTries = 1000;

std::string causeOf(int code)
{
    switch (code) {
    case EEXIST:
        return "a file already stands there";
    case ENOSPC:
        return "the disk is full";
    case EACCES:
    case EPERM:
        return "there is no permission to write there";
    case EROFS:
        return "the disk is write-protected";
    case ENOENT:
        return "the folder does not exist";
    default:
        return errorText(code);
    }
}

} // namespace

OutputWriter::OutputWriter(Settings settings, std::shared_ptr<OutputPlan> plan)
    : m_settings(std::move(settings))
    , m_path(pathFromUtf8(m_settings.path))
    , m_plan(std::move(plan))
{}

OutputWriter::~OutputWriter() = default;

WriteFailure OutputWriter::failure(int code, const char* action) const
{
    if (code == 0)
        return {};
    return {code, "The file \"" + m_settings.path + "\" could not be " + action + ": " + causeOf(code) + "."};
}

WriteFailure OutputWriter::check(const std::string& path)
{
    const std::filesystem::path target = pathFromUtf8(path);
    auto refuse = [&](int code, const std::string& cause) {
        return WriteFailure{code, "The file \"" + path + "\" could not be made: " + cause + "."};
    };
    if (nameTaken(target))
        return refuse(EEXIST, causeOf(EEXIST));
    std::error_code error;
    const std::filesystem::path folder = target.parent_path();
    if (!folder.empty())
        std::filesystem::create_directories(folder, error);
    if (error)
        return refuse(error.value(), causeOf(error.value()));
    return {};
}

WriteFailure OutputWriter::create()
{
    if (WriteFailure refused = check(m_settings.path))
        return refused;
    m_entry.task = m_settings.task;
    m_entry.path = m_settings.path;
    m_entry.askedBeginNs = m_settings.askedBeginNs;
    m_entry.askedEndNs = m_settings.askedEndNs;
    m_entry.wholeSeconds = m_settings.wholeSeconds;
    m_entry.channelName = m_plan->tags.channelName;
    m_entry.deviceName = m_plan->tags.deviceName;
    m_entry.token = m_plan->header.token;
    m_journal = TaskJournal(m_settings.journalFolder, m_entry.token);
    // Safely on the disk before there is anything to repair: without it a power cut leaves a file that nobody answers
    // for.
    int error = m_journal.write(m_entry);
    if (error == 0)
        error = m_journal.sync();
    if (error != 0) {
        m_journal.drop();
        return {error, "The journal in \"" + utf8FromPath(m_settings.journalFolder) +
                           "\" could not be written: " + causeOf(error) + "."};
    }
    if (error = DirectFile::create(m_path, m_file); error != 0) {
        m_journal.drop();
        return failure(error, "made");
    }
    if (error = m_journal.addIdentity(m_file->identity()); error != 0)
        return failure(error, "journalled");
    m_assembly = MovieAssembly(m_plan->formats, m_plan->header, m_plan->tags);
    m_assembly.setAskedEnd(m_settings.askedEndNs);
    return {};
}

std::size_t OutputWriter::partLimit() const
{
    if (m_rate <= 0)
        return leastPart * 4;
    return std::max(leastPart, static_cast<std::size_t>(m_rate * secondsAPart));
}

WriteFailure OutputWriter::write(const MediaBuffer& buffer, const std::function<bool()>& goOn)
{
    if (m_cut)
        return {};
    if (!m_file) {
        if (WriteFailure refused = create())
            return refused;
    }
    std::size_t begin = 0;
    for (std::size_t i = 0; i < buffer.fragments.size(); ++i) {
        const auto end =
            static_cast<std::size_t>(buffer.fragments[i].offset + buffer.fragments[i].bytes - buffer.fileOffset);
        const bool last = i + 1 == buffer.fragments.size();
        if (!last && end + static_cast<std::size_t>(buffer.fragments[i + 1].bytes) - begin <= partLimit())
            continue;
        if (!goOn()) {
            m_cut = true;
            return {};
        }
        if (WriteFailure failed = writePart(buffer, begin, end))
            return failed;
        begin = end;
    }
    return {};
}

WriteFailure OutputWriter::writePart(const MediaBuffer& buffer, std::size_t begin, std::size_t end)
{
    const auto before = std::chrono::steady_clock::now();
    const std::uint64_t offset = buffer.fileOffset + begin;
    if (const int error = m_file->writeAt(offset, buffer.data + begin, end - begin))
        return failure(error, "written");
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
    const double rate = static_cast<double>(end - begin) / std::max(seconds, 1e-6);
    m_rate = m_rate <= 0 ? rate : m_rate * 0.8 + rate * 0.2;
    m_unsynced = true;
    for (const FragmentInfo& fragment : buffer.fragments) {
        if (fragment.offset >= offset && fragment.offset < offset + (end - begin))
            m_assembly.addFragment(fragment);
    }
    m_fragmentsEnd = offset + (end - begin);
    return {};
}

WriteFailure OutputWriter::sync()
{
    if (!m_unsynced || !m_file)
        return {};
    const std::uint64_t end = m_fragmentsEnd;
    if (const int error = m_file->sync())
        return failure(error, "brought safely to the disk");
    if (!m_folderSynced) {
        syncFolder(m_path.parent_path());
        m_journal.sync();
        m_folderSynced = true;
    }
    m_plan->syncedBytes.store(end, std::memory_order_relaxed);
    m_unsynced = false;
    return {};
}

std::int64_t OutputWriter::endAt(std::int64_t endNs)
{
    if (m_assembly.empty() || endNs <= m_assembly.beginNs())
        return 0;
    m_assembly.setAskedEnd(endNs);
    return endNs;
}

WriteFailure OutputWriter::finish(SyncOrder order, FinishedOutput& finished)
{
    const Movie movie = m_assembly.movie();
    IndexPlace place;
    if (const int error = Mp4Finalizer::finish(*m_file, m_fragmentsEnd, movie, order, place))
        return failure(error, "finished");
    m_unsynced = true;
    Mp4Reader reader(*m_file);
    if (!reader.agrees(movie, place))
        return {EIO, "The file \"" + m_settings.path + "\" was written but not read back right. " + reader.problem()};
    finished.path = m_settings.path;
    finished.beginNs = movie.beginNs;
    finished.endNs = movie.endNs;
    finished.bytes = place.offset + place.bytes;
    finished.verified = true;
    return order == SyncOrder::EveryStep ? settle() : WriteFailure();
}

WriteFailure OutputWriter::settle()
{
    if (WriteFailure failed = sync())
        return failed;
    return failure(m_journal.drop(), "struck off the journal");
}

void OutputWriter::rescue(FinishedOutput& finished)
{
    if (!m_file)
        return;
    if (m_assembly.empty()) {
        remove();
        return;
    }
    finished.path = m_settings.path;
    finished.beginNs = m_assembly.beginNs();
    finished.endNs = m_assembly.endNs();
    finished.bytes = m_fragmentsEnd;
    // Index and header may stand already, and only bringing them to the disk failed: then the file plays as it is.
    if (Mp4Reader(*m_file).readIndex() || Mp4Finalizer::revert(*m_file) != 0)
        return;
    // What was written in part takes room that the index needs.
    m_file->truncate(m_fragmentsEnd);
    FinishedOutput whole;
    if (!finish(SyncOrder::EveryStep, whole)) {
        finished = whole;
        return;
    }
    // A header that was not switched leaves a file that plays by its fragments; the repair finishes it when there is
    // room.
    if (!Mp4Reader(*m_file).readIndex() && Mp4Finalizer::revert(*m_file) == 0)
        m_file->truncate(m_fragmentsEnd);
}

void OutputWriter::remove()
{
    if (!m_file)
        return;
    const int error = m_file->remove(m_path);
    m_removed = std::move(m_file);
    // A file that the disk did not let go of is left to the repair.
    if (error == 0 || error == ENOENT)
        m_journal.drop();
}

WriteFailure OutputWriter::renameToSpan(FinishedOutput& finished)
{
    const std::string extension = utf8FromPath(m_path.extension());
    const std::string stem =
        utf8FromPath(m_path.stem()) + "_" + localClockText(finished.beginNs) + "~" + localClockText(finished.endNs);
    for (int number = 1; number <= maxNameTries; ++number) {
        const std::string name = stem + (number > 1 ? " (" + std::to_string(number) + ")" : "") + extension;
        const std::filesystem::path target = m_path.parent_path() / pathFromUtf8(name);
        const int error = m_file->rename(m_path, target);
        if (error == EEXIST)
            continue;
        if (error != 0)
            return failure(error, "renamed");
        m_path = target;
        finished.path = utf8FromPath(target);
        return {};
    }
    return failure(EEXIST, "renamed");
}

} // namespace vaws
