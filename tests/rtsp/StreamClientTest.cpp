#include "ScriptedReplay.h"

using namespace rtptest;
using namespace vms_sdk;
using namespace vms_sdk::rtsp;

class StreamClientTest final : public QObject
{
    Q_OBJECT

private slots:
    void tellsHowTheRecordingEnded_data();
    void tellsHowTheRecordingEnded();
    void endsInOrderWithoutAPicture_data();
    void endsInOrderWithoutAPicture();
    void waitsNotForSoundThatNeverComes_data();
    void waitsNotForSoundThatNeverComes();
    void keepsFailuresApart_data();
    void keepsFailuresApart();
    void logsIn_data();
    void logsIn();
    void carriesNoLoginToAnotherHost();
    void followsNoRedirectsWithoutEnd();
    void playsWholeFromOddRecorders_data();
    void playsWholeFromOddRecorders();
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
    row("moved elsewhere", StreamEnd::Redirect, 500, StreamOutcome::Broken, ErrorKind::BrokenOff);
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

void StreamClientTest::endsInOrderWithoutAPicture_data()
{
    QTest::addColumn<int>("how");
    QTest::addColumn<bool>("isReplay");
    QTest::newRow("replay, bye") << static_cast<int>(StreamEnd::Bye) << true;
    QTest::newRow("replay, torn down") << static_cast<int>(StreamEnd::TearDown) << true;
    QTest::newRow("live, bye") << static_cast<int>(StreamEnd::Bye) << false;
    QTest::newRow("live, announced") << static_cast<int>(StreamEnd::Announce) << false;
}

void StreamClientTest::endsInOrderWithoutAPicture()
{
    QFETCH(int, how);
    QFETCH(bool, isReplay);
    Script script;
    script.pictures = 0;
    script.end = static_cast<StreamEnd>(how);
    Replay replay(script, 50, [isReplay](StreamRequest* request) { request->replay = isReplay; });
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(replay.log.order, QByteArray("pe"));
    QCOMPARE(static_cast<int>(replay.log.end), static_cast<int>(StreamOutcome::EndByDevice));
    QCOMPARE(static_cast<int>(replay.log.error.kind), static_cast<int>(ErrorKind::NotFound));
    QVERIFY2(replay.log.error.message.contains(isReplay ? QStringLiteral("nothing recorded") : QStringLiteral("live")),
             qPrintable(replay.log.error.message));
}

void StreamClientTest::waitsNotForSoundThatNeverComes_data()
{
    QTest::addColumn<int>("asked"); // pictures, of which the recorder marks the fiftieth as its last
    QTest::addColumn<int>("end");
    QTest::newRow("to the end") << 50 << static_cast<int>(StreamOutcome::EndOfRecording);
    QTest::newRow("beyond the end") << 40 << static_cast<int>(StreamOutcome::EndOfRecording);
    QTest::newRow("ended early") << 500 << static_cast<int>(StreamOutcome::EndByDevice);
}

void StreamClientTest::waitsNotForSoundThatNeverComes()
{
    QFETCH(int, asked);
    QFETCH(int, end);
    Script script;
    script.offersSound = true;
    script.dress = [](const RtspMessage& request, const QByteArray& answer) {
        return request.method != "SETUP" || !request.uri.endsWith("audio")
                   ? answer
                   : QByteArray("RTSP/1.0 200 OK\r\nCSeq: " + request.header("CSeq") +
                                "\r\nTransport: RTP/AVP/TCP;interleaved=6-7\r\nSession: s1\r\n\r\n");
    };
    Replay replay(script, asked, [](StreamRequest* request) { request->silenceTimeoutMs = waitMs; });
    QVERIFY(replay.isStartedAndEnds());
    QCOMPARE(static_cast<int>(replay.log.end), end);
    QCOMPARE(static_cast<int>(replay.log.error.kind), 0);
    compareWithSent(replay.recorder, replay.log, 50);
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
    row("nothing recorded then", refusing("PLAY", 457), ErrorKind::NotFound, "nothing recorded");
    const auto describing = [](const QByteArray& sdp) {
        Script script;
        script.sdp = sdp;
        return script;
    };
    row("no description", describing("<html></html>"), ErrorKind::Corrupt, "no readable description");
    row("metadata alone", describing("v=0\r\nm=application 0 RTP/AVP 107\r\na=rtpmap:107 vnd.onvif.metadata/90000\r\n"),
        ErrorKind::Unsupported, "nothing that can be received");
    row("a codec nobody knows", describing("v=0\r\nm=video 0 RTP/AVP 98\r\na=rtpmap:98 VP9/90000\r\n"),
        ErrorKind::Unsupported, "VP9");
    Script datagrams;
    datagrams.dress = [](const RtspMessage&, const QByteArray& answer) {
        return QByteArray(answer).replace("/TCP;unicast;interleaved=4-5", ";unicast;client_port=4-5");
    };
    row("sends by UDP alone", datagrams, ErrorKind::Unsupported, "over TCP");
    Script web;
    web.redirectTo = "http://127.0.0.1/replay";
    row("redirects to a web page", web, ErrorKind::Refused, "none of RTSP");
    Script odd;
    odd.challenges = {"Negotiate"};
    row("a login nobody knows", odd, ErrorKind::LoginRefused, "no way to log in");
    Script silent;
    silent.rawAnswer = "RTSP/1.0 200 OK\r\nContent-Length: five\r\n\r\n";
    row("a length that is no number", silent, ErrorKind::Corrupt, "no number");
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
#if !defined(__SANITIZE_THREAD__) // making it takes longer there than an answer may
    large.packetize = [](int, const Bytes&) { return fragments(h264Nal(5, 17 << 20, 1), 60'000); };
    row("a picture beyond the limit", large, ErrorKind::Corrupt, "16 MiB");
#endif
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
