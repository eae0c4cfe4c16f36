#pragma once

#include "FrameThinner.h"

#include "devices/ChannelRef.h"
#include "video/PlaybackClock.h"
#include "video/StreamDecoder.h"

#include <VmsTypes.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace vemo_client {

/// Plays the footage of one channel: a replay stream into a decoder whose pictures follow the player's clock. GUI
/// thread; network and decoding run elsewhere.
///
/// The recorder is asked to send as fast as what arrives is used up, so that a picture is there as soon as the network
/// allows, speeds need nothing of the recorder, and a standing clock stops the stream by itself: no more than the
/// stream's credit is on its way. open() begins anew at a time, close() lets go and keeps the shown picture. A stream
/// that breaks off, or can't be opened, is opened again at the clock's time, when what has come is played, after
/// growing pauses, three times in a row; what the recorder refuses is not.
class ChannelPlayer final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ChannelPlayer)

public:
    enum class State : int { Closed = 0, Opening, Playing, Ended, Waiting, Failed };

    static constexpr int mostAttempts = 3;

    explicit ChannelPlayer(const ChannelRef& channel, QObject* parent = nullptr);
    ~ChannelPlayer() override;

    const ChannelRef& channel() const { return m_channel; }
    StreamDecoder* decoder() { return &m_decoder; }

    /// ms since 1970 UTC; the stream plays over gaps, up to `endMs`.
    void open(qint64 fromMs, qint64 endMs);
    void close();
    /// Like close(), but keeps the connection for the next open(), which is to follow at once.
    void park();
    void setKeep(FrameThinner::Keep keep);
    void setClockUs(qint64 us);

    State state() const { return m_state; }
    /// Why it waits or has failed: one sentence.
    const QString& problem() const { return m_problem; }
    /// Where it was last opened.
    qint64 openedMs() const { return m_openedMs; }
    /// Footage time up to which there are pictures; 0: none since it was opened.
    qint64 queuedUntilMs() const;
    /// Whether data is still to be turned into pictures.
    bool isDecoding() const { return m_decoder.waitingBytes() > 0; }
    /// Whether a picture was shown since it was opened.
    bool hasShown() const { return m_hasShown; }

signals:
    void signalStateChanged();
    /// Another picture is shown.
    void signalPicture();

private:
    void takeData(quint64 streamId, const QByteArray& data);
    void takeEvent(quint64 streamId, vms_sdk::StreamEvent event);
    void start(qint64 fromMs);
    void disconnectStream();
    void forget();
    void setState(State state, const QString& problem = QString());
    void waitOrFail();
    void tryAgain();

    const ChannelRef m_channel;
    PlaybackClock m_clock; ///< ahead of the decoder, which follows it
    StreamDecoder m_decoder;
    FrameThinner m_thinner;
    quint64 m_streamId = 0;
    bool m_isParked = false; ///< what comes is thrown away
    qint64 m_openedMs = 0;
    qint64 m_endMs = 0;
    State m_state = State::Closed;
    QString m_problem;
    bool m_hasShown = false;
    int m_attempts = 0;
    QElapsedTimer m_sinceOpened;
    QTimer m_retryTimer;
};

} // namespace vemo_client
