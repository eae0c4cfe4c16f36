#include "PlayerThreads.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThread>
#include <QVector>

namespace vemo_base {

namespace {

constexpr unsigned long longestWaitMs = 3000;

QVector<QPointer<QThread>>& threads()
{
    static QVector<QPointer<QThread>> list;
    return list;
}

} // namespace

QThread* PlayerThreads::make()
{
    QVector<QPointer<QThread>>& list = threads();
    // Once for each application object: the routines go with it.
    static QPointer<QCoreApplication> application;
    if (application != QCoreApplication::instance()) {
        application = QCoreApplication::instance();
        qAddPostRoutine(&PlayerThreads::joinAll);
    }
    list.removeAll(QPointer<QThread>());
    auto* thread = new QThread;
    thread->setObjectName(QStringLiteral("player"));
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    list.append(thread);
    return thread;
}

void PlayerThreads::joinAll()
{
    for (const QPointer<QThread>& thread : qAsConst(threads())) {
        if (!thread)
            continue;
        thread->quit();
        if (thread->wait(longestWaitMs))
            delete thread;
    }
    threads().clear();
}

} // namespace vemo_base
