#include "DiskWork.h"

#include <QPointer>
#include <QSemaphore>
#include <QThreadPool>

#include <memory>
#include <utility>

namespace vemo_filesCenter {

namespace {

QThreadPool& diskThread()
{
    static QThreadPool pool;
    static const bool isSetUp = [] {
        pool.setMaxThreadCount(1);
        return true;
    }();
    Q_UNUSED(isSetUp)
    return pool;
}

struct Outcome
{
    QSemaphore finished;
    bool isTold = false; ///< GUI thread only
};

} // namespace

void DiskWork::run(std::function<void()> job, QObject* context, std::function<void()> done, int patienceMs)
{
    auto outcome = std::make_shared<Outcome>();
    // The context may go while the job runs: it is looked at on its own thread only, never on the job's.
    auto* messenger = new QObject;
    const auto tell = [outcome, receiver = QPointer<QObject>(context), done = std::move(done)] {
        if (!std::exchange(outcome->isTold, true) && receiver)
            done();
    };
    diskThread().start([job = std::move(job), outcome, messenger, tell] {
        job();
        outcome->finished.release();
        QMetaObject::invokeMethod(
            messenger,
            [messenger, tell] {
                messenger->deleteLater();
                tell();
            },
            Qt::QueuedConnection);
    });
    if (patienceMs > 0 && outcome->finished.tryAcquire(1, patienceMs))
        tell();
}

} // namespace vemo_filesCenter
