#include "DownloadingRows.h"

#include "DownloadingOperWt.h"
#include "DownloadStateWt.h"
#include "TaskItem.h"
#include "TaskTexts.h"

#include <BaseTools.h>
#include <TableWidget.h>

#include <QHelpEvent>
#include <QToolTip>

#include <utility>

namespace vemo_filesCenter {

using vemo_base::TableWidget;

namespace {

constexpr int noProgress = -1;

void showOn(DownloadStateWt* widget, const DownloadingRows::Row& row)
{
    // A paused bar keeps the text of its last progress.
    if (row.state == vemo_data::TaskPaused && row.progress > 0) {
        widget->setState(vemo_data::TaskDownloading, row.progress);
        widget->setState(vemo_data::TaskPaused, noProgress);
    } else {
        widget->setState(row.state, row.progress);
    }
}

} // namespace

DownloadingRows::DownloadingRows(TableWidget* table, const TasksTableCommonOper* tasks, OperWtMade made,
                                 ToolTip toolTip, QObject* parent)
    : QObject(parent)
    , m_table(table)
    , m_tasks(tasks)
    , m_operWtMade(std::move(made))
    , m_toolTip(std::move(toolTip))
{
    m_table->setColumnTone(LocationColumn, vemo_base::Token::Text2);
    for (const int column : {ChannelColumn, RangeColumn, LocationColumn})
        m_table->setSortable(column, true);
    m_table->setCellWidgetFactory(ProgressColumn, [this](int row) { return makeStateWt(row); });
    m_table->setCellWidgetFactory(OperColumn, [this](int row) { return makeOperWt(row); });
    m_table->setRowText([this](int row) -> QString {
        const QString key = m_tasks->keyOfRow(row);
        const DownloadTaskInfo task = m_tasks->record(key);
        return TaskTexts::channel(task) + QStringLiteral(", ") + TasksTableCommonOper::timeRangeText(task) +
               QStringLiteral(", ") + progressText(key);
    });
}

void DownloadingRows::fill(int tableRow, const DownloadTaskInfo& task)
{
    auto* check = new QTableWidgetItem;
    check->setCheckState(Qt::Unchecked);
    check->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setItem(tableRow, CheckColumn, check);
    const auto centred = [this, tableRow](int column, QTableWidgetItem* item) {
        item->setTextAlignment(Qt::AlignCenter);
        m_table->setItem(tableRow, column, item);
    };
    auto* channel = new TaskItem(TaskTexts::channel(task), task.taskId);
    if (!m_rows.value(task.taskId).isStartEnabled)
        channel->setData(TableWidget::ToneRole, static_cast<int>(vemo_base::Token::Text2));
    centred(ChannelColumn, channel);
    auto* range = new QTableWidgetItem(TasksTableCommonOper::timeRangeText(task));
    range->setData(TableWidget::SortKeyRole, task.beginTime);
    centred(RangeColumn, range);
    centred(LocationColumn,
            new QTableWidgetItem(vemo_base::BaseTools::instance().strReocordingLocation(task.location)));
}

void DownloadingRows::remove(const QString& key)
{
    m_rows.remove(key);
    m_stateWts.remove(key);
    m_operWts.remove(key);
}

QWidget* DownloadingRows::makeStateWt(int tableRow)
{
    const QString key = m_tasks->keyOfRow(tableRow);
    if (key.isEmpty())
        return nullptr;
    auto* widget = new DownloadStateWt;
    widget->setKey(key);
    widget->installEventFilter(this);
    showOn(widget, m_rows.value(key));
    m_stateWts.insert(key, widget);
    connect(widget, &QObject::destroyed, this, [this, key, widget] {
        if (m_stateWts.value(key) == widget)
            m_stateWts.remove(key);
    });
    return widget;
}

QWidget* DownloadingRows::makeOperWt(int tableRow)
{
    const QString key = m_tasks->keyOfRow(tableRow);
    if (key.isEmpty())
        return nullptr;
    auto* widget = new DownloadingOperWt(m_tasks->record(key));
    const Row row = m_rows.value(key);
    widget->setStartBtEnabled(row.isStartEnabled);
    widget->setStartBtChecked(row.isStartChecked);
    m_operWtMade(widget);
    m_operWts.insert(key, widget);
    connect(widget, &QObject::destroyed, this, [this, key, widget] {
        if (m_operWts.value(key) == widget)
            m_operWts.remove(key);
    });
    return widget;
}

void DownloadingRows::show(const QString& key, int state, int progress)
{
    const auto row = m_rows.find(key);
    if (row == m_rows.end())
        return;
    row->state = state;
    if (progress != noProgress)
        row->progress = progress;
    if (DownloadStateWt* widget = m_stateWts.value(key))
        widget->setState(state, progress);
}

void DownloadingRows::setStartChecked(const QString& key, bool checked)
{
    const auto row = m_rows.find(key);
    if (row == m_rows.end())
        return;
    row->isStartChecked = checked;
    if (DownloadingOperWt* widget = m_operWts.value(key))
        widget->setStartBtChecked(checked);
}

void DownloadingRows::setStartEnabled(const QString& key, bool enabled)
{
    const auto row = m_rows.find(key);
    if (row == m_rows.end())
        return;
    row->isStartEnabled = enabled;
    if (DownloadingOperWt* widget = m_operWts.value(key))
        widget->setStartBtEnabled(enabled);
}

void DownloadingRows::showChannel(const QString& key, const QString& text)
{
    const int row = m_tasks->rowOfKey(key);
    if (row < 0)
        return;
    QTableWidgetItem* item = m_table->item(row, ChannelColumn);
    item->setText(text);
    item->setData(TableWidget::ToneRole,
                  m_rows.value(key).isStartEnabled ? QVariant() : QVariant(static_cast<int>(vemo_base::Token::Text2)));
}

QWidget* DownloadingRows::operWt(const QString& key) const
{
    return m_operWts.value(key);
}

QString DownloadingRows::progressText(const QString& key) const
{
    const Row row = m_rows.value(key);
    if (row.state == vemo_data::TaskWaiting)
        return tr("waiting download...");
    if (row.state == vemo_data::TaskPaused)
        return row.progress > 0 ? tr("pause") + QStringLiteral(" %1%").arg(row.progress) : tr("pause");
    return QStringLiteral("%1%").arg(row.progress);
}

bool DownloadingRows::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        auto* widget = qobject_cast<DownloadStateWt*>(watched);
        const auto* help = static_cast<QHelpEvent*>(event);
        if (widget)
            QToolTip::showText(help->globalPos(), m_toolTip(widget->getKey()), widget);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vemo_filesCenter
