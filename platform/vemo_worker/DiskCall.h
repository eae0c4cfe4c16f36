#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

namespace vemo_worker {

/// One question to a disk that may never answer, such as a network path whose host is gone: asked on a thread of its
/// own, which is left behind when the time is over. GUI thread; owned by the context, with which it goes, and no answer
/// comes then. Threads left behind are counted: beyond `mostThreads` a further question is given up at once.
class VEMO_WORKER_EXPORT DiskCall final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DiskCall)

public:
    using Answer = std::function<void()>;
    /// Carried out on the thread; what it returns is called on the GUI thread. It looks at the flag where it can, and
    /// ends early when that is set.
    using Work = std::function<Answer(const std::atomic<bool>& isGivenUp)>;

    static constexpr int mostThreads = 16;

    /// One of the two is called, later: what the work returned, or `givenUp`.
    static void start(QObject* context, int giveUpMs, const Work& work, const Answer& givenUp);
    ~DiskCall() override;

private:
    struct Shared;

    DiskCall(QObject* context, int giveUpMs, const Answer& givenUp);
    void finish(const Answer& answer);

    std::shared_ptr<Shared> m_shared;
    Answer m_givenUp;
    QTimer m_timer;
};

} // namespace vemo_worker
