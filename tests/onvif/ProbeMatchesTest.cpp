#include "onvif/ProbeMatches.h"

#include <QTest>

using namespace vms_sdk;
using namespace vms_sdk::onvif;

namespace {

const QString messageId = QStringLiteral("urn:uuid:0a0b");
const QHostAddress peer(QStringLiteral("192.168.1.20"));

QByteArray match(const QByteArray& endpoint, const QByteArray& scopes, const QByteArray& addresses)
{
    return "<d:ProbeMatch><a:EndpointReference><a:Address>" + endpoint +
           "</a:Address></a:EndpointReference><d:Types>dn:NetworkVideoTransmitter</d:Types><d:Scopes>" + scopes +
           "</d:Scopes><d:XAddrs>" + addresses + "</d:XAddrs></d:ProbeMatch>";
}

QByteArray answerWith(const QByteArray& matches, const QByteArray& relatesTo = "urn:uuid:0a0b")
{
    return "<?xml version=\"1.0\"?><s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\" "
           "xmlns:a=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\" "
           "xmlns:d=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\"><s:Header><a:RelatesTo>" +
           relatesTo + "</a:RelatesTo></s:Header><s:Body><d:ProbeMatches>" + matches +
           "</d:ProbeMatches></s:Body></s:Envelope>";
}

} // namespace

class ProbeMatchesTest final : public QObject
{
    Q_OBJECT

private slots:
    void readsADevice();
    void judgesAddresses_data();
    void judgesAddresses();
    void makesTextsFitForShowing_data();
    void makesTextsFitForShowing();
    void refusesHostileAnswers_data();
    void refusesHostileAnswers();
};

void ProbeMatchesTest::readsADevice()
{
    const QByteArray scopes = "onvif://www.onvif.org/name/North%20gate\n onvif://www.onvif.org/hardware/NVR-8";
    const QVector<ProbeMatch> found = readProbeMatches(
        answerWith(match(" urn:uuid:ABCD-1 ", scopes, "http://10.0.0.7/x http://192.168.1.20:8080/onvif") +
                   match("", scopes, "http://10.0.0.8/x") + match("uuid:2", {}, "http://10.0.0.9/x")),
        peer, {messageId});
    QCOMPARE(found.size(), 2);
    QCOMPARE(found.at(0).endpoint, QStringLiteral("abcd-1"));
    QCOMPARE(found.at(0).name, QStringLiteral("North gate"));
    QCOMPARE(found.at(0).model, QStringLiteral("NVR-8"));
    // What it answered from comes first.
    QCOMPARE(found.at(0).addresses, (QList<QUrl>{QUrl(QStringLiteral("http://192.168.1.20:8080/onvif")),
                                                 QUrl(QStringLiteral("http://10.0.0.7/x"))}));
    QCOMPARE(found.at(1).endpoint, QStringLiteral("2"));
}

void ProbeMatchesTest::judgesAddresses_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<bool>("isGood");
    const auto row = [](const QByteArray& address, bool isGood = false) {
        QTest::newRow(address.left(60).constData()) << address << isGood;
    };
    row("http://192.168.1.20/onvif/device_service", true);
    row("https://10.1.2.3:8443/", true);
    row("http://[2001:db8::7]/x", true);
    row("ftp://192.168.1.20/");
    row("file:///etc/passwd");
    row("rtsp://192.168.1.20/");
    row("http://admin:pw@192.168.1.20/");
    row("http://recorder.example/onvif");
    row("http://localhost/onvif");
    row("http://127.0.0.1:631/");
    row("http://127.1/");
    row("http://[::1]/");
    row("http://[fe80::1]/x");
    row("http://0.0.0.0/");
    row("http://239.255.255.250/");
    row("http://255.255.255.255/");
    row("http://192.168.1.20:99999/");
    row("http://192.168.1.20/#x");
    row("//192.168.1.20/");
    row("http:///x");
    row("http://192.168.1.20/" + QByteArray(600, 'x'));
}

void ProbeMatchesTest::judgesAddresses()
{
    QFETCH(QByteArray, address);
    QFETCH(bool, isGood);
    const QByteArray datagram = answerWith(match("uuid:1", {}, address));
    QCOMPARE(readProbeMatches(datagram, peer, {messageId}).size(), isGood ? 1 : 0);
    const bool isOwn = address.contains("127.0.0.1") || address.contains("::1]") || address.contains("127.1/");
    const int fromHere = readProbeMatches(datagram, QHostAddress::LocalHost, {messageId}).size();
    QCOMPARE(fromHere, isGood || (isOwn && !address.contains("fe80")) ? 1 : 0);
}

void ProbeMatchesTest::makesTextsFitForShowing_data()
{
    QTest::addColumn<QByteArray>("scope");
    QTest::addColumn<QString>("name");

    QTest::newRow("bidi and lines") << QByteArray("a%E2%80%AEb%0Ac%00d") << QStringLiteral("ab c");
    QTest::newRow("not UTF-8") << QByteArray("a%FFb") << (QStringLiteral("a") + QChar(0xfffd) + QStringLiteral("b"));
    QTest::newRow("half an escape") << QByteArray("a%2") << QStringLiteral("a%2");
    QTest::newRow("long") << QByteArray(5000, 'x') << (QString(64, QLatin1Char('x')) + QChar(0x2026));
    QTest::newRow("markup") << QByteArray("%3Cb%3E") << QStringLiteral("<b>");
}

void ProbeMatchesTest::makesTextsFitForShowing()
{
    QFETCH(QByteArray, scope);
    QFETCH(QString, name);
    const QVector<ProbeMatch> found = readProbeMatches(
        answerWith(match("uuid:1", "onvif://www.onvif.org/name/" + scope, "http://10.0.0.7/")), peer, {messageId});
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().name, name);
}

void ProbeMatchesTest::refusesHostileAnswers_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<int>("devices");
    const QByteArray good = match("uuid:1", {}, "http://10.0.0.7/");

    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("no XML") << QByteArray("\x01\x02 garbage") << 0;
    QTest::newRow("no answer to us") << answerWith(good, "urn:uuid:9") << 0;
    QTest::newRow("cut off") << answerWith(good).chopped(20) << 0;
    QTest::newRow("DTD") << QByteArray("<!DOCTYPE a [<!ENTITY b \"c\">]>" + answerWith(good)) << 0;
    QTest::newRow("too large") << answerWith(good + "<!--" + QByteArray(maxProbeAnswerBytes, 'x') + "-->") << 0;
    QTest::newRow("deep") << answerWith(QByteArray("<x>").repeated(500) + QByteArray("</x>").repeated(500)) << 0;
    QTest::newRow("endpoint without end") << answerWith(match(QByteArray(4000, 'e'), {}, "http://10.0.0.7/")) << 0;
    // As many as fit are read up to the limit.
    QTest::newRow("many devices") << answerWith(match("u:1", {}, "http://10.0.0.7/").repeated(60)) << 60;
    QTest::newRow("too many devices") << answerWith(QByteArray("<ProbeMatch><EndpointReference><Address>1</Address>"
                                                               "</EndpointReference><XAddrs>http://10.0.0.7/</XAddrs>"
                                                               "</ProbeMatch>")
                                                        .repeated(100))
                                      << maxMatchesAnAnswer;
}

void ProbeMatchesTest::refusesHostileAnswers()
{
    QFETCH(QByteArray, datagram);
    QFETCH(int, devices);
    QCOMPARE(readProbeMatches(datagram, peer, {messageId}).size(), devices);
}

QTEST_GUILESS_MAIN(ProbeMatchesTest)
#include "ProbeMatchesTest.moc"
