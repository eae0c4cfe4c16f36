#include "QueueWorld.h"

#include <backup/BackupPaths.h>
#include <backup/BackupPieceFiles.h>
#include <backup/BackupWorker.h>
#include <download/DownloadEvents.h>
#include <download/DownloadSignals.h>
#include <download/DownloadWorker.h>

#include <BackupTaskData.h>
#include <FilesCenterLogs.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <vms_sdk.h>

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

using namespace vemo_filesCenter;
using FileInfo = BackupTaskInfo::FileInfo;
using vemo_data::BackupTaskData;

namespace {

QTime time(const QString& text)
{
    return QTime::fromString(text, QStringLiteral("HH:mm:ss"));
}

QString span(const FileInfo& entry)
{
    return (entry.finished ? QLatin1Char('+') : QLatin1Char('!')) % entry.startTime.toString() % QLatin1Char('-') %
           entry.endTime.toString() % (entry.filePath.isEmpty() ? QStringLiteral(" none") : QString());
}

} // namespace

class BackupWorkerTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<QueueWorld>();
        m_root = m_world->filePath(QStringLiteral("../Backup"));
        QDir().mkpath(m_root);
        vemo_worker::SystemConfig::instance().setRecordingBackupPath(m_root);
        m_now = QDateTime(QDate(2026, 1, 20), QTime(12, 0));
        m_random = 0;
        m_isFileLost = false;
        m_worker =
            std::make_unique<BackupWorker>(BackupWorker::Seams{[this] { return m_now; }, [this] { return m_random; }});
    }

    void cleanup()
    {
        for (const char* id : {"a", "b", "c", "d", "e", "f"})
            DownloadWorker::instance().controlTask(QLatin1String(id), DownloadWorker::ControlCancel);
        QueueWorld::settle();
        m_worker.reset();
        m_world.reset();
    }

    void fetchesPieceAfterPieceUntilTheDayIsCovered()
    {
        QSignalSpy states(m_worker.get(), &BackupWorker::signalTaskStateChanged);
        start(task("a", "08:00:00-09:00:59 10:00:00-11:00:59 13:00:00-14:00:59"),
              "07:00:00-09:00:10 13:20:00-20:00:00");
        QCOMPARE(asked(), QStringLiteral("20260110080000 20260110090010 080000-090059.mp4"));
        event("a", EventFinished, 100);
        QCOMPARE(asked(), QStringLiteral("20260110132000 20260110140059 130000-140059.mp4"));
        event("a", EventFinished, 100);
        QCOMPARE(entries("a"), QStringLiteral("+08:00:00-09:00:59 +10:00:00-11:00:59 none +13:00:00-14:00:59"));
        QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupFinished));
        QCOMPARE(states.last().at(1).toInt(), int(vemo_data::BackupFinished));
        QVERIFY(vemo_data::isBackupCovered(stored("a")));
        QCOMPARE(
            logged().filter(QStringLiteral("time range")),
            (QStringList{QStringLiteral("Video recording backup success, time range:2026-01-10 08:00:00~09:00:59"),
                         QStringLiteral("No video recording, time range:2026-01-10 10:00:00~11:00:59"),
                         QStringLiteral("Video recording backup success, time range:2026-01-10 13:00:00~14:00:59")}));
        // Started again it finds nothing to do.
        start(stored("a"), "07:00:00-20:00:00");
        QCOMPARE(asked(), QString());
        QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupFinished));
    }

    void letsTheSixthTaskWaitForOneOfFive()
    {
        for (const char* id : {"a", "b", "c", "d", "e"})
            start(task(id, "08:00:00-09:00:59"), "07:00:00-20:00:00");
        QSignalSpy states(m_worker.get(), &BackupWorker::signalTaskStateChanged);
        m_world->sdks.takeCalls();
        start(task("f", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        QCOMPARE(m_worker->state(QStringLiteral("f")), int(vemo_data::BackupWaiting));
        QCOMPARE(m_worker->message(QStringLiteral("f")),
                 QStringLiteral("Waiting for backup...    2026-01-20 12:00:00"));
        QCOMPARE(states.size(), 0);
        m_worker->stopTask(QStringLiteral("f"));
        QVERIFY(m_worker->message(QStringLiteral("f")).startsWith(QLatin1String("Waiting for backup...")));
        start(task("f", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        m_world->sdks.takeCalls();
        m_worker->stopTask(QStringLiteral("b"));
        QCOMPARE(asked(), QString()); // not at once
        QTRY_COMPARE_WITH_TIMEOUT(m_worker->state(QStringLiteral("f")), int(vemo_data::BackupRunning), 1500);
        QCOMPARE(m_worker->message(QStringLiteral("f")), QString());
    }

    void triesAFailedTaskAgain_data()
    {
        QTest::addColumn<int>("eventId");
        QTest::addColumn<QByteArray>("reached");
        QTest::addColumn<quint64>("random");
        QTest::addColumn<int>("delayMs");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("left");
        const QString limit =
            QStringLiteral("The backup limit of he device has been reached, the backup will be attempted again later");
        const QString abnormal = QStringLiteral("Backup is abnormal,the backup will be attempted again later");
        const QByteArray reached = "20260110083000";
        const QString part = QStringLiteral("+08:00:00-08:30:00");
        const QString none = QStringLiteral("!08:00:00-09:00:59 none");
        QTest::newRow("limit") << 4 << QByteArray() << quint64(0) << 180'000 << limit << none;
        QTest::newRow("login") << 1 << QByteArray() << quint64(119'999) << 299'999 << abnormal << none;
        QTest::newRow("connect") << 2 << QByteArray() << quint64(120'000) << 180'000 << abnormal << none;
        QTest::newRow("broken, part is there") << 7 << reached << quint64(1) << 180'001 << abnormal << part;
        QTest::newRow("not past the begin")
            << 7 << QByteArray("20260110080000") << quint64(0) << 180'000 << abnormal << none;
        QTest::newRow("8") << 8 << reached << quint64(5) << 180'005 << abnormal << part;
        QTest::newRow("9") << 9 << reached << quint64(5) << 180'005 << abnormal << part;
    }

    void triesAFailedTaskAgain()
    {
        QFETCH(int, eventId);
        QFETCH(QByteArray, reached);
        QFETCH(quint64, random);
        QFETCH(int, delayMs);
        QFETCH(QString, message);
        QFETCH(QString, left);
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        m_world->writeFile(fileOf("a"));
        m_world->sdks.stopTime = reached;
        m_random = random;
        event("a", eventId);
        QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupWaiting));
        QVERIFY(m_worker->message(QStringLiteral("a")).startsWith(message + QStringLiteral("    2026")));
        QCOMPARE(entries("a"), left);
        QCOMPARE(filesThere(),
                 left == QLatin1String("+08:00:00-08:30:00") ? QStringLiteral("080000-083000.mp4") : QString());
        auto* retry = m_worker->findChild<QTimer*>(QStringLiteral("retry"));
        QVERIFY(retry && retry->isSingleShot());
        QCOMPARE(retry->interval(), delayMs);
        QVERIFY(qAbs(m_worker->retryTime(QStringLiteral("a")).msecsTo(m_now) + delayMs) < 1000);
        m_now = m_now.addSecs(-7 * 3600); // the clock was set: the wait stays as long
        QVERIFY(qAbs(m_worker->retryTime(QStringLiteral("a")).msecsTo(m_now) + delayMs) < 1000);
        m_now = m_now.addSecs(7 * 3600);
        m_world->sdks.takeCalls();
        retry->start(0);
        QTRY_COMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupRunning));
        QCOMPARE(asked().section(QLatin1Char(' '), 0, 0), left == QLatin1String("+08:00:00-08:30:00")
                                                              ? QStringLiteral("20260110083000")
                                                              : QStringLiteral("20260110080000"));
    }

    void forgetsTheRetryOfATaskThatIsStopped()
    {
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        event("a", EventAbnormal);
        m_worker->stopTask(QStringLiteral("a"));
        QVERIFY(!m_worker->retryTime(QStringLiteral("a")).isValid());
        QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupStopped));
        QCOMPARE(m_worker->busyCount(), 0);
    }

    void givesUpWhenTheChannelIsGone()
    {
        BackupTaskInfo gone = task("a", "08:00:00-09:00:59");
        gone.channelId = QStringLiteral("gone|1");
        QSignalSpy states(m_worker.get(), &BackupWorker::signalTaskStateChanged);
        start(gone, "07:00:00-20:00:00");
        event("a", EventAbnormal);
        QCOMPARE(states.last().at(1).toInt(), int(vemo_data::BackupStopped));
        QVERIFY(!m_worker->findChild<QTimer*>(QStringLiteral("retry")));
    }

    void stopsWhereTheTimeIsAhead_data()
    {
        QTest::addColumn<QDate>("date");
        QTest::addColumn<int>("skewHours");
        QTest::addColumn<QString>("left");
        QTest::newRow("a day to come") << QDate(2026, 1, 21) << 0 << "";
        QTest::newRow("today, finished up to now") << QDate(2026, 1, 20) << 0 << "+08:00:00-11:59:50";
        // What the recorder has not recorded yet is not settled by a clock of ours that is fast.
        QTest::newRow("our clock is 30 h fast") << QDate(2026, 1, 19) << -30 << "+08:00:00-11:59:50";
        QTest::newRow("our clock is 3 h slow") << QDate(2026, 1, 20) << 3 << "+08:00:00-11:59:50";
    }

    void stopsWhereTheTimeIsAhead()
    {
        QFETCH(QDate, date);
        QFETCH(int, skewHours);
        QFETCH(QString, left);
        vms_sdk::DevInfo device;
        device.devId = QStringLiteral("dev");
        device.clockSkewMs = skewHours * 3'600'000LL;
        emit vms_sdk::ClientSignals::instance().signalDevInfoPush(device);
        BackupTaskInfo ahead = task("a", "08:00:00-23:59:59");
        ahead.date = date;
        start(ahead, "07:00:00-11:59:50", date);
        if (!left.isEmpty()) {
            QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupRunning));
            event("a", EventFinished, 100);
        }
        QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupStopped));
        QVERIFY(m_worker->message(QStringLiteral("a"))
                    .startsWith(QLatin1String(
                        "The backup time is later than the current time, no video recordings can be backed up    ")));
        QCOMPARE(entries("a"), left);
    }

    void tellsProgressInStepsOfMoreThanTenSeconds()
    {
        start(task("a", "08:00:00-08:16:39"), "07:00:00-20:00:00"); // 999 s
        QSignalSpy progress(m_worker.get(), &BackupWorker::signalBackupProgress);
        event("a", EventProgress, 1); // 9 s
        QCOMPARE(progress.size(), 0);
        QCOMPARE(m_worker->curTime(QStringLiteral("a")), QTime(8, 0, 9));
        event("a", EventProgress, 2); // 19 s
        event("a", EventProgress, 2);
        QCOMPARE(progress.size(), 1);
        QCOMPARE(progress.at(0).at(1).toTime(), QTime(8, 0, 19));
        event("other", EventProgress, 50);
        QCOMPARE(progress.size(), 1);
    }

    void keepsWhatArrivedWhenStopped_data()
    {
        QTest::addColumn<QByteArray>("reached");
        QTest::addColumn<QString>("left");
        QTest::newRow("in the middle") << QByteArray("20260110081500") << "+08:00:00-08:15:00";
        QTest::newRow("before any data") << QByteArray() << "!08:00:00-09:00:59 none";
    }

    void keepsWhatArrivedWhenStopped()
    {
        QFETCH(QByteArray, reached);
        QFETCH(QString, left);
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        m_world->writeFile(fileOf("a"));
        m_world->sdks.stopTime = reached;
        emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
        QCOMPARE(entries("a"), left);
        QCOMPARE(filesThere(), reached.isEmpty() ? QString() : QStringLiteral("080000-081500.mp4"));
        QCOMPARE(logged().last(), QStringLiteral("stop back up, stop time:2026-01-10 08:%1:00")
                                      .arg(reached.isEmpty() ? 0 : 15, 2, 10, QLatin1Char('0')));
        start(stored("a"), "07:00:00-20:00:00");
        QCOMPARE(asked().section(QLatin1Char(' '), 2),
                 reached.isEmpty() ? QStringLiteral("080000-090059.mp4") : QStringLiteral("081500-090059.mp4"));
    }

    void stopsOnADiskThatIsFull()
    {
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        event("a", EventDiskLow);
        QCOMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupStopped));
        QVERIFY(
            m_worker->message(QStringLiteral("a"))
                .startsWith(QLatin1String("The disk free space < 1GB,please switch the disk to continue the backup")));
    }

    void beginsAnEntryWhereTheFileChanges()
    {
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        const QString closed = m_world->writeFile(QFileInfo(fileOf("a")).path() + QStringLiteral("/x_closed.mp4"));
        emit DownloadSignals::instance().signalDownloadFileToggle(QStringLiteral("a"), closed, 0,
                                                                  QueueWorld::at(8, 20));
        settleFiles();
        QCOMPARE(entries("a"), QStringLiteral("+08:00:00-08:20:00 !08:20:00-09:00:59"));
        m_world->writeFile(fileOf("a"));
        event("a", EventFinished, 100);
        QCOMPARE(entries("a"), QStringLiteral("+08:00:00-08:20:00 +08:20:00-09:00:59"));
        QCOMPARE(filesThere(), QStringLiteral("080000-082000.mp4 082000-090059.mp4"));
    }

    void forgetsADeletedTask()
    {
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        m_world->sdks.takeCalls();
        m_worker->deleteTask(QStringLiteral("a"));
        QVERIFY(m_world->sdks.takeCalls().contains(QStringLiteral("cancel a")));
        QVERIFY(!m_worker->contains(QStringLiteral("a")));
        QCOMPARE(logged().last(), QStringLiteral("delete back up task, back up date:2026-01-10"));
    }

    void overwritesNothingThatIsNotItsOwn()
    {
        // Two tasks of one channel share the folder.
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        const QString first = m_world->writeFile(fileOf("a"), 1000);
        event("a", EventFinished, 100);
        QueueWorld::settle();
        start(task("b", "08:00:00-09:00:59 10:00:00-11:00:59"), "07:00:00-20:00:00");
        QCOMPARE(QFileInfo(fileOf("b")).fileName(), QStringLiteral("080000-090059 (2).mp4"));
        // A file that nobody knows keeps its content under another name.
        const QString unknown = m_world->writeFile(QFileInfo(first).path() + QStringLiteral("/100000-110059.mp4"), 77);
        event("b", EventFinished, 100);
        QCOMPARE(fileOf("b"), unknown);
        QCOMPARE(QFileInfo(QFileInfo(first).path() + QStringLiteral("/100000-110059 (2).mp4")).size(), qint64(77));
        QCOMPARE(QFileInfo(first).size(), qint64(1000));
    }

    /// It plays by its fragments; only the repair of the next start can finish it.
    void settlesNoFileThatTheDiskKeptOpen()
    {
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        m_world->writeFile(fileOf("a"));
        m_world->sdks.stopTime = "20260110083000";
        m_world->sdks.reports["a"] = R"({"event": 10, "path": "080000-090059.mp4", "bytes": 2000, "files": []})";
        event("a", EventAbnormal);
        QCOMPARE(entries("a"), QStringLiteral("!08:00:00-09:00:59"));
        QCOMPARE(filesThere(), QStringLiteral("080000-090059.mp4"));
    }

    void goesOnNamingALeftoverThatCantBeRemoved()
    {
        const QString stuck = m_world->filePath(QStringLiteral("a folder"));
        QVERIFY(QDir().mkpath(stuck));
        QCOMPARE(BackupPieceFiles::makeRoom(stuck, m_world->filePath(QStringLiteral("b.mp4"))),
                 BackupPieceFiles::Room::Stuck);
    }

    /// It could not be closed, and another file of the piece holds its footage.
    void takesAwayALeftoverThatNoEntryWillName()
    {
        BackupTaskInfo piece = task("a", "08:00:00-09:00:59");
        FileInfo open;
        open.startTime = time(QStringLiteral("08:00:00"));
        open.endTime = time(QStringLiteral("09:00:59"));
        open.filePath = m_world->writeRecording(m_world->filePath(QStringLiteral("080000-090059.mp4")),
                                                QueueWorld::at(8), QDateTime());
        piece.fileInfos = {open};
        m_world->writeRecording(m_world->filePath(QStringLiteral("080000-090059 (2).mp4")), QueueWorld::at(8),
                                QueueWorld::at(8, 30));
        const BackupPieceFiles::Leftovers left = BackupPieceFiles::takeOver(piece, 0, {});
        QCOMPARE(left.taken, 1);
        QCOMPARE(left.entries.size(), 2);
        QVERIFY(!QFile::exists(open.filePath));
        QVERIFY(QFile::exists(left.entries.first().filePath));
        // A whole one that overlaps and goes on behind it is all that is left of that footage.
        QVERIFY(
            QFile::rename(left.entries.first().filePath, m_world->filePath(QStringLiteral("080000-090059 (2).mp4"))));
        m_world->writeRecording(open.filePath, QueueWorld::at(8, 10), QueueWorld::at(8, 50));
        QCOMPARE(BackupPieceFiles::takeOver(piece, 0, {}).taken, 1);
        QVERIFY(QFile::exists(open.filePath));
    }

    /// It was fetched and closed while the store could take nothing; then the power went.
    void adoptsAFileThatTheStoreWasNotToldOf()
    {
        BackupTaskInfo piece = task("a", "08:00:00-09:00:59");
        piece.channelNo = 4;
        FileInfo next;
        next.startTime = time(QStringLiteral("08:00:00"));
        next.endTime = time(QStringLiteral("09:00:59"));
        next.filePath = m_world->filePath(QStringLiteral("080000-090059.mp4"));
        const QString half = m_world->filePath(QStringLiteral("080000-083000.mp4"));
        // Neither of these is a whole file of the piece: it has another begin, or was never closed.
        m_world->writeRecording(next.filePath, QueueWorld::at(7), QueueWorld::at(9));
        m_world->writeRecording(m_world->filePath(QStringLiteral("080000-084500.mp4")), QueueWorld::at(8), QDateTime());
        QCOMPARE(BackupPieceFiles::adopt(piece, 0, next, {}).taken, 0);
        m_world->writeRecording(half, QueueWorld::at(8), QueueWorld::at(8, 30));
        QCOMPARE(BackupPieceFiles::adopt(piece, 0, next, {half}).taken, 0); // another backup's
        const BackupPieceFiles::Leftovers left = BackupPieceFiles::adopt(piece, 0, next, {});
        QCOMPARE(left.taken, 1);
        QCOMPARE(left.entries.size(), 2);
        QCOMPARE(left.entries.first().filePath, half);
        QCOMPARE(left.entries.last().startTime, time(QStringLiteral("08:30:00")));
        QVERIFY(left.entries.last().filePath.isEmpty());
        QVERIFY(QFile::exists(next.filePath));
    }

    void settlesNothingOnAnotherDisk_data()
    {
        QTest::addColumn<QString>("how");
        for (const char* how : {"gone", "another disk", "file lost"})
            QTest::newRow(how) << QString::fromLatin1(how);
    }

    /// The disk goes while a piece is fetched, and comes back.
    void settlesNothingOnAnotherDisk()
    {
        QFETCH(QString, how);
        start(task("a", "08:00:00-09:00:59"), "07:00:00-20:00:00");
        const QString away = m_root + QStringLiteral(".away");
        m_isFileLost = true;
        if (how != QLatin1String("file lost")) {
            m_world->writeFile(fileOf("a"));
            QVERIFY(QDir().rename(m_root, away));
        }
        if (how == QLatin1String("another disk"))
            QVERIFY(QDir().mkpath(m_root));
        event("a", EventFinished, 100);
        QCOMPARE(entries("a").left(2), QStringLiteral("!0")); // not settled
        const QString text = m_worker->message(QStringLiteral("a"));
        QCOMPARE(text.contains(QStringLiteral("lies on another disk")), how != QLatin1String("file lost"));
        QVERIFY(m_worker->retryTime(QStringLiteral("a")).isValid());
        if (how == QLatin1String("another disk")) {
            QVERIFY2(QDir(m_root).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).isEmpty(),
                     "something was written to the other disk");
            QVERIFY(QDir().rmdir(m_root));
        }
        if (how != QLatin1String("file lost"))
            QVERIFY(QDir().rename(away, m_root));
        m_isFileLost = false;
        m_worker->findChild<QTimer*>(QStringLiteral("retry"))->start(0);
        QTRY_COMPARE(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupRunning));
        event("a", EventFinished, 100);
        QCOMPARE(entries("a"), QStringLiteral("+08:00:00-09:00:59"));
        QCOMPARE(filesThere(), QStringLiteral("080000-090059.mp4"));
    }

    void takesNoMoreTasksADayThanItHolds()
    {
        vemo_data::BackupTaskData& store = vemo_data::BackupTaskData::instance();
        const int most = vemo_data::BackupTaskData::maxBackupTasksCntOneDay();
        QList<BackupTaskInfo> tasks;
        for (int number = 0; number < most; ++number)
            tasks.append(task(qPrintable(QString::number(number)), "08:00:00-09:00:59"));
        QVERIFY(store.addBackupTasks(tasks));
        QVERIFY(!store.addBackupTasks({task("one too many", "08:00:00-09:00:59")}));
        BackupTaskInfo other = task("other", "08:00:00-09:00:59");
        other.date = QDate(2026, 1, 31);
        BackupTaskInfo twice = other;
        twice.taskId = QStringLiteral("0");
        QVERIFY(!store.addBackupTasks({other, twice})); // all or none
        QVERIFY(store.addBackupTasks({other}));
        QCOMPARE(store.getBackupCalendar(2026, 1), (QList<int>{10, 31}));
        QCOMPARE(store.getBackupTasks(QDate(2026, 1, 10)).size(), most);
        QVERIFY(store.deleteBackupTasks({QStringLiteral("other")}));
        QCOMPARE(store.getBackupCalendar(2026, 1), QList<int>{10});
    }

    void takesOverTheFileOfARunThatWasKilled()
    {
        BackupTaskInfo killed = task("a", "08:00:00-09:00:59");
        const QString path =
            BackupPaths::filePath(killed, time(QStringLiteral("08:00:00")), time(QStringLiteral("09:00:59")));
        QDir().mkpath(QFileInfo(path).path());
        m_world->writeRecording(path, QueueWorld::at(8), QueueWorld::at(8, 40));
        killed.fileInfos = {
            {time(QStringLiteral("08:00:00")), time(QStringLiteral("09:00:59")), path, false, false, false}};
        m_world->sdks.isRepaired = false;
        start(killed, "07:00:00-20:00:00");
        QCOMPARE(asked(), QString()); // the file may still be in work
        m_world->sdks.isRepaired = true;
        QTRY_COMPARE_WITH_TIMEOUT(m_worker->state(QStringLiteral("a")), int(vemo_data::BackupRunning), 3000);
        QCOMPARE(asked(), QStringLiteral("20260110084000 20260110090059 084000-090059.mp4"));
        QCOMPARE(entries("a"), QStringLiteral("+08:00:00-08:40:00 !08:40:00-09:00:59"));
        QCOMPARE(filesThere(), QStringLiteral("080000-084000.mp4"));
    }

private:
    static BackupTaskInfo task(const char* id, const char* segments)
    {
        BackupTaskInfo task;
        task.taskId = QLatin1String(id);
        task.date = QDate(2026, 1, 10);
        task.channelId = QStringLiteral("dev|1");
        task.channelName = QStringLiteral("Gate");
        task.deviceNo = QStringLiteral("dev");
        task.channelNo = 1;
        const QStringList parts = QString::fromLatin1(segments).split(QLatin1Char(' '));
        for (const QString& part : parts)
            task.timeSegments.append(
                {time(part.section(QLatin1Char('-'), 0, 0)), time(part.section(QLatin1Char('-'), 1))});
        return task;
    }

    void start(BackupTaskInfo info, const char* recordings, const QDate& date = QDate(2026, 1, 10))
    {
        if (!m_worker->contains(info.taskId))
            vemo_data::BackupTaskData::instance().addBackupTasks({info});
        const QStringList parts = QString::fromLatin1(recordings).split(QLatin1Char(' '));
        for (const QString& part : parts) {
            vms_sdk::VideoRecording recording;
            recording.begin = QDateTime(date, time(part.section(QLatin1Char('-'), 0, 0)));
            recording.end = QDateTime(date, time(part.section(QLatin1Char('-'), 1)));
            info.recordings.append(recording);
        }
        m_worker->startTask(info);
        settleFiles();
    }

    /// What was asked of the disk is done, and what it led to.
    void settleFiles() const { QTRY_VERIFY(!m_worker->isAtDisk()); }

    /// A finish by way of the SDK, which ends its task; the rest as the worker of downloads tells it.
    void event(const char* id, int eventId, int value = 0)
    {
        if (eventId != EventFinished) {
            emit DownloadSignals::instance().signalDownloadEvent(QLatin1String(id), eventId, value);
            settleFiles();
            return;
        }
        if (!QFileInfo::exists(fileOf(id)) && !m_isFileLost)
            m_world->writeFile(fileOf(id));
        m_world->sdks.libraryEvent(id, VAWS_EVENT_FINISHED, value);
        QCoreApplication::sendPostedEvents();
        settleFiles();
    }

    /// Begin, end and file name of the last download that the SDK was asked for since the last question.
    QString asked()
    {
        const QStringList starts = m_world->sdks.takeCalls().filter(QStringLiteral("time_range vavFrame"));
        if (starts.isEmpty())
            return {};
        const QStringList words = starts.last().section(QLatin1Char(' '), 2).split(QLatin1Char(' '));
        return words.at(0) % QLatin1Char(' ') % words.at(1) % QLatin1Char(' ') %
               starts.last().section(QLatin1Char('/'), -1).section(QLatin1Char(' '), 0, -2);
    }

    QString entries(const char* id)
    {
        QStringList told;
        for (const FileInfo& entry : stored(id).fileInfos)
            told.append(span(entry));
        return told.join(QLatin1Char(' '));
    }

    static BackupTaskInfo stored(const char* id)
    {
        for (const BackupTaskInfo& task : vemo_data::BackupTaskData::instance().getAllBackupTasks()) {
            if (task.taskId == QLatin1String(id))
                return task;
        }
        return {};
    }

    QString fileOf(const char* id) const
    {
        BackupTaskInfo info;
        m_worker->task(QLatin1String(id), &info);
        return info.fileInfos.value(info.curFileIndex).filePath;
    }

    QString filesThere() const
    {
        BackupTaskInfo any = task("a", "08:00:00-09:00:59");
        return QDir(BackupPaths::folder(m_root, any))
            .entryList({QStringLiteral("*.mp4")}, QDir::Files)
            .join(QLatin1Char(' '));
    }

    /// Texts of the log, oldest first.
    QStringList logged()
    {
        QStringList texts;
        bool answered = false;
        vemo_worker::FilesCenterLogs::Query query;
        query.kind = vemo_worker::FilesCenterLogs::Backup;
        vemo_worker::FilesCenterLogs::instance().query(query, this,
                                                       [&](const QList<vemo_worker::FilesCenterLogs::Entry>& page) {
                                                           for (const auto& entry : page)
                                                               texts.prepend(entry.text);
                                                           answered = true;
                                                       });
        for (int turn = 0; turn < 100 && !answered; ++turn)
            QTest::qWait(10);
        return texts;
    }

    std::unique_ptr<QueueWorld> m_world;
    std::unique_ptr<BackupWorker> m_worker;
    QString m_root;
    QDateTime m_now;
    quint64 m_random = 0;
    bool m_isFileLost = false; ///< a download that ends leaves none
};

QTEST_MAIN(BackupWorkerTest)
#include "BackupWorkerTest.moc"
