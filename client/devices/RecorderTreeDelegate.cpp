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
    return index.data(RecorderTreeDelegate::ChannelNoRole).isValid();
}

bool isRecorder(const QModelIndex& index)
{
    return index.data(RecorderTreeDelegate::DevIdRole).isValid();
}

bool hasBox(const QModelIndex& index)
{
    return index.flags() & Qt::ItemIsUserCheckable;
}

void paintName(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect)
{
    painter->drawText(rect, int(QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter),
                      painter->fontMetrics().elidedText(option.text, Qt::ElideRight, rect.width()));
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
    else if (isRecorder(index))
        paintRecorder(painter, row, index);
    else
        paintGroup(painter, row);
    if (row.state & QStyle::State_HasFocus && row.state & QStyle::State_KeyboardFocusChange)
        vemo_base::StylePainter::focusRingInside(painter, QRectF(row.rect).adjusted(1, 1, -1, -1), 4);
    painter->restore();
}

void RecorderTreeDelegate::paintGroup(QPainter* painter, const QStyleOptionViewItem& option) const
{
    QFont strong = option.font;
    strong.setPixelSize(wordPixels);
    strong.setWeight(QFont::DemiBold);
    painter->setFont(strong);
    painter->setPen(Theme::instance().color(Token::Text2));
    paintName(painter, option,
              QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(edge / 2, 0, -edge, 0)));
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
    paintName(painter, option, mirrored(nameRect));
}

void RecorderTreeDelegate::paintChannel(QPainter* painter, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    const Theme& theme = Theme::instance();
    const QRect row = option.rect;
    const auto mirrored = [&](const QRect& logical) { return QStyle::visualRect(option.direction, row, logical); };

    const double ratio = painter->device()->devicePixelRatioF();
    const bool isUsable = index.flags() & Qt::ItemIsEnabled;
    const bool isChecked = hasBox(index) && index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    const bool isActive = index.data(ActiveRole).toBool();
    int x = row.x() + boxInset;
    if (hasBox(index)) {
        const QStyle::State state = QStyle::State_Enabled | (isChecked ? QStyle::State_On : QStyle::State_Off);
        vemo_base::StylePainter::checkBox(painter, boxRect(row, option.direction), state, theme.mode());
        x += boxExtent + gap;
    }
    const auto icon = [&](const QString& name, int iconX, int extent, Token color) {
        painter->drawPixmap(mirrored(QRect(iconX, row.y() + (row.height() - extent) / 2, extent, extent)),
                            vemo_base::Icons::pixmap(name, extent, theme.color(color), ratio));
    };
    icon(QStringLiteral("camera"), x, iconExtent, isChecked || isActive ? Token::AccentText : Token::Text2);
    x += iconExtent + gap;
    int end = row.right() + 1 - edge;
    if (isActive) {
        end -= stateIconExtent;
        icon(QStringLiteral("start"), end, stateIconExtent, Token::AccentText);
        end -= gap;
    }
    painter->setFont(option.font);
    painter->setPen(theme.color(isUsable ? Token::Text : Token::Text2));
    paintName(painter, option, mirrored(QRect(x, row.y(), end - x, row.height())));
}

bool RecorderTreeDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                       const QModelIndex& index)
{
    if (!isChannel(index) || !hasBox(index))
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
