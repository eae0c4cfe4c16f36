#include "TimeSpaceLineEt.h"

#include "Icons.h"

#include <SystemConfig.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace vemo_base {

namespace {

constexpr int iconRoom = 44;
constexpr int edgeRoom = 24;

QString withoutYear(const QString& dateFormat)
{
    QString format = dateFormat;
    const int first = format.indexOf(QLatin1Char('y'));
    if (first < 0)
        return format;
    int last = format.lastIndexOf(QLatin1Char('y'));
    const auto isSeparator = [&format](int at) { return at >= 0 && at < format.size() && !format.at(at).isLetter(); };
    int begin = first;
    if (first == 0) {
        while (isSeparator(last + 1))
            ++last;
    } else {
        while (isSeparator(begin - 1))
            --begin;
    }
    return format.remove(begin, last - begin + 1);
}

} // namespace

TimeSpaceLineEt::TimeSpaceLineEt(QWidget* parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setCursor(Qt::PointingHandCursor);
    QAction* calendar = addAction(Icons::icon(QStringLiteral("calendar")), QLineEdit::LeadingPosition);
    connect(calendar, &QAction::triggered, this, &TimeSpaceLineEt::clicked);
    connect(&vemo_worker::SystemConfig::instance(), &vemo_worker::SystemConfig::signalConfigChanged, this,
            &TimeSpaceLineEt::showSpan);
}

void TimeSpaceLineEt::setDateTimeSpace(const QDateTime& begin, const QDateTime& end)
{
    m_begin = begin;
    m_end = end;
    showSpan();
}

void TimeSpaceLineEt::setUsingYearInTimeSpaceDescription(bool usesYear)
{
    m_usesYear = usesYear;
    showSpan();
}

QString TimeSpaceLineEt::description(const QDateTime& begin, const QDateTime& end, const QString& dateFormat,
                                     bool usesYear)
{
    if (!begin.isValid() || !end.isValid())
        return {};
    const QString format = usesYear ? dateFormat : withoutYear(dateFormat);
    const auto words = [&format](const QDateTime& time) -> QString {
        return time.date().toString(format) + QLatin1Char(' ') + time.time().toString(QStringLiteral("hh:mm:ss"));
    };
    return words(begin) + QStringLiteral(" ~ ") + words(end);
}

void TimeSpaceLineEt::showSpan()
{
    const QString format = vemo_worker::SystemConfig::instance().getDateFormat();
    setText(description(m_begin, m_end, format, m_usesYear));
    setCursorPosition(0);
    setToolTip(description(m_begin, m_end, format, true));
    updateGeometry();
}

QSize TimeSpaceLineEt::sizeHint() const
{
    const QString widest = QStringLiteral("00-00 00:00:00 ~ 00-00 00:00:00");
    const int words = qMax(fontMetrics().horizontalAdvance(text()), fontMetrics().horizontalAdvance(widest));
    return {iconRoom + words + edgeRoom, QLineEdit::sizeHint().height()};
}

// A span is chosen, not marked as text.

void TimeSpaceLineEt::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void TimeSpaceLineEt::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        emit clicked();
}

void TimeSpaceLineEt::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

void TimeSpaceLineEt::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Down:
        emit clicked();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void TimeSpaceLineEt::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
}

} // namespace vemo_base
