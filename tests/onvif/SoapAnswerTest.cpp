#include "onvif/SoapAnswer.h"
#include "onvif/OnvifAnswers.h"

#include <QElapsedTimer>
#include <QTest>

using namespace vms_sdk;
using namespace vms_sdk::onvif;

namespace {

QByteArray envelope(const QByteArray& body)
{
    return "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\"><s:Body>" + body + "</s:Body></s:Envelope>";
}

QByteArray repeated(const QByteArray& piece, int times)
{
    return piece.repeated(times);
}

} // namespace

class SoapAnswerTest final : public QObject
{
    Q_OBJECT

private slots:
    void refusesHostileXmlInTimeAndNamesTheLimit_data();
    void refusesHostileXmlInTimeAndNamesTheLimit();
    void readsWhatIsWithinTheLimits();
    void tellsWhatAFaultMeans_data();
    void tellsWhatAFaultMeans();
    void showsNoControlCharactersOfADevice();
    void keepsTheStatesOfAnEventSearch();
};

void SoapAnswerTest::refusesHostileXmlInTimeAndNamesTheLimit_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("named");

    const QByteArray bomb = "<!DOCTYPE x [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\">]>";
    QTest::newRow("entities") << QByteArray(bomb + envelope("<a>&b;</a>")) << "document type definition";
    QTest::newRow("external entity")
        << QByteArray("<?xml version=\"1.0\"?>\n<!DOCTYPE x SYSTEM \"file:///etc/passwd\">" + envelope("<a/>"))
        << "document type definition";
    QTest::newRow("dtd inside") << envelope("<!DOCTYPE x []><a/>") << "document type definition";
    QTest::newRow("depth") << envelope(repeated("<a>", 100) + repeated("</a>", 100)) << "deeper than 64";
    QTest::newRow("depth without end") << envelope(repeated("<a>", 500000)) << "deeper than 64";
    QByteArray attributes = "<a";
    // Appended one by one: a string builder would reserve exactly and copy all that stands each time.
    for (int i = 0; i < 400000; ++i)
        attributes.append(" a").append(QByteArray::number(i)).append("=\"\"");
    QTest::newRow("attributes") << envelope(attributes + "/>") << "64 attributes";
    QTest::newRow("elements") << envelope("<r>" + repeated("<a/>", 1000000) + "</r>") << "100000 elements";
    QTest::newRow("long tag") << envelope("<a b=\"" + repeated("x", 200000) + "\"/>") << "tag longer than 65536";
    QTest::newRow("too large") << envelope("<a>" + repeated("x", 9000000) + "</a>") << "larger than 8388608";
    QTest::newRow("utf-16") << QByteArray::fromRawData("\xff\xfe<\0a\0>\0", 8) << "not UTF-8";
    QTest::newRow("hidden by an encoding")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-7\"?>+ADwAIQ-DOCTYPE a+AD4-" + envelope("<a/>"))
        << "cannot be read";
    QTest::newRow("cut") << envelope("<a>x</a>").left(60) << "";
    QTest::newRow("html") << QByteArray("<html><body>Welcome</body></html>") << "cannot be read";
    QTest::newRow("text") << QByteArray("404 not found") << "cannot be read";
    QTest::newRow("nothing") << QByteArray() << "cannot be read";
    QTest::newRow("empty body") << envelope("") << "cannot be read";
    QTest::newRow("crossed tags") << envelope("<a><b></a></b>") << "cannot be read";
}

void SoapAnswerTest::refusesHostileXmlInTimeAndNamesTheLimit()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, named);
    QElapsedTimer timer;
    timer.start();
    const SoapAnswer answer = SoapAnswer::parse(document);
    QVERIFY2(timer.elapsed() < 1000, "reading takes longer than a second");
    QCOMPARE(answer.error().kind, ErrorKind::Corrupt);
    QVERIFY2(answer.error().message.contains(named), qPrintable(answer.error().message));
}

void SoapAnswerTest::readsWhatIsWithinTheLimits()
{
    // Comments, CDATA and quoted '>' must not be taken for markup by the guard.
    const SoapAnswer answer = SoapAnswer::parse(
        "<?xml version=\"1.0\"?><!-- <!DOCTYPE x> -->" +
        envelope("<r q='a>b'><![CDATA[<!DOCTYPE]]>" + repeated("<d>", 61) + "x" + repeated("</d>", 61) + "</r>"));
    QCOMPARE(answer.error().kind, ErrorKind::None);
    QCOMPARE(answer.payload().attribute(QLatin1String("q")), QStringLiteral("a>b"));
    QCOMPARE(answer.payload().text, QStringLiteral("<!DOCTYPE"));
}

void SoapAnswerTest::tellsWhatAFaultMeans_data()
{
    QTest::addColumn<QByteArray>("fault");
    QTest::addColumn<ErrorKind>("kind");

    const auto soap12 = [](const QByteArray& subcodes) {
        return envelope("<s:Fault><s:Code><s:Value>s:Sender</s:Value>" + subcodes +
                        "</s:Code><s:Reason><s:Text>Why</s:Text></s:Reason></s:Fault>");
    };
    const auto subcode = [](const QByteArray& value, const QByteArray& inner = {}) {
        return QByteArray("<s:Subcode><s:Value>" + value + "</s:Value>" + inner + "</s:Subcode>");
    };
    QTest::newRow("login") << soap12(subcode("ter:NotAuthorized")) << ErrorKind::LoginRefused;
    QTest::newRow("security layer") << soap12(subcode("wsse:FailedAuthentication")) << ErrorKind::LoginRefused;
    QTest::newRow("locked") << soap12(subcode("ter:NotAuthorized", subcode("ter:AccountLocked")))
                            << ErrorKind::AccountLocked;
    QTest::newRow("locked alone") << soap12(subcode("ter:AccountLocked")) << ErrorKind::AccountLocked;
    QTest::newRow("no such action") << soap12(subcode("ter:ActionNotSupported")) << ErrorKind::Unsupported;
    QTest::newRow("unknown token") << soap12(subcode("ter:InvalidArgVal", subcode("ter:InvalidToken")))
                                   << ErrorKind::NotFound;
    QTest::newRow("resources") << soap12(subcode("ter:ResourceProblem")) << ErrorKind::LimitReached;
    QTest::newRow("anything") << soap12(subcode("ter:Whatever")) << ErrorKind::Refused;
    QTest::newRow("no subcode") << soap12({}) << ErrorKind::Refused;
    QTest::newRow("soap 1.1")
        << envelope("<s:Fault><faultcode>ter:NotAuthorized</faultcode><faultstring>no</faultstring></s:Fault>")
        << ErrorKind::LoginRefused;
}

void SoapAnswerTest::tellsWhatAFaultMeans()
{
    QFETCH(QByteArray, fault);
    QFETCH(ErrorKind, kind);
    const SoapAnswer answer = SoapAnswer::parse(fault);
    QVERIFY(answer.isFault());
    QCOMPARE(answer.error().kind, kind);
    QVERIFY(!answer.error().message.isEmpty());
}

void SoapAnswerTest::showsNoControlCharactersOfADevice()
{
    const QString text =
        QStringLiteral("a\tb\nc") + QChar(0x202E) + QStringLiteral("gpj.exe") + QString(500, QLatin1Char('z'));
    const QString shown = shownText(text, 40);
    QVERIFY(shown.startsWith(QStringLiteral("a b cgpj.exe")));
    QVERIFY(shown.size() <= 41);
}

void SoapAnswerTest::keepsTheStatesOfAnEventSearch()
{
    const SoapAnswer answer = SoapAnswer::parse(envelope(
        "<GetEventSearchResultsResponse><ResultList><SearchState>Completed</SearchState>"
        "<Result><RecordingToken>r</RecordingToken><TrackToken>t</TrackToken><Time>2026-01-10T08:00:00.5Z</Time><Event>"
        "<Topic> tns1:RecordingHistory/tns1:Track/State </Topic><Message><Message><Data><SimpleItem "
        "Name='IsDataPresent' "
        "Value='true'/></Data></Message></Message></Event><StartStateEvent>true</StartStateEvent></Result>"
        "<Result><Event><Topic>no/time</Topic></Event></Result>"
        "</ResultList></GetEventSearchResultsResponse>"));
    const auto results = answers::eventSearchResults(answer.payload());
    QVERIFY(results.completed);
    QCOMPARE(results.entries.size(), 1);
    QCOMPARE(results.entries.first().topic, QStringLiteral("RecordingHistory/Track/State"));
    QCOMPARE(results.entries.first().timeMs, 1768032000500LL);
    QVERIFY(results.entries.first().state.value_or(false));
    QVERIFY(results.entries.first().isStartState);
}

QTEST_APPLESS_MAIN(SoapAnswerTest)
#include "SoapAnswerTest.moc"
