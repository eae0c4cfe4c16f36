#include <TableWidget.h>

#include <Theme.h>

#include <QHeaderView>
#include <QLabel>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <functional>
#include <memory>

using vemo_base::TableWidget;

namespace {

constexpr int manyRows = 10000;
constexpr int rowHeight = 40;
constexpr int nameColumn = 1;
constexpr int numberColumn = 2;
constexpr int widgetColumn = 3;

void fillRow(TableWidget* table, int row, int number)
{
    auto* check = new QTableWidgetItem;
    check->setCheckState(Qt::Unchecked);
    table->setItem(row, 0, check);
    table->setItem(row, nameColumn, new QTableWidgetItem(QStringLiteral("Channel %1").arg(number)));
    auto* value = new QTableWidgetItem(QStringLiteral("%1 KB").arg(number));
    value->setData(TableWidget::SortKeyRole, number % 100);
    table->setItem(row, numberColumn, value);
}

std::unique_ptr<TableWidget> tableOf(int rows)
{
    auto table = std::make_unique<TableWidget>();
    table->setColumnCount(4);
    table->setHorizontalHeaderLabels({QString(), QStringLiteral("Name"), QStringLiteral("Size"), QString()});
    table->setCheckHeader(QStringLiteral("All"));
    table->setSortable(nameColumn, true);
    table->setSortable(numberColumn, true);
    {
        const TableWidget::BulkChange bulk(table.get());
        table->setRowCount(rows);
        for (int row = 0; row < rows; ++row)
            fillRow(table.get(), row, row);
    }
    table->setCellWidgetFactory(widgetColumn, [widget = table.get()](int row) {
        const QTableWidgetItem* name = widget->item(row, nameColumn);
        return name ? new QLabel(name->text()) : nullptr;
    });
    table->resize(600, 500);
    table->show();
    return table;
}

QStringList namesOf(const TableWidget* table)
{
    QStringList names;
    for (int row = 0; row < table->rowCount(); ++row)
        names.append(table->item(row, nameColumn)->text());
    return names;
}

void clickHeader(TableWidget* table, int column)
{
    const QHeaderView* header = table->horizontalHeader();
    const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2, 10);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
}

QPoint checkBoxOf(const TableWidget* table, int row)
{
    return table->visualRect(table->model()->index(row, 0)).topLeft() + QPoint(24, rowHeight / 2);
}

/// Empty when the rows in view, and no others, have a widget and each shows its own row.
QString faultOfCellWidgets(const TableWidget* table)
{
    const int first = table->rowAt(0);
    const int last = table->rowAt(table->viewport()->height() - 1);
    int inView = 0;
    for (int row = first; row >= 0 && row <= (last < 0 ? table->rowCount() - 1 : last); ++row) {
        if (table->isRowHidden(row))
            continue;
        ++inView;
        const auto* label = qobject_cast<QLabel*>(table->visibleCellWidget(row, widgetColumn));
        if (!label)
            return QStringLiteral("row %1 is in view and has no widget").arg(row);
        if (label->text() != table->item(row, nameColumn)->text())
            return QStringLiteral("row %1 shows the widget of %2").arg(row).arg(label->text());
        if (label->geometry() != table->visualRect(table->model()->index(row, widgetColumn)))
            return QStringLiteral("the widget of row %1 stands elsewhere").arg(row);
        if (!label->isVisibleTo(table))
            return QStringLiteral("the widget of row %1 is hidden").arg(row);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const int alive = table->viewport()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly).size();
    if (alive != inView)
        return QStringLiteral("%1 widgets for %2 rows in view").arg(alive).arg(inView);
    return {};
}

} // namespace

Q_DECLARE_METATYPE(QTableWidgetItem*)
Q_DECLARE_METATYPE(std::function<void(TableWidget*)>)

/// A table with ten thousand rows: widgets for the rows in view, checks and their count, orders, keys.
class TableWidgetTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void givesWidgetsToTheRowsInViewAlone_data();
    void givesWidgetsToTheRowsInViewAlone();
    void keepsRightWidgetsThroughRandomChanges();
    void asksTheFactoryAgainForOneCell();
    void survivesAWidgetThatRemovesItsRow();
    void countsChecksOfShownRows();
    void checksAllByTheHeader();
    void tellsTheCountOnceAfterABulkChange();
    void sortsByValueAndReturnsToTheNaturalOrder();
    void sortsTextsByTheNumbersInThem();
    void keepsSelectionChecksAndHiddenRowsWhileSorting();
    void placesRowsThatComeWhileItIsSorted();
    void keepsTheRowsInViewWhenOthersComeAbove_data();
    void keepsTheRowsInViewWhenOthersComeAbove();
    void answersTheKeys();
    void checksWithoutSelecting();
    void readsOutTheCurrentRow();
};

void TableWidgetTest::initTestCase()
{
    qRegisterMetaType<QTableWidgetItem*>();
    vemo_base::Theme::instance().apply();
}

void TableWidgetTest::givesWidgetsToTheRowsInViewAlone_data()
{
    using Change = std::function<void(TableWidget*)>;
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, Change change) { QTest::newRow(name) << std::move(change); };
    const auto toMiddle = [](TableWidget* table) { table->verticalScrollBar()->setValue(5000 * rowHeight + 17); };
    row("nothing", [](TableWidget*) {});
    row("scrolled by a pixel", [](TableWidget* table) { table->verticalScrollBar()->setValue(1); });
    row("scrolled to the end",
        [](TableWidget* table) { table->verticalScrollBar()->setValue(table->verticalScrollBar()->maximum()); });
    row("row inserted at the top", [](TableWidget* table) {
        table->insertRow(0);
        fillRow(table, 0, manyRows);
    });
    row("row inserted in view", [toMiddle](TableWidget* table) {
        toMiddle(table);
        table->insertRow(5003);
        fillRow(table, 5003, manyRows);
    });
    row("row inserted above the view", [toMiddle](TableWidget* table) {
        toMiddle(table);
        table->insertRow(10);
        fillRow(table, 10, manyRows);
    });
    row("rows removed above and in view", [toMiddle](TableWidget* table) {
        toMiddle(table);
        table->removeRow(5004);
        table->removeRow(5002);
        table->removeRow(1);
    });
    row("sorted", [](TableWidget* table) { table->sortRows(numberColumn, Qt::DescendingOrder); });
    row("rows hidden", [](TableWidget* table) {
        for (int i = 0; i < 9000; i += 2)
            table->setRowHidden(i, true);
    });
    row("all but one hidden", [](TableWidget* table) {
        for (int i = 0; i < manyRows; ++i)
            table->setRowHidden(i, i != 7000);
    });
    row("resized", [](TableWidget* table) { table->resize(900, 1500); });
    row("hidden, changed and shown again", [](TableWidget* table) {
        table->hide();
        table->removeRow(3);
        table->show();
    });
    row("emptied", [](TableWidget* table) { table->setRowCount(0); });
    row("cleared", [](TableWidget* table) { table->setRowCount(5); });
}

void TableWidgetTest::givesWidgetsToTheRowsInViewAlone()
{
    QFETCH(std::function<void(TableWidget*)>, change);
    const auto table = tableOf(manyRows);
    QCOMPARE(faultOfCellWidgets(table.get()), QString());
    change(table.get());
    QCoreApplication::processEvents();
    QCOMPARE(faultOfCellWidgets(table.get()), QString());
}

void TableWidgetTest::keepsRightWidgetsThroughRandomChanges()
{
    const auto table = tableOf(200);
    QRandomGenerator random(20260110);
    for (int step = 0; step < 300; ++step) {
        const int row = table->rowCount() > 0 ? random.bounded(table->rowCount()) : 0;
        switch (random.bounded(6)) {
        case 0:
            table->insertRow(row);
            fillRow(table.get(), row, 1000 + step);
            break;
        case 1:
            table->removeRow(row);
            break;
        case 2:
            table->verticalScrollBar()->setValue(random.bounded(table->verticalScrollBar()->maximum() + 1));
            break;
        case 3:
            table->setRowHidden(row, !table->isRowHidden(row));
            break;
        case 4:
            table->sortRows(numberColumn, Qt::AscendingOrder);
            break;
        default:
            table->sortNaturally();
            break;
        }
        if (random.bounded(3) == 0)
            QCoreApplication::processEvents();
        const QString fault = faultOfCellWidgets(table.get());
        QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("after step %1: %2").arg(step).arg(fault)));
        int checked = 0;
        int shown = 0;
        for (int i = 0; i < table->rowCount(); ++i) {
            shown += table->isRowHidden(i) ? 0 : 1;
            checked += !table->isRowHidden(i) && table->item(i, 0)->checkState() == Qt::Checked ? 1 : 0;
        }
        QCOMPARE(table->shownCount(), shown);
        QCOMPARE(table->checkedCount(), checked);
        if (table->rowCount() > 0)
            table->item(random.bounded(table->rowCount()), 0)
                ->setCheckState(random.bounded(2) == 0 ? Qt::Checked : Qt::Unchecked);
    }
}

void TableWidgetTest::asksTheFactoryAgainForOneCell()
{
    const auto table = tableOf(10);
    table->item(2, nameColumn)->setText(QStringLiteral("Dock"));
    table->refreshCellWidget(2, widgetColumn);
    QCOMPARE(faultOfCellWidgets(table.get()), QString());
}

void TableWidgetTest::survivesAWidgetThatRemovesItsRow()
{
    const auto table = tableOf(50);
    auto* label = qobject_cast<QLabel*>(table->visibleCellWidget(1, widgetColumn));
    QVERIFY(label);
    connect(label, &QLabel::linkActivated, table.get(), [&table] {
        table->removeRow(1);
        table->visibleCellWidget(0, widgetColumn);
    });
    emit label->linkActivated(QString());
    QVERIFY2(label->text() == QLatin1String("Channel 1"), "the widget went while its signal was being sent");
    QCOMPARE(faultOfCellWidgets(table.get()), QString());
}

void TableWidgetTest::countsChecksOfShownRows()
{
    const auto table = tableOf(manyRows);
    QSignalSpy told(table.get(), &TableWidget::signalCheckedCountChanged);
    table->item(3, 0)->setCheckState(Qt::Checked);
    table->item(7, 0)->setCheckState(Qt::Checked);
    QCOMPARE(table->checkedRows(), (QList<int>{3, 7}));
    QCOMPARE(told.size(), 2);
    table->insertRow(0);
    fillRow(table.get(), 0, manyRows);
    QCOMPARE(table->checkedRows(), (QList<int>{4, 8}));
    table->setRowHidden(8, true);
    QCOMPARE(table->checkedRows(), QList<int>{4});
    table->setRowHidden(8, false);
    table->removeRow(4);
    QCOMPARE(table->checkedRows(), QList<int>{7});
    table->checkAll(true);
    QCOMPARE(table->checkedCount(), manyRows);
    QCOMPARE(table->item(manyRows - 1, 0)->checkState(), Qt::Checked);
    table->setRowCount(0);
    QCOMPARE(table->checkedCount(), 0);
}

void TableWidgetTest::checksAllByTheHeader()
{
    const auto table = tableOf(20);
    table->setRowHidden(5, true);
    table->item(1, 0)->setCheckState(Qt::Checked);
    clickHeader(table.get(), 0);
    QCOMPARE(table->checkedCount(), 19);
    QVERIFY2(table->item(5, 0)->checkState() == Qt::Unchecked, "All speaks of shown rows only");
    clickHeader(table.get(), 0);
    QCOMPARE(table->checkedCount(), 0);
}

void TableWidgetTest::tellsTheCountOnceAfterABulkChange()
{
    const auto table = tableOf(100);
    QSignalSpy told(table.get(), &TableWidget::signalCheckedCountChanged);
    {
        const TableWidget::BulkChange outer(table.get());
        {
            const TableWidget::BulkChange inner(table.get());
            for (int row = 0; row < 50; ++row)
                table->item(row, 0)->setCheckState(Qt::Checked);
        }
        for (int row = 9; row >= 0; --row)
            table->removeRow(row);
        QCOMPARE(told.size(), 0);
    }
    QCOMPARE(told.size(), 1);
    QCOMPARE(told.first().first().toInt(), 40);
    QCOMPARE(faultOfCellWidgets(table.get()), QString());
}

void TableWidgetTest::sortsByValueAndReturnsToTheNaturalOrder()
{
    const auto table = tableOf(manyRows);
    const QStringList natural = namesOf(table.get());
    const auto keys = [&table] {
        QVector<int> values;
        for (int row = 0; row < table->rowCount(); ++row)
            values.append(table->item(row, numberColumn)->data(TableWidget::SortKeyRole).toInt());
        return values;
    };
    clickHeader(table.get(), numberColumn);
    QVector<int> values = keys();
    QVERIFY(std::is_sorted(values.cbegin(), values.cend()));
    QVERIFY2(table->item(1, nameColumn)->text() == QLatin1String("Channel 100"), "equal values changed places");
    clickHeader(table.get(), numberColumn);
    values = keys();
    QVERIFY(std::is_sorted(values.crbegin(), values.crend()));
    QVERIFY2(table->item(0, 0)->text().isEmpty(), "sorting left a text in the first column");
    clickHeader(table.get(), numberColumn);
    QCOMPARE(table->sortedColumn(), -1);
    QCOMPARE(namesOf(table.get()), natural);
}

void TableWidgetTest::sortsTextsByTheNumbersInThem()
{
    const auto table = tableOf(0);
    for (const int number : {10, 2, 1, 20}) {
        const int row = table->rowCount();
        table->insertRow(row);
        fillRow(table.get(), row, number);
    }
    table->item(2, nameColumn)->setText(QString());
    table->sortRows(nameColumn, Qt::AscendingOrder);
    QCOMPARE(namesOf(table.get()), (QStringList{QStringLiteral("Channel 2"), QStringLiteral("Channel 10"),
                                                QStringLiteral("Channel 20"), QString()}));
    table->sortRows(nameColumn, Qt::DescendingOrder);
    QCOMPARE(namesOf(table.get()).first(), QStringLiteral("Channel 20"));
    QCOMPARE(namesOf(table.get()).last(), QString());
}

void TableWidgetTest::keepsSelectionChecksAndHiddenRowsWhileSorting()
{
    const auto table = tableOf(1000);
    table->selectRow(150);
    table->item(160, 0)->setCheckState(Qt::Checked);
    table->setRowHidden(170, true);
    const auto check = [&table] {
        QCOMPARE(table->item(table->currentRow(), nameColumn)->text(), QStringLiteral("Channel 150"));
        QCOMPARE(table->selectionModel()->selectedRows().size(), 1);
        QCOMPARE(table->checkedRows().size(), 1);
        QCOMPARE(table->item(table->checkedRows().first(), nameColumn)->text(), QStringLiteral("Channel 160"));
        QCOMPARE(table->shownCount(), 999);
        for (int row = 0; row < table->rowCount(); ++row)
            QCOMPARE(table->isRowHidden(row), table->item(row, nameColumn)->text() == QLatin1String("Channel 170"));
    };
    table->sortRows(numberColumn, Qt::DescendingOrder);
    check();
    table->sortNaturally();
    check();
}

void TableWidgetTest::placesRowsThatComeWhileItIsSorted()
{
    const auto table = tableOf(200);
    table->sortRows(numberColumn, Qt::AscendingOrder);
    const QString above = table->item(99, nameColumn)->text();
    for (const int row : {0, 101, table->rowCount() + 2}) {
        table->insertRow(row);
        fillRow(table.get(), row, 50);
        table->item(row, nameColumn)->setText(QStringLiteral("New %1").arg(row));
        QCOMPARE(table->item(row, nameColumn)->text(), QStringLiteral("New %1").arg(row));
    }
    QCoreApplication::processEvents();
    for (int row = 1; row < table->rowCount(); ++row)
        QVERIFY(table->item(row - 1, numberColumn)->data(TableWidget::SortKeyRole).toInt() <=
                table->item(row, numberColumn)->data(TableWidget::SortKeyRole).toInt());
    table->sortNaturally();
    const QStringList names = namesOf(table.get());
    QCOMPARE(names.first(), QStringLiteral("New 0"));
    QCOMPARE(names.indexOf(QStringLiteral("New 101")), names.indexOf(above) + 1);
    QStringList old = names.filter(QStringLiteral("Channel"));
    QCOMPARE(old.first(), QStringLiteral("Channel 0"));
    QCOMPARE(old.last(), QStringLiteral("Channel 199"));
}

void TableWidgetTest::keepsTheRowsInViewWhenOthersComeAbove_data()
{
    QTest::addColumn<int>("scrolledPx");
    QTest::addColumn<QString>("firstAfter");
    QTest::newRow("at the top the new ones come into view") << 0 << QStringLiteral("Channel 2002");
    QTest::newRow("a little below it stays") << 15 << QStringLiteral("Channel 0");
    QTest::newRow("in the middle it stays") << 100 * rowHeight + 7 << QStringLiteral("Channel 100");
    QTest::newRow("at the end it stays") << 1000000 << QString();
}

void TableWidgetTest::keepsTheRowsInViewWhenOthersComeAbove()
{
    QFETCH(int, scrolledPx);
    QFETCH(QString, firstAfter);
    const auto table = tableOf(1000);
    table->verticalScrollBar()->setValue(scrolledPx);
    QCoreApplication::processEvents();
    if (firstAfter.isEmpty())
        firstAfter = table->item(table->rowAt(0), nameColumn)->text();
    const int offset = table->rowViewportPosition(table->rowAt(0));
    for (int i = 0; i < 3; ++i) {
        table->insertRow(0);
        fillRow(table.get(), 0, 2000 + i);
        table->setVerticalScrollBarNotAtTheBottom();
    }
    QCoreApplication::processEvents();
    QCOMPARE(table->item(table->rowAt(0), nameColumn)->text(), firstAfter);
    QCOMPARE(table->rowViewportPosition(table->rowAt(0)), offset);
    QCOMPARE(faultOfCellWidgets(table.get()), QString());
}

void TableWidgetTest::answersTheKeys()
{
    const auto table = tableOf(30);
    QSignalSpy activated(table.get(), &TableWidget::signalRowActivated);
    QSignalSpy deletion(table.get(), &TableWidget::signalDeleteRequested);
    QSignalSpy menu(table.get(), &TableWidget::signalRowMenuRequested);
    QTest::keyClick(table.get(), Qt::Key_Return);
    QCOMPARE(activated.size(), 0);
    table->setCurrentCell(2, 0);
    QTest::keyClick(table.get(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(table.get(), Qt::Key_Space);
    QCOMPARE(table->checkedRows(), (QList<int>{2, 3}));
    table->item(3, 0)->setCheckState(Qt::Unchecked);
    QTest::keyClick(table.get(), Qt::Key_Space);
    QCOMPARE(table->checkedRows(), (QList<int>{2, 3}));
    QTest::keyClick(table.get(), Qt::Key_Space);
    QCOMPARE(table->checkedCount(), 0);
    QTest::keyClick(table.get(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(table.get(), Qt::Key_Space);
    QCOMPARE(table->checkedCount(), 30);
    QTest::keyClick(table.get(), Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.first().first().toInt(), 3);
    QTest::keyClick(table.get(), Qt::Key_Delete);
    QCOMPARE(deletion.size(), 1);
    QTest::keyClick(table.get(), Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(menu.size(), 1);
    QCOMPARE(menu.first().first().toInt(), 3);
}

void TableWidgetTest::checksWithoutSelecting()
{
    const auto table = tableOf(30);
    QSignalSpy doubleClicked(table.get(), &QTableWidget::itemDoubleClicked);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, checkBoxOf(table.get(), 4));
    QCOMPARE(table->checkedRows(), QList<int>{4});
    QVERIFY(table->selectionModel()->selectedRows().isEmpty());
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, checkBoxOf(table.get(), 4));
    QCOMPARE(doubleClicked.size(), 0);
    const QPoint name = table->visualRect(table->model()->index(4, nameColumn)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, name);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, name);
    QCOMPARE(doubleClicked.size(), 1);
    QCOMPARE(table->selectionModel()->selectedRows().size(), 1);
}

void TableWidgetTest::readsOutTheCurrentRow()
{
    const auto table = tableOf(5);
    table->setRowText([&table](int row) { return table->item(row, nameColumn)->text() + QStringLiteral(", waiting"); });
    table->setCurrentCell(3, nameColumn);
    QCOMPARE(table->item(3, nameColumn)->data(Qt::AccessibleTextRole).toString(), QStringLiteral("Channel 3, waiting"));
}

QTEST_MAIN(TableWidgetTest)
#include "TableWidgetTest.moc"
