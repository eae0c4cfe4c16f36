#include "LiveChannel.h"

#include <vms_sdk.h>

#include <utility>

namespace vemo_client {

namespace {

constexpr int longestPauseS = 30;
constexpr int firstDoublings = 5; ///< 1, 2, 4, 8, 16, then the longest

} // namespace

LiveChannel::LiveChannel(const ChannelRef& channel, QObject* parent)
    : QObject(parent)
    , m_channel(channel)
    , m_recorder(channel)
{
    m_retryTimer.setSingleShot(true);
    connect(&m_retryTimer, &QTimer::timeout, this, &LiveChannel::connectStream);
    connect(&m_decoder, &StreamDecoder::signalPicture, this, [this] {
        m_failures = 0;
        m_problem.clear();
        if (m_streamId != 0)
            setState(State::Playing);
    });
    connect(&m_decoder, &StreamDecoder::signalProblem, this, [this](const QString& sentence) {
        m_problem = sentence;
        emit signalStateChanged();
    });
    connect(&m_recorder, &LiveRecorder::signalReady, this, [this] { m_recorder.begin(m_gop.packets()); });
    const vms_sdk::ClientSignals& sdk = vms_sdk::ClientSignals::instance();
    connect(&sdk, &vms_sdk::ClientSignals::signalStreamData, this, &LiveChannel::takeData);
    connect(&sdk, &vms_sdk::ClientSignals::signalStreamEventPush, this, &LiveChannel::takeEvent);
}

LiveChannel::~LiveChannel()
{
    disconnectStream();
}

int LiveChannel::pauseS(int failures)
{
    return failures > firstDoublings ? longestPauseS : 1 << qMax(0, failures - 1);
}

void LiveChannel::open(vms_sdk::LiveProfile profile)
{
    m_profile = profile;
    m_failures = 0;
    connectStream();
}

void LiveChannel::close()
{
    m_retryTimer.stop();
    disconnectStream();
    m_recorder.stop();
    m_problem.clear();
    setState(State::Closed);
}

void LiveChannel::setProfile(vms_sdk::LiveProfile profile)
{
    if (m_profile == profile)
        return;
    m_profile = profile;
    if (m_streamId != 0)
        connectStream();
}

void LiveChannel::setShown(bool shown)
{
    if (m_isShown == shown)
        return;
    m_isShown = shown;
    m_decoder.reset();
    if (!shown)
        return;
    const QVector<QByteArray> packets = m_gop.packets();
    for (const QByteArray& batch : packets)
        m_decoder.push(batch);
}

void LiveChannel::retry()
{
    if (m_state == State::Waiting || m_state == State::Refused)
        connectStream();
}

int LiveChannel::secondsLeft() const
{
    return m_retryTimer.isActive() ? (m_retryTimer.remainingTime() + 999) / 1000 : 0;
}

qint64 LiveChannel::takeReceivedBytes()
{
    return std::exchange(m_receivedBytes, 0);
}

void LiveChannel::connectStream()
{
    m_retryTimer.stop();
    disconnectStream();
    m_problem.clear();
    m_errorKind = vms_sdk::ErrorKind::None;
    vms_sdk::LiveCondition condition;
    condition.devId = m_channel.devId;
    condition.channelNo = m_channel.channelNo;
    condition.profile = m_profile;
    m_streamId = vms_sdk::live_play_req(condition);
    setState(State::Connecting);
}

void LiveChannel::disconnectStream()
{
    const quint64 streamId = std::exchange(m_streamId, 0);
    if (streamId == 0)
        return;
    vms_sdk::disconnect_stream_req(streamId);
    m_gop.clear();
    m_decoder.reset();
    m_recorder.markGap();
}

void LiveChannel::takeData(quint64 streamId, const QByteArray& data)
{
    if (streamId != m_streamId || streamId == 0)
        return;
    m_receivedBytes += data.size();
    m_gop.add(data);
    m_recorder.push(data);
    if (m_isShown)
        m_decoder.push(data);
    else if (m_state == State::Connecting && !m_gop.isEmpty())
        setState(State::Playing);
}

void LiveChannel::takeEvent(quint64 streamId, vms_sdk::StreamEvent event)
{
    if (streamId != m_streamId || streamId == 0)
        return;
    if (event != vms_sdk::StreamConnecting && event != vms_sdk::StreamPlaying)
        fail();
}

void LiveChannel::fail()
{
    const vms_sdk::Error error = vms_sdk::stream_error(m_streamId);
    disconnectStream();
    m_problem = error.message;
    m_errorKind = error.kind;
    using Kind = vms_sdk::ErrorKind;
    if (error.kind == Kind::LoginRefused || error.kind == Kind::AccountLocked || error.kind == Kind::CertificateRefused)
        return setState(State::Refused);
    m_retryTimer.start(1000 * pauseS(++m_failures));
    setState(State::Waiting);
}

void LiveChannel::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit signalStateChanged();
}

} // namespace vemo_client
