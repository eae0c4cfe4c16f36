#include "ChannelPlayer.h"

#include <vms_sdk.h>

#include <array>
#include <utility>

namespace vemo_client {

namespace {

constexpr qint64 nsAMs = 1'000'000;
constexpr qint64 nsAUs = 1000;
constexpr std::array<int, ChannelPlayer::mostAttempts> pausesMs{1000, 3000, 8000};
constexpr int notYetMs = 250;
/// A stream that played for so long begins to count its failures anew.
constexpr qint64 steadyMs = 10'000;

} // namespace

ChannelPlayer::ChannelPlayer(const ChannelRef& channel, QObject* parent)
    : QObject(parent)
    , m_channel(channel)
{
    m_decoder.setOutput(StreamDecoder::Output::Clocked, &m_clock);
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, &ChannelPlayer::tryAgain);
    connect(&m_decoder, &StreamDecoder::signalConsumed, this, [this](qint64 bytes) {
        if (m_streamId != 0)
            vms_sdk::stream_data_consumed(m_streamId, bytes);
    });
    connect(&m_decoder, &StreamDecoder::signalPicture, this, [this] {
        m_hasShown = true;
        if (m_sinceOpened.isValid() && m_sinceOpened.elapsed() > steadyMs)
            m_attempts = 0;
        emit signalPicture();
    });
    const vms_sdk::ClientSignals& sdk = vms_sdk::ClientSignals::instance();
    connect(&sdk, &vms_sdk::ClientSignals::signalStreamData, this, &ChannelPlayer::takeData);
    connect(&sdk, &vms_sdk::ClientSignals::signalStreamEventPush, this, &ChannelPlayer::takeEvent);
}

ChannelPlayer::~ChannelPlayer()
{
    disconnectStream();
}

void ChannelPlayer::open(qint64 fromMs, qint64 endMs)
{
    m_endMs = endMs;
    m_attempts = 0;
    start(fromMs);
}

void ChannelPlayer::start(qint64 fromMs)
{
    m_retryTimer.stop();
    const bool isParked = m_isParked && m_streamId != 0;
    if (!isParked)
        disconnectStream();
    m_isParked = false;
    m_openedMs = fromMs;
    m_hasShown = false;
    m_sinceOpened.start();
    if (isParked) {
        vms_sdk::playback_seek_req(m_streamId, QDateTime::fromMSecsSinceEpoch(fromMs));
        setState(State::Playing);
        return;
    }
    vms_sdk::PlaybackByTimeCondition condition;
    condition.devId = m_channel.devId;
    condition.channelNo = m_channel.channelNo;
    condition.beginTime = QDateTime::fromMSecsSinceEpoch(fromMs);
    condition.endTime = QDateTime::fromMSecsSinceEpoch(m_endMs);
    condition.flowControl = true;
    m_streamId = vms_sdk::playback_by_time_req(condition);
    vms_sdk::download_speed_set_req(m_streamId, QStringLiteral("100X"));
    setState(State::Opening);
}

void ChannelPlayer::close()
{
    disconnectStream();
    setState(State::Closed);
}

void ChannelPlayer::park()
{
    if (m_state != State::Playing || m_streamId == 0) {
        close();
        return;
    }
    m_isParked = true;
    forget();
    setState(State::Closed);
}

void ChannelPlayer::disconnectStream()
{
    m_retryTimer.stop();
    m_isParked = false;
    if (const quint64 streamId = std::exchange(m_streamId, 0))
        vms_sdk::disconnect_stream_req(streamId);
    forget();
}

/// What is not shown yet, and how the stream is made.
void ChannelPlayer::forget()
{
    m_decoder.reset();
    m_thinner.reset();
}

void ChannelPlayer::setKeep(FrameThinner::Keep keep)
{
    m_thinner.setKeep(keep);
}

void ChannelPlayer::setClockUs(qint64 us)
{
    m_clock.setUtcNs(us * nsAUs);
}

qint64 ChannelPlayer::queuedUntilMs() const
{
    return m_decoder.queuedUntilUtcNs() / nsAMs;
}

void ChannelPlayer::takeData(quint64 streamId, const QByteArray& data)
{
    if (streamId != m_streamId)
        return;
    if (m_isParked) {
        vms_sdk::stream_data_consumed(m_streamId, data.size());
        return;
    }
    const QByteArray kept = m_thinner.thinned(data);
    if (kept.size() < data.size())
        vms_sdk::stream_data_consumed(m_streamId, data.size() - kept.size());
    if (!kept.isEmpty())
        m_decoder.push(kept);
}

void ChannelPlayer::takeEvent(quint64 streamId, vms_sdk::StreamEvent event)
{
    if (streamId != m_streamId)
        return;
    if (m_isParked && event != vms_sdk::StreamPlaying) {
        disconnectStream();
        return;
    }
    switch (event) {
    case vms_sdk::StreamConnecting:
        break;
    case vms_sdk::StreamPlaying:
        setState(State::Playing);
        break;
    case vms_sdk::StreamEndOfRecording:
    case vms_sdk::StreamEndByDevice:
        setState(State::Ended);
        break;
    case vms_sdk::StreamConnectFailed:
    case vms_sdk::StreamBroken:
        waitOrFail();
        break;
    default:
        setState(State::Failed, vms_sdk::stream_error(m_streamId).message);
    }
}

void ChannelPlayer::waitOrFail()
{
    const QString cause = vms_sdk::stream_error(m_streamId).message;
    if (m_attempts >= mostAttempts) {
        setState(State::Failed, cause);
        return;
    }
    m_retryTimer.start(pausesMs[size_t(m_attempts)]);
    ++m_attempts;
    setState(State::Waiting, cause);
}

void ChannelPlayer::tryAgain()
{
    const qint64 clockMs = m_clock.utcNs() / nsAMs;
    if (isDecoding() || queuedUntilMs() > clockMs)
        m_retryTimer.start(notYetMs);
    else
        start(clockMs);
}

void ChannelPlayer::setState(State state, const QString& problem)
{
    if (state == m_state && problem == m_problem)
        return;
    m_state = state;
    m_problem = problem;
    emit signalStateChanged();
}

} // namespace vemo_client
