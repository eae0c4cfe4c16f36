#include "ClockSlider.h"

#include "StylePainter.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <limits>

namespace vemo_base {

namespace {

constexpr int sliderHeight = 24;
constexpr double grooveHeight = 6;
constexpr double handleSize = 16;
constexpr double handleRing = 2;
constexpr double gapHeight = 12;
constexpr double gapEdge = 2;
constexpr double leastGapWidth = 5; ///< a second of a day would not be seen
constexpr double hatchStep = 5;

} // namespace

ClockSlider::ClockSlider(QWidget* parent)
    : QAbstractSlider(parent)
{
    setOrientation(Qt::Horizontal);
    setRange(0, 0);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setObjectName(QStringLiteral("clockSlider"));
    setAccessibleName(tr("Position"));
}

QSize ClockSlider::sizeHint() const
{
    return {200, sliderHeight};
}

void ClockSlider::setClock(const RecordingClock& clock)
{
    m_clock = clock;
    const qint64 lengthMs = clock.endMs() - clock.beginMs();
    setRange(0, static_cast<int>(qBound<qint64>(0, lengthMs, std::numeric_limits<int>::max())));
    update();
}

void ClockSlider::setClockMs(qint64 clockMs)
{
    if (!isSliderDown())
        setValue(static_cast<int>(qBound<qint64>(minimum(), clockMs - m_clock.beginMs(), maximum())));
}

qint64 ClockSlider::clockMsAt(double x) const
{
    const double reach = width() - handleSize;
    const double fraction = reach > 0 ? qBound(0.0, (x - handleSize / 2) / reach, 1.0) : 0;
    return m_clock.beginMs() + static_cast<qint64>(fraction * maximum());
}

double ClockSlider::xOf(qint64 clockMs) const
{
    const double fraction = maximum() > 0 ? static_cast<double>(clockMs - m_clock.beginMs()) / maximum() : 0;
    return handleSize / 2 + qBound(0.0, fraction, 1.0) * (width() - handleSize);
}

void ClockSlider::follow(int x)
{
    const qint64 clockMs = clockMsAt(x);
    setValue(static_cast<int>(clockMs - m_clock.beginMs()));
    emit signalSeekRequested(clockMs);
}

QString ClockSlider::tipAt(qint64 clockMs) const
{
    const RecordingGap* gap = m_clock.gapAt(clockMs);
    if (!gap)
        return m_clock.timeText(clockMs);
    const QString from = m_clock.timeText(gap->beginMs);
    const QString to = m_clock.timeText(gap->endMs);
    return gap->cause == QLatin1String("lost in transfer") ? tr("Lost in transfer %1 to %2").arg(from, to)
                                                           : tr("No recording %1 to %2").arg(from, to);
}

bool ClockSlider::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractSlider::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    qint64 clockMs = clockMsAt(help->x());
    // A short gap is drawn wider than it is.
    for (const RecordingGap& gap : m_clock.gaps())
        if (qAbs(help->x() - (xOf(gap.beginMs) + xOf(gap.endMs)) / 2) <= leastGapWidth)
            clockMs = gap.beginMs;
    QToolTip::showText(help->globalPos(), maximum() > 0 ? tipAt(clockMs) : QString(), this);
    return true;
}

/// Playing moves the value with every frame, the handle far more seldom.
void ClockSlider::sliderChange(SliderChange change)
{
    if (change != SliderValueChange || qRound(xOf(m_clock.beginMs() + value()) * devicePixelRatioF()) != m_paintedX)
        QAbstractSlider::sliderChange(change);
}

void ClockSlider::keyPressEvent(QKeyEvent* event)
{
    event->ignore(); // the player's keys move it
}

void ClockSlider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void ClockSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(true);
    follow(event->pos().x());
}

void ClockSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        follow(event->pos().x());
}

void ClockSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void ClockSlider::paintGap(QPainter& painter, const RecordingGap& gap) const
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QRectF span(xOf(gap.beginMs), (height() - gapHeight) / 2, xOf(gap.endMs) - xOf(gap.beginMs), gapHeight);
    if (span.width() < leastGapWidth)
        span.adjust((span.width() - leastGapWidth) / 2, 0, (leastGapWidth - span.width()) / 2, 0);
    painter.fillRect(span, themeColor(mode, Token::Surface));
    const QColor ink = themeColor(mode, Token::Control);
    painter.save();
    const QRectF groove(span.left(), (height() - grooveHeight) / 2, span.width(), grooveHeight);
    painter.setClipRect(groove);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1.5));
    for (double x = groove.left() - grooveHeight; x < groove.right(); x += hatchStep)
        painter.drawLine(QPointF(x, groove.bottom()), QPointF(x + grooveHeight, groove.top()));
    painter.restore();
    const QColor edge = themeColor(mode, Token::Text2);
    painter.fillRect(QRectF(span.left(), span.top(), gapEdge, span.height()), edge);
    painter.fillRect(QRectF(span.right() - gapEdge, span.top(), gapEdge, span.height()), edge);
}

void ClockSlider::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF groove(handleSize / 2, (height() - grooveHeight) / 2, width() - handleSize, grooveHeight);
    const bool usable = isEnabled() && maximum() > 0;
    const double x = usable ? xOf(m_clock.beginMs() + value()) : groove.left();
    m_paintedX = qRound(x * devicePixelRatioF());
    StylePainter::progress(&painter, groove, usable ? (x - groove.left()) / groove.width() : 0,
                           themeColor(mode, Token::Track), themeColor(mode, Token::Progress));
    for (const RecordingGap& gap : m_clock.gaps())
        paintGap(painter, gap);
    if (!usable)
        return;
    const QRectF handle(x - handleSize / 2, (height() - handleSize) / 2, handleSize, handleSize);
    painter.setPen(QPen(themeColor(mode, Token::AccentText), handleRing));
    painter.setBrush(themeColor(mode, Token::OnAccent));
    painter.drawEllipse(handle.adjusted(handleRing / 2, handleRing / 2, -handleRing / 2, -handleRing / 2));
    if (hasFocus())
        StylePainter::focusRing(&painter, handle.adjusted(-3, -3, 3, 3), handleSize / 2 + 3, mode);
}

} // namespace vemo_base
