#include "PictureView.h"

#include "Icons.h"
#include "StylePainter.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QWheelEvent>

#include <cmath>

namespace vemo_base {

namespace {

constexpr double stepFactor = 1.25;
constexpr double largestScale = 16;
constexpr double sharpFrom = 3; ///< single pixels are what one looks for at such a scale
constexpr int degreesPerQuarter = 90;
constexpr int wheelStep = 120;
constexpr int iconExtent = 36;
constexpr int messageGap = 12;
constexpr int messageWidth = 420;

} // namespace

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    grabGesture(Qt::PinchGesture);
}

void PictureView::setStandIn(const QImage& standIn, const QSize& size, const QString& message)
{
    m_picture = {};
    m_standIn = standIn;
    m_standInSize = size;
    m_messageIcon.clear();
    m_message = message;
    m_quarters = 0;
    fit();
}

void PictureView::setPicture(const LoadedPicture& picture)
{
    m_picture = picture;
    m_standIn = {};
    m_messageIcon.clear();
    m_message.clear();
    if (m_isFitted)
        fit();
    else
        keepInside();
    update();
    emit signalScaleChanged();
}

void PictureView::setMessage(const QString& iconName, const QString& text)
{
    m_picture = {};
    m_standIn = {};
    m_messageIcon = iconName;
    m_message = text;
    fit();
}

QImage PictureView::turnedPicture() const
{
    if (!hasPicture())
        return {};
    return m_quarters == 0 ? m_picture.levels.first()
                           : m_picture.levels.first().transformed(QTransform().rotate(m_quarters * degreesPerQuarter));
}

QSizeF PictureView::turnedSize() const
{
    const QSizeF size(m_picture.size);
    return m_quarters % 2 == 0 ? size : size.transposed();
}

double PictureView::fittingScale() const
{
    if (!hasPicture())
        return 1;
    const QSizeF whole = turnedSize();
    const double ratio = devicePixelRatioF();
    return qMin(1.0, qMin(width() * ratio / whole.width(), height() * ratio / whole.height()));
}

double PictureView::smallestScale() const
{
    return qMin(fittingScale(), 1.0) / 2;
}

double PictureView::scale() const
{
    return m_isFitted ? fittingScale() : m_scale;
}

void PictureView::fit()
{
    m_isFitted = true;
    m_middle = {};
    showCursor();
    update();
    emit signalScaleChanged();
}

void PictureView::setScale(double scale)
{
    setScaleAt(scale, QRectF(rect()).center());
}

void PictureView::zoom(int steps)
{
    setScale(scale() * std::pow(stepFactor, steps));
}

void PictureView::setScaleAt(double scale, const QPointF& place)
{
    if (!hasPicture())
        return;
    const double before = this->scale();
    const double after = qBound(smallestScale(), scale, largestScale);
    // The spot of the picture under `place` stays there.
    const QPointF fromMiddle = (place - QRectF(rect()).center()) * devicePixelRatioF();
    m_middle = fromMiddle - (fromMiddle - m_middle) * (after / before);
    m_isFitted = false;
    m_scale = after;
    keepInside();
    update();
    emit signalScaleChanged();
}

void PictureView::turn(int quarters)
{
    constexpr int all = 4;
    m_quarters = ((m_quarters + quarters) % all + all) % all;
    fit();
}

void PictureView::pan(const QPointF& by)
{
    m_middle += by * devicePixelRatioF();
    keepInside();
    update();
}

void PictureView::keepInside()
{
    const QSizeF shown = turnedSize() * scale();
    const double ratio = devicePixelRatioF();
    const double across = qMax(0.0, (shown.width() - width() * ratio) / 2);
    const double down = qMax(0.0, (shown.height() - height() * ratio) / 2);
    m_middle = {qBound(-across, m_middle.x(), across), qBound(-down, m_middle.y(), down)};
    showCursor();
}

void PictureView::showCursor()
{
    const QSizeF shown = turnedSize() * scale();
    const double ratio = devicePixelRatioF();
    const bool canMove =
        hasPicture() && !m_isFitted && (shown.width() > width() * ratio || shown.height() > height() * ratio);
    setCursor(!canMove ? Qt::ArrowCursor : m_isGripped ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
}

bool PictureView::event(QEvent* event)
{
    if (event->type() == QEvent::Gesture) {
        const auto* pinch = static_cast<QPinchGesture*>(static_cast<QGestureEvent*>(event)->gesture(Qt::PinchGesture));
        if (!pinch)
            return QWidget::event(event);
        if (pinch->state() == Qt::GestureStarted)
            m_pinchStart = scale();
        setScaleAt(m_pinchStart * pinch->totalScaleFactor(), mapFromGlobal(pinch->hotSpot().toPoint()));
        return true;
    }
    if (event->type() == QEvent::NativeGesture) {
        const auto* native = static_cast<QNativeGestureEvent*>(event);
        if (native->gestureType() == Qt::ZoomNativeGesture) {
            setScaleAt(scale() * (1 + native->value()), native->localPos());
            return true;
        }
    }
    return QWidget::event(event);
}

void PictureView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (hasPicture() && !m_isFitted)
        keepInside();
    emit signalScaleChanged();
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    m_wheelRest += event->angleDelta().y();
    const int steps = m_wheelRest / wheelStep;
    m_wheelRest -= steps * wheelStep;
    if (steps != 0)
        setScaleAt(scale() * std::pow(stepFactor, steps), event->position());
    event->accept();
}

void PictureView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::BackButton || event->button() == Qt::ForwardButton) {
        emit signalStepRequested(event->button() == Qt::BackButton ? -1 : 1);
        return;
    }
    if (event->button() != Qt::LeftButton)
        return;
    m_isGripped = true;
    m_grip = event->pos();
    showCursor();
}

void PictureView::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_isGripped || m_isFitted)
        return;
    pan(event->pos() - m_grip);
    m_grip = event->pos();
}

void PictureView::mouseReleaseEvent(QMouseEvent*)
{
    m_isGripped = false;
    showCursor();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (m_isFitted)
        setScaleAt(1, event->localPos());
    else
        fit();
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (hasPicture()) {
        paintPicture(&painter);
        return;
    }
    if (!m_standIn.isNull()) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        QSizeF size = QSizeF(m_standInSize) / devicePixelRatioF();
        if (size.isEmpty() || size.width() > width() || size.height() > height())
            size = QSizeF(m_standIn.size()).scaled(QSizeF(rect().size()), Qt::KeepAspectRatio);
        QRectF place(QPointF(), size);
        place.moveCenter(QRectF(rect()).center());
        painter.drawImage(place, m_standIn);
        return;
    }
    QRect textRoom(0, 0, qMin(messageWidth, width()), height() / 2);
    textRoom.moveTopLeft({(width() - textRoom.width()) / 2, height() / 2});
    if (!m_messageIcon.isEmpty()) {
        painter.drawPixmap(
            (width() - iconExtent) / 2, height() / 2 - iconExtent - messageGap,
            Icons::pixmap(m_messageIcon, iconExtent, themeColor(ThemeMode::Dark, Token::Text2), devicePixelRatioF()));
    }
    painter.setPen(themeColor(ThemeMode::Dark, Token::Text));
    painter.drawText(textRoom, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_message);
}

void PictureView::paintPicture(QPainter* painter) const
{
    const double ratio = devicePixelRatioF();
    const double factor = scale() / ratio;
    const QSizeF shown = QSizeF(m_picture.size) * factor;
    const QImage& level = m_picture.levelFor(shown.width() * ratio);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, scale() < sharpFrom);
    painter->translate(QRectF(rect()).center() + m_middle / ratio);
    painter->rotate(m_quarters * degreesPerQuarter);
    const QRectF place(-shown.width() / 2, -shown.height() / 2, shown.width(), shown.height());
    painter->drawImage(place, level);
}

} // namespace vemo_base
