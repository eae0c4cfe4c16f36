#include <player/RecordingClock.h>

#include <QtTest>

#include <limits>

using vemo_base::PlayerChapter;
using vemo_base::PlayerState;
using vemo_base::RecordingClock;
using vemo_base::RecordingGap;

Q_DECLARE_METATYPE(vemo_base::PlayerState)
Q_DECLARE_METATYPE(vemo_base::PlayerChapter)

namespace {

qint64 utcMs(const char* text)
{
    return QDateTime::fromString(QLatin1String(text), Qt::ISODateWithMs).toMSecsSinceEpoch();
}

PlayerState file(const char* start, const char* end, double durationS, const QVector<PlayerChapter>& chapters)
{
    PlayerState state;
    state.recordingStart = QLatin1String(start);
    state.recordingEnd = QLatin1String(end);
    state.durationS = durationS;
    state.chapters = chapters;
    return state;
}

PlayerChapter chapter(double startS, const char* title)
{
    return {startS, QString::fromUtf8(title)};
}

} // namespace

class RecordingClockTest : public QObject
{
    Q_OBJECT

private slots:
    void mapsThroughTheGaps_data();
    void mapsThroughTheGaps();
    void leadsFromInsideAGapToTheFootageBehindIt();
    void findsGapsThatTheFileKeepsAsTime();
    void countsFromZeroWithoutAStart();
    void staysInOrderWithNonsenseChapters_data();
    void staysInOrderWithNonsenseChapters();
};

void RecordingClockTest::mapsThroughTheGaps_data()
{
    QTest::addColumn<PlayerState>("state");
    QTest::addColumn<int>("gaps");
    QTest::addColumn<double>("mediaS");
    QTest::addColumn<QString>("clock");

    const PlayerState one = file("2026-01-10T08:29:00.000Z", "2026-01-10T08:31:00.000Z", 100,
                                 {chapter(0, "08:29:00"), chapter(60, "08:30:20, after 20 s not recorded")});
    QTest::newRow("before the gap") << one << 1 << 59.96 << "2026-01-10T08:29:59.960Z";
    QTest::newRow("at the seam it is the time behind") << one << 1 << 60.0 << "2026-01-10T08:30:20.000Z";
    QTest::newRow("at the end") << one << 1 << 100.0 << "2026-01-10T08:31:00.000Z";
    QTest::newRow("beyond the end") << one << 1 << 1e9 << "2026-01-10T08:31:00.000Z";

    // The texts are cut to whole seconds; the file's end tells what that left out.
    QTest::newRow("a gap of 20.480 s") << file("2026-01-10T08:29:00.500Z", "2026-01-10T08:31:00.980Z", 100,
                                               {chapter(0, "08:29:00"),
                                                chapter(60, "08:30:20, after 20 s not recorded")})
                                       << 1 << 60.0 << "2026-01-10T08:30:20.980Z";
    QTest::newRow("written in another zone")
        << file("2026-01-10T08:29:00.000Z", "2026-01-10T08:31:00.000Z", 100,
                {chapter(0, "13:59:00"), chapter(60, "14:00:20, after 20 s lost in transfer")})
        << 1 << 60.0 << "2026-01-10T08:30:20.000Z";
    QTest::newRow("over the night when clocks go back")
        << file("2026-10-25T00:50:00.000Z", "2026-10-25T02:00:00.000Z", 3600,
                {chapter(0, "02:50:00"), chapter(60, "02:01:00, after 10 min not recorded")})
        << 1 << 60.0 << "2026-10-25T01:01:00.000Z";
    // "2 h 5 min" may be 59 s longer, the time of day knows better.
    QTest::newRow("hours") << file("2026-01-10T08:00:00.000Z", "", 100,
                                   {chapter(0, "08:00:00"), chapter(10, "10:05:47, after 2 h 5 min not recorded")})
                           << 1 << 10.0 << "2026-01-10T10:05:47.000Z";
    QTest::newRow("longer than a day") << file("2026-01-10T08:00:00.000Z", "", 100,
                                               {chapter(0, "08:00:00"),
                                                chapter(10, "11:00:10, after 27 h not recorded")})
                                       << 1 << 10.0 << "2026-01-11T11:00:10.000Z";
    const PlayerState two = file("2026-01-10T08:00:00.000Z", "2026-01-10T08:03:01.000Z", 120,
                                 {chapter(0, "08:00:00"), chapter(30, "08:00:40, after 10 s not recorded"),
                                  chapter(60, "08:02:00, after 50 s lost in transfer")});
    QTest::newRow("two gaps, one second shared between them") << two << 2 << 60.0 << "2026-01-10T08:02:01.000Z";
    QTest::newRow("between two gaps") << two << 2 << 59.0 << "2026-01-10T08:01:09.500Z";
    QTest::newRow("begins late") << file("2026-01-10T08:00:10.000Z", "2026-01-10T08:00:40.000Z", 30,
                                         {chapter(0, "08:00:10, after 10 s not recorded")})
                                 << 0 << 0.0 << "2026-01-10T08:00:10.000Z";
}

void RecordingClockTest::mapsThroughTheGaps()
{
    QFETCH(const PlayerState, state);
    QFETCH(const int, gaps);
    QFETCH(const double, mediaS);
    QFETCH(const QString, clock);
    const RecordingClock recording(state);
    QVERIFY(recording.isKnown());
    QCOMPARE(recording.gaps().size(), gaps);
    const qint64 clockMs = recording.toClockMs(mediaS);
    QCOMPARE(QDateTime::fromMSecsSinceEpoch(clockMs, Qt::UTC).toString(Qt::ISODateWithMs), clock);
    QVERIFY(qAbs(recording.toMediaS(clockMs) - qMin(mediaS, state.durationS)) < 0.0015);
}

void RecordingClockTest::leadsFromInsideAGapToTheFootageBehindIt()
{
    const RecordingClock recording(file("2026-01-10T08:29:00.000Z", "2026-01-10T08:31:00.000Z", 100,
                                        {chapter(0, "08:29:00"), chapter(60, "08:30:20, after 20 s not recorded")}));
    const qint64 inside = utcMs("2026-01-10T08:30:07.000Z");
    QCOMPARE(recording.toMediaS(inside), 60.0);
    QVERIFY(recording.gapAt(inside));
    QCOMPARE(recording.gapAt(inside)->cause, QStringLiteral("not recorded"));
    QVERIFY(!recording.gapAt(utcMs("2026-01-10T08:30:20.000Z")));
    QCOMPARE(recording.endMs(), utcMs("2026-01-10T08:31:00.000Z"));
}

void RecordingClockTest::findsGapsThatTheFileKeepsAsTime()
{
    const RecordingClock recording(file("2026-01-10T08:29:00.000Z", "2026-01-10T08:31:00.000Z", 120,
                                        {chapter(0, "08:29:00"), chapter(80, "08:30:20, after 20 s not recorded")}));
    QCOMPARE(recording.gaps().size(), 1);
    QVERIFY(!recording.gaps().first().closed);
    QCOMPARE(recording.gaps().first().beginMs, utcMs("2026-01-10T08:30:00.000Z"));
    QCOMPARE(recording.toClockMs(90), utcMs("2026-01-10T08:30:30.000Z"));
}

void RecordingClockTest::countsFromZeroWithoutAStart()
{
    PlayerState state;
    state.durationS = 3727.5;
    state.chapters = {chapter(10, "08:30:20, after 20 s not recorded")};
    const RecordingClock recording(state);
    QVERIFY(!recording.isKnown());
    QVERIFY(recording.gaps().isEmpty());
    QCOMPARE(recording.timeText(recording.endMs()), QStringLiteral("1:02:07"));

    state.creationTime = QStringLiteral("2026-01-10T08:29:00.000000Z");
    QVERIFY(RecordingClock(state).isKnown());
    QCOMPARE(RecordingClock(state).toClockMs(1), utcMs("2026-01-10T08:29:01.000Z"));
}

void RecordingClockTest::staysInOrderWithNonsenseChapters_data()
{
    QTest::addColumn<QVector<PlayerChapter>>("chapters");
    const double inf = std::numeric_limits<double>::infinity();
    QTest::newRow("no numbers") << QVector<PlayerChapter>{chapter(inf, "08:30:20, after 20 s not recorded"),
                                                          chapter(std::nan(""), "08:30:20, after 20 s not recorded"),
                                                          chapter(-5, "08:30:20, after 20 s not recorded")};
    QTest::newRow("no times") << QVector<PlayerChapter>{chapter(0, ""), chapter(10, "Kapitel 1"),
                                                        chapter(20, "99:99:99, after  not recorded")};
    QTest::newRow("out of order") << QVector<PlayerChapter>{chapter(60, "08:30:20, after 20 s not recorded"),
                                                            chapter(10, "08:29:40, after 30 s not recorded"),
                                                            chapter(10, "08:29:40, after 30 s not recorded")};
    QTest::newRow("years") << QVector<PlayerChapter>{chapter(10, "08:30:20, after 999999 h not recorded"),
                                                     chapter(20, "08:30:20, after 999999 h 59 min not recorded")};
}

void RecordingClockTest::staysInOrderWithNonsenseChapters()
{
    QFETCH(const QVector<PlayerChapter>, chapters);
    PlayerState state = file("2026-01-10T08:29:00.000Z", "2026-01-10T08:31:00.000Z", 100, chapters);
    const RecordingClock recording(state);
    qint64 before = recording.beginMs() - 1;
    for (int i = 0; i <= 1000; ++i) {
        const double mediaS = i * 0.1;
        const qint64 clockMs = recording.toClockMs(mediaS);
        QVERIFY2(clockMs > before, "the clock runs backwards");
        QVERIFY2(qAbs(recording.toMediaS(clockMs) - mediaS) < 0.0015, "the way back leads elsewhere");
        before = clockMs;
    }
    qint64 behind = recording.beginMs();
    for (const RecordingGap& gap : recording.gaps()) {
        QVERIFY(gap.beginMs >= behind && gap.endMs >= gap.beginMs);
        behind = gap.endMs;
    }
}

QTEST_GUILESS_MAIN(RecordingClockTest)
#include "RecordingClockTest.moc"
