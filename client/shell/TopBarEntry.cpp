#include "TopBarEntry.h"

#include <Icons.h>
#include <Theme.h>

#include <QFocusEvent>
#include <QPainter>
#include <QStyle>

namespace vemo_client {

namespace {

constexpr int barHeight = 48;
constexpr int padding = 16;
constexpr int iconExtent = 20;
constexpr int iconGap = 8;
constexpr int underlineInset = 12;
constexpr int underlineHeight = 3;
constexpr double ringRadius = 6;

} // namespace

TopBarEntry::TopBarEntry(const QString& key, const QString& text, const QString& iconName, QWidget* parent)
    : QAbstractButton(parent)
    , m_key(key)
{
    setText(text);
    setAccessibleName(text);
    setIcon(vemo_base::Icons::icon(iconName));
    setCheckable(true);
    setAutoExclusive(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QFont TopBarEntry::strongFont() const
{
    QFont strong = font();
    strong.setWeight(QFont::DemiBold);
    return strong;
}

QSize TopBarEntry::sizeHint() const
{
    // As wide as the current one is, so that nothing moves when another one becomes current.
    return QSize(2 * padding + iconExtent + iconGap + QFontMetrics(strongFont()).horizontalAdvance(text()), barHeight);
}

void TopBarEntry::paintEvent(QPaintEvent*)
{
    const vemo_base::Theme& theme = vemo_base::Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto mirrored = [this](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    const bool strong = isChecked() || underMouse();

    const QRect iconRect = mirrored(QRect(padding, (height() - iconExtent) / 2, iconExtent, iconExtent));
    icon().paint(&painter, iconRect, Qt::AlignCenter,
                 isChecked()    ? QIcon::Selected
                 : underMouse() ? QIcon::Active
                                : QIcon::Normal);
    painter.setFont(isChecked() ? strongFont() : font());
    painter.setPen(theme.color(strong ? vemo_base::Token::Text : vemo_base::Token::Text2));
    const QRect words = mirrored(rect().adjusted(padding + iconExtent + iconGap, 0, -padding / 2, 0));
    painter.drawText(
        words, static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter), text());

    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(vemo_base::Token::Progress));
        painter.setClipRect(rect());
        // Rounded above, straight on the edge of the bar.
        painter.drawRoundedRect(
            QRectF(underlineInset, height() - underlineHeight, width() - 2 * underlineInset, 2 * underlineHeight),
            underlineHeight - 1, underlineHeight - 1);
    }
    if (m_keyboardFocus) {
        painter.setClipping(false);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(theme.color(vemo_base::Token::Focus), 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(5, 7, -5, -7), ringRadius, ringRadius);
    }
}

void TopBarEntry::focusInEvent(QFocusEvent* event)
{
    m_keyboardFocus = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                      event->reason() == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(event);
    update();
}

void TopBarEntry::focusOutEvent(QFocusEvent* event)
{
    m_keyboardFocus = false;
    QAbstractButton::focusOutEvent(event);
    update();
}

} // namespace vemo_client
