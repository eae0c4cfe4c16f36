#include "SuccessTable.h"

#include "SuccessOperWt.h"
#include "TaskTexts.h"

#include "details/FileVerifier.h"
#include "download/DiskWork.h"
#include "download/DownloadManager.h"
#include "download/DownloadSignals.h"

#include <BaseTools.h>
#include <DownloadTaskData.h>
#include <FilesCenterLogs.h>
#include <LocalPlaybackDlg.h>
#include <PlainToolTips.h>
#include <SystemConfig.h>
#include <TableWidget.h>
#include <ToolsCollection.h>

#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QToolTip>

#include <memory>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_base::Token;

namespace {

constexpr int operWidth = 130;
constexpr int diskPatienceMs = 30; ///< below two pictures of the screen

bool hasFile(const DownloadTaskInfo& task)
{
    const QFileInfo file(task.savePath);
    return file.isAbsolute() && file.isFile();
}

} // namespace

SuccessTable::SuccessTable(QWidget* parent)
    : EndedTasksTable(
          parent,
          {tr("Download Success"),
           QStringLiteral("download-mgr"),
           tr("No download has finished yet."),
           tr("Finished files appear here, the newest at the top. Mark a span in Playback and press Download."),
           true,
           {LocationColumn, EndColumn},
           QString(),
           {{tr("Space"), tr("check")}, {tr("Enter"), tr("open the file")}, {tr("Del"), tr("clean the task")}}},
          tr("Size"), QStringLiteral("successTable"), operWidth)
{
    connect(m_table, &QTableWidget::itemDoubleClicked, this, &SuccessTable::slotTableItemDoubleClicked);
    connect(m_frame->addButton(QStringLiteral("openFolderBt"), tr("Open Folder"), QStringLiteral("open-folder"), true),
            &QPushButton::clicked, this, &SuccessTable::openDownloadFolder);
    connect(m_frame->addButton(QStringLiteral("batchDeleteBt"), tr("Batch Delete"), QStringLiteral("clean"), false),
            &QPushButton::clicked, this, &SuccessTable::batchDelete);
    connect(&FileVerifier::instance(), &FileVerifier::signalSumKept, this, &SuccessTable::takeSize);
    DownloadManager::instance().setSuccessTable(this);
}

SuccessTable::~SuccessTable()
{
    DownloadManager::instance().forget(this);
    endTable();
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
    dropMissing(insertAtTop(tasks));
}

bool SuccessTable::addTaskRow(const DownloadTaskInfo& task, bool renumber)
{
    if (m_tasks.contains(task.taskId) || !hasFile(task))
        return false;
    insertAtTop(task);
    m_table->setVerticalScrollBarNotAtTheBottom();
    if (renumber)
        updateOrderNumbers();
    announceCount();
    return true;
}

void SuccessTable::fillEnd(int row, const DownloadTaskInfo& task)
{
    QTableWidgetItem* item = m_table->item(row, EndColumn);
    item->setText(TaskTexts::size(task));
    item->setData(TableWidget::SortKeyRole, task.downloadedSize);
}

QString SuccessTable::endText(const DownloadTaskInfo& task) const
{
    return TaskTexts::size(task);
}

QWidget* SuccessTable::makeOperWt(const DownloadTaskInfo& task)
{
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
            .arg(text(LocationColumn), text(RangeColumn), text(EndColumn)));
}

/// A record may be older than the closing of its file, which a slow disk held up.
void SuccessTable::takeSize(const QString& taskId, const QByteArray&, qint64 bytes)
{
    if (!m_tasks.contains(taskId) || m_tasks.record(taskId).downloadedSize == bytes)
        return;
    DownloadTaskInfo task = m_tasks.record(taskId);
    task.downloadedSize = bytes;
    m_tasks.updateRecord(task);
    fillEnd(m_tasks.rowOfKey(taskId), task);
    vemo_data::DownloadTaskData::instance().updateDownloadTasks({task}, false);
}

void SuccessTable::updateTask(const DownloadTaskInfo& task)
{
    addFinishedTask(task);
}

void SuccessTable::letGo(const QString& key)
{
    FileVerifier::instance().forget(key);
}

void SuccessTable::emitCount(int count)
{
    emit DownloadSignals::instance().signalSuccessTasksCnt(count);
}

QString SuccessTable::summary(int count) const
{
    return tr("%n file(s), newest first", nullptr, count);
}

// What is on the disk

void SuccessTable::showEvent(QShowEvent* event)
{
    dropMissing(m_tasks.records().values());
    refreshChannels();
    announceCount();
    EndedTasksTable::showEvent(event);
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

// What the person sees of it

void SuccessTable::showEndToolTip(const QString& key, const QPoint& globalPos)
{
    const QString path = QDir::toNativeSeparators(m_tasks.record(key).savePath);
    QToolTip::showText(globalPos, vemo_base::PlainToolTips::shown(path), m_table->viewport());
}

void SuccessTable::fillMenu(QMenu* menu, const QString& key)
{
    addEntry(menu, "open-file", tr("open the file"), true, [this, key] { slotOpenDownloadFile(key); });
    addEntry(menu, "open-folder", tr("open folder"), true, [this, key] { slotOpenDownloadFolder(key); });
    addDetailsEntry(menu, key);
}

} // namespace vemo_filesCenter
