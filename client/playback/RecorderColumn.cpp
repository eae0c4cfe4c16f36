#include "RecorderColumn.h"

#include "devices/RecorderDialog.h"
#include "devices/RecorderTree.h"
#include "devices/RemoveQuestion.h"

#include <axis/DayCalendar.h>
#include <Icons.h>
#include <StylePainter.h>
#include <SystemWorker.h>
#include <Theme.h>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace vemo_client {

namespace {

constexpr int narrowest = 242;
constexpr int edge = 12;
constexpr int calendarHeight = 250;

} // namespace

RecorderColumn::RecorderColumn(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_tree(new RecorderTree(logins, this))
    , m_calendar(new vemo_base::DayCalendar(this))
    , m_filter(new QLineEdit(this))
    , m_search(new QPushButton(this))
{
    setMinimumWidth(narrowest);
    m_filter->setPlaceholderText(tr("Filter by channel name"));
    m_filter->setAccessibleName(m_filter->placeholderText());
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(vemo_base::Icons::icon(QStringLiteral("filter")), QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, m_tree, &RecorderTree::setFilter);

    auto* add = new QToolButton(this);
    add->setIcon(vemo_base::Icons::icon(QStringLiteral("add")));
    add->setIconSize(QSize(20, 20));
    add->setAutoRaise(true);
    add->setToolTip(tr("Add a recorder"));
    add->setAccessibleName(add->toolTip());
    add->setVisible(vemo_worker::SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerDevices));
    connect(add, &QToolButton::clicked, this, &RecorderColumn::addRecorder);

    auto* top = new QHBoxLayout;
    top->setSpacing(4);
    top->addWidget(m_filter, 1);
    top->addWidget(add);
    m_calendar->setFixedHeight(calendarHeight);
    m_calendar->setMaximumDate(QDate::currentDate().addDays(1));
    connect(m_calendar, &QCalendarWidget::selectionChanged, this,
            [this] { emit signalDayPicked(m_calendar->selectedDate()); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setSpacing(8);
    layout->addLayout(top);
    layout->addWidget(m_tree, 1);
    layout->addSpacing(8);
    layout->addWidget(m_calendar);
    layout->addWidget(m_search);

    m_search->setIcon(vemo_base::Icons::icon(QStringLiteral("search")));
    setSearching(false, false);
    connect(m_search, &QPushButton::clicked, this, &RecorderColumn::signalSearchClicked);
    connect(m_tree, &RecorderTree::signalEdit, this, &RecorderColumn::changeRecorder);
    connect(m_tree, &RecorderTree::signalRemove, this, &RecorderColumn::removeRecorder);
}

QDate RecorderColumn::day() const
{
    return m_calendar->selectedDate();
}

void RecorderColumn::setDay(const QDate& day)
{
    m_calendar->setMaximumDate(QDate::currentDate().addDays(1));
    m_calendar->setSelectedDate(day);
}

void RecorderColumn::setSearching(bool searching, bool canSearch)
{
    m_search->setText(searching ? tr("Cancel") : tr("Search"));
    m_search->setEnabled(canSearch);
    m_search->setToolTip(canSearch ? QString() : tr("No channel is chosen"));
}

void RecorderColumn::addRecorder()
{
    (new RecorderDialog(m_logins, QString(), window()))->open();
}

void RecorderColumn::changeRecorder(const QString& devId)
{
    (new RecorderDialog(m_logins, devId, window()))->open();
}

void RecorderColumn::removeRecorder(const QString& devId)
{
    RemoveQuestion::ask(m_logins, {devId}, window());
}

void RecorderColumn::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.fillRect(rect(), theme.color(vemo_base::Token::Surface));
    const QRect lower(0, m_calendar->y() - 8, width(), 1);
    vemo_base::StylePainter::hairline(&painter, lower.adjusted(edge, 0, -edge, 0), Qt::TopEdge, theme.mode());
}

} // namespace vemo_client
