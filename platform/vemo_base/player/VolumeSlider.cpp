#include "VolumeSlider.h"

#include "StylePainter.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace vemo_base {

namespace {

constexpr int grooveHeight = 4;
constexpr int handleSize = 12;
constexpr int loudest = 100;
constexpr int step = 5;

} // namespace

VolumeSlider::VolumeSlider(QWidget* parent)
    : QAbstractSlider(parent)
{
    setOrientation(Qt::Horizontal);
    setRange(0, loudest);
    setSingleStep(step);
    setPageStep(2 * step);
    setValue(loudest);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setInvertedControls(layoutDirection() == Qt::RightToLeft);
}

QSize VolumeSlider::sizeHint() const
{
    return {96, 32};
}

void VolumeSlider::follow(int x)
{
    setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), x - handleSize / 2, width() - handleSize,
                                             layoutDirection() == Qt::RightToLeft));
}

void VolumeSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        follow(event->pos().x());
}

void VolumeSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & Qt::LeftButton)
        follow(event->pos().x());
}

void VolumeSlider::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double reach = width() - handleSize;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const double fraction = static_cast<double>(value()) / loudest;
    const double x = handleSize / 2.0 + reach * (mirrored ? 1 - fraction : fraction);
    const QRectF groove(handleSize / 2.0, (height() - grooveHeight) / 2.0, reach, grooveHeight);
    QRectF filled = groove;
    if (mirrored)
        filled.setLeft(x);
    else
        filled.setRight(x);
    StylePainter::box(&painter, groove, grooveHeight / 2.0, themeColor(mode, Token::Track), Qt::transparent, 0);
    const QColor ink = themeColor(mode, isEnabled() ? Token::Text2 : Token::Text3);
    StylePainter::box(&painter, filled, grooveHeight / 2.0, ink, Qt::transparent, 0);
    const QRectF handle(x - handleSize / 2.0, (height() - handleSize) / 2.0, handleSize, handleSize);
    StylePainter::box(&painter, handle, handleSize / 2.0, themeColor(mode, isEnabled() ? Token::Text : Token::Text3),
                      Qt::transparent, 0);
    if (hasFocus())
        StylePainter::focusRing(&painter, handle.adjusted(-4, -4, 4, 4), handleSize / 2.0 + 4, mode);
}

} // namespace vemo_base
