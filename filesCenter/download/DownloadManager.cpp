#include "DownloadManager.h"

#include "DownloadQueueStatus.h"
#include "DownloadRecovery.h"
#include "DownloadSignals.h"

#include "details/FileVerifier.h"

#include <DataSignals.h>
#include <DownloadTaskData.h>
#include <SystemMsg.h>

#include <utility>

namespace vemo_filesCenter {

using vemo_data::DataSignals;

namespace {

constexpr int bulkSize = 64;
/// So many rows are added within a picture or two of the screen.
constexpr int sliceSize = 500;

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
    connect(&m_sliceTimer, &QTimer::timeout, this, &DownloadManager::carryOutNext);
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
    if (m_loading == Loading::UnderWay)
        return;
    if (std::exchange(m_loading, Loading::UnderWay) == Loading::Recovered)
        readTasks();
    else
        DownloadRecovery::run(this, [this] { readTasks(); });
}

void DownloadManager::readTasks()
{
    vemo_data::DownloadTaskData::instance().getAllDownloadTasks(this, [this](const QList<DownloadTaskInfo>& tasks) {
        m_loading = Loading::Recovered;
        handOut(tasks);
    });
}

void DownloadManager::handOut(const QList<DownloadTaskInfo>& tasks)
{
    QMap<int, QList<DownloadTaskInfo>> tasksOf;
    DownloadTasksTable* const tables[] = {m_downloadingTable, m_failedTable, m_successTable};
    constexpr int tableCount = 3;
    for (const DownloadTaskInfo& task : tasks) {
        for (int i = 0; i < tableCount; ++i) {
            if (tables[i] && tables[i] == tableOf(task.state))
                tasksOf[i].append(task);
        }
    }
    for (int i = 0; i < tableCount; ++i) {
        DownloadTasksTable* table = tables[i];
        if (!tasksOf.contains(i))
            continue;
        inSlices(tasksOf.value(i), [this, table](const QList<DownloadTaskInfo>& slice) {
            if (table == m_downloadingTable || table == m_failedTable || table == m_successTable)
                table->addTasks(slice, DownloadTasksTable::Source::StartUp);
        });
    }
    carryOut([this, isEmpty = tasks.isEmpty()] { tellHandedOut(isEmpty); });
}

void DownloadManager::tellHandedOut(bool isEmpty)
{
    if (!isEmpty && m_downloadingTable)
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
    FileVerifier::instance().catchUpLater();
}

void DownloadManager::slotAddDownloadTasksToLocalDB(const QList<DownloadTaskInfo>& tasks)
{
    if (m_loading == Loading::UnderWay)
        return; // what was stored meanwhile is handed out with the rest
    inSlices(tasks, [this](const QList<DownloadTaskInfo>& slice) { add(slice); });
}

void DownloadManager::add(const QList<DownloadTaskInfo>& tasks)
{
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
    if (m_loading == Loading::UnderWay)
        return;
    inSlices(tasks, [this](const QList<DownloadTaskInfo>& slice) { update(slice); });
}

void DownloadManager::update(const QList<DownloadTaskInfo>& tasks)
{
    QList<DownloadTaskInfo> moved; // into tables that don't have them yet
    for (const DownloadTaskInfo& task : tasks) {
        DownloadTasksTable* target = tableOf(task.state);
        for (DownloadTasksTable* table : {m_downloadingTable, m_failedTable, m_successTable}) {
            if (table && table != target && table->hasTask(task.taskId))
                table->removeTasks({task.taskId});
        }
        if (target && tasks.size() >= bulkSize && !target->hasTask(task.taskId))
            moved.append(task);
        else if (target)
            target->updateTask(task);
    }
    add(moved);
    for (const DownloadTaskInfo& task : tasks)
        DownloadQueueStatus::instance().arrived(task.taskId);
}

void DownloadManager::slotDeleteDownloadTasksFromLocalDB(const QMap<int, QSet<QString>>& idsByState)
{
    carryOut([this, idsByState] {
        for (auto it = idsByState.constBegin(); it != idsByState.constEnd(); ++it) {
            if (DownloadTasksTable* table = tableOf(it.key()))
                table->removeTasks(it.value());
        }
    });
}

void DownloadManager::inSlices(const QList<DownloadTaskInfo>& tasks,
                               const std::function<void(const QList<DownloadTaskInfo>&)>& change)
{
    if (tasks.size() <= sliceSize) {
        carryOut([change, tasks] { change(tasks); });
        return;
    }
    for (int begin = 0; begin < tasks.size(); begin += sliceSize)
        carryOutLater([change, slice = tasks.mid(begin, sliceSize)] { change(slice); });
}

void DownloadManager::carryOut(const std::function<void()>& change)
{
    if (m_changes.isEmpty())
        change();
    else
        m_changes.enqueue(change);
}

void DownloadManager::carryOutLater(const std::function<void()>& change)
{
    m_changes.enqueue(change);
    if (!m_sliceTimer.isActive())
        m_sliceTimer.start(0); // a timer, so that input and painting come between two slices
}

void DownloadManager::carryOutNext()
{
    if (!m_changes.isEmpty()) {
        const std::function<void()> change = m_changes.head();
        change();
    }
    // Not before: what is announced while it is carried out comes behind what waits.
    if (!m_changes.isEmpty())
        m_changes.dequeue();
    if (m_changes.isEmpty())
        m_sliceTimer.stop();
}

void DownloadManager::slotQuitSystem()
{
    const DataSignals& store = DataSignals::instance();
    disconnect(&store, &DataSignals::signalAddDownloadTasksToLocalDB, this, nullptr);
    disconnect(&store, &DataSignals::signalUpdateDownloadTasksInLocalDB, this, nullptr);
    m_changes.clear();
    m_sliceTimer.stop();
    if (m_downloadingTable)
        m_downloadingTable->stopAllDownloads();
}

} // namespace vemo_filesCenter
