#include "DevicesTable.h"

#include "DeviceFacts.h"
#include "DeviceOperWt.h"

#include <DataSignals.h>
#include <DevsMgrData.h>
#include <TableWidget.h>

#include <QVBoxLayout>

namespace vemo_client {

using vemo_base::TableWidget;

namespace {

enum Column : int {
    AllColumn = 0,
    NameColumn,
    StateColumn,
    AddressColumn,
    GroupColumn,
    ChannelsColumn,
    ModelColumn,
    BackupColumn,
    LastSeenColumn,
    OperColumn,
    ColumnCount
};

constexpr int devIdRole = Qt::UserRole;
constexpr int enabledRole = Qt::UserRole + 1;

QTableWidgetItem* cell(QTableWidget* table, int row, int column, const QString& text, const QVariant& sortKey)
{
    QTableWidgetItem* item = table->item(row, column);
    if (!item) {
        item = new QTableWidgetItem(text);
        item->setData(TableWidget::SortKeyRole, sortKey);
        item->setTextAlignment(Qt::AlignCenter);
        table->setItem(row, column, item);
        return item;
    }
    if (item->text() != text)
        item->setText(text);
    if (item->data(TableWidget::SortKeyRole) != sortKey)
        item->setData(TableWidget::SortKeyRole, sortKey);
    return item;
}

void setQuietly(QTableWidgetItem* item, int role, const QVariant& value)
{
    if (item->data(role) != value)
        item->setData(role, value);
}

} // namespace

DevicesTable::DevicesTable(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_table(new TableWidget(this))
{
    m_table->setColumnCount(ColumnCount);
    m_table->setHorizontalHeaderLabels({tr("All"), tr("Name"), tr("State"), tr("Address"), tr("Group"), tr("Channels"),
                                        tr("Model"), tr("Backup"), tr("Last seen"), tr("Oper")});
    m_table->setCheckHeader(tr("All"));
    m_table->setColumnRoom({80, 0, 160, 170, 112, 84, 142, 76, 156, 140});
    for (const int column : {AddressColumn, GroupColumn, ModelColumn, BackupColumn, LastSeenColumn})
        m_table->setColumnTone(column, vemo_base::Token::Text2);
    m_table->setColumnElide(AddressColumn, Qt::ElideMiddle);
    m_table->setChipColumn(StateColumn);
    for (int column = NameColumn; column < OperColumn; ++column)
        m_table->setSortable(column, true);
    m_table->setAccessibleName(tr("Recorders"));
    m_table->setRowText([this](int row) {
        const auto text = [this, row](int column) { return m_table->item(row, column)->text(); };
        return tr("%1, %2, %3").arg(text(NameColumn), text(StateColumn), text(AddressColumn));
    });
    m_table->setCellWidgetFactory(OperColumn, [this](int row) { return makeOper(row); });
    connect(m_table, &TableWidget::signalCheckedCountChanged, this, &DevicesTable::signalCheckedChanged);
    connect(m_table, &TableWidget::signalRowActivated, this, [this](int row) { emit signalDetails(devIdOf(row)); });
    connect(m_table, &QTableWidget::itemDoubleClicked, this,
            [this](const QTableWidgetItem* item) { emit signalDetails(devIdOf(item->row())); });
    connect(m_table, &TableWidget::signalDeleteRequested, this, [this] {
        QStringList devIds = checkedDevIds();
        if (devIds.isEmpty() && !currentDevId().isEmpty())
            devIds.append(currentDevId());
        if (!devIds.isEmpty())
            emit signalRemove(devIds);
    });
    connect(m_table, &TableWidget::signalRowMenuRequested, this,
            [this](int row, const QPoint& at) { emit signalMenu(devIdOf(row), at); });

    const vemo_data::DataSignals& stores = vemo_data::DataSignals::instance();
    connect(&stores, &vemo_data::DataSignals::signalDevInfoChanged, this, &DevicesTable::refresh);
    connect(&stores, &vemo_data::DataSignals::signalDevRemoved, this, &DevicesTable::removeRow);
    connect(m_logins, &RecorderLogins::signalChanged, this, &DevicesTable::refresh);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table);
    layout->addStretch();
    setFocusProxy(m_table);
    fill();
}

DevicesTable::~DevicesTable()
{
    // It asks for the widgets of its rows to its end, so it ends before what they are made from.
    m_table->disconnect(this);
    delete m_table;
}

void DevicesTable::fill()
{
    const TableWidget::BulkChange bulk(m_table);
    const QStringList devIds = vemo_data::DevsMgrData::instance().devIds();
    m_table->setRowCount(devIds.size());
    for (int row = 0; row < devIds.size(); ++row)
        writeRow(row, devIds.at(row));
}

QWidget* DevicesTable::makeOper(int row)
{
    const QTableWidgetItem* box = m_table->item(row, AllColumn);
    if (!box)
        return nullptr;
    auto* oper = new DeviceOperWt(box->data(devIdRole).toString(), box->data(enabledRole).toBool());
    connect(oper, &DeviceOperWt::signalReconnect, this, &DevicesTable::signalReconnect);
    connect(oper, &DeviceOperWt::signalEdit, this, &DevicesTable::signalEdit);
    connect(oper, &DeviceOperWt::signalEnable, this, &DevicesTable::signalEnable);
    connect(oper, &DeviceOperWt::signalRemove, this,
            [this](const QString& devId) { emit signalRemove(QStringList{devId}); });
    return oper;
}

void DevicesTable::refresh(const QString& devId)
{
    if (!vemo_data::DevsMgrData::instance().contains(devId))
        return;
    int row = rowOf(devId);
    const bool isNew = row < 0;
    if (isNew) {
        row = m_table->rowCount();
        m_table->insertRow(row);
    }
    writeRow(row, devId);
    emit signalRowsChanged();
}

void DevicesTable::writeRow(int row, const QString& devId)
{
    const DeviceFacts facts = DeviceFacts::of(devId, *m_logins);
    const bool isEnabled = facts.phase != RecorderLogins::Phase::Disabled;
    QTableWidgetItem* box = m_table->item(row, AllColumn);
    const bool isNew = !box;
    if (isNew) {
        box = new QTableWidgetItem;
        box->setCheckState(Qt::Unchecked);
        box->setData(devIdRole, devId);
        box->setData(enabledRole, isEnabled);
        m_table->setItem(row, AllColumn, box);
    } else if (box->data(enabledRole).toBool() != isEnabled) {
        box->setData(enabledRole, isEnabled);
        m_table->refreshCellWidget(row, OperColumn);
    }
    QTableWidgetItem* name = cell(m_table, row, NameColumn, facts.name, facts.name);
    setQuietly(name, TableWidget::ToneRole, int(isEnabled ? vemo_base::Token::Text : vemo_base::Token::Text2));
    QTableWidgetItem* state = cell(m_table, row, StateColumn, facts.state.word, facts.state.word);
    setQuietly(state, TableWidget::ToneRole, int(facts.state.color));
    setQuietly(state, TableWidget::IconRole, facts.state.icon);
    const QStringList why{facts.failure.title, facts.failure.cause, facts.failure.advice};
    setQuietly(state, Qt::ToolTipRole, facts.failure.title.isEmpty() ? QVariant() : why.join(QLatin1Char('\n')));
    cell(m_table, row, AddressColumn, facts.address, facts.address);
    cell(m_table, row, GroupColumn, facts.group, facts.group);
    cell(m_table, row, ChannelsColumn, facts.channels > 0 ? QString::number(facts.channels) : QString(),
         facts.channels);
    QTableWidgetItem* model = cell(m_table, row, ModelColumn, facts.model, facts.model);
    const QString make = QString(facts.maker + QLatin1Char(' ') + facts.model).trimmed();
    setQuietly(model, Qt::ToolTipRole,
               facts.firmware.isEmpty() ? QVariant() : QVariant(tr("%1, firmware %2").arg(make, facts.firmware)));
    const QString backup = facts.channels == 0 ? QString() : facts.supportsBackup ? tr("Yes") : tr("No");
    cell(m_table, row, BackupColumn, backup, facts.supportsBackup);
    cell(m_table, row, LastSeenColumn, facts.lastSeenWords(), facts.lastSeen);
    m_words.insert(devId, facts.searchWords());
    if (!m_filter.isEmpty())
        applyFilterTo(row);
}

void DevicesTable::removeRow(const QString& devId)
{
    m_words.remove(devId);
    const int row = rowOf(devId);
    if (row < 0)
        return;
    m_table->removeRow(row);
    emit signalRowsChanged();
}

int DevicesTable::rowOf(const QString& devId) const
{
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (devIdOf(row) == devId)
            return row;
    }
    return -1;
}

QString DevicesTable::devIdOf(int row) const
{
    const QTableWidgetItem* box = m_table->item(row, AllColumn);
    return box ? box->data(devIdRole).toString() : QString();
}

void DevicesTable::setFilter(const QString& text)
{
    m_filter = text.trimmed().toLower();
    {
        const TableWidget::BulkChange bulk(m_table);
        for (int row = 0; row < m_table->rowCount(); ++row)
            applyFilterTo(row);
    }
    emit signalRowsChanged();
}

void DevicesTable::applyFilterTo(int row)
{
    const bool isHit = m_filter.isEmpty() || m_words.value(devIdOf(row)).contains(m_filter);
    if (m_table->isRowHidden(row) == isHit)
        m_table->setRowHidden(row, !isHit);
}

QStringList DevicesTable::checkedDevIds() const
{
    QStringList devIds;
    const QList<int> checked = m_table->checkedRows();
    for (const int row : checked)
        devIds.append(devIdOf(row));
    return devIds;
}

QString DevicesTable::currentDevId() const
{
    return devIdOf(m_table->currentRow());
}

void DevicesTable::showDevice(const QString& devId)
{
    const int row = rowOf(devId);
    if (row < 0)
        return;
    m_table->selectRow(row);
    m_table->scrollToItem(m_table->item(row, NameColumn));
}

int DevicesTable::rows() const
{
    return m_table->rowCount();
}

int DevicesTable::shownRows() const
{
    return m_table->shownCount();
}

} // namespace vemo_client
