// What a person does with the downloading table and what it tells them; the scheduler is in DownloadingTable.cpp.
#include "DownloadingTable.h"

#include "DownloadRecords.h"
#include "TaskPageFrame.h"
#include "TaskTexts.h"

#include "download/DownloadQueueStatus.h"
#include "download/DownloadWorker.h"

#include <BaseTools.h>
#include <DevsDataCache.h>
#include <DevsMgrData.h>
#include <DictDef.h>
#include <DownloadTaskData.h>
#include <Icons.h>
#include <SystemAssistant.h>
#include <SystemMsg.h>
#include <TableWidget.h>
#include <ToolsCollection.h>
#include <VMessageBox.h>

#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMenu>
#include <QToolTip>

#include <algorithm>

namespace vemo_filesCenter {

using vemo_base::BaseTools;
using vemo_base::Icons;
using vemo_data::DownloadTaskData;
using vemo_worker::DictDef;

namespace {

constexpr int questionWithYesAndNo = 3;
constexpr int answerYes = 1;
constexpr int channelPermission = 4; ///< to download

void alert(const QString& text)
{
    vemo_worker::SystemAssistant::instance().messageAlert(DictDef::titlePrompt(), text);
}

} // namespace

QStringList DownloadingTable::checkedKeys() const
{
    return m_tasks.keysOfRows(m_table->checkedRows());
}

void DownloadingTable::batchStart()
{
    const QStringList keys = checkedKeys();
    if (keys.isEmpty()) {
        alert(tr("please check tasks to start"));
        return;
    }
    DownloadWorker& worker = DownloadWorker::instance();
    QList<DownloadTaskInfo> changed;
    for (const QString& key : keys) {
        if (!m_rows.row(key).isStartEnabled)
            continue;
        m_rows.setStartChecked(key, true);
        const bool isPausedInWorker = worker.isTaskPaused(key);
        if (isPausedInWorker)
            worker.controlTask(key, DownloadWorker::ControlResume);
        else if (m_queue.isKnown(key))
            continue;
        setTaskState(key, vemo_data::TaskWaiting);
        if (!isPausedInWorker) {
            m_rows.show(key, vemo_data::TaskWaiting, 0);
            m_queue.append(key);
        }
        changed.append(m_tasks.record(key));
    }
    if (!changed.isEmpty())
        DownloadTaskData::instance().updateDownloadTasks(changed, false);
    slotTryDownloadTimeout();
    countsChanged();
}

void DownloadingTable::batchStop()
{
    const QStringList keys = checkedKeys();
    if (keys.isEmpty()) {
        alert(tr("please check tasks to stop"));
        return;
    }
    QList<DownloadTaskInfo> paused;
    for (const QString& key : keys) {
        m_rows.setStartChecked(key, false);
        if (pauseWithoutStoring(key))
            paused.append(m_tasks.record(key));
    }
    DownloadTaskData::instance().updateDownloadTasks(paused, false);
    countsChanged();
}

void DownloadingTable::batchCancel()
{
    if (m_table->checkedCount() == 0) {
        alert(tr("please check tasks to cancel"));
        return;
    }
    const QStringList asked = checkedKeys();
    if (vemo_base::VMessageBox::question(BaseTools::instance().getRootParentWt(this),
                                         tr("Do you want to cancel checked tasks?"), questionWithYesAndNo,
                                         false) != answerYes)
        return;
    QStringList keys;
    for (auto key = asked.crbegin(); key != asked.crend(); ++key) {
        if (!m_tasks.contains(*key))
            continue; // ended while the question was open
        cancelInWorker(*key);
        keys.append(*key);
    }
    m_tasks.deleteTasks(keys);
    slotTryDownloadTimeout();
    countsChanged();
}

void DownloadingTable::slotOpenDownloadFolder(const QString& key)
{
    const QString path = m_tasks.record(key).savePath;
    if (QFileInfo(path).isAbsolute() && QFileInfo::exists(path)) {
        VCOMMON::ToolsCollection::openFolderAndSelectFile(path);
        return;
    }
    auto* button = qobject_cast<QWidget*>(sender());
    if (!button)
        button = m_rows.operWt(key);
    const QPoint position = button ? button->mapToGlobal(button->rect().bottomLeft()) : QCursor::pos();
    QToolTip::showText(position, tr("file does not exist"), this);
}

/// Rows whose channel vanished: it may have come back under its device, else the task is paused.
void DownloadingTable::refreshTaskChannels()
{
    const BaseTools& tools = BaseTools::instance();
    QHash<QString, bool> existsById;
    const auto exists = [&](const QString& channelId) {
        auto found = existsById.find(channelId);
        if (found == existsById.end())
            found = existsById.insert(channelId, tools.isVideoExist(channelId));
        return *found;
    };
    for (int row = m_table->rowCount() - 1; row >= 0; --row) {
        const QString key = m_tasks.keyOfRow(row);
        const auto record = m_tasks.records().constFind(key);
        if (record == m_tasks.records().constEnd())
            continue;
        DownloadTaskInfo task = *record;
        if (exists(task.channelId)) {
            if (!m_rows.row(key).isStartEnabled) {
                m_rows.setStartEnabled(key, true);
                m_rows.showChannel(key, TaskTexts::channel(task));
            }
            continue;
        }
        const QPair<QString, int> channel = tools.formatChannelId(task.channelId);
        if (isChannelOfKnownDevice(channel.first, channel.second)) {
            const QString channelId = tools.formatChannelId(channel.first, channel.second);
            if (channelId != task.channelId) {
                DownloadTaskData::instance().updateDownloadTaskChannelId(task, channelId);
                m_tasks.setChannelId(key, channelId);
                m_rows.showChannel(key, TaskTexts::channel(m_tasks.record(key)));
            }
            if (exists(channelId))
                continue;
        }
        if (m_rows.row(key).isStartEnabled || m_rows.row(key).isStartChecked) {
            m_rows.setStartEnabled(key, false);
            m_rows.setStartChecked(key, false);
            m_rows.showChannel(key, TaskTexts::channel(m_tasks.record(key)));
        }
        if (task.state != vemo_data::TaskPaused)
            pauseTask(key);
    }
}

/// The device is still in the client and, when it comes from a cloud account, lets us have the channel.
bool DownloadingTable::isChannelOfKnownDevice(const QString& devId, int channelNo)
{
    if (devId.isEmpty() || BaseTools::instance().getDevInfo(devId).devId.isEmpty())
        return false;
    return !vemo_data::DevsMgrData::instance().isSaasDev(devId) ||
           vemo_saas::DevsDataCache::instance().isChannelHasPermission(devId, channelNo, channelPermission);
}

void DownloadingTable::setTaskState(const QString& key, int state)
{
    if (!m_tasks.contains(key))
        return;
    m_tasks.setState(key, state);
    if (state == vemo_data::TaskPaused)
        m_paused.insert(key);
    else
        m_paused.remove(key);
}

void DownloadingTable::countsChanged()
{
    int running = m_queue.startingCount();
    for (const QString& key : m_queue.runningKeys())
        running += m_paused.contains(key) ? 0 : 1;
    const int waiting = m_queue.waitingCount() - m_queue.startingCount();
    DownloadQueueStatus::instance().setQueueCounts(running, waiting, m_paused.size());
    if (running == 0)
        tellTimeLeft();
    if (isVisible())
        refreshSummary();
}

/// Of all that runs or waits; -1 when that can't be told.
qint64 DownloadingTable::secondsLeft() const
{
    if (m_queue.runningCount() == 0)
        return -1;
    qint64 waitingMs = 0;
    const QStringList waiting = m_queue.waitingKeys();
    for (const QString& key : waiting) {
        const auto record = m_tasks.records().constFind(key);
        if (record != m_tasks.records().constEnd())
            waitingMs += record->beginTime.msecsTo(record->endTime);
    }
    return m_pace.secondsLeftForAll(waitingMs, m_clock.elapsed());
}

void DownloadingTable::tellTimeLeft()
{
    const qint64 left = secondsLeft();
    if (left >= 0 || m_toldSecondsLeft >= 0)
        emit vemo_contact::SystemMsg::instance().signalDownloadTimeLeft(left);
    m_toldSecondsLeft = left;
}

void DownloadingTable::refreshSummary()
{
    m_frame->refresh();
    if (m_table->rowCount() == 0) {
        m_frame->setSummary({});
        return;
    }
    int running = m_queue.startingCount();
    for (const QString& key : m_queue.runningKeys())
        running += m_paused.contains(key) ? 0 : 1;
    QString text = tr("%1 running, %2 waiting, %3 paused.")
                       .arg(running)
                       .arg(m_queue.waitingCount() - m_queue.startingCount())
                       .arg(m_paused.size());
    const qint64 left = secondsLeft();
    constexpr qint64 toldAsMinutes = 30;
    if (left >= toldAsMinutes)
        text += QLatin1Char(' ') + tr("About %1 left.").arg(TaskTexts::duration(left));
    else if (left >= 0)
        text += QLatin1Char(' ') + tr("Less than a minute left.");
    m_frame->setSummary(text);
}

void DownloadingTable::showEvent(QShowEvent* event)
{
    refreshSummary();
    QWidget::showEvent(event);
}

QString DownloadingTable::toolTipOf(const QString& key) const
{
    const DownloadTaskInfo task = m_tasks.record(key);
    QStringList lines;
    if (m_queue.isRunning(key) && !m_paused.contains(key)) {
        const QJsonObject report = QJsonDocument::fromJson(DownloadRecords::reportOf(key)).object();
        const double bytes = report.value(QStringLiteral("bytes")).toDouble();
        const double seconds = m_pace.secondsRun(key, m_clock.elapsed());
        const qint64 left = m_pace.secondsLeft(key, m_clock.elapsed());
        QString pace;
        if (bytes > 0 && seconds >= 1)
            pace = TaskTexts::rate(bytes / seconds);
        if (left >= 0)
            pace += (pace.isEmpty() ? QString() : QStringLiteral(", ")) +
                    tr("about %1 left").arg(TaskTexts::duration(left));
        if (!pace.isEmpty())
            lines.append(pace);
    } else if (m_queue.isStarting(key)) {
        lines.append(tr("Being started"));
    } else if (m_queue.isWaiting(key)) {
        lines.append(tr("Waits for one of five places"));
    } else if (!m_rows.row(key).isStartEnabled) {
        lines.append(tr("The channel no longer exists in this client"));
    }
    lines.append(QDir::toNativeSeparators(task.savePath));
    return lines.join(QLatin1Char('\n'));
}

void DownloadingTable::activateRow(int row)
{
    const QString key = m_tasks.keyOfRow(row);
    if (key.isEmpty() || !m_rows.row(key).isStartEnabled)
        return;
    if (m_tasks.record(key).state == vemo_data::TaskPaused)
        slotStartDownloading(key);
    else
        slotStopDownloading(key);
}

void DownloadingTable::openRowMenu(int row, const QPoint& globalPos)
{
    const QString key = m_tasks.keyOfRow(row);
    if (key.isEmpty())
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const char* icon, const QString& text, bool isEnabled, auto act) {
        QAction* action = menu->addAction(Icons::icon(QLatin1String(icon)), text);
        action->setEnabled(isEnabled);
        connect(action, &QAction::triggered, this, act);
    };
    const bool isPaused = m_tasks.record(key).state == vemo_data::TaskPaused;
    const bool mayStart = m_rows.row(key).isStartEnabled;
    if (isPaused)
        add("start", tr("start downloading"), mayStart, [this, key] { slotStartDownloading(key); });
    else
        add("stop", tr("stop downloading"), true, [this, key] { slotStopDownloading(key); });
    add("clean", tr("clean the task"), true, [this, key] { slotCleanDownloadTask(key); });
    add("open-folder", tr("open folder"), true, [this, key] { slotOpenDownloadFolder(key); });
    add("info", tr("Details"), true, [this, key] { m_frame->showDetails(m_tasks.rowOfKey(key)); });
    menu->addSeparator();
    const bool anyChecked = m_table->checkedCount() > 0;
    add("start", tr("Batch Start"), anyChecked, [this] { batchStart(); });
    add("stop", tr("Batch Stop"), anyChecked, [this] { batchStop(); });
    add("close", tr("Batch Cancel"), anyChecked, [this] { batchCancel(); });
    menu->popup(globalPos);
}

} // namespace vemo_filesCenter
