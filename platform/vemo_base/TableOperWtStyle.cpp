#include "TableOperWtStyle.h"

#include "TableHeader.h"
#include "TableRowDelegate.h"
#include "TableWidget.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>

namespace vemo_base {

TableOperWtStyle::TableOperWtStyle(QObject* parent)
    : QObject(parent)
{}

void TableOperWtStyle::setWts(QCheckBox* selAll, TableWidget* table, QBoxLayout* headerLayout,
                              const QList<int>& operColumns)
{
    m_selAll = selAll;
    m_table = table;
    QStringList names{selAll->text()};
    QWidget* row = headerLayout->parentWidget();
    for (int at = 0; at < headerLayout->count(); ++at) {
        if (auto* label = qobject_cast<QLabel*>(headerLayout->itemAt(at)->widget()))
            names.append(label->text());
    }
    table->setColumnCount(names.size());
    table->setHorizontalHeaderLabels(names);
    table->setCheckHeaderOfWidget(selAll->text());
    for (int column = 1; column < names.size(); ++column)
        table->setSortable(column, !operColumns.contains(column));

    QHeaderView* header = table->horizontalHeader();
    headerLayout->removeWidget(selAll);
    selAll->setParent(header->viewport());
    selAll->setTristate(true);
    // The header writes the word, in the manner of the other columns.
    selAll->setAccessibleName(selAll->text());
    selAll->setToolTip(tr("Check all shown rows"));
    selAll->setText(QString());
    selAll->show();
    // The row has handed over what it held.
    if (row && row != table->parentWidget())
        row->hide();

    header->viewport()->installEventFilter(this);
    connect(header, &QHeaderView::sectionResized, this, &TableOperWtStyle::placeBox);
    connect(header, &QHeaderView::geometriesChanged, this, &TableOperWtStyle::placeBox);
    connect(table, &TableWidget::signalCheckedCountChanged, this, &TableOperWtStyle::refresh);
    connect(table->model(), &QAbstractItemModel::rowsInserted, this, &TableOperWtStyle::refresh);
    connect(table->model(), &QAbstractItemModel::rowsRemoved, this, &TableOperWtStyle::refresh);
    connect(selAll, &QCheckBox::clicked, this, [this] {
        m_table->checkAll(m_table->checkedCount() < m_table->shownCount());
        refresh();
    });
    placeBox();
    refresh();
}

bool TableOperWtStyle::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        placeBox();
    return QObject::eventFilter(watched, event);
}

void TableOperWtStyle::placeBox()
{
    const QHeaderView* header = m_table->horizontalHeader();
    const QRect section(header->sectionViewportPosition(0), 0, header->sectionSize(0), header->height());
    m_selAll->setGeometry(TableRowDelegate::checkBoxRect(section, m_selAll->layoutDirection()));
}

void TableOperWtStyle::refresh()
{
    const int checked = m_table->checkedCount();
    const QSignalBlocker blocker(m_selAll);
    m_selAll->setEnabled(m_table->shownCount() > 0);
    m_selAll->setCheckState(checked == 0                       ? Qt::Unchecked
                            : checked == m_table->shownCount() ? Qt::Checked
                                                               : Qt::PartiallyChecked);
}

} // namespace vemo_base
