#pragma once

#include "devices/ChannelRef.h"

#include <QVector>
#include <QWidget>

namespace vemo_client {

class VideoTileWt;

/// Tiles in a grid of 1, 4 or 9, one of them selected, and one that may be enlarged to all of the room. All nine exist
/// from the first time that they are asked for; those beyond the grid are hidden and keep what they show. Arrows move
/// the selection, Enter or a double click enlarges the selected tile and back. GUI thread.
class VideoWallWt final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VideoWallWt)

public:
    static constexpr int mostTiles = 9;

    explicit VideoWallWt(QWidget* parent = nullptr);

    /// 1, 4 or 9; the selection moves into the grid.
    void setTileCount(int count);
    int tileCount() const { return m_count; }
    /// `index` below mostTiles.
    VideoTileWt* tile(int index) const { return m_tiles.at(index); }
    int selected() const { return m_selected; }
    void setSelected(int index);
    /// -1: none.
    int enlarged() const { return m_enlarged; }
    void setEnlarged(int index);

signals:
    void signalSelectedChanged(int index);
    /// Number of tiles or the enlarged one.
    void signalLayoutChanged();
    void signalAction(int index, const QString& id);
    void signalButtonClicked(int index);
    void signalContextMenuWanted(int index, const QPoint& globalPosition);
    /// Delete or Backspace on the selected tile.
    void signalRemoveWanted(int index);
    /// A channel came from outside of the wall.
    void signalChannelDropped(int index, const vemo_client::ChannelRef& channel);
    /// A tile was dragged onto another.
    void signalTilesSwapped(int from, int to);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();
    void moveSelection(int columns, int rows);
    int edge() const;

    QVector<VideoTileWt*> m_tiles;
    int m_count = 4;
    int m_selected = 0;
    int m_enlarged = -1;
};

} // namespace vemo_client
