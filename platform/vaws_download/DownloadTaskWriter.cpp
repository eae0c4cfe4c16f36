// The writer thread of DownloadTask.
#include "ClockText.h"
#include "DownloadTask.h"
#include "LocalCutter.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

namespace vaws {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds tickLength{1000};
constexpr milliseconds soundCheckInterval{5};
constexpr std::size_t maxSoundBacklogBytes = 256 * 1024; ///< half a minute of G.711, a tenth of a second to encode
constexpr std::size_t leastFragmentLimit = 256 * 1024;
constexpr std::size_t mostFragmentLimit = 2 * 1024 * 1024;
constexpr double secondsAFragment = 0.05; ///< of the disk's rate

std::int64_t steadyNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

bool DownloadTask::mayWrite() const
{
    const std::int64_t deadline = m_deadlineNs.load();
    return !m_cancelled.load() && (deadline == 0 || steadyNs() < deadline);
}

void DownloadTask::run()
{
    Lock lock(m_mutex);
    try {
        begin(lock);
        while (step(lock)) {
        }
    } catch (const std::bad_alloc&) {
        if (!lock.owns_lock())
            lock.lock();
        endForMemory();
        rescueForMemory(lock);
    }
    leave(lock);
}

void DownloadTask::begin(Lock& lock)
{
    WriteFailure refused;
    if (m_settings.problem.empty()) {
        lock.unlock();
        refused = OutputWriter::check(m_settings.path);
        lock.lock();
    }
    if (!m_settings.problem.empty())
        requestEnd(VAWS_EVENT_INVALID, m_settings.problem);
    else if (refused)
        requestEnd(VAWS_EVENT_WRITE_ERROR, refused.sentence, refused.code);
    else if (m_cutter) {
        post(VAWS_EVENT_PLAYING);
        m_cutter->start();
    }
}

void DownloadTask::rescueForMemory(Lock& lock)
{
    try {
        if (m_cancelled)
            abandon(lock);
        else if (m_writer)
            fail({ENOMEM, {}}, lock);
        if (m_unsettled) {
            lock.unlock();
            m_unsettled->settle();
            lock.lock();
        }
    } catch (const std::bad_alloc&) {
        // Nothing more can be done now; the next start repairs the file.
        if (!lock.owns_lock())
            lock.lock();
    }
    m_queue.clear();
    m_report.event = m_endEvent;
    if (!m_cancelled && !m_stopping)
        m_lastWord = m_endEvent;
}

bool DownloadTask::step(Lock& lock)
{
    deliver(lock);
    if (m_cancelled) {
        abandon(lock);
        return false;
    }
    if (!m_queue.empty()) {
        processQueue(lock);
        return true;
    }
    if (m_phase == Phase::Finishing) {
        endTask(lock);
        return false;
    }
    if (m_phase == Phase::Over)
        return false;
    const auto now = steady_clock::now();
    if (now >= m_lastSync + tickLength) {
        tick(lock);
        return true;
    }
    if (m_flushNow || now >= m_lastHandOver + tickLength) {
        m_flushNow = false;
        m_lastHandOver = now;
        handOver(true);
        return true;
    }
    handOver(false);
    if (!m_queue.empty())
        return true;
    m_idle = true;
    const bool behind = soundIsBehind();
    const auto wakeUp = std::min(m_lastSync, m_lastHandOver) + tickLength;
    m_wake.wait_until(lock, behind ? std::min(wakeUp, now + soundCheckInterval) : wakeUp, [&] {
        return !m_queue.empty() || !m_events.empty() || (m_giveBack > 0 && !behind) || m_phase != Phase::Taking ||
               m_flushNow;
    });
    m_idle = false;
    return true;
}

/// Sound is encoded slower than a recorder sends at full speed: what was pushed is not given back meanwhile, so that
/// the recorder waits and memory stays bounded.
bool DownloadTask::soundIsBehind() const
{
    return m_phase == Phase::Taking && m_assembler.soundBacklogBytes() > maxSoundBacklogBytes;
}

void DownloadTask::deliver(Lock& lock)
{
    const bool behind = soundIsBehind();
    if (m_events.empty() && m_lastWord == 0 && (m_giveBack == 0 || behind))
        return;
    const auto events = std::exchange(m_events, {});
    const int lastWord = std::exchange(m_lastWord, 0);
    const std::int64_t consumed = behind ? 0 : std::exchange(m_giveBack, 0);
    m_changed.notify_all();
    lock.unlock();
    if (consumed > 0)
        m_gate.pass([&] { m_callbacks.consumed(m_settings.id, consumed); });
    for (const std::pair<int, int>& told : events)
        m_gate.pass([&] { m_callbacks.event(m_settings.id, told.first, told.second); });
    if (lastWord != 0)
        m_gate.pass([&] { m_callbacks.event(m_settings.id, lastWord, 0); });
    lock.lock();
}

void DownloadTask::processQueue(Lock& lock)
{
    while (!m_queue.empty() && !m_cancelled) {
        Item item = std::move(m_queue.front());
        m_queue.pop_front();
        process(std::move(item), lock);
        deliver(lock);
    }
}

void DownloadTask::process(Item item, Lock& lock)
{
    if (item.kind == Item::Kind::Open) {
        if (m_told)
            return;
        OutputWriter::Settings settings;
        settings.path = m_settings.path;
        settings.journalFolder = m_settings.journalFolder;
        settings.task = m_settings.id;
        settings.askedBeginNs = m_report.askedBeginNs;
        settings.wholeSeconds = m_settings.wholeSeconds;
        settings.askedEndNs = m_settings.kind == TaskSettings::Kind::ByFile ? 0 : m_settings.endNs;
        m_writer = std::make_unique<OutputWriter>(std::move(settings), std::move(item.plan));
        return;
    }
    if (item.kind == Item::Kind::Close) {
        finishOutput(item, lock);
        return;
    }
    if (m_writer) {
        lock.unlock();
        const WriteFailure failed = m_writer->write(*item.buffer, [this] { return mayWrite(); });
        lock.lock();
        takeReached();
        m_diskRate = m_writer->bytesPerSecond();
        if (m_diskRate > 0)
            m_assembler.setFragmentLimit(std::clamp(static_cast<std::size_t>(m_diskRate * secondsAFragment),
                                                    leastFragmentLimit, mostFragmentLimit));
        if (failed)
            fail(failed, lock);
    }
    m_consumed += item.buffer->pushedBytes;
    m_giveBack += item.buffer->pushedBytes;
    noteProgress();
    m_pool.giveBack(std::move(item.buffer));
}

void DownloadTask::takeReached()
{
    Reached now = m_before;
    const MovieAssembly& assembly = m_writer->assembly();
    if (!assembly.empty()) {
        now.beginNs = m_before.frames > 0 ? m_before.beginNs : assembly.beginNs();
        now.endNs = assembly.endNs();
        now.lastFrameNs = assembly.lastFrameNs();
        now.outputBeginNs = assembly.beginNs();
        now.outputCompleteNs = assembly.completeNs();
        now.frames += assembly.pictures();
        now.lost += assembly.lostUnits();
        now.bytes += m_writer->bytes();
        now.gaps.insert(now.gaps.end(), assembly.timeline().gaps().begin(), assembly.timeline().gaps().end());
    }
    m_reached = std::move(now);
    m_report.bytes = m_reached.bytes;
}

bool DownloadTask::endEarly()
{
    const std::int64_t end = m_told ? m_writer->endAt(m_told->endNs) : m_writer->endOnWholeSecond();
    if (end == 0) {
        m_reached = m_before;
        m_report.bytes = m_before.bytes;
        return false;
    }
    takeReached();
    m_reached.restBeginNs = end;
    return true;
}

void DownloadTask::finishOutput(const Item& item, Lock& lock)
{
    if (!m_writer)
        return;
    FinishedOutput finished;
    WriteFailure failed;
    bool nothing = m_writer->assembly().empty();
    const bool early = m_settings.wholeSeconds && !item.switched && m_endEvent != VAWS_EVENT_FINISHED;
    if (!nothing && (m_told || early))
        nothing = !endEarly();
    const bool quick = m_stopping && (!item.switched || m_told);
    lock.unlock();
    if (nothing)
        m_writer->remove();
    else
        failed = m_writer->finish(quick ? SyncOrder::Afterwards : SyncOrder::EveryStep, finished);
    lock.lock();
    const bool switched = item.switched && !m_told; // who was told of it knows it by its first name
    if (!nothing && !failed && switched) {
        lock.unlock();
        failed = m_writer->renameToSpan(finished);
        lock.lock();
    }
    if (failed) {
        fail(failed, lock);
        return;
    }
    if (nothing) {
        m_writer.reset();
        return;
    }
    m_before = m_reached;
    m_report.files.push_back(finished.path);
    m_report.verified = finished.verified;
    m_report.bytes = m_before.bytes += finished.bytes - m_writer->bytes();
    m_report.path = switched ? m_settings.path : finished.path;
    if (!switched) {
        m_unsettled = std::move(m_writer);
        return;
    }
    m_writer.reset();
    lock.unlock();
    const auto lengthMs = static_cast<int>((finished.endNs - finished.beginNs) / nsPerMs);
    const std::string next = localClockText(item.nextNs > 0 ? item.nextNs : finished.endNs);
    m_gate.pass([&] { m_callbacks.toggle(m_settings.id, finished.path, lengthMs, next); });
    lock.lock();
    post(VAWS_EVENT_FILE_SWITCHED);
}

void DownloadTask::fail(const WriteFailure& failure, Lock& lock)
{
    FinishedOutput left;
    const bool nothing = (m_settings.wholeSeconds || m_told) && !m_writer->assembly().empty() && !endEarly();
    lock.unlock();
    if (nothing)
        m_writer->remove();
    else
        m_writer->rescue(left);
    lock.lock();
    m_writer.reset();
    if (!left.path.empty()) {
        m_report.bytes = m_before.bytes + left.bytes;
        m_report.verified = left.verified;
        m_reached.endNs = left.endNs;
        if (left.verified)
            m_report.files.push_back(left.path);
    }
    m_phase = Phase::Finishing;
    m_endEvent = VAWS_EVENT_WRITE_ERROR;
    m_report.error = failure.sentence;
    m_report.errnoValue = failure.code;
    for (Item& item : m_queue) {
        if (!item.buffer)
            continue;
        m_consumed += item.buffer->pushedBytes;
        m_giveBack += item.buffer->pushedBytes;
        m_pool.giveBack(std::move(item.buffer));
    }
    m_queue.clear();
}

void DownloadTask::tick(Lock& lock)
{
    m_lastSync = steady_clock::now();
    WriteFailure failed;
    bool low = false;
    lock.unlock();
    if (m_writer)
        failed = m_writer->sync();
    if (!m_diskTold) {
        std::error_code error;
        const auto space = std::filesystem::space(
            std::filesystem::absolute(pathFromUtf8(m_settings.path), error).parent_path(), error);
        low = !error && space.available < m_settings.reserveBytes;
    }
    lock.lock();
    if (failed)
        fail(failed, lock);
    if (low) {
        m_diskTold = true;
        post(VAWS_EVENT_DISK_LOW);
    }
    if (m_assembler.picturesComplete() && m_phase == Phase::Taking)
        requestEnd(VAWS_EVENT_FINISHED);
}

/// The stream is over, for whatever reason: everything that came is written, the file finished, the ending told.
void DownloadTask::endTask(Lock& lock)
{
    if (m_stopping) {
        // Pictures first: how far the task got is told from what is on the disk, and the caller waits for that.
        m_assembler.flush();
        processQueue(lock);
    }
    const bool whole = !m_told && !(m_writer && m_writer->truncated());
    if (whole && m_endEvent != VAWS_EVENT_WRITE_ERROR) {
        lock.unlock();
        m_assembler.drain();
        lock.lock();
        m_deadlineNs = 0;
        m_assembler.finish();
    } else if (m_writer) {
        closeOutput(false, 0);
    }
    processQueue(lock);
    if (m_cancelled) {
        abandon(lock);
        return;
    }
    if (m_writer)
        finishOutput(Item(), lock);
    returnUnassigned();
    m_settled = true;
    m_changed.notify_all();
    if (m_unsettled) {
        lock.unlock();
        m_unsettled->settle();
        lock.lock();
        m_unsettled.reset();
    }
    if (m_endEvent == VAWS_EVENT_FINISHED && m_reached.frames == 0) {
        m_endEvent = VAWS_EVENT_NO_DATA;
        m_report.error = "Nothing is recorded in the asked span.";
    }
    if (m_endEvent == VAWS_EVENT_FINISHED && m_report.progress < 100) {
        m_report.progress = 100;
        post(VAWS_EVENT_PROGRESS, 100);
    }
    m_report.event = m_endEvent;
    if (m_endEvent != 0)
        post(m_endEvent);
}

void DownloadTask::abandon(Lock& lock)
{
    lock.unlock();
    for (auto* writer : {m_writer.get(), m_unsettled.get()}) {
        if (writer)
            writer->remove();
    }
    lock.lock();
    m_queue.clear();
}

void DownloadTask::leave(Lock& lock)
{
    m_phase = Phase::Over;
    m_settled = true;
    m_giveBack += m_pushed - m_consumed;
    m_consumed = m_pushed;
    m_changed.notify_all();
    deliver(lock);
    if (m_cutter)
        m_cutter->requestStop();
    // Whoever cancelled goes on by now: a large file without a name takes long to close, and the sound's encoder may be
    // at work. Nobody else touches them once the task is over; its report is kept for longer.
    lock.unlock();
    m_writer.reset();
    m_unsettled.reset();
    m_assembler.discard();
    lock.lock();
    m_exited = true;
}

} // namespace vaws
