#include <backup/BackupLeftovers.h>
#include <backup/BackupPieces.h>

#include <axis/SpanWords.h>
#include <BackupDay.h>
#include <BackupSafety.h>

#include <QtTest>

using vemo_data::BackupSpan;
using vemo_data::BackupTaskInfo;
using vemo_filesCenter::BackupLeftovers;
using FileInfo = BackupTaskInfo::FileInfo;
namespace BackupDay = vemo_data::BackupDay;
namespace BackupPieces = vemo_filesCenter::BackupPieces;

namespace {

const QDate plainDay(2026, 1, 10);
const QDate shortDay(2026, 3, 29); ///< 02:00 to 03:00 is skipped in Berlin
const QDate longDay(2026, 10, 25); ///< 02:00 to 03:00 passes twice

QTime time(const QString& text)
{
    return QTime::fromString(text, text.size() > 5 ? QStringLiteral("HH:mm:ss") : QStringLiteral("HH:mm"));
}

/// "08:00-12:00 +13:00-14:00"; "+" in front: settled, "!" open.
QList<FileInfo> spans(const QString& text)
{
    QList<FileInfo> entries;
    for (const QString& part : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QString times = part.mid(part.startsWith(QLatin1Char('+')) || part.startsWith(QLatin1Char('!')) ? 1 : 0);
        entries.append({time(times.section(QLatin1Char('-'), 0, 0)), time(times.section(QLatin1Char('-'), 1)),
                        QStringLiteral("/f"), part.startsWith(QLatin1Char('+')), false, false});
    }
    return entries;
}

BackupTaskInfo task(const QString& segments, const QString& entries, const QDate& date = plainDay)
{
    BackupTaskInfo task;
    task.date = date;
    for (const FileInfo& each : spans(segments))
        task.timeSegments.append({each.startTime, each.endTime});
    task.fileInfos = spans(entries);
    return task;
}

QList<vms_sdk::VideoRecording> recordings(const QString& text, const QDate& date = plainDay)
{
    QList<vms_sdk::VideoRecording> found;
    for (const FileInfo& each : spans(text)) {
        vms_sdk::VideoRecording recording;
        recording.begin = QDateTime(date, each.startTime);
        recording.end = QDateTime(date, each.endTime);
        found.append(recording);
    }
    return found;
}

QString told(const FileInfo& entry)
{
    return entry.startTime.toString(QStringLiteral("HH:mm")) + QLatin1Char('-') +
           entry.endTime.toString(QStringLiteral("HH:mm"));
}

QDateTime utc(const QDate& date, int hour, int minute = 0)
{
    return QDateTime(date, QTime(hour, minute), Qt::UTC).toLocalTime();
}

} // namespace

class BackupPiecesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "Europe/Berlin"); }

    void choosesTheNextPiece_data()
    {
        QTest::addColumn<QString>("segments");
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("next");
        QTest::addColumn<int>("resumed");
        const QString two = QStringLiteral("08:00-12:00 13:00-14:00");
        QTest::newRow("first segment") << two << ""
                                       << "08:00-12:00" << -1;
        QTest::newRow("an open entry before all") << two << "+08:00-09:00 !09:00-12:00"
                                                  << "09:00-12:00" << 1;
        QTest::newRow("rest of a segment") << two << "+08:00-09:30"
                                           << "09:30-12:00" << -1;
        QTest::newRow("next segment") << two << "+08:00-12:00"
                                      << "13:00-14:00" << -1;
        QTest::newRow("covered") << two << "+08:00-12:00 +13:00-14:00"
                                 << "" << -1;
        QTest::newRow("added behind") << "08:00-09:00 10:00-11:00"
                                      << "+08:00-09:00"
                                      << "10:00-11:00" << -1;
        QTest::newRow("backwards") << "22:00-06:00"
                                   << "+22:00-06:00"
                                   << "" << -1;
    }

    void choosesTheNextPiece()
    {
        QFETCH(QString, segments);
        QFETCH(QString, entries);
        QFETCH(QString, next);
        QFETCH(int, resumed);
        const auto piece = BackupPieces::next(task(segments, entries));
        QCOMPARE(piece ? told(piece->span) : QString(), next);
        QCOMPARE(piece ? piece->resumed : -1, resumed);
    }

    void clipsThePieceToWhatTheDeviceHolds_data()
    {
        QTest::addColumn<QString>("found");
        QTest::addColumn<QString>("clipped");
        QTest::newRow("held whole") << "07:00-13:00"
                                    << "08:00-12:00";
        QTest::newRow("inside") << "09:00-10:00"
                                << "09:00-10:00";
        QTest::newRow("gap in the middle") << "07:00-09:00 10:00-11:00"
                                           << "08:00-11:00";
        QTest::newRow("late begin") << "06:00-07:00 08:30-13:00"
                                    << "08:30-12:00";
        QTest::newRow("early end, next behind the piece") << "07:00-09:00 12:30-13:00"
                                                          << "08:00-09:00";
        QTest::newRow("touching ones") << "07:00-10:00 10:00-13:00"
                                       << "08:00-12:00";
        QTest::newRow("short one within a long one") << "07:00-11:00 09:00-10:00"
                                                     << "08:00-11:00";
        QTest::newRow("before and behind") << "06:00-08:00 12:00-13:00"
                                           << "";
        QTest::newRow("nothing") << ""
                                 << "";
    }

    void clipsThePieceToWhatTheDeviceHolds()
    {
        QFETCH(QString, found);
        QFETCH(QString, clipped);
        const auto range = BackupPieces::clip({QDateTime(plainDay, QTime(8, 0)), QDateTime(plainDay, QTime(12, 0))},
                                              recordings(found));
        const QString format = QStringLiteral("HH:mm");
        QCOMPARE(range ? range->begin.toString(format) + QLatin1Char('-') + range->end.toString(format) : QString(),
                 clipped);
    }

    void takesTheHourOfAClockChangeInWhole_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<QString>("segment");
        QTest::addColumn<QDateTime>("begin");
        QTest::addColumn<int>("minutes");
        QTest::newRow("skipped inside") << shortDay << "01:00-04:00" << utc(shortDay, 0) << 120;
        QTest::newRow("skipped whole") << shortDay << "02:10-02:40" << utc(shortDay, 1) << 0;
        QTest::newRow("doubled inside") << longDay << "01:00-04:00" << utc(longDay.addDays(-1), 23) << 240;
        QTest::newRow("begins and ends in the doubled") << longDay << "02:15-02:45" << utc(longDay, 0, 15) << 90;
        QTest::newRow("the long day") << longDay << "00:00-23:59" << utc(longDay.addDays(-1), 22) << 24 * 60 + 59;
        QTest::newRow("the short day") << shortDay << "00:00-23:59" << utc(shortDay.addDays(-1), 23) << 22 * 60 + 59;
    }

    void takesTheHourOfAClockChangeInWhole()
    {
        QFETCH(QDate, date);
        QFETCH(QString, segment);
        QFETCH(QDateTime, begin);
        QFETCH(int, minutes);
        const auto piece = BackupPieces::next(task(segment, QString(), date));
        const QDateTime start = BackupDay::startOf(task(segment, {}, date), piece->span);
        QCOMPARE(start, begin);
        QCOMPARE(start.secsTo(BackupDay::endOf(task(segment, {}, date), piece->span)), minutes * 60);
    }

    void goesOnInThePassWhereItStopped_data()
    {
        QTest::addColumn<int>("minutesUtc");
        QTest::newRow("first pass") << 30;
        QTest::newRow("second pass") << 90;
        QTest::newRow("behind") << 150;
    }

    void goesOnInThePassWhereItStopped()
    {
        QFETCH(int, minutesUtc);
        BackupTaskInfo night = task(QStringLiteral("01:00-04:00"), QStringLiteral("+01:00-04:00"), longDay);
        const QDateTime reached = utc(longDay, 0).addSecs(minutesUtc * 60);
        BackupDay::setEnd(&night.fileInfos[0], reached);
        QCOMPARE(BackupDay::endOf(night, night.fileInfos.at(0)), reached);
        const auto rest = BackupPieces::next(night);
        QVERIFY(rest);
        QCOMPARE(BackupDay::startOf(night, rest->span), reached);
        QCOMPARE(BackupDay::endOf(night, rest->span), utc(longDay, 3));
    }

    void takesOverWhatACrashLeft_data()
    {
        QTest::addColumn<QString>("parts"); // as recordings
        QTest::addColumn<int>("extraMs");   // at the last one's end
        QTest::addColumn<QString>("settled");
        QTest::newRow("no file") << "" << 0 << "!08:00-12:00";
        QTest::newRow("cut off") << "08:00-09:00" << 0 << "+08:00-09:00 !09:00-12:00";
        QTest::newRow("late begin") << "08:30-09:00" << 0 << "+08:00-09:00 !09:00-12:00";
        QTest::newRow("whole") << "08:00-12:00" << 0 << "+08:00-12:00";
        QTest::newRow("two files") << "08:00-09:00 09:00-10:00" << 0 << "+08:00-09:00 +09:00-10:00 !10:00-12:00";
        QTest::newRow("one of an earlier piece") << "07:00-08:00" << 0 << "!08:00-12:00";
        QTest::newRow("the end of what there was") << "08:00-11:59:59" << 960 << "+08:00-12:00";
    }

    void takesOverWhatACrashLeft()
    {
        QFETCH(QString, parts);
        QFETCH(int, extraMs);
        QFETCH(QString, settled);
        BackupTaskInfo open = task(QStringLiteral("08:00-12:00"), QStringLiteral("!08:00-12:00"));
        QList<BackupLeftovers::Part> found;
        for (const vms_sdk::VideoRecording& each : recordings(parts))
            found.append({QStringLiteral("/p"), {each.begin, each.end}});
        if (!found.isEmpty())
            found.last().span.end = found.last().span.end.addMSecs(extraMs);
        BackupLeftovers::settle(&open, 0, found);
        QStringList entries;
        for (const FileInfo& entry : qAsConst(open.fileInfos))
            entries.append((entry.finished ? QLatin1Char('+') : QLatin1Char('!')) + told(entry));
        QCOMPARE(entries.join(QLatin1Char(' ')), settled);
    }

    void writesLengths_data()
    {
        QTest::addColumn<int>("part");
        QTest::addColumn<int>("whole");
        QTest::addColumn<QString>("words");
        QTest::newRow("hours") << 7200 << 13200 << QStringLiteral("2 h of 3 h 40 min");
        QTest::newRow("nothing of hours") << 0 << 28859 << QStringLiteral("0 h of 8 h");
        QTest::newRow("nothing of minutes") << 0 << 60 << QStringLiteral("0 min of 1 min");
        QTest::newRow("seconds") << 59 << 61 << QStringLiteral("59 s of 1 min 1 s");
        QTest::newRow("nothing at all") << 0 << 0 << QStringLiteral("0 s of 0 s");
    }

    void writesLengths()
    {
        QFETCH(int, part);
        QFETCH(int, whole);
        QTEST(vemo_base::SpanWords::share(part * 1000LL, whole * 1000LL), "words");
    }

    void tellsHowMuchIsSafe()
    {
        BackupTaskInfo day =
            task(QStringLiteral("08:00-12:00 13:00-18:00"), QStringLiteral("+08:00-10:00 !10:00-12:00"));
        QVERIFY(!vemo_data::BackupSafety::of(day).isKnown);
        day.recordings = recordings(QStringLiteral("07:00-09:12 09:00-10:40 17:00-20:00"));
        const vemo_data::BackupSafety safety = vemo_data::BackupSafety::of(day);
        QCOMPARE(safety.held, qint64(160 + 60) * 60);
        QCOMPARE(safety.safe, qint64(120) * 60);
        day.fileInfos[0].filePath.clear(); // no recording: nothing of it is in a file
        QCOMPARE(vemo_data::BackupSafety::of(day).safe, qint64(0));
    }
};

QTEST_GUILESS_MAIN(BackupPiecesTest)
#include "BackupPiecesTest.moc"
