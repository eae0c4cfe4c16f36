#include "BackupAxisWt.h"

#include <axis/AxisPainter.h>
#include <axis/SpanWords.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QDateTime>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace vemo_filesCenter {

using vemo_base::AxisPainter;
using vemo_base::AxisRow;
using vemo_base::DayAxis;
using vemo_base::SpanWords;
using vemo_base::ThemeMode;
using vemo_base::TimeSpan;
using vemo_base::Token;
using Kind = BackupAxis::Kind;

namespace {

constexpr int bracketHeight = 2;
constexpr int bracketGap = 2;
constexpr int alarmTickHeight = 3;
constexpr int leastAlarm = 3;
constexpr int caretHalf = 5;

QColor dark(Token token)
{
    return vemo_base::themeColor(ThemeMode::Dark, token);
}

Token tokenOf(Kind kind)
{
    switch (kind) {
    case Kind::Segment:
        return Token::AxisSegment;
    case Kind::BackedUp:
        return Token::AxisBackedUp;
    case Kind::NoRecording:
        return Token::AxisNoRecording;
    case Kind::Recording:
        return Token::AxisRecording;
    case Kind::Alarm:
        return Token::AxisAlarm;
    case Kind::Nothing:
        break;
    }
    return Token::Axis;
}

QString wordOf(Kind kind)
{
    switch (kind) {
    case Kind::Segment:
        return BackupAxisWt::tr("Time segment");
    case Kind::BackedUp:
        return BackupAxisWt::tr("Backed up");
    case Kind::NoRecording:
        return BackupAxisWt::tr("No recording");
    case Kind::Recording:
        return BackupAxisWt::tr("On the recorder");
    case Kind::Alarm:
        return BackupAxisWt::tr("Alarm");
    case Kind::Nothing:
        break;
    }
    return {};
}

} // namespace

BackupAxisWt::BackupAxisWt(QWidget* parent)
    : QWidget(parent)
    , m_hours(this)
{
    setFixedHeight(totalHeight);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Time axis"));
}

QRect BackupAxisWt::axisRect() const
{
    return {AxisPainter::halfLabel, axisTop, qMax(0, width() - 2 * AxisPainter::halfLabel), axisHeight};
}

int BackupAxisWt::xOf(qint64 ms) const
{
    const QRect axis = axisRect();
    return axis.x() + int(std::lround(m_axis.day().positionOf(ms) * axis.width()));
}

qint64 BackupAxisWt::timeAt(int x) const
{
    const QRect axis = axisRect();
    const double position = axis.width() > 0 ? double(x - axis.x()) / axis.width() : 0;
    return m_axis.day().timeAt(position, DayAxis::Pass::First);
}

/// Everything above, on and below a stretch of the axis, and a little beside it.
QRect BackupAxisWt::stripOf(int from, int to) const
{
    return QRect(QPoint(from - caretHalf, 0), QPoint(to + caretHalf, height() - 1));
}

void BackupAxisWt::setAxis(const BackupAxis& axis, const QString& sums)
{
    const TimeSpan progress = axis.progressSince(m_axis);
    m_axis = axis;
    QStringList spans{sums};
    for (const BackupAxis::Span& span : m_axis.pieces())
        spans.append(wordOf(span.kind) + QLatin1Char(' ') + SpanWords::span(span.time, m_axis.day().day()));
    setAccessibleDescription(spans.join(QLatin1String("; ")));
    if (progress.lengthMs() == 0)
        return;
    if (progress.lengthMs() < 0 || m_picture.isNull()) {
        dropPicture();
        update();
        return;
    }
    const QRect strip = stripOf(xOf(progress.beginMs), xOf(progress.endMs));
    QPainter painter(&m_picture);
    painter.setClipRect(strip);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(strip, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    drawPicture(&painter);
    update(strip);
}

void BackupAxisWt::makePicture()
{
    const double ratio = devicePixelRatioF();
    m_picture = QPixmap((QSizeF(size()) * ratio).toSize());
    m_picture.setDevicePixelRatio(ratio);
    m_picture.fill(Qt::transparent);
    QPainter painter(&m_picture);
    drawPicture(&painter);
}

void BackupAxisWt::drawPicture(QPainter* painter) const
{
    const ThemeMode around = vemo_base::Theme::instance().mode();
    const double ratio = painter->device()->devicePixelRatioF();
    const QRect axis = axisRect();
    painter->fillRect(axis, dark(Token::Axis));
    for (const QVector<BackupAxis::Span>* spans : {&m_axis.segments(), &m_axis.pieces()}) {
        for (const BackupAxis::Span& span : *spans) {
            for (const DayAxis::Piece& piece : m_axis.day().pieces(span.time.beginMs, span.time.endMs)) {
                const QRectF rect = AxisPainter::rectOf(piece, axis, ratio);
                painter->fillRect(rect, dark(tokenOf(span.kind)));
                if (span.kind == Kind::Segment)
                    painter->fillRect(
                        QRectF(rect.x(), axisTop - bracketGap - bracketHeight, rect.width(), bracketHeight),
                        vemo_base::themeColor(around, Token::Control));
            }
        }
    }
    const int pixels = int(std::lround(axis.width() * ratio));
    const int leastPixels = int(std::lround(leastAlarm * ratio));
    for (const AxisRow::Run& run : AxisRow::runs(m_axis.day(), m_axis.recordings(), pixels, 1)) {
        const bool isAlarm = run.kind == AxisRow::Kind::Alarm;
        painter->fillRect(QRectF(axis.x() + run.from / ratio, axis.bottom(), (run.to - run.from) / ratio, 1),
                          dark(isAlarm ? Token::AxisAlarm : Token::AxisRecording));
    }
    for (const AxisRow::Run& run : AxisRow::runs(m_axis.day(), m_axis.recordings(), pixels, leastPixels)) {
        if (run.kind == AxisRow::Kind::Alarm)
            painter->fillRect(
                QRectF(axis.x() + run.from / ratio, axis.bottom() + 1, (run.to - run.from) / ratio, alarmTickHeight),
                dark(Token::AxisAlarm));
    }
    AxisPainter::clockChanges(painter, m_axis.day(), axis, font());
    AxisPainter::ticks(painter, axis, around);
}

void BackupAxisWt::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_hours.place(axisRect());
}

void BackupAxisWt::paintEvent(QPaintEvent* event)
{
    if (!m_hours.isMade()) {
        m_hours.make();
        // Not while painting goes on.
        QMetaObject::invokeMethod(
            this, [this] { m_hours.place(axisRect()); }, Qt::QueuedConnection);
    }
    const double ratio = devicePixelRatioF();
    if (m_picture.isNull() || m_picture.size() != (QSizeF(size()) * ratio).toSize())
        makePicture();
    QPainter painter(this);
    const QRect part = event->rect();
    painter.drawPixmap(
        part, m_picture,
        QRectF(part.x() * ratio, part.y() * ratio, part.width() * ratio, part.height() * ratio).toRect());
    const QRect axis = axisRect();
    const qint64 nowMs = QDateTime::currentMSecsSinceEpoch();
    AxisPainter::now(&painter, m_axis.day(), axis, nowMs, vemo_base::Theme::instance().mode());
    m_nowX = xOf(nowMs);
    if (m_pointerX >= 0)
        painter.fillRect(QRectF(m_pointerX, axis.top(), 1, axis.height()), dark(Token::Text));
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        painter.setRenderHint(QPainter::Antialiasing);
        vemo_base::StylePainter::focusRingInside(&painter, axis, 0);
    }
}

void BackupAxisWt::updateNow()
{
    const int x = xOf(QDateTime::currentMSecsSinceEpoch());
    if (x == m_nowX)
        return;
    update(stripOf(m_nowX, m_nowX));
    update(stripOf(x, x));
}

void BackupAxisWt::setPointer(int x)
{
    if (x == m_pointerX)
        return;
    if (m_pointerX >= 0)
        update(stripOf(m_pointerX, m_pointerX));
    m_pointerX = x;
    if (x >= 0)
        update(stripOf(x, x));
}

QString BackupAxisWt::tipAt(qint64 ms) const
{
    const QDate day = m_axis.day().day();
    QStringList lines;
    const BackupAxis::Span span = m_axis.spanAt(ms);
    const auto line = [&day](const BackupAxis::Span& told) {
        return SpanWords::swatchLine(dark(tokenOf(told.kind)),
                                     SpanWords::span(told.time, day) + QLatin1String("  ") + wordOf(told.kind));
    };
    if (span.kind != Kind::Nothing)
        lines.append(line(span));
    const BackupAxis::Span alarm = m_axis.alarmAt(ms);
    if (alarm.kind != Kind::Nothing && span.kind != Kind::Alarm)
        lines.append(line(alarm));
    const QString note = SpanWords::clockNote(m_axis.day(), m_axis.day().positionOf(ms));
    if (!note.isEmpty())
        lines.append(note);
    return lines.join(QLatin1String("<br>"));
}

void BackupAxisWt::showTip(qint64 ms)
{
    QToolTip::showText(mapToGlobal(QPoint(xOf(ms), height())), tipAt(ms), this);
}

bool BackupAxisWt::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const QPoint position = static_cast<const QHelpEvent*>(event)->pos();
        if (axisRect().adjusted(0, -axisTop, 1, height()).contains(position))
            showTip(timeAt(position.x()));
        return true;
    }
    if (event->type() == QEvent::Leave)
        setPointer(-1);
    return QWidget::event(event);
}

void BackupAxisWt::mouseMoveEvent(QMouseEvent* event)
{
    const bool isInside = axisRect().contains(event->pos());
    setPointer(isInside ? event->pos().x() : -1);
    if (isInside && QToolTip::isVisible())
        showTip(timeAt(event->pos().x()));
}

void BackupAxisWt::step(int direction)
{
    const QVector<BackupAxis::Span> steps = m_axis.steps();
    if (steps.isEmpty())
        return;
    int at = direction > 0 ? 0 : steps.size() - 1;
    while (m_currentMs >= 0 && at >= 0 && at < steps.size() &&
           (direction > 0 ? steps.at(at).time.beginMs <= m_currentMs : steps.at(at).time.beginMs >= m_currentMs))
        at += direction;
    m_currentMs = steps.at(qBound(0, at, steps.size() - 1)).time.beginMs;
    setPointer(xOf(m_currentMs));
    showTip(m_currentMs);
}

void BackupAxisWt::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        step(event->key() == Qt::Key_Right ? 1 : -1);
    else
        QWidget::keyPressEvent(event);
}

void BackupAxisWt::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        dropPicture();
        update();
    }
    QWidget::changeEvent(event);
}

} // namespace vemo_filesCenter
