#include "LocalPlaybackDlg.h"

#include "player/MpvPlayer.h"
#include "player/PictureWt.h"
#include "player/PlaybackTexts.h"
#include "player/PlayerTitleBar.h"
#include "player/RecordingClock.h"
#include "player/TransportBar.h"

#include <LocalSnapImageIndexes.h>
#include <SystemConfig.h>
#include <ToolsCollection.h>

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QTimer>

namespace vemo_base {

namespace {

constexpr int widest = 1010;
constexpr int narrowest = 720;
constexpr int openingAfterMs = 300;
constexpr int skipS = 10;

/// The size of the dialog at most `width` wide in which a picture of 16:9 fills its place to the pixel.
QSize sizeFor(int width, int border)
{
    const int units = (width - 2 * border) / 16;
    return {16 * units + 2 * border, PlayerTitleBar::barHeight + 9 * units + TransportBar::barHeight + 2 * border};
}

} // namespace

class LocalPlaybackDlg::Private final
{
public:
    explicit Private(LocalPlaybackDlg* dialog);

    void play();
    void stop();
    void showState();
    void showClock();
    void seekTo(qint64 clockMs);
    void skip(int seconds);
    void step(int frames);
    void takeSnapshot();
    void addToIndex(const QString& snapshot) const;
    bool takeKey(const QKeyEvent& event);

    LocalPlaybackDlg* const q;
    PlayerTitleBar* const titleBar;
    PictureWt* const picture;
    TransportBar* const bar;

    std::unique_ptr<MpvPlayer> player; ///< while the dialog is open
    QTimer opening;
    RecordingClock clock;
    int factsVersion = 0;
    QString path;
    VCOMMON::ChannelInfo channel;
    VCOMMON::SnapImageFacts snapshotFacts; ///< of the one asked for last
    QString channelName;
    QString dateFormat;

private:
    void connectBar();
};

LocalPlaybackDlg::Private::Private(LocalPlaybackDlg* dialog)
    : q(dialog)
    , titleBar(dialog->titleBar())
    , picture(new PictureWt(dialog))
    , bar(new TransportBar(dialog))
{
    opening.setSingleShot(true);
    opening.setInterval(openingAfterMs);
    connect(&opening, &QTimer::timeout, q, [this] {
        if (player && player->state().phase == PlayerState::Phase::Opening)
            picture->setMessage({}, tr("Opening %1").arg(QDir::toNativeSeparators(path)));
    });
    q->setParts(picture, bar, TransportBar::barHeight);
    connect(picture, &PictureWt::signalDoubleClicked, q, [this] { q->setFullScreen(!q->isFullScreen()); });
    connect(picture, &PictureWt::signalPictureSizeChanged, q, [this](const QSize& size) {
        if (player)
            player->setPictureSize(size);
    });
    connectBar();
}

void LocalPlaybackDlg::Private::connectBar()
{
    connect(bar, &TransportBar::signalSeekRequested, q, [this](qint64 clockMs) { seekTo(clockMs); });
    connect(bar, &TransportBar::signalSkipRequested, q, [this](int seconds) { skip(seconds); });
    connect(bar, &TransportBar::signalStepRequested, q, [this](int frames) { step(frames); });
    connect(bar, &TransportBar::signalPlayRequested, q, [this] {
        if (player)
            player->togglePaused();
    });
    connect(bar, &TransportBar::signalStopRequested, q, [this] {
        if (!player)
            return;
        player->setPaused(true);
        player->seek(0);
    });
    connect(bar, &TransportBar::signalSpeedChosen, q, [this](double speed) {
        if (player)
            player->setSpeed(speed);
    });
    connect(bar, &TransportBar::signalVolumeChosen, q, [this](int percent) {
        if (player)
            player->setVolume(percent);
    });
    connect(bar, &TransportBar::signalMuteRequested, q, [this](bool muted) {
        if (player)
            player->setMuted(muted);
    });
    connect(bar, &TransportBar::signalSnapshotRequested, q, [this] { takeSnapshot(); });
    connect(bar, &TransportBar::signalFolderRequested, q,
            [this] { VCOMMON::ToolsCollection::openFolderAndSelectFile(path); });
    connect(bar, &TransportBar::signalFullScreenRequested, q, [this] { q->setFullScreen(!q->isFullScreen()); });
}

void LocalPlaybackDlg::Private::play()
{
    stop();
    if (path.isEmpty())
        return;
    dateFormat = vemo_worker::SystemConfig::instance().getDateFormat();
    player = std::make_unique<MpvPlayer>();
    connect(player.get(), &MpvPlayer::signalStateChanged, q, [this] { showState(); });
    connect(player.get(), &MpvPlayer::signalPictureChanged, q, [this] { picture->setPicture(player->picture()); });
    connect(player.get(), &MpvPlayer::signalSnapshotTaken, q, [this](const QString& file) {
        addToIndex(file);
        picture->showNote(tr("Snapshot saved as %1").arg(QDir::toNativeSeparators(file)));
    });
    connect(player.get(), &MpvPlayer::signalSnapshotFailed, q,
            [this](const QString& text) { picture->showNote(text); });
    player->setPictureSize(picture->pictureSize());
    player->open(path);
    player->setVolume(bar->volume());
    player->setSpeed(bar->speed());
    opening.start();
}

void LocalPlaybackDlg::Private::stop()
{
    opening.stop();
    player.reset();
    clock = {};
    factsVersion = 0;
    picture->setMessage({}, {});
    picture->setPictureShape({});
    picture->setPicture({});
    picture->setClockText({});
    titleBar->setFacts({});
    bar->setClock(clock);
    bar->setClockMs(0);
    bar->setState({});
}

void LocalPlaybackDlg::Private::showState()
{
    const PlayerState& state = player->state();
    if (state.phase == PlayerState::Phase::Failed) {
        picture->setMessage(QStringLiteral("error"), state.error);
    } else if (state.phase == PlayerState::Phase::Ready) {
        const bool soundOnly = state.videoFormat.isEmpty() && !state.audioFormat.isEmpty();
        picture->setMessage(soundOnly ? QStringLiteral("volume") : QString(),
                            soundOnly ? tr("This recording has sound only.") : QString());
        picture->setPictureShape(state.shownSize);
        if (factsVersion != state.factsVersion) {
            factsVersion = state.factsVersion;
            clock = RecordingClock(state);
            bar->setClock(clock);
        }
        titleBar->setFacts(PlaybackTexts::facts(state, clock.gaps().size()));
    }
    bar->setState(state);
    showClock();
}

void LocalPlaybackDlg::Private::showClock()
{
    const PlayerState& state = player->state();
    if (state.phase != PlayerState::Phase::Ready || state.durationS <= 0)
        return;
    const qint64 clockMs = clock.toClockMs(state.positionS);
    bar->setClockMs(clockMs);
    picture->setClockText(PlaybackTexts::clock(clock, clockMs, dateFormat, state.paused));
}

void LocalPlaybackDlg::Private::seekTo(qint64 clockMs)
{
    if (player)
        player->seek(clock.toMediaS(clockMs));
}

void LocalPlaybackDlg::Private::skip(int seconds)
{
    if (!player || player->state().phase != PlayerState::Phase::Ready)
        return;
    // By the file's time: 10 s of footage, also across a gap.
    const double target = player->state().positionS + seconds;
    player->seek(qBound(0.0, target, player->state().durationS));
}

void LocalPlaybackDlg::Private::step(int frames)
{
    if (!player)
        return;
    if (frames > 0)
        player->stepForward();
    else
        player->stepBack();
}

void LocalPlaybackDlg::Private::takeSnapshot()
{
    if (!player || player->state().phase != PlayerState::Phase::Ready)
        return;
    using VCOMMON::SnapImageWriter;
    const bool isBmp = vemo_worker::SystemConfig::instance().snapshotFormat() == QLatin1String("BMP");
    const auto format = isBmp ? SnapImageWriter::Format::Bmp : SnapImageWriter::Format::Jpeg;
    const qint64 clockMs = clock.toClockMs(player->state().positionS);
    snapshotFacts = {{}, channelName, channel.channelNo, channel.devLabel, channel.devId};
    if (clock.isKnown())
        snapshotFacts.captureTime = QDateTime::fromMSecsSinceEpoch(clockMs);
    player->takeSnapshot(PlaybackTexts::snapshotFolder() + QLatin1Char('/') +
                             PlaybackTexts::snapshotName(channelName, clock, clockMs, format),
                         snapshotFacts, format);
}

/// A snapshot of a channel or a time that nobody knows is found by the next rescan.
void LocalPlaybackDlg::Private::addToIndex(const QString& snapshot) const
{
    if (snapshotFacts.devId.isEmpty() || !snapshotFacts.captureTime.isValid())
        return;
    VCOMMON::LocalSnapImageIndexInfo info;
    info.devId = snapshotFacts.devId;
    info.channelNo = snapshotFacts.channelNo;
    info.channelName = snapshotFacts.channelName;
    info.devName = snapshotFacts.devName;
    info.captureTime = snapshotFacts.captureTime;
    info.filePath = snapshot;
    VCOMMON::LocalSnapImageIndexes::instance().addLocalSnapImageIndex(info);
}

bool LocalPlaybackDlg::Private::takeKey(const QKeyEvent& event)
{
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier) &&
        event.key() != Qt::Key_BracketLeft && event.key() != Qt::Key_BracketRight)
        return false;
    switch (event.key()) {
    case Qt::Key_Space:
        if (player && !event.isAutoRepeat())
            player->togglePaused();
        return true;
    case Qt::Key_Comma:
        step(-1);
        return true;
    case Qt::Key_Period:
        step(1);
        return true;
    case Qt::Key_Left:
        skip(-skipS);
        return true;
    case Qt::Key_Right:
        skip(skipS);
        return true;
    case Qt::Key_Home:
        seekTo(clock.beginMs());
        return true;
    case Qt::Key_End:
        seekTo(clock.endMs());
        return true;
    case Qt::Key_BracketLeft:
        bar->stepSpeed(-1);
        return true;
    case Qt::Key_BracketRight:
        bar->stepSpeed(1);
        return true;
    case Qt::Key_M:
        if (player)
            player->setMuted(!player->state().muted);
        return true;
    case Qt::Key_S:
        if (!event.isAutoRepeat())
            takeSnapshot();
        return true;
    case Qt::Key_F:
        if (!event.isAutoRepeat())
            q->setFullScreen(!q->isFullScreen());
        return true;
    default:
        return false;
    }
}

LocalPlaybackDlg::LocalPlaybackDlg(QWidget* parent)
    : FramelessDlg(parent, sizeFor(narrowest, border))
    , d(std::make_unique<Private>(this))
{
    setObjectName(QStringLiteral("localPlaybackDlg"));
    d->stop();
}

LocalPlaybackDlg::~LocalPlaybackDlg() = default;

void LocalPlaybackDlg::setLocalVideoRecordingPath(const QString& path, const VCOMMON::ChannelInfo& channel,
                                                  const QString& title)
{
    d->path = path;
    d->channel = channel;
    d->channelName = channel.channelName.isEmpty() ? title.section(QLatin1Char('@'), 0, -2) : channel.channelName;
    setWindowTitle(title);
    d->titleBar->setTitle(title);
    d->picture->setChannelName(d->channelName);
    if (isVisible())
        d->play();
}

void LocalPlaybackDlg::showLocalPlaybackDlg()
{
    if (isVisible()) {
        raise();
        activateWindow();
        return;
    }
    const QSize most = room().size() * shareOfParent;
    int width = qBound(narrowest, most.width(), widest);
    while (width > narrowest && sizeFor(width, border).height() > most.height())
        --width;
    place(sizeFor(width, border));
    open();
    setFocus();
    d->play();
}

void LocalPlaybackDlg::done(int result)
{
    const bool wasOpen = d->player != nullptr;
    d->stop();
    FramelessDlg::done(result);
    if (wasOpen)
        emit signalPlaybackDlgClosed(d->path);
}

void LocalPlaybackDlg::showFullScreenState(bool isFullScreen)
{
    d->bar->setFullScreen(isFullScreen);
}

bool LocalPlaybackDlg::takeKey(const QKeyEvent& event)
{
    return d->takeKey(event);
}

} // namespace vemo_base
