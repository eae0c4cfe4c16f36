#include "DownloadRuns.h"

#include <QMutexLocker>

#include <cstring>

namespace vemo_filesCenter {

quint64 DownloadRuns::begin(const QString& taskId)
{
    const QMutexLocker lock(&m_mutex);
    m_runs.insert(taskId.toUtf8(), Run{++m_lastNumber, 0});
    return m_lastNumber;
}

void DownloadRuns::setStream(const QString& taskId, quint64 streamId)
{
    const QMutexLocker lock(&m_mutex);
    const auto found = m_runs.find(taskId.toUtf8());
    if (found != m_runs.end())
        found->streamId = streamId;
}

void DownloadRuns::end(const QString& taskId)
{
    const QMutexLocker lock(&m_mutex);
    m_runs.remove(taskId.toUtf8());
}

DownloadRuns::Run DownloadRuns::run(const char* taskId) const
{
    // No copy of the text: this is asked for every batch that was written.
    const QByteArray key = QByteArray::fromRawData(taskId, static_cast<int>(std::strlen(taskId)));
    const QMutexLocker lock(&m_mutex);
    return m_runs.value(key);
}

DownloadRuns::Run DownloadRuns::run(const QString& taskId) const
{
    const QMutexLocker lock(&m_mutex);
    return m_runs.value(taskId.toUtf8());
}

} // namespace vemo_filesCenter
