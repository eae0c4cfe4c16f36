#pragma once

#include "TableBulkChange.h"
#include "TableColumnRoom.h"
#include "TableRowMarks.h"
#include "ThemeTokens.h"
#include "vemo_base_global.h"

#include <QHash>
#include <QList>
#include <QTableWidget>
#include <QVector>

#include <functional>
#include <memory>
#include <utility>

namespace vemo_base {

class TableCellWidgets;
class TableHeader;

/// A table of rows for lists of ten thousand: equal rows, pixel scrolling, whole rows selected. GUI thread. Items are
/// set as in any QTableWidget; the check box and the order number (row + 1) of column 0 are painted, never stored. Cell
/// widgets come from factories and exist only for rows in view: a widget is made, by the next layout, when its row
/// comes into view, and deleted when the row leaves it or is removed. State must therefore live outside of them.
/// Checks and counts speak of shown rows only; a hidden row keeps its check but is in no count and in no list.
/// A person sorts by the headers of sortable columns: ascending, descending, natural order again. A row inserted while
/// the table is sorted stays where it was inserted until the event loop runs, then moves to its sorted place; in the
/// natural order it stands directly below the row that was above it when it came (row 0: at the top). The table asks
/// for the height of its rows and no more: let a stretch follow it in its layout.
class VEMO_BASE_EXPORT TableWidget : public QTableWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TableWidget)

public:
    enum Role : int {
        /// What a column is sorted by: number, date-time or text; without it the displayed text.
        SortKeyRole = Qt::UserRole + 0x100,
        /// int of a Token: the item's text colour, or its chip's; without it the column's.
        ToneRole,
        /// Name of an icon of Icons, for chips.
        IconRole,
        /// What is wrong with the row, in a word: a chip in the error's colour behind the item's text.
        FaultRole
    };

    using CellWidgetFactory = std::function<QWidget*(int row)>;
    using RowText = std::function<QString(int row)>;

    using BulkChange = TableBulkChange;

    explicit TableWidget(QWidget* parent = nullptr);
    ~TableWidget() override;

    /// What a BulkChange does when it comes and goes.
    void beginBulkChange();
    void endBulkChange();

    /// The table owns what the factory returns; nullptr means no widget.
    void setCellWidgetFactory(int column, CellWidgetFactory factory);
    /// nullptr when the row is out of view. Lays out first what is due, so a row that was just filled has its widgets.
    QWidget* visibleCellWidget(int row, int column) const;
    void refreshCellWidget(int row, int column);

    /// Puts the "All" box into the header of column 0; a row's check is the check state of its item in column 0.
    void setCheckHeader(const QString& text);
    /// The same where a widget stands in the place of the box.
    void setCheckHeaderOfWidget(const QString& text);
    QList<int> checkedRows() const;
    int checkedCount() const { return m_marks.checkedCount(); }
    int shownCount() const { return m_marks.shownCount(); }
    void checkAll(bool checked);

    /// Room of each column in pixels; 0: shares what is left. In a narrow table the columns between the first and the
    /// last give up to half of theirs.
    void setColumnRoom(const QVector<int>& widths);
    // Before the table is shown:
    void setColumnTone(int column, Token tone) { m_tones.insert(column, tone); }
    Token columnTone(int column) const { return m_tones.value(column, Token::Text); }
    void setColumnElide(int column, Qt::TextElideMode mode) { m_elides.insert(column, mode); }
    Qt::TextElideMode columnElide(int column) const { return m_elides.value(column, Qt::ElideRight); }
    /// The items' texts are shown as chips, coloured by ToneRole with the icon of IconRole.
    void setChipColumn(int column) { m_chipColumn = column; }
    bool isChipColumn(int column) const { return column == m_chipColumn; }

    void setSortable(int column, bool sortable);
    bool isSortable(int column) const { return m_sortable.contains(column); }
    /// -1: natural order.
    int sortedColumn() const { return m_sortedColumn; }
    Qt::SortOrder sortedOrder() const { return m_sortedOrder; }
    void sortRows(int column, Qt::SortOrder order);
    void sortNaturally();

    /// What is read out for a row: its name, range and state; without it all texts of the row.
    void setRowText(RowText text) { m_rowText = std::move(text); }
    void setFirstOrderNumber(int number);
    int firstOrderNumber() const { return m_firstOrderNumber; }
    int hoveredRow() const { return m_hoveredRow; }

    /// From now on, and for rows inserted just before the call as well, a person who has scrolled away from the top
    /// keeps seeing the same rows when others are inserted above; at the top the new rows come into view.
    void setVerticalScrollBarNotAtTheBottom();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QSize viewportSizeHint() const override { return sizeHint(); }

signals:
    void signalCheckedCountChanged(int count);
    /// Enter on the current row.
    void signalRowActivated(int row);
    void signalDeleteRequested();
    void signalRowMenuRequested(int row, const QPoint& globalPos);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    void rowsCame(int first, int last);
    void rowsLeft(int first, int last);
    void readMarks(int first, int last);
    void readAllMarks();
    void marksChanged();
    void orderRows(const QVector<int>& order);
    void sortAgainLater();
    void sectionClicked(int column);
    void setChecked(const QVector<int>& rows, bool checked);
    void toggleCheck(int row);
    void checkSelectedRows();
    void askForMenu();
    void placeCellWidgets();
    void styleCellWidgets();
    void describeRow(int row);
    void setHoveredRow(int row);
    void updateRow(int row);
    bool isOnCheckBox(const QPoint& position) const;

    std::unique_ptr<TableCellWidgets> m_cellWidgets;
    TableHeader* m_header = nullptr;
    TableRowMarks m_marks;
    RowText m_rowText;
    QVector<int> m_sortable;
    TableColumnRoom m_columnRoom;
    QHash<int, Token> m_tones;
    QHash<int, Qt::TextElideMode> m_elides;
    Qt::SortOrder m_sortedOrder = Qt::AscendingOrder;
    int m_sortedColumn = -1;
    int m_chipColumn = -1;
    int m_firstOrderNumber = 1;
    int m_hoveredRow = -1;
    int m_pressedCheckRow = -1;
    int m_toldCheckedCount = 0;
    int m_insertedAbovePx = 0;
    int m_bulkDepth = 0;
    bool m_keepsPosition = false;
    bool m_isOrdering = false;
    bool m_isSortDue = false;
    bool m_focusByKeyboard = false;
    bool m_menuByKey = false;
};

} // namespace vemo_base
