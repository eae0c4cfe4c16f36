#include "DayCalendar.h"

#include "Icons.h"
#include "StylePainter.h"
#include "Theme.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>

namespace vemo_base {

namespace {

constexpr double radius = 6;
constexpr int cellInset = 2;
constexpr int headerPixels = 12;
constexpr int smallestCell = 20;
constexpr double markRadius = 2;
constexpr double markFromBottom = 5;

} // namespace

DayCalendar::DayCalendar(QWidget* parent)
    : QCalendarWidget(parent)
{
    setVerticalHeaderFormat(NoVerticalHeader);
    setGridVisible(false);
    setHorizontalHeaderFormat(SingleLetterDayNames);
    setAccessibleName(tr("Day"));
    // The names by which the widget itself knows its buttons.
    if (auto* before = findChild<QToolButton*>(QStringLiteral("qt_calendar_prevmonth"))) {
        before->setIcon(Icons::icon(QStringLiteral("chev-left")));
        before->setToolTip(tr("Month before"));
        before->setAccessibleName(before->toolTip());
    }
    if (auto* next = findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth"))) {
        next->setIcon(Icons::icon(QStringLiteral("chev-right")));
        next->setToolTip(tr("Next month"));
        next->setAccessibleName(next->toolTip());
    }
    if (auto* view = findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"))) {
        view->setFrameShape(QFrame::NoFrame);
        view->horizontalHeader()->setMinimumSectionSize(smallestCell);
        view->verticalHeader()->setMinimumSectionSize(smallestCell);
    }
    dress();
}

void DayCalendar::dress()
{
    const Theme& theme = Theme::instance();
    if (auto* bar = findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"))) {
        QPalette own;
        own.setColor(QPalette::Window, theme.color(m_ground));
        bar->setPalette(own);
        bar->setBackgroundRole(QPalette::Window);
    }
    if (auto* view = findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"))) {
        QPalette own;
        own.setColor(QPalette::Base, theme.color(m_ground));
        own.setColor(QPalette::AlternateBase, theme.color(m_ground));
        view->setPalette(own);
    }
    QTextCharFormat header;
    header.setForeground(theme.color(Token::Text2));
    header.setBackground(theme.color(m_ground));
    QFont small = font();
    small.setPixelSize(headerPixels);
    header.setFont(small);
    setHeaderTextFormat(header);
    for (const Qt::DayOfWeek weekend : {Qt::Saturday, Qt::Sunday}) {
        QTextCharFormat day;
        day.setForeground(theme.color(Token::Text2));
        setWeekdayTextFormat(weekend, day);
    }
}

void DayCalendar::setMarkedDays(const QSet<int>& days)
{
    m_markedDays = days;
    updateCells();
}

void DayCalendar::setGround(Token ground)
{
    m_ground = ground;
    dress();
}

void DayCalendar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        dress();
    QCalendarWidget::changeEvent(event);
}

void DayCalendar::paintCell(QPainter* painter, const QRect& rect, const QDate& date) const
{
    const Theme& theme = Theme::instance();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF cell = QRectF(rect).adjusted(cellInset, cellInset, -cellInset, -cellInset);
    const bool isPicked = date == selectedDate();
    const bool isOutside = date.month() != monthShown() || date < minimumDate() || date > maximumDate();
    if (isPicked)
        StylePainter::box(painter, cell, radius, theme.color(Token::Accent), QColor());
    else if (date == QDate::currentDate())
        StylePainter::box(painter, cell, radius, QColor(), theme.color(Token::Control));
    QFont dayFont = font();
    if (isPicked)
        dayFont.setWeight(QFont::DemiBold);
    painter->setFont(dayFont);
    painter->setPen(theme.color(isPicked ? Token::OnAccent : isOutside ? Token::Text3 : Token::Text));
    painter->drawText(rect, Qt::AlignCenter, QString::number(date.day()));
    if (date.month() == monthShown() && date.year() == yearShown() && m_markedDays.contains(date.day())) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(theme.color(isPicked ? Token::OnAccent : Token::Success));
        painter->drawEllipse(QPointF(cell.center().x(), cell.bottom() - markFromBottom), markRadius, markRadius);
    }
    painter->restore();
}

} // namespace vemo_base
