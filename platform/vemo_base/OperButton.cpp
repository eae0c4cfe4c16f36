#include "OperButton.h"

#include "StylePainter.h"
#include "TableOperWt.h"

#include <QPainter>

namespace vemo_base {

namespace {

constexpr int buttonSize = 28;
constexpr int shapeSize = 18;
constexpr double radius = 6;
constexpr double tintOnSelection = 0.16;

} // namespace

OperButton::OperButton(QWidget* parent)
    : QToolButton(parent)
{
    setFixedSize(buttonSize, buttonSize);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

QSize OperButton::sizeHint() const
{
    return {buttonSize, buttonSize};
}

void OperButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    const auto* cell = qobject_cast<const TableOperWt*>(parentWidget());
    const bool onSelection = cell && cell->getCurStyle() == TableOperWtStyle::Style::Selected;
    const bool hover = isEnabled() && underMouse();
    const bool pressed = isEnabled() && isDown();
    if (hover || pressed) {
        QColor ground = themeColor(mode, pressed ? Token::Select : Token::Press);
        if (onSelection) {
            ground = themeColor(mode, Token::Text);
            ground.setAlphaF(tintOnSelection);
        }
        StylePainter::box(&painter, rect(), radius, ground, QColor());
    }
    const int inset = (buttonSize - shapeSize) / 2;
    const QIcon::Mode iconMode = !isEnabled() ? QIcon::Disabled
                                 : pressed    ? QIcon::Selected
                                 : hover      ? QIcon::Active
                                              : QIcon::Normal;
    // Whether a button is checked is told by its shape; its colour stays that of the row.
    icon().paint(&painter, rect().adjusted(inset, inset, -inset, -inset), Qt::AlignCenter, iconMode, QIcon::Off);
}

} // namespace vemo_base
