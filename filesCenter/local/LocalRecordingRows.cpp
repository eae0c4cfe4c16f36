#include "LocalRecordingRows.h"

#include "LocalRecordingItem.h"
#include "LocalRecordingOperWt.h"

#include "download/DiskWork.h"
#include "tables/TaskTexts.h"

#include <BaseTools.h>
#include <VTableWidget.h>

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QScrollBar>
#include <QSet>

#include <algorithm>
#include <memory>

namespace vemo_filesCenter {

using VCOMMON::LocalRecordingIndexInfo;
using vemo_base::BaseTools;
using vemo_base::TableWidget;
using vemo_base::Token;

namespace {

constexpr int diskPatienceMs = 15; ///< below one picture of the screen
constexpr int checkColumnWidth = 125;
constexpr int evenFrom = checkColumnWidth + 4 * 190;
/// On the item of column 0.
constexpr int placeRole = Qt::UserRole;

} // namespace

LocalRecordingRows::LocalRecordingRows(VCOMMON::VTableWidget* table, QObject* parent)
    : QObject(parent)
    , m_table(table)
{
    m_table->installEventFilter(this);
    fitColumns();
    m_table->setCellWidgetFactory(OperColumn, [this](int row) -> QWidget* {
        const LocalRecordingItem* record = item(row);
        if (!record)
            return nullptr;
        auto* widget = new LocalRecordingOperWt;
        widget->setKey(record->filePath());
        emit signalOperWtMade(widget);
        return widget;
    });
    m_table->setRowText([this](int row) { return rowText(row); });
    m_table->setFileOfRow([this](int row) { return existingFile(row); });
}

void LocalRecordingRows::fitColumns()
{
    // The columns stretch evenly, until times and sizes would be cut.
    if (m_table->width() >= evenFrom)
        m_table->setColumnRoom({checkColumnWidth, 0, 0, 0, 0});
    else
        m_table->setColumnRoom({checkColumnWidth, 0, 170, 190, 120});
}

bool LocalRecordingRows::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_table && event->type() == QEvent::Resize)
        fitColumns();
    return QObject::eventFilter(watched, event);
}

struct LocalRecordingRows::Marks
{
    QSet<QString> checked; // files
    QString current;
    int scrolled = 0;
};

LocalRecordingRows::Marks LocalRecordingRows::marks() const
{
    Marks marks;
    for (const int row : m_table->checkedRows())
        marks.checked.insert(item(row)->filePath());
    if (const LocalRecordingItem* current = item(m_table->currentRow()))
        marks.current = current->filePath();
    marks.scrolled = m_table->verticalScrollBar()->value();
    return marks;
}

void LocalRecordingRows::putMarks(const Marks& marks)
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const QString path = item(row)->filePath();
        if (marks.checked.contains(path))
            m_table->item(row, CheckColumn)->setCheckState(Qt::Checked);
        if (path == marks.current)
            m_table->setCurrentCell(row, CheckColumn);
    }
    m_table->doItemsLayout(); // how far it can be scrolled is known only then
    m_table->verticalScrollBar()->setValue(marks.scrolled);
}

void LocalRecordingRows::show(const QList<LocalRecordingIndexInfo>& page, Place place)
{
    const Marks before = place == Place::Keep ? marks() : Marks();
    ++m_pageNumber;
    m_facts.clear();
    {
        const TableWidget::BulkChange bulk(m_table);
        m_table->removeAllRows();
        for (int row = 0; row < page.size(); ++row) {
            m_table->insertRow(row);
            fillRow(row, page.at(row));
        }
    }
    putMarks(before);
    askDisk(page);
}

void LocalRecordingRows::fillRow(int row, const LocalRecordingIndexInfo& record)
{
    auto* check = new QTableWidgetItem;
    check->setCheckState(Qt::Unchecked);
    check->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    check->setData(placeRole, row);
    m_table->setItem(row, CheckColumn, check);

    auto* channel = new LocalRecordingItem(record);
    channel->setTextAlignment(Qt::AlignCenter);
    if (!record.ok()) {
        channel->setData(TableWidget::FaultRole, tr("Damaged"));
        channel->setToolTip(record.problem);
    }
    m_table->setItem(row, ChannelColumn, channel);

    auto* begin = new QTableWidgetItem(BaseTools::instance().strDatetime(record.beginTime, false, false));
    begin->setTextAlignment(Qt::AlignCenter);
    begin->setData(TableWidget::SortKeyRole, record.beginTime);
    if (record.isSpanGuessed) {
        begin->setData(TableWidget::ToneRole, static_cast<int>(Token::Text2));
        begin->setToolTip(tr("The file does not tell its time. This one comes from when it was last written."));
    }
    m_table->setItem(row, BeginColumn, begin);

    auto* size = new QTableWidgetItem(TaskTexts::size(record.bytes, record.beginTime, record.endTime));
    size->setTextAlignment(Qt::AlignCenter);
    size->setData(TableWidget::SortKeyRole, record.bytes);
    size->setToolTip(QDir::toNativeSeparators(record.filePath));
    m_table->setItem(row, SizeColumn, size);
    m_table->setItem(row, OperColumn, new QTableWidgetItem);
}

void LocalRecordingRows::askDisk(const QList<LocalRecordingIndexInfo>& page)
{
    if (page.isEmpty())
        return;
    QStringList paths;
    for (const LocalRecordingIndexInfo& record : page)
        paths.append(record.filePath);
    auto facts = std::make_shared<Facts>();
    DiskWork::run(
        [paths, facts] {
            for (const QString& path : paths) {
                const QFileInfo file(path);
                if (file.isFile())
                    facts->insert(path, {true, file.size()});
            }
        },
        this,
        [this, facts, asked = m_pageNumber] {
            if (asked == m_pageNumber)
                takeFacts(*facts);
        },
        diskPatienceMs);
}

void LocalRecordingRows::takeFacts(const Facts& facts)
{
    m_facts = facts;
    const TableWidget::BulkChange bulk(m_table);
    for (int row = 0; row < m_table->rowCount(); ++row) {
        const LocalRecordingItem* record = item(row);
        QTableWidgetItem* size = m_table->item(row, SizeColumn);
        const FileFacts file = facts.value(record->filePath());
        const QString text = TaskTexts::size(file.bytes, record->beginTime(), record->endTime());
        if (size->text() != text) {
            size->setText(text);
            size->setData(TableWidget::SortKeyRole, file.bytes);
        }
        if (!file.isThere) {
            QTableWidgetItem* channel = m_table->item(row, ChannelColumn);
            channel->setData(TableWidget::FaultRole, tr("Missing"));
            channel->setToolTip(tr("file does not exist"));
        }
    }
}

LocalRecordingItem* LocalRecordingRows::item(int row) const
{
    return static_cast<LocalRecordingItem*>(m_table->item(row, ChannelColumn));
}

int LocalRecordingRows::rowOfFile(const QString& filePath) const
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (item(row)->filePath() == filePath)
            return row;
    }
    return -1;
}

QStringList LocalRecordingRows::files(const QList<int>& rows) const
{
    QStringList paths;
    for (const int row : rows)
        paths.append(item(row)->filePath());
    return paths;
}

QList<int> LocalRecordingRows::placesInPage(const QList<int>& rows) const
{
    QList<int> places;
    for (const int row : rows)
        places.append(m_table->item(row, CheckColumn)->data(placeRole).toInt());
    std::sort(places.begin(), places.end());
    return places;
}

QString LocalRecordingRows::text(int row, Column column) const
{
    const QTableWidgetItem* cell = m_table->item(row, column);
    return cell ? cell->text() : QString();
}

QString LocalRecordingRows::existingFile(int row) const
{
    const QString path = item(row)->filePath();
    return m_facts.value(path).isThere ? path : QString();
}

QString LocalRecordingRows::rowText(int row) const
{
    QStringList parts{text(row, ChannelColumn),
                      BaseTools::instance().strTimeRange(item(row)->beginTime(), item(row)->endTime()),
                      text(row, SizeColumn)};
    parts.append(item(row)->data(TableWidget::FaultRole).toString());
    parts.removeAll(QString());
    return parts.join(QLatin1String(", "));
}

} // namespace vemo_filesCenter
