#pragma once

#include "DecodeWorker.h"

#include <QThread>

namespace vemo_client {

/// A decoding worker and its thread. The end waits for the access unit that is in work: a fraction of a frame's time.
class DecodeThread final
{
    Q_DISABLE_COPY_MOVE(DecodeThread)

public:
    DecodeThread(std::shared_ptr<DecodeMailbox> mailbox, std::function<void()> tell)
        : m_worker(new DecodeWorker(std::move(mailbox), std::move(tell)))
    {
        m_thread.setObjectName(QStringLiteral("video decode"));
        m_worker->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::finished, m_worker, &QObject::deleteLater);
        m_thread.start();
    }
    ~DecodeThread()
    {
        m_worker->stop();
        m_thread.quit();
        m_thread.wait();
    }

    DecodeWorker& worker() { return *m_worker; }

private:
    QThread m_thread;
    DecodeWorker* m_worker;
};

} // namespace vemo_client
