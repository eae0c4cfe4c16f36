#include "DiskCall.h"

#include <QMutex>
#include <QMutexLocker>

#include <system_error>
#include <thread>

namespace vemo_worker {

namespace {

std::atomic<int> threads{0};

} // namespace

struct DiskCall::Shared
{
    QMutex mutex;
    DiskCall* call = nullptr; ///< by the mutex; nullptr once it is gone
    std::atomic<bool> isGivenUp{false};
};

DiskCall::DiskCall(QObject* context, int giveUpMs, const Answer& givenUp)
    : QObject(context)
    , m_shared(std::make_shared<Shared>())
    , m_givenUp(givenUp)
{
    m_shared->call = this;
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { finish(m_givenUp); });
    m_timer.start(giveUpMs);
}

DiskCall::~DiskCall()
{
    m_shared->isGivenUp = true;
    const QMutexLocker lock(&m_shared->mutex);
    m_shared->call = nullptr;
}

void DiskCall::start(QObject* context, int giveUpMs, const Work& work, const Answer& givenUp)
{
    auto* call = new DiskCall(context, giveUpMs, givenUp);
    if (threads.fetch_add(1) >= mostThreads) {
        threads.fetch_sub(1);
        call->m_timer.start(0);
        return;
    }
    // The pools of Qt wait for their threads at the end of the program, which a hanging disk would hold up.
    const auto body = [shared = call->m_shared, work] {
        const Answer answer = work(shared->isGivenUp);
        threads.fetch_sub(1);
        const QMutexLocker lock(&shared->mutex);
        if (DiskCall* waiting = shared->call)
            QMetaObject::invokeMethod(
                waiting, [waiting, answer] { waiting->finish(answer); }, Qt::QueuedConnection);
    };
    try {
        std::thread(body).detach();
    } catch (const std::system_error&) {
        threads.fetch_sub(1);
        call->m_timer.start(0);
    }
}

void DiskCall::finish(const Answer& answer)
{
    if (m_shared->isGivenUp.exchange(true))
        return;
    m_timer.stop();
    deleteLater();
    const Answer last = answer; // it may be ours, and may delete us
    last();
}

} // namespace vemo_worker
