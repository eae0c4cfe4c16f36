#include "RecorderTreeDelegate.h"

#include <Icons.h>
#include <StylePainter.h>
#include <Theme.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace vemo_client {

namespace {

using vemo_base::Theme;
using vemo_base::Token;

constexpr int rowHeight = 30;
constexpr int iconExtent = 18;
constexpr int stateIconExtent = 14;
constexpr int boxExtent = 16;
constexpr int boxInset = 8; ///< the bar of the selected row stands ahead of it
constexpr int gap = 8;
constexpr int edge = 8;
constexpr int wordPixels = 12;

bool isChannel(const QModelIndex& index)
{
    return index.parent().isValid();
}

void toggle(QAbstractItemModel* model, const QModelIndex& index)
{
    const bool isChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model->setData(index, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

} // namespace

RecorderTreeDelegate::RecorderTreeDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{}

QRect RecorderTreeDelegate::boxRect(const QRect& row, Qt::LayoutDirection direction)
{
    return QStyle::visualRect(
        direction, row, QRect(row.x() + boxInset, row.y() + (row.height() - boxExtent) / 2, boxExtent, boxExtent));
}

QSize RecorderTreeDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return QSize(0, rowHeight);
}

void RecorderTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    painter->save();
    QApplication::style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &row, painter, row.widget);
    if (isChannel(index))
        paintChannel(painter, row, index);
    else
        paintRecorder(painter, row, index);
    if (row.state & QStyle::State_HasFocus && row.state & QStyle::State_KeyboardFocusChange)
        vemo_base::StylePainter::focusRingInside(painter, QRectF(row.rect).adjusted(1, 1, -1, -1), 4);
    painter->restore();
}

void RecorderTreeDelegate::paintRecorder(QPainter* painter, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const
{
    const Theme& theme = Theme::instance();
    const double ratio = painter->device()->devicePixelRatioF();
    const QRect row = option.rect;
    const auto mirrored = [&](const QRect& logical) { return QStyle::visualRect(option.direction, row, logical); };
    const int middle = row.y() + row.height() / 2;

    painter->drawPixmap(
        mirrored(QRect(row.x(), middle - iconExtent / 2, iconExtent, iconExtent)),
        vemo_base::Icons::pixmap(QStringLiteral("devices"), iconExtent, theme.color(Token::Text2), ratio));

    const QColor stateColor = theme.color(Token(index.data(StateColorRole).toInt()));
    const QString word = index.data(StateWordRole).toString();
    QFont small = option.font;
    small.setPixelSize(wordPixels);
    const int wordWidth = QFontMetrics(small).horizontalAdvance(word);
    const int wordX = row.right() + 1 - edge - wordWidth;
    painter->setFont(small);
    painter->setPen(stateColor);
    painter->drawText(mirrored(QRect(wordX, row.y(), wordWidth, row.height())), Qt::AlignVCenter, word);
    const int stateX = wordX - 4 - stateIconExtent;
    painter->drawPixmap(
        mirrored(QRect(stateX, middle - stateIconExtent / 2, stateIconExtent, stateIconExtent)),
        vemo_base::Icons::pixmap(index.data(StateIconRole).toString(), stateIconExtent, stateColor, ratio));

    const QRect nameRect(row.x() + iconExtent + gap, row.y(), stateX - gap - row.x() - iconExtent - gap, row.height());
    QFont strong = option.font;
    strong.setWeight(QFont::DemiBold);
    painter->setFont(strong);
    painter->setPen(theme.color(Token::Text));
    painter->drawText(mirrored(nameRect),
                      int(QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter),
                      QFontMetrics(strong).elidedText(option.text, Qt::ElideRight, nameRect.width()));
}

void RecorderTreeDelegate::paintChannel(QPainter* painter, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    const Theme& theme = Theme::instance();
    const QRect row = option.rect;
    const auto mirrored = [&](const QRect& logical) { return QStyle::visualRect(option.direction, row, logical); };

    const bool isChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    QStyle::State state = QStyle::State_Enabled | (isChecked ? QStyle::State_On : QStyle::State_Off);
    vemo_base::StylePainter::checkBox(painter, boxRect(row, option.direction), state, theme.mode());

    const int iconX = row.x() + boxInset + boxExtent + gap;
    const Token iconColor = isChecked ? Token::AccentText : Token::Text2;
    painter->drawPixmap(mirrored(QRect(iconX, row.y() + (row.height() - iconExtent) / 2, iconExtent, iconExtent)),
                        vemo_base::Icons::pixmap(QStringLiteral("camera"), iconExtent, theme.color(iconColor),
                                                 painter->device()->devicePixelRatioF()));
    const int nameX = iconX + iconExtent + gap;
    const QRect nameRect(nameX, row.y(), row.right() + 1 - edge - nameX, row.height());
    painter->setFont(option.font);
    painter->setPen(theme.color(Token::Text));
    painter->drawText(mirrored(nameRect),
                      int(QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter),
                      QFontMetrics(option.font).elidedText(option.text, Qt::ElideRight, nameRect.width()));
}

bool RecorderTreeDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                       const QModelIndex& index)
{
    if (!isChannel(index))
        return false;
    if (event->type() == QEvent::KeyPress && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Space) {
        toggle(model, index);
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<const QMouseEvent*>(event);
        const QRect reach = boxRect(option.rect, option.direction).adjusted(-4, -8, 4, 8);
        if (mouse->button() == Qt::LeftButton && reach.contains(mouse->pos())) {
            toggle(model, index);
            return true;
        }
    }
    return false;
}

} // namespace vemo_client
