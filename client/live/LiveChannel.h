#pragma once

#include "GopBuffer.h"
#include "LiveRecorder.h"

#include "devices/ChannelRef.h"
#include "video/StreamDecoder.h"

#include <VmsTypes.h>

#include <QObject>
#include <QTimer>

namespace vemo_client {

/// One channel that is watched live: its stream, the decoder behind it and, on wish, its recording. GUI thread;
/// network, decoding and disk are elsewhere.
///
/// open() connects, and connects again after growing pauses whenever the stream fails, but not when the recorder
/// refused the login, since many tries would lock the account: that waits for retry(). Stream and recording go on while
/// nobody looks; pictures are decoded only while isShown(), and begin at the latest key frame then.
class LiveChannel final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LiveChannel)

public:
    enum class State : int {
        Closed = 0,
        Connecting, ///< or no picture has come yet
        Playing,
        Waiting, ///< for the next attempt
        Refused, ///< for retry()
    };

    explicit LiveChannel(const ChannelRef& channel, QObject* parent = nullptr);
    ~LiveChannel() override;

    const ChannelRef& channel() const { return m_channel; }
    StreamDecoder* decoder() { return &m_decoder; }
    LiveRecorder* recorder() { return &m_recorder; }

    void open(vms_sdk::LiveProfile profile);
    /// Ends the recording as well; the last picture stays.
    void close();
    bool isOpen() const { return m_state != State::Closed; }
    /// Takes effect at once, by a new connection.
    void setProfile(vms_sdk::LiveProfile profile);
    vms_sdk::LiveProfile profile() const { return m_profile; }
    void setShown(bool shown);
    /// Connects now, whatever it waits for.
    void retry();

    State state() const { return m_state; }
    /// Why there is no picture: a sentence, may be empty.
    const QString& problem() const { return m_problem; }
    vms_sdk::ErrorKind errorKind() const { return m_errorKind; }
    /// Until the next attempt.
    int secondsLeft() const;
    /// Received since the last call.
    qint64 takeReceivedBytes();

    /// Pause before the attempt that follows so many failures in a row: 1, 2, 4 ... 30 s.
    static int pauseS(int failures);

signals:
    void signalStateChanged();

private:
    void takeData(quint64 streamId, const QByteArray& data);
    void takeEvent(quint64 streamId, vms_sdk::StreamEvent event);
    void connectStream();
    void disconnectStream();
    void fail();
    void setState(State state);

    const ChannelRef m_channel;
    StreamDecoder m_decoder;
    LiveRecorder m_recorder;
    GopBuffer m_gop;
    vms_sdk::LiveProfile m_profile = vms_sdk::LiveProfile::Main;
    quint64 m_streamId = 0;
    State m_state = State::Closed;
    bool m_isShown = true;
    QString m_problem;
    vms_sdk::ErrorKind m_errorKind = vms_sdk::ErrorKind::None;
    int m_failures = 0;
    qint64 m_receivedBytes = 0;
    QTimer m_retryTimer;
};

} // namespace vemo_client
