#include "VideoWallWt.h"

#include "VideoTileWt.h"

#include <Theme.h>

#include <QKeyEvent>
#include <QPainter>

namespace vemo_client {

namespace {

constexpr int gap = 4;
constexpr int margin = 4;

} // namespace

VideoWallWt::VideoWallWt(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("videoWall"));
    setPalette(vemo_base::Theme::palette(vemo_base::ThemeMode::Dark));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    for (int i = 0; i < mostTiles; ++i) {
        auto* tile = new VideoTileWt(this);
        m_tiles.append(tile);
        connect(tile, &VideoTileWt::signalSelected, this, [this, i] { setSelected(i); });
        connect(tile, &VideoTileWt::signalDoubleClicked, this, [this, i] { setEnlarged(m_enlarged == i ? -1 : i); });
        connect(tile, &VideoTileWt::signalAction, this, [this, i](const QString& id) { emit signalAction(i, id); });
        connect(tile, &VideoTileWt::signalButtonClicked, this, [this, i] { emit signalButtonClicked(i); });
        connect(tile, &VideoTileWt::signalContextMenuWanted, this,
                [this, i](const QPoint& position) { emit signalContextMenuWanted(i, position); });
        connect(tile, &VideoTileWt::signalChannelDropped, this, [this, i](const ChannelRef& channel, QWidget* source) {
            const int from = source ? m_tiles.indexOf(qobject_cast<VideoTileWt*>(source)) : -1;
            if (from < 0)
                emit signalChannelDropped(i, channel);
            else if (from != i)
                emit signalTilesSwapped(from, i);
            setSelected(i);
        });
    }
    m_tiles.at(0)->setSelected(true);
    arrange();
}

int VideoWallWt::edge() const
{
    return m_count == 9 ? 3 : m_count == 4 ? 2 : 1;
}

void VideoWallWt::setTileCount(int count)
{
    if (count == m_count && m_enlarged < 0)
        return;
    m_count = count;
    m_enlarged = -1;
    if (m_selected >= m_count)
        setSelected(0);
    arrange();
    emit signalLayoutChanged();
}

void VideoWallWt::setSelected(int index)
{
    if (index == m_selected || index < 0 || index >= m_count)
        return;
    m_tiles.at(m_selected)->setSelected(false);
    const bool hadFocus = m_tiles.at(m_selected)->hasFocus();
    m_selected = index;
    m_tiles.at(m_selected)->setSelected(true);
    if (hadFocus)
        m_tiles.at(m_selected)->setFocus(Qt::OtherFocusReason);
    emit signalSelectedChanged(index);
}

void VideoWallWt::setEnlarged(int index)
{
    if (index == m_enlarged || index >= m_count || (m_count == 1 && index >= 0))
        return;
    m_enlarged = index;
    if (index >= 0)
        setSelected(index);
    arrange();
    emit signalLayoutChanged();
}

void VideoWallWt::arrange()
{
    const int cells = m_enlarged >= 0 ? 1 : edge();
    const int across = width() - 2 * margin - (cells - 1) * gap;
    const int down = height() - 2 * margin - (cells - 1) * gap;
    for (int i = 0; i < m_tiles.size(); ++i) {
        VideoTileWt* tile = m_tiles.at(i);
        const bool shown = m_enlarged >= 0 ? i == m_enlarged : i < m_count;
        if (shown) {
            const int column = m_enlarged >= 0 ? 0 : i % cells;
            const int row = m_enlarged >= 0 ? 0 : i / cells;
            // Both edges from the same division: no seam wanders.
            const int left = margin + column * gap + across * column / cells;
            const int right = margin + column * gap + across * (column + 1) / cells;
            const int top = margin + row * gap + down * row / cells;
            const int bottom = margin + row * gap + down * (row + 1) / cells;
            tile->setGeometry(left, top, qMax(1, right - left), qMax(1, bottom - top));
        }
        tile->setVisible(shown);
    }
}

void VideoWallWt::moveSelection(int columns, int rows)
{
    if (m_enlarged >= 0) {
        const int next = m_enlarged + columns + rows * edge();
        if (next >= 0 && next < m_count) {
            setEnlarged(next);
            m_tiles.at(next)->setFocus(Qt::TabFocusReason);
        }
        return;
    }
    const int column = m_selected % edge() + columns;
    const int row = m_selected / edge() + rows;
    if (column < 0 || column >= edge() || row < 0 || row >= edge())
        return;
    setSelected(row * edge() + column);
    m_tiles.at(m_selected)->setFocus(Qt::TabFocusReason);
}

void VideoWallWt::keyPressEvent(QKeyEvent* event)
{
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveSelection(-forward, 0);
    case Qt::Key_Right:
        return moveSelection(forward, 0);
    case Qt::Key_Up:
        return moveSelection(0, -1);
    case Qt::Key_Down:
        return moveSelection(0, 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return setEnlarged(m_enlarged >= 0 ? -1 : m_selected);
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        emit signalRemoveWanted(m_selected);
        return;
    case Qt::Key_Escape:
        if (m_enlarged >= 0)
            return setEnlarged(-1);
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void VideoWallWt::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), vemo_base::themeColor(vemo_base::ThemeMode::Dark, vemo_base::Token::Well));
}

void VideoWallWt::resizeEvent(QResizeEvent*)
{
    arrange();
}

} // namespace vemo_client
