#include "EndedTasksTable.h"

#include "TaskItem.h"
#include "TaskTexts.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <Icons.h>
#include <SystemAssistant.h>
#include <TableWidget.h>
#include <VMessageBox.h>

#include <QHelpEvent>
#include <QMenu>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_base::Token;

namespace {

constexpr int questionWithYesAndNo = 3;
constexpr int answerYes = 1;

} // namespace

EndedTasksTable::EndedTasksTable(QWidget* parent, const TaskPageFrame::Look& look, const QString& endTitle,
                                 const QString& objectName, int operWidth)
    : QWidget(parent)
    , m_frame(new TaskPageFrame(
          this, look, {tr("All"), tr("Channel Name"), tr("Datetime Range"), tr("Location"), endTitle, tr("Oper")}))
    , m_table(m_frame->table())
{
    m_table->setObjectName(objectName);
    m_tasks.setTableWidget(m_table);
    m_frame->setTaskOfRow([this](int row) { return m_tasks.record(m_tasks.keyOfRow(row)); });
    m_frame->setColumnRoom({110, 0, 250, 150, 220, operWidth}, {80, 0, 212, 130, 180, operWidth});
    m_table->setColumnTone(LocationColumn, Token::Text2);
    for (const int column : {ChannelColumn, RangeColumn, LocationColumn, EndColumn})
        m_table->setSortable(column, true);
    m_table->setCellWidgetFactory(OperColumn, [this](int row) -> QWidget* {
        const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(row));
        return task.taskId.isEmpty() ? nullptr : makeOperWt(task);
    });
    m_table->setRowText([this](int row) -> QString {
        const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(row));
        return TaskTexts::channel(task) + QStringLiteral(", ") + TasksTableCommonOper::timeRangeText(task) +
               QStringLiteral(", ") + endText(task);
    });
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &TableWidget::signalRowActivated, this, [this](int row) { activate(m_tasks.keyOfRow(row)); });
    connect(m_table, &TableWidget::signalRowMenuRequested, this,
            [this](int row, const QPoint& globalPos) { openRowMenu(row, globalPos); });
    connect(m_table, &TableWidget::signalDeleteRequested, this, [this] {
        if (m_table->checkedCount() > 0)
            batchDelete();
        else
            clean(m_tasks.keyOfRow(m_table->currentRow()));
    });
}

EndedTasksTable::~EndedTasksTable() = default;

/// The table asks for the widgets of its rows to its end, so it ends before what they are made from.
void EndedTasksTable::endTable()
{
    m_table->disconnect();
    delete m_table;
}

// Rows

QList<DownloadTaskInfo> EndedTasksTable::insertAtTop(const QList<DownloadTaskInfo>& tasks)
{
    QList<DownloadTaskInfo> fresh;
    for (const DownloadTaskInfo& task : tasks) {
        if (m_tasks.contains(task.taskId))
            continue;
        m_tasks.addRecord(task);
        fresh.append(task);
    }
    const TableWidget::BulkChange bulk(m_table);
    m_table->model()->insertRows(0, fresh.size());
    for (int i = 0; i < fresh.size(); ++i)
        fillRow(fresh.size() - 1 - i, fresh.at(i));
    return fresh;
}

void EndedTasksTable::insertAtTop(const DownloadTaskInfo& task)
{
    m_tasks.addRecord(task);
    m_table->insertRow(0);
    fillRow(0, task);
}

void EndedTasksTable::fillRow(int row, const DownloadTaskInfo& task)
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
    centred(EndColumn, new QTableWidgetItem);
    fillEnd(row, task);
}

void EndedTasksTable::removeTaskRows(const QSet<QString>& keys)
{
    for (const QString& key : keys) {
        letGo(key);
        m_frame->forgetDetails(key);
    }
    m_tasks.removeRows(keys);
    announceCount();
}

int EndedTasksTable::taskCount() const
{
    return m_table->rowCount();
}

void EndedTasksTable::updateOrderNumbers()
{
    m_tasks.updateOrderNumbers();
}

void EndedTasksTable::announceCount()
{
    emitCount(m_table->rowCount());
    if (isVisible())
        refreshSummary();
}

void EndedTasksTable::refreshSummary()
{
    m_frame->refresh();
    const int count = m_table->rowCount();
    m_frame->setSummary(count == 0 ? QString() : summary(count));
}

// Deletion

void EndedTasksTable::alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titlePrompt(), text);
}

void EndedTasksTable::batchDelete()
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
        letGo(key);
    m_tasks.deleteTasks(keys);
}

// What the person sees of it

void EndedTasksTable::showEvent(QShowEvent* event)
{
    refreshSummary();
    QWidget::showEvent(event);
}

bool EndedTasksTable::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip && watched == m_table->viewport()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = m_table->indexAt(help->pos());
        if (index.isValid() && index.column() == EndColumn) {
            showEndToolTip(m_tasks.keyOfRow(index.row()), help->globalPos());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void EndedTasksTable::openRowMenu(int row, const QPoint& globalPos)
{
    const QString key = m_tasks.keyOfRow(row);
    if (key.isEmpty())
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(menu, key);
    addEntry(menu, "clean", tr("Batch Delete"), m_table->checkedCount() > 0, [this] { batchDelete(); });
    menu->popup(globalPos);
}

void EndedTasksTable::addEntry(QMenu* menu, const char* icon, const QString& text, bool isEnabled,
                               const std::function<void()>& act)
{
    QAction* action = menu->addAction(vemo_base::Icons::icon(QLatin1String(icon)), text);
    action->setEnabled(isEnabled);
    connect(action, &QAction::triggered, this, act);
}

/// Closes the entries of one row.
void EndedTasksTable::addDetailsEntry(QMenu* menu, const QString& key)
{
    addEntry(menu, "clean", tr("clean the task"), true, [this, key] { clean(key); });
    addEntry(menu, "info", tr("Details"), true, [this, key] { m_frame->showDetails(m_tasks.rowOfKey(key)); });
    menu->addSeparator();
}

} // namespace vemo_filesCenter
