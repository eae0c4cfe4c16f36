#include "TaskRegistry.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <new>
#include <system_error>
#include <utility>

namespace vaws {
namespace {

constexpr std::size_t maxEndedKept = 256;
constexpr std::uint64_t defaultReserveBytes = 1024u * 1024 * 1024;
constexpr std::size_t largestBatch = 1024u * 1024;
constexpr std::chrono::seconds watchInterval{1};

/// Free space that a target's disk must have. The environment sets it for tests on small disks.
std::uint64_t reserveBytes()
{
    const char* text = std::getenv("VEMO_DISK_RESERVE_BYTES");
    return text && *text ? std::strtoull(text, nullptr, 10) : defaultReserveBytes;
}

/// Free bytes where the file will lie; a folder that is still to be made counts as its nearest parent.
bool freeBytes(const std::string& path, std::uint64_t& bytes)
{
    std::error_code error;
    std::filesystem::path folder = std::filesystem::absolute(pathFromUtf8(path), error).parent_path();
    while (!folder.empty() && !std::filesystem::exists(folder, error) && folder != folder.parent_path())
        folder = folder.parent_path();
    const std::filesystem::space_info space = std::filesystem::space(folder, error);
    bytes = space.available;
    return !error;
}

} // namespace

TaskRegistry& TaskRegistry::instance()
{
    // Never destroyed: its threads may outlive main() in a process that forgot vaws_download_shutdown(). Made without
    // asking for memory, since who registers a callback cannot be told that there was none.
    alignas(TaskRegistry) static unsigned char room[sizeof(TaskRegistry)];
    static auto* registry = new (room) TaskRegistry;
    return *registry;
}

int TaskRegistry::initialise(const std::string& folder)
{
    const std::filesystem::path path = pathFromUtf8(folder);
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (folder.empty() || !std::filesystem::is_directory(path, error))
        return VAWS_BAD_ARGUMENT;
    std::unique_lock lock(m_mutex);
    if (m_initialised && m_folder == path)
        return VAWS_OK;
    keepLargeBlocksOnHeap(largestBatch);
    m_changed.wait(lock, [&] { return m_repaired; });
    if (m_repairer.joinable())
        m_repairer.join();
    m_folder = path;
    m_stopping = false;
    m_repairs.clear();
    if (!m_watcher.joinable())
        m_watcher = std::thread([this] { watch(); });
    // The journals are listed before any task can write a new one.
    m_repairer = std::thread([this, left = TaskJournal::leftIn(path)]() mutable { repairAll(left); });
    m_repaired = false; // the repairer waits for the lock
    m_initialised = true;
    return VAWS_OK;
}

void TaskRegistry::repairAll(std::vector<TaskJournal::Left>& journals)
{
    for (TaskJournal::Left& left : journals) {
        try {
            RepairRecord record = Mp4Repair::repair(left);
            const std::lock_guard lock(m_mutex);
            m_repairs.push_back(std::move(record));
        } catch (const std::bad_alloc&) {
            // Its journal stays for the next start.
        }
    }
    const std::lock_guard lock(m_mutex);
    m_repaired = true;
    m_changed.notify_all();
}

int TaskRegistry::start(TaskSettings settings)
{
    std::uint64_t bytes = 0;
    settings.reserveBytes = reserveBytes();
    settings.maxFileBytes = m_fileLimit;
    settings.clockTrack = m_clockTrack;
    settings.wholeSeconds = m_wholeSeconds && settings.kind == TaskSettings::Kind::TimeRange;
    const bool low = freeBytes(settings.path, bytes) && bytes < settings.reserveBytes;
    std::shared_ptr<DownloadTask> task;
    {
        const std::lock_guard lock(m_mutex);
        if (!m_initialised || m_stopping)
            return VAWS_NOT_INITIALISED;
        if (low)
            return VAWS_REFUSED;
        settings.journalFolder = m_folder;
        const auto before = m_tasks.find(settings.id);
        if (before != m_tasks.end()) {
            const int status = before->second->status();
            if (status != VAWS_STATUS_ENDED && status != VAWS_STATUS_FINISHING)
                return VAWS_TASK_EXISTS;
        }
        task = std::make_shared<DownloadTask>(std::move(settings), m_pool, m_callbacks);
        if (before != m_tasks.end())
            m_replaced.push_back(before->second);
        m_tasks[task->id()] = task;
        m_ended.erase(std::remove(m_ended.begin(), m_ended.end(), task->id()), m_ended.end());
    }
    try {
        task->start();
    } catch (...) {
        const std::lock_guard lock(m_mutex);
        m_tasks.erase(task->id());
        throw;
    }
    m_changed.notify_all();
    return VAWS_OK;
}

std::shared_ptr<DownloadTask> TaskRegistry::find(const std::string& id) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_tasks.find(id);
    return found == m_tasks.end() ? nullptr : found->second;
}

void TaskRegistry::watch()
{
    std::unique_lock lock(m_mutex);
    std::map<const DownloadTask*, std::int64_t> before;
    while (!m_stopping) {
        m_changed.wait_for(lock, watchInterval, [&] { return m_stopping; });
        try {
            tellRate(before, lock);
            reap(lock);
        } catch (const std::bad_alloc&) {
            // The next turn does it.
            if (!lock.owns_lock())
                lock.lock();
        }
    }
}

void TaskRegistry::tellRate(std::map<const DownloadTask*, std::int64_t>& before, std::unique_lock<std::mutex>& lock)
{
    std::map<const DownloadTask*, std::int64_t> now;
    std::int64_t bytes = 0;
    for (const auto& [id, task] : m_tasks) {
        if (task->over())
            continue;
        const std::int64_t received = task->receivedBytes();
        now[task.get()] = received;
        bytes += received - (before.count(task.get()) ? before[task.get()] : 0);
    }
    before = std::move(now);
    if (!before.empty() && !m_stopping) {
        lock.unlock();
        m_callbacks.bitrate(static_cast<int>(std::min<std::int64_t>(bytes * 8 / 1000, 0x7fffffff)));
        lock.lock();
    }
}

/// Lets go of ended tasks beyond those whose reports are kept. Their threads have ended, so joining does not wait.
void TaskRegistry::reap(std::unique_lock<std::mutex>& lock)
{
    std::vector<std::shared_ptr<DownloadTask>> gone;
    for (auto task = m_replaced.begin(); task != m_replaced.end();) {
        if (!(*task)->exited()) {
            ++task;
            continue;
        }
        gone.push_back(std::move(*task));
        task = m_replaced.erase(task);
    }
    for (const auto& [id, task] : m_tasks) {
        if (task->exited() && std::find(m_ended.begin(), m_ended.end(), id) == m_ended.end())
            m_ended.push_back(id);
    }
    while (m_ended.size() > maxEndedKept) {
        const auto found = m_tasks.find(m_ended.front());
        if (found != m_tasks.end()) {
            gone.push_back(std::move(found->second));
            m_tasks.erase(found);
        }
        m_ended.pop_front();
    }
    const bool idle =
        std::all_of(m_tasks.begin(), m_tasks.end(), [](const auto& task) { return task.second->exited(); });
    lock.unlock();
    gone.clear();
    if (idle)
        m_pool.clear();
    lock.lock();
}

bool TaskRegistry::waitRepaired(int timeoutMs)
{
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return m_repaired; });
}

std::string TaskRegistry::repairReport() const
{
    const std::lock_guard lock(m_mutex);
    return repairJson(m_repairs);
}

void TaskRegistry::shutdown()
{
    std::map<std::string, std::shared_ptr<DownloadTask>> tasks;
    std::vector<std::shared_ptr<DownloadTask>> replaced;
    std::thread watcher;
    std::thread repairer;
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        m_initialised = false;
        tasks = std::exchange(m_tasks, {});
        replaced = std::exchange(m_replaced, {});
        watcher = std::move(m_watcher);
        repairer = std::move(m_repairer);
        m_ended.clear();
    }
    m_changed.notify_all();
    std::int64_t count = 0;
    std::string time;
    for (const auto& [id, task] : tasks) {
        try {
            task->stop(count, time);
        } catch (const std::bad_alloc&) {
            // It has stopped; there was no memory to say how far it got.
        }
    }
    tasks.clear();
    replaced.clear();
    for (std::thread* thread : {&watcher, &repairer}) {
        if (thread->joinable())
            thread->join();
    }
    m_pool.clear();
}

} // namespace vaws
