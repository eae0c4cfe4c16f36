#include "SuccessTable.h"

#include "SuccessOperWt.h"
#include "TaskItem.h"
#include "TaskPageFrame.h"
#include "TaskTexts.h"

#include "details/FileVerifier.h"
#include "download/DiskWork.h"
#include "download/DownloadManager.h"
#include "download/DownloadSignals.h"

#include <BaseTools.h>
#include <DictDef.h>
#include <DownloadTaskData.h>
#include <FilesCenterLogs.h>
#include <Icons.h>
#include <LocalPlaybackDlg.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <TableWidget.h>
#include <ToolsCollection.h>
#include <VMessageBox.h>

#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QHelpEvent>
#include <QMenu>
#include <QPushButton>
#include <QToolTip>

#include <memory>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_base::Token;

namespace {

enum Column : int { CheckColumn = 0, ChannelColumn, RangeColumn, LocationColumn, SizeColumn, OperColumn };

constexpr int questionWithYesAndNo = 3;
constexpr int answerYes = 1;
constexpr int diskPatienceMs = 30; ///< below two pictures of the screen

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(vemo_worker::DictDef::titlePrompt(), text);
}

bool hasFile(const DownloadTaskInfo& task)
{
    const QFileInfo file(task.savePath);
    return file.isAbsolute() && file.isFile();
}

} // namespace

SuccessTable::SuccessTable(QWidget* parent)
    : QWidget(parent)
    , m_frame(new TaskPageFrame(
          this,
          {tr("Download Success"),
           QStringLiteral("download-mgr"),
           tr("No download has finished yet."),
           tr("Finished files appear here, the newest at the top."),
           QString(),
           {{tr("Space"), tr("check")}, {tr("Enter"), tr("open the file")}, {tr("Del"), tr("clean the task")}}},
          {tr("All"), tr("Channel Name"), tr("Datetime Range"), tr("Location"), tr("Size"), tr("Oper")}))
    , m_table(m_frame->table())
{
    setUpTable();
    m_frame->setTaskOfRow([this](int row) { return m_tasks.record(m_tasks.keyOfRow(row)); });
    connect(m_frame->addButton(QStringLiteral("openFolderBt"), tr("Open Folder"), QStringLiteral("open-folder"), true),
            &QPushButton::clicked, this, &SuccessTable::openDownloadFolder);
    connect(m_frame->addButton(QStringLiteral("batchDeleteBt"), tr("Batch Delete"), QStringLiteral("clean"), false),
            &QPushButton::clicked, this, &SuccessTable::batchDelete);
    DownloadManager::instance().setSuccessTable(this);
}

SuccessTable::~SuccessTable()
{
    DownloadManager::instance().forget(this);
    // It asks for the widgets of its rows to its end, so it ends before what they are made from.
    m_table->disconnect();
    delete m_table;
}

void SuccessTable::setUpTable()
{
    m_table->setObjectName(QStringLiteral("successTable"));
    m_tasks.setTableWidget(m_table);
    m_table->setColumnRoom({110, 0, 250, 150, 220, 130});
    m_table->setColumnTone(LocationColumn, Token::Text2);
    for (const int column : {ChannelColumn, RangeColumn, LocationColumn, SizeColumn})
        m_table->setSortable(column, true);
    m_table->setCellWidgetFactory(OperColumn, [this](int row) { return makeOperWt(row); });
    m_table->setRowText([this](int row) -> QString {
        const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(row));
        return TaskTexts::channel(task) + QStringLiteral(", ") + TasksTableCommonOper::timeRangeText(task) +
               QStringLiteral(", ") + TaskTexts::size(task);
    });
    m_table->viewport()->installEventFilter(this);
    connect(m_table, &QTableWidget::itemDoubleClicked, this, &SuccessTable::slotTableItemDoubleClicked);
    connect(m_table, &TableWidget::signalRowActivated, this,
            [this](int row) { slotOpenDownloadFile(m_tasks.keyOfRow(row)); });
    connect(m_table, &TableWidget::signalRowMenuRequested, this, &SuccessTable::openRowMenu);
    connect(m_table, &TableWidget::signalDeleteRequested, this, [this] {
        if (m_table->checkedCount() > 0)
            batchDelete();
        else
            slotCleanDownloadTask(m_tasks.keyOfRow(m_table->currentRow()));
    });
}

// Rows

void SuccessTable::addTask(const DownloadTaskInfo& task, Source source)
{
    if (source == Source::Store)
        addFinishedTask(task);
    else
        addTaskRow(task, false);
}

void SuccessTable::addTasks(const QList<DownloadTaskInfo>& tasks, Source source)
{
    if (source == Source::Store) {
        DownloadTasksTable::addTasks(tasks, source);
        return;
    }
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
    dropMissing(fresh);
}

bool SuccessTable::addTaskRow(const DownloadTaskInfo& task, bool renumber)
{
    if (m_tasks.contains(task.taskId) || !hasFile(task))
        return false;
    m_tasks.addRecord(task);
    m_table->insertRow(0);
    m_table->setVerticalScrollBarNotAtTheBottom();
    fillRow(0, task);
    if (renumber)
        updateOrderNumbers();
    announceCount();
    return true;
}

void SuccessTable::fillRow(int row, const DownloadTaskInfo& task)
{
    auto* check = new QTableWidgetItem;
    check->setCheckState(Qt::Unchecked);
    check->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setItem(row, CheckColumn, check);
    const auto centred = [this, row](int column, QTableWidgetItem* item) {
        item->setTextAlignment(Qt::AlignCenter);
        m_table->setItem(row, column, item);
    };
    centred(ChannelColumn, new TaskItem(TaskTexts::channel(task), task.taskId));
    auto* range = new QTableWidgetItem(TasksTableCommonOper::timeRangeText(task));
    range->setData(TableWidget::SortKeyRole, task.beginTime);
    centred(RangeColumn, range);
    centred(LocationColumn, new QTableWidgetItem(BaseTools::instance().strReocordingLocation(task.location)));
    auto* size = new QTableWidgetItem(TaskTexts::size(task));
    size->setData(TableWidget::SortKeyRole, task.downloadedSize);
    centred(SizeColumn, size);
}

QWidget* SuccessTable::makeOperWt(int row)
{
    const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(row));
    if (task.taskId.isEmpty())
        return nullptr;
    auto* widget = new SuccessOperWt(task);
    connect(widget, &SuccessOperWt::signalOpenDownloadFile, this, &SuccessTable::slotOpenDownloadFile);
    connect(widget, &SuccessOperWt::signalOpenDownloadFolder, this, &SuccessTable::slotOpenDownloadFolder);
    connect(widget, &SuccessOperWt::signalCleanDownloadTask, this, &SuccessTable::slotCleanDownloadTask);
    return widget;
}

void SuccessTable::addFinishedTask(const DownloadTaskInfo& task)
{
    if (m_tasks.contains(task.taskId)) {
        m_tasks.updateRecord(task);
        return;
    }
    if (!addTaskRow(task, true))
        return;
    FileVerifier::instance().keepSum(task);
    const BaseTools& tools = BaseTools::instance();
    const QPair<QString, int> channel = tools.formatChannelId(task.channelId);
    const vms_sdk::DevInfo device = tools.getDevInfo(channel.first);
    if (device.devId.isEmpty())
        return;
    const int row = m_tasks.keyOfRow(0) == task.taskId ? 0 : m_tasks.rowOfKey(task.taskId);
    const auto text = [this, row](int column) { return m_table->item(row, column)->text(); };
    vemo_worker::FilesCenterLogs::instance().recordDownloadEventLog(
        device.name.isEmpty() ? device.devId : device.name, channel.second, text(ChannelColumn),
        tr("Download success,record source:%1, time range:%2, file size:%3")
            .arg(text(LocationColumn), text(RangeColumn), text(SizeColumn)));
}

void SuccessTable::updateTask(const DownloadTaskInfo& task)
{
    addFinishedTask(task);
}

void SuccessTable::removeTasks(const QSet<QString>& taskIds)
{
    removeTaskRows(taskIds);
}

void SuccessTable::removeTaskRows(const QSet<QString>& keys)
{
    for (const QString& key : keys) {
        FileVerifier::instance().forget(key);
        m_frame->forgetDetails(key);
    }
    m_tasks.removeRows(keys);
    announceCount();
}

int SuccessTable::taskCount() const
{
    return m_table->rowCount();
}

void SuccessTable::updateOrderNumbers()
{
    m_tasks.updateOrderNumbers();
}

void SuccessTable::announceCount()
{
    emit DownloadSignals::instance().signalSuccessTasksCnt(m_table->rowCount());
    if (isVisible())
        refreshSummary();
}

void SuccessTable::refreshSummary()
{
    m_frame->refresh();
    const int count = m_table->rowCount();
    m_frame->setSummary(count == 0 ? QString() : tr("%n file(s), newest first", nullptr, count));
}

// What is on the disk

void SuccessTable::showEvent(QShowEvent* event)
{
    dropMissing(m_tasks.records().values());
    refreshChannels();
    announceCount();
    refreshSummary();
    QWidget::showEvent(event);
}

void SuccessTable::dropMissing(const QList<DownloadTaskInfo>& tasks)
{
    if (tasks.isEmpty())
        return;
    auto missing = std::make_shared<QSet<QString>>();
    DiskWork::run(
        [tasks, missing] {
            for (const DownloadTaskInfo& task : tasks) {
                if (!hasFile(task))
                    missing->insert(task.taskId);
            }
        },
        this,
        [this, missing] {
            if (!missing->isEmpty())
                removeTaskRows(*missing);
        },
        diskPatienceMs);
}

void SuccessTable::refreshChannels()
{
    const BaseTools& tools = BaseTools::instance();
    QHash<QString, bool> existsById;
    for (int row = m_table->rowCount() - 1; row >= 0; --row) {
        const auto record = m_tasks.records().constFind(m_tasks.keyOfRow(row));
        if (record == m_tasks.records().constEnd())
            continue;
        const DownloadTaskInfo task = *record;
        auto exists = existsById.find(task.channelId);
        if (exists == existsById.end())
            exists = existsById.insert(task.channelId, tools.isVideoExist(task.channelId));
        if (*exists)
            continue;
        const QPair<QString, int> channel = tools.formatChannelId(task.channelId);
        if (tools.getDevInfo(channel.first).devId.isEmpty())
            continue;
        const QString channelId = tools.formatChannelId(channel.first, channel.second);
        if (channelId != task.channelId) {
            vemo_data::DownloadTaskData::instance().updateDownloadTaskChannelId(task, channelId);
            m_tasks.setChannelId(task.taskId, channelId);
        }
        m_table->item(row, ChannelColumn)->setText(TaskTexts::channel(m_tasks.record(task.taskId)));
    }
}

// Opening

void SuccessTable::tellMissing(const QString& key)
{
    auto* button = qobject_cast<QWidget*>(sender());
    if (!button || button == m_table) {
        const int row = m_tasks.rowOfKey(key);
        button = row < 0 ? nullptr : m_table->visibleCellWidget(row, OperColumn);
    }
    const QPoint position = button ? button->mapToGlobal(button->rect().bottomLeft()) : QCursor::pos();
    QToolTip::showText(position, tr("file does not exist"), this);
}

void SuccessTable::slotOpenDownloadFile(const QString& key)
{
    const DownloadTaskInfo task = m_tasks.record(key);
    if (!hasFile(task)) {
        tellMissing(key);
        return;
    }
    const BaseTools& tools = BaseTools::instance();
    if (!m_playbackDlg) {
        m_playbackDlg = new vemo_base::LocalPlaybackDlg(tools.getRootParentWt(this));
        connect(m_playbackDlg, &vemo_base::LocalPlaybackDlg::signalPlaybackDlgClosed, this,
                &SuccessTable::slotPlaybackDlgClosed);
    }
    const QPair<QString, int> channel = tools.formatChannelId(task.channelId);
    VCOMMON::ChannelInfo info;
    info.devId = channel.first;
    info.channelNo = channel.second;
    info.devLabel = task.devLabel;
    info.channelName = task.channelName;
    const QString title = TaskTexts::channel(task) + QLatin1Char('@') + TasksTableCommonOper::timeRangeText(task);
    m_playbackDlg->setLocalVideoRecordingPath(task.savePath, info, title);
    m_playbackDlg->showLocalPlaybackDlg();
}

void SuccessTable::slotTableItemDoubleClicked(QTableWidgetItem* item)
{
    const QString key = item ? m_tasks.keyOfRow(item->row()) : QString();
    if (!key.isEmpty())
        slotOpenDownloadFile(key);
}

void SuccessTable::slotOpenDownloadFolder(const QString& key)
{
    const DownloadTaskInfo task = m_tasks.record(key);
    if (hasFile(task))
        VCOMMON::ToolsCollection::openFolderAndSelectFile(task.savePath);
    else
        tellMissing(key);
}

void SuccessTable::openDownloadFolder()
{
    const QString folder = vemo_worker::SystemConfig::instance().getDownloadPath();
    if (QFileInfo(folder).isDir())
        VCOMMON::ToolsCollection::openFolder(folder);
    else
        alert(tr("download path is invalid"));
}

// The dialog knows one file; the next one gets a new dialog.
void SuccessTable::slotPlaybackDlgClosed(const QString&)
{
    if (m_playbackDlg)
        m_playbackDlg->deleteLater();
    m_playbackDlg.clear();
}

// Deletion

void SuccessTable::slotCleanDownloadTask(const QString& key)
{
    m_tasks.deleteTaskConfirmed(key);
}

void SuccessTable::batchDelete()
{
    if (m_table->checkedCount() == 0) {
        alert(tr("please check tasks to clean"));
        return;
    }
    if (vemo_base::VMessageBox::question(BaseTools::instance().getRootParentWt(this),
                                         tr("Do you want to clean checked tasks?"), questionWithYesAndNo,
                                         false) != answerYes)
        return;
    m_tasks.deleteTasks(m_tasks.keysOfRows(m_table->checkedRows()));
}

// What the person sees of it

bool SuccessTable::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip && watched == m_table->viewport()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = m_table->indexAt(help->pos());
        if (index.isValid() && index.column() == SizeColumn) {
            const DownloadTaskInfo task = m_tasks.record(m_tasks.keyOfRow(index.row()));
            QToolTip::showText(help->globalPos(), QDir::toNativeSeparators(task.savePath), m_table->viewport());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SuccessTable::openRowMenu(int row, const QPoint& globalPos)
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
    add("open-file", tr("open the file"), true, [this, key] { slotOpenDownloadFile(key); });
    add("open-folder", tr("open folder"), true, [this, key] { slotOpenDownloadFolder(key); });
    add("clean", tr("clean the task"), true, [this, key] { slotCleanDownloadTask(key); });
    add("info", tr("Details"), true, [this, key] { m_frame->showDetails(m_tasks.rowOfKey(key)); });
    menu->addSeparator();
    add("clean", tr("Batch Delete"), m_table->checkedCount() > 0, [this] { batchDelete(); });
    menu->popup(globalPos);
}

} // namespace vemo_filesCenter
