#include "ToggleSwitch.h"

#include "StylePainter.h"
#include "ThemeTokens.h"

#include <QFocusEvent>
#include <QPainter>
#include <QStyle>

namespace vemo_base {

namespace {

constexpr int trackWidth = 36;
constexpr int trackHeight = 20;
constexpr int knobInset = 4;
constexpr int ringRoom = 4;
constexpr int wordsLeading = ringRoom + trackWidth + 10;
constexpr int leastHeight = trackHeight + 2 * ringRoom;
constexpr int longestLine = 440;
constexpr int wrapped = Qt::AlignVCenter | Qt::TextWordWrap;

} // namespace

ToggleSwitch::ToggleSwitch(const QString& words, QWidget* parent)
    : QAbstractButton(parent)
{
    setText(words);
    setAccessibleName(words);
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize ToggleSwitch::sizeHint() const
{
    const int width = wordsLeading + qMin(longestLine, fontMetrics().horizontalAdvance(text()) + 2);
    return {width, heightForWidth(width)};
}

QSize ToggleSwitch::minimumSizeHint() const
{
    return {wordsLeading + longestLine / 3, leastHeight};
}

int ToggleSwitch::heightForWidth(int width) const
{
    const QRect room(0, 0, qMax(1, width - wordsLeading), 1000);
    return qMax(leastHeight, fontMetrics().boundingRect(room, wrapped, text()).height());
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    const ThemeMode mode = StylePainter::modeOf(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto mirrored = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
    const QRect ring(0, (height() - leastHeight) / 2, trackWidth + 2 * ringRoom, leastHeight);
    const QRectF track = mirrored(ring.adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom));
    const double round = trackHeight / 2.0;

    Token fill = isChecked() ? (underMouse() ? Token::AccentHover : Token::Accent) : Token::Field;
    Token outline = isChecked() ? fill : Token::Control;
    Token knobTone = isChecked() ? Token::OnAccent : Token::Text2;
    if (!isEnabled()) {
        fill = isChecked() ? Token::Border : Token::Field;
        outline = Token::Border;
        knobTone = Token::Text3;
    }
    StylePainter::box(&painter, track, round, themeColor(mode, fill), themeColor(mode, outline));
    const double knob = trackHeight - 2 * knobInset;
    const bool atEnd = isChecked() != (layoutDirection() == Qt::RightToLeft);
    const double x = atEnd ? track.right() - knobInset - knob : track.left() + knobInset;
    StylePainter::box(&painter, QRectF(x, track.top() + knobInset, knob, knob), knob / 2, themeColor(mode, knobTone),
                      QColor());
    if (hasFocus() && m_isKeyboard)
        StylePainter::focusRing(&painter, mirrored(ring), round + ringRoom, mode);

    painter.setPen(themeColor(mode, isEnabled() ? Token::Text : Token::Text3));
    const QRect words = mirrored(rect().adjusted(wordsLeading, 0, 0, 0));
    painter.drawText(words, wrapped | int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)), text());
}

void ToggleSwitch::focusInEvent(QFocusEvent* event)
{
    m_isKeyboard = event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason;
    QAbstractButton::focusInEvent(event);
}

void ToggleSwitch::focusOutEvent(QFocusEvent* event)
{
    m_isKeyboard = false;
    QAbstractButton::focusOutEvent(event);
}

} // namespace vemo_base
