#include "PlaybackStage.h"

#include "PictureSaver.h"

#include "video/VideoTileWt.h"
#include "video/VideoWallWt.h"

#include <axis/SpanWords.h>
#include <BaseTools.h>
#include <player/FadingBar.h>
#include <Theme.h>

#include <QBoxLayout>
#include <QKeyEvent>

namespace vemo_client {

using vemo_base::SpanWords;
using Kind = PlaybackSession::TileState::Kind;

namespace {

constexpr int mostTiles = PlaybackSession::mostTiles;
constexpr int busyMs = 300;
constexpr int barMargin = 12;
constexpr qint64 nsAMs = 1'000'000;

QString snapshotId()
{
    return QStringLiteral("snapshot");
}

QString enlargeId()
{
    return QStringLiteral("enlarge");
}

QString closeId()
{
    return QStringLiteral("close");
}

QString idOf(const ChannelRef& channel)
{
    return vemo_base::BaseTools::instance().formatChannelId(channel.devId, channel.channelNo);
}

} // namespace

PlaybackStage::PlaybackStage(QWidget* parent)
    : QWidget(parent)
    , m_wall(new VideoWallWt(this))
    , m_transport(new PlaybackTransport(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_wall);
    m_wall->installEventFilter(this);
    for (int tile = 0; tile < mostTiles; ++tile) {
        QTimer& timer = m_busyTimers[size_t(tile)];
        timer.setSingleShot(true);
        timer.setInterval(busyMs);
        connect(&timer, &QTimer::timeout, this, [this, tile] { showBusy(tile); });
        connect(m_wall->tile(tile), &VideoTileWt::signalFullPicture, this,
                [this, tile](const QImage& image, qint64 ns) {
                    if (const std::optional<ChannelRef> channel = m_session.channel(tile))
                        PictureSaver::save(*channel, image, ns);
                });
    }
    connectWall();
    connectSession();
    connectTransport();
    arrange();
}

PlaybackStage::~PlaybackStage()
{
    // The screen would take the wall and the transport along.
    if (m_screen)
        toggleFullScreen();
}

void PlaybackStage::connectWall()
{
    connect(m_wall, &VideoWallWt::signalSelectedChanged, this, [this](int tile) {
        m_session.select(tile);
        showTransport();
        emit signalSelectedChanged();
    });
    connect(m_wall, &VideoWallWt::signalLayoutChanged, this, [this] {
        showTransport();
        showActions();
    });
    connect(m_wall, &VideoWallWt::signalAction, this, &PlaybackStage::takeAction);
    connect(m_wall, &VideoWallWt::signalButtonClicked, this, &PlaybackStage::pressTileButton);
    connect(m_wall, &VideoWallWt::signalRemoveWanted, this, [this](int tile) { takeAction(tile, closeId()); });
    connect(m_wall, &VideoWallWt::signalChannelDropped, this, &PlaybackStage::place);
    connect(m_wall, &VideoWallWt::signalTilesSwapped, this, [this](int from, int to) {
        m_session.swapTiles(from, to);
        emit signalTilesChanged();
    });
}

void PlaybackStage::connectSession()
{
    connect(&m_session, &PlaybackSession::signalDecoderChanged, this, &PlaybackStage::takeDecoder);
    connect(&m_session, &PlaybackSession::signalTileChanged, this, [this](int tile) {
        showTile(tile);
        showTransport();
        emit signalTilesChanged();
    });
    connect(&m_session, &PlaybackSession::signalChanged, this, &PlaybackStage::showTransport);
    connect(&m_session, &PlaybackSession::signalJumped, this, [this](qint64 fromMs, qint64 toMs) {
        emit signalTold(tr("No recording from %1 to %2: playing on from there.")
                            .arg(SpanWords::clock(fromMs, m_day.day()), SpanWords::clock(toMs, m_day.day())));
    });
    connect(&m_session, &PlaybackSession::signalEnded, this,
            [this] { emit signalTold(tr("There is no further recording on this day.")); });
}

void PlaybackStage::connectTransport()
{
    connect(m_transport, &PlaybackTransport::signalPlayRequested, this, [this] {
        togglePlaying();
        // The keys are the player's from now on.
        m_wall->tile(m_wall->selected())->setFocus(Qt::OtherFocusReason);
    });
    connect(m_transport, &PlaybackTransport::signalSkipRequested, &m_session, &PlaybackSession::skip);
    connect(m_transport, &PlaybackTransport::signalStepRequested, this,
            [this](int pictures) { pictures > 0 ? m_session.stepForward() : m_session.stepBack(); });
    connect(m_transport, &PlaybackTransport::signalSpeedChosen, &m_session, &PlaybackSession::setSpeed);
    connect(m_transport, &PlaybackTransport::signalInStepChosen, &m_session, &PlaybackSession::setInStep);
    connect(m_transport, &PlaybackTransport::signalSnapshotRequested, this,
            [this] { takeAction(m_wall->selected(), snapshotId()); });
    connect(m_transport, &PlaybackTransport::signalLayoutChosen, this, &PlaybackStage::setLayoutSingle);
    connect(m_transport, &PlaybackTransport::signalFullScreenRequested, this, &PlaybackStage::toggleFullScreen);
}

QString PlaybackStage::nameOf(const ChannelRef& channel) const
{
    return vemo_base::BaseTools::instance().getChannelName(channel.devId, channel.channelNo);
}

void PlaybackStage::setDay(const vemo_base::DayAxis& day)
{
    m_day = day;
    m_searches.clear();
    m_problems.clear();
    m_session.setDay(day);
    for (int tile = 0; tile < mostTiles; ++tile) {
        m_wall->tile(tile)->clearPicture();
        m_wall->tile(tile)->setClockText(QString());
        showTile(tile);
    }
}

void PlaybackStage::setChannels(const QVector<ChannelRef>& channels)
{
    for (int tile = 0; tile < mostTiles; ++tile) {
        const std::optional<ChannelRef> shown = m_session.channel(tile);
        if (shown && !channels.contains(*shown))
            m_session.setChannel(tile, std::nullopt);
    }
    if (m_placed && channels.contains(*m_placed) && m_session.tileOf(*m_placed) < 0 && m_placedTile >= 0)
        m_session.setChannel(m_placedTile, m_placed);
    m_placed.reset();
    for (const ChannelRef& channel : channels) {
        if (m_session.tileOf(channel) >= 0)
            continue;
        for (int tile = 0; tile < mostTiles; ++tile) {
            if (!m_session.channel(tile)) {
                m_session.setChannel(tile, channel);
                break;
            }
        }
    }
    arrange();
}

/// One channel alone fills the room; more stand in a grid of four.
void PlaybackStage::arrange()
{
    QVector<int> taken;
    for (int tile = 0; tile < mostTiles; ++tile) {
        if (m_session.channel(tile))
            taken.append(tile);
    }
    if (taken.size() == 1 && taken.first() != 0)
        m_session.swapTiles(0, taken.first());
    const int count = taken.size() > 1 ? mostTiles : 1;
    if (count != m_wall->tileCount())
        m_wall->setTileCount(count);
    for (int tile = 0; tile < mostTiles; ++tile)
        showTile(tile);
    showTransport();
    showActions();
    emit signalTilesChanged();
    emit signalSelectedChanged();
}

void PlaybackStage::setLayoutSingle(bool isSingle)
{
    const bool hasMany = m_wall->tileCount() > 1;
    if (isSingle && hasMany)
        m_wall->setEnlarged(m_wall->selected());
    else if (!isSingle)
        m_wall->setTileCount(mostTiles);
    showTransport();
}

void PlaybackStage::setSearching(const ChannelRef& channel)
{
    m_searches.insert(idOf(channel), ChannelDay::State::Searching);
    m_problems.remove(idOf(channel));
    const int tile = m_session.tileOf(channel);
    if (tile >= 0)
        showTile(tile);
}

void PlaybackStage::setFound(const ChannelDay& day, const Footage& footage)
{
    const QString id = idOf(day.channel);
    m_searches.insert(id, day.state);
    if (day.state == ChannelDay::State::Failed && footage.isEmpty())
        m_problems.insert(id, day.error.message);
    m_session.setFootage(day.channel, footage);
    const int tile = m_session.tileOf(day.channel);
    if (tile >= 0)
        showTile(tile);
}

std::optional<ChannelRef> PlaybackStage::selectedChannel() const
{
    return m_session.channel(qMin(m_wall->selected(), mostTiles - 1));
}

void PlaybackStage::select(const ChannelRef& channel)
{
    const int tile = m_session.tileOf(channel);
    if (tile >= 0)
        m_wall->setSelected(tile);
}

/// On a free tile where there is one, else in place of what stands there.
void PlaybackStage::place(int tile, const ChannelRef& channel)
{
    if (m_session.tileOf(channel) >= 0) {
        select(channel);
        return;
    }
    for (int other = 0; m_wall->tileCount() == 1 && other < mostTiles && m_session.channel(tile); ++other) {
        if (!m_session.channel(other))
            tile = other;
    }
    m_placed = channel;
    m_placedTile = tile;
    emit signalChannelPlaced(channel, m_session.channel(tile));
}

void PlaybackStage::takeDecoder(int tile)
{
    VideoTileWt* widget = m_wall->tile(tile);
    StreamDecoder* decoder = m_session.decoder(tile);
    m_decoderProblems[size_t(tile)].clear();
    widget->setDecoder(decoder);
    widget->setClockText(QString());
    widget->setFormatText(QString());
    widget->setDragChannel(m_session.channel(tile));
    showActions();
    if (!decoder)
        return;
    // Tiles are swapped, so a decoder's tile is the one that shows it.
    const auto shown = [this, decoder] {
        for (int at = 0; at < mostTiles; ++at) {
            if (m_wall->tile(at)->decoder() == decoder)
                return at;
        }
        return -1;
    };
    decoder->disconnect(this);
    const auto takeFormat = [this, shown, decoder] {
        const int at = shown();
        if (at >= 0 && !decoder->format().codec.isEmpty())
            m_wall->tile(at)->setFormatText(VideoTileWt::formatWords(decoder->format()), decoder->format().decoder);
    };
    const auto takePicture = [this, shown, decoder] {
        const int at = shown();
        const qint64 utcNs = decoder->picture().utcNs;
        if (at >= 0 && utcNs > 0)
            m_wall->tile(at)->setClockText(vemo_base::BaseTools::instance().strDatetime(
                QDateTime::fromMSecsSinceEpoch(utcNs / nsAMs), true, !m_session.isPlaying()));
    };
    connect(decoder, &StreamDecoder::signalFormat, this, takeFormat);
    connect(decoder, &StreamDecoder::signalPicture, this, takePicture);
    connect(decoder, &StreamDecoder::signalProblem, this, [this, shown](const QString& sentence) {
        const int at = shown();
        if (at < 0)
            return;
        m_decoderProblems[size_t(at)] = sentence;
        showTile(at);
    });
    takeFormat();
    takePicture();
}

void PlaybackStage::showActions()
{
    for (int tile = 0; tile < mostTiles; ++tile) {
        QVector<VideoTileWt::Action> actions;
        if (m_session.channel(tile)) {
            actions.append({snapshotId(), QStringLiteral("snapshot"), tr("Save the shown picture")});
            if (m_wall->tileCount() > 1)
                actions.append({enlargeId(), QStringLiteral("enlarge"),
                                m_wall->enlarged() == tile ? tr("Show all channels") : tr("Enlarge")});
            actions.append({closeId(), QStringLiteral("close"), tr("Close this channel")});
        }
        m_wall->tile(tile)->setActions(actions);
    }
}

void PlaybackStage::takeAction(int tile, const QString& id)
{
    if (tile >= mostTiles)
        return;
    const std::optional<ChannelRef> channel = m_session.channel(tile);
    if (id == snapshotId())
        m_wall->tile(tile)->requestFullPicture();
    else if (id == enlargeId())
        m_wall->setEnlarged(m_wall->enlarged() == tile ? -1 : tile);
    else if (id == closeId() && channel)
        emit signalChannelClosed(*channel);
}

void PlaybackStage::pressTileButton(int tile)
{
    if (tile >= mostTiles)
        return;
    const PlaybackSession::TileState state = m_session.state(tile);
    if (state.kind == Kind::Gap) {
        m_session.select(tile);
        m_session.seek(state.gap.endMs);
    } else if (state.kind == Kind::Failed) {
        m_session.retry(tile);
    } else if (!m_session.isPlaying()) {
        togglePlaying();
    }
}

void PlaybackStage::togglePlaying()
{
    if (m_session.isPlaying()) {
        m_session.pause();
        return;
    }
    emit signalPlayWanted();
    m_session.play();
}

void PlaybackStage::showTransport()
{
    PlaybackTransport::State state;
    state.isPlaying = m_session.isPlaying();
    state.isInStep = m_session.isInStep();
    state.speed = m_session.speed();
    for (int tile = 0; tile < mostTiles; ++tile)
        state.canPlay = state.canPlay || m_session.channel(tile).has_value();
    state.hasPosition = state.canPlay && m_session.positionMs() > 0;
    state.hasPicture = !m_wall->tile(m_wall->selected())->currentPicture().isNull();
    state.isSingle = m_wall->tileCount() == 1 || m_wall->enlarged() >= 0;
    state.isFullScreen = m_screen != nullptr;
    m_transport->setState(state);
}

void PlaybackStage::showTile(int tile)
{
    VideoTileWt* widget = m_wall->tile(tile);
    const PlaybackSession::TileState state = m_session.state(tile);
    const std::optional<ChannelRef> channel = m_session.channel(tile);
    widget->setTitle(channel ? nameOf(*channel) : QString());
    QTimer& busy = m_busyTimers[size_t(tile)];
    if (state.kind == Kind::Busy || state.kind == Kind::Broken) {
        if (!busy.isActive())
            busy.start();
        return;
    }
    busy.stop();
    const QString& problem = m_decoderProblems.at(size_t(tile));
    switch (state.kind) {
    case Kind::Empty:
        widget->setMessage(QStringLiteral("camera"), tr("Check a channel in the list, or drag it here."));
        break;
    case Kind::Searching:
    case Kind::Standing:
        showStanding(tile);
        break;
    case Kind::Gap:
        showGap(widget, state);
        break;
    case Kind::Failed:
        widget->setMessage(QStringLiteral("error"), state.problem, tr("Retry"), QStringLiteral("redownload"));
        break;
    default:
        if (problem.isEmpty())
            widget->clearState();
        else
            widget->setMessage(QStringLiteral("warning"), problem);
    }
}

/// What has not been played yet.
void PlaybackStage::showStanding(int tile)
{
    VideoTileWt* widget = m_wall->tile(tile);
    const std::optional<ChannelRef> channel = m_session.channel(tile);
    const QString id = channel ? idOf(*channel) : QString();
    const auto search = m_searches.value(id, ChannelDay::State::Unknown);
    const QString problem = m_problems.value(id);
    if (!problem.isEmpty())
        widget->setMessage(QStringLiteral("warning"), problem);
    else if (search == ChannelDay::State::Searching)
        widget->setBusy(tr("Searching for recordings..."));
    else if (m_session.isPlaying())
        widget->setBusy(tr("Loading the picture..."));
    else
        widget->setMessage(QStringLiteral("playback"), tr("Press Play, or click on the time line."), tr("Play"),
                           QStringLiteral("start"));
}

void PlaybackStage::showGap(VideoTileWt* tile, const PlaybackSession::TileState& state)
{
    const QString begin = SpanWords::clock(state.gap.beginMs, m_day.day());
    const QString end = SpanWords::clock(state.gap.endMs, m_day.day());
    if (state.hasNext)
        tile->setMessage(QStringLiteral("waiting"), tr("No recording from %1 to %2").arg(begin, end),
                         tr("Jump to %1").arg(end), QStringLiteral("skip-fwd"));
    else
        tile->setMessage(QStringLiteral("waiting"), tr("No recording from %1 to %2").arg(begin, end));
}

void PlaybackStage::showBusy(int tile)
{
    const PlaybackSession::TileState state = m_session.state(tile);
    VideoTileWt* widget = m_wall->tile(tile);
    if (state.kind == Kind::Broken)
        widget->setBusy(tr("%1\nTrying again...").arg(state.problem));
    else if (state.kind == Kind::Busy)
        widget->setBusy(tr("Loading the picture..."));
}

bool PlaybackStage::takeKey(QKeyEvent* event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier) &&
        event->key() != Qt::Key_BracketLeft && event->key() != Qt::Key_BracketRight)
        return false;
    switch (event->key()) {
    case Qt::Key_Space:
        if (!event->isAutoRepeat())
            togglePlaying();
        return true;
    case Qt::Key_Comma:
        m_session.stepBack();
        return true;
    case Qt::Key_Period:
        m_session.stepForward();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        m_session.skip(event->key() == Qt::Key_Left ? -PlaybackTransport::skipS : PlaybackTransport::skipS);
        return true;
    case Qt::Key_BracketLeft:
    case Qt::Key_BracketRight:
        m_transport->stepSpeed(event->key() == Qt::Key_BracketLeft ? -1 : 1);
        return true;
    case Qt::Key_S:
        if (!event->isAutoRepeat())
            takeAction(m_wall->selected(), snapshotId());
        return true;
    case Qt::Key_F:
        if (!event->isAutoRepeat())
            toggleFullScreen();
        return true;
    case Qt::Key_Escape:
        if (!m_screen)
            return false;
        toggleFullScreen();
        return true;
    default:
        return false;
    }
}

/// The wall would move its selection by Left and Right, which here are seconds; and nothing lies around the full screen
/// that keys could go to.
bool PlaybackStage::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool isArrow = key->key() == Qt::Key_Left || key->key() == Qt::Key_Right;
        if ((watched == m_wall && isArrow) || watched == m_screen.get()) {
            if (takeKey(key))
                return true;
        }
    }
    if (watched == m_screen.get() && event->type() == QEvent::Close && m_screen->isVisible()) {
        event->ignore();
        toggleFullScreen();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PlaybackStage::toggleFullScreen()
{
    if (m_screen) {
        QWidget* screen = m_screen.release();
        screen->deleteLater(); // this may run in its event
        screen->removeEventFilter(this);
        screen->hide();
        layout()->addWidget(m_wall);
        m_transport->setPalette(QPalette());
        m_transportHome->addWidget(m_transport);
        m_wall->show();
        m_transport->show();
        m_wall->tile(m_wall->selected())->setFocus(Qt::OtherFocusReason);
        showTransport();
        return;
    }
    m_transportHome = qobject_cast<QBoxLayout*>(m_transport->parentWidget()->layout());
    if (!m_transportHome)
        return;
    m_screen = std::make_unique<QWidget>(nullptr, Qt::Window);
    m_screen->setWindowTitle(tr("Playback"));
    m_screen->setPalette(vemo_base::Theme::palette(vemo_base::ThemeMode::Dark));
    auto* bar = new QWidget(m_screen.get());
    bar->setAutoFillBackground(true);
    auto* barLayout = new QHBoxLayout(bar);
    barLayout->setContentsMargins(barMargin, barMargin, barMargin, barMargin);
    barLayout->addStretch();
    barLayout->addWidget(m_transport);
    barLayout->addStretch();
    auto* grid = new QGridLayout(m_screen.get());
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_wall, 0, 0);
    grid->addWidget(bar, 0, 0, Qt::AlignBottom);
    bar->raise();
    m_screen->installEventFilter(this);
    auto* fading = new vemo_base::FadingBar(bar, m_screen.get());
    m_screen->setGeometry(window()->geometry()); // on the screen of the window
    m_screen->showFullScreen();
    fading->setActive(true);
    m_wall->tile(m_wall->selected())->setFocus(Qt::OtherFocusReason);
    showTransport();
}

/// Nobody looks: the recorders are let go.
void PlaybackStage::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        m_session.rest();
}

} // namespace vemo_client
