#include "LogsTable.h"

#include "LogWords.h"

#include <BaseTools.h>
#include <TableWidget.h>

#include <QVBoxLayout>

namespace vemo_client {

namespace {

using vemo_base::TableWidget;
using vemo_worker::FilesCenterLogs;

enum Column : int { NumberColumn = 0, TimeColumn, KindColumn, DeviceColumn, ChannelColumn, EventColumn, ColumnCount };

QTableWidgetItem* itemOf(const QString& text, Qt::Alignment alignment)
{
    auto* item = new QTableWidgetItem(text);
    item->setTextAlignment(alignment | Qt::AlignVCenter);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

} // namespace

LogsTable::LogsTable(QWidget* parent)
    : QWidget(parent)
    , m_table(new TableWidget(this))
{
    m_table->setColumnCount(ColumnCount);
    m_table->setHorizontalHeaderLabels({tr("No."), tr("Time"), tr("Kind"), tr("Device"), tr("Channel"), tr("Event")});
    m_table->setColumnRoom({72, 180, 160, 140, 220, 0});
    for (const int column : {KindColumn, DeviceColumn})
        m_table->setColumnTone(column, vemo_base::Token::Text2);
    m_table->setAccessibleName(tr("Log entries"));
    m_table->setRowText([this](int row) {
        return QStringList{text(row, TimeColumn), text(row, ChannelColumn), text(row, EventColumn)}.join(
            QStringLiteral(", "));
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);
    layout->addStretch();
    setFocusProxy(m_table);
}

void LogsTable::setEntries(const QList<FilesCenterLogs::Entry>& entries, int firstNumber)
{
    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    {
        const TableWidget::BulkChange bulk(m_table);
        m_table->setRowCount(0);
        m_table->setRowCount(entries.size());
        m_table->setFirstOrderNumber(firstNumber);
        for (int row = 0; row < entries.size(); ++row) {
            const FilesCenterLogs::Entry& entry = entries.at(row);
            m_table->setItem(row, NumberColumn, itemOf(QString(), Qt::AlignHCenter));
            m_table->setItem(row, TimeColumn, itemOf(tools.strDatetime(entry.time, false, false), Qt::AlignHCenter));
            m_table->setItem(row, KindColumn, itemOf(LogWords::kind(entry.kind), Qt::AlignHCenter));
            m_table->setItem(row, DeviceColumn, itemOf(LogWords::device(entry.device), Qt::AlignHCenter));
            m_table->setItem(
                row, ChannelColumn,
                itemOf(LogWords::channel(entry.device, entry.channelNo, entry.channelName), Qt::AlignHCenter));
            m_table->setItem(row, EventColumn, itemOf(entry.text, Qt::AlignLeading));
        }
    }
    m_table->scrollToTop();
}

int LogsTable::rows() const
{
    return m_table->rowCount();
}

QString LogsTable::text(int row, int column) const
{
    const QTableWidgetItem* item = m_table->item(row, column);
    return item ? item->text() : QString();
}

} // namespace vemo_client
