#include "OldDatabase.h"
#include "TestWorld.h"

#include <BackupTaskData.h>
#include <DataSignals.h>
#include <DownloadTaskData.h>
#include <FinishedFiles.h>
#include <TaskFactsData.h>

#include <QDir>
#include <QSignalSpy>
#include <QtTest>
#include <QUuid>

using vemo_data::Database;
using vemo_data::DataSignals;
using vemo_data::DownloadTaskData;
using vemo_data::DownloadTaskInfo;
using vemo_data::TaskFacts;
using vemo_data::TaskFactsData;

namespace {

using Tasks = QList<DownloadTaskInfo>;

DownloadTaskInfo makeTask(int hour, int state = vemo_data::TaskWaiting)
{
    DownloadTaskInfo task;
    task.taskId = QUuid::createUuid().toString();
    task.channelId = QStringLiteral("{dev}|3");
    task.channelName = QStringLiteral("Laderampe Süd");
    task.devLabel = QStringLiteral("Recorder");
    task.channelNo = 3;
    task.beginTime = QDateTime(QDate(2026, 1, 10), QTime(hour, 0, 0, 250));
    task.endTime = task.beginTime.addSecs(1860);
    task.downloadMode = vemo_data::DownloadByTimeRange;
    task.state = state;
    task.location = vemo_data::LocationEdgeCard;
    task.progress = 37;
    task.downloadedSize = 6'000'000'000;
    task.fileName = QStringLiteral("token/1");
    task.savePath = QStringLiteral("a'b\";--.mp4");
    task.downloadedMs = -1;
    task.durationMs = 1'860'000;
    return task;
}

void compare(const DownloadTaskInfo& a, const DownloadTaskInfo& b)
{
    QCOMPARE(a.taskId, b.taskId);
    QCOMPARE(a.channelId, b.channelId);
    QCOMPARE(a.channelName, b.channelName);
    QCOMPARE(a.devLabel, b.devLabel);
    QCOMPARE(a.channelNo, b.channelNo);
    QCOMPARE(a.beginTime, b.beginTime);
    QCOMPARE(a.endTime, b.endTime);
    QCOMPARE(a.downloadMode, b.downloadMode);
    QCOMPARE(a.state, b.state);
    QCOMPARE(a.location, b.location);
    QCOMPARE(a.progress, b.progress);
    QCOMPARE(a.downloadedSize, b.downloadedSize);
    QCOMPARE(a.fileName, b.fileName);
    QCOMPARE(a.savePath, b.savePath);
    QCOMPARE(a.downloadedMs, b.downloadedMs);
    QCOMPARE(a.durationMs, b.durationMs);
}

} // namespace

class DownloadTaskDataTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        DataSignals& store = DataSignals::instance();
        m_added = std::make_unique<QSignalSpy>(&store, &DataSignals::signalAddDownloadTasksToLocalDB);
        m_updated = std::make_unique<QSignalSpy>(&store, &DataSignals::signalUpdateDownloadTasksInLocalDB);
        m_deleted = std::make_unique<QSignalSpy>(&store, &DataSignals::signalDeleteDownloadTasksFromLocalDB);
    }

    void cleanup()
    {
        settle();
        m_world.reset();
    }

    void keepsTheTasksOfAStoreFromBeforeBackups()
    {
        QCOMPARE(OldDatabase::restore(QStringLiteral("version2.sql")), QString());
        const Tasks tasks = m_data.getAllDownloadTasks();
        QCOMPARE(Database::instance().notice(), QString());
        QCOMPARE(tasks.size(), 2);
        QCOMPARE(tasks.at(0).taskId + tasks.at(0).savePath, QStringLiteral("{t1}done.mp4"));
        QCOMPARE(tasks.at(0).beginTime.toMSecsSinceEpoch(), 1768032000250LL);
        QCOMPARE(tasks.at(0).downloadedSize, 6'000'000'000LL);
        QCOMPARE(tasks.at(1).downloadedMs, 700'000LL);
        QCOMPARE(TaskFactsData::instance().getAllNow().value(QStringLiteral("{t1}")).sha256, QByteArray(32, '\7'));
        vemo_data::BackupTaskInfo backup; // and takes what is new
        backup.taskId = QStringLiteral("{b}");
        backup.date = QDate(2026, 1, 10);
        backup.channelId = QStringLiteral("{dev}|3");
        backup.timeSegments = {{QTime(8, 0), QTime(9, 0)}};
        QVERIFY(vemo_data::BackupTaskData::instance().addBackupTasks({backup}));
        QCOMPARE(vemo_data::BackupTaskData::instance().getBackupTasks(backup.date).value(0).emptyLooks, 0);
    }

    void keepsEveryFieldAndTheOrderOverAReopening()
    {
        Tasks tasks{makeTask(8), makeTask(6, vemo_data::TaskSucceeded), makeTask(7, 9)};
        tasks[1].downloadedMs = 0;
        tasks[2].channelName = QString(); // empty texts come back empty
        tasks[2].endTime = QDateTime();
        m_data.addDownloadTasks(tasks);
        Database::instance().close();
        const Tasks stored = m_data.getAllDownloadTasks();
        QCOMPARE(stored.size(), 3);
        for (int i = 0; i < 3; ++i)
            compare(stored.at(i), tasks.at(i));
    }

    void announcesOneListOnceItIsStored()
    {
        m_data.addDownloadTasks({makeTask(1), makeTask(2)});
        QCOMPARE(m_added->size(), 0); // not from within the call
        QTRY_COMPARE(m_added->size(), 1);
        QCOMPARE(m_added->at(0).at(0).value<Tasks>().size(), 2);
    }

    void leavesOutARequestThatIsUnderWay_data()
    {
        QTest::addColumn<int>("firstState");
        QTest::addColumn<bool>("queuedAgain");
        QTest::newRow("waiting") << 0 << false;
        QTest::newRow("paused") << 2 << false;
        QTest::newRow("finished") << 3 << true;
        QTest::newRow("failed") << 6 << true;
    }

    void leavesOutARequestThatIsUnderWay()
    {
        QFETCH(int, firstState);
        QFETCH(bool, queuedAgain);
        m_data.addDownloadTasks({makeTask(1, firstState)});
        m_data.addDownloadTasks({makeTask(1)});
        QCOMPARE(m_data.getAllDownloadTasks().size(), queuedAgain ? 2 : 1);
    }

    void leavesOutTwinsOfOneBatch()
    {
        m_data.addDownloadTasks({makeTask(1), makeTask(1), makeTask(2)});
        QTRY_COMPARE(m_added->size(), 1);
        QCOMPARE(m_added->at(0).at(0).value<Tasks>().size(), 2);
    }

    void queuesAgainOnceTheRequestKeyIsForgotten()
    {
        const DownloadTaskInfo task = makeTask(1);
        m_data.addDownloadTasks({task});
        m_data.removeDownloadTaskKey(task);
        m_data.addDownloadTasks({makeTask(1)});
        QCOMPARE(m_data.getAllDownloadTasks().size(), 2);
    }

    void aFailedTaskThatIsQueuedAgainHoldsItsRequest()
    {
        DownloadTaskInfo task = makeTask(1, vemo_data::TaskConnectFailed);
        m_data.addDownloadTasks({task});
        task.state = vemo_data::TaskWaiting;
        m_data.updateDownloadTasks({task}, true);
        m_data.addDownloadTasks({makeTask(1)});
        QCOMPARE(m_data.getAllDownloadTasks().size(), 1);
    }

    void twoTasksOfOneRequestCanBothBeQueuedAgain()
    {
        Tasks tasks{makeTask(1, vemo_data::TaskAbnormal), makeTask(1, vemo_data::TaskAbnormal)};
        m_data.addDownloadTasks(tasks);
        for (DownloadTaskInfo& task : tasks)
            task.state = vemo_data::TaskWaiting;
        m_data.updateDownloadTasks(tasks, true);
        for (const DownloadTaskInfo& task : m_data.getAllDownloadTasks())
            QCOMPARE(task.state, static_cast<int>(vemo_data::TaskWaiting));
    }

    void amendingByAddNeverLosesARecord()
    {
        m_data.addDownloadTasks({makeTask(1)});
        m_data.amendDownloadTasksByAdd({makeTask(1)});
        QCOMPARE(m_data.getAllDownloadTasks().size(), 2);
        QTRY_COMPARE(m_added->size(), 2);
    }

    void announcesAnUpdateOnlyWhenAsked()
    {
        DownloadTaskInfo task = makeTask(1);
        m_data.addDownloadTasks({task});
        task.state = vemo_data::TaskPaused;
        task.savePath = QStringLiteral("other.mp4");
        m_data.updateDownloadTasks({task}, false);
        compare(m_data.getAllDownloadTasks().value(0), task);
        settle();
        QCOMPARE(m_updated->size(), 0);
        m_data.amendDownloadTasksByUpdate({task, makeTask(2)}); // one of them is not stored
        QTRY_COMPARE(m_updated->size(), 1);
        QCOMPARE(m_updated->at(0).at(0).value<Tasks>().size(), 1);
    }

    void announcesDeletedTasksByTheStateTheyHad()
    {
        Tasks tasks{makeTask(1), makeTask(2), makeTask(3, vemo_data::TaskSucceeded)};
        m_data.addDownloadTasks(tasks);
        const DownloadTaskInfo unknown = makeTask(9);
        tasks[0].state = vemo_data::TaskAbnormal; // the caller's copy may be stale
        m_data.deleteDownloadTasks(tasks + Tasks{unknown});
        QTRY_COMPARE(m_deleted->size(), 1);
        const auto byState = m_deleted->at(0).at(0).value<QMap<int, QSet<QString>>>();
        QCOMPARE(byState.value(0), (QSet<QString>{tasks.at(0).taskId, tasks.at(1).taskId}));
        QCOMPARE(byState.value(3), QSet<QString>{tasks.at(2).taskId});
        QCOMPARE(byState.size(), 2);
        QVERIFY(m_data.getAllDownloadTasks().isEmpty());
    }

    void readsManyTasksBehindTheAnnouncementsOfAllThatItTells()
    {
        Tasks many;
        for (int i = 0; i < 1500; ++i)
            many.append(makeTask(i % 20, vemo_data::TaskSucceeded));
        m_data.addDownloadTasks(many);
        int announced = 0;
        int told = -1;
        int announcedBefore = -1;
        const auto note = connect(&DataSignals::instance(), &DataSignals::signalAddDownloadTasksToLocalDB, this,
                                  [&announced](const Tasks& tasks) { announced += tasks.size(); });
        m_data.getAllDownloadTasks(this, [&](const Tasks& tasks) {
            told = tasks.size();
            announcedBefore = announced;
        });
        m_data.addDownloadTasks({makeTask(21)});
        QCOMPARE(told, -1); // not waited for
        QTRY_COMPARE(announced, 1501);
        QCOMPARE(told, announcedBefore);
        disconnect(note);
        int again = 0;
        {
            QObject context;
            m_data.getAllDownloadTasks(&context, [&again](const Tasks&) { ++again; });
        }
        settle();
        QCOMPARE(again, 0);
    }

    void splitsATaskAsOneChange()
    {
        DownloadTaskInfo finished = makeTask(1);
        m_data.addDownloadTasks({finished});
        settle();
        m_added->clear();
        QStringList order;
        const auto noteUpdate = connect(&DataSignals::instance(), &DataSignals::signalUpdateDownloadTasksInLocalDB,
                                        this, [&order](const Tasks&) { order.append(QStringLiteral("update")); });
        const auto noteAdd = connect(&DataSignals::instance(), &DataSignals::signalAddDownloadTasksToLocalDB, this,
                                     [&order](const Tasks&) { order.append(QStringLiteral("add")); });
        DownloadTaskInfo rest = makeTask(1, vemo_data::TaskAbnormal);
        finished.state = vemo_data::TaskSucceeded;
        m_data.splitDownloadTask(finished, rest);
        settle();
        QCOMPARE(order, (QStringList{QStringLiteral("update"), QStringLiteral("add")}));

        DownloadTaskInfo impossible = rest;
        impossible.taskId = QUuid::createUuid().toString();
        impossible.downloadedMs = -2; // the schema refuses it
        finished.state = vemo_data::TaskAbnormal;
        m_data.splitDownloadTask(finished, impossible);
        QVERIFY(m_data.flush());
        const Tasks stored = m_data.getAllDownloadTasks();
        QCOMPARE(stored.size(), 2);
        QCOMPARE(stored.at(0).state, static_cast<int>(vemo_data::TaskSucceeded));
        settle();
        QCOMPARE(order.size(), 2);
        disconnect(noteUpdate);
        disconnect(noteAdd);
    }

    void keepsFactsAsLongAsTheirTask()
    {
        TaskFactsData& factsData = TaskFactsData::instance();
        const DownloadTaskInfo task = makeTask(1);
        TaskFacts facts;
        facts.taskId = task.taskId;
        facts.report = QByteArrayLiteral("{\"video\":\"h264\",\"error\":\"\u00fc\"}");
        facts.reason = QStringLiteral("The recorder is full.");
        facts.seconds = 1.5;
        factsData.put(facts); // before the task itself
        m_data.addDownloadTasks({task});
        const QByteArray sum(32, '\x7f');
        factsData.setSha256(task.taskId, sum, 4711, QByteArrayLiteral("\x00\x01\x02\x03"));
        facts.reason.clear();
        factsData.put(facts); // without a sum: the kept one stands
        Database::instance().close();

        TaskFacts stored;
        factsData.get(task.taskId, this, [&stored](const TaskFacts& answer) { stored = answer; });
        QTRY_COMPARE(stored.taskId, task.taskId);
        QCOMPARE(stored.report, facts.report);
        QCOMPARE(stored.reason, QString());
        QCOMPARE(stored.sha256, sum);
        QCOMPARE(stored.sha256Bytes, 4711);
        QCOMPARE(stored.marks, QByteArrayLiteral("\x00\x01\x02\x03"));
        QCOMPARE(stored.seconds, 1.5);

        m_data.deleteDownloadTasks({task});
        QVERIFY(factsData.getNow(task.taskId).report.isEmpty());
        QVERIFY(factsData.getAllNow().isEmpty());
    }

    void knowsFinishedFilesByTheirNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("known"); ///< channel|device|number|seconds; empty: not one of ours
        const auto row = [](const char* name, const char* known) {
            QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(known);
        };
        row("Tor S\u00fcd@Recorder_3@20260110080000~20260110083100@Device.mp4", "Tor S\u00fcd|Recorder|3|1860");
        row("a@b@R_1_12@20260110080000~20260110080001@Edge card (2).mp4", "a@b|R_1|12|1");
        row("@_1@20260110080000~20260110080001@.mp4", "||1|1");
        row("a@R_3@20260110080000~20260110080000@Device.mp4", "");
        row("a@R_3@20261310080000~20261310090000@Device.mp4", "");
        row("a@R@20260110080000~20260110083100@Device.mp4", "");
        row("holiday.mp4", "");
    }

    void knowsFinishedFilesByTheirNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, known);
        const std::optional<DownloadTaskInfo> task = vemo_data::FinishedFiles::fromName(name);
        QCOMPARE(task.has_value(), !known.isEmpty());
        if (!task)
            return;
        QCOMPARE(QStringLiteral("%1|%2|%3|%4")
                     .arg(task->channelName, task->devLabel)
                     .arg(task->channelNo)
                     .arg(task->durationMs / 1000),
                 known);
    }

    void adoptsFinishedFilesOnceAfterTheStoreWasLost()
    {
        const QString name = m_world->path(QStringLiteral("a@R_3@20260110080000~20260110083100@Device.mp4"));
        for (const QString& path : {name, m_world->path(QStringLiteral("other.mp4"))}) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write("abc") == 3);
        }
        QVERIFY(m_data.flush());
        QVERIFY(!Database::instance().takeBegunAnew());
        Database::instance().close();
        QFile store(m_world->databaseFile());
        QVERIFY(store.open(QIODevice::WriteOnly) && store.write("no database at all, but long enough") > 0);
        store.close();
        QVERIFY(m_data.flush());
        QVERIFY(Database::instance().takeBegunAnew());
        QVERIFY(!Database::instance().takeBegunAnew());
        m_data.adoptFinishedFiles(m_world->path(QString()));
        m_data.adoptFinishedFiles(m_world->path(QString()));
        const Tasks tasks = m_data.getAllDownloadTasks();
        QCOMPARE(tasks.size(), 1);
        QCOMPARE(tasks.first().state, static_cast<int>(vemo_data::TaskSucceeded));
        QCOMPARE(QDir::cleanPath(tasks.first().savePath), name);
        QCOMPARE(tasks.first().downloadedSize, 3);
    }

    void changesTheChannelAlone()
    {
        DownloadTaskInfo task = makeTask(1);
        m_data.addDownloadTasks({task});
        m_data.updateDownloadTaskChannelId(task, QStringLiteral("{other}|3"));
        task.channelId = QStringLiteral("{other}|3");
        compare(m_data.getAllDownloadTasks().value(0), task);
    }

private:
    /// Until everything posted so far was carried out and announced.
    static void settle()
    {
        bool done = false;
        Database::instance().post([](QSqlDatabase&) { return true; }, [&done](bool) { done = true; });
        QTRY_VERIFY(done);
    }

    DownloadTaskData& m_data = DownloadTaskData::instance();
    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<QSignalSpy> m_added;
    std::unique_ptr<QSignalSpy> m_updated;
    std::unique_ptr<QSignalSpy> m_deleted;
};

QTEST_GUILESS_MAIN(DownloadTaskDataTest)
#include "DownloadTaskDataTest.moc"
