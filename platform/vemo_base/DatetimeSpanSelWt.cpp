#include "DatetimeSpanSelWt.h"

#include "StylePainter.h"
#include "Theme.h"

#include "axis/DayCalendar.h"
#include "axis/SpanWords.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTimeEdit>
#include <QVariant>

namespace vemo_base {

namespace {

constexpr qint64 daySeconds = 24 * 3600;
constexpr qint64 usualMaxSeconds = 31 * daySeconds;
constexpr int margin = 16;
constexpr int gap = 16;
constexpr int labelGap = 8;
constexpr int calendarWidth = 264;
constexpr int clockWidth = 108;
constexpr int calendarHeight = 248;
constexpr int distance = 4; ///< from the field it belongs to
const QTime firstSecond(0, 0, 0);
const QTime lastSecond(23, 59, 59);

} // namespace

DatetimeSpanSelWt::DatetimeSpanSelWt(QWidget* parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint)
    , m_words(new QLabel(this))
    , m_take(new QPushButton(tr("OK"), this))
    , m_maxSeconds(usualMaxSeconds)
{
    setVisible(false);
    auto* quick = new QVBoxLayout;
    quick->setSpacing(labelGap);
    addQuickSpan(tr("Today"), QuickSpan::Today, quick);
    addQuickSpan(tr("Yesterday"), QuickSpan::Yesterday, quick);
    addQuickSpan(tr("Last 7 days"), QuickSpan::Last7Days, quick);
    addQuickSpan(tr("Last 30 days"), QuickSpan::Last30Days, quick);
    quick->addStretch();

    auto* sides = new QGridLayout;
    sides->setHorizontalSpacing(gap);
    sides->setVerticalSpacing(labelGap);
    m_begin = addSide(tr("Begin"), sides, 0);
    m_end = addSide(tr("End"), sides, 1);

    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_take->setObjectName(QStringLiteral("takeBt"));
    m_take->setProperty("kind", QStringLiteral("primary"));
    auto* cancel = new QPushButton(tr("Cancel"), this);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(labelGap);
    foot->addWidget(m_words, 1);
    foot->addWidget(cancel);
    foot->addWidget(m_take);

    auto* chosen = new QVBoxLayout;
    chosen->setSpacing(gap);
    chosen->addLayout(sides);
    chosen->addLayout(foot);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(gap);
    layout->addLayout(quick);
    layout->addLayout(chosen, 1);

    connect(cancel, &QPushButton::clicked, this, &QWidget::hide);
    connect(m_take, &QPushButton::clicked, this, &DatetimeSpanSelWt::take);
    const QDate today = QDate::currentDate();
    setInitDateTime(QDateTime(today, firstSecond), QDateTime(today, lastSecond));
}

DatetimeSpanSelWt::Side DatetimeSpanSelWt::addSide(const QString& name, QGridLayout* grid, int column)
{
    Side side;
    auto* label = new QLabel(name, this);
    label->setForegroundRole(QPalette::PlaceholderText);
    side.clock = new QTimeEdit(this);
    side.clock->setDisplayFormat(QStringLiteral("HH:mm:ss"));
    side.clock->setFixedWidth(clockWidth);
    side.clock->setWrapping(true);
    side.clock->setAccessibleName(tr("%1, clock time").arg(name));
    side.calendar = new DayCalendar(this);
    side.calendar->setGround(Token::Overlay);
    side.calendar->setFixedSize(calendarWidth, calendarHeight);
    side.calendar->setAccessibleName(tr("%1, day").arg(name));
    auto* head = new QHBoxLayout;
    head->addWidget(label, 1);
    head->addWidget(side.clock);
    grid->addLayout(head, 0, column);
    grid->addWidget(side.calendar, 1, column);
    connect(side.clock, &QTimeEdit::timeChanged, this, &DatetimeSpanSelWt::check);
    connect(side.calendar, &QCalendarWidget::selectionChanged, this, &DatetimeSpanSelWt::check);
    // The calendar keeps Enter to itself.
    connect(side.calendar, &QCalendarWidget::activated, this, &DatetimeSpanSelWt::take);
    return side;
}

void DatetimeSpanSelWt::addQuickSpan(const QString& text, QuickSpan span, QBoxLayout* column)
{
    auto* button = new QPushButton(text, this);
    button->setProperty("kind", QStringLiteral("quiet"));
    column->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, span] {
        const QPair<QDateTime, QDateTime> times = quickSpan(span, QDate::currentDate());
        setInitDateTime(times.first, times.second);
        if (m_take->isEnabled())
            take();
    });
}

QPair<QDateTime, QDateTime> DatetimeSpanSelWt::quickSpan(QuickSpan span, const QDate& today)
{
    QDate first = today;
    QDate last = today;
    switch (span) {
    case QuickSpan::Yesterday:
        first = last = today.addDays(-1);
        break;
    case QuickSpan::Last7Days:
        first = today.addDays(-6);
        break;
    case QuickSpan::Last30Days:
        first = today.addDays(-29);
        break;
    case QuickSpan::Today:
    case QuickSpan::Unknown:
        break;
    }
    return {QDateTime(first, firstSecond), QDateTime(last, lastSecond)};
}

DatetimeSpanSelWt::Fault DatetimeSpanSelWt::faultOf(const QDateTime& begin, const QDateTime& end, qint64 maxSeconds)
{
    if (!begin.isValid() || !end.isValid())
        return Fault::NoTime;
    const qint64 seconds = begin.secsTo(end);
    return seconds <= 0 ? Fault::EndNotBehindBegin : seconds > maxSeconds ? Fault::TooLong : Fault::None;
}

void DatetimeSpanSelWt::setInitDateTime(const QDateTime& begin, const QDateTime& end)
{
    const auto put = [](const Side& side, const QDateTime& time) {
        const QSignalBlocker clockBlocker(side.clock);
        const QSignalBlocker calendarBlocker(side.calendar);
        side.clock->setTime(time.time());
        side.calendar->setSelectedDate(time.date());
    };
    put(m_begin, begin);
    put(m_end, end);
    check();
}

void DatetimeSpanSelWt::setMaxSpanSeconds(qint64 seconds)
{
    m_maxSeconds = seconds;
    check();
}

void DatetimeSpanSelWt::showBelow(const QWidget* widget)
{
    adjustSize();
    const QScreen* screen = widget->screen();
    const QRect room = screen ? screen->availableGeometry() : QGuiApplication::primaryScreen()->availableGeometry();
    QPoint place = widget->mapToGlobal(QPoint(0, widget->height() + distance));
    if (layoutDirection() == Qt::RightToLeft)
        place.rx() += widget->width() - width();
    place.setX(qBound(room.left(), place.x(), qMax(room.left(), room.right() + 1 - width())));
    place.setY(qBound(room.top(), place.y(), qMax(room.top(), room.bottom() + 1 - height())));
    move(place);
    show();
    m_begin.calendar->setFocus();
}

QDateTime DatetimeSpanSelWt::timeOf(const Side& side)
{
    return QDateTime(side.calendar->selectedDate(), side.clock->time());
}

void DatetimeSpanSelWt::check()
{
    const QDateTime begin = timeOf(m_begin);
    const QDateTime end = timeOf(m_end);
    const Fault fault = faultOf(begin, end, m_maxSeconds);
    switch (fault) {
    case Fault::None: {
        // A day ends with its last second, which belongs to it.
        const qint64 seconds = begin.secsTo(end) + 1;
        const int days = static_cast<int>(seconds / daySeconds);
        QStringList words;
        if (days > 0)
            words.append(days == 1 ? tr("1 day") : tr("%1 days").arg(days));
        if (days == 0 || seconds % daySeconds > 1)
            words.append(SpanWords::length(seconds % daySeconds * 1000));
        m_words->setText(words.join(QLatin1Char(' ')));
        break;
    }
    case Fault::NoTime:
        m_words->setText(tr("This clock time does not exist on that day."));
        break;
    case Fault::EndNotBehindBegin:
        m_words->setText(tr("The end must lie behind the begin."));
        break;
    case Fault::TooLong:
        m_words->setText(tr("At most %1 days can be searched at once.").arg(m_maxSeconds / daySeconds));
        break;
    }
    QPalette palette = m_words->palette();
    palette.setColor(QPalette::WindowText, Theme::instance().color(fault == Fault::None ? Token::Text2 : Token::Error));
    m_words->setPalette(palette);
    m_end.clock->setProperty("invalid", fault != Fault::None);
    m_end.clock->update();
    m_take->setEnabled(fault == Fault::None);
}

void DatetimeSpanSelWt::take()
{
    const QDateTime begin = timeOf(m_begin);
    const QDateTime end = timeOf(m_end);
    if (faultOf(begin, end, m_maxSeconds) != Fault::None)
        return;
    hide();
    emit signalDatetimeSpanSelected(begin, end);
}

void DatetimeSpanSelWt::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        take();
        return;
    case Qt::Key_Escape:
        hide();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void DatetimeSpanSelWt::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    painter.fillRect(rect(), themeColor(mode, Token::Overlay));
    painter.setPen(themeColor(mode, Token::Control));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace vemo_base
