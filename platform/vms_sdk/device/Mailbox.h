#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace vms_sdk {

/// Carries calls to the thread that it lives on, in the order they were posted. A turn of that thread's event loop runs
/// calls for a few milliseconds at most, so that timers and windows have their say however fast calls come; a crowd of
/// calls costs one event. What is still waiting when the mailbox is destroyed is never run. (Qt's own queued calls do
/// the same but all in one turn, and behind a lock that the thread sanitizer does not see.)
class Mailbox final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Mailbox)

public:
    using Call = std::function<void()>;

    explicit Mailbox(QObject* parent = nullptr);

    /// Any thread, while the mailbox lives.
    void post(Call call);
    bool event(QEvent* event) override;

private:
    bool takeWaiting();

    std::deque<Call> m_running; ///< taken over by the mailbox's thread

    // Under m_mutex.
    std::mutex m_mutex;
    std::deque<Call> m_waiting;
    bool m_isWoken = false;
};

/// A functor that hands a signal's arguments on to a member function on the mailbox's thread; for direct connections.
template <class Receiver, class... Args>
auto delivery(Mailbox& mailbox, Receiver& receiver, void (Receiver::*function)(Args...))
{
    return [&mailbox, &receiver, function](std::decay_t<Args>... args) {
        mailbox.post([&receiver, function, args...] { (receiver.*function)(args...); });
    };
}

} // namespace vms_sdk
