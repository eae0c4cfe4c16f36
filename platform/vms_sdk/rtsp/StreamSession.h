#pragma once

#include "CreditGate.h"
#include "MediaChoice.h"
#include "MediaReceiver.h"
#include "ReplayEndJudge.h"
#include "RtspConnection.h"
#include "RtspRequester.h"
#include "StreamClient.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>

namespace vms_sdk::rtsp {

/// The course of one stream, replay or live: from OPTIONS to TEARDOWN, with login, redirects, keep-alive, pause, seek,
/// flow control and the watchdog. The working part of StreamClient, whose contract holds; lives on the same thread.
class StreamSession final : public QObject, private RtspConnection::Handler
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(StreamSession)

public:
    StreamSession(StreamRequest request, QObject* parent);
    ~StreamSession() override;

    void start();
    void pause();
    void resume();
    void setScale(double speed);
    void seek(qint64 beginNs);
    void stop();
    void returnCredit(qint64 bytes);
    qint64 bytesReceived() const;
    qint64 lastTimeNs() const;

signals:
    void playing();
    void packets(const QByteArray& batch);
    void ended(vms_sdk::rtsp::StreamOutcome end, const vms_sdk::Error& error);
    void certificateJudged(const QSslCertificate& certificate, const QByteArray& keySha256, const QString& reason);

private:
    /// Where PLAY is to begin.
    enum class PlayFrom : std::uint8_t { Begin, Pause, LastFrame, Seek };
    enum class Phase : std::uint8_t {
        Idle,
        Connecting,
        Options,
        Describe,
        Setup,
        Play,
        Playing,
        Pausing,
        Paused,
        Resuming,
        Ended,
    };

    // RtspConnection::Handler
    void connectionReady() override;
    void messageReceived(const RtspMessage& message) override;
    void packetReceived(std::uint8_t channel, const std::uint8_t* data, std::size_t bytes) override;
    void socketDrained() override;
    bool mayRead() const override;
    void certificateRefused(const QSslCertificate& certificate, const QByteArray& keySha256,
                            const QString& reason) override;
    void connectionLost(const Error& error) override;

    void connectTo(const QUrl& url);
    void request(const QByteArray& method, const QByteArray& uri, const RtspHeaderList& headers = RtspHeaderList());
    void sendOptions();
    void sendDescribe();
    void sendSetup();
    void sendPlay(PlayFrom from);
    RtspHeaderList playHeaders(PlayFrom from, qint64 beginNs) const;
    void sendPause();
    void sendKeepAlive();

    void answered(const RtspMessage& answer, const RtspRequest& request);
    void describeAnswered(const RtspMessage& answer);
    void setupAnswered(const RtspMessage& answer);
    void playAnswered(const RtspMessage& answer);
    void pauseAnswered(const RtspMessage& answer);
    bool resumeOtherwise(const RtspRequest& request);
    void redirect(const RtspMessage& answer);
    void logIn(const RtspMessage& answer, const RtspRequest& request);
    bool retryPlain(const RtspMessage& answer, const RtspRequest& request);
    void peerRequest(const RtspMessage& message);
    void readPlayAnswer(const RtspMessage& answer);

    bool isStreaming() const;
    bool isSeeking() const { return m_seekWanted || m_seekUnderWay; }
    bool wantsKeyFramesOnly() const;
    void followWishes();
    void emitBatch(const QByteArray& batch);
    void checkEnd();
    void tick();
    void answerTimedOut();
    void mediaLimitPassed(MediaLimit limit);
    QString host() const { return m_url.host(); }
    EndPosition position() const;
    /// The device's time now, as far as it is known.
    qint64 arrivalTimeNs() const;
    void endBy(EndCause cause, const Error& error = Error());
    void fail(const Error& error);
    void finish(StreamOutcome end, const Error& error);
    void shutDown();

    StreamRequest m_request;
    QUrl m_url;             ///< after redirects
    bool m_mayLogIn = true; ///< false on a host to which a redirect led
    int m_redirects = 0;
    Phase m_phase = Phase::Idle;

    RtspConnection* m_connection = nullptr;
    std::unique_ptr<RtspRequester> m_requester;
    QTimer m_answerTimer;
    QTimer m_keepAliveTimer;
    QTimer m_tickTimer;
    bool m_hasGetParameter = false;
    bool m_requireReplay = true;
    int m_sessionTimeoutS = 60;

    QByteArray m_aggregateUri;
    std::vector<ChosenMedium> m_media; ///< in the order of SETUP
    std::size_t m_nextMedium = 0;

    std::unique_ptr<MediaReceiver> m_receiver;
    CreditGate m_gate;
    qint64 m_bytesBefore = 0; ///< over earlier connections

    bool m_wantPaused = false;
    PlayFrom m_playFrom = PlayFrom::Begin; ///< as asked for last
    bool m_heldBack = false;               ///< paused by not reading, because the recorder knows no PAUSE
    bool m_scaleChanged = false;
    bool m_keyFramesOnly = false; ///< as asked for last
    bool m_seekWanted = false;    ///< not yet asked for
    bool m_pausesToSeek = false;  ///< the recorder takes no PLAY while it plays
    bool m_seekUnderWay = false;  ///< asked for: what comes before the answer is from the old place
    double m_scale = 1.0;
    bool m_playingTold = false;
    bool m_batchEmitted = false;

    QElapsedTimer m_sinceProgress; ///< last packet, or the last moment at which nothing could come
    QElapsedTimer m_sincePacket;
    quint64 m_seenPackets = 0;
    qint64 m_seenBytes = 0;
};

} // namespace vms_sdk::rtsp
