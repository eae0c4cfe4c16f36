#include "playback/SpanBar.h"
#include "playback/SpanPick.h"

#include <axis/AxisRow.h>
#include <axis/DayAxis.h>

#include <QTest>

using vemo_base::AxisRow;
using vemo_base::DayAxis;
using vemo_base::TimeSpan;
using vemo_client::SpanBar;
using vemo_client::SpanPick;

namespace {

constexpr qint64 hourMs = 3'600'000;

QTimeZone berlin()
{
    return QTimeZone("Europe/Berlin");
}

qint64 utc(const char* text)
{
    return QDateTime::fromString(QString::fromLatin1(text) + QLatin1Char('Z'), Qt::ISODate).toMSecsSinceEpoch();
}

double hour(double position)
{
    return position * 24;
}

vms_sdk::VideoRecording recording(const char* beginUtc, const char* endUtc, int type = 0)
{
    vms_sdk::VideoRecording made;
    made.begin = QDateTime::fromMSecsSinceEpoch(utc(beginUtc));
    made.end = QDateTime::fromMSecsSinceEpoch(utc(endUtc));
    made.type = type;
    return made;
}

} // namespace

/// A day on a time axis, the nights included in which clocks are set, and spans that are marked on it.
class tst_DayAxis : public QObject
{
    Q_OBJECT

private slots:
    void laysADayOnTheAxis_data();
    void laysADayOnTheAxis();
    void placesTimesByTheClock_data();
    void placesTimesByTheClock();
    void readsPositionsBack_data();
    void readsPositionsBack();
    void splitsAPieceWhereTheClockWasSet();
    void leavesLabelsOutWhenTheyWouldTouch();
    void drawsManyRecordingsAsFewRuns();
    void namesTheGapAndTheAlarmUnderThePointer();
    void countsFootageThatOverlapsOnce();
    void marksASpanByTheMouse_data();
    void marksASpanByTheMouse();
    void keepsTheMarkOnAClickAndOnEscape();
    void readsClockTimesAsASpan_data();
    void readsClockTimesAsASpan();
};

void tst_DayAxis::laysADayOnTheAxis_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<int>("hours");
    QTest::addColumn<int>("missing");
    QTest::addColumn<int>("doubled");

    QTest::newRow("plain day") << QDate(2026, 1, 10) << QByteArray("Europe/Berlin") << 24 << 0 << 0;
    QTest::newRow("clocks forward") << QDate(2026, 3, 29) << QByteArray("Europe/Berlin") << 23 << 1 << 0;
    QTest::newRow("clocks back") << QDate(2026, 10, 25) << QByteArray("Europe/Berlin") << 25 << 0 << 1;
    QTest::newRow("no clock ever") << QDate(2026, 3, 29) << QByteArray("UTC") << 24 << 0 << 0;
    QTest::newRow("forward at midnight") << QDate(2026, 4, 24) << QByteArray("Africa/Cairo") << 23 << 1 << 0;
}

void tst_DayAxis::laysADayOnTheAxis()
{
    QFETCH(const QDate, day);
    QFETCH(const QByteArray, zone);
    QFETCH(const int, hours);
    QFETCH(const int, missing);
    QFETCH(const int, doubled);
    const DayAxis axis(day, QTimeZone(zone));
    QCOMPARE(axis.lengthMs(), hours * hourMs);
    QCOMPARE(axis.missing().size(), missing);
    QCOMPARE(axis.doubled().size(), doubled);
    QCOMPARE(axis.positionOf(axis.endMs()), 1.0);
}

void tst_DayAxis::placesTimesByTheClock_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<qint64>("ms");
    QTest::addColumn<double>("clock");

    const QDate winter(2026, 1, 10);
    const QDate forward(2026, 3, 29);
    const QDate back(2026, 10, 25);
    QTest::newRow("midnight") << winter << utc("2026-01-09T23:00:00") << 0.0;
    QTest::newRow("half past eight") << winter << utc("2026-01-10T07:30:00") << 8.5;
    QTest::newRow("before the day") << winter << utc("2026-01-09T12:00:00") << 0.0;
    QTest::newRow("behind the day") << winter << utc("2026-01-11T12:00:00") << 24.0;
    QTest::newRow("forward, a second before") << forward << utc("2026-03-29T00:30:00") << 1.5;
    QTest::newRow("forward, on the change") << forward << utc("2026-03-29T01:00:00") << 3.0;
    QTest::newRow("back, first pass") << back << utc("2026-10-25T00:30:00") << 2.5;
    QTest::newRow("back, last pass") << back << utc("2026-10-25T01:30:00") << 2.5;
    QTest::newRow("back, afternoon") << back << utc("2026-10-25T14:00:00") << 15.0;
}

void tst_DayAxis::placesTimesByTheClock()
{
    QFETCH(const QDate, day);
    QFETCH(const qint64, ms);
    QFETCH(const double, clock);
    QCOMPARE(hour(DayAxis(day, berlin()).positionOf(ms)), clock);
}

void tst_DayAxis::readsPositionsBack_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<double>("clock");
    QTest::addColumn<qint64>("first");
    QTest::addColumn<qint64>("last");

    const QDate forward(2026, 3, 29);
    const QDate back(2026, 10, 25);
    QTest::newRow("plain") << QDate(2026, 1, 10) << 8.5 << utc("2026-01-10T07:30:00") << utc("2026-01-10T07:30:00");
    QTest::newRow("end of the day") << QDate(2026, 1, 10) << 24.0 << utc("2026-01-10T23:00:00")
                                    << utc("2026-01-10T23:00:00");
    QTest::newRow("missing hour") << forward << 2.5 << utc("2026-03-29T01:00:00") << utc("2026-03-29T01:00:00");
    QTest::newRow("behind the missing hour")
        << forward << 4.0 << utc("2026-03-29T02:00:00") << utc("2026-03-29T02:00:00");
    QTest::newRow("doubled hour") << back << 2.5 << utc("2026-10-25T00:30:00") << utc("2026-10-25T01:30:00");
    QTest::newRow("behind the doubled hour") << back << 3.5 << utc("2026-10-25T02:30:00") << utc("2026-10-25T02:30:00");
}

void tst_DayAxis::readsPositionsBack()
{
    QFETCH(const QDate, day);
    QFETCH(const double, clock);
    const DayAxis axis(day, berlin());
    QTEST(axis.timeAt(clock / 24, DayAxis::Pass::First), "first");
    QTEST(axis.timeAt(clock / 24, DayAxis::Pass::Last), "last");
}

void tst_DayAxis::splitsAPieceWhereTheClockWasSet()
{
    const DayAxis back(QDate(2026, 10, 25), berlin());
    const QVector<DayAxis::Piece> pieces = back.pieces(utc("2026-10-25T00:30:00"), utc("2026-10-25T01:15:00"));
    QCOMPARE(pieces.size(), 2);
    QCOMPARE(hour(pieces.at(0).from), 2.5);
    QCOMPARE(hour(pieces.at(0).to), 3.0);
    QCOMPARE(hour(pieces.at(1).from), 2.0);
    QCOMPARE(hour(pieces.at(1).to), 2.25);

    const DayAxis forward(QDate(2026, 3, 29), berlin());
    const QVector<DayAxis::Piece> jump = forward.pieces(utc("2026-03-29T00:30:00"), utc("2026-03-29T01:30:00"));
    QCOMPARE(jump.size(), 2);
    QCOMPARE(hour(jump.at(0).to), 2.0);
    QCOMPARE(hour(jump.at(1).from), 3.0);
    QVERIFY(forward.pieces(utc("2026-03-30T00:00:00"), utc("2026-03-30T01:00:00")).isEmpty());
}

void tst_DayAxis::leavesLabelsOutWhenTheyWouldTouch()
{
    QCOMPARE(DayAxis::labelStep(40), 1);
    QCOMPARE(DayAxis::labelStep(24), 1);
    QCOMPARE(DayAxis::labelStep(23.9), 2);
    QCOMPARE(DayAxis::labelStep(5), 6);
}

void tst_DayAxis::drawsManyRecordingsAsFewRuns()
{
    const DayAxis axis(QDate(2026, 1, 10), QTimeZone::utc());
    QList<vms_sdk::VideoRecording> recordings;
    for (int second = 0; second < 8 * 3600; second += 3) {
        vms_sdk::VideoRecording piece;
        piece.begin = QDateTime(QDate(2026, 1, 10), QTime(0, 0), Qt::UTC).addSecs(second);
        piece.end = piece.begin.addSecs(3);
        recordings.append(piece);
    }
    // An alarm of one second is still seen, and only as wide as it must be.
    recordings.append(recording("2026-01-10T12:00:00", "2026-01-10T12:00:01", 1));
    const QVector<AxisRow::Run> runs = AxisRow::runs(axis, recordings, 960, 3);
    QCOMPARE(runs.size(), 2);
    QCOMPARE(runs.at(0).from, 0);
    QCOMPARE(runs.at(0).to, 320);
    QCOMPARE(runs.at(1).kind, AxisRow::Kind::Alarm);
    QCOMPARE(runs.at(1).to - runs.at(1).from, 3);
}

void tst_DayAxis::namesTheGapAndTheAlarmUnderThePointer()
{
    const DayAxis axis(QDate(2026, 1, 10), QTimeZone::utc());
    const QList<vms_sdk::VideoRecording> recordings{recording("2026-01-10T00:00:00", "2026-01-10T04:00:00"),
                                                    recording("2026-01-10T01:00:00", "2026-01-10T01:05:00", 1),
                                                    recording("2026-01-10T04:05:00", "2026-01-10T20:00:00")};
    QCOMPARE(AxisRow::recordingAt(recordings, utc("2026-01-10T01:02:00")), 1);
    QCOMPARE(AxisRow::recordingAt(recordings, utc("2026-01-10T04:00:00")), -1);
    qint64 beginMs = 0;
    qint64 endMs = 0;
    AxisRow::gapAt(axis, recordings, utc("2026-01-10T04:02:00"), &beginMs, &endMs);
    QCOMPARE(beginMs, utc("2026-01-10T04:00:00"));
    QCOMPARE(endMs, utc("2026-01-10T04:05:00"));
    AxisRow::gapAt(axis, recordings, utc("2026-01-10T22:00:00"), &beginMs, &endMs);
    QCOMPARE(endMs, axis.endMs());
}

void tst_DayAxis::countsFootageThatOverlapsOnce()
{
    const DayAxis back(QDate(2026, 10, 25), berlin());
    const QList<vms_sdk::VideoRecording> recordings{recording("2026-10-24T20:00:00", "2026-10-25T12:00:00"),
                                                    recording("2026-10-25T11:00:00", "2026-10-26T12:00:00"),
                                                    recording("2026-10-25T11:30:00", "2026-10-25T11:31:00", 1)};
    QCOMPARE(AxisRow::coveredMs(back, recordings), 25 * hourMs);
}

void tst_DayAxis::marksASpanByTheMouse_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<double>("pressed");
    QTest::addColumn<double>("released");
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<qint64>("end");

    const QDate winter(2026, 1, 10);
    QTest::newRow("onwards") << winter << 8.0 << 9.5 << utc("2026-01-10T07:00:00") << utc("2026-01-10T08:30:00");
    QTest::newRow("backwards") << winter << 9.5 << 8.0 << utc("2026-01-10T07:00:00") << utc("2026-01-10T08:30:00");
    QTest::newRow("past the end") << winter << 23.0 << 26.0 << utc("2026-01-10T22:00:00") << utc("2026-01-10T23:00:00");
    QTest::newRow("the doubled hour, both passes")
        << QDate(2026, 10, 25) << 2.0 << 2.5 << utc("2026-10-25T00:00:00") << utc("2026-10-25T01:30:00");
    QTest::newRow("the missing hour, a second at least")
        << QDate(2026, 3, 29) << 2.25 << 2.75 << utc("2026-03-29T01:00:00") << utc("2026-03-29T01:00:01");
}

void tst_DayAxis::marksASpanByTheMouse()
{
    QFETCH(const QDate, day);
    QFETCH(const double, pressed);
    QFETCH(const double, released);
    SpanPick pick;
    pick.setAxis(DayAxis(day, berlin()));
    pick.press(pressed / 24, 0.001);
    pick.move((pressed + released) / 48);
    pick.move(released / 24);
    pick.release();
    QVERIFY(pick.span().has_value());
    QTEST(pick.span()->beginMs, "begin");
    QTEST(pick.span()->endMs, "end");
}

void tst_DayAxis::keepsTheMarkOnAClickAndOnEscape()
{
    const DayAxis axis(QDate(2026, 1, 10), QTimeZone::utc());
    const TimeSpan marked{utc("2026-01-10T08:00:00"), utc("2026-01-10T10:00:00")};
    SpanPick pick;
    pick.setAxis(axis);
    pick.setSpan(marked);

    // The end is dragged past the begin: the begin stays and becomes the end.
    pick.press(10.01 / 24, 0.005);
    pick.move(7.0 / 24);
    QCOMPARE(pick.span()->beginMs, utc("2026-01-10T07:00:00"));
    QCOMPARE(pick.span()->endMs, utc("2026-01-10T08:00:00"));
    pick.cancel();
    QCOMPARE(*pick.span(), marked);

    pick.press(8.0 / 24, 0.005);
    pick.release();
    QVERIFY2(pick.span().has_value(), "a click on a handle took the mark away");
}

void tst_DayAxis::readsClockTimesAsASpan_data()
{
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QTime>("begin");
    QTest::addColumn<QTime>("end");
    QTest::addColumn<qint64>("seconds");

    const QDate winter(2026, 1, 10);
    QTest::newRow("plain") << winter << QTime(8, 0) << QTime(8, 0, 1) << qint64(1);
    QTest::newRow("to the end of the day") << winter << QTime(23, 0) << QTime(0, 0) << qint64(3600);
    QTest::newRow("whole day of 25 hours") << QDate(2026, 10, 25) << QTime(0, 0) << QTime(0, 0) << qint64(25 * 3600);
    QTest::newRow("whole day of 23 hours") << QDate(2026, 3, 29) << QTime(0, 0) << QTime(0, 0) << qint64(23 * 3600);
    QTest::newRow("within the doubled hour") << QDate(2026, 10, 25) << QTime(2, 0) << QTime(2, 30) << qint64(90 * 60);
    QTest::newRow("backwards") << winter << QTime(9, 0) << QTime(8, 0) << qint64(0);
    QTest::newRow("nothing") << winter << QTime(9, 0) << QTime(9, 0) << qint64(0);
    QTest::newRow("inside the missing hour") << QDate(2026, 3, 29) << QTime(2, 10) << QTime(2, 50) << qint64(0);
}

void tst_DayAxis::readsClockTimesAsASpan()
{
    QFETCH(const QDate, day);
    QFETCH(const QTime, begin);
    QFETCH(const QTime, end);
    const std::optional<TimeSpan> span = SpanBar::spanOf(DayAxis(day, berlin()), begin, end);
    QTEST(span ? span->lengthMs() / 1000 : qint64(0), "seconds");
}

QTEST_APPLESS_MAIN(tst_DayAxis)
#include "tst_DayAxis.moc"
