#include "DateSelectLineEdit.h"

#include "BaseTools.h"
#include "DatePopup.h"
#include "Icons.h"

#include <QAction>
#include <QKeyEvent>
#include <QMouseEvent>

namespace vemo_base {

namespace {

constexpr int fieldWidth = 148;
constexpr int fieldHeight = 32;

} // namespace

DateSelectLineEdit::DateSelectLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(tr("Date"));
    QAction* open = addAction(Icons::icon(QStringLiteral("calendar")), LeadingPosition);
    open->setToolTip(tr("Show the calendar"));
    connect(open, &QAction::triggered, this, &DateSelectLineEdit::showCalendar);
    setDate(QDate::currentDate());
}

QSize DateSelectLineEdit::sizeHint() const
{
    return {fieldWidth, fieldHeight};
}

void DateSelectLineEdit::setDate(const QDate& date)
{
    if (!date.isValid())
        return;
    m_date = date;
    setText(BaseTools::instance().strDate(date, false));
}

void DateSelectLineEdit::setHotDays(const QList<int>& days)
{
    if (m_popup)
        m_popup->calendar()->setMarkedDays(QSet<int>(days.cbegin(), days.cend()));
}

void DateSelectLineEdit::showCalendar()
{
    if (m_popup)
        return;
    m_popup = new DatePopup(m_date, m_meaning, this);
    connect(m_popup, &DatePopup::signalPicked, this, [this](const QDate& date) {
        m_popup->close();
        pick(date);
    });
    connect(m_popup->calendar(), &QCalendarWidget::currentPageChanged, this, [this](int year, int month) {
        m_popup->calendar()->setMarkedDays({});
        emit signalMonthShown(year, month);
    });
    emit signalMonthShown(m_popup->calendar()->yearShown(), m_popup->calendar()->monthShown());
    m_popup->showBelow(this);
}

void DateSelectLineEdit::pick(const QDate& date)
{
    if (date == m_date || !date.isValid())
        return;
    setDate(date);
    emit signalDateChanged(date);
}

void DateSelectLineEdit::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        showCalendar();
}

void DateSelectLineEdit::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        showCalendar();
        break;
    case Qt::Key_PageUp:
        pick(m_date.addDays(-1));
        break;
    case Qt::Key_PageDown:
        pick(m_date.addDays(1));
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

} // namespace vemo_base
