#include <TimeText.h>

#include <QTest>

using vemo_client::TimeText;

/// Times of a command line, on a computer whose clock has summer time.
class tst_TimeText : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void readsTheMomentThatIsMeant_data();
    void readsTheMomentThatIsMeant();
    void refusesWhatIsNoTime_data();
    void refusesWhatIsNoTime();
    void writesWhatItReads_data();
    void writesWhatItReads();
};

void tst_TimeText::initTestCase()
{
    qputenv("TZ", "Europe/Berlin");
    QCOMPARE(QDateTime(QDate(2026, 1, 10), QTime(12, 0)).offsetFromUtc(), 3600);
}

void tst_TimeText::readsTheMomentThatIsMeant_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("utc");
    const auto row = [](const char* text, const char* utc) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(utc);
    };
    row("2026-01-10T08:00:00", "2026-01-10T07:00:00.000Z");
    row("2026-01-10 08:00", "2026-01-10T07:00:00.000Z");
    row("2026-07-10T08:00:00", "2026-07-10T06:00:00.000Z");
    row("2026-01-10T08:00:00Z", "2026-01-10T08:00:00.000Z");
    row("2026-01-10T08:00:00+05:30", "2026-01-10T02:30:00.000Z");
    row("2026-01-10T08:00:00-0800", "2026-01-10T16:00:00.000Z");
    row("2026-01-10T08:00:00.25", "2026-01-10T07:00:00.250Z");
    row("2026-01-10T08:00:00,5Z", "2026-01-10T08:00:00.500Z");
    row("2024-02-29T00:00", "2024-02-28T23:00:00.000Z");
    // Clocks go back at 03:00 on 25 October 2026: 02:30 comes twice, and without an offset it is the first.
    row("2026-10-25T02:30:00", "2026-10-25T00:30:00.000Z");
    row("2026-10-25T02:30:00+01:00", "2026-10-25T01:30:00.000Z");
    row("2026-10-25T03:00:00", "2026-10-25T02:00:00.000Z");
    row("2026-10-25T01:59:59", "2026-10-24T23:59:59.000Z");
}

void tst_TimeText::readsTheMomentThatIsMeant()
{
    QFETCH(QString, text);
    QFETCH(QString, utc);
    const TimeText::Parsed parsed = TimeText::parse(text);
    QVERIFY2(parsed.error.isEmpty(), qPrintable(parsed.error));
    QCOMPARE(parsed.time.timeSpec(), Qt::LocalTime);
    QCOMPARE(parsed.time.toUTC().toString(Qt::ISODateWithMs), utc);
}

void tst_TimeText::refusesWhatIsNoTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("says");
    const auto row = [](const char* text, const char* says) {
        QTest::newRow(text) << QString::fromLatin1(text) << QString::fromLatin1(says);
    };
    row("yesterday", "is not a time");
    row("2026-01-10", "is not a time");
    row("2026-1-10T08:00:00", "is not a time");
    row("2026-01-10T08:00.5", "is not a time");
    row("2026-01-10T08:00:00 +01:00", "is not a time");
    row("2026-01-10T08:00:00\n", "is not a time");
    row("2026-02-29T08:00:00", "no such time");
    row("2026-01-10T24:00:00", "no such time");
    row("2026-01-10T08:60:00", "no such time");
    row("2026-01-10T08:00:00+15:00", "offset");
    row("2026-03-29T02:30:00", "summer time");
}

void tst_TimeText::refusesWhatIsNoTime()
{
    QFETCH(QString, text);
    QFETCH(QString, says);
    const TimeText::Parsed parsed = TimeText::parse(text);
    QVERIFY2(parsed.error.contains(says), qPrintable(parsed.error));
}

void tst_TimeText::writesWhatItReads_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"2026-01-10T08:00:00.250+01:00", "2026-10-25T02:30:00.000+02:00", "2026-10-25T02:30:00.000+01:00"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void tst_TimeText::writesWhatItReads()
{
    QFETCH(QString, text);
    QCOMPARE(TimeText::iso(TimeText::parse(text).time), text);
}

QTEST_GUILESS_MAIN(tst_TimeText)
#include "tst_TimeText.moc"
