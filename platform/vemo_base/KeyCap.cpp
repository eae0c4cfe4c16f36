#include "KeyCap.h"

#include "StylePainter.h"
#include "ThemeTokens.h"

#include <QPainter>

namespace vemo_base {

namespace {

constexpr int capPixels = 11;
constexpr int capPadding = 6;
constexpr int capHeight = 18;
constexpr double capRadius = 4;

} // namespace

KeyCap::KeyCap(const QString& key, QWidget* parent)
    : QWidget(parent)
    , m_key(key)
{
    QFont capFont = font();
    capFont.setPixelSize(capPixels);
    capFont.setWeight(QFont::DemiBold);
    setFont(capFont);
    setFixedSize(QFontMetrics(capFont).horizontalAdvance(key) + 2 * capPadding, capHeight);
    setAccessibleName(key);
}

void KeyCap::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const ThemeMode mode = StylePainter::modeOf(palette());
    StylePainter::box(&painter, rect(), capRadius, themeColor(mode, Token::Raised), themeColor(mode, Token::Border));
    painter.setPen(themeColor(mode, Token::Text2));
    painter.drawText(rect(), Qt::AlignCenter, m_key);
}

} // namespace vemo_base
