#include "onvif/RecordingSegmentBuilder.h"

#include <QDateTime>
#include <QTest>

using namespace vms_sdk::onvif;

namespace {

constexpr qint64 begin = 1768032000000; // 2026-01-10T08:00:00Z
constexpr qint64 hour = 3600 * 1000;
constexpr qint64 minute = 60 * 1000;

/// "V+10" is track V present from minute 10 on, "V-10" absent, "!+10" motion, "!*10" a momentary alarm, "R+10" the
/// recording's own state, "x+10" a topic that does not matter.
EventEntry historyEvent(const QString& text)
{
    EventEntry entry;
    const QChar kind = text.at(0);
    entry.timeMs = begin + text.midRef(2).toInt() * minute;
    entry.state = text.at(1) == QLatin1Char('+');
    if (text.at(1) == QLatin1Char('*'))
        entry.state.reset();
    if (kind == QLatin1Char('!')) {
        entry.topic = QStringLiteral("VideoSource/MotionAlarm");
    } else if (kind == QLatin1Char('?')) {
        entry.topic = QStringLiteral("RuleEngine/CellMotionDetector/Motion");
    } else if (kind == QLatin1Char('R')) {
        entry.topic = QStringLiteral("RecordingHistory/Recording/State");
    } else if (kind == QLatin1Char('x')) {
        entry.topic = QStringLiteral("Monitoring/ProcessorUsage");
    } else {
        entry.topic = QStringLiteral("RecordingHistory/Track/State");
        entry.trackToken = kind;
    }
    return entry;
}

/// "0-10 10-20!" in minutes, '!' for type 1.
QString shown(const QVector<RecordingSegment>& segments)
{
    QStringList parts;
    for (const RecordingSegment& segment : segments) {
        parts.append(QString::number(static_cast<double>(segment.beginMs - begin) / minute) + QLatin1Char('-') +
                     QString::number(static_cast<double>(segment.endMs - begin) / minute) +
                     (segment.type == 1 ? QStringLiteral("!") : QString()));
    }
    return parts.join(QLatin1Char(' '));
}

} // namespace

class RecordingSegmentBuilderTest final : public QObject
{
    Q_OBJECT

private slots:
    void makesSegmentsOfEvents_data();
    void makesSegmentsOfEvents();
    void keepsNoMoreEventsThanItMay();
    void countsThroughTheNightOfAClockChange();
    void lastsForAMomentWhenAnAlarmIsAMoment();
};

void RecordingSegmentBuilderTest::makesSegmentsOfEvents_data()
{
    QTest::addColumn<QString>("events");
    QTest::addColumn<QString>("segments"); // within the hour 0-60

    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("one stretch") << "V+10 V-20"
                                 << "10-20";
    QTest::newRow("two stretches") << "V+10 V-20 V+30 V-40"
                                   << "10-20 30-40";
    QTest::newRow("any order") << "V-40 V-20 V+30 V+10"
                               << "10-20 30-40";
    QTest::newRow("present at the begin") << "V+0 V-20"
                                          << "0-20";
    QTest::newRow("state from before the span") << "V+-30 V-20"
                                                << "0-20";
    QTest::newRow("begin missing") << "V-20 V+30 V-40"
                                   << "0-20 30-40";
    QTest::newRow("end missing") << "V+10 V-20 V+30"
                                 << "10-20 30-60";
    QTest::newRow("end beyond the span") << "V+50 V-90"
                                         << "50-60";
    QTest::newRow("told twice") << "V+10 V+15 V-20 V-25"
                                << "10-20";
    QTest::newRow("touching stretches") << "V+10 V-20 V+20 V-30"
                                        << "10-30";
    QTest::newRow("motion in the middle") << "V+10 V-40 !+20 !-30"
                                          << "10-20 20-30! 30-40";
    QTest::newRow("motion over a gap") << "V+0 V-20 V+40 V-60 !+10 !-50"
                                       << "0-10 10-20! 40-50! 50-60";
    QTest::newRow("motion in the gap only") << "V+0 V-20 V+40 V-60 !+25 !-35"
                                            << "0-20 40-60";
    QTest::newRow("motion without end") << "V+0 V-60 !+30"
                                        << "0-30 30-60!";
    QTest::newRow("motion before the begin") << "V+10 V-60 !-30"
                                             << "10-30! 30-60";
    QTest::newRow("motion all the time") << "V+10 V-50 !+0 !-60"
                                         << "10-50!";
    QTest::newRow("two kinds of alarm overlap") << "V+0 V-60 !+10 !-30 ?+20 ?-40"
                                                << "0-10 10-40! 40-60";
    QTest::newRow("two alarms with a break") << "V+0 V-60 !+10 !-20 !+30 !-40"
                                             << "0-10 10-20! 20-30 30-40! 40-60";
    QTest::newRow("sound alone does not count") << "V+10 V-20 A+0 A-60"
                                                << "10-20";
    QTest::newRow("unknown tracks count") << "A+0 A-60"
                                          << "0-60";
    QTest::newRow("two video tracks") << "V+10 V-20 W+15 W-30"
                                      << "10-30";
    QTest::newRow("recording state when tracks say nothing") << "R+10 R-20"
                                                             << "10-20";
    QTest::newRow("recording state beside tracks") << "R+0 R-60 V+10 V-20"
                                                   << "10-20";
    QTest::newRow("other topics") << "V+10 V-20 x+12 x-13"
                                  << "10-20";
}

void RecordingSegmentBuilderTest::makesSegmentsOfEvents()
{
    QFETCH(QString, events);
    QFETCH(QString, segments);
    RecordingSegmentBuilder builder({begin, begin + hour}, 1000);
    builder.setVideoTracks({QStringLiteral("V"), QStringLiteral("W")});
    for (const QString& text : events.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        QVERIFY(builder.add(historyEvent(text)));
    QCOMPARE(shown(builder.build()), segments);

    // What the recorder says of the whole recording cuts it off.
    builder.clampTo({begin + 100 * hour, begin + 101 * hour});
    QVERIFY(builder.build().isEmpty());
}

void RecordingSegmentBuilderTest::keepsNoMoreEventsThanItMay()
{
    RecordingSegmentBuilder builder({begin, begin + hour}, 10);
    for (int i = 0; i < 10; ++i)
        QVERIFY(builder.add(historyEvent(QStringLiteral("V+1"))));
    QVERIFY(!builder.add(historyEvent(QStringLiteral("V-2"))));
    QVERIFY2(!builder.add(historyEvent(QStringLiteral("!*2"))), "a moment counts as two");
}

void RecordingSegmentBuilderTest::countsThroughTheNightOfAClockChange()
{
    // 2026-10-25, 00:30Z to 01:30Z: in Central Europe the local clock shows 02:30 twice.
    const qint64 first = 1792888200000;
    RecordingSegmentBuilder builder({first - hour, first + 3 * hour}, 10);
    EventEntry entry = historyEvent(QStringLiteral("V+0"));
    entry.timeMs = first;
    builder.add(entry);
    entry.state = false;
    entry.timeMs = first + hour;
    builder.add(entry);
    QCOMPARE(builder.build(), (QVector<RecordingSegment>{{first, first + hour, 0}}));
    const QDateTime begins = QDateTime::fromMSecsSinceEpoch(first);
    const QDateTime ends = QDateTime::fromMSecsSinceEpoch(first + hour);
    QCOMPARE(begins.msecsTo(ends), hour);
    QCOMPARE(ends.toMSecsSinceEpoch(), first + hour);
}

void RecordingSegmentBuilderTest::lastsForAMomentWhenAnAlarmIsAMoment()
{
    RecordingSegmentBuilder builder({begin, begin + hour}, 10);
    builder.add(historyEvent(QStringLiteral("V+0")));
    builder.add(historyEvent(QStringLiteral("!*30")));
    QCOMPARE(builder.build(), (QVector<RecordingSegment>{{begin, begin + 30 * minute, 0},
                                                         {begin + 30 * minute, begin + 30 * minute + 10000, 1},
                                                         {begin + 30 * minute + 10000, begin + hour, 0}}));
}

int main(int argc, char** argv)
{
    qputenv("TZ", "Europe/Berlin");
    RecordingSegmentBuilderTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "RecordingSegmentBuilderTest.moc"
