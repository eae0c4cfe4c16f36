#pragma once

#include "CutList.h"
#include "FrameTarget.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

struct AVFormatContext;
struct AVPacket;

namespace vaws {

/// Reads a span out of local recording files, packets as they are, on a thread of its own, and gives them to a target
/// in order. A file that is missing or broken is left out and told. Life: start() once, then the target's sourceEnded()
/// once, unless requestStop() comes before; the destructor stops and joins.
class LocalCutter final
{
public:
    LocalCutter(CutList list, FrameTarget& target);
    ~LocalCutter();

    void start();
    /// The thread ends as soon as it looks; does not wait for it. Safe for threads.
    void requestStop() { m_stop = true; }

private:
    class Source;
    void run();
    /// False when no more is wanted.
    bool readRecord(const CutRecord& record, std::string& problem);
    bool readPackets(Source& source, const CutRecord& record, std::string& problem);

    const CutList m_list;
    FrameTarget& m_target;
    std::atomic<bool> m_stop{false};
    std::thread m_thread;

    // The thread's own.
    std::int64_t m_writtenToNs = 0; ///< behind the last picture given
    bool m_any = false;
};

} // namespace vaws
