#include "TaskPageFrame.h"

#include "details/TaskDetailsWt.h"

#include <EmptyStateWt.h>
#include <ModuleAccess.h>
#include <PageHeader.h>
#include <TableFooter.h>
#include <TableWidget.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace vemo_filesCenter {

using vemo_base::PageHeader;

namespace {

/// Widths of the page beside the navigation, where an open panel leaves less than some 160 to the names.
constexpr int tightBelow = 1500;
constexpr int narrowBelow = 1140;
/// Where the usual room of the columns would cut ranges of time.
constexpr int smallBelow = 860;
constexpr int leastTable = 240;
constexpr int firstFactColumn = 2; ///< behind check box and name

} // namespace

TaskPageFrame::TaskPageFrame(QWidget* page, const Look& look, const QStringList& columns)
    : QObject(page)
    , m_page(page)
    , m_table(new vemo_base::TableWidget)
    , m_header(new PageHeader(look.title, page))
    , m_footer(new vemo_base::TableFooter)
    , m_hint(look.hint)
    , m_detailColumns(look.detailColumns)
    , m_stack(new QStackedWidget(page))
    , m_content(new QHBoxLayout)
{
    m_table->setColumnCount(columns.size());
    m_table->setHorizontalHeaderLabels(columns);
    m_table->setCheckHeader(columns.first());
    for (const QPair<QString, QString>& key : look.keys)
        m_footer->addKey(key.first, key.second);

    m_stack->setMinimumWidth(leastTable);
    auto* rows = new QWidget(m_stack);
    auto* rowsLayout = new QVBoxLayout(rows);
    rowsLayout->setContentsMargins(0, 0, 0, 0);
    rowsLayout->setSpacing(8);
    rowsLayout->addWidget(m_table);
    rowsLayout->addWidget(m_footer);
    rowsLayout->addStretch();
    m_stack->addWidget(rows);
    m_table->setAccessibleName(look.title);
    auto* empty = new vemo_base::EmptyStateWt(look.emptyIcon, look.missing, look.advice,
                                              look.offersPlayback ? tr("Open Playback") : QString(), m_stack);
    empty->setButtonSecondary();
    connect(empty, &vemo_base::EmptyStateWt::signalButtonClicked, &vemo_contact::ModuleAccess::instance(),
            &vemo_contact::ModuleAccess::signalShowPlayback);
    m_stack->addWidget(empty);

    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(24, 20, 24, 24);
    layout->setSpacing(16);
    layout->addWidget(m_header);
    m_content->setSpacing(16);
    m_content->addWidget(m_stack, 1);
    layout->addLayout(m_content, 1);
    connect(m_table, &vemo_base::TableWidget::signalCheckedCountChanged, this, &TaskPageFrame::refresh);
    connect(m_table, &QTableWidget::currentCellChanged, this, [this](int row, int, int before) {
        if (row != before && isOpen())
            showDetails(row);
    });
    page->installEventFilter(this);
    refresh();
}

QPushButton* TaskPageFrame::addButton(const QString& objectName, const QString& text, const QString& iconName,
                                      bool isPrimary)
{
    return m_header->addButton(objectName, iconName, text,
                               isPrimary ? PageHeader::Weight::Primary : PageHeader::Weight::Secondary);
}

void TaskPageFrame::setSummary(const QString& text)
{
    if (m_header->summary() != text)
        m_header->setSummary(text);
}

void TaskPageFrame::showDetails(int row)
{
    const vemo_data::DownloadTaskInfo task = m_taskOfRow ? m_taskOfRow(row) : vemo_data::DownloadTaskInfo();
    if (task.taskId.isEmpty())
        return;
    if (!m_details) {
        m_details = new TaskDetailsWt(m_stack->parentWidget());
        m_content->addWidget(m_details);
        connect(m_details, &TaskDetailsWt::signalCloseRequested, this, &TaskPageFrame::closeDetails);
    }
    m_details->showTask(task);
    shareRoom(true);
    m_details->show();
}

void TaskPageFrame::forgetDetails(const QString& taskId)
{
    if (!m_details || m_details->taskId() != taskId)
        return;
    m_details->clearTask();
    closeDetails();
}

void TaskPageFrame::closeDetails()
{
    shareRoom(false);
    m_details->hide();
}

bool TaskPageFrame::isOpen() const
{
    return m_details && !m_details->isHidden();
}

void TaskPageFrame::shareRoom(bool withDetails)
{
    const int width = m_page->width();
    if (m_details)
        m_details->setFixedWidth(width < narrowBelow ? TaskDetailsWt::narrowWidth : TaskDetailsWt::panelWidth);
    const bool isSmall = width < smallBelow;
    const bool isTight = withDetails && width < tightBelow;
    for (int column = firstFactColumn; column < m_table->columnCount() - 1; ++column) {
        const int place = m_detailColumns.indexOf(column);
        const bool givesWay = (place == 0 && isSmall) || (place >= 0 && isTight);
        m_table->setColumnHidden(column, givesWay || (withDetails && isSmall));
    }
    m_footer->setVisible(!withDetails || !isSmall);
    m_table->setColumnRoom(isSmall || isTight ? m_narrowRoom : m_usualRoom);
}

void TaskPageFrame::setColumnRoom(const QVector<int>& usual, const QVector<int>& narrow)
{
    m_usualRoom = usual;
    m_narrowRoom = narrow;
    m_table->setColumnRoom(usual);
}

bool TaskPageFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_page && event->type() == QEvent::Resize)
        shareRoom(isOpen());
    return QObject::eventFilter(watched, event);
}

void TaskPageFrame::refresh()
{
    m_stack->setCurrentIndex(m_table->rowCount() > 0 ? 0 : 1);
    const int checked = m_table->checkedCount();
    const bool showsHint = checked == 0 && !m_hint.isEmpty();
    m_footer->setIcon(showsHint ? QStringLiteral("info") : QString());
    m_footer->setText(showsHint ? m_hint : tr("%1 of %2 checked").arg(checked).arg(m_table->rowCount()));
}

} // namespace vemo_filesCenter
