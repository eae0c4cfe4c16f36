#include "SdkLife.h"

#include <QRegularExpression>

#include <functional>

using namespace vms_sdk;

namespace {

using Dress = std::function<QByteArray(const QByteArray&)>;

QByteArray replaced(const QByteArray& text, const char* pattern, const char* with)
{
    return QString::fromUtf8(text)
        .replace(QRegularExpression(QString::fromLatin1(pattern)), QString::fromUtf8(with))
        .toUtf8();
}

Dress replacing(const char* pattern, const char* with)
{
    return [pattern, with](const QByteArray& text) { return replaced(text, pattern, with); };
}

QByteArray headOf(const QByteArray& answer)
{
    return answer.left(answer.indexOf("\r\n\r\n") + 4);
}

/// The body in chunks of so many bytes (RFC 7230 clause 4.1).
QByteArray chunked(const QByteArray& answer, int bytesEach)
{
    const QByteArray head = headOf(answer);
    QByteArray out = replaced(head, "Content-Length: \\d+", "Transfer-Encoding: chunked");
    const QByteArray body = answer.mid(head.size());
    for (int at = 0; at < body.size(); at += bytesEach) {
        const QByteArray piece = body.mid(at, bytesEach);
        out += QByteArray::number(piece.size(), 16).toUpper() + ";name=\"value\"\r\n" + piece + "\r\n";
    }
    return QByteArray(out + "0\r\nX-Trailer: 1\r\n\r\n");
}

} // namespace

/// SOAP over HTTP in every form that the standards allow, and in some that they don't: what is found is always the
/// same.
class OddDevicesTest final : public QObject
{
    Q_OBJECT

private slots:
    void findsTheSame_data();
    void findsTheSame();

private:
    static void xml(const char* name, const Dress& dress) { QTest::newRow(name) << dress << Dress(); }
    static void http(const char* name, const Dress& dress) { QTest::newRow(name) << Dress() << dress; }
};

Q_DECLARE_METATYPE(Dress)

void OddDevicesTest::findsTheSame_data()
{
    QTest::addColumn<Dress>("dressXml");
    QTest::addColumn<Dress>("dressHttp");
    xml("as it is", Dress());
    xml("other prefixes", [](const QByteArray& text) {
        QByteArray out = text;
        for (const char* prefix : {"e", "tds", "trc", "tse", "trp", "trt", "tt", "wsnt"})
            out = replaced(replaced(out, QByteArray(QByteArray("(</?)") + prefix + ':').constData(),
                                    QByteArray(QByteArray("\\1a-") + prefix + "_9:").constData()),
                           QByteArray(QByteArray("xmlns:") + prefix + '=').constData(),
                           QByteArray(QByteArray("xmlns:a-") + prefix + "_9=").constData());
        return out;
    });
    xml("a namespace told where it is used", [](const QByteArray& text) {
        return replaced(replaced(text, "<(?:tds|tse|trc|trp|trt):(\\w+Response)>", "<\\1 xmlns=\"urn:x\">"),
                        "</(?:tds|tse|trc|trp|trt):(\\w+Response)>", "</\\1>");
    });
    xml("no prefixes", replacing("(</?)(?:e|tds|trc|tse|trp|trt|tt|wsnt):", "\\1"));
    xml("envelope of SOAP 1.1",
        replacing("http://www.w3.org/2003/05/soap-envelope", "http://schemas.xmlsoap.org/soap/envelope/"));
    xml("single quotes", [](QByteArray text) { return text.replace('"', '\''); });
    xml("no declaration", replacing("^<\\?xml[^>]*>", ""));
    xml("declares another character set",
        replacing("^<\\?xml[^>]*>", "<?xml version=\"1.0\" encoding=\"iso-8859-1\" standalone=\"yes\"?>"));
    xml("byte order mark", [](const QByteArray& text) { return QByteArray("\xef\xbb\xbf" + text); });
    xml("line breaks everywhere", replacing("(<[^/?][^>]*>)(?=<)", "\\1\r\n\t  "));
    xml("spaces around values", replacing(">([^<>]+)</", ">\n  \\1\n </"));
    xml("spaces within tags", replacing("<(/?)([\\w:]+)>", "<\\1\\2\n >"));
    xml("comments and instructions", replacing("(</[\\w:]+>)", "\\1<!-- <a> & --><?x y?>"));
    xml("CDATA", replacing(">([^<>]+)</", "><![CDATA[\\1]]></"));
    xml("entities", replacing("-", "&#45;"));
    xml("a header that must be understood",
        replacing("<e:Body>",
                  "<e:Header><x:Y xmlns:x=\"urn:x\" e:mustUnderstand=\"true\">z</x:Y></e:Header><e:Body e:id=\"1\">"));
    xml("elements nobody knows", replacing("(<t\\w+:(?:Service|Result|RecordingItem|Profiles|ResultList)[^>]*>)",
                                           "\\1<x:More xmlns:x=\"urn:x\"><x:Deep a=\"1\"/></x:More>"));
    xml("times with a zone", replacing("(?<=\\dT)08:(\\d\\d:\\d\\d)Z", "10:\\1+02:00"));
    xml("times without a zone", replacing("(T\\d\\d:\\d\\d:\\d\\d)Z", "\\1"));
    xml("times with fractions", replacing("(T\\d\\d:\\d\\d:\\d\\d)Z", "\\1.000000000Z"));
    xml("truth in numbers", replacing("\"true\"", "\"1\""));

    http("one byte a chunk", [](const QByteArray& answer) { return chunked(answer, 1); });
    http("chunks", [](const QByteArray& answer) { return chunked(answer, 1'000); });
    http("an interim answer",
         [](const QByteArray& answer) { return QByteArray("HTTP/1.1 100 Continue\r\n\r\n" + answer); });
    http("interim answers with headers", [](const QByteArray& answer) {
        return QByteArray("HTTP/1.1 102 Processing\r\nX: y\r\n\r\nHTTP/1.1 100 Continue\r\n\r\n" + answer);
    });
    http("lower-case headers", [](const QByteArray& answer) {
        const QByteArray head = headOf(answer);
        return QByteArray(head.left(9) + head.mid(9).toLower() + answer.mid(head.size()));
    });
    http("folded headers", [](const QByteArray& answer) {
        const QByteArray head = headOf(answer);
        return QByteArray(replaced(head, ": ", ":\r\n\t ") + answer.mid(head.size()));
    });
    http("bare line feeds", [](const QByteArray& answer) {
        const QByteArray head = headOf(answer);
        return QByteArray(QByteArray(head).replace("\r\n", "\n") + answer.mid(head.size()));
    });
    http("no reason", replacing("^(HTTP/1.1 \\d+) \\w+", "\\1"));
    http("HTTP 1.0", replacing("^HTTP/1.1", "HTTP/1.0"));
    http("says that it closes", replacing("Content-Type:", "Connection: Close\r\nContent-Type:"));
    http("two equal lengths", replacing("(Content-Length: \\d+)", "\\1\r\n\\1"));
    http("SOAP as text", replacing("application/soap\\+xml", "text/xml; charset=\"UTF-8\""));
}

void OddDevicesTest::findsTheSame()
{
    QFETCH(Dress, dressXml);
    QFETCH(Dress, dressHttp);
    OnvifFake device;
    device.flags.dressXml = dressXml;
    device.flags.dressHttp = dressHttp;
    device.events = {
        OnvifFake::trackState("rec-1", "V", "2026-01-10T00:00:00Z", false, true),
        OnvifFake::trackState("rec-1", "V", "2026-01-10T08:00:00Z", true),
        OnvifFake::motion("rec-1", "2026-01-10T08:10:00Z", true),
        OnvifFake::motion("rec-1", "2026-01-10T08:20:00Z", false),
        OnvifFake::trackState("rec-1", "V", "2026-01-10T08:30:00Z", false),
    };
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).message, QString());
    const DevInfo info = dev_info(QStringLiteral("dev-1"));
    QCOMPARE(info.channels.size(), 2);
    QVERIFY(info.supportsBackup);

    RecsSearchCondition condition;
    condition.requestId = QStringLiteral("search");
    condition.devId = QStringLiteral("dev-1");
    condition.channelNo = 1;
    condition.begin = QDateTime(QDate(2026, 1, 10), QTime(0, 0), Qt::UTC);
    condition.end = QDateTime(QDate(2026, 1, 10), QTime(23, 59, 59), Qt::UTC);
    search_video_recordings_req(condition);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QStringList found;
    for (const VideoRecording& recording : sdk.answers.last().at(2).value<QList<VideoRecording>>()) {
        found.append(recording.fileName + (recording.type == 1 ? QStringLiteral("!") : QString()));
        QCOMPARE(recording.replayUri, QUrl(QStringLiteral("rtsp://127.0.0.1:1/replay/rec-1")));
    }
    QCOMPARE(found, (QStringList{QStringLiteral("rec-1_20260110T080000000Z_20260110T081000000Z"),
                                 QStringLiteral("rec-1_20260110T081000000Z_20260110T082000000Z!"),
                                 QStringLiteral("rec-1_20260110T082000000Z_20260110T083000000Z")}));
}

QTEST_GUILESS_MAIN(OddDevicesTest)
#include "OddDevicesTest.moc"
