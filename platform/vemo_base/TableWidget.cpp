#include "TableWidget.h"

#include "StylePainter.h"
#include "TableCellWidgets.h"
#include "TableHeader.h"
#include "TableHeaderTail.h"
#include "TableMetrics.h"
#include "TableQuietEdit.h"
#include "TableRowDelegate.h"
#include "TableSortKey.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace vemo_base {

namespace {

constexpr int frameLine = 1;
constexpr int leastRows = 3;
constexpr int tallestHint = 10000;
constexpr double focusRadius = 4;
constexpr int checkBoxReach = 10; ///< the box and so much around it take the click

} // namespace

TableWidget::TableWidget(QWidget* parent)
    : QTableWidget(parent)
    , m_cellWidgets(std::make_unique<TableCellWidgets>(this))
    , m_header(new TableHeader(this))
{
    setHorizontalHeader(m_header);
    setItemDelegate(new TableRowDelegate(this));
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setLineWidth(frameLine);
    viewport()->setBackgroundRole(QPalette::AlternateBase);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(TableMetrics::rowHeight);
    addScrollBarWidget(new TableHeaderTail(this), Qt::AlignTop);

    connect(model(), &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { rowsCame(first, last); });
    connect(model(), &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first, int last) { rowsLeft(first, last); });
    connect(model(), &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& from, const QModelIndex& to, const QVector<int>& roles) {
                if (from.column() == 0 && (roles.isEmpty() || roles.contains(Qt::CheckStateRole)))
                    readMarks(from.row(), to.row());
            });
    connect(model(), &QAbstractItemModel::modelReset, this, &TableWidget::readAllMarks);
    connect(model(), &QAbstractItemModel::layoutChanged, this, [this] {
        if (!m_isOrdering)
            readAllMarks();
    });
    connect(verticalHeader(), &QHeaderView::sectionResized, this, [this](int row, int, int size) {
        if (row < m_marks.count() && !m_isOrdering) {
            m_marks.setHidden(row, size == 0);
            marksChanged();
            updateGeometry();
        }
    });
    connect(m_header, &QHeaderView::sectionClicked, this, &TableWidget::sectionClicked);
}

TableWidget::~TableWidget()
{
    // Model and headers die later, as children, and would still tell of it.
    disconnect(model(), nullptr, this, nullptr);
    disconnect(verticalHeader(), nullptr, this, nullptr);
}

void TableWidget::beginBulkChange()
{
    if (m_bulkDepth++ == 0)
        viewport()->setUpdatesEnabled(false);
}

void TableWidget::endBulkChange()
{
    if (--m_bulkDepth > 0)
        return;
    viewport()->setUpdatesEnabled(true);
    updateGeometry();
    scheduleDelayedItemsLayout();
    marksChanged();
}

void TableWidget::setCellWidgetFactory(int column, CellWidgetFactory factory)
{
    m_cellWidgets->setFactory(column, std::move(factory));
    placeCellWidgets();
}

QWidget* TableWidget::visibleCellWidget(int row, int column) const
{
    auto* self = const_cast<TableWidget*>(this);
    if (m_bulkDepth == 0) {
        self->executeDelayedItemsLayout();
        self->placeCellWidgets();
    }
    return m_cellWidgets->widget(row, column);
}

void TableWidget::refreshCellWidget(int row, int column)
{
    m_cellWidgets->refresh(row, column);
    placeCellWidgets();
}

void TableWidget::setCheckHeader(const QString& text)
{
    m_header->setHasCheckBox(true);
    setHorizontalHeaderItem(0, new QTableWidgetItem(text));
}

void TableWidget::setCheckHeaderOfWidget(const QString& text)
{
    setCheckHeader(text);
    m_header->setPaintsCheckBox(false);
}

QList<int> TableWidget::checkedRows() const
{
    QList<int> rows;
    for (int row = 0; row < m_marks.count() && rows.size() < m_marks.checkedCount(); ++row) {
        if (m_marks.isChecked(row) && !m_marks.isHidden(row))
            rows.append(row);
    }
    return rows;
}

void TableWidget::checkAll(bool checked)
{
    QVector<int> rows;
    rows.reserve(rowCount());
    for (int row = 0; row < rowCount(); ++row) {
        if (!m_marks.isHidden(row))
            rows.append(row);
    }
    setChecked(rows, checked);
}

void TableWidget::setChecked(const QVector<int>& rows, bool checked)
{
    if (rows.isEmpty())
        return;
    {
        TableQuietEdit edit(this);
        for (const int row : rows)
            edit.change(row, 0, [checked](QTableWidgetItem* item) {
                item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
            });
    }
    const auto [from, to] = std::minmax_element(rows.cbegin(), rows.cend());
    emit model()->dataChanged(model()->index(*from, 0), model()->index(*to, 0), {Qt::CheckStateRole});
}

void TableWidget::setColumnRoom(const QVector<int>& widths)
{
    m_columnRoom = TableColumnRoom(widths.mid(0, columnCount()));
    m_columnRoom.fit(m_header, viewport()->width());
}

void TableWidget::setSortable(int column, bool sortable)
{
    m_sortable.removeAll(column);
    if (sortable)
        m_sortable.append(column);
}

void TableWidget::sortRows(int column, Qt::SortOrder order)
{
    m_isSortDue = false;
    if (!m_marks.isSorted())
        m_marks.beginSorted();
    m_sortedColumn = column;
    m_sortedOrder = order;
    orderRows(TableSortKey::orderOf(TableSortKey::keysOf(this, column, SortKeyRole), order));
}

void TableWidget::sortNaturally()
{
    m_isSortDue = false;
    m_sortedColumn = -1;
    if (m_marks.isSorted())
        orderRows(m_marks.endSorted());
}

void TableWidget::orderRows(const QVector<int>& order)
{
    m_header->viewport()->update();
    if (std::is_sorted(order.cbegin(), order.cend()))
        return;
    m_isOrdering = true;
    TableQuietEdit::reorder(this, order);
    m_marks.permute(order);
    for (int row = 0; row < rowCount(); ++row)
        m_marks.setHidden(row, isRowHidden(row));
    m_isOrdering = false;
    marksChanged();
    placeCellWidgets();
    viewport()->update();
}

void TableWidget::sortAgainLater()
{
    if (m_sortedColumn < 0 || m_isSortDue)
        return;
    m_isSortDue = true;
    QTimer::singleShot(0, this, [this] {
        if (m_isSortDue)
            sortRows(m_sortedColumn, m_sortedOrder);
    });
}

void TableWidget::sectionClicked(int column)
{
    if (column == 0 && m_header->hasCheckBox()) {
        checkAll(m_header->checkState() != Qt::Checked);
    } else if (isSortable(column)) {
        if (m_sortedColumn != column)
            sortRows(column, Qt::AscendingOrder);
        else if (m_sortedOrder == Qt::AscendingOrder)
            sortRows(column, Qt::DescendingOrder);
        else
            sortNaturally();
    }
}

void TableWidget::setFirstOrderNumber(int number)
{
    m_firstOrderNumber = number;
    viewport()->update();
}

void TableWidget::setVerticalScrollBarNotAtTheBottom()
{
    m_keepsPosition = true;
}

QSize TableWidget::sizeHint() const
{
    const int rows = qMin(m_marks.shownCount(), tallestHint / TableMetrics::rowHeight);
    const bool scrollsAside = m_header->length() > viewport()->width();
    return {minimumSizeHint().width(), 2 * frameLine + TableMetrics::headerHeight + rows * TableMetrics::rowHeight +
                                           (scrollsAside ? horizontalScrollBar()->sizeHint().height() : 0)};
}

QSize TableWidget::minimumSizeHint() const
{
    const int rows = qMin(m_marks.shownCount(), leastRows);
    return {QTableWidget::minimumSizeHint().width(),
            2 * frameLine + TableMetrics::headerHeight + rows * TableMetrics::rowHeight};
}

void TableWidget::rowsCame(int first, int last)
{
    const int count = last - first + 1;
    m_marks.insert(first, count);
    const int top = verticalScrollBar()->value() + m_insertedAbovePx;
    if (top > 0 && verticalHeader()->sectionPosition(first) < top)
        m_insertedAbovePx += count * TableMetrics::rowHeight;
    if (m_hoveredRow >= first)
        m_hoveredRow += count;
    sortAgainLater();
    if (m_bulkDepth == 0)
        updateGeometry();
    marksChanged();
}

void TableWidget::rowsLeft(int first, int last)
{
    m_marks.remove(first, last - first + 1);
    if (m_hoveredRow >= first)
        m_hoveredRow = -1;
    if (m_bulkDepth == 0)
        updateGeometry();
    marksChanged();
}

void TableWidget::readMarks(int first, int last)
{
    for (int row = first; row <= last && row < m_marks.count(); ++row) {
        const QTableWidgetItem* item = this->item(row, 0);
        m_marks.setChecked(row, item && item->checkState() == Qt::Checked);
    }
    marksChanged();
}

void TableWidget::readAllMarks()
{
    m_marks.reset(rowCount());
    m_sortedColumn = -1;
    for (int row = 0; row < rowCount(); ++row)
        m_marks.setHidden(row, isRowHidden(row));
    readMarks(0, rowCount() - 1);
}

void TableWidget::marksChanged()
{
    if (m_bulkDepth > 0)
        return;
    m_header->viewport()->update();
    if (m_toldCheckedCount != m_marks.checkedCount()) {
        m_toldCheckedCount = m_marks.checkedCount();
        emit signalCheckedCountChanged(m_toldCheckedCount);
    }
}

void TableWidget::toggleCheck(int row)
{
    setChecked({row}, !m_marks.isChecked(row));
}

void TableWidget::checkSelectedRows()
{
    QVector<int> rows;
    const QItemSelection selection = selectionModel()->selection();
    for (const QItemSelectionRange& range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (!m_marks.isHidden(row))
                rows.append(row);
        }
    }
    const bool allChecked = std::all_of(rows.cbegin(), rows.cend(), [this](int row) { return m_marks.isChecked(row); });
    setChecked(rows, !allChecked);
}

void TableWidget::askForMenu()
{
    if (currentRow() < 0)
        return;
    const QRect cell = visualRect(model()->index(currentRow(), qMin(1, columnCount() - 1)));
    emit signalRowMenuRequested(currentRow(), viewport()->mapToGlobal(cell.bottomLeft()));
}

void TableWidget::placeCellWidgets()
{
    if (m_bulkDepth > 0 || m_cellWidgets->isEmpty())
        return;
    m_cellWidgets->place();
    styleCellWidgets();
}

void TableWidget::styleCellWidgets()
{
    m_cellWidgets->setStyles(m_hoveredRow);
}

void TableWidget::setHoveredRow(int row)
{
    if (m_hoveredRow == row)
        return;
    updateRow(m_hoveredRow);
    m_hoveredRow = row;
    updateRow(m_hoveredRow);
    styleCellWidgets();
}

void TableWidget::updateRow(int row)
{
    if (row >= 0 && row < rowCount())
        viewport()->update(0, rowViewportPosition(row), viewport()->width(), TableMetrics::rowHeight);
}

bool TableWidget::isOnCheckBox(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    if (!m_header->hasCheckBox() || !index.isValid() || index.column() != 0)
        return false;
    const QRect box = TableRowDelegate::checkBoxRect(visualRect(index), layoutDirection());
    return box.adjusted(-checkBoxReach, -checkBoxReach, checkBoxReach, checkBoxReach).contains(position);
}

bool TableWidget::event(QEvent* event)
{
    if (event->type() != QEvent::Paint)
        return QTableWidget::event(event);
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    StylePainter::box(&painter, rect(), TableMetrics::panelRadius, themeColor(mode, Token::Surface),
                      themeColor(mode, Token::Border));
    return true;
}

bool TableWidget::viewportEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove: {
        const QPoint position = static_cast<QHoverEvent*>(event)->pos();
        setHoveredRow(rowAt(position.y()));
        if (columnAt(position.x()) == 0)
            updateRow(m_hoveredRow);
        break;
    }
    case QEvent::HoverLeave:
        setHoveredRow(-1);
        break;
    default:
        break;
    }
    return QTableWidget::viewportEvent(event);
}

void TableWidget::paintEvent(QPaintEvent* event)
{
    QTableWidget::paintEvent(event);
    QPainter painter(viewport());
    if (m_focusByKeyboard && hasFocus() && currentRow() >= 0) {
        const QRect row(0, rowViewportPosition(currentRow()), viewport()->width(), TableMetrics::rowHeight);
        StylePainter::focusRing(&painter, row.adjusted(2, 2, -2, -2), focusRadius, StylePainter::modeOf(palette()));
    }
    const QRect panel = rect().translated(-viewport()->mapTo(this, QPoint()));
    StylePainter::panelCorner(&painter, panel, Qt::BottomLeftCorner, palette());
    StylePainter::panelCorner(&painter, panel, Qt::BottomRightCorner, palette());
}

void TableWidget::resizeEvent(QResizeEvent* event)
{
    if (event->size().width() != event->oldSize().width())
        m_columnRoom.fit(m_header, viewport()->width());
    QTableWidget::resizeEvent(event);
}

void TableWidget::keyPressEvent(QKeyEvent* event)
{
    m_focusByKeyboard = true;
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    switch (event->key()) {
    case Qt::Key_Space:
        if (plain && m_header->hasCheckBox()) {
            checkSelectedRows();
            return;
        }
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (plain) {
            if (currentRow() >= 0)
                emit signalRowActivated(currentRow());
            return;
        }
        break;
    case Qt::Key_Delete:
        if (plain) {
            emit signalDeleteRequested();
            return;
        }
        break;
    case Qt::Key_F10:
        if (event->modifiers() == Qt::ShiftModifier) {
            m_menuByKey = true;
            askForMenu();
            return;
        }
        break;
    default:
        break;
    }
    QTableWidget::keyPressEvent(event);
    updateRow(currentRow());
}

void TableWidget::keyReleaseEvent(QKeyEvent* event)
{
    m_menuByKey = false;
    QTableWidget::keyReleaseEvent(event);
}

void TableWidget::mousePressEvent(QMouseEvent* event)
{
    m_focusByKeyboard = false;
    m_pressedCheckRow = -1;
    if (event->button() == Qt::LeftButton && isOnCheckBox(event->pos())) {
        m_pressedCheckRow = rowAt(event->pos().y());
        return;
    }
    QTableWidget::mousePressEvent(event);
}

void TableWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_pressedCheckRow >= 0 && event->button() == Qt::LeftButton) {
        if (isOnCheckBox(event->pos()) && rowAt(event->pos().y()) == m_pressedCheckRow)
            toggleCheck(m_pressedCheckRow);
        m_pressedCheckRow = -1;
        return;
    }
    QTableWidget::mouseReleaseEvent(event);
}

void TableWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && isOnCheckBox(event->pos())) {
        m_pressedCheckRow = rowAt(event->pos().y());
        return;
    }
    QTableWidget::mouseDoubleClickEvent(event);
}

void TableWidget::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        // Some desktops send this for Shift+F10 as well, which the key press has answered.
        if (!m_menuByKey)
            askForMenu();
        return;
    }
    const int row = rowAt(event->pos().y());
    if (row >= 0)
        emit signalRowMenuRequested(row, event->globalPos());
}

void TableWidget::focusInEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
        event->reason() == Qt::ShortcutFocusReason)
        m_focusByKeyboard = true;
    QTableWidget::focusInEvent(event);
    updateRow(currentRow());
}

void TableWidget::focusOutEvent(QFocusEvent* event)
{
    QTableWidget::focusOutEvent(event);
    updateRow(currentRow());
}

void TableWidget::scrollContentsBy(int dx, int dy)
{
    QTableWidget::scrollContentsBy(dx, dy);
    placeCellWidgets();
    // The round corners stay where they are while the rows move.
    constexpr int corner = static_cast<int>(TableMetrics::panelRadius);
    const int bottom = viewport()->height() - corner;
    viewport()->update(0, bottom + qMin(0, dy), viewport()->width(), corner + qAbs(dy));
    if (m_hoveredRow >= 0)
        setHoveredRow(rowAt(viewport()->mapFromGlobal(QCursor::pos()).y()));
}

void TableWidget::updateGeometries()
{
    QTableWidget::updateGeometries();
    if (const int above = std::exchange(m_insertedAbovePx, 0); above > 0 && m_keepsPosition)
        verticalScrollBar()->setValue(verticalScrollBar()->value() + above);
    placeCellWidgets();
}

void TableWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    if (current.isValid())
        describeRow(current.row());
    QTableWidget::currentChanged(current, previous);
    updateRow(previous.row());
    updateRow(current.row());
}

void TableWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected)
{
    QTableWidget::selectionChanged(selected, deselected);
    styleCellWidgets();
}

void TableWidget::describeRow(int row)
{
    QString text;
    if (m_rowText) {
        text = m_rowText(row);
    } else {
        QStringList parts;
        for (int column = 1; column < columnCount(); ++column) {
            if (const QTableWidgetItem* item = this->item(row, column); item && !item->text().isEmpty())
                parts.append(item->text());
        }
        text = parts.join(QLatin1String(", "));
    }
    TableQuietEdit edit(this);
    for (int column = 0; column < columnCount(); ++column)
        edit.change(row, column, [&text](QTableWidgetItem* item) { item->setData(Qt::AccessibleTextRole, text); });
}

} // namespace vemo_base
