#include "DayCalendar.h"

#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>

namespace vemo_client {

namespace {

using vemo_base::Theme;
using vemo_base::Token;

constexpr double radius = 6;
constexpr int cellInset = 2;
constexpr int headerPixels = 12;
constexpr int smallestCell = 20;

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
        before->setIcon(vemo_base::Icons::icon(QStringLiteral("chev-left")));
        before->setToolTip(tr("Month before"));
        before->setAccessibleName(before->toolTip());
    }
    if (auto* next = findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth"))) {
        next->setIcon(vemo_base::Icons::icon(QStringLiteral("chev-right")));
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
    // It stands on the surface of the column, not in a well.
    if (auto* bar = findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"))) {
        QPalette own;
        own.setColor(QPalette::Window, theme.color(Token::Surface));
        bar->setPalette(own);
        bar->setBackgroundRole(QPalette::Window);
    }
    if (auto* view = findChild<QTableView*>(QStringLiteral("qt_calendar_calendarview"))) {
        QPalette own;
        own.setColor(QPalette::Base, theme.color(Token::Surface));
        own.setColor(QPalette::AlternateBase, theme.color(Token::Surface));
        view->setPalette(own);
    }
    QTextCharFormat header;
    header.setForeground(theme.color(Token::Text2));
    header.setBackground(theme.color(Token::Surface));
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
        vemo_base::StylePainter::box(painter, cell, radius, theme.color(Token::Accent), QColor());
    else if (date == QDate::currentDate())
        vemo_base::StylePainter::box(painter, cell, radius, QColor(), theme.color(Token::Control));
    QFont dayFont = font();
    if (isPicked)
        dayFont.setWeight(QFont::DemiBold);
    painter->setFont(dayFont);
    painter->setPen(theme.color(isPicked ? Token::OnAccent : isOutside ? Token::Text3 : Token::Text));
    painter->drawText(rect, Qt::AlignCenter, QString::number(date.day()));
    painter->restore();
}

} // namespace vemo_client
