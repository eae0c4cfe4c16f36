#include "PlaybackSession.h"

#include <QThread>

#include <algorithm>
#include <utility>

namespace vemo_client {

using vemo_base::DayAxis;
using vemo_base::TimeSpan;
using Kind = PlaybackSession::TileState::Kind;
using PlayerState = ChannelPlayer::State;

namespace {

constexpr int tickMs = 15;
constexpr qint64 usAMs = 1000;
constexpr qint64 mostTickUs = 300 * usAMs; ///< a stall of the window does not make footage jump
constexpr int seekMs = 80;
/// The clock goes on when the pictures are so far ahead of it again.
constexpr qint64 reserveMs = 80;
constexpr qint64 mostHeldMs = 8000;
/// A stream is opened so long before the end of a gap, and let go in a gap longer than that.
constexpr qint64 aheadMs = 10'000;
constexpr qint64 longGapMs = 60'000;
/// A stream that ends although there is footage is opened again that much later.
constexpr qint64 againMs = 2000;
constexpr double usualFps = 25;

} // namespace

PlaybackSession::PlaybackSession(QObject* parent)
    : QObject(parent)
{
    m_tickTimer.setTimerType(Qt::PreciseTimer);
    m_tickTimer.setInterval(tickMs);
    connect(&m_tickTimer, &QTimer::timeout, this, &PlaybackSession::tick);
    m_seekTimer.setSingleShot(true);
    m_seekTimer.setInterval(seekMs);
    connect(&m_seekTimer, &QTimer::timeout, this, &PlaybackSession::openWanted);
}

PlaybackSession::~PlaybackSession() = default;

void PlaybackSession::setDay(const DayAxis& day)
{
    m_day = day;
    m_seekTimer.stop();
    m_common = Run{0, m_common.speed, false, false, {}};
    for (int tile = 0; tile < mostTiles; ++tile) {
        Lane& lane = m_lanes[size_t(tile)];
        if (lane.player)
            lane.player->close();
        lane.footage.reset();
        lane.run = m_common;
        lane.isActive = false;
        showState(tile);
    }
    m_tickTimer.stop();
    emit signalPosition(0);
    emit signalChanged();
}

void PlaybackSession::setChannel(int tile, const std::optional<ChannelRef>& channel)
{
    if (channel == this->channel(tile))
        return;
    Lane& lane = m_lanes[size_t(tile)];
    const std::unique_ptr<ChannelPlayer> before = std::exchange(lane.player, nullptr);
    lane.footage.reset();
    lane.isLate = false;
    lane.steps = false;
    lane.isActive = m_isInStep && m_common.positionUs > 0;
    m_budget.reset();
    if (channel) {
        lane.player = std::make_unique<ChannelPlayer>(*channel);
        ChannelPlayer* player = lane.player.get();
        player->setKeep(m_keep);
        player->setClockUs(runOf(tile).positionUs);
        const auto shown = [this, player](void (PlaybackSession::*show)(int)) {
            const int at = tileOf(player->channel());
            if (at >= 0)
                (this->*show)(at);
        };
        connect(player, &ChannelPlayer::signalStateChanged, this, [shown] { shown(&PlaybackSession::showState); });
        connect(player, &ChannelPlayer::signalPicture, this, [shown] { shown(&PlaybackSession::takePicture); });
        connect(player->decoder(), &StreamDecoder::signalFormat, this, [this] { chooseFrames(Change::OnlyLess); });
    }
    emit signalDecoderChanged(tile);
    showState(tile);
}

std::optional<ChannelRef> PlaybackSession::channel(int tile) const
{
    const Lane& lane = m_lanes.at(size_t(tile));
    return lane.player ? std::optional<ChannelRef>(lane.player->channel()) : std::nullopt;
}

int PlaybackSession::tileOf(const ChannelRef& channel) const
{
    for (int tile = 0; tile < mostTiles; ++tile) {
        if (this->channel(tile) == channel)
            return tile;
    }
    return -1;
}

void PlaybackSession::swapTiles(int a, int b)
{
    std::swap(m_lanes[size_t(a)], m_lanes[size_t(b)]);
    for (const int tile : {a, b}) {
        emit signalDecoderChanged(tile);
        emit signalTileChanged(tile);
    }
}

StreamDecoder* PlaybackSession::decoder(int tile) const
{
    const Lane& lane = m_lanes.at(size_t(tile));
    return lane.player ? lane.player->decoder() : nullptr;
}

void PlaybackSession::setFootage(const ChannelRef& channel, const std::optional<Footage>& footage)
{
    const int tile = tileOf(channel);
    if (tile < 0)
        return;
    Lane& lane = m_lanes[size_t(tile)];
    lane.footage = footage;
    const Run& run = runOf(tile);
    if (lane.isActive && run.positionUs > 0 && !m_seekTimer.isActive())
        feed(tile, run.positionUs / usAMs, run.speed);
    showState(tile);
}

void PlaybackSession::select(int tile)
{
    if (tile == m_selected || tile < 0 || tile >= mostTiles)
        return;
    m_selected = tile;
    if (!m_isInStep) {
        emit signalPosition(positionMs());
        emit signalChanged();
    }
}

QVector<int> PlaybackSession::addressedTiles() const
{
    QVector<int> tiles;
    for (int tile = 0; tile < mostTiles; ++tile) {
        if (m_lanes.at(size_t(tile)).player && (m_isInStep || tile == m_selected))
            tiles.append(tile);
    }
    return tiles;
}

void PlaybackSession::setPlaying(Run& run, bool playing)
{
    run.isPlaying = playing;
    run.isHeld = false;
    const bool any = m_common.isPlaying ||
                     std::any_of(m_lanes.cbegin(), m_lanes.cend(), [](const Lane& lane) { return lane.run.isPlaying; });
    if (any && !m_tickTimer.isActive()) {
        m_sinceTick.start();
        m_tickTimer.start();
    } else if (!any) {
        m_tickTimer.stop();
    }
    showStates();
    emit signalChanged();
}

void PlaybackSession::play()
{
    const QVector<int> tiles = addressedTiles();
    Run& run = addressed();
    if (tiles.isEmpty() || run.isPlaying || !m_day.isValid())
        return;
    for (const int tile : tiles) {
        Lane& lane = m_lanes[size_t(tile)];
        lane.isActive = true;
        if (lane.player->state() == PlayerState::Failed)
            lane.player->close();
    }
    if (!firstFootage(tiles, run.positionUs / usAMs))
        run.positionUs = 0; // behind the end: from the beginning
    setPlaying(run, true);
}

void PlaybackSession::pause()
{
    if (addressed().isPlaying)
        setPlaying(addressed(), false);
}

void PlaybackSession::seek(qint64 ms)
{
    seekUs(ms * usAMs);
}

void PlaybackSession::seekUs(qint64 us)
{
    const QVector<int> tiles = addressedTiles();
    if (tiles.isEmpty() || !m_day.isValid())
        return;
    Run& run = addressed();
    run.isHeld = false;
    for (const int tile : tiles) {
        Lane& lane = m_lanes[size_t(tile)];
        lane.isActive = true;
        lane.isLate = false;
        lane.steps = false;
        lane.player->park();
    }
    place(run, tiles, qBound(m_day.beginMs() * usAMs, us, m_day.endMs() * usAMs - 1));
    m_seekTimer.start();
    showStates();
}

/// What was closed to go elsewhere, and what a person looks at while the clock stands.
void PlaybackSession::openWanted()
{
    for (int tile = 0; tile < mostTiles; ++tile) {
        const Lane& lane = m_lanes.at(size_t(tile));
        if (lane.player && lane.isActive && lane.player->state() == PlayerState::Closed)
            feed(tile, runOf(tile).positionUs / usAMs, runOf(tile).speed);
    }
    showStates();
}

void PlaybackSession::skip(int seconds)
{
    if (positionMs() > 0)
        seek(positionMs() + qint64(seconds) * 1000);
}

void PlaybackSession::stepForward()
{
    Lane& lane = m_lanes[size_t(m_selected)];
    if (!lane.player || !lane.isActive || positionMs() == 0)
        return;
    pause();
    if (lane.player->state() == PlayerState::Closed && !m_seekTimer.isActive())
        feed(m_selected, positionMs(), speed());
    lane.steps = true;
    lane.player->decoder()->stepForward();
}

void PlaybackSession::stepBack()
{
    const Lane& lane = m_lanes.at(size_t(m_selected));
    if (!lane.player || !lane.isActive || positionMs() == 0)
        return;
    pause();
    const double fps = lane.player->decoder()->format().fps;
    const qint64 pictureUs = qRound64(1e6 / (fps > 0 ? fps : usualFps));
    const qint64 shownUs = lane.player->decoder()->picture().utcNs / 1000;
    const qint64 positionUs = addressed().positionUs;
    // While the picture of the last step is still on its way the clock alone tells what comes before it.
    const bool isShown = shownUs <= positionUs && shownUs > positionUs - 2 * pictureUs;
    seekUs(isShown ? shownUs - usAMs : positionUs - pictureUs);
}

void PlaybackSession::setSpeed(double speed)
{
    if (qFuzzyCompare(addressed().speed, speed) || speed <= 0)
        return;
    addressed().speed = speed;
    m_budget.reset();
    chooseFrames(Change::Any);
    emit signalChanged();
}

void PlaybackSession::setInStep(bool inStep)
{
    if (m_isInStep == inStep)
        return;
    if (inStep) {
        m_common = m_lanes.at(size_t(m_selected)).run;
        for (Lane& lane : m_lanes)
            lane.run.isPlaying = false;
        m_isInStep = true;
        if (m_common.positionUs > 0)
            seekUs(m_common.positionUs);
    } else {
        for (Lane& lane : m_lanes)
            lane.run = m_common;
        m_common.isPlaying = false;
        m_isInStep = false;
    }
    setPlaying(addressed(), addressed().isPlaying);
}

void PlaybackSession::retry(int tile)
{
    const Lane& lane = m_lanes.at(size_t(tile));
    if (lane.player && lane.isActive)
        open(tile, runOf(tile).positionUs / usAMs);
}

void PlaybackSession::rest()
{
    for (int tile = 0; tile < mostTiles; ++tile) {
        Lane& lane = m_lanes[size_t(tile)];
        lane.run.isPlaying = false;
        if (lane.player)
            lane.player->close();
    }
    m_seekTimer.stop();
    m_common.isPlaying = false;
    setPlaying(addressed(), false);
}

void PlaybackSession::tick()
{
    const qint64 elapsedUs = qMin(m_sinceTick.nsecsElapsed() / 1000, mostTickUs);
    m_sinceTick.start();
    if (m_seekTimer.isActive())
        return;
    if (m_isInStep) {
        advance(m_common, addressedTiles(), elapsedUs);
        return;
    }
    for (int tile = 0; tile < mostTiles; ++tile) {
        if (m_lanes.at(size_t(tile)).player)
            advance(m_lanes[size_t(tile)].run, {tile}, elapsedUs);
    }
}

bool PlaybackSession::hasFootage(int tile, qint64 ms) const
{
    const Lane& lane = m_lanes.at(size_t(tile));
    return lane.player && lane.isActive && lane.footage && lane.footage->covers(ms);
}

std::optional<qint64> PlaybackSession::firstFootage(const QVector<int>& tiles, qint64 fromMs) const
{
    std::optional<qint64> first;
    for (const int tile : tiles) {
        const Lane& lane = m_lanes.at(size_t(tile));
        if (!lane.footage || lane.player->state() == PlayerState::Failed)
            continue;
        const std::optional<qint64> next = lane.footage->nextFrom(qMax(fromMs, m_day.beginMs()));
        if (next && (!first || *next < *first))
            first = next;
    }
    return first;
}

bool PlaybackSession::isDry(int tile, qint64 ms, qint64 reserve) const
{
    return m_lanes.at(size_t(tile)).player->queuedUntilMs() <= ms + reserve;
}

/// Dry, and nothing is on its way any more.
bool PlaybackSession::isDrained(int tile, qint64 ms) const
{
    const ChannelPlayer& player = *m_lanes.at(size_t(tile)).player;
    const bool isOver = player.state() == PlayerState::Ended || player.state() == PlayerState::Waiting;
    return isOver && isDry(tile, ms, 0) && !player.isDecoding();
}

/// Whether the clock has to wait for pictures.
bool PlaybackSession::holds(Run& run, const QVector<int>& tiles, qint64 ms)
{
    bool waits = false;
    bool goesOn = false;
    QVector<int> shortOnes;
    for (const int tile : tiles) {
        Lane& lane = m_lanes[size_t(tile)];
        const PlayerState state = lane.player->state();
        if (!hasFootage(tile, ms) || state == PlayerState::Failed)
            continue;
        const bool isDrained = this->isDrained(tile, ms);
        if (!isDry(tile, ms, run.isHeld ? reserveMs : 0) || (isDrained && state == PlayerState::Ended)) {
            lane.isLate = false;
            goesOn = true;
        } else if (isDrained || lane.isLate) {
            waits = true;
        } else {
            shortOnes.append(tile);
        }
    }
    if (shortOnes.isEmpty() && (goesOn || !waits)) {
        run.isHeld = false;
        return false;
    }
    if (!run.isHeld) {
        run.isHeld = true;
        run.held.start();
    } else if (run.held.elapsed() > mostHeldMs && goesOn) {
        for (const int tile : qAsConst(shortOnes))
            m_lanes[size_t(tile)].isLate = true;
    }
    return true;
}

void PlaybackSession::advance(Run& run, const QVector<int>& tiles, qint64 elapsedUs)
{
    if (!run.isPlaying)
        return;
    if (run.positionUs == 0) {
        const bool isKnown = std::all_of(tiles.cbegin(), tiles.cend(),
                                         [this](int tile) { return m_lanes.at(size_t(tile)).footage.has_value(); });
        const std::optional<qint64> first = firstFootage(tiles, m_day.beginMs());
        if (first && isKnown)
            place(run, tiles, *first * usAMs);
        else if (isKnown)
            jumpOrEnd(run, tiles);
        return;
    }
    const qint64 ms = run.positionUs / usAMs;
    for (const int tile : tiles)
        feed(tile, ms, run.speed);
    const bool wasHeld = run.isHeld;
    const bool any = std::any_of(tiles.cbegin(), tiles.cend(), [this, ms](int tile) {
        return hasFootage(tile, ms) && m_lanes.at(size_t(tile)).player->state() != PlayerState::Failed;
    });
    if (!any) {
        jumpOrEnd(run, tiles);
        return;
    }
    if (!holds(run, tiles, ms)) {
        qint64 positionUs = run.positionUs + qRound64(double(elapsedUs) * run.speed);
        // Not past the newest picture that any of them has: the rest is on its way.
        for (const int tile : tiles) {
            const Lane& lane = m_lanes.at(size_t(tile));
            const PlayerState state = lane.player->state();
            const qint64 untilMs = lane.player->queuedUntilMs();
            if (hasFootage(tile, ms) && !lane.isLate && untilMs > ms &&
                (state == PlayerState::Opening || state == PlayerState::Playing))
                positionUs = qMin(positionUs, untilMs * usAMs);
        }
        place(run, tiles, positionUs);
    }
    if (wasHeld != run.isHeld)
        showStates();
    const bool haveAllShown = std::all_of(tiles.cbegin(), tiles.cend(), [this, ms](int tile) {
        return !hasFootage(tile, ms) || m_lanes.at(size_t(tile)).player->hasShown();
    });
    if (run.speed > 1 && haveAllShown && m_budget.note(elapsedUs, run.isHeld))
        chooseFrames(Change::OnlyLess);
}

void PlaybackSession::place(Run& run, const QVector<int>& tiles, qint64 positionUs)
{
    run.positionUs = positionUs;
    for (const int tile : tiles) {
        m_lanes[size_t(tile)].player->setClockUs(positionUs);
        showState(tile);
    }
    if (&run == &addressed())
        emit signalPosition(positionMs());
}

/// Has the stream of a tile open where the clock needs it, and nowhere else.
void PlaybackSession::feed(int tile, qint64 ms, double speed)
{
    const Lane& lane = m_lanes.at(size_t(tile));
    if (!lane.player || !lane.isActive || !lane.footage)
        return;
    const PlayerState state = lane.player->state();
    const std::optional<qint64> next = lane.footage->nextFrom(ms);
    const double pace = qMax(1.0, speed);
    if (!next || double(*next - ms) > longGapMs * pace) {
        if (state == PlayerState::Opening || state == PlayerState::Playing || state == PlayerState::Waiting)
            lane.player->close();
    } else if (*next == ms) {
        const bool endedEarly =
            state == PlayerState::Ended && isDry(tile, ms, 0) && double(ms - lane.player->openedMs()) > againMs * pace;
        if (state == PlayerState::Closed || endedEarly)
            open(tile, ms);
    } else if (double(*next - ms) < aheadMs * pace) {
        if (state == PlayerState::Closed ||
            (state == PlayerState::Ended && lane.player->openedMs() < *next && lane.player->queuedUntilMs() < *next))
            open(tile, *next);
    }
}

void PlaybackSession::open(int tile, qint64 fromMs)
{
    m_lanes[size_t(tile)].isLate = false;
    m_lanes.at(size_t(tile)).player->open(fromMs, m_day.endMs());
}

void PlaybackSession::jumpOrEnd(Run& run, const QVector<int>& tiles)
{
    const qint64 fromMs = run.positionUs / usAMs;
    const std::optional<qint64> next = firstFootage(tiles, fromMs);
    if (next) {
        place(run, tiles, *next * usAMs);
        emit signalJumped(fromMs, *next);
        return;
    }
    setPlaying(run, false);
    emit signalEnded();
}

void PlaybackSession::takePicture(int tile)
{
    Lane& lane = m_lanes[size_t(tile)];
    if (std::exchange(lane.steps, false)) {
        Run& run = runOf(tile);
        const qint64 shownUs = (lane.player->decoder()->picture().utcNs + 999) / 1000;
        if (!run.isPlaying && shownUs > run.positionUs)
            place(run, m_isInStep ? addressedTiles() : QVector<int>{tile}, shownUs);
    }
    showState(tile);
}

void PlaybackSession::showStates()
{
    for (int tile = 0; tile < mostTiles; ++tile)
        showState(tile);
}

void PlaybackSession::showState(int tile)
{
    Lane& lane = m_lanes[size_t(tile)];
    TileState state;
    const Run& run = runOf(tile);
    const qint64 ms = run.positionUs / usAMs;
    if (!lane.player) {
        state.kind = Kind::Empty;
    } else if (!lane.footage) {
        state.kind = Kind::Searching;
    } else if (!lane.isActive || ms == 0) {
        state.kind = Kind::Standing;
    } else if (lane.player->state() == PlayerState::Failed) {
        state.kind = Kind::Failed;
        state.problem = lane.player->problem();
    } else if (!lane.footage->covers(ms)) {
        state.kind = Kind::Gap;
        state.gap = lane.footage->gapAt(ms);
        state.hasNext = lane.footage->nextFrom(ms).has_value();
    } else if (lane.player->state() == PlayerState::Waiting && isDrained(tile, ms)) {
        state.kind = Kind::Broken;
        state.problem = lane.player->problem();
    } else if (lane.player->state() == PlayerState::Closed) {
        state.kind = m_seekTimer.isActive() || run.isPlaying ? Kind::Busy : Kind::Picture;
    } else {
        const bool isWaitedFor = (run.isHeld || lane.isLate) && isDry(tile, ms, 0);
        const bool hasEnded = lane.player->state() == PlayerState::Ended;
        state.kind = hasEnded || (lane.player->hasShown() && !isWaitedFor) ? Kind::Picture : Kind::Busy;
    }
    if (state == lane.state)
        return;
    lane.state = state;
    emit signalTileChanged(tile);
}

/// Leaves pictures out when all that are due could not be decoded in time. What was let through before stands in the
/// way of a change, so the streams are opened anew.
void PlaybackSession::chooseFrames(Change change)
{
    double pixels = 0;
    for (int tile = 0; tile < mostTiles; ++tile) {
        const Lane& lane = m_lanes.at(size_t(tile));
        if (!lane.player || !lane.isActive)
            continue;
        const VideoFormat& format = lane.player->decoder()->format();
        pixels += double(format.size.width()) * format.size.height() * (format.fps > 0 ? format.fps : usualFps) *
                  runOf(tile).speed;
    }
    const FrameThinner::Keep keep = m_budget.keep(pixels, QThread::idealThreadCount());
    if (keep == m_keep || (change == Change::OnlyLess && keep < m_keep))
        return;
    m_keep = keep;
    for (int tile = 0; tile < mostTiles; ++tile) {
        const Lane& lane = m_lanes.at(size_t(tile));
        if (!lane.player)
            continue;
        lane.player->setKeep(keep);
        const PlayerState state = lane.player->state();
        if (state == PlayerState::Opening || state == PlayerState::Playing) {
            lane.player->park();
            open(tile, runOf(tile).positionUs / usAMs);
        }
    }
}

} // namespace vemo_client
