#pragma once

#include "VideoPicture.h"

#include <QFont>
#include <QRect>

class QPainter;

namespace vemo_client {

/// What a tile shows; see VideoTileWt.
struct TileFace
{
    enum class State : int { Picture = 0, Busy, Message };

    VideoPicture picture;
    QSize shape; ///< proportions of the picture; empty: those of its image
    QString title;
    QString clockText;
    QString formatText;
    QString recordingText;
    QString note;
    State state = State::Picture;
    QString stateIcon;
    QString stateText;
    int ringDegrees = 0;
    bool isSelected = false;
    bool isFocused = false;
    bool isDropTarget = false;
    bool isMirrored = false; ///< right to left
};

/// Geometry and painting of a tile: what lies where follows from the tile's rectangle and its face alone. GUI thread.
class TilePainter final
{
public:
    TilePainter(const TileFace& face, const QRect& tile, const QFont& font, qreal ratio)
        : m_face(face)
        , m_tile(tile)
        , m_font(font)
        , m_ratio(ratio)
    {}

    void paint(QPainter* painter) const;

    /// The room for a picture.
    QRect videoRect() const;
    /// The picture itself; videoRect() while there is none.
    QRect pictureRect() const;
    QRect formatRect() const;
    QRect ringRect() const;
    /// Where the buttons are put: beside the badge, which never moves, or below it where there is no room.
    QRect barRect(const QSize& bar) const;
    QRect buttonRect(const QSize& button) const;
    /// State, icon and words together; the button comes below.
    QRect messageRect() const;

private:
    QFont strongFont() const;
    QFont smallFont() const;
    QRect badgeRect() const;
    QRect textRect() const;
    QRect mirrored(const QRect& rect) const;
    void paintTexts(QPainter* painter) const;
    void paintBadge(QPainter* painter) const;
    void paintState(QPainter* painter) const;
    void paintNote(QPainter* painter) const;

    const TileFace& m_face;
    const QRect m_tile;
    const QFont m_font;
    const qreal m_ratio;
};

} // namespace vemo_client
