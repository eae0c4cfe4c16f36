#include "TransportButton.h"

#include "Icons.h"
#include "StylePainter.h"

#include <QFocusEvent>
#include <QPainter>

namespace vemo_base {

namespace {

constexpr int quietSize = 32;
constexpr int roundSize = 40;
constexpr int iconExtent = 20;
constexpr double radius = 6;

} // namespace

TransportButton::TransportButton(Kind kind, const QString& iconName, const QString& tip, QWidget* parent)
    : QAbstractButton(parent)
    , m_kind(kind)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFace(iconName, tip);
}

void TransportButton::setFace(const QString& iconName, const QString& tip)
{
    if (m_iconName == iconName && toolTip() == tip)
        return;
    m_iconName = iconName;
    setToolTip(tip);
    setAccessibleName(tip);
    update();
}

QSize TransportButton::sizeHint() const
{
    const int size = m_kind == Kind::Quiet ? quietSize : roundSize;
    return {size, size};
}

bool TransportButton::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        m_ring = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
    } else if (event->type() == QEvent::FocusOut) {
        m_ring = false;
    }
    return QAbstractButton::event(event);
}

void TransportButton::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    const auto color = [mode](Token token) { return themeColor(mode, token); };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF face = rect();
    const bool hovered = isEnabled() && underMouse();
    QColor ink = color(Token::Text2);
    if (m_kind == Kind::Round) {
        ink = color(isEnabled() ? Token::OnAccent : Token::Text3);
        const Token fill = !isEnabled() ? Token::Border
                           : isDown()   ? Token::AccentPress
                           : hovered    ? Token::AccentHover
                                        : Token::Accent;
        StylePainter::box(&painter, face, face.width() / 2, color(fill), Qt::transparent, 0);
    } else if (m_kind == Kind::SoftRound) {
        ink = color(isEnabled() ? Token::AccentText : Token::Text3);
        const Token fill = !isEnabled() ? Token::Border : isDown() || hovered ? Token::Press : Token::Select;
        StylePainter::box(&painter, face, face.width() / 2, color(fill), Qt::transparent, 0);
    } else if (isEnabled() && isChecked()) {
        StylePainter::box(&painter, face, radius, color(isDown() || hovered ? Token::Press : Token::Select),
                          Qt::transparent, 0);
        ink = color(Token::AccentText);
    } else if (isEnabled() && (isDown() || hovered)) {
        StylePainter::box(&painter, face, radius, color(isDown() ? Token::Press : Token::Hover), Qt::transparent, 0);
        ink = color(Token::Text);
    } else if (!isEnabled()) {
        ink = color(Token::Text3);
    }
    const qreal ratio = devicePixelRatioF();
    painter.drawPixmap(QRect((width() - iconExtent) / 2, (height() - iconExtent) / 2, iconExtent, iconExtent),
                       Icons::pixmap(m_iconName, iconExtent, ink, ratio));
    if (m_ring)
        StylePainter::focusRing(&painter, face, m_kind == Kind::Quiet ? radius : face.width() / 2, mode);
}

} // namespace vemo_base
