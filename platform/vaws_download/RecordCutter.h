#pragma once

#include "LocalCutter.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <thread>

namespace vaws {

/// The cutter on libavformat.
class RecordCutter final : public LocalCutter
{
public:
    RecordCutter(CutList list, FrameTarget& target);
    RecordCutter(const RecordCutter&) = delete;
    RecordCutter& operator=(const RecordCutter&) = delete;
    ~RecordCutter() override;

    void start() override;
    void requestStop() override { m_stop = true; }

private:
    class Source;
    void run();
    void readAll();
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
