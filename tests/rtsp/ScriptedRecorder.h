#pragma once

#include "RtpBuilder.h"
#include "RtspMessage.h"
#include "RtspReader.h"

#include <QHash>
#include <QList>
#include <QSslConfiguration>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <memory>
#include <vector>

namespace rtptest {

/// How the stream of a ScriptedRecorder ends.
enum class StreamEnd {
    Terminal, ///< T bit on the last frame
    Bye,
    TearDown,
    Announce,
    Redirect,
    Fin,
    Rst,
    Silence,
    HalfPacket, ///< silence in the middle of an interleaved packet
};

/// What a ScriptedRecorder does; the default plays 50 pictures from the asked begin and marks the last one.
struct Script
{
    int pictures = 50;
    std::size_t pictureBytes = 500;
    StreamEnd end = StreamEnd::Terminal;
    int piecesOf = 0; ///< bytes a write, 0: all at once
    int picturesAtOnce = 1'000;

    QHash<QByteArray, int> refusals; ///< method, status: answered with that
    QByteArray silentOn;             ///< never answers this method
    QByteArray rawAnswer;            ///< answers OPTIONS with these bytes and goes on sending its last byte
    bool isDeaf = false;             ///< reads nothing after the first request
    bool offersSound = false;        ///< a second medium, whose SETUP is refused
    QList<QByteArray> challenges;    ///< one 401 each, before anything else
    bool challengeForEver = false;   ///< the last one again and again
    QByteArray redirectTo;           ///< Location of the answer to DESCRIBE
    bool knowsReplay = true;
    bool resumeNeedsRange = false;
    bool playNeedsPause = false; ///< takes no PLAY while it plays
    int sessionTimeoutS = 60;
    bool withoutTimes = false; ///< no replay extension

    QByteArray sdp;           ///< in place of the own one
    std::uint8_t channel = 4; ///< of the pictures
    bool hasSound = false;    ///< PCMU on channels 6 and 7, one packet of 40 ms behind each picture
    bool playsBeforeItAnswers = false;
    /// What goes out in place of an answer.
    std::function<QByteArray(const vms_sdk::rtsp::RtspMessage& request, const QByteArray& answer)> dress;
    /// The RTP payloads of a picture, in place of FU-A.
    std::function<std::vector<Bytes>(int picture, const Bytes& nal)> packetize;
    /// The last word on an RTP header; `part` counts the packets of the picture.
    std::function<void(Rtp* header, int picture, std::size_t part)> mark;
};

/// A recorder that follows a script, in the test's own thread. It replays one H.264 track in which picture n has the
/// time beginNs + n * 40 ms, and notes what it was asked.
class ScriptedRecorder final : public QTcpServer
{
    Q_OBJECT

public:
    explicit ScriptedRecorder(Script script);
    ~ScriptedRecorder() override;

    /// From now on connections are TLS.
    void secure(const QSslConfiguration& configuration) { m_tls = configuration; }
    QUrl url(const QString& host = QStringLiteral("127.0.0.1")) const;
    QByteArray payload(int picture) const;
    static QByteArray sound(int picture);
    /// The description of the H.264 track, its control address left out.
    static QByteArray videoLines();

    static constexpr std::int64_t beginNs = 1'700'000'000'000'000'000;
    static constexpr std::int64_t frameNs = 40'000'000;

    QList<vms_sdk::rtsp::RtspMessage> requests;
    qint64 bytesHeard = 0;
    int connections = 0;

    int count(const char* method) const;
    vms_sdk::rtsp::RtspMessage firstOf(const char* method) const;
    vms_sdk::rtsp::RtspMessage last(const char* method) const;

protected:
    void incomingConnection(qintptr handle) override;

private:
    void read();
    void answer(const vms_sdk::rtsp::RtspMessage& request);
    void reply(const vms_sdk::rtsp::RtspMessage& request, int status, vms_sdk::rtsp::RtspHeaderList headers = {},
               const QByteArray& body = {});
    void write(const QByteArray& bytes);
    QByteArray description() const;
    void sendPictures();
    QByteArray picturePackets(int picture);
    void sendEnd();

    Script m_script;
    QSslConfiguration m_tls;
    QTcpSocket* m_socket = nullptr;
    std::unique_ptr<vms_sdk::rtsp::RtspReader> m_reader;
    int m_next = 0;
    bool m_playing = false;
    std::uint16_t m_sequence = 0;
    std::uint16_t m_soundSequence = 0;
};

} // namespace rtptest
