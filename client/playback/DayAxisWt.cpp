#include "DayAxisWt.h"

#include <axis/AxisPainter.h>
#include <axis/SpanWords.h>
#include <StylePainter.h>
#include <ThemeTokens.h>

#include <QDateTime>
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

namespace {

using vemo_base::ThemeMode;
using vemo_base::Token;

constexpr int nameWidth = 170;
constexpr int edge = 16;
constexpr int halfLabel = AxisPainter::halfLabel;
constexpr int topRoom = 16;
constexpr int hoursRoom = 26;
constexpr int tallRow = 28;
constexpr int lowRow = 18;
constexpr int tallRows = 4; ///< up to here rows are tall
constexpr int rowGap = 4;
constexpr int shownRows = 8;
constexpr int lineHeight = 4;
constexpr int leastAlarm = 3;
constexpr int handle = 12;
constexpr int grip = 8;
constexpr int captionPixels = 12;
constexpr int nowMs = 15'000;
constexpr double markTint = 0.24;
constexpr double radius = 8;

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
    setAccessibleName(tr("Recordings of the day"));
    // Only the line of now moves by itself.
    connect(&m_nowTimer, &QTimer::timeout, viewport(), QOverload<>::of(&QWidget::update));
    m_nowTimer.start(nowMs);
}

void DayAxisWt::setDay(const DayAxis& axis)
{
    m_axis = axis;
    m_pick.setAxis(axis);
    m_currentMs = axis.beginMs();
    m_lines.clear();
    describe();
    viewport()->update();
}

void DayAxisWt::setChannels(const QVector<ChannelDay>& channels)
{
    const bool sameCount = channels.size() == m_channels.size();
    m_channels = channels;
    m_lines.clear();
    m_currentRow = qBound(0, m_currentRow, qMax(0, m_channels.size() - 1));
    if (!sameCount)
        updateGeometry();
    updateScroll();
    describe();
    viewport()->update();
}

void DayAxisWt::setSpan(const std::optional<TimeSpan>& span)
{
    m_pick.setSpan(span);
    viewport()->update();
}

void DayAxisWt::mark(const std::optional<TimeSpan>& span)
{
    m_pick.setSpan(span);
    viewport()->update();
    emit signalSpanMarked(span);
}

int DayAxisWt::rowHeight() const
{
    return m_channels.size() <= tallRows ? tallRow : lowRow;
}

QSize DayAxisWt::sizeHint() const
{
    const int rows = qBound(1, m_channels.size(), shownRows);
    return QSize(600, topRoom + rows * (rowHeight() + rowGap) + hoursRoom);
}

QSize DayAxisWt::minimumSizeHint() const
{
    return QSize(nameWidth + 300, sizeHint().height());
}

QRect DayAxisWt::axisRect() const
{
    const int height = viewport()->height() - topRoom - hoursRoom;
    return QRect(nameWidth + halfLabel, topRoom, viewport()->width() - nameWidth - 2 * halfLabel - edge, height);
}

QRect DayAxisWt::rowRect(int row) const
{
    const QRect axis = axisRect();
    const int step = rowHeight() + rowGap;
    return QRect(axis.x(), axis.y() + row * step - verticalScrollBar()->value(), axis.width(), rowHeight());
}

int DayAxisWt::rowAt(int y) const
{
    const QRect axis = axisRect();
    if (y < axis.top() || y > axis.bottom())
        return -1;
    const int row = (y - axis.y() + verticalScrollBar()->value()) / (rowHeight() + rowGap);
    return row < m_channels.size() ? row : -1;
}

double DayAxisWt::positionAt(int x) const
{
    const QRect axis = axisRect();
    return axis.width() > 0 ? qBound(0.0, double(x - axis.x()) / axis.width(), 1.0) : 0;
}

int DayAxisWt::xOf(qint64 ms) const
{
    const QRect axis = axisRect();
    return axis.x() + int(std::lround(m_axis.positionOf(ms) * axis.width()));
}

void DayAxisWt::updateScroll()
{
    const int all = m_channels.size() * (rowHeight() + rowGap) - rowGap;
    verticalScrollBar()->setRange(0, qMax(0, all - axisRect().height()));
    verticalScrollBar()->setPageStep(qMax(1, axisRect().height()));
    verticalScrollBar()->setSingleStep(rowHeight() + rowGap);
}

void DayAxisWt::resizeEvent(QResizeEvent*)
{
    updateScroll();
}

const DayAxisWt::Line& DayAxisWt::line(int row, int pixels)
{
    if (m_lines.size() != m_channels.size() || m_linePixels != pixels) {
        m_lines = QVector<Line>(m_channels.size());
        m_linePixels = pixels;
    }
    Line& line = m_lines[row];
    const ChannelDay& day = m_channels.at(row);
    if (line.runs.isEmpty() && !day.recordings.isEmpty()) {
        line.runs = AxisRow::runs(m_axis, day.recordings, pixels, leastAlarm);
        line.chosen = AxisRow::chosenRuns(m_axis, day.recordings, day.chosen, pixels);
    }
    return line;
}

void DayAxisWt::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    vemo_base::StylePainter::box(&painter, viewport()->rect(), radius, dark(Token::Surface), dark(Token::Border));
    painter.setRenderHint(QPainter::Antialiasing, false);
    const double ratio = devicePixelRatioF();
    const QRect axis = axisRect();
    if (axis.width() <= 0)
        return;

    painter.save();
    painter.setClipRect(QRect(0, topRoom, viewport()->width(), axis.height()));
    for (int row = 0; row < m_channels.size(); ++row)
        paintRow(&painter, row, ratio);
    if (m_channels.isEmpty())
        painter.fillRect(QRect(axis.topLeft(), QSize(axis.width(), tallRow)), dark(Token::Axis));
    AxisPainter::clockChanges(&painter, m_axis, axis, font());
    painter.restore();

    AxisPainter::now(&painter, m_axis, axis, QDateTime::currentMSecsSinceEpoch(), ThemeMode::Dark);
    paintSpan(&painter);
    if (m_pointerX >= 0 && !m_pick.isDragging()) {
        QColor pointer = dark(Token::Text2);
        painter.fillRect(QRectF(AxisPainter::snapped(m_pointerX, ratio), axis.top(), 1 / ratio, axis.height()),
                         pointer);
    }
    AxisPainter::hours(&painter, axis, font(), ThemeMode::Dark);
    if (m_keyboardFocus) {
        painter.setRenderHint(QPainter::Antialiasing);
        vemo_base::StylePainter::focusRing(&painter, viewport()->rect(), radius, ThemeMode::Dark);
    }
}

void DayAxisWt::paintRow(QPainter* painter, int row, double ratio)
{
    const QRect rect = rowRect(row);
    if (rect.bottom() < topRoom || rect.top() > viewport()->height() - hoursRoom)
        return;
    const ChannelDay& day = m_channels.at(row);
    painter->fillRect(rect, dark(Token::Axis));
    const int pixels = int(std::lround(rect.width() * ratio));
    const Line& line = this->line(row, pixels);
    for (const AxisRow::Run& run : line.chosen)
        painter->fillRect(
            QRectF(rect.x() + run.from / ratio, rect.y(), (run.to - run.from) / ratio, rect.height() - lineHeight),
            dark(Token::AxisSegment));
    for (const AxisRow::Run& run : line.runs)
        painter->fillRect(QRectF(rect.x() + run.from / ratio, rect.bottom() + 1 - lineHeight,
                                 (run.to - run.from) / ratio, lineHeight),
                          dark(run.kind == AxisRow::Kind::Alarm ? Token::AxisAlarm : Token::AxisRecording));

    QFont caption = font();
    caption.setPixelSize(captionPixels);
    if (hasFocus() && row == m_currentRow && m_channels.size() > 1)
        caption.setWeight(QFont::DemiBold);
    painter->setFont(caption);
    painter->setPen(dark(Token::Text));
    const QRect name(edge, rect.y(), nameWidth - edge - 8, rect.height());
    painter->drawText(name, int(Qt::AlignLeading | Qt::AlignVCenter),
                      painter->fontMetrics().elidedText(day.name, Qt::ElideRight, name.width()));
    QString words;
    if (day.state == ChannelDay::State::Searching)
        words = tr("Searching...");
    else if (day.state == ChannelDay::State::Failed)
        words = day.error.message;
    else if (day.state == ChannelDay::State::Found && day.recordings.isEmpty())
        words = tr("No recording on this day");
    if (words.isEmpty())
        return;
    painter->setPen(dark(day.state == ChannelDay::State::Failed ? Token::Error : Token::Text2));
    const QRect room = rect.adjusted(8, 0, -8, 0);
    painter->drawText(room, int(Qt::AlignLeading | Qt::AlignVCenter),
                      painter->fontMetrics().elidedText(words, Qt::ElideRight, room.width()));
}

void DayAxisWt::paintSpan(QPainter* painter) const
{
    const std::optional<TimeSpan>& span = m_pick.span();
    if (!span)
        return;
    const QRect axis = axisRect();
    const int from = xOf(span->beginMs);
    const int to = xOf(span->endMs);
    const QColor color = dark(Token::AccentText);
    QColor tint = color;
    tint.setAlphaF(markTint);
    painter->fillRect(QRect(QPoint(qMin(from, to), axis.top()), QSize(qMax(1, qAbs(to - from)), axis.height())), tint);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    for (const int x : {from, to}) {
        painter->fillRect(QRect(x - 1, axis.top() - 4, 2, axis.height() + 4), color);
        painter->drawRoundedRect(QRectF(x - handle / 2.0, axis.top() - handle, handle, handle - 2), 3, 3);
    }
    painter->setRenderHint(QPainter::Antialiasing, false);
}

QString DayAxisWt::tipOf(int row, qint64 ms) const
{
    const QString clockNote = SpanWords::clockNote(m_axis, m_axis.positionOf(ms));
    QString text;
    if (row >= 0 && m_channels.at(row).state == ChannelDay::State::Found) {
        const TimeSpan stretch = stretchAt(row, ms);
        const QList<vms_sdk::VideoRecording>& recordings = m_channels.at(row).recordings;
        const int index = AxisRow::recordingAt(recordings, ms);
        const Token token = index < 0                        ? Token::AxisNoRecording
                            : recordings.at(index).type != 0 ? Token::AxisAlarm
                                                             : Token::AxisRecording;
        const QString word = index < 0                        ? tr("No recording")
                             : recordings.at(index).type != 0 ? tr("Alarm")
                                                              : tr("Recording");
        text = SpanWords::swatchLine(dark(token), SpanWords::span(stretch, m_axis.day()) + QLatin1String("  ") + word);
    } else if (row >= 0 && m_channels.at(row).state == ChannelDay::State::Failed) {
        text = m_channels.at(row).error.message.toHtmlEscaped();
    } else {
        text = SpanWords::clock(ms, m_axis.day());
    }
    return clockNote.isEmpty() ? text : QString(text % QLatin1String("<br>") % clockNote);
}

TimeSpan DayAxisWt::stretchAt(int row, qint64 ms) const
{
    const QList<vms_sdk::VideoRecording>& recordings = m_channels.at(row).recordings;
    const int index = AxisRow::recordingAt(recordings, ms);
    TimeSpan stretch;
    if (index < 0) {
        AxisRow::gapAt(m_axis, recordings, ms, &stretch.beginMs, &stretch.endMs);
    } else {
        stretch.beginMs = qMax(m_axis.beginMs(), recordings.at(index).begin.toMSecsSinceEpoch());
        stretch.endMs = qMin(m_axis.endMs(), recordings.at(index).end.toMSecsSinceEpoch());
    }
    return stretch;
}

void DayAxisWt::showTip(const QPoint& position, int row, qint64 ms)
{
    // Below the axis: a card on the next channel would hide what it is compared with.
    const QPoint below(position.x(), axisRect().bottom());
    QToolTip::showText(viewport()->mapToGlobal(below), tipOf(row, ms), viewport());
}

bool DayAxisWt::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && m_axis.isValid()) {
        const QPoint position = static_cast<const QHelpEvent*>(event)->pos();
        const int row = rowAt(position.y());
        if (axisRect().adjusted(0, 0, 0, hoursRoom).contains(position))
            showTip(position, row, m_axis.timeAt(positionAt(position.x()), DayAxis::Pass::First));
        else if (row >= 0)
            QToolTip::showText(viewport()->mapToGlobal(position), m_channels.at(row).name.toHtmlEscaped(), viewport());
        return true;
    }
    if (event->type() == QEvent::Leave) {
        m_pointerX = -1;
        viewport()->update();
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void DayAxisWt::mousePressEvent(QMouseEvent* event)
{
    const QRect reach = axisRect().adjusted(-grip, -topRoom, grip, 0);
    if (event->button() != Qt::LeftButton || !m_axis.isValid() || !reach.contains(event->pos()))
        return;
    m_pick.press(positionAt(event->pos().x()), double(grip) / qMax(1, axisRect().width()));
    QToolTip::hideText();
}

void DayAxisWt::mouseMoveEvent(QMouseEvent* event)
{
    const QRect axis = axisRect();
    const double position = positionAt(event->pos().x());
    const bool isInside = axis.adjusted(0, -topRoom, 0, 0).contains(event->pos());
    m_pointerX = isInside ? event->pos().x() : -1;
    if (m_pick.isDragging()) {
        m_pick.move(position);
        if (const std::optional<TimeSpan>& span = m_pick.span())
            QToolTip::showText(viewport()->mapToGlobal(QPoint(event->pos().x(), axis.bottom())),
                               QString(SpanWords::span(*span, m_axis.day()) % QLatin1String(",  ") %
                                       SpanWords::length(span->lengthMs())),
                               viewport());
        emit signalSpanMarked(m_pick.span());
    } else {
        const bool onEdge = isInside && m_pick.isOnEdge(position, double(grip) / qMax(1, axis.width()));
        viewport()->setCursor(onEdge ? Qt::SizeHorCursor : isInside ? Qt::CrossCursor : Qt::ArrowCursor);
    }
    viewport()->update();
}

void DayAxisWt::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_pick.isDragging())
        return;
    m_pick.release();
    viewport()->update();
    emit signalSpanMarked(m_pick.span());
}

void DayAxisWt::mouseDoubleClickEvent(QMouseEvent* event)
{
    const int row = rowAt(event->pos().y());
    if (event->button() != Qt::LeftButton || row < 0 || !axisRect().contains(event->pos()))
        return;
    const qint64 ms = m_axis.timeAt(positionAt(event->pos().x()), DayAxis::Pass::First);
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
    case Qt::Key_Escape:
        if (m_pick.isDragging()) {
            m_pick.cancel();
            mark(m_pick.span());
        } else if (m_pick.span()) {
            mark(std::nullopt);
        } else {
            event->ignore();
        }
        break;
    default:
        QAbstractScrollArea::keyPressEvent(event);
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
