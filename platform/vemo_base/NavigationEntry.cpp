#include "NavigationEntry.h"

#include "Icons.h"
#include "StylePainter.h"
#include "Theme.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace vemo_base {

namespace {

constexpr int entryHeight = 40;
constexpr int subEntryHeight = 36;
constexpr int iconLeading = 12;
constexpr int iconExtent = 20;
constexpr int textLeading = 44;
constexpr int trailing = 12;
constexpr int chevronSize = 16;
constexpr int radius = 6;
constexpr int barWidth = 3;
constexpr int barInset = 8;

} // namespace

NavigationEntry::NavigationEntry(const QString& key, const QString& text, const NavigationActionInfo& icons,
                                 QWidget* parent)
    : QAbstractButton(parent)
    , m_key(key)
{
    if (!icons.normalIcon.isEmpty()) {
        m_hasIcon = true;
        m_normalIcon = Icons::icon(icons.normalIcon);
        m_highlightIcon = Icons::icon(icons.highlightIcon.isEmpty() ? icons.normalIcon : icons.highlightIcon);
    }
    setObjectName(key);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setLabel(text);
}

void NavigationEntry::setGroup(NavigationEntry* group)
{
    m_group = group;
    m_role = Role::SubEntry;
    updateGeometry();
}

void NavigationEntry::makeGroup()
{
    m_role = Role::Group;
    describe();
}

void NavigationEntry::setOpen(bool open)
{
    m_open = open;
    describe();
    update();
}

void NavigationEntry::setCurrent(bool current)
{
    m_current = current;
    describe();
    update();
}

void NavigationEntry::setHoldsCurrent(bool holds)
{
    m_holdsCurrent = holds;
    update();
}

void NavigationEntry::setLabel(const QString& text)
{
    // An ampersand in a name is part of the name: the key of this column are the arrows.
    setText(text);
    setAccessibleName(text);
    describe();
    update();
}

QSize NavigationEntry::sizeHint() const
{
    return QSize(textLeading + fontMetrics().horizontalAdvance(text()) + trailing,
                 m_role == Role::SubEntry ? subEntryHeight : entryHeight);
}

QSize NavigationEntry::minimumSizeHint() const
{
    return QSize(textLeading + trailing, sizeHint().height());
}

QRect NavigationEntry::textRect() const
{
    const int end = trailing + (m_role == Role::Group ? chevronSize + trailing : 0);
    return rect().adjusted(textLeading, 0, -end, 0);
}

QFont NavigationEntry::textFont() const
{
    QFont textFont = font();
    textFont.setWeight(m_current ? QFont::DemiBold : QFont::Normal);
    return textFont;
}

void NavigationEntry::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::instance();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);

    if (m_current || underMouse() || isDown()) {
        const Token ground = m_current ? Token::Select : isDown() ? Token::Press : Token::Hover;
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(ground));
        painter.drawRoundedRect(rect(), radius, radius);
    }
    const auto mirrored = [this](const QRect& logical) {
        return QStyle::visualRect(layoutDirection(), rect(), logical);
    };
    if (m_current) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.color(Token::AccentText));
        const QRectF bar = mirrored(QRect(0, barInset, barWidth, height() - 2 * barInset));
        painter.drawRoundedRect(bar, barWidth / 2.0, barWidth / 2.0);
    }

    const bool strong = m_current || m_holdsCurrent || underMouse();
    if (m_hasIcon) {
        const QRect iconRect = mirrored(QRect(iconLeading, (height() - iconExtent) / 2, iconExtent, iconExtent));
        if (m_current)
            m_highlightIcon.paint(&painter, iconRect, Qt::AlignCenter, QIcon::Selected);
        else
            m_normalIcon.paint(&painter, iconRect, Qt::AlignCenter, strong ? QIcon::Active : QIcon::Normal);
    }
    painter.setFont(textFont());
    painter.setPen(theme.color(strong ? Token::Text : Token::Text2));
    const QRect words = mirrored(textRect());
    const QString elided = QFontMetrics(painter.font()).elidedText(text(), Qt::ElideRight, words.width());
    painter.drawText(words,
                     static_cast<int>(Qt::AlignVCenter | QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) |
                         Qt::TextSingleLine,
                     elided);

    if (m_role == Role::Group) {
        const QRect chevronRect =
            mirrored(QRect(width() - trailing - chevronSize, (height() - chevronSize) / 2, chevronSize, chevronSize));
        Icons::icon(m_open ? QStringLiteral("chev-down") : QStringLiteral("chev-right")).paint(&painter, chevronRect);
    }
    if (m_keyboardFocus)
        StylePainter::focusRingInside(&painter, rect(), radius);
}

void NavigationEntry::focusInEvent(QFocusEvent* event)
{
    m_keyboardFocus = event->reason() != Qt::MouseFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
                      event->reason() != Qt::PopupFocusReason;
    QAbstractButton::focusInEvent(event);
    update();
}

void NavigationEntry::focusOutEvent(QFocusEvent* event)
{
    m_keyboardFocus = false;
    QAbstractButton::focusOutEvent(event);
    update();
}

void NavigationEntry::keyPressEvent(QKeyEvent* event)
{
    // Arrows are the column's, which knows the order; a plain button would move the focus on its own.
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select)
        QAbstractButton::keyPressEvent(event);
    else
        event->ignore();
}

void NavigationEntry::resizeEvent(QResizeEvent* event)
{
    QAbstractButton::resizeEvent(event);
    describe();
}

bool NavigationEntry::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}

void NavigationEntry::describe()
{
    const bool cut = QFontMetrics(textFont()).horizontalAdvance(text()) > textRect().width();
    setToolTip(cut ? text() : QString());
    if (m_role == Role::Group)
        setAccessibleDescription(m_open ? tr("Group, open") : tr("Group, closed"));
    else
        setAccessibleDescription(m_current ? tr("Current page") : QString());
}

} // namespace vemo_base
