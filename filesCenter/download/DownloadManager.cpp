#include "DownloadManager.h"

#include "DownloadSignals.h"

#include <DataSignals.h>
#include <DownloadTaskData.h>
#include <SystemMsg.h>

namespace vemo_filesCenter {

using vemo_data::DataSignals;

DownloadManager::DownloadManager()
{
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalPrepareQuitSystem, this,
            &DownloadManager::slotQuitSystem);
    const DataSignals& store = DataSignals::instance();
    connect(&store, &DataSignals::signalAddDownloadTasksToLocalDB, this,
            &DownloadManager::slotAddDownloadTasksToLocalDB);
    connect(&store, &DataSignals::signalDeleteDownloadTasksFromLocalDB, this,
            &DownloadManager::slotDeleteDownloadTasksFromLocalDB);
    connect(&store, &DataSignals::signalUpdateDownloadTasksInLocalDB, this,
            &DownloadManager::slotUpdateDownloadTaskskInLocalDB);
}

DownloadManager& DownloadManager::instance()
{
    static DownloadManager manager;
    return manager;
}

void DownloadManager::setDownloadingTable(DownloadTasksTable* table)
{
    m_downloadingTable = table;
}

void DownloadManager::setFailedTable(DownloadTasksTable* table)
{
    m_failedTable = table;
}

void DownloadManager::setSuccessTable(DownloadTasksTable* table)
{
    m_successTable = table;
}

DownloadTasksTable* DownloadManager::tableOf(int state) const
{
    switch (state) {
    case vemo_data::TaskWaiting:
    case vemo_data::TaskPaused:
        return m_downloadingTable;
    case vemo_data::TaskSucceeded:
        return m_successTable;
    case vemo_data::TaskLoginFailed:
    case vemo_data::TaskConnectFailed:
    case vemo_data::TaskAbnormal:
    case vemo_data::TaskInvalidFile:
    case vemo_data::TaskGetUrlFailed:
        return m_failedTable;
    default:
        return nullptr;
    }
}

void DownloadManager::loadTasks()
{
    if (!m_downloadingTable && !m_failedTable && !m_successTable)
        return;
    const QList<DownloadTaskInfo> tasks = vemo_data::DownloadTaskData::instance().getAllDownloadTasks();
    for (const DownloadTaskInfo& task : tasks) {
        if (DownloadTasksTable* table = tableOf(task.state))
            table->addTask(task, DownloadTasksTable::Source::StartUp);
    }
    if (!tasks.isEmpty() && m_downloadingTable)
        m_downloadingTable->startDownloading();

    DownloadSignals& downloads = DownloadSignals::instance();
    if (m_downloadingTable) {
        emit downloads.signalDownloadingTasksCnt(m_downloadingTable->taskCount());
        m_downloadingTable->updateOrderNumbers();
    }
    if (m_failedTable) {
        emit downloads.signalFailedTasksCnt(m_failedTable->taskCount());
        m_failedTable->updateOrderNumbers();
    }
    if (m_successTable) {
        emit downloads.signalSuccessTasksCnt(m_successTable->taskCount());
        m_successTable->updateOrderNumbers();
    }
}

void DownloadManager::slotAddDownloadTasksToLocalDB(const QList<DownloadTaskInfo>& tasks)
{
    for (const DownloadTaskInfo& task : tasks) {
        if (DownloadTasksTable* table = tableOf(task.state))
            table->addTask(task, DownloadTasksTable::Source::Store);
    }
}

void DownloadManager::slotUpdateDownloadTaskskInLocalDB(const QList<DownloadTaskInfo>& tasks)
{
    for (const DownloadTaskInfo& task : tasks) {
        if (DownloadTasksTable* table = tableOf(task.state))
            table->updateTask(task);
    }
}

void DownloadManager::slotDeleteDownloadTasksFromLocalDB(const QMap<int, QSet<QString>>& idsByState)
{
    for (auto it = idsByState.constBegin(); it != idsByState.constEnd(); ++it) {
        if (DownloadTasksTable* table = tableOf(it.key()))
            table->removeTasks(it.value());
    }
}

void DownloadManager::slotQuitSystem()
{
    const DataSignals& store = DataSignals::instance();
    disconnect(&store, &DataSignals::signalAddDownloadTasksToLocalDB, this, nullptr);
    disconnect(&store, &DataSignals::signalUpdateDownloadTasksInLocalDB, this, nullptr);
    if (m_downloadingTable)
        m_downloadingTable->stopAllDownloads();
}

} // namespace vemo_filesCenter
