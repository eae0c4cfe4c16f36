#include "TaskCallbacks.h"

namespace vaws {

void CallbackTable::setEvent(vaws_event_callback callback)
{
    const std::lock_guard lock(m_mutex);
    m_event = callback;
}

void CallbackTable::setToggle(vaws_file_toggle_callback callback)
{
    const std::lock_guard lock(m_mutex);
    m_toggle = callback;
}

void CallbackTable::setBitrate(vaws_bitrate_callback callback)
{
    const std::lock_guard lock(m_mutex);
    m_bitrate = callback;
}

void CallbackTable::setConsumed(vaws_consumed_callback callback)
{
    const std::lock_guard lock(m_mutex);
    m_consumed = callback;
}

void CallbackTable::event(const std::string& task, int event, int value) const
{
    if (const auto callback = get(m_event))
        callback(task.c_str(), event, value);
}

void CallbackTable::toggle(const std::string& task, const std::string& file, int offsetMs,
                           const std::string& time) const
{
    if (const auto callback = get(m_toggle))
        callback(task.c_str(), file.c_str(), offsetMs, time.c_str());
}

void CallbackTable::bitrate(int kbitPerSecond) const
{
    if (const auto callback = get(m_bitrate))
        callback(kbitPerSecond);
}

void CallbackTable::consumed(const std::string& task, std::int64_t bytes) const
{
    if (const auto callback = get(m_consumed))
        callback(task.c_str(), bytes);
}

bool CallbackGate::enter()
{
    const std::lock_guard lock(m_mutex);
    if (m_shut)
        return false;
    m_busy = true;
    m_inside = std::this_thread::get_id();
    return true;
}

void CallbackGate::leave()
{
    {
        const std::lock_guard lock(m_mutex);
        m_busy = false;
    }
    m_left.notify_all();
}

void CallbackGate::shut()
{
    std::unique_lock lock(m_mutex);
    m_shut = true;
    if (m_busy && m_inside == std::this_thread::get_id())
        return;
    m_left.wait(lock, [&] { return !m_busy; });
}

} // namespace vaws
