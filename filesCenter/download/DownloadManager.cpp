#include "DownloadManager.h"

#include "DownloadQueueStatus.h"
#include "DownloadRecovery.h"
#include "DownloadSignals.h"

#include <DataSignals.h>
#include <DownloadTaskData.h>
#include <SystemMsg.h>

namespace vemo_filesCenter {

using vemo_data::DataSignals;

namespace {

constexpr int bulkSize = 64;

} // namespace

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

void DownloadManager::forget(const DownloadTasksTable* table)
{
    for (DownloadTasksTable** known : {&m_downloadingTable, &m_failedTable, &m_successTable}) {
        if (*known == table)
            *known = nullptr;
    }
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
    if (m_recovery == Recovery::Done) {
        handOut();
    } else if (m_recovery == Recovery::Due) {
        m_recovery = Recovery::UnderWay;
        DownloadRecovery::run(this, [this] {
            m_recovery = Recovery::Done;
            handOut();
        });
    }
}

void DownloadManager::handOut()
{
    const QList<DownloadTaskInfo> tasks = vemo_data::DownloadTaskData::instance().getAllDownloadTasks();
    QMap<DownloadTasksTable*, QList<DownloadTaskInfo>> tasksOf;
    for (const DownloadTaskInfo& task : tasks) {
        if (DownloadTasksTable* table = tableOf(task.state))
            tasksOf[table].append(task);
    }
    for (DownloadTasksTable* table : {m_downloadingTable, m_failedTable, m_successTable}) {
        if (table && tasksOf.contains(table))
            table->addTasks(tasksOf.value(table), DownloadTasksTable::Source::StartUp);
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
    DownloadQueueStatus::instance().setHandedOut();
}

void DownloadManager::slotAddDownloadTasksToLocalDB(const QList<DownloadTaskInfo>& tasks)
{
    if (m_recovery == Recovery::UnderWay)
        return; // what was stored meanwhile is handed out with the rest
    // Many tasks in a row for one table are added in one go.
    for (int i = 0; i < tasks.size();) {
        DownloadTasksTable* table = tableOf(tasks.at(i).state);
        int end = i + 1;
        while (end < tasks.size() && tableOf(tasks.at(end).state) == table)
            ++end;
        if (table && end - i >= bulkSize) {
            table->addTasks(tasks.mid(i, end - i), DownloadTasksTable::Source::Store);
        } else if (table) {
            for (int k = i; k < end; ++k)
                table->addTask(tasks.at(k), DownloadTasksTable::Source::Store);
        }
        i = end;
    }
    for (const DownloadTaskInfo& task : tasks)
        DownloadQueueStatus::instance().arrived(task.taskId);
}

void DownloadManager::slotUpdateDownloadTaskskInLocalDB(const QList<DownloadTaskInfo>& tasks)
{
    if (m_recovery == Recovery::UnderWay)
        return;
    for (const DownloadTaskInfo& task : tasks) {
        DownloadTasksTable* target = tableOf(task.state);
        for (DownloadTasksTable* table : {m_downloadingTable, m_failedTable, m_successTable}) {
            if (table && table != target && table->hasTask(task.taskId))
                table->removeTasks({task.taskId});
        }
        if (target)
            target->updateTask(task);
        DownloadQueueStatus::instance().arrived(task.taskId);
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
