#include "BackupWorker.h"

namespace vemo_filesCenter {

BackupWorker::BackupWorker() = default;

BackupWorker& BackupWorker::instance()
{
    static BackupWorker worker;
    return worker;
}

void BackupWorker::startTask(const BackupTaskInfo& task)
{
    m_tasks.insert(task.taskId, task);
}

void BackupWorker::stopTask(const QString& taskId)
{
    m_waiting.removeAll(taskId);
}

void BackupWorker::deleteTask(const QString& taskId)
{
    m_waiting.removeAll(taskId);
    m_tasks.remove(taskId);
    m_messages.remove(taskId);
}

bool BackupWorker::task(const QString& taskId, BackupTaskInfo* info) const
{
    const auto found = m_tasks.constFind(taskId);
    if (found == m_tasks.constEnd())
        return false;
    *info = *found;
    return true;
}

int BackupWorker::state(const QString& taskId) const
{
    return m_tasks.value(taskId).state;
}

QString BackupWorker::message(const QString& taskId) const
{
    return m_messages.value(taskId);
}

QTime BackupWorker::curTime(const QString& taskId) const
{
    return m_tasks.value(taskId).curTime.time();
}

void BackupWorker::setTaskMessage(const BackupTaskInfo& task, const QString& text, bool log)
{
    Q_UNUSED(log)
    m_messages.insert(task.taskId, text);
    emit signalBackupError(task.taskId, text);
}

void BackupWorker::setTaskMessage(const QString& taskId, const QString& text, bool log)
{
    BackupTaskInfo info = m_tasks.value(taskId);
    info.taskId = taskId;
    setTaskMessage(info, text, log);
}

int BackupWorker::busyCount() const
{
    return m_running.size() + m_waiting.size();
}

} // namespace vemo_filesCenter
