#pragma once

#include <QThread>

#include <utility>

namespace vms_sdk {

/// A named thread with one object that lives on it; the handle's destructor ends the thread's event loop, waits for it
/// and leaves no object behind, whatever runs there. The object is used by queued calls only.
template <class Worker>
class WorkerThread final
{
public:
    template <class... Args>
    explicit WorkerThread(const QString& name, Args&&... args)
        : m_worker(new Worker(std::forward<Args>(args)...))
    {
        m_thread.setObjectName(name);
        m_worker->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
        m_thread.start();
    }
    ~WorkerThread()
    {
        m_thread.quit();
        m_thread.wait();
    }
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    Worker* worker() const { return m_worker; }
    /// Runs `call(Worker&)` on the thread, later.
    template <class Call>
    void post(Call&& call)
    {
        QMetaObject::invokeMethod(
            m_worker, [worker = m_worker, call = std::forward<Call>(call)] { call(*worker); }, Qt::QueuedConnection);
    }

private:
    QThread m_thread;
    Worker* m_worker;
};

} // namespace vms_sdk
