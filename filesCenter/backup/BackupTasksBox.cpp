#include "BackupTasksBox.h"

#include "BackupAxisWt.h"
#include "BackupExport.h"
#include "BackupTargetDay.h"
#include "BackupTaskTimeAxisWt.h"
#include "BackupWorker.h"

#include <BackupSafety.h>
#include <BackupTaskData.h>
#include <DataSignals.h>

#include <QVBoxLayout>

namespace vemo_filesCenter {

using vemo_data::BackupSafety;
using vemo_data::BackupTaskInfo;

namespace {

constexpr int rowGap = 8;
constexpr int bottomRoom = 24;
constexpr int nowMs = 15'000;

} // namespace

BackupTasksBox::BackupTasksBox(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
    , m_export(new BackupExport(this))
{
    m_layout->setContentsMargins(0, 0, 0, bottomRoom);
    m_layout->setSpacing(rowGap);
    m_layout->addStretch();
    using vemo_data::DataSignals;
    const DataSignals& stores = DataSignals::instance();
    connect(&stores, &DataSignals::signalAddBackupTasksSuccess, this, &BackupTasksBox::takeAdded);
    connect(&stores, &DataSignals::signalDeleteBackupTasksSuccess, this, &BackupTasksBox::takeDeleted);
    connect(&stores, &DataSignals::signalUpdateBackupResultsSuccess, this, &BackupTasksBox::takeResults);
    const auto refreshChannels = [this] {
        for (int i = 0; i < rowCount(); ++i)
            row(i)->refreshChannel();
    };
    connect(&stores, &DataSignals::signalDevInfoChanged, this, refreshChannels);
    connect(&stores, &DataSignals::signalDevRemoved, this, refreshChannels);
    connect(m_export, &BackupExport::signalStarted, this, &BackupTasksBox::signalBatchExportStarted);
    connect(m_export, &BackupExport::signalProgress, this,
            [this](const QString&, int, qint64, int progress) { emit signalBatchExportProgress(progress); });
    connect(m_export, &BackupExport::signalFinished, this, &BackupTasksBox::signalBatchExportFinished);
    connect(&m_nowTimer, &QTimer::timeout, this, [this] {
        for (int i = 0; isVisible() && i < rowCount(); ++i)
            row(i)->refreshTime();
    });
    m_nowTimer.start(nowMs);
}

int BackupTasksBox::rowCount() const
{
    return m_layout->count() - 1;
}

BackupTaskTimeAxisWt* BackupTasksBox::row(int index) const
{
    return static_cast<BackupTaskTimeAxisWt*>(m_layout->itemAt(index)->widget());
}

void BackupTasksBox::addRow(const BackupTaskInfo& task)
{
    auto* row = new BackupTaskTimeAxisWt(task, this);
    m_layout->insertWidget(rowCount(), row);
    connect(row, &BackupTaskTimeAxisWt::signalSafetyChanged, this, &BackupTasksBox::signalSafetyChanged);
}

void BackupTasksBox::setTasks(const QDate& date, const QList<BackupTaskInfo>& tasks)
{
    m_date = date;
    setUpdatesEnabled(false);
    m_layout->setEnabled(false);
    while (rowCount() > 0) {
        QWidget* row = m_layout->itemAt(0)->widget();
        m_layout->removeWidget(row);
        delete row;
    }
    for (const BackupTaskInfo& task : tasks)
        addRow(task);
    m_layout->setEnabled(true);
    m_layout->invalidate();
    setUpdatesEnabled(true);
    emit signalRowsChanged();
}

QList<BackupTaskInfo> BackupTasksBox::tasks() const
{
    QList<BackupTaskInfo> tasks;
    for (int i = 0; i < rowCount(); ++i)
        tasks.append(row(i)->task());
    return tasks;
}

BackupSafety BackupTasksBox::safety() const
{
    BackupSafety sum;
    for (int i = 0; i < rowCount(); ++i)
        sum.add(row(i)->safety());
    return sum;
}

void BackupTasksBox::startAll()
{
    for (int i = 0; i < rowCount(); ++i)
        row(i)->pressStart();
}

void BackupTasksBox::stopAll()
{
    for (int i = 0; i < rowCount(); ++i)
        row(i)->releaseStart();
}

void BackupTasksBox::deleteAll()
{
    QStringList ids;
    for (const BackupTaskInfo& task : tasks())
        ids.append(task.taskId);
    vemo_data::BackupTaskData::instance().deleteBackupTasks(ids);
}

void BackupTasksBox::exportAll()
{
    m_export->start(tasks());
}

void BackupTasksBox::cancelExport()
{
    m_export->cancel();
}

void BackupTasksBox::applyTo(const QDate& day)
{
    BackupTargetDay::apply(tasks(), day);
}

bool BackupTasksBox::isExporting() const
{
    bool isExporting = m_export->isWorking();
    for (int i = 0; !isExporting && i < rowCount(); ++i)
        isExporting = row(i)->isExporting();
    return isExporting;
}

void BackupTasksBox::keepPicturesNear(const QRect& visible)
{
    const QRect near = visible.adjusted(0, -visible.height(), 0, visible.height());
    for (int i = 0; i < rowCount(); ++i) {
        if (!near.intersects(row(i)->geometry()))
            row(i)->axis()->dropPicture();
    }
}

void BackupTasksBox::takeAdded(const QList<BackupTaskInfo>& tasks)
{
    bool changed = false;
    for (const BackupTaskInfo& task : tasks) {
        if (task.date != m_date)
            continue;
        bool isThere = false;
        for (int i = 0; !isThere && i < rowCount(); ++i)
            isThere = row(i)->task().taskId == task.taskId;
        if (isThere)
            continue;
        addRow(task);
        changed = true;
    }
    if (changed)
        emit signalRowsChanged();
}

void BackupTasksBox::takeDeleted(const QStringList& taskIds)
{
    const QSet<QString> gone(taskIds.cbegin(), taskIds.cend());
    bool changed = false;
    for (int i = rowCount() - 1; i >= 0; --i) {
        BackupTaskTimeAxisWt* gonePossibly = row(i);
        if (!gone.contains(gonePossibly->task().taskId))
            continue;
        m_layout->removeWidget(gonePossibly);
        gonePossibly->hide();
        gonePossibly->deleteLater(); // the row's own question may have led here
        changed = true;
    }
    BackupWorker& worker = BackupWorker::instance();
    for (const QString& id : taskIds) {
        if (worker.contains(id))
            worker.deleteTask(id);
    }
    if (changed)
        emit signalRowsChanged();
}

void BackupTasksBox::takeResults(const QString& taskId, const QList<BackupTaskInfo::FileInfo>& fileInfos)
{
    for (int i = 0; i < rowCount(); ++i) {
        if (row(i)->task().taskId == taskId) {
            row(i)->setFileInfos(fileInfos);
            return;
        }
    }
}

} // namespace vemo_filesCenter
