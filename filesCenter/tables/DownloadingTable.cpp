#include "DownloadingTable.h"

#include "DownloadingOperWt.h"
#include "DownloadRecords.h"
#include "TaskPageFrame.h"
#include "TaskTexts.h"

#include "download/DownloadEvents.h"
#include "download/DownloadManager.h"
#include "download/DownloadQueueStatus.h"
#include "download/DownloadSignals.h"
#include "download/DownloadWorker.h"
#include "download/TaskFiles.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DiskManager.h>
#include <DownloadTaskData.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <TableWidget.h>
#include <VMessageBox.h>

#include <QFileInfo>
#include <QPushButton>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_data::DownloadTaskData;
using vemo_worker::DictDef;

namespace {

constexpr int tryDownloadMs = 30000;
constexpr int refreshMs = 3000;
constexpr int questionWithYesAndNo = 3;
constexpr int answerYes = 1;
constexpr int noProgress = -1;
constexpr int taskUnnamedFailure = -1; ///< kept in the store, shown in no table

void alert(const QString& title, const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(title, text);
}

} // namespace

DownloadingTable::DownloadingTable(QWidget* parent)
    : QWidget(parent)
    , m_frame(new TaskPageFrame(
          this,
          {tr("Downloading"),
           QStringLiteral("download-mgr"),
           tr("Nothing is being downloaded."),
           tr("Mark a span in Playback and press Download."),
           true,
           {DownloadingRows::LocationColumn, DownloadingRows::RangeColumn},
           QString(),
           {{tr("Space"), tr("check")}, {tr("Enter"), tr("start or stop")}, {tr("Del"), tr("clean the task")}}},
          {tr("All"), tr("Channel Name"), tr("Datetime Range"), tr("Location"), tr("Download Progress"), tr("Oper")}))
    , m_table(m_frame->table())
    , m_rows(
          m_table, &m_tasks,
          [this](DownloadingOperWt* widget) {
              connect(widget, &DownloadingOperWt::signalStartDownloading, this,
                      &DownloadingTable::slotStartDownloading);
              connect(widget, &DownloadingOperWt::signalStopDownloading, this, &DownloadingTable::slotStopDownloading);
              connect(widget, &DownloadingOperWt::signalOpenDownloadFolder, this,
                      &DownloadingTable::slotOpenDownloadFolder);
              connect(widget, &DownloadingOperWt::signalCleanDownloadTask, this,
                      &DownloadingTable::slotCleanDownloadTask);
          },
          [this](const QString& key) { return toolTipOf(key); }, nullptr)
{
    m_clock.start();
    m_table->setObjectName(QStringLiteral("downloadingTable"));
    m_tasks.setTableWidget(m_table);
    m_frame->setColumnRoom({110, 0, 250, 120, 320, 130}, {76, 0, 206, 110, 240, 96});
    m_frame->setTaskOfRow([this](int row) { return m_tasks.record(m_tasks.keyOfRow(row)); });
    setUpConnections();
    DownloadManager::instance().setDownloadingTable(this);
    m_tryDownloadTimer.start(tryDownloadMs);
    m_refreshTimer.start(refreshMs);
}

DownloadingTable::~DownloadingTable()
{
    DownloadManager::instance().forget(this);
    // It asks for the widgets of its rows to its end, so it ends before what they are made from.
    m_table->disconnect();
    delete m_table;
}

void DownloadingTable::setUpConnections()
{
    const DownloadSignals& downloads = DownloadSignals::instance();
    connect(&downloads, &DownloadSignals::signalAddDownloadTaskToDownloadingTable, this,
            &DownloadingTable::slotAddDownloadTaskToDownloadingTable);
    connect(&downloads, &DownloadSignals::signalDownloadEvent, this, &DownloadingTable::slotDownloadEvent);
    connect(&downloads, &DownloadSignals::signalDownloadFileToggle, this, &DownloadingTable::slotDownloadFileToggle);
    connect(&m_tryDownloadTimer, &QTimer::timeout, this, &DownloadingTable::slotTryDownloadTimeout);
    connect(&m_refreshTimer, &QTimer::timeout, this, [this] {
        if (m_table->isVisible()) {
            refreshTaskChannels();
            refreshSummary();
        }
        tellTimeLeft();
    });

    const auto button = [this](const char* name, const QString& text, const char* icon, bool isPrimary,
                               void (DownloadingTable::*press)()) {
        QPushButton* made = m_frame->addButton(QLatin1String(name), text, QLatin1String(icon), isPrimary);
        connect(made, &QPushButton::clicked, this, press);
    };
    button("batchStartBt", tr("Batch Start"), "start", true, &DownloadingTable::batchStart);
    button("batchStopBt", tr("Batch Stop"), "stop", false, &DownloadingTable::batchStop);
    button("batchCancelBt", tr("Batch Cancel"), "close", false, &DownloadingTable::batchCancel);

    connect(m_table, &TableWidget::signalRowActivated, this, &DownloadingTable::activateRow);
    connect(m_table, &TableWidget::signalRowMenuRequested, this, &DownloadingTable::openRowMenu);
    connect(m_table, &TableWidget::signalDeleteRequested, this, [this] {
        if (m_table->checkedCount() > 0)
            batchCancel();
        else
            slotCleanDownloadTask(m_tasks.keyOfRow(m_table->currentRow()));
    });
}

// Rows

void DownloadingTable::addTask(const DownloadTaskInfo& task, Source source)
{
    const bool isFromStore = source == Source::Store;
    addTaskRow(task, isFromStore, isFromStore);
}

void DownloadingTable::addTasks(const QList<DownloadTaskInfo>& tasks, Source source)
{
    QList<DownloadTaskInfo> fresh;
    QSet<QString> keys;
    for (const DownloadTaskInfo& task : tasks) {
        if (!m_tasks.contains(task.taskId) && !keys.contains(task.taskId)) {
            keys.insert(task.taskId);
            fresh.append(task);
        }
    }
    QList<DownloadTaskInfo> paused;
    {
        const TableWidget::BulkChange bulk(m_table);
        int row = m_table->rowCount();
        m_table->setRowCount(row + fresh.size());
        for (const DownloadTaskInfo& task : qAsConst(fresh)) {
            m_tasks.addRecord(task);
            settleRow(task, &paused);
            m_rows.fill(row++, task);
        }
    }
    if (!paused.isEmpty())
        DownloadTaskData::instance().updateDownloadTasks(paused, false);
    if (source == Source::Store) {
        updateOrderNumbers();
        announceCount();
        slotTryDownloadTimeout();
    }
    countsChanged();
}

void DownloadingTable::addTaskRow(const DownloadTaskInfo& task, bool tryNow, bool renumber)
{
    if (m_tasks.contains(task.taskId))
        return;
    m_tasks.addRecord(task);
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    QList<DownloadTaskInfo> paused;
    settleRow(task, &paused);
    m_rows.fill(row, task);
    if (!paused.isEmpty())
        DownloadTaskData::instance().updateDownloadTasks(paused, false);
    if (tryNow && m_queue.isWaiting(task.taskId))
        tryStartTask(task.taskId);
    if (renumber)
        updateOrderNumbers();
    announceCount();
    countsChanged();
}

/// What the row shows at first, and whether its task waits; `paused` gets a task that is paused here.
void DownloadingTable::settleRow(const DownloadTaskInfo& task, QList<DownloadTaskInfo>* paused)
{
    const bool exists = BaseTools::instance().isVideoExist(task.channelId);
    const bool waits = task.state == vemo_data::TaskWaiting && exists;
    m_rows.set(task.taskId, {waits ? vemo_data::TaskWaiting : vemo_data::TaskPaused, 0, exists, waits});
    if (waits) {
        m_queue.append(task.taskId);
    } else if (task.state != vemo_data::TaskPaused) {
        pauseWithoutStoring(task.taskId);
        paused->append(m_tasks.record(task.taskId));
    } else {
        m_paused.insert(task.taskId);
    }
}

void DownloadingTable::updateTask(const DownloadTaskInfo& task)
{
    if (!m_tasks.contains(task.taskId)) {
        addTask(task, Source::Store);
        return;
    }
    const auto own = m_ownUpdates.find(task.taskId);
    if (own != m_ownUpdates.end()) {
        if (--*own == 0)
            m_ownUpdates.erase(own);
        return; // what is known here is newer
    }
    const int stateBefore = m_tasks.record(task.taskId).state;
    DownloadTaskInfo updated = task;
    updated.state = stateBefore;
    m_tasks.updateRecord(updated);
    if (task.state == vemo_data::TaskPaused && stateBefore != vemo_data::TaskPaused)
        slotStopDownloading(task.taskId);
    else if (task.state == vemo_data::TaskWaiting && stateBefore == vemo_data::TaskPaused)
        slotStartDownloading(task.taskId);
}

void DownloadingTable::removeTasks(const QSet<QString>& taskIds)
{
    removeTaskRows(taskIds);
}

void DownloadingTable::removeTaskRows(const QSet<QString>& keys)
{
    for (const QString& key : keys) {
        m_queue.remove(key);
        m_rows.remove(key);
        m_frame->forgetDetails(key);
        m_pace.forget(key);
        m_paused.remove(key);
        m_ownUpdates.remove(key);
    }
    m_tasks.removeRows(keys);
    announceCount();
    countsChanged();
}

int DownloadingTable::taskCount() const
{
    return m_table->rowCount();
}

void DownloadingTable::updateOrderNumbers()
{
    m_tasks.updateOrderNumbers();
}

void DownloadingTable::announceCount()
{
    emit DownloadSignals::instance().signalDownloadingTasksCnt(m_table->rowCount());
}

void DownloadingTable::slotAddDownloadTaskToDownloadingTable(const DownloadTaskInfo& task)
{
    addTaskRow(task, true, true);
}

// Starting

bool DownloadingTable::isDownloadPathThere()
{
    if (QFileInfo(vemo_worker::SystemConfig::instance().getVideoFilePath(true)).isDir())
        return true;
    alert(DictDef::titleAlert(),
          tr("Download path does not exist, please configure available download path in system configuration"));
    return false;
}

void DownloadingTable::startDownloading()
{
    slotTryDownloadTimeout();
}

void DownloadingTable::slotTryDownloadTimeout()
{
    // A person whose queue is empty need not hear of a missing folder every half minute.
    if (m_queue.waitingCount() == 0 || !isDownloadPathThere())
        return;
    m_queue.fillSlots([this](const QString& key) { startTask(key); });
    countsChanged();
}

void DownloadingTable::tryStartTask(const QString& key)
{
    if (isDownloadPathThere() && m_queue.takeSlot(key))
        startTask(key);
    countsChanged();
}

void DownloadingTable::startTask(const QString& key)
{
    if (!m_tasks.contains(key))
        return;
    DownloadTaskInfo task = m_tasks.record(key);
    if (!BaseTools::instance().isVideoExist(task.channelId)) {
        pauseTask(key);
        return;
    }
    if (task.state != vemo_data::TaskWaiting)
        return;
    const auto isTaken = [this, &key](const QString& path) {
        const QString wanted = TaskFiles::comparable(path);
        const auto holds = [this, &key, &wanted](const QString& other) {
            return other != key && TaskFiles::comparable(m_tasks.record(other).savePath) == wanted;
        };
        const QSet<QString>& starting = m_queue.startingKeys();
        const QSet<QString>& running = m_queue.runningKeys();
        return std::any_of(starting.begin(), starting.end(), holds) ||
               std::any_of(running.begin(), running.end(), holds);
    };
    task.savePath = TaskFiles::freeTargetPath(vemo_worker::SystemConfig::instance().getDownloadPath(),
                                              QFileInfo(task.savePath).fileName(), isTaken);
    m_tasks.setFilePath(key, task.savePath);
    // The path is how a crash finds what was written.
    DownloadTaskData::instance().updateDownloadTasks({task}, false);
    DownloadWorker::instance().startDownloadTask(task);
}

void DownloadingTable::slotStartDownloading(const QString& key)
{
    if (!m_tasks.contains(key))
        return;
    if (DownloadWorker::instance().isTaskPaused(key))
        DownloadWorker::instance().controlTask(key, DownloadWorker::ControlResume);
    setTaskState(key, vemo_data::TaskWaiting);
    m_queue.append(key);
    m_rows.show(key, vemo_data::TaskWaiting, 0);
    m_rows.setStartChecked(key, true);
    DownloadTaskData::instance().updateDownloadTasks({m_tasks.record(key)}, false);
    tryStartTask(key);
}

// Stopping

bool DownloadingTable::pauseWithoutStoring(const QString& key)
{
    DownloadWorker& worker = DownloadWorker::instance();
    if (m_queue.isRunning(key))
        worker.controlTask(key, DownloadWorker::ControlPause);
    else if (m_queue.isWaiting(key))
        worker.controlTask(key, DownloadWorker::ControlCancel);
    m_queue.stopWaiting(key);
    m_pace.forget(key);
    if (m_tasks.record(key).state == vemo_data::TaskPaused)
        return false;
    setTaskState(key, vemo_data::TaskPaused);
    m_rows.show(key, vemo_data::TaskPaused, noProgress);
    return true;
}

void DownloadingTable::pauseTask(const QString& key)
{
    if (!m_tasks.contains(key))
        return;
    if (pauseWithoutStoring(key))
        DownloadTaskData::instance().updateDownloadTasks({m_tasks.record(key)}, false);
    m_rows.setStartChecked(key, false);
    countsChanged();
}

void DownloadingTable::slotStopDownloading(const QString& key)
{
    pauseTask(key);
    slotTryDownloadTimeout();
}

/// Ends what the worker does for a task that is to go, and gives its slot back.
void DownloadingTable::cancelInWorker(const QString& key)
{
    if (!m_queue.isKnown(key))
        return;
    DownloadWorker::instance().controlTask(key, DownloadWorker::ControlCancel);
    m_queue.remove(key);
    m_pace.forget(key);
}

void DownloadingTable::slotCleanDownloadTask(const QString& key)
{
    if (!m_tasks.deleteTaskConfirmed(key))
        return;
    cancelInWorker(key);
    slotTryDownloadTimeout();
    countsChanged();
}

void DownloadingTable::stopAllDownloads()
{
    m_tryDownloadTimer.stop();
    m_refreshTimer.stop();
    DownloadWorker& worker = DownloadWorker::instance();
    const QSet<QString> starting = m_queue.startingKeys();
    for (const QString& key : starting)
        worker.controlTask(key, DownloadWorker::ControlCancel);
    const QSet<QString> running = m_queue.runningKeys();
    // All are asked to stop before the first is recorded, so that a slow disk closes them at a time.
    for (const QString& key : running) {
        if (!worker.isCopyTask(key))
            worker.lastFrameTime(key);
    }
    for (const QString& key : running) {
        const DownloadTaskInfo task = m_tasks.record(key);
        const double seconds = m_pace.secondsRun(key, m_clock.elapsed());
        if (worker.isCopyTask(key))
            worker.controlTask(key, DownloadWorker::ControlCancel);
        else
            DownloadRecords::breakOff(task, task.state, seconds);
    }
    for (const QSet<QString>& keys : {starting, running}) {
        for (const QString& key : keys)
            m_queue.remove(key);
    }
    DownloadTaskData::instance().flush();
}

// What the worker tells

void DownloadingTable::slotDownloadEvent(const QString& key, int event, int progress)
{
    if (!m_tasks.contains(key))
        return;
    switch (event) {
    case EventProgress: {
        const DownloadTaskInfo task = m_tasks.record(key);
        if (m_queue.noteProgress(key))
            countsChanged();
        m_pace.note(key, progress, task.beginTime.msecsTo(task.endTime), m_clock.elapsed());
        if (task.state == vemo_data::TaskPaused)
            m_rows.show(key, vemo_data::TaskPaused, qMax(m_rows.row(key).progress, progress));
        else
            m_rows.show(key, vemo_data::TaskDownloading, progress);
        break;
    }
    case EventFinished: {
        const DownloadTaskInfo task = m_tasks.record(key);
        const double seconds = m_pace.secondsRun(key, m_clock.elapsed());
        DownloadQueueStatus::instance().expect(key);
        removeTaskRows({key});
        slotTryDownloadTimeout();
        DownloadRecords::finish(task, seconds);
        break;
    }
    case EventLimitReached:
        requeue(key);
        break;
    case EventDiskLow:
        alert(DictDef::titleWarning(),
              tr("downloading break off, disk free space < 1GB, disk name:%1")
                  .arg(vemo_worker::DiskManager::instance().getDiskName(m_tasks.record(key).savePath)));
        pauseTask(key);
        break;
    case EventLoginFailed:
        endedByWorker(key, vemo_data::TaskLoginFailed);
        break;
    case EventConnectFailed:
        endedByWorker(key, vemo_data::TaskConnectFailed);
        break;
    case EventAbnormal:
        endedByWorker(key, vemo_data::TaskAbnormal);
        break;
    case EventUnnamedFailure:
        endedByWorker(key, taskUnnamedFailure);
        break;
    case EventGetUrlFailed:
        endedByWorker(key, vemo_data::TaskGetUrlFailed);
        break;
    default:
        break;
    }
}

/// The recorder serves no more just now: the task waits on. One that ran already has no run any more, so its part
/// becomes a record of its own and the rest waits.
void DownloadingTable::requeue(const QString& key)
{
    if (m_queue.isRunning(key)) {
        const DownloadTaskInfo task = m_tasks.record(key);
        const double seconds = m_pace.secondsRun(key, m_clock.elapsed());
        DownloadQueueStatus::instance().expect(key);
        removeTaskRows({key});
        DownloadRecords::breakOff(task, vemo_data::TaskWaiting, seconds);
        slotTryDownloadTimeout();
        return;
    }
    m_queue.putBack(key);
    countsChanged();
}

void DownloadingTable::endedByWorker(const QString& key, int failureState)
{
    const DownloadTaskInfo task = m_tasks.record(key);
    const bool isRunning = m_queue.isRunning(key);
    if (!isRunning) {
        // Another download of the channel runs: the recorder may just not serve two.
        for (const QString& other : m_queue.runningKeys()) {
            if (BaseTools::instance().isSameChannel(m_tasks.record(other).channelId, task.channelId)) {
                requeue(key);
                return;
            }
        }
    }
    DownloadRecords::fail(task, failureState, isRunning, m_pace.secondsRun(key, m_clock.elapsed()));
    removeTaskRows({key});
    slotTryDownloadTimeout();
}

void DownloadingTable::slotDownloadFileToggle(const QString& key, const QString& filePath, int msecs,
                                              const QDateTime& time)
{
    if (!m_tasks.contains(key))
        return;
    const DownloadTaskInfo task = m_tasks.record(key);
    DownloadTaskInfo running = DownloadRecords::closeFile(task, filePath, msecs, time);
    ++m_ownUpdates[key];
    if (task.state == vemo_data::TaskPaused) {
        // The file was closed just before the person paused.
        running.state = vemo_data::TaskPaused;
        DownloadTaskData::instance().updateDownloadTasks({running}, false);
    }
    m_tasks.updateRecord(running);
}

} // namespace vemo_filesCenter
