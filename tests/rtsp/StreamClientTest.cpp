#include "ScriptedRecorder.h"
#include "StreamLog.h"

#include <QTest>

#include <functional>

using namespace rtptest;
using namespace vms_sdk;
using namespace vms_sdk::rtsp;

Q_DECLARE_METATYPE(rtptest::Script)

namespace {

constexpr int waitMs = 10'000;

StreamRequest requestTo(const ScriptedRecorder& recorder, int pictures = 50)
{
    StreamRequest request;
    request.url = recorder.url();
    request.user = QStringLiteral("viewer");
    request.password = QStringLiteral("s3cret!word");
    request.beginNs = ScriptedRecorder::beginNs;
    request.endNs = ScriptedRecorder::beginNs + pictures * ScriptedRecorder::frameNs;
    request.rateControl = false;
    request.answerTimeoutMs = 1'000;
    request.connectTimeoutMs = 2'000;
    request.silenceTimeoutMs = 400;
    return request;
}

/// Every picture once, in order, unaltered.
void compareWithSent(const ScriptedRecorder& recorder, const StreamLog& log, int pictures)
{
    QVERIFY(log.batches.readable);
    QCOMPARE(static_cast<int>(log.batches.frames.size()), pictures);
    for (int i = 0; i < pictures; ++i) {
        const BatchLog::Frame& frame = log.batches.frames[static_cast<std::size_t>(i)];
        const QByteArray sent = recorder.payload(i);
        QCOMPARE(frame.header.timeNs, ScriptedRecorder::beginNs + i * ScriptedRecorder::frameNs);
        QVERIFY2(frame.payload == lengthPrefixed({Bytes(sent.begin(), sent.end())}),
                 "a picture was altered on the way");
    }
}

/// A replay from a recorder that follows a script; the request may be changed before it is started.
struct Replay
{
    explicit Replay(const Script& script, int pictures = 50, const std::function<void(StreamRequest*)>& change = {})
        : recorder(script)
        , client([&] {
            StreamRequest request = requestTo(recorder, pictures);
            if (change)
                change(&request);
            return request;
        }())
        , log(client)
    {}

    bool isStartedAndEnds()
    {
        client.start();
        return ends();
    }
    bool ends()
    {
        return QTest::qWaitFor([this] { return log.hasEnded(); }, waitMs);
    }

    ScriptedRecorder recorder;
    StreamClient client;
    StreamLog log;
};

} // namespace

class StreamClientTest final : public QObject
{
    Q_OBJECT

private slots:
    void tellsHowTheRecordingEnded_data();
    void tellsHowTheRecordingEnded();
    void keepsFailuresApart_data();
    void keepsFailuresApart();
    void logsIn_data();
    void logsIn();
    void carriesNoLoginToAnotherHost();
    void followsNoRedirectsWithoutEnd();
    void playsWholeFromOddRecorders_data();
    void playsWholeFromOddRecorders();
    void stopsReadingWithoutCredit();
    void pausesAndGoesOn_data();
    void pausesAndGoesOn();
    void staysAliveWhilePaused();
    void saysNothingAfterStop();
    void mayBeStoppedFromItsOwnSignal();
    void changesItsSpeed();
    void jumps_data();
    void jumps();
    void skimsKeyFrames();
    void endsWhenTheSessionIsForgotten();
    void tellsWhyThereIsNoConnection_data();
    void tellsWhyThereIsNoConnection();
};

void StreamClientTest::tellsHowTheRecordingEnded_data()
{
    QTest::addColumn<int>("how");
    QTest::addColumn<int>("asked"); // pictures
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("error");
    const auto row = [](const char* name, StreamEnd how, int asked, StreamOutcome end,
                        ErrorKind error = ErrorKind::None) {
        QTest::newRow(name) << static_cast<int>(how) << asked << static_cast<int>(end) << static_cast<int>(error);
    };
    row("marked", StreamEnd::Terminal, 50, StreamOutcome::EndOfRecording);
    row("bye", StreamEnd::Bye, 50, StreamOutcome::EndOfRecording);
    row("torn down", StreamEnd::TearDown, 50, StreamOutcome::EndOfRecording);
    row("announced", StreamEnd::Announce, 50, StreamOutcome::EndOfRecording);
    row("closed at the end", StreamEnd::Fin, 50, StreamOutcome::EndOfRecording);
    row("silent at the end", StreamEnd::Silence, 50, StreamOutcome::EndOfRecording);
    row("plays on past the end", StreamEnd::Silence, 49, StreamOutcome::EndOfRecording);
    row("marked early", StreamEnd::Terminal, 500, StreamOutcome::EndByDevice);
    row("bye early", StreamEnd::Bye, 500, StreamOutcome::EndByDevice);
    row("torn down early", StreamEnd::TearDown, 500, StreamOutcome::EndByDevice);
    row("closed early", StreamEnd::Fin, 500, StreamOutcome::Broken, ErrorKind::BrokenOff);
    row("reset early", StreamEnd::Rst, 500, StreamOutcome::Broken, ErrorKind::BrokenOff);
    row("silent early", StreamEnd::Silence, 500, StreamOutcome::Broken, ErrorKind::TimedOut);
    row("silent inside a packet", StreamEnd::HalfPacket, 500, StreamOutcome::Broken, ErrorKind::TimedOut);
}

void StreamClientTest::tellsHowTheRecordingEnded()
{
    QFETCH(int, how);
    QFETCH(int, asked);
    QFETCH(int, end);
    QFETCH(int, error);
    Script script;
    script.end = static_cast<StreamEnd>(how);
    Replay replay(script, asked);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(replay.log.order, QByteArray("pde"));
    QCOMPARE(static_cast<int>(replay.log.end), end);
    QCOMPARE(static_cast<int>(replay.log.error.kind), error);
    if (error != 0)
        QVERIFY2(replay.log.error.message.contains(QStringLiteral("127.0.0.1")), "the sentence names no host");
    compareWithSent(replay.recorder, replay.log, 50);
    QCOMPARE(replay.recorder.last("SETUP").header("Require"), QByteArray("onvif-replay"));
    QCOMPARE(replay.recorder.last("PLAY").header("Rate-Control"), QByteArray("no"));
    QVERIFY(replay.recorder.last("PLAY").header("Range").startsWith("clock=20231114T221320.000Z-20231114T2213"));
}

void StreamClientTest::keepsFailuresApart_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const Script& script, ErrorKind kind, const char* text = "") {
        QTest::newRow(name) << script << static_cast<int>(kind) << QString::fromLatin1(text);
    };
    const auto refusing = [](const char* method, int status) {
        Script script;
        script.refusals.insert(method, status);
        return script;
    };
    row("no such recording", refusing("DESCRIBE", 404), ErrorKind::NotFound);
    row("no bandwidth", refusing("SETUP", 453), ErrorKind::LimitReached);
    row("too many sessions", refusing("PLAY", 503), ErrorKind::LimitReached);
    row("too many connections", refusing("OPTIONS", 503), ErrorKind::LimitReached);
    row("no TCP", refusing("SETUP", 461), ErrorKind::Unsupported);
    row("bad request", refusing("PLAY", 400), ErrorKind::Refused, "400");
    row("forbidden", refusing("DESCRIBE", 403), ErrorKind::Refused);
    row("server error", refusing("DESCRIBE", 500), ErrorKind::Refused);
    for (const char* method : {"OPTIONS", "DESCRIBE", "SETUP", "PLAY"}) {
        Script script;
        script.silentOn = method;
        row(QByteArray(QByteArray("no answer to ") + method).constData(), script, ErrorKind::TimedOut, "within 1 s");
    }
    const auto sending = [](const QByteArray& bytes) {
        Script script;
        script.rawAnswer = bytes;
        return script;
    };
    row("one byte at a time", sending("RTSP/1.0 200 OK\r\nX: y"), ErrorKind::TimedOut, "within 1 s");
    row("endless line", sending("RTSP/1.0 200 OK\r\nX: " + QByteArray(9'000, 'y')), ErrorKind::Corrupt, "8192");
    row("a million headers", sending("RTSP/1.0 200 OK\r\n" + QByteArray("X: y\r\n").repeated(300)), ErrorKind::Corrupt,
        "128");
    row("a body beyond the limit", sending("RTSP/1.0 200 OK\r\nCSeq: 1\r\nContent-Length: 200000\r\n\r\n"),
        ErrorKind::Corrupt, "131072");
    row("no RTSP", sending("SSH-2.0-OpenSSH_9.2\r\n"), ErrorKind::Corrupt);
    Script deaf = sending(QByteArray("OPTIONS * RTSP/1.0\r\nCSeq: 1\r\n\r\n").repeated(600'000));
    deaf.isDeaf = true;
    row("asks without reading", deaf, ErrorKind::Corrupt, "262144");
    Script large;
    large.pictures = 1;
    large.packetize = [](int, const Bytes&) { return fragments(h264Nal(5, 17 << 20, 1), 60'000); };
    row("a picture beyond the limit", large, ErrorKind::Corrupt, "16 MiB");
    large.packetize = [](int, const Bytes& nal) { return std::vector<Bytes>(5'000, nal); };
    row("a picture of too many pieces", large, ErrorKind::Corrupt, "4096");
    Script empty;
    empty.pictures = 0;
    empty.end = StreamEnd::Fin;
    row("closed before the first frame", empty, ErrorKind::BrokenOff);
    empty.end = StreamEnd::Silence;
    row("silent before the first frame", empty, ErrorKind::TimedOut);
}

void StreamClientTest::keepsFailuresApart()
{
    QFETCH(Script, script);
    QFETCH(int, kind);
    QFETCH(QString, text);
    Replay replay(script);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::Failed));
    QCOMPARE(static_cast<int>(replay.log.error.kind), kind);
    QVERIFY2(replay.log.error.message.contains(text) && replay.log.error.message.contains(QStringLiteral("127.0.0.1")),
             qPrintable(replay.log.error.message));
    QVERIFY(!replay.log.error.message.contains(QStringLiteral("s3cret")) &&
            !replay.log.error.context.contains(QStringLiteral("s3cret")));
}

void StreamClientTest::logsIn_data()
{
    QTest::addColumn<QList<QByteArray>>("challenges");
    QTest::addColumn<bool>("forEver");
    QTest::addColumn<bool>("good");
    QTest::addColumn<int>("connectionsAndTries");
    const QByteArray md5 = "Digest realm=\"r\", nonce=\"1\"";
    const QByteArray sha = "Digest realm=\"r\", nonce=\"1\", algorithm=SHA-256, qop=\"auth\"";
    const QByteArray stale = "Digest realm=\"r\", nonce=\"2\", stale=true";
    QTest::newRow("MD5") << QList<QByteArray>{md5} << false << true << 2;
    QTest::newRow("SHA-256") << QList<QByteArray>{sha} << false << true << 2;
    QTest::newRow("stale") << QList<QByteArray>{md5, stale} << false << true << 3;
    QTest::newRow("refused") << QList<QByteArray>{md5} << true << false << 2;
    QTest::newRow("stale for ever") << QList<QByteArray>{stale} << true << false << 4;
    QTest::newRow("Basic in clear") << QList<QByteArray>{"Basic realm=\"r\""} << false << false << 1;
}

void StreamClientTest::logsIn()
{
    QFETCH(QList<QByteArray>, challenges);
    QFETCH(bool, forEver);
    QFETCH(bool, good);
    QFETCH(int, connectionsAndTries);
    Script script;
    script.challenges = challenges;
    script.challengeForEver = forEver;
    Replay replay(script);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(replay.log.end == StreamOutcome::EndOfRecording, good);
    QCOMPARE(replay.log.error.kind == ErrorKind::LoginRefused, !good);
    QCOMPARE(replay.recorder.count("OPTIONS"), connectionsAndTries);
    if (good)
        QVERIFY2(!replay.recorder.last("PLAY").header("Authorization").isEmpty(), "the login is not sent along");
    for (const RtspMessage& request : replay.recorder.requests)
        QVERIFY(!request.serialized().contains("s3cret") && !request.header("Authorization").startsWith("Basic"));
}

void StreamClientTest::carriesNoLoginToAnotherHost()
{
    Script second;
    second.challenges = {"Digest realm=\"r\", nonce=\"1\""};
    second.challengeForEver = true;
    ScriptedRecorder other(second);
    Script first;
    first.challenges = second.challenges;
    first.redirectTo = requestTo(other).url.toEncoded().replace("127.0.0.1", "localhost");
    Replay replay(first);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(other.connections, 1);
    QCOMPARE(static_cast<int>(replay.log.error.kind), static_cast<int>(ErrorKind::LoginRefused));
    QVERIFY(replay.log.error.message.contains(QStringLiteral("localhost")));
    for (const RtspMessage& request : other.requests)
        QVERIFY2(!request.hasHeader("Authorization"), "the login went to another host");
}

void StreamClientTest::followsNoRedirectsWithoutEnd()
{
    ScriptedRecorder target{Script()};
    Script script;
    script.redirectTo = target.url().toEncoded();
    Replay replay(script);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    compareWithSent(target, replay.log, 50);

    script.redirectTo = "/replay?again";
    Replay lost(script);
    QVERIFY(lost.isStartedAndEnds());
    QCOMPARE(static_cast<int>(lost.log.error.kind), static_cast<int>(ErrorKind::Refused));
    QVERIFY(lost.log.error.message.contains(QStringLiteral("5 times")));
    QCOMPARE(lost.recorder.connections, 6);
}

void StreamClientTest::playsWholeFromOddRecorders_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<int>("setups");
    QTest::addColumn<bool>("asksForReplay");
    const auto row = [](const char* name, const std::function<void(Script*)>& change, int setups = 1,
                        bool asksForReplay = true) {
        Script script;
        change(&script);
        QTest::newRow(name) << script << setups << asksForReplay;
    };
    row(
        "knows no replay", [](Script* script) { script->knowsReplay = false; }, 2, false);
    row("tells times in reports only", [](Script* script) {
        script->withoutTimes = true;
        script->end = StreamEnd::Bye;
    });
    row(
        "refuses the sound that it offers", [](Script* script) { script->offersSound = true; }, 2);
    for (const int piece : {1, 3, 1'001}) {
        row(qPrintable(QStringLiteral("answers in pieces of %1").arg(piece)), [piece](Script* script) {
            script->piecesOf = piece;
            script->challenges = {"Digest realm=\"r\", nonce=\"1\""};
        });
    }
}

void StreamClientTest::playsWholeFromOddRecorders()
{
    QFETCH(Script, script);
    QFETCH(int, setups);
    QFETCH(bool, asksForReplay);
    Replay replay(script);
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    compareWithSent(replay.recorder, replay.log, 50);
    QCOMPARE(replay.client.lastTimeNs(), ScriptedRecorder::beginNs + 49 * ScriptedRecorder::frameNs);
    QCOMPARE(replay.recorder.count("SETUP"), setups);
    const RtspMessage play = replay.recorder.last("PLAY");
    QVERIFY(play.hasHeader("Range"));
    QCOMPARE(play.hasHeader("Require") || play.hasHeader("Rate-Control"), asksForReplay);
}

void StreamClientTest::stopsReadingWithoutCredit()
{
    Script script;
    script.pictures = 400;
    script.pictureBytes = 20'000;
    script.picturesAtOnce = 20;
    Replay replay(script, 400, [](StreamRequest* request) {
        request->creditBytes = 300'000;
        request->endNs = 0;
    });
    replay.log.consumes = false;
    replay.client.start();
    QTRY_VERIFY_WITH_TIMEOUT(replay.log.outstandingBytes >= 300'000, waitMs);
    QTest::qWait(1'000); // longer than the silence that would be a fault
    QVERIFY2(replay.log.outstandingBytes < 300'000 + 2 * 64 * 1024, "more was signalled than the credit allows");
    QVERIFY2(replay.client.bytesReceived() < 2'000'000, "the socket was read although the credit was used up");
    QVERIFY(!replay.log.hasEnded());
    replay.log.consumes = true;
    replay.client.returnCredit(replay.log.outstandingBytes);
    replay.log.outstandingBytes = 0;
    QVERIFY(replay.ends());
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndOfRecording));
    compareWithSent(replay.recorder, replay.log, 400);
}

void StreamClientTest::pausesAndGoesOn_data()
{
    QTest::addColumn<bool>("resumeNeedsRange");
    QTest::addColumn<bool>("pauseUnknown");
    QTest::newRow("goes on where it was") << false << false;
    QTest::newRow("needs a range, begins at a key frame") << true << false;
    QTest::newRow("knows no PAUSE") << false << true;
}

void StreamClientTest::pausesAndGoesOn()
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

void StreamClientTest::staysAliveWhilePaused()
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

void StreamClientTest::saysNothingAfterStop()
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

void StreamClientTest::mayBeStoppedFromItsOwnSignal()
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

void StreamClientTest::changesItsSpeed()
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

void StreamClientTest::jumps_data()
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

void StreamClientTest::jumps()
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

void StreamClientTest::skimsKeyFrames()
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

void StreamClientTest::endsWhenTheSessionIsForgotten()
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

void StreamClientTest::tellsWhyThereIsNoConnection_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<int>("kind");
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    QTest::newRow("refused") << QStringLiteral("rtsp://127.0.0.1:%1/x").arg(closed.serverPort())
                             << static_cast<int>(ErrorKind::Unreachable);
    QTest::newRow("no such host") << QStringLiteral("rtsp://no-such-host.invalid/x")
                                  << static_cast<int>(ErrorKind::Unreachable);
    QTest::newRow("no RTSP") << QStringLiteral("http://127.0.0.1/x") << static_cast<int>(ErrorKind::Unsupported);
    QTest::newRow("no host") << QStringLiteral("rtsp:///x") << static_cast<int>(ErrorKind::Unsupported);
}

void StreamClientTest::tellsWhyThereIsNoConnection()
{
    QFETCH(QString, url);
    QFETCH(int, kind);
    StreamRequest request;
    request.url = QUrl(url);
    request.connectTimeoutMs = 5'000;
    StreamClient client(request);
    StreamLog log(client);
    client.start();
    QTRY_VERIFY_WITH_TIMEOUT(log.hasEnded(), waitMs);
    QCOMPARE(log.order, QByteArray("e"));
    QCOMPARE(static_cast<int>(log.end), static_cast<int>(StreamOutcome::Failed));
    QCOMPARE(static_cast<int>(log.error.kind), kind);
}

QTEST_GUILESS_MAIN(StreamClientTest)
#include "StreamClientTest.moc"
