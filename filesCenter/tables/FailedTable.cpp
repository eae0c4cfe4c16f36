#include "FailedTable.h"

#include "FailedOperWt.h"
#include "TaskItem.h"
#include "TaskPageFrame.h"
#include "TaskTexts.h"

#include "download/DownloadManager.h"
#include "download/DownloadQueueStatus.h"
#include "download/DownloadSignals.h"
#include "download/RedownloadTimer.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DownloadTaskData.h>
#include <Icons.h>
#include <SystemAssistant.h>
#include <TableWidget.h>
#include <TaskFactsData.h>
#include <VMessageBox.h>

#include <QHelpEvent>
#include <QMenu>
#include <QPushButton>
#include <QToolTip>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_base::Token;
using vemo_data::DownloadTaskData;

namespace {

enum Column : int { CheckColumn = 0, ChannelColumn, RangeColumn, LocationColumn, StateColumn, OperColumn };

constexpr int questionWithYesAndNo = 3;
constexpr int answerYes = 1;

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

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titlePrompt(), text);
}

} // namespace

FailedTable::FailedTable(QWidget* parent)
    : QWidget(parent)
    , m_frame(new TaskPageFrame(
          this,
          {tr("Download Failure"),
           QStringLiteral("success"),
           tr("No download has failed."),
           tr("What fails is kept here until it is fetched or cleaned."),
           tr("A failure that may pass is tried again after about a minute. \"redownload\" tries at once."),
           {{tr("Space"), tr("check")}, {tr("Enter"), tr("redownload")}, {tr("Del"), tr("clean the task")}}},
          {tr("All"), tr("Channel Name"), tr("Datetime Range"), tr("Location"), tr("State"), tr("Oper")}))
    , m_table(m_frame->table())
{
    setUpTable();
    m_frame->setTaskOfRow([this](int row) { return m_tasks.record(m_tasks.keyOfRow(row)); });
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
    // It asks for the widgets of its rows to its end, so it ends before what they are made from.
    m_table->disconnect();
    delete m_table;
}

void FailedTable::setUpTable()
{
    m_table->setObjectName(QStringLiteral("failedTable"));
    m_tasks.setTableWidget(m_table);
    m_table->setColumnRoom({110, 0, 250, 150, 220, 110});
    m_table->setColumnTone(LocationColumn, Token::Text2);
    m_table->setChipColumn(StateColumn);
    for (const int column : {ChannelColumn, RangeColumn, LocationColumn, StateColumn})
        m_table->setSortable(column, true);
    m_table->setCellWidgetFactory(OperColumn, [this](int row) { return makeOperWt(row); });
    m_table->setRowText([this](int row) -> QString {
        const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(row));
        return TaskTexts::channel(task) + QStringLiteral(", ") + TasksTableCommonOper::timeRangeText(task) +
               QStringLiteral(", ") + TaskTexts::failure(task.state);
    });
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &TableWidget::signalRowActivated, this,
            [this](int row) { slotRedownloadTask(m_tasks.keyOfRow(row)); });
    connect(m_table, &TableWidget::signalRowMenuRequested, this, &FailedTable::openRowMenu);
    connect(m_table, &TableWidget::signalDeleteRequested, this, [this] {
        if (m_table->checkedCount() > 0)
            batchDelete();
        else
            slotCleanDownloadTask(m_tasks.keyOfRow(m_table->currentRow()));
    });
}

// Rows

void FailedTable::addTask(const DownloadTaskInfo& task, Source source)
{
    const bool isFromStore = source == Source::Store;
    addTaskRow(task, isFromStore, isFromStore);
}

void FailedTable::addTasks(const QList<DownloadTaskInfo>& tasks, Source source)
{
    QList<DownloadTaskInfo> fresh;
    for (const DownloadTaskInfo& task : tasks) {
        if (m_tasks.contains(task.taskId))
            continue;
        m_tasks.addRecord(task);
        fresh.append(task);
    }
    {
        const TableWidget::BulkChange bulk(m_table);
        m_table->model()->insertRows(0, fresh.size());
        for (int i = 0; i < fresh.size(); ++i)
            fillRow(fresh.size() - 1 - i, fresh.at(i));
    }
    if (source == Source::Store) {
        for (const DownloadTaskInfo& task : qAsConst(fresh))
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
    m_tasks.addRecord(task);
    m_table->insertRow(0);
    fillRow(0, task);
    if (withTimer)
        setUpRetry(task);
    if (renumber)
        updateOrderNumbers();
    announceCount();
}

void FailedTable::fillRow(int row, const DownloadTaskInfo& task)
{
    auto* check = new QTableWidgetItem;
    check->setCheckState(Qt::Unchecked);
    check->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setItem(row, CheckColumn, check);
    const auto centred = [this, row](int column, QTableWidgetItem* item) {
        item->setTextAlignment(Qt::AlignCenter);
        m_table->setItem(row, column, item);
    };
    const BaseTools& tools = BaseTools::instance();
    auto* channel = new TaskItem(TaskTexts::channel(task), task.taskId);
    if (!tools.isVideoExist(task.channelId))
        channel->setData(TableWidget::ToneRole, static_cast<int>(Token::Text2));
    centred(ChannelColumn, channel);
    auto* range = new QTableWidgetItem(TasksTableCommonOper::timeRangeText(task));
    range->setData(TableWidget::SortKeyRole, task.beginTime);
    centred(RangeColumn, range);
    centred(LocationColumn, new QTableWidgetItem(tools.strReocordingLocation(task.location)));
    centred(StateColumn, new QTableWidgetItem);
    showState(row, task);
}

void FailedTable::showState(int row, const DownloadTaskInfo& task)
{
    QTableWidgetItem* item = m_table->item(row, StateColumn);
    item->setText(TaskTexts::failure(task.state));
    item->setData(TableWidget::IconRole, iconOf(task.state));
    item->setData(TableWidget::ToneRole,
                  static_cast<int>(m_armed.contains(task.taskId) ? Token::Warning : Token::Error));
}

QWidget* FailedTable::makeOperWt(int row)
{
    const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(row));
    if (task.taskId.isEmpty())
        return nullptr;
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
        showState(row, task);
}

void FailedTable::removeTasks(const QSet<QString>& taskIds)
{
    removeTaskRows(taskIds);
}

void FailedTable::removeTaskRows(const QSet<QString>& keys)
{
    for (const QString& key : keys) {
        discardTimer(key);
        m_frame->forgetDetails(key);
    }
    m_tasks.removeRows(keys);
    announceCount();
}

int FailedTable::taskCount() const
{
    return m_table->rowCount();
}

void FailedTable::updateOrderNumbers()
{
    m_tasks.updateOrderNumbers();
}

void FailedTable::announceCount()
{
    emit DownloadSignals::instance().signalFailedTasksCnt(m_table->rowCount());
    if (isVisible())
        refreshSummary();
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
            showState(row, task);
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
        showState(row, m_tasks.record(key));
    m_tasks.deleteTaskConfirmed(key);
}

void FailedTable::batchDelete()
{
    if (m_table->checkedCount() == 0) {
        alert(tr("please check tasks to clean"));
        return;
    }
    if (vemo_base::VMessageBox::question(BaseTools::instance().getRootParentWt(this),
                                         tr("Do you want to clean checked tasks?"), questionWithYesAndNo,
                                         false) != answerYes)
        return;
    const QStringList keys = m_tasks.keysOfRows(m_table->checkedRows());
    for (const QString& key : keys)
        discardTimer(key);
    m_tasks.deleteTasks(keys);
}

// What the person sees of it

void FailedTable::showEvent(QShowEvent* event)
{
    refreshSummary();
    QWidget::showEvent(event);
}

void FailedTable::refreshSummary()
{
    m_frame->refresh();
    const int count = m_table->rowCount();
    m_frame->setSummary(count == 0 ? QString() : tr("%n task(s), newest first", nullptr, count));
}

bool FailedTable::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip && watched == m_table->viewport()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = m_table->indexAt(help->pos());
        if (index.isValid() && index.column() == StateColumn) {
            showToolTip(m_tasks.keyOfRow(index.row()), help->globalPos());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FailedTable::showToolTip(const QString& key, const QPoint& globalPos)
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

void FailedTable::openRowMenu(int row, const QPoint& globalPos)
{
    const QString key = m_tasks.keyOfRow(row);
    if (key.isEmpty())
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const char* icon, const QString& text, bool isEnabled, auto act) {
        QAction* action = menu->addAction(vemo_base::Icons::icon(QLatin1String(icon)), text);
        action->setEnabled(isEnabled);
        connect(action, &QAction::triggered, this, act);
    };
    const bool anyChecked = m_table->checkedCount() > 0;
    add("redownload", tr("redownload"), BaseTools::instance().isVideoExist(m_tasks.record(key).channelId),
        [this, key] { slotRedownloadTask(key); });
    add("clean", tr("clean the task"), true, [this, key] { slotCleanDownloadTask(key); });
    add("info", tr("Details"), true, [this, key] { m_frame->showDetails(m_tasks.rowOfKey(key)); });
    menu->addSeparator();
    add("redownload", tr("Batch Redownload"), anyChecked, [this] { batchRedownload(); });
    add("clean", tr("Batch Delete"), anyChecked, [this] { batchDelete(); });
    menu->popup(globalPos);
}

} // namespace vemo_filesCenter
