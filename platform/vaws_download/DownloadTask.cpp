#include "DownloadTask.h"

#include "ClockText.h"
#include "LocalCutter.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <utility>

namespace vaws {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::int64_t maxBacklogBytes =
    96 * 1024 * 1024;                           ///< pushed and not written; a caller with flow control stays far below
constexpr std::size_t eagerBytes = 1024 * 1024; ///< handed over when the writer has nothing else to do
constexpr std::size_t firstEagerBytes = 128 * 1024; ///< the first time, so that the file is there soon
constexpr std::int64_t maxCreditBytes = 12 * 1024 * 1024;
constexpr std::int64_t leastCreditBytes = 2 * 1024 * 1024;
constexpr double creditSeconds = 0.15; ///< of the disk's rate: so much is written within a stop
constexpr std::int64_t cutBacklogBytes = 16 * 1024 * 1024;
constexpr milliseconds stopWait{180};
constexpr milliseconds stopWriting{90}; ///< of stopWait
constexpr milliseconds cancelWait{5000};

std::int64_t steadyNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(steady_clock::now().time_since_epoch()).count();
}

AssemblyRequest requestOf(const TaskSettings& settings)
{
    AssemblyRequest request;
    if (settings.kind != TaskSettings::Kind::ByFile) {
        request.beginNs = settings.beginNs;
        request.endNs = settings.endNs;
    }
    request.keepGaps = settings.kind == TaskSettings::Kind::LocalCut;
    request.maxFileBytes = settings.maxFileBytes;
    request.clockTrack = settings.clockTrack;
    return request;
}

} // namespace

DownloadTask::DownloadTask(TaskSettings settings, BufferPool& pool, const CallbackTable& callbacks)
    : m_settings(std::move(settings))
    , m_pool(pool)
    , m_callbacks(callbacks)
    , m_assembler(*this, requestOf(m_settings))
{
    m_report.task = m_settings.id;
    m_report.path = m_settings.path;
    m_report.askedBeginNs = m_settings.beginNs;
    m_report.askedEndNs = m_settings.endNs;
    m_lastHandOver = m_lastSync = steady_clock::now();
}

DownloadTask::~DownloadTask()
{
    if (m_cutter)
        m_cutter->requestStop();
    if (m_thread.joinable())
        m_thread.join();
    m_cutter.reset();
}

void DownloadTask::start()
{
    if (m_settings.kind == TaskSettings::Kind::LocalCut && m_settings.problem.empty())
        m_cutter = LocalCutter::create(m_settings.cut, static_cast<FrameTarget&>(*this), m_settings.problem);
    m_events.emplace_back(VAWS_EVENT_WAITING, 0);
    m_thread = std::thread([this] { run(); });
}

int DownloadTask::push(const void* data, std::size_t size)
{
    bool wake = false;
    {
        const Lock lock(m_mutex);
        if (m_phase == Phase::Over)
            return VAWS_UNKNOWN_TASK;
        m_received.fetch_add(static_cast<std::int64_t>(size), std::memory_order_relaxed);
        m_pushed += static_cast<std::int64_t>(size);
        m_unassigned += static_cast<std::int64_t>(size);
        try {
            if (m_phase == Phase::Taking)
                feed(data, size);
            else
                returnUnassigned();
            if (m_idle && m_phase == Phase::Taking)
                handOver(false);
        } catch (const std::bad_alloc&) {
            endForMemory();
        }
        wake = !m_queue.empty() || m_giveBack > 0 || m_phase != Phase::Taking || !m_events.empty();
    }
    if (wake)
        m_wake.notify_one();
    return VAWS_OK;
}

void DownloadTask::feed(const void* data, std::size_t size)
{
    if (m_pushed - m_consumed > maxBacklogBytes) {
        requestEnd(VAWS_EVENT_WRITE_ERROR,
                   "The disk of \"" + m_settings.path + "\" is slower than the recording arrives.", EAGAIN);
        return;
    }
    vav::PacketReader reader(data, size);
    for (;;) {
        const vav::PacketReader::Status status = reader.next();
        if (status == vav::PacketReader::Status::End)
            break;
        if (status != vav::PacketReader::Status::Packet) {
            requestEnd(VAWS_EVENT_INVALID,
                       status == vav::PacketReader::Status::Torn
                           ? "The stream contains a packet that is cut."
                           : "The stream contains a packet of an unknown form or beyond the limits.");
            return;
        }
        if (reader.kind() == vav::PacketKind::StreamInfo)
            applyInfo(reader.streamInfo());
        else
            accept(m_assembler.frame(reader.frame(), reader.payload()));
        if (m_phase != Phase::Taking)
            break;
    }
    if (!m_assembler.hasOutput())
        returnUnassigned();
}

void DownloadTask::applyInfo(const vav::StreamInfo& info)
{
    if (m_settings.kind == TaskSettings::Kind::ByFile && !m_assembler.hasOutput()) {
        const std::int64_t begin = info.beginNs > 0 ? info.beginNs + m_settings.downloadedMs * nsPerMs : 0;
        if (m_report.askedBeginNs == 0) {
            m_assembler.setRequestedSpan(begin, 0);
            m_report.askedBeginNs = begin;
            m_report.askedEndNs = info.endNs;
        }
    }
    accept(m_assembler.streamInfo(info));
}

void DownloadTask::accept(StreamAssembler::Outcome outcome)
{
    if (outcome == StreamAssembler::Outcome::Unusable)
        requestEnd(VAWS_EVENT_INVALID, m_assembler.problem());
    else if (outcome == StreamAssembler::Outcome::RangeComplete)
        requestEnd(VAWS_EVENT_FINISHED);
}

void DownloadTask::requestEnd(int event, const std::string& problem, int code)
{
    if (m_phase != Phase::Taking)
        return;
    m_phase = Phase::Finishing;
    m_endEvent = event;
    m_report.error = problem;
    m_report.errnoValue = code;
    m_wake.notify_one();
}

void DownloadTask::endForMemory()
{
    if (m_phase == Phase::Over)
        return;
    m_noMemory = true;
    m_phase = Phase::Finishing;
    m_endEvent = VAWS_EVENT_WRITE_ERROR;
    m_report.error.clear();
    m_report.errnoValue = ENOMEM;
    m_wake.notify_one();
}

std::unique_ptr<MediaBuffer> DownloadTask::newBuffer(std::size_t bytes)
{
    return m_pool.take(bytes);
}

void DownloadTask::submit(std::unique_ptr<MediaBuffer> buffer)
{
    buffer->pushedBytes = std::exchange(m_unassigned, 0);
    Item item;
    item.buffer = std::move(buffer);
    m_queue.push_back(std::move(item));
    m_lastHandOver = steady_clock::now();
    m_anyHandedOver = true;
}

void DownloadTask::openOutput(std::shared_ptr<OutputPlan> plan)
{
    m_report.video = plan->videoCodec;
    m_report.audio = plan->audioCodec;
    for (const TrackFormat& format : plan->formats) {
        if (format.isVideo()) {
            m_report.width = format.width;
            m_report.height = format.height;
        }
    }
    Item item;
    item.kind = Item::Kind::Open;
    item.plan = std::move(plan);
    m_queue.push_back(std::move(item));
}

void DownloadTask::closeOutput(bool switched, std::int64_t nextNs)
{
    Item item;
    item.kind = Item::Kind::Close;
    item.switched = switched;
    item.nextNs = nextNs;
    m_queue.push_back(std::move(item));
}

bool DownloadTask::takeInfo(const vav::StreamInfo& info)
{
    const Lock lock(m_mutex);
    if (m_phase == Phase::Taking)
        applyInfo(info);
    return m_phase == Phase::Taking;
}

bool DownloadTask::takeFrame(const vav::FrameHeader& header, const std::uint8_t* payload)
{
    bool going = false;
    {
        Lock lock(m_mutex);
        const auto size = static_cast<std::int64_t>(header.payloadBytes);
        m_changed.wait(lock, [&] {
            return m_phase != Phase::Taking ||
                   (!m_paused && m_pushed - m_consumed + size <= std::max(cutBacklogBytes, size));
        });
        if (m_phase == Phase::Taking) {
            m_received.fetch_add(size, std::memory_order_relaxed);
            m_pushed += size;
            m_unassigned += size;
            try {
                accept(m_assembler.frame(header, payload));
                if (!m_assembler.hasOutput())
                    returnUnassigned();
                if (m_idle)
                    handOver(false);
            } catch (const std::bad_alloc&) {
                endForMemory();
            }
        }
        going = m_phase == Phase::Taking;
    }
    m_wake.notify_one();
    return going;
}

void DownloadTask::sourceEnded(const SourceEnd& end)
{
    const Lock lock(m_mutex);
    if (end.ok) {
        requestEnd(VAWS_EVENT_FINISHED);
        m_report.error = end.problem;
    } else {
        requestEnd(VAWS_EVENT_INVALID, end.problem);
    }
}

void DownloadTask::sourceWithoutMemory()
{
    const Lock lock(m_mutex);
    endForMemory();
}

int DownloadTask::playerEvent(int event)
{
    {
        const Lock lock(m_mutex);
        if (m_phase == Phase::Over)
            return VAWS_UNKNOWN_TASK;
        if (event < VAWS_PLAYER_CONNECTING || event > VAWS_PLAYER_BROKEN)
            return VAWS_BAD_ARGUMENT;
        try {
            takePlayerEvent(event);
        } catch (const std::bad_alloc&) {
            endForMemory();
        }
    }
    m_wake.notify_one();
    return VAWS_OK;
}

void DownloadTask::takePlayerEvent(int event)
{
    switch (event) {
    case VAWS_PLAYER_CONNECTING:
        return post(VAWS_EVENT_CONNECTING);
    case VAWS_PLAYER_PLAYING:
        return post(VAWS_EVENT_PLAYING);
    case VAWS_PLAYER_FAILED:
        return requestEnd(VAWS_EVENT_CONNECT_FAILED, "The stream could not be opened.");
    case VAWS_PLAYER_LOGIN_REFUSED:
        return requestEnd(VAWS_EVENT_LOGIN_FAILED, "The recorder refused the login.");
    case VAWS_PLAYER_LIMIT_REACHED:
        return requestEnd(VAWS_EVENT_LIMIT_REACHED, "The recorder has reached its limit of connections.");
    case VAWS_PLAYER_BROKEN:
        return requestEnd(VAWS_EVENT_BROKEN, "The stream broke off.");
    default:
        return requestEnd(VAWS_EVENT_FINISHED);
    }
}

int DownloadTask::pause()
{
    const Lock lock(m_mutex);
    if (m_phase == Phase::Over)
        return VAWS_UNKNOWN_TASK;
    m_paused = true;
    m_flushNow = true;
    m_wake.notify_one();
    return VAWS_OK;
}

int DownloadTask::resume()
{
    const Lock lock(m_mutex);
    if (m_phase == Phase::Over)
        return VAWS_UNKNOWN_TASK;
    m_paused = false;
    m_changed.notify_all();
    return VAWS_OK;
}

int DownloadTask::cancel()
{
    {
        const Lock lock(m_mutex);
        if (m_stopping && !(m_told && m_told->endNs == 0))
            return VAWS_OK; // what stop() told of stays
        if (m_phase != Phase::Over) {
            m_cancelled = true;
            m_phase = Phase::Finishing;
        }
    }
    m_wake.notify_one();
    m_changed.notify_all();
    m_gate.shut();
    Lock lock(m_mutex);
    m_changed.wait_for(lock, cancelWait, [&] { return m_phase == Phase::Over; });
    return VAWS_OK;
}

int DownloadTask::stop(std::int64_t& count, std::string& timeText)
{
    const auto begin = steady_clock::now();
    {
        const Lock lock(m_mutex);
        if (m_phase != Phase::Over) {
            m_stopping = true;
            m_deadlineNs = steadyNs() + std::chrono::nanoseconds(stopWriting).count();
            if (m_phase == Phase::Taking)
                m_phase = Phase::Finishing;
        }
    }
    m_wake.notify_one();
    m_changed.notify_all();
    m_gate.shut();
    Lock lock(m_mutex);
    m_changed.wait_until(lock, begin + stopWait, [&] { return m_settled || m_phase == Phase::Over; });
    if (!m_told && !m_settled && m_phase != Phase::Over)
        m_told = whatStays();
    const Reached& reached = m_told ? m_told->reached : m_reached;
    count = m_settings.downloadedMs;
    timeText.clear();
    if (reached.frames > 0) {
        count = std::max<std::int64_t>((reached.endNs - recordingBeginNs()) / nsPerMs, 0);
        timeText = localClockText(reached.restBeginNs > 0 ? reached.restBeginNs : reached.lastFrameNs);
    }
    return VAWS_OK;
}

DownloadTask::Told DownloadTask::whatStays() const
{
    Told told;
    if (m_reached.frames > m_before.frames)
        told.endNs = m_settings.wholeSeconds
                         ? MovieAssembly::lastWholeSecond(std::min(m_reached.endNs, m_reached.outputCompleteNs),
                                                          std::max(m_report.askedBeginNs, m_reached.outputBeginNs))
                         : m_reached.endNs;
    told.reached = told.endNs > 0 ? m_reached : m_before;
    if (m_settings.wholeSeconds && told.endNs > 0)
        told.reached.restBeginNs = told.endNs;
    return told;
}

/// What the milliseconds that stop() tells count from.
std::int64_t DownloadTask::recordingBeginNs() const
{
    if (m_settings.kind != TaskSettings::Kind::ByFile)
        return m_settings.beginNs;
    if (m_assembler.info().beginNs > 0)
        return m_assembler.info().beginNs;
    return m_reached.beginNs - m_settings.downloadedMs * nsPerMs;
}

int DownloadTask::status() const
{
    const Lock lock(m_mutex);
    if (m_phase == Phase::Over)
        return VAWS_STATUS_ENDED;
    if (m_phase == Phase::Finishing)
        return VAWS_STATUS_FINISHING;
    if (m_paused)
        return VAWS_STATUS_PAUSED;
    return m_assembler.hasOutput() ? VAWS_STATUS_RUNNING : VAWS_STATUS_WAITING;
}

std::int64_t DownloadTask::backlog() const
{
    const Lock lock(m_mutex);
    return m_pushed - m_consumed;
}

std::int64_t DownloadTask::creditHint() const
{
    const Lock lock(m_mutex);
    if (m_diskRate <= 0)
        return maxCreditBytes;
    return std::clamp(static_cast<std::int64_t>(m_diskRate * creditSeconds), leastCreditBytes, maxCreditBytes);
}

bool DownloadTask::over() const
{
    const Lock lock(m_mutex);
    return m_phase == Phase::Over;
}

TaskReport DownloadTask::report() const
{
    const int now = status();
    const Lock lock(m_mutex);
    TaskReport report = m_report;
    report.status = now;
    if (m_noMemory && report.error.empty())
        report.error = "There is not enough memory to go on with the file \"" + m_settings.path + "\".";
    report.beginNs = m_reached.beginNs;
    report.endNs = m_reached.endNs;
    report.frames = m_reached.frames;
    report.lost = m_reached.lost;
    report.gaps = m_reached.gaps;
    constexpr std::int64_t leastGapNs = 100 * nsPerMs;
    if (report.frames > 0 && report.askedBeginNs > 0 && report.beginNs - report.askedBeginNs > leastGapNs)
        report.gaps.insert(report.gaps.begin(), {report.askedBeginNs, report.beginNs, GapCause::NotRecorded, true});
    if (report.frames > 0 && report.event == VAWS_EVENT_FINISHED && report.askedEndNs - report.endNs > leastGapNs)
        report.gaps.push_back({report.endNs, report.askedEndNs, GapCause::NotRecorded, true});
    return report;
}

void DownloadTask::post(int event, int value)
{
    m_events.emplace_back(event, value);
}

void DownloadTask::returnUnassigned()
{
    const std::int64_t bytes = std::exchange(m_unassigned, 0);
    m_consumed += bytes;
    m_giveBack += bytes;
}

/// Gives the writer what lies ready when it is worth a write, or `whateverThere` is.
void DownloadTask::handOver(bool whateverThere)
{
    if (!m_queue.empty() && !whateverThere)
        return;
    const std::size_t ready = m_assembler.bufferedBytes();
    if (ready > 0 && (whateverThere || ready >= (m_anyHandedOver ? eagerBytes : firstEagerBytes)))
        m_assembler.flush();
    else if (ready == 0 && whateverThere)
        returnUnassigned();
}

void DownloadTask::noteProgress()
{
    const std::int64_t begin =
        m_settings.kind == TaskSettings::Kind::ByFile ? m_assembler.info().beginNs : m_settings.beginNs;
    const std::int64_t end =
        m_settings.kind == TaskSettings::Kind::ByFile ? m_assembler.info().endNs : m_settings.endNs;
    if (begin <= 0 || end <= begin || m_reached.endNs <= begin)
        return;
    const int percent =
        static_cast<int>(std::min<std::int64_t>(99, (m_reached.endNs - begin) / ((end - begin) / 100 + 1)));
    if (percent > m_report.progress) {
        m_report.progress = percent;
        post(VAWS_EVENT_PROGRESS, percent);
    }
}

} // namespace vaws
