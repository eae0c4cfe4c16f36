#include "ScriptedReplay.h"

#include <RtspConnection.h>

#include <QTcpServer>

#include <new>
#include <utility>

using namespace rtptest;
using namespace vms_sdk;
using namespace vms_sdk::rtsp;

/// What is wanted of a stream while it plays, and what keeps it alive.
class StreamSteeringTest final : public QObject
{
    Q_OBJECT

private slots:
    void stopsReadingWithoutCredit_data();
    void stopsReadingWithoutCredit();
    void pausesAndGoesOn_data();
    void pausesAndGoesOn();
    void staysAliveWhilePaused();
    void tellsABreakWhilePaused();
    void logsInAnewToStayAlive();
    void saysNothingAfterStop();
    void mayBeStoppedFromItsOwnSignal();
    void changesItsSpeed();
    void keepsItsSpeedWhereNoPauseIsKnown();
    void jumpsBeforeItPlays_data();
    void jumpsBeforeItPlays();
    void tellsARefusedJump();
    void jumps_data();
    void jumps();
    void skimsKeyFrames();
    void endsWhenTheSessionIsForgotten();
    void endsTheConnectionWhenMemoryRunsOut();
};

void StreamSteeringTest::stopsReadingWithoutCredit_data()
{
    QTest::addColumn<bool>("isPausedMeanwhile"); // whose answer lies behind bytes that nobody may read
    QTest::newRow("goes on") << false;
    QTest::newRow("is asked to pause meanwhile") << true;
}

void StreamSteeringTest::stopsReadingWithoutCredit()
{
    QFETCH(bool, isPausedMeanwhile);
    Script script;
    script.pictures = 400;
    script.pictureBytes = 20'000;
    script.picturesAtOnce = 20;
    Replay replay(script, 400, [](StreamRequest* request) {
        request->creditBytes = 300'000;
        request->endNs = 0;
        request->answerTimeoutMs = 400;
    });
    replay.log.consumes = false;
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.outstandingBytes >= 300'000, waitMs);
    if (isPausedMeanwhile)
        replay.client.pause();
    QTest::qWait(1'000); // longer than the silence that would be a fault
    QVERIFY2(replay.log.outstandingBytes < 300'000 + 2 * 64 * 1024, "more was signalled than the credit allows");
    QVERIFY2(replay.client.bytesReceived() < 2'000'000, "the socket was read although the credit was used up");
    QVERIFY(!replay.log.hasEnded());
    replay.log.consumes = true;
    replay.client.resume();
    replay.client.returnCredit(replay.log.outstandingBytes);
    replay.log.outstandingBytes = 0;
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    compareWithSent(replay.recorder, replay.log, 400);
}

void StreamSteeringTest::pausesAndGoesOn_data()
{
    QTest::addColumn<bool>("resumeNeedsRange");
    QTest::addColumn<bool>("pauseUnknown");
    QTest::newRow("goes on where it was") << false << false;
    QTest::newRow("needs a range, begins at a key frame") << true << false;
    QTest::newRow("knows no PAUSE") << false << true;
}

void StreamSteeringTest::pausesAndGoesOn()
{
    QFETCH(bool, resumeNeedsRange);
    QFETCH(bool, pauseUnknown);
    Script script;
    script.pictures = 120;
    script.picturesAtOnce = 7;
    script.resumeNeedsRange = resumeNeedsRange;
    if (pauseUnknown)
        script.refusals.insert("PAUSE", 501);
    Replay replay(script, 120, [](StreamRequest* request) { request->rateControl = true; });
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.batches.frames.size() > 30, waitMs);
    replay.client.pause();
    QTRY_VERIFY_WITH_TIMEOUT(replay.recorder.count("PAUSE") == 1, waitMs);
    QTest::qWait(600); // longer than the silence that would be a fault
    const std::size_t before = replay.log.batches.frames.size();
    QVERIFY(!replay.log.hasEnded() && before < 100);
    replay.client.resume();
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    compareWithSent(replay.recorder, replay.log, 120);
}

void StreamSteeringTest::staysAliveWhilePaused()
{
    Script script;
    script.sessionTimeoutS = 2;
    script.pictures = 1'000;
    script.picturesAtOnce = 5;
    Replay replay(script, 1'000);
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(!replay.log.order.isEmpty(), waitMs);
    replay.client.pause();
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.count("GET_PARAMETER"), 2, waitMs);
    QCOMPARE(replay.recorder.last("GET_PARAMETER").header("Session"), QByteArray("s1"));
}

void StreamSteeringTest::tellsABreakWhilePaused()
{
    Script script;
    script.pictures = 1'000;
    script.picturesAtOnce = 5;
    Replay replay(script, 1'000);
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(!replay.log.batches.frames.empty(), waitMs);
    replay.client.pause();
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.count("PAUSE"), 1, waitMs);
    replay.recorder.findChild<QTcpSocket*>()->disconnectFromHost();
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::Broken));
    QCOMPARE(static_cast<int>(replay.log.error.kind), static_cast<int>(ErrorKind::BrokenOff));
}

void StreamSteeringTest::logsInAnewToStayAlive()
{
    const QByteArray stale = "WWW-Authenticate: Digest realm=\"r\", nonce=\"2\", stale=true\r\n\r\n";
    Script script;
    script.sessionTimeoutS = 2;
    script.pictures = 100'000;
    script.picturesAtOnce = 1;
    script.challenges = {"Digest realm=\"r\", nonce=\"1\""};
    script.dress = [stale](const RtspMessage& request, const QByteArray& answer) {
        const bool isStale =
            request.method == "GET_PARAMETER" && !request.header("Authorization").contains("nonce=\"2\"");
        return isStale ? QByteArray("RTSP/1.0 401 X\r\nCSeq: " + request.header("CSeq") + "\r\n" + stale) : answer;
    };
    Replay replay(script, 100'000, [](StreamRequest* request) { request->answerTimeoutMs = 400; });
    replay.client.start();
    // Refused, said again, and once more in its time: longer than the time of an answer.
    QTRY_VERIFY_WITH_TIMEOUT(replay.recorder.count("GET_PARAMETER") >= 3 || replay.log.hasEnded(), waitMs);
    QVERIFY2(!replay.log.hasEnded(), qPrintable(replay.log.error.message));
    QCOMPARE(replay.recorder.count("GET_PARAMETER"), 3);
}

void StreamSteeringTest::saysNothingAfterStop()
{
    Script script;
    script.pictures = 1'000;
    script.picturesAtOnce = 5;
    Replay replay(script, 1'000);
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(!replay.log.batches.frames.empty(), waitMs);
    replay.client.stop();
    const QByteArray order = replay.log.order;
    const std::size_t frames = replay.log.batches.frames.size();
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.count("TEARDOWN"), 1, waitMs);
    QTest::qWait(100);
    QCOMPARE(replay.log.order, order);
    QCOMPARE(replay.log.batches.frames.size(), frames);
}

void StreamSteeringTest::mayBeStoppedFromItsOwnSignal()
{
    Script script;
    script.pictureBytes = 30'000;
    Replay replay(script);
    connect(&replay.client, &StreamClient::packets, &replay.client, [&replay] { replay.client.stop(); });
    replay.client.start();
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.count("TEARDOWN"), 1, waitMs);
    QTest::qWait(50);
    QCOMPARE(replay.log.order, QByteArray("pd"));
    QCOMPARE(replay.log.batches.batchBytes.size(), std::size_t(1));
}

void StreamSteeringTest::changesItsSpeed()
{
    Script script;
    script.pictures = 200;
    script.picturesAtOnce = 2;
    Replay replay(script, 200, [](StreamRequest* request) { request->rateControl = true; });
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.batches.frames.size() > 10, waitMs);
    QVERIFY(!replay.recorder.last("PLAY").hasHeader("Scale"));
    replay.client.setScale(4);
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.count("PLAY"), 2, waitMs);
    QCOMPARE(replay.recorder.last("PLAY").header("Scale"), QByteArray("4.000"));
    replay.client.setScale(0);
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.count("PLAY"), 3, waitMs);
    QCOMPARE(replay.recorder.last("PLAY").header("Rate-Control"), QByteArray("no"));
    QVERIFY(replay.ends());
    compareWithSent(replay.recorder, replay.log, 200);
}

void StreamSteeringTest::keepsItsSpeedWhereNoPauseIsKnown()
{
    Script script;
    script.pictures = 100;
    script.picturesAtOnce = 2;
    script.refusals.insert("PAUSE", 501);
    Replay replay(script, 100, [](StreamRequest* request) { request->rateControl = true; });
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.batches.frames.size() > 10, waitMs);
    replay.client.setScale(4);
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    compareWithSent(replay.recorder, replay.log, 100);
    QCOMPARE(replay.recorder.count("PAUSE") * 10 + replay.recorder.count("PLAY"), 11);
}

void StreamSteeringTest::jumpsBeforeItPlays_data()
{
    QTest::addColumn<QByteArray>("during"); // the request after which the jump is wanted
    QTest::addColumn<int>("plays");
    QTest::newRow("before it is described") << QByteArray("OPTIONS") << 1;
    QTest::newRow("before it is set up") << QByteArray("DESCRIBE") << 1;
    QTest::newRow("while PLAY is under way") << QByteArray("PLAY") << 2;
    QTest::newRow("while PAUSE is under way") << QByteArray("PAUSE") << 2;
}

void StreamSteeringTest::jumpsBeforeItPlays()
{
    QFETCH(QByteArray, during);
    QFETCH(int, plays);
    StreamClient* client = nullptr;
    Script script;
    script.pictures = 200;
    script.picturesAtOnce = 2;
    script.dress = [&](const RtspMessage& request, const QByteArray& answer) {
        if (request.method == during && client)
            std::exchange(client, nullptr)->seek(ScriptedRecorder::beginNs + 110 * ScriptedRecorder::frameNs);
        return answer;
    };
    Replay replay(script, 200);
    client = &replay.client;
    replay.client.start();
    if (during == "PAUSE") {
        QTRY_VERIFY_WITH_TIMEOUT(!replay.log.batches.frames.empty(), waitMs);
        replay.client.pause();
    }
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    QCOMPARE(replay.recorder.count("PLAY"), plays);
    const auto& frames = replay.log.batches.frames;
    QVERIFY(frames.size() >= 100 && (during == "PAUSE" || frames.size() == 100));
    const std::size_t first = frames.size() - 100;
    for (std::size_t i = first; i < frames.size(); ++i)
        QCOMPARE(frames[i].header.timeNs,
                 ScriptedRecorder::beginNs + static_cast<int>(100 + i - first) * ScriptedRecorder::frameNs);
}

void StreamSteeringTest::tellsARefusedJump()
{
    Script script;
    script.pictures = 100'000;
    script.picturesAtOnce = 1;
    script.dress = [](const RtspMessage& request, const QByteArray& answer) {
        return request.hasHeader("Immediate") ? QByteArray(answer).replace("200 Reason", "457 Invalid Range") : answer;
    };
    Replay replay(script, 100'000);
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(!replay.log.batches.frames.empty(), waitMs);
    replay.client.seek(ScriptedRecorder::beginNs + 500 * ScriptedRecorder::frameNs);
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::Broken));
    QCOMPARE(static_cast<int>(replay.log.error.kind), static_cast<int>(ErrorKind::NotFound));
    QCOMPARE(replay.recorder.count("PAUSE"), 1); // where PLAY might need one
}

void StreamSteeringTest::jumps_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<int>("plays");
    Script script;
    QTest::newRow("while it plays") << script << 2;
    script.playNeedsPause = true;
    QTest::newRow("after a pause, where PLAY needs one") << script << 3;
    script.knowsReplay = false;
    QTest::newRow("without knowing of replay") << script << 3;
}

void StreamSteeringTest::jumps()
{
    QFETCH(Script, script);
    QFETCH(int, plays);
    constexpr int target = 110;
    script.pictures = 200;
    script.picturesAtOnce = 2;
    Replay replay(script, 200, [](StreamRequest* request) { request->rateControl = true; });
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.batches.frames.size() > 10, waitMs);
    const std::size_t before = replay.log.batches.frames.size();
    replay.client.seek(ScriptedRecorder::beginNs + target * ScriptedRecorder::frameNs);
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    const auto& frames = replay.log.batches.frames;
    QCOMPARE(frames.size(), before + 100);
    for (std::size_t i = before; i < frames.size(); ++i)
        QCOMPARE(frames[i].header.timeNs,
                 ScriptedRecorder::beginNs + static_cast<int>(100 + i - before) * ScriptedRecorder::frameNs);
    QCOMPARE(static_cast<int>(frames[before].header.flags), vav::KeyFrame | vav::Discontinuity);
    QCOMPARE(replay.recorder.count("PLAY"), plays);
    const RtspMessage play = replay.recorder.last("PLAY");
    QVERIFY(play.header("Range").startsWith("clock=20231114T221324.400Z-"));
    QCOMPARE(play.header("Immediate"), script.knowsReplay ? QByteArray("yes") : QByteArray());
}

void StreamSteeringTest::skimsKeyFrames()
{
    Script script;
    script.pictures = 300;
    script.picturesAtOnce = 2;
    Replay replay(script, 300, [](StreamRequest* request) { request->rateControl = true; });
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.batches.frames.size() > 10, waitMs);
    replay.client.setScale(8);
    QTRY_COMPARE_WITH_TIMEOUT(replay.recorder.last("PLAY").header("Frames"), QByteArray("intra"), waitMs);
    const std::size_t before = replay.log.batches.frames.size();
    QVERIFY(replay.ends());
    // This recorder sends every picture all the same; the key frames pass, and are no gaps.
    const auto& frames = replay.log.batches.frames;
    QVERIFY(frames.size() > before && frames.size() <= before + 12);
    for (std::size_t i = before; i < frames.size(); ++i)
        QCOMPARE(static_cast<int>(frames[i].header.flags & ~vav::EndOfRecording), static_cast<int>(vav::KeyFrame));
}

void StreamSteeringTest::endsWhenTheSessionIsForgotten()
{
    Script script;
    script.sessionTimeoutS = 2;
    script.pictures = 100'000;
    script.picturesAtOnce = 1;
    script.refusals.insert("GET_PARAMETER", 454);
    Replay replay(script, 100'000);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::Broken));
    QCOMPARE(static_cast<int>(replay.log.error.kind), static_cast<int>(ErrorKind::BrokenOff));
}

namespace {

/// Has no memory for the second packet.
class StarvedHandler final : public RtspConnection::Handler
{
public:
    void connectionReady() override {}
    void messageReceived(const RtspMessage&) override {}
    void packetReceived(std::uint8_t, const std::uint8_t*, std::size_t) override
    {
        if (++packets == 2)
            throw std::bad_alloc();
    }
    void socketDrained() override {}
    bool mayRead() const override { return true; }
    void certificateRefused(const QSslCertificate&, const QByteArray&, const QString&) override {}
    void connectionLost(const Error& error) override { lost = error; }

    int packets = 0;
    Error lost;
};

} // namespace

void StreamSteeringTest::endsTheConnectionWhenMemoryRunsOut()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    connect(&server, &QTcpServer::newConnection, &server,
            [&server] { server.nextPendingConnection()->write(QByteArray("$\0\0\4abcd", 8).repeated(5)); });
    StarvedHandler handler;
    RtspConnection connection(handler, nullptr);
    connection.open(QUrl(QStringLiteral("rtsp://127.0.0.1:%1/").arg(server.serverPort())), {}, waitMs);
    QTRY_COMPARE_WITH_TIMEOUT(static_cast<int>(handler.lost.kind), static_cast<int>(ErrorKind::BrokenOff), waitMs);
    QVERIFY(handler.lost.message.contains(QLatin1String("memory")));
    QCOMPARE(handler.packets, 2);
}

QTEST_GUILESS_MAIN(StreamSteeringTest)
#include "StreamSteeringTest.moc"
