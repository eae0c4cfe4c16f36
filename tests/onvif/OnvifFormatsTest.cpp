#include "onvif/OnvifTime.h"
#include "onvif/RecordingFileName.h"
#include "onvif/UsernameToken.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTest>

using namespace vms_sdk::onvif;

class OnvifFormatsTest final : public QObject
{
    Q_OBJECT

private slots:
    void readsTimesAsDevicesWriteThem_data();
    void readsTimesAsDevicesWriteThem();
    void makesTheDigestOfTheProfile();
    void findsTokenAndSpanAgainInAFileName_data();
    void findsTokenAndSpanAgainInAFileName();
    void refusesForeignFileNames_data();
    void refusesForeignFileNames();
};

void OnvifFormatsTest::readsTimesAsDevicesWriteThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isTime");
    QTest::addColumn<qint64>("utcMs");

    const qint64 eight = 1768032000000; // 2026-01-10T08:00:00Z
    QTest::newRow("utc") << "2026-01-10T08:00:00Z" << true << eight;
    QTest::newRow("no zone is utc") << "2026-01-10T08:00:00" << true << eight;
    QTest::newRow("east") << "2026-01-10T10:00:00+02:00" << true << eight;
    QTest::newRow("west") << " 2026-01-10T02:30:00-05:30 " << true << eight;
    QTest::newRow("fraction of one digit") << "2026-01-10T08:00:00.5Z" << true << eight + 500;
    QTest::newRow("fraction of nine digits") << "2026-01-10T08:00:00.123456789Z" << true << eight + 123;
    QTest::newRow("midnight as 24") << "2026-01-09T24:00:00Z" << true << eight - 8 * 3600000;
    QTest::newRow("leap second") << "2026-01-10T07:59:60Z" << true << eight;
    QTest::newRow("no such day") << "2026-02-30T08:00:00Z" << false << qint64(0);
    QTest::newRow("no such minute") << "2026-01-10T08:61:00Z" << false << qint64(0);
    QTest::newRow("date only") << "2026-01-10" << false << qint64(0);
    QTest::newRow("rubbish behind") << "2026-01-10T08:00:00Zx" << false << qint64(0);
    QTest::newRow("nothing") << "" << false << qint64(0);
}

void OnvifFormatsTest::readsTimesAsDevicesWriteThem()
{
    QFETCH(QString, text);
    QFETCH(bool, isTime);
    QFETCH(qint64, utcMs);
    const std::optional<qint64> time = parseDateTime(text);
    QCOMPARE(time.has_value(), isTime);
    QCOMPARE(time.value_or(0), utcMs);
}

void OnvifFormatsTest::makesTheDigestOfTheProfile()
{
    // Computed by hand: Base64(SHA-1(nonce + created + password)) of these values, with Python's hashlib.
    const UsernameToken token =
        UsernameToken::make(QStringLiteral("a<b"), QStringLiteral("pass\u00e4"), "0123456789abcdef", 1768032000000);
    QCOMPARE(token.created, QStringLiteral("2026-01-10T08:00:00.000Z"));
    QCOMPARE(token.nonce, QByteArray("MDEyMzQ1Njc4OWFiY2RlZg=="));
    QCOMPARE(token.passwordDigest, QByteArray("4uBg6w21o3v9KErST13Y02zl7Yo="));
    const QByteArray xml = token.toXml();
    QVERIFY(xml.contains("<wsse:Username>a&lt;b</wsse:Username>"));
    QVERIFY2(!xml.contains("pass"), "the password stands in the header");
}

void OnvifFormatsTest::findsTokenAndSpanAgainInAFileName_data()
{
    QTest::addColumn<QString>("token");

    QTest::newRow("plain") << "Recording-1";
    QTest::newRow("with separators") << "rec_20260110T080000000Z_x";
    QTest::newRow("path") << "../..\\a/b:c*?\"<>|";
    QTest::newRow("percent and tilde") << "%1~41";
    QTest::newRow("umlauts and emoji") << QStringLiteral("T\u00fcr \U0001F6AA");
    QTest::newRow("newline and nul") << QStringLiteral("a\nb") + QChar(0);
    QTest::newRow("longest") << QString(64, QLatin1Char('.'));
    QTest::newRow("empty") << "";
}

void OnvifFormatsTest::findsTokenAndSpanAgainInAFileName()
{
    QFETCH(QString, token);
    const RecordingFileName name{token, 1768032000123, 1768035600000};
    const QString text = name.encode();
    static const QRegularExpression legal(QStringLiteral("^[A-Za-z0-9_~-]{1,255}$"));
    QVERIFY2(legal.match(text).hasMatch(), qPrintable(text));
    const auto decoded = RecordingFileName::decode(text);
    QVERIFY(decoded.has_value());
    QCOMPARE(decoded->recordingToken, token);
    QCOMPARE(decoded->beginMs, name.beginMs);
    QCOMPARE(decoded->endMs, name.endMs);
}

void OnvifFormatsTest::refusesForeignFileNames_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("nothing") << "";
    QTest::newRow("no span") << "recording";
    QTest::newRow("no token separator") << "20260110T080000000Z_20260110T090000000Z";
    QTest::newRow("end before begin") << "a_20260110T090000000Z_20260110T080000000Z";
    QTest::newRow("no such day") << "a_20260230T080000000Z_20260301T080000000Z";
    QTest::newRow("path") << "../a_20260110T080000000Z_20260110T090000000Z";
    QTest::newRow("torn escape") << "a~4_20260110T080000000Z_20260110T090000000Z";
    QTest::newRow("endless") << QString(QString(5000, QLatin1Char('a')) +
                                        QStringLiteral("_20260110T080000000Z_20260110T090000000Z"));
}

void OnvifFormatsTest::refusesForeignFileNames()
{
    QFETCH(QString, name);
    QVERIFY(!RecordingFileName::decode(name));
}

QTEST_APPLESS_MAIN(OnvifFormatsTest)
#include "OnvifFormatsTest.moc"
