#include "NoticeDelegate.h"

#include "NoticesModel.h"

#include <Icons.h>
#include <NoticeFace.h>
#include <StylePainter.h>

#include <QAbstractItemView>
#include <QPainter>

namespace vemo_client {

namespace {

using vemo_base::NoticeFace;
using vemo_base::StylePainter;
using vemo_base::ThemeMode;
using vemo_base::Token;

constexpr int inset = 16;
constexpr int above = 12;
constexpr int iconExtent = 18;
constexpr int iconGap = 12;
constexpr int gap = 16;
constexpr int lineGap = 4;
constexpr int captionPixels = 12;
constexpr int selectionBar = 3;
constexpr int wordWrap = Qt::TextWordWrap | Qt::TextWrapAnywhere;
constexpr int unlimited = 10000;

QFont strong(QFont font)
{
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont caption(QFont font)
{
    font.setPixelSize(captionPixels);
    return font;
}

} // namespace

/// Leading to trailing, to be mirrored where it is drawn.
struct NoticeDelegate::Layout
{
    QRect icon;
    QRect title;
    QRect time;
    QRect text;
    QVector<QRect> actions;
    int height = 0;
};

NoticeDelegate::NoticeDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{}

NoticeDelegate::Layout NoticeDelegate::layOut(const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->viewport()->width() : option.rect.width();
    const QPoint corner = option.rect.topLeft();
    const QFontMetrics titleMetrics(strong(option.font));
    const QFontMetrics captionMetrics(caption(option.font));

    Layout layout;
    layout.icon = QRect(inset, above, iconExtent, iconExtent);
    const int left = inset + iconExtent + iconGap;
    const int timeWidth = captionMetrics.horizontalAdvance(index.data(NoticesModel::TimeRole).toString());
    layout.time = QRect(width - inset - timeWidth, above, timeWidth, titleMetrics.height());
    const QRect titleRoom(left, above, layout.time.left() - gap - left, unlimited);
    layout.title = QRect(
        titleRoom.topLeft(),
        QSize(titleRoom.width(), titleMetrics.boundingRect(titleRoom, wordWrap, index.data().toString()).height()));
    int bottom = layout.title.bottom() + 1;
    const QString text = index.data(NoticesModel::TextRole).toString();
    if (!text.isEmpty()) {
        const QRect room(left, bottom + lineGap, width - inset - left, unlimited);
        layout.text =
            QRect(room.topLeft(), QSize(room.width(), captionMetrics.boundingRect(room, wordWrap, text).height()));
        bottom = layout.text.bottom() + 1;
    }
    int x = left;
    const QStringList actions = index.data(NoticesModel::ActionsRole).toStringList();
    for (const QString& words : actions) {
        layout.actions.append(
            QRect(x, bottom + 2 * lineGap, titleMetrics.horizontalAdvance(words), titleMetrics.height()));
        x = layout.actions.last().right() + 1 + gap;
    }
    if (!actions.isEmpty())
        bottom = layout.actions.last().bottom() + 1;
    layout.height = bottom + above;
    const QRect row(corner, QSize(width, layout.height));
    const auto place = [&option, &row, corner](QRect* rect) {
        *rect = QStyle::visualRect(option.direction, row, rect->translated(corner));
    };
    for (QRect* rect : {&layout.icon, &layout.title, &layout.time, &layout.text})
        place(rect);
    for (QRect& rect : layout.actions)
        place(&rect);
    return layout;
}

void NoticeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const ThemeMode mode = StylePainter::modeOf(option.palette);
    const bool isCurrent = option.state & QStyle::State_Selected;
    const bool isHovered = option.state & QStyle::State_MouseOver;
    if (isCurrent || isHovered)
        painter->fillRect(option.rect, vemo_base::themeColor(mode, isCurrent ? Token::Select : Token::Hover));
    if (isCurrent) {
        const QRect bar(option.rect.x(), option.rect.y(), selectionBar, option.rect.height());
        painter->fillRect(QStyle::visualRect(option.direction, option.rect, bar),
                          vemo_base::themeColor(mode, Token::AccentText));
    }
    StylePainter::hairline(painter, option.rect, Qt::BottomEdge, mode);

    const Layout layout = layOut(option, index);
    const NoticeFace face =
        NoticeFace::of(static_cast<vemo_base::Notice::Kind>(index.data(NoticesModel::KindRole).toInt()));
    painter->drawPixmap(layout.icon,
                        vemo_base::Icons::pixmap(face.icon, iconExtent, vemo_base::themeColor(mode, face.token),
                                                 painter->device()->devicePixelRatioF()));
    const int leading = static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) | Qt::AlignTop;
    const auto write = [painter, mode](const QFont& font, Token token, const QRect& room, int flags,
                                       const QString& words) {
        painter->setFont(font);
        painter->setPen(vemo_base::themeColor(mode, token));
        painter->drawText(room, flags, words);
    };
    write(strong(option.font), Token::Text, layout.title, leading | wordWrap, index.data().toString());
    write(caption(option.font), Token::Text2, layout.time, leading | Qt::AlignVCenter,
          index.data(NoticesModel::TimeRole).toString());
    write(caption(option.font), Token::Text2, layout.text, leading | wordWrap,
          index.data(NoticesModel::TextRole).toString());
    const QStringList actions = index.data(NoticesModel::ActionsRole).toStringList();
    for (int i = 0; i < actions.size(); ++i)
        write(strong(option.font), Token::AccentText, layout.actions.at(i), leading | Qt::TextSingleLine,
              actions.at(i));
}

QSize NoticeDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {option.rect.width(), layOut(option, index).height};
}

int NoticeDelegate::actionAt(const QStyleOptionViewItem& option, const QModelIndex& index, const QPoint& position) const
{
    const Layout layout = layOut(option, index);
    for (int i = 0; i < layout.actions.size(); ++i) {
        if (layout.actions.at(i).contains(position))
            return i;
    }
    return -1;
}

} // namespace vemo_client
