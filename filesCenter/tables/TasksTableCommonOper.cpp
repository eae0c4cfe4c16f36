#include "TasksTableCommonOper.h"

#include "TaskItem.h"

#include <BaseTools.h>
#include <DownloadTaskData.h>
#include <TableWidget.h>
#include <VMessageBox.h>

#include <QAbstractItemModel>
#include <QTableWidget>

#include <optional>

namespace vemo_filesCenter {

using vemo_base::BaseTools;

namespace {

constexpr int taskColumn = 1;
constexpr int questionWithYesAndNo = 3;
constexpr int answerYes = 1;

} // namespace

TasksTableCommonOper::TasksTableCommonOper(QObject* parent)
    : QObject(parent)
{}

TasksTableCommonOper::~TasksTableCommonOper() = default;

void TasksTableCommonOper::setTableWidget(QTableWidget* table)
{
    m_table = table;
}

void TasksTableCommonOper::addRecord(const DownloadTaskInfo& record)
{
    m_records.insert(record.taskId, record);
}

DownloadTaskInfo TasksTableCommonOper::record(const QString& key) const
{
    return m_records.value(key);
}

void TasksTableCommonOper::setChannelId(const QString& key, const QString& channelId)
{
    const auto found = m_records.find(key);
    if (found != m_records.end())
        found->channelId = channelId;
}

void TasksTableCommonOper::setFilePath(const QString& key, const QString& filePath)
{
    const auto found = m_records.find(key);
    if (found != m_records.end())
        found->savePath = filePath;
}

void TasksTableCommonOper::setState(const QString& key, int state)
{
    const auto found = m_records.find(key);
    if (found != m_records.end())
        found->state = state;
}

void TasksTableCommonOper::updateRecord(const DownloadTaskInfo& record)
{
    const auto found = m_records.find(record.taskId);
    if (found != m_records.end())
        *found = record;
}

void TasksTableCommonOper::updateOrderNumbers()
{
    if (m_table)
        BaseTools::instance().updateTableOrderNum(m_table, 1);
}

bool TasksTableCommonOper::deleteTaskConfirmed(const QString& key)
{
    if (!contains(key))
        return false;
    const BaseTools& tools = BaseTools::instance();
    const DownloadTaskInfo task = record(key);
    const QString question = tr("Do you want to delete download task:%1(%2)?")
                                 .arg(tools.getChannelName(task.channelId), timeRangeText(task));
    if (vemo_base::VMessageBox::question(tools.getRootParentWt(m_table), question, questionWithYesAndNo, false) !=
        answerYes)
        return false;
    if (!contains(key))
        return false;
    vemo_data::DownloadTaskData::instance().deleteDownloadTasks({record(key)});
    return true;
}

void TasksTableCommonOper::removeRowByKey(const QString& key)
{
    const int row = rowOfKey(key);
    if (row < 0)
        return;
    m_records.remove(key);
    m_table->removeRow(row);
    updateOrderNumbers();
}

void TasksTableCommonOper::deleteTasks(const QStringList& keys)
{
    QList<DownloadTaskInfo> tasks;
    for (const QString& key : keys) {
        const auto found = m_records.constFind(key);
        if (found != m_records.constEnd())
            tasks.append(*found);
    }
    vemo_data::DownloadTaskData::instance().deleteDownloadTasks(tasks);
}

void TasksTableCommonOper::removeRows(const QSet<QString>& keys)
{
    auto* table = qobject_cast<vemo_base::TableWidget*>(m_table);
    std::optional<vemo_base::TableWidget::BulkChange> bulk;
    if (table && keys.size() > 1)
        bulk.emplace(table);
    // Neighbours go together: taking rows out one by one moves all that follow each time.
    int last = -1;
    for (int row = m_table->rowCount() - 1; row >= 0; --row) {
        const QString key = keyOfRow(row);
        const bool goes = !key.isEmpty() && keys.contains(key);
        if (goes) {
            m_records.remove(key);
            last = qMax(last, row);
        }
        if (last >= 0 && (!goes || row == 0)) {
            const int first = goes ? row : row + 1;
            m_table->model()->removeRows(first, last - first + 1);
            last = -1;
        }
    }
    updateOrderNumbers();
}

QString TasksTableCommonOper::keyOfRow(int row) const
{
    const auto* item = dynamic_cast<const TaskItem*>(m_table->item(row, taskColumn));
    return item ? item->key() : QString();
}

int TasksTableCommonOper::rowOfKey(const QString& key) const
{
    const int rows = m_table ? m_table->rowCount() : 0;
    for (int row = 0; row < rows; ++row) {
        if (keyOfRow(row) == key)
            return row;
    }
    return -1;
}

QStringList TasksTableCommonOper::keysOfRows(const QList<int>& rows) const
{
    QStringList keys;
    keys.reserve(rows.size());
    for (const int row : rows) {
        const QString key = keyOfRow(row);
        if (!key.isEmpty())
            keys.append(key);
    }
    return keys;
}

QString TasksTableCommonOper::timeRangeText(const DownloadTaskInfo& record)
{
    return BaseTools::instance().strDatetime(record.beginTime, true, false) % QLatin1Char('~') %
           record.endTime.toString(QStringLiteral("hh:mm:ss"));
}

} // namespace vemo_filesCenter
