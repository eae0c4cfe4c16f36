#pragma once

#include "Mailbox.h"

#include <QThread>

#include <utility>

namespace vms_sdk {

/// A named thread with one object that lives on it; the handle's destructor ends the thread's event loop, waits for it
/// and leaves no object behind, whatever runs there. The object is used by posted calls only; its signals are connected
/// directly, to functors that hand them on.
template <class Worker>
class WorkerThread final
{
public:
    template <class... Args>
    explicit WorkerThread(const QString& name, Args&&... args)
        : m_worker(new Worker(std::forward<Args>(args)...))
        , m_mailbox(new Mailbox)
    {
        m_thread.setObjectName(name);
        m_worker->moveToThread(&m_thread);
        m_mailbox->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
        QObject::connect(&m_thread, &QThread::finished, m_mailbox, &QObject::deleteLater);
    }
    ~WorkerThread()
    {
        m_thread.quit();
        m_thread.wait();
    }
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    /// After the worker's signals were connected.
    void start() { m_thread.start(); }
    Worker* worker() const { return m_worker; }
    Mailbox& mailbox() const { return *m_mailbox; }
    /// Runs `call(Worker&)` on the thread, later. Any thread.
    template <class Call>
    void post(Call call)
    {
        m_mailbox->post([worker = m_worker, call = std::move(call)] { call(*worker); });
    }

private:
    QThread m_thread;
    Worker* m_worker;
    Mailbox* m_mailbox;
};

} // namespace vms_sdk
