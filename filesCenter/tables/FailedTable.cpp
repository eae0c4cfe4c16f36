#include "FailedTable.h"

#include "FailedOperWt.h"
#include "TaskTexts.h"

#include "download/DownloadManager.h"
#include "download/DownloadQueueStatus.h"
#include "download/DownloadSignals.h"
#include "download/RedownloadTimer.h"

#include <BaseTools.h>
#include <DownloadTaskData.h>
#include <TableWidget.h>
#include <TaskFactsData.h>

#include <QPushButton>
#include <QToolTip>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_base::Token;
using vemo_data::DownloadTaskData;

namespace {

constexpr int operWidth = 110;

bool isRetriedByItself(int state)
{
    return state == vemo_data::TaskConnectFailed || state == vemo_data::TaskAbnormal ||
           state == vemo_data::TaskGetUrlFailed;
}

QString iconOf(int state)
{
    switch (state) {
    case vemo_data::TaskLoginFailed:
        return QStringLiteral("lock");
    case vemo_data::TaskConnectFailed:
    case vemo_data::TaskGetUrlFailed:
        return QStringLiteral("offline");
    case vemo_data::TaskAbnormal:
        return QStringLiteral("warning");
    default:
        return QStringLiteral("error");
    }
}

} // namespace

FailedTable::FailedTable(QWidget* parent)
    : EndedTasksTable(
          parent,
          {tr("Download Failure"),
           QStringLiteral("success"),
           tr("No download has failed."),
           tr("What fails is kept here until it is fetched or cleaned."),
           false,
           {LocationColumn, EndColumn},
           tr("What may pass is tried again after about a minute."),
           {{tr("Space"), tr("check")}, {tr("Enter"), tr("redownload")}, {tr("Del"), tr("clean the task")}}},
          tr("State"), QStringLiteral("failedTable"), operWidth)
{
    m_table->setChipColumn(EndColumn);
    connect(&DownloadSignals::instance(), &DownloadSignals::signalAddDownloadTaskToFailedTable, this,
            &FailedTable::slotAddDownloadTaskToFailedTable);
    connect(m_frame->addButton(QStringLiteral("batchRedownloadBt"), tr("Batch Redownload"),
                               QStringLiteral("redownload"), true),
            &QPushButton::clicked, this, &FailedTable::batchRedownload);
    connect(m_frame->addButton(QStringLiteral("batchDeleteBt"), tr("Batch Delete"), QStringLiteral("clean"), false),
            &QPushButton::clicked, this, &FailedTable::batchDelete);
    DownloadManager::instance().setFailedTable(this);
}

FailedTable::~FailedTable()
{
    DownloadManager::instance().forget(this);
    endTable();
}

// Rows

void FailedTable::addTask(const DownloadTaskInfo& task, Source source)
{
    const bool isFromStore = source == Source::Store;
    addTaskRow(task, isFromStore, isFromStore);
}

void FailedTable::addTasks(const QList<DownloadTaskInfo>& tasks, Source source)
{
    const QList<DownloadTaskInfo> fresh = insertAtTop(tasks);
    if (source == Source::Store) {
        for (const DownloadTaskInfo& task : fresh)
            setUpRetry(task);
        updateOrderNumbers();
        announceCount();
    }
    refreshSummary();
}

void FailedTable::addTaskRow(const DownloadTaskInfo& task, bool withTimer, bool renumber)
{
    if (m_tasks.contains(task.taskId))
        return;
    insertAtTop(task);
    if (withTimer)
        setUpRetry(task);
    if (renumber)
        updateOrderNumbers();
    announceCount();
}

void FailedTable::fillEnd(int row, const DownloadTaskInfo& task)
{
    QTableWidgetItem* item = m_table->item(row, EndColumn);
    item->setText(TaskTexts::failure(task.state));
    item->setData(TableWidget::IconRole, iconOf(task.state));
    item->setData(TableWidget::ToneRole,
                  static_cast<int>(m_armed.contains(task.taskId) ? Token::Warning : Token::Error));
}

QString FailedTable::endText(const DownloadTaskInfo& task) const
{
    return TaskTexts::failure(task.state);
}

QWidget* FailedTable::makeOperWt(const DownloadTaskInfo& task)
{
    auto* widget = new FailedOperWt(task);
    widget->setRedownloadBtEnabled(BaseTools::instance().isVideoExist(task.channelId));
    connect(widget, &FailedOperWt::signalRedownloadTask, this, &FailedTable::slotRedownloadTask);
    connect(widget, &FailedOperWt::signalCleanDownloadTask, this, &FailedTable::slotCleanDownloadTask);
    return widget;
}

void FailedTable::updateTask(const DownloadTaskInfo& task)
{
    if (!m_tasks.contains(task.taskId)) {
        addTask(task, Source::Store);
        return;
    }
    const bool isNewState = m_tasks.record(task.taskId).state != task.state;
    m_tasks.updateRecord(task);
    if (!isNewState)
        return;
    setUpRetry(task);
    const int row = m_tasks.rowOfKey(task.taskId);
    if (row >= 0)
        fillEnd(row, task);
}

void FailedTable::emitCount(int count)
{
    emit DownloadSignals::instance().signalFailedTasksCnt(count);
}

void FailedTable::slotAddDownloadTaskToFailedTable(const DownloadTaskInfo& task)
{
    addTaskRow(task, true, true);
    setUpRetry(task);
}

// Retries

void FailedTable::setUpRetry(const DownloadTaskInfo& task)
{
    const QString key = task.taskId;
    if (!BaseTools::instance().isVideoExist(task.channelId) || !isRetriedByItself(task.state)) {
        discardTimer(key);
        return;
    }
    RedownloadTimer*& timer = m_timers[key];
    if (!timer) {
        timer = new RedownloadTimer(key, this);
        connect(timer, &RedownloadTimer::signalRedownloadTask, this, &FailedTable::slotRedownloadTask);
        connect(timer, &RedownloadTimer::signalRedownloadTimerDestroyed, this,
                &FailedTable::slotRedownloadTimerDestroyed);
    }
    timer->scheduleRetry();
    if (!m_armed.contains(key)) {
        m_armed.insert(key);
        const int row = m_tasks.keyOfRow(0) == key ? 0 : m_tasks.rowOfKey(key);
        if (row >= 0)
            fillEnd(row, task);
    }
    retriesChanged();
}

void FailedTable::discardTimer(const QString& key)
{
    if (RedownloadTimer* timer = m_timers.take(key)) {
        timer->disconnect(this);
        timer->deleteLater();
    }
    if (m_armed.remove(key))
        retriesChanged();
}

void FailedTable::slotRedownloadTimerDestroyed(const QString& key)
{
    m_timers.remove(key);
    if (m_armed.remove(key))
        retriesChanged();
}

void FailedTable::retriesChanged()
{
    DownloadQueueStatus::instance().setRetryCount(m_armed.size());
}

void FailedTable::slotRedownloadTask(const QString& key)
{
    DownloadTaskInfo task = m_tasks.record(key);
    if (task.taskId.isEmpty() || !BaseTools::instance().isVideoExist(task.channelId)) {
        const RedownloadTimer* timer = m_timers.value(key);
        if (timer && timer->msUntilRetry() < 0 && m_armed.remove(key))
            retriesChanged(); // it has fired for nothing and asks no more
        return;
    }
    task.state = vemo_data::TaskWaiting;
    DownloadQueueStatus::instance().expect(key);
    discardTimer(key);
    m_tasks.removeRowByKey(key);
    DownloadTaskData::instance().updateDownloadTasks({task}, true);
    announceCount();
}

void FailedTable::batchRedownload()
{
    if (m_table->checkedCount() == 0) {
        alert(tr("please check tasks to redownload"));
        return;
    }
    QList<DownloadTaskInfo> tasks;
    QSet<QString> keys;
    const QStringList checked = m_tasks.keysOfRows(m_table->checkedRows());
    for (const QString& key : checked) {
        DownloadTaskInfo task = m_tasks.record(key);
        if (!BaseTools::instance().isVideoExist(task.channelId))
            continue;
        task.state = vemo_data::TaskWaiting;
        DownloadQueueStatus::instance().expect(key);
        discardTimer(key);
        tasks.append(task);
        keys.insert(key);
    }
    m_tasks.removeRows(keys);
    DownloadTaskData::instance().updateDownloadTasks(tasks, true);
    announceCount();
}

// Deletion

void FailedTable::slotCleanDownloadTask(const QString& key)
{
    discardTimer(key);
    const int row = m_tasks.rowOfKey(key);
    if (row >= 0)
        fillEnd(row, m_tasks.record(key));
    m_tasks.deleteTaskConfirmed(key);
}

// What the person sees of it

QString FailedTable::summary(int count) const
{
    return tr("%n task(s), newest first", nullptr, count);
}

void FailedTable::showEndToolTip(const QString& key, const QPoint& globalPos)
{
    const DownloadTaskInfo task = m_tasks.record(key);
    vemo_data::TaskFactsData::instance().get(key, this, [this, task, globalPos](const vemo_data::TaskFacts& facts) {
        const QString reason = facts.reason.isEmpty() ? TaskTexts::failureCause(task.state) : facts.reason;
        QToolTip::showText(globalPos,
                           QStringLiteral("<b>%1</b><br>%2<br>%3")
                               .arg(TaskTexts::failure(task.state).toHtmlEscaped(), reason.toHtmlEscaped(),
                                    whatComesNext(task).toHtmlEscaped()),
                           m_table->viewport());
    });
}

QString FailedTable::whatComesNext(const DownloadTaskInfo& task) const
{
    if (!BaseTools::instance().isVideoExist(task.channelId))
        return tr("The channel no longer exists in this client, so it can't be tried again.");
    const RedownloadTimer* timer = m_timers.value(task.taskId);
    const int left = timer ? timer->msUntilRetry() : -1;
    if (left >= 0)
        return tr("Retry in %1.").arg(TaskTexts::duration(left / 1000));
    if (task.state == vemo_data::TaskLoginFailed)
        return tr("Check user and password of the recorder, then press \"redownload\".");
    return tr("It is not tried again by itself: press \"redownload\".");
}

void FailedTable::fillMenu(QMenu* menu, const QString& key)
{
    addEntry(menu, "redownload", tr("redownload"), BaseTools::instance().isVideoExist(m_tasks.record(key).channelId),
             [this, key] { slotRedownloadTask(key); });
    addDetailsEntry(menu, key);
    addEntry(menu, "redownload", tr("Batch Redownload"), m_table->checkedCount() > 0, [this] { batchRedownload(); });
}

} // namespace vemo_filesCenter
