#pragma once

#include "DownloadTask.h"

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vaws {

/// All tasks of the process, the repair at the start, and the thread that measures the bit rate and joins what has
/// ended. One a process; safe for threads. No lock is held while a task works or a callback runs.
class TaskRegistry final
{
public:
    static TaskRegistry& instance();

    int initialise(const std::string& folder);
    int start(TaskSettings settings);
    /// The newest task of this id, ended ones included; nullptr when there is none.
    std::shared_ptr<DownloadTask> find(const std::string& id) const;
    CallbackTable& callbacks() { return m_callbacks; }
    void setFileLimit(std::uint64_t bytes) { m_fileLimit = bytes; }
    void setClockTrack(bool on) { m_clockTrack = on; }
    void setWholeSeconds(bool on) { m_wholeSeconds = on; }

    bool waitRepaired(int timeoutMs);
    std::string repairReport() const;
    void shutdown();

private:
    TaskRegistry() = default;
    void watch();
    void tellRate(std::map<const DownloadTask*, std::int64_t>& before, std::unique_lock<std::mutex>& lock);
    void repairAll(std::vector<TaskJournal::Left>& journals);
    void reap(std::unique_lock<std::mutex>& lock);

    CallbackTable m_callbacks;
    BufferPool m_pool;
    std::atomic<std::uint64_t> m_fileLimit{0};
    std::atomic<bool> m_clockTrack{false};
    std::atomic<bool> m_wholeSeconds{false};

    // Guarded by m_mutex.
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, std::shared_ptr<DownloadTask>> m_tasks;
    std::vector<std::shared_ptr<DownloadTask>> m_replaced; ///< their id has a newer task; still working
    std::list<std::string> m_ended;                        ///< ids, oldest first
    std::filesystem::path m_folder;
    bool m_initialised = false;
    bool m_repaired = true;
    bool m_stopping = false;
    std::vector<RepairRecord> m_repairs;
    std::thread m_watcher;
    std::thread m_repairer;
};

} // namespace vaws
