#pragma once

#include "ChannelDay.h"
#include "PlaybackSession.h"
#include "PlaybackTransport.h"

#include <QHash>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <array>
#include <memory>
#include <optional>

class QBoxLayout;
class QKeyEvent;

namespace vemo_client {

class VideoTileWt;
class VideoWallWt;

/// The tiles of the playback page and what plays on them: gives each channel a tile, shows the session's states in
/// words, takes keys and the transport's buttons, and fills the screen on demand. GUI thread; the transport belongs to
/// whoever gave it a place, and comes along when the screen is filled.
class PlaybackStage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackStage)

public:
    explicit PlaybackStage(QWidget* parent = nullptr);
    ~PlaybackStage() override;

    /// Has to be placed in a layout of its own.
    PlaybackTransport* transport() const { return m_transport; }
    PlaybackSession* session() { return &m_session; }

    /// All start anew, standing nowhere.
    void setDay(const vemo_base::DayAxis& day);
    /// The first four get a tile; those that have one keep it.
    void setChannels(const QVector<ChannelRef>& channels);
    void setSearching(const ChannelRef& channel);
    /// What a search told.
    void setFound(const ChannelDay& day, const Footage& footage);
    std::optional<ChannelRef> selectedChannel() const;
    /// Selects the channel's tile.
    void select(const ChannelRef& channel);

    /// Space, comma, period, arrows, brackets, S and F. False: the key means nothing here.
    bool takeKey(QKeyEvent* event);

signals:
    /// Play was pressed: what is not searched yet has to be.
    void signalPlayWanted();
    /// A person put a channel on a tile, in place of another one or of none.
    void signalChannelPlaced(const vemo_client::ChannelRef& channel,
                             const std::optional<vemo_client::ChannelRef>& before);
    void signalChannelClosed(const vemo_client::ChannelRef& channel);
    void signalTilesChanged();
    void signalSelectedChanged();
    /// A sentence about what the clock has just done.
    void signalTold(const QString& sentence);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void connectWall();
    void connectSession();
    void connectTransport();
    void setLayoutSingle(bool isSingle);
    void place(int tile, const ChannelRef& channel);
    void arrange();
    void showTransport();
    void showTile(int tile);
    void showBusy(int tile);
    void showStanding(int tile);
    void showGap(VideoTileWt* tile, const PlaybackSession::TileState& state);
    void showActions();
    void takeDecoder(int tile);
    void takeAction(int tile, const QString& id);
    void pressTileButton(int tile);
    void togglePlaying();
    void toggleFullScreen();
    QString nameOf(const ChannelRef& channel) const;

    PlaybackSession m_session;
    VideoWallWt* m_wall;
    PlaybackTransport* m_transport;
    QBoxLayout* m_transportHome = nullptr; ///< while the screen is filled
    std::unique_ptr<QWidget> m_screen;     ///< the same
    vemo_base::DayAxis m_day;
    std::optional<ChannelRef> m_placed; ///< goes to m_placedTile when it comes
    int m_placedTile = -1;
    QHash<QString, ChannelDay::State> m_searches; ///< by channel id
    QHash<QString, QString> m_problems;           ///< of searches that failed, by channel id
    std::array<QString, PlaybackSession::mostTiles> m_decoderProblems;
    std::array<QTimer, PlaybackSession::mostTiles> m_busyTimers; ///< short waits are not shown
};

} // namespace vemo_client

Q_DECLARE_METATYPE(std::optional<vemo_client::ChannelRef>)
