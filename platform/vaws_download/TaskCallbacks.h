#pragma once

#include "vaws_download.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>

namespace vaws {

/// The callbacks that the process registered. Safe for threads; a callback runs without any lock held.
class CallbackTable final
{
public:
    void setEvent(vaws_event_callback callback);
    void setToggle(vaws_file_toggle_callback callback);
    void setBitrate(vaws_bitrate_callback callback);
    void setConsumed(vaws_consumed_callback callback);

    void event(const std::string& task, int event, int value) const;
    void toggle(const std::string& task, const std::string& file, int offsetMs, const std::string& time) const;
    void bitrate(int kbitPerSecond) const;
    void consumed(const std::string& task, std::int64_t bytes) const;

private:
    template <class Callback>
    Callback get(const Callback& callback) const
    {
        const std::lock_guard lock(m_mutex);
        return callback;
    }

    mutable std::mutex m_mutex;
    vaws_event_callback m_event = nullptr;
    vaws_file_toggle_callback m_toggle = nullptr;
    vaws_bitrate_callback m_bitrate = nullptr;
    vaws_consumed_callback m_consumed = nullptr;
};

/// Lets the callbacks of one task through until it is shut. shut() waits for a callback that is under way, unless it is
/// called from inside that callback.
class CallbackGate final
{
public:
    template <class Call>
    void pass(Call&& call)
    {
        if (!enter())
            return;
        call();
        leave();
    }
    void shut();

private:
    bool enter();
    void leave();

    std::mutex m_mutex;
    std::condition_variable m_left;
    std::thread::id m_inside;
    bool m_busy = false;
    bool m_shut = false;
};

} // namespace vaws
