#include "PeerKey.h"
#include "ScriptedRecorder.h"
#include "StreamLog.h"
#include "TestCertificate.h"

#include <QTest>

using namespace rtptest;
using namespace vms_sdk;
using namespace vms_sdk::rtsp;

namespace {

constexpr int waitMs = 10'000;

StreamRequest requestTo(const ScriptedRecorder& recorder, const QString& host)
{
    StreamRequest request;
    request.url = recorder.url(host);
    request.user = QStringLiteral("viewer");
    request.password = QStringLiteral("s3cret!word");
    request.beginNs = ScriptedRecorder::beginNs;
    request.endNs = ScriptedRecorder::beginNs + 50 * ScriptedRecorder::frameNs;
    request.silenceTimeoutMs = 1'000;
    request.answerTimeoutMs = 3'000;
    return request;
}

} // namespace

class StreamClientTlsTest final : public QObject
{
    Q_OBJECT

private slots:
    void judgesThePeerBeforeAByteIsSent_data();
    void judgesThePeerBeforeAByteIsSent();
    void tellsWhyNothingIsSecure_data();
    void tellsWhyNothingIsSecure();
    void sendsBasicOverTlsOnly();
    void isNotLedFromTlsToTheOpen();

private:
    void play(const Script& script, const std::function<void(ScriptedRecorder&, StreamLog&)>& check);
};

void StreamClientTlsTest::judgesThePeerBeforeAByteIsSent_data()
{
    QTest::addColumn<QString>("certificateHost");
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("trust"); // nothing, ca, pin, other pin, ca and other pin
    QTest::addColumn<bool>("oldProtocol");
    QTest::addColumn<int>("kind");
    const QString local = QStringLiteral("localhost");
    const QString address = QStringLiteral("127.0.0.1");
    const auto row = [](const char* name, const QString& certificateHost, int days, const QString& host,
                        const char* trust, bool oldProtocol, ErrorKind kind) {
        QTest::newRow(name) << certificateHost << days << host << QString::fromLatin1(trust) << oldProtocol
                            << static_cast<int>(kind);
    };
    row("self-signed, unknown", local, 2, local, "nothing", false, ErrorKind::CertificateRefused);
    row("trusted", local, 2, local, "ca", false, ErrorKind::None);
    row("trusted, by address", address, 2, address, "ca", false, ErrorKind::None);
    row("trusted, other name", local, 2, address, "ca", false, ErrorKind::CertificateRefused);
    row("trusted, expired", local, -1, local, "ca", false, ErrorKind::CertificateRefused);
    row("pinned", local, 2, local, "pin", false, ErrorKind::None);
    row("pinned, other name and expired", local, -1, address, "pin", false, ErrorKind::None);
    row("changed key", local, 2, local, "other pin", false, ErrorKind::CertificateRefused);
    row("trusted, but the key has changed", local, 2, local, "ca and other pin", false, ErrorKind::CertificateRefused);
    row("old protocol", local, 2, local, "ca", true, ErrorKind::Unsupported);
}

void StreamClientTlsTest::judgesThePeerBeforeAByteIsSent()
{
    QFETCH(QString, certificateHost);
    QFETCH(int, days);
    QFETCH(QString, host);
    QFETCH(QString, trust);
    QFETCH(bool, oldProtocol);
    QFETCH(int, kind);
    const TestCertificate made = TestCertificate::make(certificateHost, days);
    QVERIFY(!made.certificate.isNull() && !made.key.isNull());
    ScriptedRecorder recorder{Script()};
    recorder.secure(made.serverConfiguration(oldProtocol ? QSsl::TlsV1_1 : QSsl::TlsV1_2OrLater));

    StreamRequest request = requestTo(recorder, host);
    if (trust.startsWith(QStringLiteral("ca")))
        request.tls.caCertificates.append(made.certificate);
    if (trust == QStringLiteral("pin"))
        request.tls.pinnedKeySha256 = peerKeySha256(made.certificate);
    if (trust.endsWith(QStringLiteral("other pin")))
        request.tls.pinnedKeySha256 = QByteArray(32, 'x');
    StreamClient client(request);
    StreamLog log(client);
    client.start();
    QTRY_VERIFY_WITH_TIMEOUT(log.hasEnded(), waitMs);
    QCOMPARE(static_cast<int>(log.error.kind), kind);
    if (kind == 0) {
        QCOMPARE(log.batches.frames.size(), std::size_t(50));
        return;
    }
    QCOMPARE(recorder.bytesHeard, 0);
    QCOMPARE(log.order, QByteArray(kind == static_cast<int>(ErrorKind::CertificateRefused) ? "ce" : "e"));
    if (kind == static_cast<int>(ErrorKind::CertificateRefused))
        QCOMPARE(log.keySha256, peerKeySha256(made.certificate));
}

void StreamClientTlsTest::tellsWhyNothingIsSecure_data()
{
    QTest::addColumn<QByteArray>("greeting"); // and then it hangs up; none: it stays silent
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("silent") << QByteArray() << static_cast<int>(ErrorKind::TimedOut) << "did not answer";
    QTest::newRow("hangs up") << QByteArray("") << static_cast<int>(ErrorKind::Unsupported) << "ended the attempt";
    QTest::newRow("speaks in the open") << QByteArray("RTSP/1.0 400 Bad Request\r\n\r\n")
                                        << static_cast<int>(ErrorKind::Unsupported) << "No secure connection";
}

void StreamClientTlsTest::tellsWhyNothingIsSecure()
{
    QFETCH(QByteArray, greeting);
    QFETCH(int, kind);
    QFETCH(QString, text);
    QTcpServer peer;
    QVERIFY(peer.listen(QHostAddress::LocalHost));
    connect(&peer, &QTcpServer::newConnection, this, [&] {
        QTcpSocket* socket = peer.nextPendingConnection();
        if (greeting.isNull())
            return;
        socket->write(greeting);
        socket->disconnectFromHost();
    });
    StreamRequest request;
    request.url = QUrl(QStringLiteral("rtsps://127.0.0.1:%1/replay").arg(peer.serverPort()));
    request.connectTimeoutMs = greeting.isNull() ? 300 : waitMs;
    StreamClient client(request);
    StreamLog log(client);
    client.start();
    QTRY_VERIFY_WITH_TIMEOUT(log.hasEnded(), waitMs);
    QCOMPARE(log.order, QByteArray("e"));
    QCOMPARE(static_cast<int>(log.error.kind), kind);
    QVERIFY2(log.error.message.contains(text), qPrintable(log.error.message));
}

/// The end of a replay by the script, from a recorder whose certificate is trusted.
void StreamClientTlsTest::play(const Script& script, const std::function<void(ScriptedRecorder&, StreamLog&)>& check)
{
    const TestCertificate made = TestCertificate::make(QStringLiteral("localhost"));
    ScriptedRecorder recorder(script);
    recorder.secure(made.serverConfiguration());
    StreamRequest request = requestTo(recorder, QStringLiteral("localhost"));
    request.tls.caCertificates.append(made.certificate);
    StreamClient client(request);
    StreamLog log(client);
    client.start();
    QTRY_VERIFY_WITH_TIMEOUT(log.hasEnded(), waitMs);
    check(recorder, log);
}

void StreamClientTlsTest::sendsBasicOverTlsOnly()
{
    Script script;
    script.challenges = {"Basic realm=\"r\""};
    play(script, [](ScriptedRecorder& recorder, StreamLog& log) {
        QCOMPARE(static_cast<int>(log.end), static_cast<int>(StreamOutcome::EndOfRecording));
        QCOMPARE(recorder.last("PLAY").header("Authorization"), "Basic " + QByteArray("viewer:s3cret!word").toBase64());
    });
}

void StreamClientTlsTest::isNotLedFromTlsToTheOpen()
{
    ScriptedRecorder open{Script()};
    Script script;
    script.redirectTo = open.url(QStringLiteral("localhost")).toEncoded();
    play(script, [](ScriptedRecorder&, StreamLog& log) {
        QCOMPARE(static_cast<int>(log.error.kind), static_cast<int>(ErrorKind::Refused));
    });
    QCOMPARE(open.connections, 0);
}

QTEST_GUILESS_MAIN(StreamClientTlsTest)
#include "StreamClientTlsTest.moc"
