#include "OnvifFake.h"
#include "TestCertificate.h"

#include "onvif/OnvifAnswers.h"
#include "onvif/SoapClient.h"
#include "onvif/UsernameToken.h"
#include "rtsp/PeerKey.h"

#include <KDSoapClient/KDSoapAuthentication.h>
#include <KDSoapClient/KDSoapClientInterface.h>
#include <KDSoapClient/KDSoapMessage.h>
#include <KDSoapClient/KDSoapPendingCall.h>
#include <KDSoapClient/KDSoapPendingCallWatcher.h>

#include <QDateTime>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace vms_sdk;
using namespace vms_sdk::onvif;

namespace {

const QString password = QStringLiteral("s3cret&<word>");

SoapLimits quickLimits()
{
    SoapLimits limits;
    limits.timeouts.connectMs = 5000;
    limits.timeouts.answerMs = 20000;
    return limits;
}

class Client
{
public:
    explicit Client(SoapClient::Login login = {QStringLiteral("admin"), password, {}},
                    SoapLimits limits = quickLimits())
        : soap(std::move(login), limits, [] { return QDateTime::currentMSecsSinceEpoch(); })
    {}

    /// Calls GetDeviceInformation and waits for the answer; counts how often it is answered.
    SoapAnswer ask(const QUrl& address)
    {
        SoapAnswer got({ErrorKind::None, QStringLiteral("never answered"), {}});
        // Not qWaitFor: it sleeps between events, and the device lives on this thread as well.
        QEventLoop loop;
        QTimer::singleShot(30000, &loop, &QEventLoop::quit);
        soap.call(QUrl(address.toString() + QStringLiteral("/onvif/device_service")), requests::getDeviceInformation(),
                  SoapClient::Auth::Login, [&](const SoapAnswer& answer) {
                      got = answer;
                      ++answers;
                      loop.quit();
                  });
        loop.exec();
        return got;
    }

    SoapClient soap;
    int answers = 0;
};

} // namespace

class SoapClientTest final : public QObject
{
    Q_OBJECT

private slots:
    void logsInOnTheDevicesClock();
    void agreesWithAnotherImplementationOnTheToken();
    void answersHttpDigest_data();
    void answersHttpDigest();
    void keepsOneConnectionAndOpensItAgainWhenTheDeviceClosedIt();
    void followsRedirectsOfTheSameHostOnly_data();
    void followsRedirectsOfTheSameHostOnly();
    void endsWhatAHostilePeerDrags_data();
    void endsWhatAHostilePeerDrags();
    void tellsAnUnreachableDevice();
    void cancelsWithoutAnAnswer();
    void neverShowsThePassword();
    void judgesTheCertificateBeforeAnyLogin_data();
    void judgesTheCertificateBeforeAnyLogin();
    void speaksNoOldTls();
    void isNotLedFromTlsToTheOpen();
};

void SoapClientTest::logsInOnTheDevicesClock()
{
    OnvifFake device;
    device.flags.clockOffsetMs = 3 * 3600 * 1000;
    Client client;
    QCOMPARE(client.ask(device.address()).error().kind, ErrorKind::LoginRefused);
    client.soap.setClockSkewMs(device.flags.clockOffsetMs);
    const SoapAnswer answer = client.ask(device.address());
    QCOMPARE(answer.error().kind, ErrorKind::None);
    QCOMPARE(answers::deviceInformation(answer.payload()).model, QStringLiteral("Four Channels"));
}

void SoapClientTest::agreesWithAnotherImplementationOnTheToken()
{
    // KDSoap makes a token of the same nonce and time; the device must see the same digest.
    OnvifFake device;
    KDSoapClientInterface peer(device.address().toString(), namespaceOf(Service::Device));
    KDSoapAuthentication authentication;
    authentication.setUser(QStringLiteral("admin"));
    authentication.setPassword(password);
    authentication.setUseWSUsernameToken(true);
    const QDateTime created = QDateTime::fromMSecsSinceEpoch(1768032000000, Qt::UTC);
    authentication.setOverrideWSUsernameCreatedTime(created);
    authentication.setOverrideWSUsernameNonce("0123456789abcdef");
    peer.setAuthentication(authentication);
    KDSoapPendingCallWatcher watcher(
        peer.asyncCall(QStringLiteral("GetDeviceInformation"), KDSoapMessage(), QStringLiteral("")));
    QSignalSpy finished(&watcher, &KDSoapPendingCallWatcher::finished);
    QVERIFY(finished.wait());
    QCOMPARE(device.requests.size(), 1);
    const QByteArray theirs = device.requests.first();
    const int begin = theirs.indexOf("#PasswordDigest\">") + 17;
    QVERIFY(begin > 17);
    QVERIFY(theirs.contains("2026-01-10T08:00:00Z"));
    QCOMPARE(theirs.mid(begin, theirs.indexOf('<', begin) - begin),
             UsernameToken::digest("0123456789abcdef", QStringLiteral("2026-01-10T08:00:00Z"), password));
}

void SoapClientTest::answersHttpDigest_data()
{
    QTest::addColumn<QByteArray>("challenge");
    QTest::addColumn<bool>("refusesForEver");
    QTest::addColumn<ErrorKind>("kind");
    QTest::addColumn<int>("requests");
    QTest::addColumn<QByteArray>("used");

    QTest::newRow("md5") << QByteArray("Digest realm=\"r\", nonce=\"n\", qop=\"auth\"") << false << ErrorKind::None << 2
                         << QByteArray("Digest username=\"admin\"");
    QTest::newRow("strongest of several")
        << QByteArray(
               "Basic realm=\"r\", Digest realm=\"r\", nonce=\"n\", qop=\"auth\", Digest realm=\"r\", nonce=\"m\", "
               "algorithm=SHA-256, qop=\"auth\"")
        << false << ErrorKind::None << 2 << QByteArray("algorithm=SHA-256");
    QTest::newRow("basic in clear is not answered")
        << QByteArray("Basic realm=\"r\"") << false << ErrorKind::LoginRefused << 1 << QByteArray();
    QTest::newRow("refuses the login") << QByteArray("Digest realm=\"r\", nonce=\"n\", qop=\"auth\"") << true
                                       << ErrorKind::LoginRefused << 2 << QByteArray("Digest");
    QTest::newRow("stale without end") << QByteArray("Digest realm=\"r\", nonce=\"n\", qop=\"auth\", stale=true")
                                       << true << ErrorKind::LoginRefused << 4 << QByteArray("Digest");
}

void SoapClientTest::answersHttpDigest()
{
    QFETCH(QByteArray, challenge);
    QFETCH(bool, refusesForEver);
    QFETCH(ErrorKind, kind);
    QFETCH(int, requests);
    QFETCH(QByteArray, used);
    OnvifFake device;
    device.flags.httpChallenge = challenge;
    device.flags.refusesForEver = refusesForEver;
    Client client;
    QCOMPARE(client.ask(device.address()).error().kind, kind);
    QCOMPARE(device.requests.size(), requests);
    QVERIFY(device.requests.last().contains(used));
    QVERIFY2(!device.requests.last().contains("Authorization: Basic"), "the password went out in clear");
}

void SoapClientTest::keepsOneConnectionAndOpensItAgainWhenTheDeviceClosedIt()
{
    OnvifFake device;
    Client client;
    for (int i = 0; i < 3; ++i)
        QCOMPARE(client.ask(device.address()).error().kind, ErrorKind::None);
    QCOMPARE(device.connections, 1);
    device.flags.closesAfterAnswer = true;
    for (int i = 0; i < 5; ++i)
        QCOMPARE(client.ask(device.address()).error().kind, ErrorKind::None);
}

void SoapClientTest::followsRedirectsOfTheSameHostOnly_data()
{
    QTest::addColumn<int>("redirects");
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<ErrorKind>("kind");
    QTest::addColumn<QString>("named");

    QTest::newRow("to itself") << 3 << QByteArray("/onvif/other") << ErrorKind::None << "";
    QTest::newRow("for ever") << 100 << QByteArray("/onvif/other") << ErrorKind::Corrupt << "more than 5 times";
    QTest::newRow("another host") << 1 << QByteArray("http://localhost:1/onvif") << ErrorKind::Refused << "localhost";
    QTest::newRow("a file") << 1 << QByteArray("file:///etc/passwd") << ErrorKind::Corrupt << "cannot be used";
    QTest::newRow("nowhere") << 1 << QByteArray("http://") << ErrorKind::Corrupt << "cannot be used";
}

void SoapClientTest::followsRedirectsOfTheSameHostOnly()
{
    QFETCH(int, redirects);
    QFETCH(QByteArray, target);
    QFETCH(ErrorKind, kind);
    QFETCH(QString, named);
    OnvifFake device;
    device.flags.redirects = redirects;
    device.flags.redirectTo = target;
    Client client;
    const SoapAnswer answer = client.ask(device.address());
    QCOMPARE(answer.error().kind, kind);
    QVERIFY2(answer.error().message.contains(named), qPrintable(answer.error().message));
    QVERIFY(device.requests.size() <= 6);
}

void SoapClientTest::endsWhatAHostilePeerDrags_data()
{
    QTest::addColumn<QByteArray>("rawAnswer");
    QTest::addColumn<qint64>("endlessBytes");
    QTest::addColumn<bool>("oneByteAtATime");
    QTest::addColumn<ErrorKind>("kind");

    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    QTest::newRow("endless header") << QByteArray(ok + "X: ") << qint64(16 << 20) << false << ErrorKind::Corrupt;
    QTest::newRow("endless body") << QByteArray(ok + "\r\n<a>") << qint64(16 << 20) << false << ErrorKind::Corrupt;
    QTest::newRow("lying length") << QByteArray(ok + "Content-Length: 4000000000\r\n\r\n<a>") << qint64(0) << false
                                  << ErrorKind::Corrupt;
    QTest::newRow("one byte at a time") << QByteArray(ok + QByteArray("X: y\r\n").repeated(100)) << qint64(0) << true
                                        << ErrorKind::TimedOut;
    QTest::newRow("html") << QByteArray(ok + "Content-Length: 13\r\n\r\n<html></html>") << qint64(0) << false
                          << ErrorKind::Corrupt;
    QTest::newRow("no http") << QByteArray("220 ftp ready\r\n") << qint64(0) << false << ErrorKind::Corrupt;
    QTest::newRow("not found") << QByteArray("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n") << qint64(0)
                               << false << ErrorKind::NotFound;
    QTest::newRow("busy") << QByteArray("HTTP/1.1 503 Busy\r\nContent-Length: 0\r\n\r\n") << qint64(0) << false
                          << ErrorKind::LimitReached;
}

void SoapClientTest::endsWhatAHostilePeerDrags()
{
    QFETCH(QByteArray, rawAnswer);
    QFETCH(qint64, endlessBytes);
    QFETCH(bool, oneByteAtATime);
    QFETCH(ErrorKind, kind);
    OnvifFake device;
    device.flags.rawAnswer = rawAnswer;
    device.flags.endlessBytes = endlessBytes;
    device.flags.oneByteASecond = oneByteAtATime;
    SoapLimits limits = quickLimits();
    if (oneByteAtATime)
        limits.timeouts.answerMs = 600;
    Client client({QStringLiteral("admin"), password, {}}, limits);
    QElapsedTimer timer;
    timer.start();
    const SoapAnswer answer = client.ask(device.address());
    QVERIFY2(answer.error().kind == kind, qPrintable(answer.error().message));
    QVERIFY2(timer.elapsed() < 15000, "the answer took longer than its limit");
    QCOMPARE(client.answers, 1);
}

void SoapClientTest::tellsAnUnreachableDevice()
{
    OnvifFake device;
    const QUrl address = device.address();
    device.close();
    Client client;
    const SoapAnswer answer = client.ask(address);
    QCOMPARE(answer.error().kind, ErrorKind::Unreachable);
    QVERIFY(answer.error().message.contains(address.authority()));
}

void SoapClientTest::cancelsWithoutAnAnswer()
{
    OnvifFake device;
    device.flags.isSilent = true;
    Client client;
    bool answered = false;
    QList<quint64> calls;
    for (int i = 0; i < 10; ++i) {
        calls.append(client.soap.call(device.address(), requests::getServices(), SoapClient::Auth::Login,
                                      [&](const SoapAnswer&) { answered = true; }));
    }
    QTRY_VERIFY(device.requests.size() >= 4);
    QVERIFY2(device.connections <= 4, "more connections than one device may get");
    for (const quint64 call : calls)
        client.soap.cancel(call);
    device.flags.isSilent = false;
    QCOMPARE(client.ask(device.address()).error().kind, ErrorKind::None);
    QVERIFY(!answered);
}

void SoapClientTest::neverShowsThePassword()
{
    OnvifFake device;
    device.flags.password = QStringLiteral("another");
    Client client;
    const SoapAnswer answer = client.ask(device.address());
    QCOMPARE(answer.error().kind, ErrorKind::LoginRefused);
    const QByteArray seen = device.requests.join() + answer.error().message.toUtf8() + answer.error().context.toUtf8();
    for (const QByteArray& form : {password.toUtf8(), password.toUtf8().toBase64(),
                                   password.toUtf8().toPercentEncoding(), password.toHtmlEscaped().toUtf8()})
        QVERIFY2(!seen.contains(form), form.constData());
}

void SoapClientTest::judgesTheCertificateBeforeAnyLogin_data()
{
    QTest::addColumn<bool>("isForTheAddress");
    QTest::addColumn<int>("validDays");
    QTest::addColumn<bool>("isAuthority");
    QTest::addColumn<int>("pin"); // 0 none, 1 right, 2 another one
    QTest::addColumn<bool>("isAccepted");

    QTest::newRow("self-signed") << true << 30 << false << 0 << false;
    QTest::newRow("trusted") << true << 30 << true << 0 << true;
    QTest::newRow("trusted, wrong name") << false << 30 << true << 0 << false;
    QTest::newRow("trusted, expired") << true << -1 << true << 0 << false;
    QTest::newRow("pinned") << false << -1 << false << 1 << true;
    QTest::newRow("changed key") << true << 30 << false << 2 << false;
    QTest::newRow("changed key, trusted") << true << 30 << true << 2 << false;
}

void SoapClientTest::judgesTheCertificateBeforeAnyLogin()
{
    QFETCH(bool, isForTheAddress);
    QFETCH(int, validDays);
    QFETCH(bool, isAuthority);
    QFETCH(int, pin);
    QFETCH(bool, isAccepted);
    if (!QSslSocket::supportsSsl())
        QSKIP("Qt was built without TLS");
    const TestCertificate certificate =
        TestCertificate::make(isForTheAddress ? QStringLiteral("127.0.0.1") : QStringLiteral("recorder"), validDays);
    OnvifFake device;
    device.useTls(certificate.serverConfiguration());
    TlsPolicy tls;
    if (isAuthority)
        tls.caCertificates.append(certificate.certificate);
    if (pin != 0)
        tls.pinnedKeySha256 = pin == 1 ? rtsp::peerKeySha256(certificate.certificate) : QByteArray(32, 'x');
    Client client({QStringLiteral("admin"), password, tls});
    QSignalSpy refused(&client.soap, &SoapClient::certificateRefused);
    const SoapAnswer answer = client.ask(device.address());
    QCOMPARE(answer.error().kind, isAccepted ? ErrorKind::None : ErrorKind::CertificateRefused);
    QCOMPARE(refused.size(), isAccepted ? 0 : 1);
    QCOMPARE(device.requests.size(), isAccepted ? 1 : 0);
    if (!isAccepted) {
        QCOMPARE(refused.first().at(1).toByteArray(), rtsp::peerKeySha256(certificate.certificate));
        QCOMPARE(refused.first().at(1).toByteArray().size(), 32);
    }
}

void SoapClientTest::speaksNoOldTls()
{
    const TestCertificate certificate = TestCertificate::make(QStringLiteral("127.0.0.1"));
    OnvifFake device;
    device.useTls(certificate.serverConfiguration(QSsl::TlsV1_1));
    TlsPolicy tls;
    tls.caCertificates.append(certificate.certificate);
    Client client({QStringLiteral("admin"), password, tls});
    const Error error = client.ask(device.address()).error();
    QVERIFY2(error.kind == ErrorKind::CertificateRefused, qPrintable(error.message + error.context));
    QCOMPARE(device.requests.size(), 0);
}

void SoapClientTest::isNotLedFromTlsToTheOpen()
{
    const TestCertificate certificate = TestCertificate::make(QStringLiteral("127.0.0.1"));
    OnvifFake open;
    OnvifFake device;
    device.useTls(certificate.serverConfiguration());
    device.flags.redirects = 1;
    device.flags.redirectTo = open.address().toEncoded() + "/onvif/device_service";
    TlsPolicy tls;
    tls.pinnedKeySha256 = rtsp::peerKeySha256(certificate.certificate);
    Client client({QStringLiteral("admin"), password, tls});
    QCOMPARE(client.ask(device.address()).error().kind, ErrorKind::Refused);
    QCOMPARE(open.connections, 0);
}

QTEST_GUILESS_MAIN(SoapClientTest)
#include "SoapClientTest.moc"
