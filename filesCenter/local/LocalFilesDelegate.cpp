#include "LocalFilesDelegate.h"

#include "FileIconProvider.h"

#include <PlainToolTips.h>
#include <StylePainter.h>

#include <QAbstractItemView>
#include <QFileSystemModel>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>
#include <QWidget>

namespace vemo_filesCenter {

using vemo_base::StylePainter;
using vemo_base::ThemeMode;
using vemo_base::Thumbnail;
using vemo_base::Token;

namespace {

constexpr int sideMargin = 8;
constexpr int edgeMargin = 4;
constexpr int pictureTop = 10;
constexpr int pictureGap = 6;
constexpr int textInset = 8;
constexpr int namePixels = 12;
constexpr int lineHeight = 16;
constexpr double radius = 8;
constexpr double pictureRadius = 4;
constexpr QPoint tipOffset{2, 4}; // the system moves a tip further off, by the pointer's size
constexpr int badgeExtent = 26;
constexpr double badgeGround = 0.72;

QString shownName(const QString& name)
{
    QString shown = name;
    for (QChar& character : shown) {
        if (character.category() == QChar::Other_Control || character.category() == QChar::Other_Format)
            character = QChar::ReplacementCharacter;
    }
    return shown;
}

/// Tells a recording's picture from an image.
void paintPlayBadge(QPainter* painter, const QPointF& middle)
{
    QRectF circle(0, 0, badgeExtent, badgeExtent);
    circle.moveCenter(middle);
    QColor ground = themeColor(ThemeMode::Dark, Token::Well);
    ground.setAlphaF(badgeGround);
    StylePainter::box(painter, circle, badgeExtent / 2.0, ground, Qt::transparent, 0);
    QPainterPath triangle;
    const double size = badgeExtent / 4.0;
    triangle.moveTo(middle + QPointF(-size * 0.7, -size));
    triangle.lineTo(middle + QPointF(size, 0));
    triangle.lineTo(middle + QPointF(-size * 0.7, size));
    triangle.closeSubpath();
    painter->fillPath(triangle, themeColor(ThemeMode::Dark, Token::Text));
}

} // namespace

LocalFilesDelegate::LocalFilesDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{}

vemo_base::ThumbnailKey LocalFilesDelegate::thumbnailKey(const QString& path, double ratio)
{
    return {path, pictureBox * ratio, vemo_base::PictureFit::Whole};
}

QSize LocalFilesDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return cellSize;
}

QStringList LocalFilesDelegate::nameLines(const QString& name, const QFontMetrics& metrics, int width)
{
    const QString text = shownName(name);
    if (metrics.horizontalAdvance(text) <= width)
        return {text};
    // The break that leaves the first line whole or, where there is none, the second one.
    int at = -1;
    for (int space = text.indexOf(QLatin1Char(' ')); space > 0; space = text.indexOf(QLatin1Char(' '), space + 1)) {
        const bool firstFits = metrics.horizontalAdvance(text.left(space)) <= width;
        const bool secondFits = metrics.horizontalAdvance(text.mid(space + 1)) <= width;
        if (secondFits && (firstFits || at < 0))
            at = space;
        if (!firstFits)
            break;
    }
    if (at < 0)
        at = text.lastIndexOf(QLatin1Char(' '));
    if (at > 0 && metrics.horizontalAdvance(text.mid(at + 1)) <= width)
        return {metrics.elidedText(text.left(at), Qt::ElideMiddle, width), text.mid(at + 1)};
    int fits = text.size();
    while (fits > 1 && metrics.horizontalAdvance(text.left(fits)) > width)
        fits = fits * width / metrics.horizontalAdvance(text.left(fits)) < fits
                   ? fits * width / metrics.horizontalAdvance(text.left(fits))
                   : fits - 1;
    return {text.left(fits), metrics.elidedText(text.mid(fits), Qt::ElideMiddle, width)};
}

bool LocalFilesDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                   const QModelIndex& index)
{
    if (!index.isValid() || event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QPoint below = view->viewport()->mapToGlobal(option.rect.bottomLeft() + QPoint(sideMargin, -edgeMargin));
    const QString name = vemo_base::PlainToolTips::shown(index.data(Qt::ToolTipRole).toString());
    QToolTip::showText(below - tipOffset, name, view->viewport(), option.rect);
    return true;
}

void LocalFilesDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const ThemeMode mode = StylePainter::modeOf(option.palette);
    QRect cell(option.rect.topLeft(), cellSize);
    cell.moveCenter(option.rect.center());
    cell.adjust(sideMargin, edgeMargin, -sideMargin, -edgeMargin);
    const bool isSelected = option.state & QStyle::State_Selected;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isSelected) {
        StylePainter::box(painter, cell, radius, themeColor(mode, Token::Select), themeColor(mode, Token::AccentText));
    } else if (option.state & QStyle::State_MouseOver) {
        StylePainter::box(painter, cell, radius, themeColor(mode, Token::Hover), Qt::transparent, 0);
    }
    QRect place(QPoint(), pictureBox);
    place.moveCenter(cell.center());
    place.moveTop(cell.top() + pictureTop);
    paintPicture(painter, place, option, index);

    QFont font = option.font;
    font.setPixelSize(namePixels);
    painter->setFont(font);
    painter->setPen(themeColor(mode, Token::Text));
    const QStringList lines = nameLines(index.data(QFileSystemModel::FileNameRole).toString(), QFontMetrics(font),
                                        cell.width() - 2 * textInset);
    QRect line(cell.left() + textInset, place.bottom() + 1 + pictureGap, cell.width() - 2 * textInset, lineHeight);
    for (const QString& text : lines) {
        painter->drawText(line, Qt::AlignCenter | Qt::TextSingleLine, text);
        line.translate(0, lineHeight);
    }
    const auto* view = qobject_cast<const QWidget*>(option.widget);
    if ((option.state & QStyle::State_HasFocus) && view && view->property("keyboardFocus").toBool())
        StylePainter::focusRingInside(painter, cell, radius);
    painter->restore();
}

void LocalFilesDelegate::paintPicture(QPainter* painter, const QRect& place, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    const QString path = index.data(QFileSystemModel::FilePathRole).toString();
    const double ratio = option.widget ? option.widget->devicePixelRatioF() : 1;
    const Thumbnail thumbnail = vemo_base::Thumbnails::instance().find(thumbnailKey(path, ratio));
    if (thumbnail.state != Thumbnail::State::Ready) {
        QRect icon(QPoint(), iconSize);
        icon.moveCenter(place.center());
        index.data(Qt::DecorationRole).value<QIcon>().paint(painter, icon);
        return;
    }
    QRectF picture(QPointF(), QSizeF(thumbnail.image.size()) / ratio);
    picture.moveCenter(QRectF(place).center());
    picture.moveTopLeft({qRound(picture.left() * ratio) / ratio, qRound(picture.top() * ratio) / ratio});
    QPainterPath shape;
    shape.addRoundedRect(picture, pictureRadius, pictureRadius);
    QBrush brush(thumbnail.image);
    brush.setTransform(QTransform::fromTranslate(picture.left(), picture.top()).scale(1 / ratio, 1 / ratio));
    painter->fillPath(shape, brush);
    if (FileIconProvider::isRecording(path))
        paintPlayBadge(painter, picture.center());
}

} // namespace vemo_filesCenter
