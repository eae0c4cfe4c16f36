#include "DiskWork.h"

#include <QList>
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
    bool isTold = false; ///< GUI thread only, as what follows
    std::function<void()> tell;
};

/// Jobs that are not told yet, in their order.
QList<std::shared_ptr<Outcome>>& pending()
{
    static QList<std::shared_ptr<Outcome>> outcomes;
    return outcomes;
}

void tell(const std::shared_ptr<Outcome>& outcome)
{
    if (std::exchange(outcome->isTold, true))
        return;
    pending().removeOne(outcome);
    const std::function<void()> owed = std::exchange(outcome->tell, {});
    owed();
}

} // namespace

void DiskWork::run(std::function<void()> job, QObject* context, std::function<void()> done, int patienceMs)
{
    auto outcome = std::make_shared<Outcome>();
    // The context may go while the job runs: it is looked at on its own thread only, never on the job's.
    auto* messenger = new QObject;
    outcome->tell = [receiver = QPointer<QObject>(context), done = std::move(done)] {
        if (receiver)
            done();
    };
    pending().append(outcome);
    diskThread().start([job = std::move(job), outcome, messenger] {
        job();
        outcome->finished.release();
        QMetaObject::invokeMethod(
            messenger,
            [messenger, outcome] {
                messenger->deleteLater();
                tell(outcome);
            },
            Qt::QueuedConnection);
    });
    if (patienceMs > 0 && outcome->finished.tryAcquire(1, patienceMs))
        tell(outcome);
}

void DiskWork::finish(int mostMs)
{
    diskThread().waitForDone(mostMs);
    const QList<std::shared_ptr<Outcome>> given = pending();
    for (const std::shared_ptr<Outcome>& outcome : given) {
        if (outcome->finished.tryAcquire())
            tell(outcome);
    }
}

} // namespace vemo_filesCenter
