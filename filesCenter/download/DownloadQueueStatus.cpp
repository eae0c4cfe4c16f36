#include "DownloadQueueStatus.h"

#include "details/FileVerifier.h"

#include <DataSignals.h>
#include <SystemMsg.h>

#include <QMetaObject>

#include <tuple>
#include <utility>

namespace vemo_filesCenter {

DownloadQueueStatus::DownloadQueueStatus()
{
    // A change that could not be stored is never announced, and nothing says which one it was.
    connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice, this, [this] {
        m_expected.clear();
        tellLater();
    });
}

DownloadQueueStatus& DownloadQueueStatus::instance()
{
    static DownloadQueueStatus status;
    return status;
}

void DownloadQueueStatus::setQueueCounts(int running, int waiting, int paused)
{
    m_counts.running = running;
    m_counts.waiting = waiting;
    m_counts.paused = paused;
    FileVerifier::instance().setDownloadsRunning(running > 0);
    tellLater();
}

void DownloadQueueStatus::setRetryCount(int retrying)
{
    m_counts.retrying = retrying;
    tellLater();
}

void DownloadQueueStatus::expect(const QString& taskId)
{
    m_expected.insert(taskId);
}

void DownloadQueueStatus::arrived(const QString& taskId)
{
    if (m_expected.remove(taskId))
        tellLater();
}

void DownloadQueueStatus::setHandedOut()
{
    m_isHandedOut = true;
    tellLater();
}

void DownloadQueueStatus::tellLater()
{
    if (!std::exchange(m_isTellDue, true))
        QMetaObject::invokeMethod(this, &DownloadQueueStatus::tell, Qt::QueuedConnection);
}

void DownloadQueueStatus::tell()
{
    m_isTellDue = false;
    const auto figures = [](const Counts& counts) {
        return std::make_tuple(counts.running, counts.waiting, counts.paused, counts.retrying);
    };
    if (!m_isHandedOut || !m_expected.isEmpty() || (m_everTold && figures(m_told) == figures(m_counts)))
        return;
    m_everTold = true;
    m_told = m_counts;
    emit vemo_contact::SystemMsg::instance().signalDownloadQueueChanged(m_told.running, m_told.waiting, m_told.paused,
                                                                        m_told.retrying);
}

} // namespace vemo_filesCenter
