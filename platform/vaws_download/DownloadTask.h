#pragma once

#include "CutList.h"
#include "FrameTarget.h"
#include "OutputWriter.h"
#include "StreamAssembler.h"
#include "TaskCallbacks.h"
#include "TaskReport.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace vaws {

class LocalCutter;

struct TaskSettings
{
    enum class Kind : std::uint8_t { Unknown = 0, ByFile, TimeRange, LocalCut };

    std::string id;
    Kind kind = Kind::Unknown;
    std::string path; ///< UTF-8
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
    std::int64_t downloadedMs = 0;
    std::filesystem::path journalFolder;
    std::uint64_t reserveBytes = 0; ///< free space below this is told, once
    std::uint64_t maxFileBytes = 0;
    bool clockTrack = false;
    bool wholeSeconds = false; ///< ended early, the file shows whole seconds
    CutList cut;
    std::string problem; ///< the task can only tell this, as event 14
};

/// One library task: takes packets from any thread, puts them into the image of the file at once, and has one writer
/// thread for everything that may wait: disk, sync, finishing, callbacks. Life: start(), packets and player events, one
/// ending event or stop() or cancel(); the thread ends by itself and is joined by the destructor. After an ending the
/// task still tells its report. The file of a task that failed stays as far as it plays.
class DownloadTask final : private AssemblyPort, private FrameTarget
{
public:
    DownloadTask(TaskSettings settings, BufferPool& pool, const CallbackTable& callbacks);
    ~DownloadTask() override;

    void start();
    int push(const void* data, std::size_t size);
    int playerEvent(int event);
    int pause();
    int resume();
    int cancel();
    /// Returns within 200 ms.
    int stop(std::int64_t& count, std::string& timeText);

    const std::string& id() const { return m_settings.id; }
    int status() const;
    std::int64_t backlog() const;
    std::int64_t creditHint() const;
    std::int64_t receivedBytes() const { return m_received.load(std::memory_order_relaxed); }
    TaskReport report() const;
    bool over() const;                              ///< no longer working for its caller
    bool exited() const { return m_exited.load(); } ///< the thread can be joined at once

private:
    enum class Phase : std::uint8_t { Taking, Finishing, Over };
    struct Item
    {
        enum class Kind : std::uint8_t { Open, Data, Close } kind = Kind::Data;
        std::shared_ptr<OutputPlan> plan;
        std::unique_ptr<MediaBuffer> buffer;
        bool switched = false;
        std::int64_t nextNs = 0;
    };
    /// What is on the disk, over all outputs of the task.
    struct Reached
    {
        std::int64_t beginNs = 0;
        std::int64_t endNs = 0;
        std::int64_t lastFrameNs = 0;
        std::int64_t restBeginNs = 0;      ///< where the rest of the span is to begin; 0: behind the last frame
        std::int64_t outputBeginNs = 0;    ///< of the output at work
        std::int64_t outputCompleteNs = 0; ///< what is shown before is all there, of the output at work
        std::uint64_t frames = 0;
        std::uint64_t lost = 0;
        std::uint64_t bytes = 0;
        std::vector<Gap> gaps;
    };
    /// What stop() told while the disk held up the closing. The output is closed with that end, whatever else came to
    /// be written.
    struct Told
    {
        Reached reached;
        std::int64_t endNs = 0; ///< of the output at work; 0: nothing of it stays
    };
    using Lock = std::unique_lock<std::mutex>;

    // AssemblyPort, with m_mutex held.
    std::unique_ptr<MediaBuffer> newBuffer(std::size_t bytes) override;
    void submit(std::unique_ptr<MediaBuffer> buffer) override;
    void openOutput(std::shared_ptr<OutputPlan> plan) override;
    void closeOutput(bool switched, std::int64_t nextNs) override;

    // FrameTarget, on the cutter's thread.
    bool takeInfo(const vav::StreamInfo& info) override;
    bool takeFrame(const vav::FrameHeader& header, const std::uint8_t* payload) override;
    void sourceEnded(const SourceEnd& end) override;
    void sourceWithoutMemory() override;

    // With m_mutex held.
    void feed(const void* data, std::size_t size);
    void accept(StreamAssembler::Outcome outcome);
    void applyInfo(const vav::StreamInfo& info);
    void requestEnd(int event, const std::string& problem = {}, int code = 0);
    /// Memory ran out: the task ends with what was handed to the writer. Asks for no memory itself.
    void endForMemory();
    void takePlayerEvent(int event);
    void handOver(bool whateverThere);
    void returnUnassigned();
    void post(int event, int value = 0);
    void noteProgress();
    void takeReached();
    /// For an output that ends before the span does. False when nothing of it is to stay.
    bool endEarly();
    Told whatStays() const;
    std::int64_t recordingBeginNs() const;

    // On the writer thread.
    void run();
    void begin(Lock& lock);
    bool step(Lock& lock);
    /// After endForMemory(): leaves the file as far as it plays; its journal stays where it could not be finished.
    void rescueForMemory(Lock& lock);
    bool soundIsBehind() const;
    void deliver(Lock& lock);
    void process(Item item, Lock& lock);
    void processQueue(Lock& lock);
    void tick(Lock& lock);
    void endTask(Lock& lock);
    void abandon(Lock& lock);
    void finishOutput(const Item& item, Lock& lock);
    void fail(const WriteFailure& failure, Lock& lock);
    bool mayWrite() const;
    void leave(Lock& lock);

    TaskSettings m_settings; ///< as they are once start() has returned
    BufferPool& m_pool;
    const CallbackTable& m_callbacks;
    CallbackGate m_gate;
    std::unique_ptr<LocalCutter> m_cutter;
    std::atomic<std::int64_t> m_received{0};
    std::atomic<bool> m_exited{false};
    std::atomic<bool> m_cancelled{false};
    std::atomic<std::int64_t> m_deadlineNs{0}; ///< steady clock; what is not written by then is left out; 0: none

    // The writer thread's own.
    std::unique_ptr<OutputWriter> m_writer;
    std::unique_ptr<OutputWriter> m_unsettled; ///< finished, its sync still to come
    bool m_diskTold = false;
    std::chrono::steady_clock::time_point m_lastSync;

    // Guarded by m_mutex.
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;    ///< the writer thread has something to do
    std::condition_variable m_changed; ///< stop, cancel and the cutter wait for this
    Phase m_phase = Phase::Taking;
    StreamAssembler m_assembler;
    std::deque<Item> m_queue;
    std::vector<std::pair<int, int>> m_events;
    std::int64_t m_pushed = 0;
    std::int64_t m_consumed = 0;
    std::int64_t m_unassigned = 0; ///< pushed and not yet part of a buffer
    std::int64_t m_giveBack = 0;   ///< consumed and not yet told
    std::chrono::steady_clock::time_point m_lastHandOver;
    bool m_idle = false; ///< the writer thread waits for work
    bool m_flushNow = false;
    bool m_anyHandedOver = false;
    bool m_paused = false;
    bool m_stopping = false;
    bool m_settled = false; ///< nothing that stop() waits for is left to do
    int m_endEvent = 0;
    int m_lastWord = 0; ///< told behind m_events: an ending that there was no memory to queue
    bool m_noMemory = false;
    Reached m_reached;
    Reached m_before; ///< sums over outputs that are closed
    std::optional<Told> m_told;
    double m_diskRate = 0;
    TaskReport m_report;

    std::thread m_thread;
};

} // namespace vaws
