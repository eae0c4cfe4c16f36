#include "LiveStage.h"

#include "devices/LoginWords.h"
#include "devices/RecorderLogins.h"
#include "playback/PictureSaver.h"
#include "video/VideoTileWt.h"
#include "video/VideoWallWt.h"

#include <BaseTools.h>
#include <DataSignals.h>
#include <DevsMgrData.h>
#include <Notices.h>
#include <SystemMsg.h>
#include <ToolsCollection.h>

#include <QDateTime>
#include <QFileInfo>
#include <QVBoxLayout>

namespace vemo_client {

using vemo_base::BaseTools;

namespace {

constexpr int leaveMs = 5000;
constexpr int tickMs = 1000;
constexpr qint64 nsPerS = 1'000'000'000;

QString nameOf(const ChannelRef& channel)
{
    return BaseTools::instance().getChannelName(channel.devId, channel.channelNo);
}

QString snapshotAction()
{
    return QStringLiteral("snapshot");
}

QString recordAction()
{
    return QStringLiteral("record");
}

QString enlargeAction()
{
    return QStringLiteral("enlarge");
}

QString closeAction()
{
    return QStringLiteral("close");
}

QString durationText(qint64 ms)
{
    const qint64 s = ms / 1000;
    return QStringLiteral("%1:%2:%3")
        .arg(s / 3600, 2, 10, QLatin1Char('0'))
        .arg(s / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(s % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

LiveStage::LiveStage(RecorderLogins* logins, QWidget* parent)
    : QWidget(parent)
    , m_logins(logins)
    , m_wall(new VideoWallWt(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_wall);
    for (int i = 0; i < tiles; ++i) {
        connect(m_wall->tile(i), &VideoTileWt::signalFullPicture, this,
                [this, i](const QImage& image, qint64 utcNs) { saveSnapshot(i, image, utcNs); });
        tell(i);
    }
    connect(m_wall, &VideoWallWt::signalAction, this, &LiveStage::takeAction);
    connect(m_wall, &VideoWallWt::signalButtonClicked, this, &LiveStage::takeButton);
    connect(m_wall, &VideoWallWt::signalChannelDropped, this, &LiveStage::dropChannel);
    connect(m_wall, &VideoWallWt::signalTilesSwapped, this, &LiveStage::swapTiles);
    connect(m_wall, &VideoWallWt::signalRemoveWanted, this, [this](int tile) { setChannel(tile, {}); });
    connect(m_wall, &VideoWallWt::signalSelectedChanged, this, &LiveStage::signalSelectedChanged);
    connect(m_wall, &VideoWallWt::signalLayoutChanged, this, [this] {
        settle();
        for (int i = 0; i < tiles; ++i)
            tellActions(i);
        emit signalChanged();
    });
    connect(m_logins, &RecorderLogins::signalChanged, this, &LiveStage::takeRecorder);
    const vemo_data::DataSignals& stores = vemo_data::DataSignals::instance();
    connect(&stores, &vemo_data::DataSignals::signalDevInfoChanged, this, &LiveStage::takeRecorder);
    connect(&stores, &vemo_data::DataSignals::signalDevRemoved, this, &LiveStage::takeRecorder);
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalPrepareQuitSystem, this,
            &LiveStage::endAll);
    m_leaveTimer.setSingleShot(true);
    m_leaveTimer.setInterval(leaveMs);
    connect(&m_leaveTimer, &QTimer::timeout, this, &LiveStage::letGo);
    m_tickTimer.setInterval(tickMs);
    connect(&m_tickTimer, &QTimer::timeout, this, &LiveStage::tick);
}

LiveStage::~LiveStage()
{
    endAll();
}

int LiveStage::tileOf(const ChannelRef& channel) const
{
    for (int i = 0; i < tiles; ++i) {
        if (m_channels[i] && m_channels[i]->channel() == channel)
            return i;
    }
    return -1;
}

int LiveStage::tileOf(const LiveChannel* channel) const
{
    for (int i = 0; i < tiles; ++i) {
        if (m_channels[i].get() == channel)
            return i;
    }
    return -1;
}

/// The first without a channel, else the selected one, unless that is being recorded.
int LiveStage::freeTile() const
{
    for (int i = 0; i < m_wall->tileCount(); ++i) {
        if (!m_channels[i])
            return i;
    }
    if (!isRecording(m_wall->selected()))
        return m_wall->selected();
    for (int i = 0; i < m_wall->tileCount(); ++i) {
        if (!isRecording(i))
            return i;
    }
    return -1;
}

void LiveStage::showChannel(const ChannelRef& channel)
{
    int tile = tileOf(channel);
    if (tile < 0 || tile >= m_wall->tileCount()) {
        tile = freeTile();
        if (tile < 0) {
            vemo_base::Notice notice;
            notice.kind = vemo_base::Notice::Kind::Warning;
            notice.title = tr("Every tile is being recorded");
            notice.text = tr("Stop a recording, or show more tiles, to see another channel.");
            return vemo_base::Notices::instance().add(notice);
        }
        dropChannel(tile, channel);
    }
    if (m_wall->enlarged() >= 0)
        m_wall->setEnlarged(tile);
    m_wall->setSelected(tile);
}

void LiveStage::dropChannel(int tile, const ChannelRef& channel)
{
    const int before = tileOf(channel);
    if (before >= 0)
        return swapTiles(before, tile);
    setChannel(tile, channel);
}

void LiveStage::setChannel(int tile, const ChannelRef& channel)
{
    if (m_channels[tile] && m_channels[tile]->channel() == channel)
        return;
    std::unique_ptr<LiveChannel> made;
    if (!channel.devId.isEmpty()) {
        made = std::make_unique<LiveChannel>(channel);
        LiveChannel* self = made.get();
        connect(self, &LiveChannel::signalStateChanged, this, [this, self] { tell(tileOf(self)); });
        connect(self->decoder(), &StreamDecoder::signalPicture, this, [this, self] { takePicture(tileOf(self)); });
        connect(self->decoder(), &StreamDecoder::signalFormat, this, [this, self] { tell(tileOf(self)); });
        connect(self->recorder(), &LiveRecorder::signalStateChanged, this, [this, self] {
            tell(tileOf(self));
            settle();
        });
        connect(
            self->recorder(), &LiveRecorder::signalEnded, this,
            [this, self](const QString& problem, const QStringList& files) { takeRecordingEnd(self, problem, files); });
    }
    putChannel(tile, std::move(made));
    settle();
    emit signalChanged();
}

void LiveStage::putChannel(int tile, std::unique_ptr<LiveChannel> channel)
{
    std::unique_ptr<LiveChannel> before = std::exchange(m_channels[tile], std::move(channel));
    m_wall->tile(tile)->setDecoder(m_channels[tile] ? m_channels[tile]->decoder() : nullptr);
    m_clockS[tile] = 0;
    if (before) {
        // Its recording, if there is one, is finished by the end of it.
        const bool records = before->recorder()->isRecording();
        before->disconnect(this);
        before->decoder()->disconnect(this);
        if (records) {
            LiveChannel* leaving = before.release();
            leaving->setParent(this);
            connect(leaving->recorder(), &LiveRecorder::signalEnded, leaving, &QObject::deleteLater,
                    Qt::QueuedConnection);
            leaving->close();
        }
    }
    tell(tile);
}

void LiveStage::swapTiles(int from, int to)
{
    if (from == to)
        return;
    for (const int tile : {from, to})
        m_wall->tile(tile)->setDecoder(nullptr);
    std::swap(m_channels[from], m_channels[to]);
    for (const int tile : {from, to}) {
        m_wall->tile(tile)->setDecoder(m_channels[tile] ? m_channels[tile]->decoder() : nullptr);
        m_clockS[tile] = 0;
        tell(tile);
    }
    settle();
    emit signalChanged();
}

LiveView LiveStage::view() const
{
    LiveView view;
    view.tileCount = m_wall->tileCount();
    for (const std::unique_ptr<LiveChannel>& channel : m_channels)
        view.channels.append(channel ? channel->channel() : ChannelRef());
    return view;
}

void LiveStage::setView(const LiveView& view)
{
    m_wall->setTileCount(view.tileCount);
    for (int i = 0; i < tiles; ++i) {
        const ChannelRef channel = view.channels.value(i);
        const int before = channel.devId.isEmpty() ? -1 : tileOf(channel);
        if (before > i)
            swapTiles(before, i);
        else
            setChannel(i, channel);
    }
}

QVector<ChannelRef> LiveStage::channels() const
{
    QVector<ChannelRef> channels;
    for (const std::unique_ptr<LiveChannel>& channel : m_channels) {
        if (channel && channel->isOpen())
            channels.append(channel->channel());
    }
    return channels;
}

int LiveStage::recordingCount() const
{
    int count = 0;
    for (int i = 0; i < tiles; ++i)
        count += isRecording(i) ? 1 : 0;
    return count;
}

bool LiveStage::hasChannel(int tile) const
{
    return m_channels[tile] != nullptr;
}

bool LiveStage::hasPicture(int tile) const
{
    return hasChannel(tile) && !m_wall->tile(tile)->currentPicture().isNull();
}

bool LiveStage::isRecording(int tile) const
{
    return hasChannel(tile) && m_channels[tile]->recorder()->isRecording();
}

vms_sdk::LiveProfile LiveStage::profileFor(int tile) const
{
    const bool isSmall = m_wall->tileCount() == tiles && m_wall->enlarged() != tile && !isRecording(tile);
    return isSmall ? vms_sdk::LiveProfile::Sub : vms_sdk::LiveProfile::Main;
}

void LiveStage::settle()
{
    if (m_isEnding)
        return;
    for (int i = 0; i < tiles; ++i) {
        LiveChannel* channel = m_channels[i].get();
        if (!channel)
            continue;
        const bool isInGrid = i < m_wall->tileCount();
        const bool isWanted = (isInGrid && (m_isSeen || m_leaveTimer.isActive())) || isRecording(i);
        channel->setShown(m_isSeen && isInGrid && (m_wall->enlarged() < 0 || m_wall->enlarged() == i));
        if (!isWanted)
            channel->close();
        else if (!channel->isOpen())
            channel->open(profileFor(i));
        else
            channel->setProfile(profileFor(i));
    }
    if (m_isSeen || recordingCount() > 0) {
        if (!m_tickTimer.isActive())
            m_tickTimer.start();
    } else {
        m_tickTimer.stop();
    }
}

void LiveStage::letGo()
{
    settle();
    emit signalChanged();
}

void LiveStage::hideEvent(QHideEvent*)
{
    // The wall is a window of its own while it fills the screen.
    m_isSeen = m_wall->isVisible() && m_wall->isWindow();
    if (!m_isSeen)
        m_leaveTimer.start();
    settle();
}

void LiveStage::showEvent(QShowEvent*)
{
    m_leaveTimer.stop();
    m_isSeen = true;
    settle();
    emit signalChanged();
}

void LiveStage::takeAction(int tile, const QString& id)
{
    m_wall->setSelected(tile);
    if (id == snapshotAction())
        takeSnapshot(tile);
    else if (id == recordAction())
        toggleRecording(tile);
    else if (id == enlargeAction())
        m_wall->setEnlarged(m_wall->enlarged() == tile ? -1 : tile);
    else if (id == closeAction())
        setChannel(tile, {});
}

void LiveStage::takeButton(int tile)
{
    LiveChannel* channel = m_channels[tile].get();
    if (!channel)
        return;
    m_logins->retry(channel->channel().devId);
    channel->retry();
}

/// Its channels, names or login changed, or it is gone.
void LiveStage::takeRecorder(const QString& devId)
{
    const bool isKnown = vemo_data::DevsMgrData::instance().contains(devId);
    for (int i = 0; i < tiles; ++i) {
        LiveChannel* channel = m_channels[i].get();
        if (!channel || channel->channel().devId != devId)
            continue;
        if (!isKnown) {
            setChannel(i, {});
            continue;
        }
        if (m_logins->login(devId).phase == RecorderLogins::Phase::Online)
            channel->retry();
        tell(i);
    }
}

void LiveStage::takeSnapshot(int tile)
{
    if (hasPicture(tile))
        m_wall->tile(tile)->requestFullPicture();
}

void LiveStage::saveSnapshot(int tile, const QImage& image, qint64 utcNs)
{
    if (!hasChannel(tile) || image.isNull())
        return;
    PictureSaver::save(m_channels[tile]->channel(), image, utcNs);
    m_wall->tile(tile)->showNote(
        tr("Snapshot of %1")
            .arg(QDateTime::fromMSecsSinceEpoch(utcNs / 1'000'000).toString(QStringLiteral("hh:mm:ss.zzz"))));
}

void LiveStage::toggleRecording(int tile)
{
    if (!hasChannel(tile))
        return;
    LiveRecorder* recorder = m_channels[tile]->recorder();
    if (recorder->isRecording())
        recorder->stop();
    else
        recorder->start();
}

void LiveStage::takeRecordingEnd(const LiveChannel* channel, const QString& problem, const QStringList& files)
{
    using vemo_base::Notice;
    Notice notice;
    const QString name = nameOf(channel->channel());
    if (!problem.isEmpty()) {
        notice.kind = Notice::Kind::Error;
        notice.title = tr("The recording of %1 has ended").arg(name);
        notice.text = files.isEmpty() ? problem : tr("%1 What was recorded until then is kept.").arg(problem);
    } else if (files.isEmpty()) {
        notice.kind = Notice::Kind::Warning;
        notice.title = tr("Nothing of %1 was recorded").arg(name);
        notice.text = tr("No picture came before the recording was stopped.");
    } else {
        notice.kind = Notice::Kind::Success;
        notice.title = tr("The recording of %1 is saved").arg(name);
        notice.text = QFileInfo(files.last()).fileName();
        notice.actions.append(
            {tr("Show in folder"), [path = files.last()] { VCOMMON::ToolsCollection::openFolderAndSelectFile(path); }});
    }
    vemo_base::Notices::instance().add(notice);
}

void LiveStage::takePicture(int tile)
{
    if (tile < 0)
        return;
    tellClock(tile);
    if (m_wall->tile(tile)->stateText().isEmpty())
        return;
    tell(tile);
}

void LiveStage::tellClock(int tile)
{
    const qint64 second = m_channels[tile]->decoder()->picture().utcNs / nsPerS;
    if (second == m_clockS[tile])
        return;
    m_clockS[tile] = second;
    m_wall->tile(tile)->setClockText(
        BaseTools::instance().strDatetime(QDateTime::fromSecsSinceEpoch(second), false, false));
}

void LiveStage::tellActions(int tile)
{
    QVector<VideoTileWt::Action> actions;
    if (hasChannel(tile)) {
        const bool records = isRecording(tile);
        const bool isLarge = m_wall->enlarged() == tile;
        actions = {{snapshotAction(), QStringLiteral("snapshot"), tr("Snapshot (S)"), false, hasPicture(tile)},
                   {recordAction(), QStringLiteral("local-recording"),
                    records ? tr("Stop recording (R)") : tr("Record (R)"), records, true, records}};
        if (m_wall->tileCount() > 1)
            actions.append({enlargeAction(), QStringLiteral("enlarge"),
                            isLarge ? tr("Show all tiles (Enter)") : tr("Enlarge (Enter)"), isLarge});
        actions.append({closeAction(), QStringLiteral("close"), tr("Close the channel (Del)")});
    }
    m_wall->tile(tile)->setActions(actions);
}

void LiveStage::tell(int tile)
{
    if (tile < 0)
        return;
    VideoTileWt* face = m_wall->tile(tile);
    LiveChannel* channel = m_channels[tile].get();
    tellActions(tile);
    if (tile == m_wall->selected())
        emit signalSelectedChanged();
    if (!channel) {
        face->setTitle({});
        face->setClockText({});
        face->setFormatText({});
        face->setRecordingText({});
        face->setDragChannel(std::nullopt);
        face->setMessage(QStringLiteral("live"), tr("Drag a channel here"));
        return;
    }
    face->setTitle(nameOf(channel->channel()));
    face->setDragChannel(channel->channel());
    face->setRecordingText(channel->recorder()->isRecording()
                               ? tr("REC %1").arg(durationText(channel->recorder()->recordedMs()))
                               : QString());
    const VideoFormat format = channel->decoder()->format();
    face->setFormatText(VideoTileWt::formatWords(format), format.decoder.isEmpty()
                                                              ? tr("Decoded by the processor")
                                                              : tr("Decoded by the hardware: %1").arg(format.decoder));
    switch (channel->state()) {
    case LiveChannel::State::Closed:
    case LiveChannel::State::Connecting:
        if (channel->problem().isEmpty())
            face->setBusy(tr("Connecting..."));
        else
            face->setMessage(QStringLiteral("warning"), channel->problem());
        break;
    case LiveChannel::State::Playing:
        if (channel->problem().isEmpty())
            face->clearState();
        else
            face->setMessage(QStringLiteral("warning"), channel->problem());
        break;
    case LiveChannel::State::Waiting:
    case LiveChannel::State::Refused:
        tellWaiting(face, *channel);
        break;
    }
}

void LiveStage::tellWaiting(VideoTileWt* face, const LiveChannel& channel) const
{
    const RecorderLogins::Login login = m_logins->login(channel.channel().devId);
    using Phase = RecorderLogins::Phase;
    if (login.phase == Phase::PasswordWanted || login.phase == Phase::CertificateUnknown) {
        const LoginWords::Failure failure = LoginWords::failureOf(login);
        return face->setMessage(QStringLiteral("lock"), failure.title + QLatin1Char('\n') + failure.advice);
    }
    const QString cause = channel.problem().isEmpty() ? tr("No signal.") : channel.problem();
    if (channel.state() == LiveChannel::State::Refused)
        return face->setMessage(QStringLiteral("lock"),
                                cause + QLatin1Char('\n') + tr("The login can be changed on the page Devices."),
                                tr("Try again"), QStringLiteral("redownload"));
    face->setMessage(QStringLiteral("offline"),
                     cause + QLatin1Char('\n') + tr("Trying again in %1 s").arg(channel.secondsLeft()), tr("Try now"),
                     QStringLiteral("redownload"));
}

void LiveStage::tick()
{
    qint64 bytes = 0;
    int playing = 0;
    for (int i = 0; i < tiles; ++i) {
        LiveChannel* channel = m_channels[i].get();
        if (!channel)
            continue;
        bytes += channel->takeReceivedBytes();
        playing += channel->state() == LiveChannel::State::Playing ? 1 : 0;
        if (channel->state() == LiveChannel::State::Waiting)
            tellWaiting(m_wall->tile(i), *channel);
        if (isRecording(i))
            m_wall->tile(i)->setRecordingText(tr("REC %1").arg(durationText(channel->recorder()->recordedMs())));
    }
    const qint64 ms = m_sinceTick.isValid() ? qMax<qint64>(1, m_sinceTick.restart()) : (m_sinceTick.start(), tickMs);
    emit signalRate(playing, double(bytes) * 8000 / double(ms));
}

void LiveStage::endAll()
{
    m_isEnding = true;
    m_tickTimer.stop();
    for (int i = 0; i < tiles; ++i) {
        if (!m_channels[i])
            continue;
        m_channels[i]->disconnect(this);
        m_channels[i]->recorder()->disconnect(this);
        m_channels[i]->recorder()->stopNow();
        m_wall->tile(i)->setDecoder(nullptr);
        m_channels[i].reset();
    }
}

} // namespace vemo_client
