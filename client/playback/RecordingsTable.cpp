#include "RecordingsTable.h"

#include <axis/SpanWords.h>
#include <BaseTools.h>

#include <QHeaderView>
#include <QVBoxLayout>

namespace vemo_client {

using vemo_base::SpanWords;

namespace {

enum Column : int { AllColumn = 0, ChannelColumn, BeginColumn, EndColumn, LengthColumn, TypeColumn, ColumnCount };

constexpr int dayRole = Qt::UserRole;
constexpr int recordingRole = Qt::UserRole + 1;

QTableWidgetItem* itemOf(const QString& text, const QVariant& sortKey)
{
    auto* item = new QTableWidgetItem(text);
    item->setData(vemo_base::TableWidget::SortKeyRole, sortKey);
    item->setTextAlignment(Qt::AlignCenter);
    return item;
}

} // namespace

RecordingsTable::RecordingsTable(QWidget* parent)
    : QWidget(parent)
    , m_table(new vemo_base::TableWidget(this))
{
    m_table->setColumnCount(ColumnCount);
    m_table->setHorizontalHeaderLabels(
        {tr("All"), tr("Channel Name"), tr("Begin"), tr("End"), tr("Length"), tr("Type")});
    m_table->setCheckHeader(tr("All"));
    m_table->setColumnRoom({88, 0, 190, 190, 130, 130});
    m_table->setColumnTone(TypeColumn, vemo_base::Token::Text2);
    for (int column = ChannelColumn; column < ColumnCount; ++column)
        m_table->setSortable(column, true);
    m_table->setAccessibleName(tr("Recordings"));
    connect(m_table, &vemo_base::TableWidget::signalCheckedCountChanged, this, &RecordingsTable::signalChosenChanged);
    connect(m_table, &vemo_base::TableWidget::signalRowActivated, this,
            [this](int row) { emit signalActivated(placeOf(row)); });
    connect(m_table, &QTableWidget::itemDoubleClicked, this,
            [this](const QTableWidgetItem* item) { emit signalActivated(placeOf(item->row())); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);
    layout->addStretch();
    setFocusProxy(m_table);
}

void RecordingsTable::setDays(const QVector<ChannelDay>& days)
{
    {
        const vemo_base::TableWidget::BulkChange bulk(m_table);
        m_table->setRowCount(0);
        for (int day = 0; day < days.size(); ++day) {
            const int count = qMin(days.at(day).recordings.size(), mostRows - m_table->rowCount());
            for (int recording = 0; recording < count; ++recording)
                addRow(days.at(day), {day, recording});
        }
    }
    m_table->scrollToTop();
}

void RecordingsTable::addRow(const ChannelDay& day, const Place& place)
{
    const vms_sdk::VideoRecording& recording = day.recordings.at(place.recording);
    const int row = m_table->rowCount();
    m_table->insertRow(row);
    auto* box = new QTableWidgetItem;
    box->setCheckState(day.chosen.contains(place.recording) ? Qt::Checked : Qt::Unchecked);
    box->setData(dayRole, place.day);
    box->setData(recordingRole, place.recording);
    m_table->setItem(row, AllColumn, box);
    m_table->setItem(row, ChannelColumn, itemOf(day.name, day.name));
    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    m_table->setItem(row, BeginColumn, itemOf(tools.strDatetime(recording.begin, true, false), recording.begin));
    m_table->setItem(row, EndColumn, itemOf(tools.strDatetime(recording.end, true, false), recording.end));
    const qint64 lengthMs = recording.begin.msecsTo(recording.end);
    m_table->setItem(row, LengthColumn, itemOf(SpanWords::length(lengthMs), lengthMs));
    const bool isAlarm = recording.type != 0;
    QTableWidgetItem* type = itemOf(isAlarm ? tr("Alarm") : tr("Continuous"), recording.type);
    if (isAlarm)
        type->setData(vemo_base::TableWidget::ToneRole, int(vemo_base::Token::Error));
    m_table->setItem(row, TypeColumn, type);
}

RecordingsTable::Place RecordingsTable::placeOf(int row) const
{
    const QTableWidgetItem* box = m_table->item(row, AllColumn);
    return box ? Place{box->data(dayRole).toInt(), box->data(recordingRole).toInt()} : Place{-1, -1};
}

QVector<RecordingsTable::Place> RecordingsTable::chosen() const
{
    QVector<Place> places;
    const QList<int> rows = m_table->checkedRows();
    places.reserve(rows.size());
    for (const int row : rows)
        places.append(placeOf(row));
    return places;
}

void RecordingsTable::clearChosen()
{
    if (m_table->checkedCount() > 0)
        m_table->checkAll(false);
}

int RecordingsTable::rows() const
{
    return m_table->rowCount();
}

} // namespace vemo_client
