#include <backup/BackupAxisWt.h>
#include <Theme.h>

#include <QLabel>
#include <QPainter>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_base::Token;
using vemo_data::BackupTaskInfo;
using Kind = BackupAxis::Kind;

namespace {

constexpr int width = 24 * 40 + 24; ///< 40 px an hour, half a label at each end

QDateTime at(const QDate& day, const QString& time)
{
    return QDateTime(day, QTime::fromString(time, QStringLiteral("HH:mm:ss")));
}

BackupTaskInfo::FileInfo entry(const QString& start, const QString& end, const QString& path, bool finished)
{
    BackupTaskInfo::FileInfo info;
    info.startTime = QTime::fromString(start, QStringLiteral("HH:mm:ss"));
    info.endTime = QTime::fromString(end, QStringLiteral("HH:mm:ss"));
    info.filePath = path;
    info.finished = finished;
    return info;
}

/// 06:00 to 12:00 and 13:00 to 20:00; backed up, empty, backed up, running since 13:00; an alarm at seven.
BackupTaskInfo mixedTask()
{
    BackupTaskInfo task;
    task.date = QDate(2026, 1, 10);
    task.timeSegments = {{QTime(6, 0), QTime(12, 0, 59)}, {QTime(13, 0), QTime(20, 0, 59)}};
    task.fileInfos = {entry(QStringLiteral("06:00:00"), QStringLiteral("09:00:00"), QStringLiteral("a.mp4"), true),
                      entry(QStringLiteral("09:00:00"), QStringLiteral("10:00:00"), QString(), true),
                      entry(QStringLiteral("13:00:00"), QStringLiteral("20:00:59"), QStringLiteral("b.mp4"), false)};
    vms_sdk::VideoRecording recording;
    recording.begin = at(task.date, QStringLiteral("05:00:00"));
    recording.end = at(task.date, QStringLiteral("16:00:00"));
    vms_sdk::VideoRecording alarm = recording;
    alarm.begin = at(task.date, QStringLiteral("07:00:00"));
    alarm.end = at(task.date, QStringLiteral("07:05:00"));
    alarm.type = 1;
    task.recordings = {recording, alarm};
    return task;
}

QImage drawn(BackupAxisWt* axis)
{
    axis->resize(width, BackupAxisWt::totalHeight);
    QImage image(axis->size(), QImage::Format_ARGB32);
    image.fill(Qt::black);
    axis->render(&image);
    return image;
}

} // namespace

class BackupAxisTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "Europe/Berlin"); }

    void labelsStandUnderTheirHours()
    {
        BackupAxisWt axis;
        axis.setAxis(BackupAxis(mixedTask(), {}), QString());
        axis.resize(width, BackupAxisWt::totalHeight);
        axis.show();
        QVERIFY(QTest::qWaitForWindowExposed(&axis));
        QTRY_VERIFY(axis.findChild<QLabel*>(QStringLiteral("timeLabel25")));
        QTRY_VERIFY(axis.findChild<QLabel*>(QStringLiteral("timeLabel25"))->isVisible());
        for (int hour = 0; hour < 24; ++hour) {
            const auto* label = axis.findChild<QLabel*>(QStringLiteral("timeLabel%1").arg(hour + 1));
            QVERIFY(label && label->isVisible());
            QCOMPARE(label->text(), QString::number(hour));
            const int x = axis.xOf(QDateTime(mixedTask().date, QTime(hour, 0)).toMSecsSinceEpoch());
            QVERIFY(qAbs(label->geometry().center().x() - x) <= 1);
        }
    }

    void paintsWhatATimeIs_data()
    {
        QTest::addColumn<QString>("time");
        QTest::addColumn<int>("token");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("tip");
        const auto row = [](const char* name, const char* time, Token token, Token line, const char* tip) {
            QTest::newRow(name) << QString::fromLatin1(time) << int(token) << int(line) << QString::fromLatin1(tip);
        };
        row("ground", "03:00:00", Token::Axis, Token::Axis, "");
        row("recorder only", "05:30:00", Token::Axis, Token::AxisRecording, "05:00:00 To 16:00:00");
        row("backed up", "08:00:00", Token::AxisBackedUp, Token::AxisRecording, "06:00:00 To 09:00:00");
        row("alarm", "07:02:30", Token::AxisBackedUp, Token::AxisAlarm, "07:00:00 To 07:05:00");
        row("no recording", "09:30:00", Token::AxisNoRecording, Token::AxisRecording, "09:00:00 To 10:00:00");
        row("not fetched yet", "11:00:00", Token::AxisSegment, Token::AxisRecording, "06:00:00 To 12:00:59");
        row("running, fetched", "13:30:00", Token::AxisBackedUp, Token::AxisRecording, "13:00:00 To 15:24:10");
        row("running, to come", "15:45:00", Token::AxisSegment, Token::AxisRecording, "13:00:00 To 20:00:59");
        row("to come, not on the recorder", "18:00:00", Token::AxisSegment, Token::AxisSegment, "13:00:00 To 20:00:59");
    }

    void paintsWhatATimeIs()
    {
        QFETCH(QString, time);
        QFETCH(int, token);
        QFETCH(int, line);
        QFETCH(QString, tip);
        BackupAxisWt axis;
        axis.resize(width, BackupAxisWt::totalHeight);
        const BackupTaskInfo task = mixedTask();
        axis.setAxis(BackupAxis(task, at(task.date, QStringLiteral("15:24:10"))), QString());
        const QImage image = drawn(&axis);
        const qint64 ms = at(task.date, time).toMSecsSinceEpoch();
        const auto color = [](int of) { return vemo_base::themeColor(vemo_base::ThemeMode::Dark, Token(of)).name(); };
        const int bottom = BackupAxisWt::axisTop + BackupAxisWt::axisHeight - 1;
        QCOMPARE(image.pixelColor(axis.xOf(ms), BackupAxisWt::axisTop + 14).name(), color(token));
        QCOMPARE(image.pixelColor(axis.xOf(ms), bottom).name(), color(line));
        QVERIFY2(tip.isEmpty() ? axis.tipAt(ms).isEmpty() : axis.tipAt(ms).contains(tip), qPrintable(axis.tipAt(ms)));
    }

    void placesFullAndHalfHoursOnTheirLabels()
    {
        BackupAxisWt axis;
        axis.resize(width, BackupAxisWt::totalHeight);
        const BackupTaskInfo task = mixedTask();
        axis.setAxis(BackupAxis(task, {}), QString());
        for (int half = 0; half < 48; ++half) {
            const QDateTime time(task.date, QTime(half / 2, half % 2 * 30));
            QCOMPARE(axis.xOf(time.toMSecsSinceEpoch()), 12 + half * 20);
        }
    }

    void progressPaintsTheSameAsAnew()
    {
        const BackupTaskInfo task = mixedTask();
        BackupAxisWt grown;
        grown.resize(width, BackupAxisWt::totalHeight);
        for (const char* time : {"14:00:00", "14:00:20", "15:24:10", "15:24:40"}) {
            grown.setAxis(BackupAxis(task, at(task.date, QString::fromLatin1(time))), QString());
            drawn(&grown);
        }
        BackupAxisWt fresh;
        fresh.resize(width, BackupAxisWt::totalHeight);
        fresh.setAxis(BackupAxis(task, at(task.date, QStringLiteral("15:24:40"))), QString());
        QCOMPARE(drawn(&grown), drawn(&fresh));
    }

    void tellsProgressFromOtherChanges_data()
    {
        QTest::addColumn<int>("change");
        QTest::addColumn<qint64>("lengthMs");
        QTest::newRow("nothing") << 0 << qint64(0);
        QTest::newRow("fetched further") << 1 << qint64(60'000);
        QTest::newRow("a piece settled without recording") << 2 << qint64(-1);
        QTest::newRow("recordings dropped") << 3 << qint64(-1);
        QTest::newRow("other segments") << 4 << qint64(-1);
    }

    void tellsProgressFromOtherChanges()
    {
        QFETCH(int, change);
        QFETCH(qint64, lengthMs);
        BackupTaskInfo task = mixedTask();
        QDateTime cur = at(task.date, QStringLiteral("14:00:00"));
        const BackupAxis before(task, cur);
        if (change == 1)
            cur = cur.addSecs(60);
        else if (change == 2)
            task.fileInfos.last() = entry(QStringLiteral("13:00:00"), QStringLiteral("20:00:59"), QString(), true);
        else if (change == 3)
            task.recordings.clear();
        else if (change == 4)
            task.timeSegments.removeLast();
        QCOMPARE(BackupAxis(task, cur).progressSince(before).lengthMs(), lengthMs);
    }

    /// On the night when clocks go back a piece over both passes of the hour covers that hour once, and on the one when
    /// they go forward the skipped hour is hatched and told.
    void drawsDaysOnWhichTheClocksChange()
    {
        BackupTaskInfo task;
        task.date = QDate(2026, 10, 25);
        task.timeSegments = {{QTime(1, 0), QTime(4, 0, 59)}};
        task.fileInfos = {entry(QStringLiteral("01:00:00"), QStringLiteral("04:00:59"), QStringLiteral("a.mp4"), true)};
        const BackupAxis back(task, {});
        QCOMPARE(back.pieces().first().time.lengthMs(), qint64(4 * 3'600'000 + 59'000));
        BackupAxisWt axis;
        axis.resize(width, BackupAxisWt::totalHeight);
        axis.setAxis(back, QString());
        const QColor done = vemo_base::themeColor(vemo_base::ThemeMode::Dark, Token::AxisBackedUp);
        const QImage image = drawn(&axis);
        for (const int hour : {1, 2, 3})
            QCOMPARE(image.pixelColor(12 + hour * 40 + 5, BackupAxisWt::axisTop + 24).name(), done.name());
        QVERIFY(
            axis.tipAt(back.day().timeAt(2.5 / 24, vemo_base::DayAxis::Pass::Last)).contains(QStringLiteral("twice")));

        task.date = QDate(2026, 3, 29);
        const BackupAxis forward(task, {});
        QCOMPARE(forward.pieces().first().time.lengthMs(), qint64(2 * 3'600'000 + 59'000));
        QCOMPARE(forward.day().missing().size(), 1);
    }

    void stepsThroughItsSpansByKeyboard()
    {
        BackupAxisWt axis;
        axis.resize(width, BackupAxisWt::totalHeight);
        const BackupTaskInfo task = mixedTask();
        const BackupAxis value(task, at(task.date, QStringLiteral("15:24:10")));
        QStringList starts;
        for (const BackupAxis::Span& span : value.steps())
            starts.append(QDateTime::fromMSecsSinceEpoch(span.time.beginMs).toString(QStringLiteral("HH")));
        starts.removeDuplicates();
        QCOMPARE(starts.join(QLatin1Char(' ')), QStringLiteral("05 06 09 13"));
    }
};

QTEST_MAIN(BackupAxisTest)
#include "BackupAxisTest.moc"
