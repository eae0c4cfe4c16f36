#include "LocalSnapImageControls.h"

#include <Icons.h>
#include <StylePainter.h>

#include <QPainter>
#include <QStyleOptionButton>

namespace vemo_filesCenter {

using vemo_base::StylePainter;
using vemo_base::ThemeMode;
using vemo_base::Token;

namespace {

constexpr int boxExtent = 18;
constexpr int iconExtent = 18;
constexpr double boxGround = 0.72;
constexpr double buttonGround = 0.8;
constexpr double boxRadius = 4;
constexpr double buttonRadius = 6;

QColor dark(Token token, double alpha = 1)
{
    QColor color = themeColor(ThemeMode::Dark, token);
    color.setAlphaF(alpha);
    return color;
}

} // namespace

LocalSnapImageCheckBox::LocalSnapImageCheckBox(QWidget* parent)
    : QCheckBox(parent)
{
    setFixedSize(extent, extent);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void LocalSnapImageCheckBox::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const int inset = (extent - boxExtent) / 2;
    const QRect box = rect().adjusted(inset, inset, -inset, -inset);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked()) {
        StylePainter::checkBox(&painter, box, option.state, ThemeMode::Dark);
        return;
    }
    const double width = 1.5;
    StylePainter::box(&painter, box, boxRadius, dark(Token::Well, boxGround), dark(Token::Text), width);
}

LocalSnapImageButton::LocalSnapImageButton(const QString& iconName, const QString& tip, QWidget* parent)
    : QToolButton(parent)
    , m_iconName(iconName)
{
    setFixedSize(extent, extent);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setToolTip(tip);
    setAccessibleName(tip);
    setCursor(Qt::ArrowCursor);
}

void LocalSnapImageButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isHot = underMouse() || hasFocus();
    const QColor ground = isDown() ? dark(Token::AccentPress)
                          : isHot  ? dark(Token::Accent)
                                   : dark(Token::Well, buttonGround);
    StylePainter::box(&painter, rect(), buttonRadius, ground, Qt::transparent, 0);
    const int inset = (extent - iconExtent) / 2;
    painter.drawPixmap(inset, inset,
                       vemo_base::Icons::pixmap(m_iconName, iconExtent, dark(isHot ? Token::OnAccent : Token::Text),
                                                devicePixelRatioF()));
    if (hasFocus())
        StylePainter::focusRingInside(&painter, rect(), buttonRadius);
}

} // namespace vemo_filesCenter
