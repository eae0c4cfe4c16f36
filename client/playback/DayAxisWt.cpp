#include "DayAxisWt.h"

#include "ChannelDayWords.h"

#include <axis/AxisPainter.h>
#include <axis/SpanWords.h>
#include <PlainToolTips.h>
#include <player/TransportButton.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QApplication>
#include <QGestureEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <cmath>

namespace vemo_client {

using vemo_base::AxisPainter;
using vemo_base::AxisRow;
using vemo_base::DayAxis;
using vemo_base::SpanWords;
using vemo_base::TimeSpan;
using vemo_base::TransportButton;

namespace {

using vemo_base::ThemeMode;
using vemo_base::Token;

constexpr int nameWidth = 170;
constexpr int edge = 16;
constexpr int halfLabel = AxisPainter::halfLabel;
constexpr int topRoom = TimeLinePainter::topRoom;
constexpr int scaleRoom = TimeLinePainter::scaleRoom;
constexpr int rowHeight = 18;
constexpr int rowGap = 4;
constexpr int shownRows = 8;
constexpr int leastAlarm = 3;
constexpr int grip = 8;
constexpr int flagReach = 28;
constexpr int zoomButton = 24;
constexpr int nowMs = 15'000;
constexpr double radius = 8;
constexpr double zoomStep = 1.25; ///< a notch of the wheel
constexpr double buttonStep = 2;
constexpr double notch = 120;

QColor dark(Token token)
{
    return vemo_base::themeColor(ThemeMode::Dark, token);
}

} // namespace

DayAxisWt::DayAxisWt(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setMouseTracking(true);
    viewport()->grabGesture(Qt::PinchGesture);
    setAccessibleName(tr("Recordings of the day"));
    addZoomButtons();
    // Only the line of now moves by itself.
    connect(&m_nowTimer, &QTimer::timeout, viewport(), QOverload<>::of(&QWidget::update));
    m_nowTimer.start(nowMs);
}

void DayAxisWt::addZoomButtons()
{
    const auto add = [this](const QString& icon, const QString& tip, int place) {
        auto* button = new TransportButton(TransportButton::Kind::Quiet, icon, tip, viewport());
        button->setPalette(vemo_base::Theme::palette(ThemeMode::Dark));
        button->setGeometry(edge - 4 + place * (zoomButton + 4), 4, zoomButton, zoomButton);
        return button;
    };
    m_closer = add(QStringLiteral("zoom-in"), tr("Zoom in (plus)"), 0);
    m_farther = add(QStringLiteral("zoom-out"), tr("Zoom out (minus)"), 1);
    m_whole = add(QStringLiteral("fit"), tr("Show the whole day"), 2);
    const auto middle = [this] {
        const double place = m_view.placeOf(m_axis.positionOf(m_cursorMs));
        return m_cursorMs > 0 && place >= 0 && place <= 1 ? place : 0.5;
    };
    connect(m_closer, &TransportButton::clicked, this, [this, middle] { zoom(buttonStep, middle()); });
    connect(m_farther, &TransportButton::clicked, this, [this, middle] { zoom(1 / buttonStep, middle()); });
    connect(m_whole, &TransportButton::clicked, this, &DayAxisWt::showAll);
    changeView(m_view);
}

void DayAxisWt::changeView(const TimeView& view)
{
    m_view = view;
    m_isLaid.fill(false);
    m_closer->setEnabled(!m_view.isClosest());
    m_farther->setEnabled(!m_view.isWhole());
    m_whole->setEnabled(!m_view.isWhole());
    viewport()->update();
}

void DayAxisWt::zoom(double factor, double place)
{
    TimeView view = m_view;
    view.zoom(factor, place);
    changeView(view);
}

void DayAxisWt::pan(double places)
{
    TimeView view = m_view;
    view.pan(places);
    changeView(view);
}

void DayAxisWt::showAll()
{
    changeView(TimeView());
}

void DayAxisWt::setDay(const DayAxis& axis)
{
    m_axis = axis;
    m_pick.setAxis(axis);
    m_currentMs = axis.beginMs();
    m_cursorMs = 0;
    lay();
    changeView(TimeView());
    describe();
}

void DayAxisWt::setChannels(const QVector<ChannelDay>& channels)
{
    m_channels = channels;
    lay();
    m_currentRow = qBound(0, m_currentRow, qMax(0, m_channels.size() - 1));
    updateGeometry();
    updateScroll();
    describe();
    viewport()->update();
}

void DayAxisWt::lay()
{
    m_lines.fill({}, m_channels.size());
    m_isLaid.fill(false, m_channels.size());
    m_stretches.clear();
    for (const ChannelDay& day : qAsConst(m_channels))
        m_stretches.append({AxisRow::stretches(m_axis, day.recordings),
                            AxisRow::chosenStretches(m_axis, day.recordings, day.chosen),
                            AxisRow::spanStretches(m_axis, day.owned)});
}

void DayAxisWt::setSpan(const std::optional<TimeSpan>& span)
{
    m_pick.setSpan(span);
    viewport()->update();
}

void DayAxisWt::setSelectedChannel(const ChannelRef& channel)
{
    if (channel == m_selected)
        return;
    m_selected = channel;
    viewport()->update();
}

void DayAxisWt::setCursorMs(qint64 ms)
{
    if (m_drag == Drag::Cursor)
        return;
    const double before = m_view.placeOf(m_axis.positionOf(m_cursorMs));
    const double place = m_view.placeOf(m_axis.positionOf(ms));
    // Nothing changes to the eye for most of the clock's ticks.
    const double pixels = axisRect().width() * devicePixelRatioF();
    const bool isSame = ms / 1000 == m_cursorMs / 1000 && std::lround(before * pixels) == std::lround(place * pixels);
    const bool wasSeen = m_cursorMs > 0 && before >= 0 && before <= 1;
    m_cursorMs = ms;
    if (isSame)
        return;
    if (ms > 0 && wasSeen && place > 1 && m_drag == Drag::None)
        reveal(ms);
    viewport()->update();
}

void DayAxisWt::reveal(qint64 ms)
{
    TimeView view = m_view;
    view.reveal(m_axis.positionOf(ms));
    changeView(view);
}

void DayAxisWt::mark(const std::optional<TimeSpan>& span)
{
    m_pick.setSpan(span);
    viewport()->update();
    emit signalSpanMarked(span);
}

QSize DayAxisWt::sizeHint() const
{
    const int rows = qBound(1, m_channels.size(), shownRows);
    return QSize(600, topRoom + rows * (rowHeight + rowGap) + scaleRoom);
}

QSize DayAxisWt::minimumSizeHint() const
{
    return QSize(nameWidth + 300, sizeHint().height());
}

QRect DayAxisWt::axisRect() const
{
    const int height = viewport()->height() - topRoom - scaleRoom;
    return QRect(nameWidth + halfLabel, topRoom, viewport()->width() - nameWidth - 2 * halfLabel - edge, height);
}

QRect DayAxisWt::rowRect(int row) const
{
    const QRect axis = axisRect();
    return QRect(axis.x(), axis.y() + row * (rowHeight + rowGap) - verticalScrollBar()->value(), axis.width(),
                 rowHeight);
}

int DayAxisWt::rowAt(int y) const
{
    const QRect axis = axisRect();
    if (y < axis.top() || y > axis.bottom())
        return -1;
    const int row = (y - axis.y() + verticalScrollBar()->value()) / (rowHeight + rowGap);
    return row < m_channels.size() ? row : -1;
}

double DayAxisWt::positionAt(int x) const
{
    const QRect axis = axisRect();
    const double place = axis.width() > 0 ? qBound(0.0, double(x - axis.x()) / axis.width(), 1.0) : 0;
    return m_view.positionAt(place);
}

qint64 DayAxisWt::timeAt(int x) const
{
    return m_axis.timeAt(positionAt(x), DayAxis::Pass::First);
}

double DayAxisWt::reach() const
{
    return double(grip) / qMax(1, axisRect().width()) * m_view.length();
}

int DayAxisWt::xOf(qint64 ms) const
{
    const QRect axis = axisRect();
    return axis.x() + int(std::lround(m_view.placeOf(m_axis.positionOf(ms)) * axis.width()));
}

bool DayAxisWt::isOnFlag(const QPoint& position) const
{
    return m_cursorMs > 0 && position.y() < topRoom - TimeLinePainter::handle &&
           qAbs(position.x() - xOf(m_cursorMs)) <= flagReach;
}

void DayAxisWt::updateScroll()
{
    const int all = m_channels.size() * (rowHeight + rowGap) - rowGap;
    verticalScrollBar()->setRange(0, qMax(0, all - axisRect().height()));
    verticalScrollBar()->setPageStep(qMax(1, axisRect().height()));
    verticalScrollBar()->setSingleStep(rowHeight + rowGap);
}

void DayAxisWt::resizeEvent(QResizeEvent*)
{
    updateScroll();
}

const TimeLinePainter::Row& DayAxisWt::line(int row, int pixels)
{
    if (m_linePixels != pixels)
        m_isLaid.fill(false);
    m_linePixels = pixels;
    TimeLinePainter::Row& line = m_lines[row];
    if (!m_isLaid.at(row)) {
        const Stretches& stretches = m_stretches.at(row);
        const DayAxis::Piece view{m_view.from(), m_view.to()};
        line.runs = AxisRow::runs(stretches.recordings, pixels, leastAlarm, view);
        line.chosen = AxisRow::runs(stretches.chosen, pixels, 1, view);
        line.owned = AxisRow::runs(stretches.owned, pixels, 1, view);
        m_isLaid[row] = true;
    }
    return line;
}

void DayAxisWt::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    vemo_base::StylePainter::box(&painter, viewport()->rect(), radius, dark(Token::Surface), dark(Token::Border));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRect axis = axisRect();
    if (axis.width() <= 0)
        return;
    TimeLinePainter line(&painter, m_axis, m_view, axis, font());
    painter.save();
    painter.setClipRect(QRect(0, topRoom, viewport()->width(), axis.height()));
    paintRows(line, int(std::lround(axis.width() * devicePixelRatioF())));
    if (m_channels.isEmpty())
        painter.fillRect(QRect(axis.topLeft(), QSize(axis.width(), rowHeight)), dark(Token::Axis));
    painter.restore();
    if (m_axis.isValid()) {
        line.clock();
        if (m_pick.span())
            line.span(*m_pick.span());
        line.scale();
        if (m_pointerX >= 0 && m_drag == Drag::None)
            line.pointer(m_pointerX, SpanWords::clock(timeAt(m_pointerX), m_axis.day()));
        if (m_cursorMs > 0)
            line.cursor(m_cursorMs, SpanWords::clock(m_cursorMs, m_axis.day()));
    }
    if (m_keyboardFocus) {
        painter.setRenderHint(QPainter::Antialiasing);
        vemo_base::StylePainter::focusRing(&painter, viewport()->rect(), radius, ThemeMode::Dark);
    }
}

void DayAxisWt::paintRows(TimeLinePainter& painter, int pixels)
{
    for (int row = 0; row < m_channels.size(); ++row) {
        const QRect rect = rowRect(row);
        if (rect.bottom() < topRoom || rect.top() > viewport()->height() - scaleRoom)
            continue;
        const ChannelDay& day = m_channels.at(row);
        painter.row(rect, line(row, pixels));
        const bool isCurrent = day.channel == m_selected || (m_keyboardFocus && row == m_currentRow);
        painter.name(QRect(edge, rect.y(), nameWidth - edge - 8, rect.height()), day.name,
                     isCurrent && m_channels.size() > 1);
        const QString words = ChannelDayWords::state(day);
        if (!words.isEmpty())
            painter.words(rect.adjusted(8, 0, -8, 0), words, day.state == ChannelDay::State::Failed);
    }
}

TimeSpan DayAxisWt::stretchAt(int row, qint64 ms) const
{
    return ChannelDayWords::stretchAt(m_axis, m_channels.at(row), ms);
}

void DayAxisWt::showTip(const QPoint& position, int row, qint64 ms)
{
    const QString tip =
        row >= 0 ? ChannelDayWords::tip(m_axis, m_channels.at(row), ms) : SpanWords::clock(ms, m_axis.day());
    // Below the axis: a card on the next channel would hide what it is compared with.
    const QPoint below(position.x(), axisRect().bottom() + scaleRoom - 8);
    QToolTip::showText(viewport()->mapToGlobal(below), tip, viewport());
}

bool DayAxisWt::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && m_axis.isValid()) {
        const QPoint position = static_cast<const QHelpEvent*>(event)->pos();
        const int row = rowAt(position.y());
        if (axisRect().adjusted(0, 0, 0, scaleRoom).contains(position))
            showTip(position, row, timeAt(position.x()));
        else if (row >= 0)
            QToolTip::showText(viewport()->mapToGlobal(position),
                               vemo_base::PlainToolTips::shown(m_channels.at(row).name), viewport());
        return true;
    }
    if (event->type() == QEvent::Leave) {
        m_pointerX = -1;
        viewport()->update();
    }
    if (event->type() == QEvent::Gesture) {
        auto* pinch = static_cast<QPinchGesture*>(static_cast<QGestureEvent*>(event)->gesture(Qt::PinchGesture));
        if (!pinch)
            return false;
        const int x = viewport()->mapFromGlobal(pinch->centerPoint().toPoint()).x();
        zoom(pinch->scaleFactor(), m_view.placeOf(positionAt(x)));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void DayAxisWt::wheelEvent(QWheelEvent* event)
{
    const QRect axis = axisRect();
    const QPoint delta = event->angleDelta();
    if (event->position().x() < axis.left() || !m_axis.isValid()) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const bool pans = event->modifiers() & Qt::ShiftModifier || qAbs(delta.x()) > qAbs(delta.y());
    if (pans) {
        pan(-(delta.x() != 0 ? delta.x() : delta.y()) / notch / 8);
    } else if (delta.y() != 0) {
        zoom(std::pow(zoomStep, delta.y() / notch), m_view.placeOf(positionAt(int(event->position().x()))));
    }
    event->accept();
}

void DayAxisWt::mousePressEvent(QMouseEvent* event)
{
    const bool isMiddle = event->button() == Qt::MiddleButton;
    if ((event->button() != Qt::LeftButton && !isMiddle) || !m_axis.isValid() ||
        !axisRect().adjusted(-grip, -topRoom, grip, scaleRoom).contains(event->pos()))
        return;
    QToolTip::hideText();
    m_pressed = event->pos();
    m_pressedView = m_view;
    const double position = positionAt(event->pos().x());
    if (isMiddle || isOnFlag(event->pos()))
        m_drag = isMiddle ? Drag::View : Drag::Cursor;
    else if (event->pos().y() <= axisRect().bottom() && m_pick.isOnEdge(position, reach())) {
        m_pick.press(position, reach());
        m_drag = Drag::Span;
    } else
        m_drag = Drag::Pressed;
}

void DayAxisWt::mouseMoveEvent(QMouseEvent* event)
{
    const QRect axis = axisRect();
    const double position = positionAt(event->pos().x());
    const bool isInside = axis.adjusted(0, -topRoom, 0, scaleRoom).contains(event->pos());
    m_pointerX = isInside ? event->pos().x() : -1;
    if (m_drag == Drag::Pressed && (event->pos() - m_pressed).manhattanLength() >= QApplication::startDragDistance()) {
        const bool isOnClock = m_pressed.y() > axis.bottom();
        m_drag = m_isMarking && !isOnClock ? Drag::Span : Drag::View;
        if (m_drag == Drag::Span)
            m_pick.press(positionAt(m_pressed.x()), 0);
    }
    if (m_drag == Drag::Span) {
        m_pick.move(position);
        if (const std::optional<TimeSpan>& span = m_pick.span())
            QToolTip::showText(viewport()->mapToGlobal(QPoint(event->pos().x(), axis.bottom() + scaleRoom - 8)),
                               QString(SpanWords::span(*span, m_axis.day()) % QLatin1String(",  ") %
                                       SpanWords::length(span->lengthMs())),
                               viewport());
        emit signalSpanMarked(m_pick.span());
    } else if (m_drag == Drag::View) {
        TimeView view = m_pressedView;
        view.pan(double(m_pressed.x() - event->pos().x()) / qMax(1, axis.width()));
        changeView(view);
        viewport()->setCursor(Qt::ClosedHandCursor);
    } else if (m_drag == Drag::Cursor) {
        m_cursorMs = timeAt(event->pos().x());
    } else {
        const bool onEdge = isInside && event->pos().y() <= axis.bottom() && m_pick.isOnEdge(position, reach());
        viewport()->setCursor(onEdge                                                   ? Qt::SizeHorCursor
                              : isOnFlag(event->pos())                                 ? Qt::PointingHandCursor
                              : isInside && m_isMarking && axis.contains(event->pos()) ? Qt::CrossCursor
                                                                                       : Qt::ArrowCursor);
    }
    viewport()->update();
}

void DayAxisWt::mouseReleaseEvent(QMouseEvent* event)
{
    const Drag drag = std::exchange(m_drag, Drag::None);
    if (drag == Drag::Span) {
        m_pick.release();
        emit signalSpanMarked(m_pick.span());
    } else if (drag == Drag::Cursor) {
        emit signalSeekRequested(m_cursorMs);
    } else if (drag == Drag::Pressed && axisRect().adjusted(0, 0, 0, scaleRoom).contains(m_pressed)) {
        emit signalSeekRequested(timeAt(event->pos().x()));
    }
    viewport()->setCursor(Qt::ArrowCursor);
    viewport()->update();
}

void DayAxisWt::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int row = rowAt(event->pos().y());
    if (event->button() != Qt::LeftButton || row < 0 || !axisRect().contains(event->pos()))
        return;
    const qint64 ms = timeAt(event->pos().x());
    if (AxisRow::recordingAt(m_channels.at(row).recordings, ms) >= 0)
        mark(stretchAt(row, ms));
}

void DayAxisWt::step(int direction)
{
    if (m_channels.isEmpty() || !m_axis.isValid())
        return;
    const TimeSpan now = stretchAt(m_currentRow, m_currentMs);
    const qint64 next = direction > 0 ? now.endMs : now.beginMs - 1;
    if (next >= m_axis.beginMs() && next < m_axis.endMs())
        m_currentMs = next;
    m_currentMs = stretchAt(m_currentRow, m_currentMs).beginMs;
    reveal(m_currentMs);
    m_pointerX = xOf(m_currentMs);
    showTip(QPoint(m_pointerX, 0), m_currentRow, m_currentMs);
    describe();
    viewport()->update();
}

void DayAxisWt::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        step(-1);
        break;
    case Qt::Key_Right:
        step(1);
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        m_currentRow = qBound(0, m_currentRow + (event->key() == Qt::Key_Up ? -1 : 1), qMax(0, m_channels.size() - 1));
        describe();
        viewport()->update();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_channels.isEmpty() && m_axis.isValid())
            mark(stretchAt(m_currentRow, m_currentMs));
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        m_closer->click();
        break;
    case Qt::Key_Minus:
        m_farther->click();
        break;
    case Qt::Key_Escape:
        if (m_pick.isDragging()) {
            m_drag = Drag::None;
            m_pick.cancel();
            mark(m_pick.span());
        } else if (m_pick.span()) {
            mark(std::nullopt);
        } else {
            event->ignore();
        }
        break;
    default:
        event->ignore(); // the player's
    }
}

void DayAxisWt::focusInEvent(QFocusEvent* event)
{
    m_keyboardFocus = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                      event->reason() == Qt::ShortcutFocusReason;
    viewport()->update();
}

void DayAxisWt::focusOutEvent(QFocusEvent*)
{
    m_keyboardFocus = false;
    viewport()->update();
}

/// What a screen reader says: the sums of every channel, and what the keyboard stands on.
void DayAxisWt::describe()
{
    QStringList lines;
    for (const ChannelDay& day : qAsConst(m_channels))
        lines.append(tr("%1: %2 of %3 recorded")
                         .arg(day.name, SpanWords::length(AxisRow::coveredMs(m_axis, day.recordings)),
                              SpanWords::length(m_axis.lengthMs())));
    if (m_currentRow < m_channels.size() && m_axis.isValid())
        lines.prepend(SpanWords::span(stretchAt(m_currentRow, m_currentMs), m_axis.day()));
    setAccessibleDescription(lines.join(QLatin1String("; ")));
}

} // namespace vemo_client
