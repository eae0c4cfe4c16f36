#pragma once

#include "ChannelPlayer.h"
#include "Footage.h"
#include "FrameBudget.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>
#include <optional>
#include <vector>

namespace vemo_client {

/// Plays a day of up to four channels, each on a tile. While they are in step one clock moves them all, and what is
/// done is done to all of them; otherwise each has a clock of its own, and what is done is done to the selected one.
///
/// A clock never runs ahead of the pictures: it waits while a channel that should have some has none, up to eight
/// seconds, then goes on without it. A channel without footage at the time is left out; when none has any the clock
/// jumps to where the next footage begins. It stops behind the last footage of the day. GUI thread; all that takes time
/// is done elsewhere. Times are ms since 1970 UTC.
class PlaybackSession final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(PlaybackSession)

public:
    static constexpr int mostTiles = 4;

    /// What a tile is to show.
    struct TileState
    {
        enum class Kind : int { Empty = 0, Searching, Standing, Busy, Picture, Gap, Broken, Failed };

        Kind kind = Kind::Empty;
        vemo_base::TimeSpan gap; ///< with Gap
        bool hasNext = false;    ///< with Gap: there is footage behind it
        QString problem;         ///< with Broken and Failed, one sentence

        bool operator==(const TileState& other) const
        {
            return kind == other.kind && gap == other.gap && hasNext == other.hasNext && problem == other.problem;
        }
    };

    explicit PlaybackSession(QObject* parent = nullptr);
    ~PlaybackSession() override;

    /// Everything stops; channels stay without footage until it is told.
    void setDay(const vemo_base::DayAxis& day);
    void setChannel(int tile, const std::optional<ChannelRef>& channel);
    std::optional<ChannelRef> channel(int tile) const;
    /// -1: it is on no tile.
    int tileOf(const ChannelRef& channel) const;
    void swapTiles(int a, int b);
    /// Nothing: not known yet.
    void setFootage(const ChannelRef& channel, const std::optional<Footage>& footage);
    void select(int tile);
    int selected() const { return m_selected; }

    /// From where it stands, or from the first footage when it stands nowhere.
    void play();
    void pause();
    void seek(qint64 ms);
    void skip(int seconds);
    /// One picture of the selected channel on or back; it stands then.
    void stepForward();
    void stepBack();
    void setSpeed(double speed);
    void setInStep(bool inStep);
    /// Again after a failure.
    void retry(int tile);
    /// Lets go of all streams, as when nobody looks; play() and seek() take them up again.
    void rest();

    bool isPlaying() const { return addressed().isPlaying; }
    bool isInStep() const { return m_isInStep; }
    double speed() const { return addressed().speed; }
    /// Of the clock that is addressed; 0: it stands nowhere yet.
    qint64 positionMs() const { return addressed().positionUs / 1000; }
    TileState state(int tile) const { return m_lanes.at(size_t(tile)).state; }
    StreamDecoder* decoder(int tile) const;

signals:
    void signalPosition(qint64 ms);
    /// Playing, speed, in step.
    void signalChanged();
    void signalTileChanged(int tile);
    /// Another decoder, or none.
    void signalDecoderChanged(int tile);
    /// None of the channels had footage in between.
    void signalJumped(qint64 fromMs, qint64 toMs);
    /// Behind the last footage.
    void signalEnded();

private:
    struct Run
    {
        qint64 positionUs = 0;
        double speed = 1;
        bool isPlaying = false;
        bool isHeld = false; ///< waits for pictures
        QElapsedTimer held;
    };

    struct Lane
    {
        std::unique_ptr<ChannelPlayer> player; ///< null: an empty tile
        std::optional<Footage> footage;
        Run run; ///< while not in step
        TileState state;
        bool isActive = false; ///< takes part since play() or seek()
        bool isLate = false;   ///< the clock goes on without it
        bool steps = false;    ///< the next picture moves the clock
    };

    Run& addressed() { return m_isInStep ? m_common : m_lanes[size_t(m_selected)].run; }
    const Run& addressed() const { return m_isInStep ? m_common : m_lanes.at(size_t(m_selected)).run; }
    Run& runOf(int tile) { return m_isInStep ? m_common : m_lanes[size_t(tile)].run; }
    /// The tiles that are moved by the same clock as the selected one.
    QVector<int> addressedTiles() const;

    void tick();
    void advance(Run& run, const QVector<int>& tiles, qint64 elapsedUs);
    void place(Run& run, const QVector<int>& tiles, qint64 positionUs);
    void seekUs(qint64 us);
    std::optional<qint64> firstFootage(const QVector<int>& tiles, qint64 fromMs) const;
    bool hasFootage(int tile, qint64 ms) const;
    bool isDry(int tile, qint64 ms, qint64 reserveMs) const;
    bool isDrained(int tile, qint64 ms) const;
    bool holds(Run& run, const QVector<int>& tiles, qint64 ms);
    void feed(int tile, qint64 ms, double speed);
    void jumpOrEnd(Run& run, const QVector<int>& tiles);
    void open(int tile, qint64 fromMs);
    void openWanted();
    void showState(int tile);
    void showStates();
    void takePicture(int tile);
    /// OnlyLess: what is measured wavers, and every change costs a moment.
    enum class Change : int { Any = 0, OnlyLess };
    void chooseFrames(Change change);
    void setPlaying(Run& run, bool playing);

    vemo_base::DayAxis m_day;
    std::vector<Lane> m_lanes{mostTiles};
    FrameBudget m_budget;
    FrameThinner::Keep m_keep = FrameThinner::Keep::All;
    Run m_common;
    bool m_isInStep = true;
    int m_selected = 0;
    QTimer m_tickTimer;
    QTimer m_seekTimer; ///< streams follow a seek after a moment
    QElapsedTimer m_sinceTick;
};

} // namespace vemo_client
