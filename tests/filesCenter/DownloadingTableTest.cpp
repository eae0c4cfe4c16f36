#include "QueueWorld.h"

#include <DataSignals.h>
#include <download/DownloadEvents.h>
#include <download/DownloadManager.h>
#include <download/DownloadSignals.h>
#include <download/DownloadWorker.h>
#include <DownloadTaskData.h>
#include <SystemConfig.h>
#include <SystemMsg.h>
#include <tables/DownloadingTable.h>
#include <tables/DownloadStateWt.h>
#include <tables/FailedTable.h>
#include <tables/SuccessTable.h>
#include <TableWidget.h>

#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QtTest>

#include <random>

using namespace vemo_filesCenter;
using vemo_data::DownloadTaskData;

namespace {

QString key(int number)
{
    return QStringLiteral("{%1}").arg(number, 3, 10, QLatin1Char('0'));
}

void tell(const QString& taskId, int event, int progress = 0)
{
    emit DownloadSignals::instance().signalDownloadEvent(taskId, event, progress);
}

QStringList startedIn(const QStringList& calls)
{
    QStringList keys;
    for (const QString& call : calls) {
        if (call.startsWith(QLatin1String("time_range")) || call.startsWith(QLatin1String("file ")))
            keys.append(call.section(QLatin1Char(' '), -1));
    }
    return keys;
}

} // namespace

class DownloadingTableTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<QueueWorld>();
        m_downloading = std::make_unique<DownloadingTable>();
        m_failed = std::make_unique<FailedTable>();
        m_success = std::make_unique<SuccessTable>();
    }

    void cleanup()
    {
        for (const QString& id : QueueWorld::stored().keys())
            DownloadWorker::instance().controlTask(id, DownloadWorker::ControlCancel);
        m_downloading.reset();
        m_failed.reset();
        m_success.reset();
        m_world.reset();
    }

    void worksOffABurstFiveAtATime()
    {
        QList<DownloadTaskInfo> tasks;
        for (int i = 0; i < 20; ++i)
            tasks.append(QueueWorld::task(key(i), i + 1));
        QSignalSpy counts(&DownloadSignals::instance(), &DownloadSignals::signalDownloadingTasksCnt);
        QueueWorld::store(tasks);
        QCOMPARE(counts.last().at(0).toInt(), 20);
        QCOMPARE(startedIn(m_world->sdks.takeCalls()), QStringList({key(0), key(1), key(2), key(3), key(4)}));

        QStringList order;
        for (int i = 0; i < 20; ++i) {
            const DownloadTaskInfo task = running(i);
            m_world->writeFile(task.savePath);
            tell(key(i), EventFinished, 100);
            order += startedIn(m_world->sdks.takeCalls());
            agree();
        }
        QCOMPARE(order.size(), 15);
        QCOMPARE(order.first(), key(5));
        QCOMPARE(m_success->taskCount(), 20);
        QCOMPARE(m_downloading->taskCount(), 0);
    }

    void countsPausedDownloadsThatHoldTheirSlot()
    {
        add(7);
        for (int i = 0; i < 5; ++i)
            tell(key(i), EventProgress, 3);
        m_downloading->slotStopDownloading(key(2));
        QVERIFY(m_world->sdks.takeCalls().contains(QStringLiteral("pause ") + key(2)));
        m_downloading->slotTryDownloadTimeout();
        QCOMPARE(startedIn(m_world->sdks.takeCalls()), QStringList());
        QCOMPARE(QueueWorld::stored().value(key(2)).state, int(vemo_data::TaskPaused));

        m_downloading->slotStartDownloading(key(2));
        QCOMPARE(m_world->sdks.takeCalls().filter(QStringLiteral("resume")).size(), 1);
        tell(key(2), EventProgress, 4);
        QCOMPARE(m_downloading->queue().runningCount(), 5);
        QCOMPARE(m_downloading->queue().startingCount(), 0);
        agree();
    }

    void cancelsATaskThatIsPausedWhileItStarts()
    {
        add(6);
        m_world->sdks.takeCalls();
        m_downloading->slotStopDownloading(key(1));
        const QStringList calls = m_world->sdks.takeCalls();
        QVERIFY(calls.contains(QStringLiteral("cancel ") + key(1)));
        QCOMPARE(startedIn(calls), QStringList(key(5)));
        agree();
    }

    void neverWritesOverAFileThatIsThere()
    {
        const DownloadTaskInfo task = QueueWorld::task(key(0));
        const QString foreign = m_world->writeFile(m_world->filePath(task.savePath));
        DownloadTaskInfo twin = QueueWorld::task(key(1));
        twin.location = vemo_data::LocationEdgeCard; // another request, the same name
        QueueWorld::store({task, twin});
        const QString name = QFileInfo(task.savePath).completeBaseName();
        QCOMPARE(QueueWorld::stored().value(key(0)).savePath, m_world->filePath(name + QStringLiteral(" (2).mp4")));
        QCOMPARE(QueueWorld::stored().value(key(1)).savePath, m_world->filePath(name + QStringLiteral(" (3).mp4")));
        QCOMPARE(QFile(foreign).size(), 2000);
    }

    void failsIntoTheTableOfTheReason_data()
    {
        QTest::addColumn<int>("event");
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("failedRows");
        QTest::newRow("login") << int(EventLoginFailed) << 4 << 1;
        QTest::newRow("connect") << int(EventConnectFailed) << 5 << 1;
        QTest::newRow("abnormal") << int(EventAbnormal) << 6 << 1;
        QTest::newRow("no address") << int(EventGetUrlFailed) << 8 << 1;
        QTest::newRow("unnamed: kept, shown nowhere") << int(EventUnnamedFailure) << -1 << 0;
    }

    void failsIntoTheTableOfTheReason()
    {
        QFETCH(int, event);
        QFETCH(int, state);
        QFETCH(int, failedRows);
        add(1);
        tell(key(0), event);
        QCOMPARE(m_downloading->taskCount(), 0);
        QueueWorld::settle();
        QCOMPARE(m_failed->taskCount(), failedRows);
        QCOMPARE(QueueWorld::stored().value(key(0)).state, state);
        QCOMPARE(QueueWorld::stored().size(), 1);
    }

    void keepsTheDownloadedPartOfAFailure_data()
    {
        QTest::addColumn<bool>("byFile");
        QTest::addColumn<QByteArray>("lastFrame");
        QTest::addColumn<qint64>("downloadedMs");
        QTest::addColumn<bool>("hasFile");
        QTest::addColumn<QDateTime>("split"); ///< invalid: one record, the whole span failed
        const QDateTime none;
        QTest::newRow("range") << false << QByteArray("20260110082000") << qint64(0) << true << QueueWorld::at(8, 20);
        QTest::newRow("range, no frame") << false << QByteArray() << qint64(0) << false << none;
        QTest::newRow("range, at its begin") << false << QByteArray("20260110080000") << qint64(0) << true << none;
        QTest::newRow("range, file taken away") << false << QByteArray("20260110082000") << qint64(0) << false << none;
        QTest::newRow("range, to its end")
            << false << QByteArray("20260110090000") << qint64(0) << true << QueueWorld::at(9);
        QTest::newRow("file") << true << QByteArray() << qint64(600'000) << true << QueueWorld::at(8, 10);
        QTest::newRow("file, nothing") << true << QByteArray() << qint64(0) << false << none;
    }

    void keepsTheDownloadedPartOfAFailure()
    {
        QFETCH(bool, byFile);
        QFETCH(QByteArray, lastFrame);
        QFETCH(qint64, downloadedMs);
        QFETCH(bool, hasFile);
        QFETCH(QDateTime, split);
        DownloadTaskInfo task = QueueWorld::task(key(0));
        if (byFile) {
            task.downloadMode = vemo_data::DownloadByFile;
            task.fileName = QStringLiteral("rec");
        }
        QueueWorld::store({task});
        const QString path = running(0).savePath;
        if (hasFile)
            m_world->writeFile(path);
        m_world->sdks.stopTime = lastFrame;
        m_world->sdks.stopCount = downloadedMs;
        tell(key(0), EventAbnormal);
        QueueWorld::settle();

        const QHash<QString, DownloadTaskInfo> stored = QueueWorld::stored();
        const DownloadTaskInfo first = stored.value(key(0));
        if (!split.isValid()) {
            QCOMPARE(stored.size(), 1);
            QCOMPARE(first.state, int(vemo_data::TaskAbnormal));
            QCOMPARE(first.endTime, task.endTime);
            return;
        }
        QCOMPARE(first.state, int(vemo_data::TaskSucceeded));
        QCOMPARE(first.beginTime, task.beginTime);
        QCOMPARE(first.endTime, split);
        QCOMPARE(first.downloadedSize, qint64(2000));
        QVERIFY2(QFile::exists(first.savePath), qPrintable(first.savePath));
        QCOMPARE(m_success->taskCount(), 1);
        if (split == task.endTime) {
            QCOMPARE(stored.size(), 1);
            QCOMPARE(first.savePath, path);
            return;
        }
        QVERIFY(!QFile::exists(path)); // renamed to its span
        QVERIFY2(first.savePath.contains(QLatin1Char('~') + split.toString(QStringLiteral("yyyyMMddhhmmss"))),
                 qPrintable(first.savePath));
        QCOMPARE(stored.size(), 2);
        QCOMPARE(m_failed->taskCount(), 1);
        for (const DownloadTaskInfo& rest : stored) {
            if (rest.taskId == key(0))
                continue;
            QCOMPARE(rest.beginTime, split);
            QCOMPARE(rest.endTime, task.endTime);
            QCOMPARE(rest.state, int(vemo_data::TaskAbnormal));
            QCOMPARE(rest.downloadedMs, byFile ? int(downloadedMs) : -1);
            QCOMPARE(rest.downloadedSize, qint64(0));
        }
        QCOMPARE(m_world->sdks.takeCalls().last(), QStringLiteral("cancel ") + key(0));
    }

    void goesOnUnderItsKeyWhenAFileIsClosed_data()
    {
        QTest::addColumn<bool>("byFile");
        QTest::newRow("range") << false;
        QTest::newRow("file") << true;
    }

    void goesOnUnderItsKeyWhenAFileIsClosed()
    {
        QFETCH(bool, byFile);
        DownloadTaskInfo task = QueueWorld::task(key(0));
        task.downloadMode = byFile ? vemo_data::DownloadByFile : vemo_data::DownloadByTimeRange;
        QueueWorld::store({task});
        running(0);
        const QString closed = m_world->writeFile(m_world->filePath(QStringLiteral("a@b@c~d@Device_1.mp4")));
        emit DownloadSignals::instance().signalDownloadFileToggle(key(0), closed, 1'200'000, QueueWorld::at(8, 20));
        QueueWorld::settle();
        QHash<QString, DownloadTaskInfo> stored = QueueWorld::stored();
        QCOMPARE(stored.size(), 2);
        const DownloadTaskInfo going = stored.take(key(0));
        QCOMPARE(going.beginTime, QueueWorld::at(8, 20));
        QCOMPARE(going.endTime, task.endTime);
        QCOMPARE(going.state, 0);
        QCOMPARE(going.downloadedMs, 1'200'000);
        QCOMPARE(stored.begin()->endTime, QueueWorld::at(8, 20));
        QCOMPARE(stored.begin()->beginTime, task.beginTime);
        QCOMPARE(stored.begin()->savePath, closed);
        QCOMPARE(m_downloading->taskCount(), 1);
        QCOMPARE(m_success->taskCount(), 1);
        QVERIFY(m_downloading->queue().isRunning(key(0)));
    }

    void takesAFailureBesideARunningDownloadOfTheChannelAsContention()
    {
        DownloadTaskInfo other = QueueWorld::task(key(1));
        other.beginTime = QueueWorld::at(9);
        other.endTime = QueueWorld::at(10);
        QueueWorld::store({QueueWorld::task(key(0)), other, QueueWorld::task(key(2), 2)});
        running(0);
        tell(key(1), EventConnectFailed);
        QueueWorld::settle();
        QCOMPARE(m_failed->taskCount(), 0);
        QCOMPARE(m_downloading->queue().waitingKeys(), QStringList({key(2), key(1)}));
        QVERIFY(!m_downloading->queue().isStarting(key(1)));
        agree();
        tell(key(2), EventConnectFailed); // of another channel
        QueueWorld::settle();
        QCOMPARE(m_failed->taskCount(), 1);
    }

    void waitsOnWhenTheRecorderServesNoMore()
    {
        add(2);
        tell(key(0), EventLimitReached);
        QCOMPARE(m_downloading->queue().waitingKeys(), QStringList({key(1), key(0)}));
        QVERIFY(!m_downloading->queue().isStarting(key(0)));
        agree();

        // One that ran keeps its part; the rest waits under a key of its own.
        m_world->writeFile(running(1).savePath);
        m_world->sdks.stopTime = "20260110083000";
        tell(key(1), EventLimitReached);
        agree();
        QCOMPARE(m_success->taskCount(), 1);
        QCOMPARE(m_downloading->taskCount(), 2);
        QCOMPARE(m_failed->taskCount(), 0);
    }

    void pausesAndNamesTheDiskWhenItRunsFull()
    {
        add(1);
        tell(key(0), EventProgress, 20);
        tell(key(0), EventDiskLow);
        QCOMPARE(m_world->alerts.size(), 1);
        QVERIFY2(m_world->alerts.first().startsWith(
                     QLatin1String("downloading break off, disk free space < 1GB, disk name:")),
                 qPrintable(m_world->alerts.first()));
        QCOMPARE(QueueWorld::stored().value(key(0)).state, int(vemo_data::TaskPaused));
        QCOMPARE(m_downloading->taskCount(), 1);
    }

    void startsNothingWithoutTheDownloadFolder()
    {
        vemo_worker::SystemConfig::instance().setVideoFilePath(m_world->folder() + QStringLiteral("/gone"));
        add(1);
        QVERIFY(!m_world->alerts.isEmpty());
        QCOMPARE(m_world->alerts.first(),
                 QStringLiteral("Download path does not exist, please configure available download path in system "
                                "configuration"));
        QCOMPARE(startedIn(m_world->sdks.takeCalls()), QStringList());
        QVERIFY(m_downloading->queue().isWaiting(key(0)));
    }

    void callsAFileThatIsGoneInvalid()
    {
        add(1);
        running(0);
        tell(key(0), EventFinished, 100);
        QueueWorld::settle();
        QCOMPARE(QueueWorld::stored().value(key(0)).state, int(vemo_data::TaskInvalidFile));
        QCOMPARE(m_failed->taskCount(), 1);
    }

    void asksBeforeCheckedTasksAreCancelled()
    {
        m_downloading->batchCancel();
        m_downloading->batchStart();
        m_downloading->batchStop();
        QCOMPARE(m_world->alerts, QStringList({QStringLiteral("please check tasks to cancel"),
                                               QStringLiteral("please check tasks to start"),
                                               QStringLiteral("please check tasks to stop")}));
        add(7);
        running(0);
        m_world->sdks.takeCalls();
        table()->checkAll(true);
        m_world->answer = 0;
        m_downloading->batchCancel();
        QueueWorld::settle();
        QCOMPARE(m_downloading->taskCount(), 7);
        m_world->answer = 1;
        m_downloading->batchCancel();
        QCOMPARE(m_world->questions.last(), QStringLiteral("Do you want to cancel checked tasks?"));
        agree();
        QCOMPARE(m_downloading->taskCount(), 0);
        const QStringList calls = m_world->sdks.takeCalls();
        QVERIFY(calls.contains(QStringLiteral("cancel ") + key(0)));
        QCOMPARE(startedIn(calls), QStringList()); // none of those that were to go
    }

    void stopsAndStartsCheckedTasksTogether()
    {
        add(7);
        running(0);
        table()->checkAll(true);
        QSignalSpy updates(&vemo_data::DataSignals::instance(),
                           &vemo_data::DataSignals::signalUpdateDownloadTasksInLocalDB);
        m_downloading->batchStop();
        QueueWorld::settle();
        for (const DownloadTaskInfo& task : QueueWorld::stored())
            QCOMPARE(task.state, int(vemo_data::TaskPaused));
        m_downloading->batchStart();
        QueueWorld::settle();
        for (const DownloadTaskInfo& task : QueueWorld::stored())
            QCOMPARE(task.state, int(vemo_data::TaskWaiting));
        QCOMPARE(updates.size(), 0);
        QCOMPARE(m_downloading->queue().startingCount(), 4);
        QVERIFY(m_downloading->queue().isRunning(key(0)));
    }

    void showsAStartedBarWithItsTextLeftWhenPaused_data()
    {
        QTest::addColumn<QVector<QPair<int, int>>>("states");
        QTest::addColumn<int>("bar");
        QTest::addColumn<QString>("text");
        using Steps = QVector<QPair<int, int>>;
        QTest::newRow("begins") << Steps{{1, 3}} << 14 << "3%";
        QTest::newRow("zero") << Steps{{1, 0}} << 0 << "0%";
        QTest::newRow("half") << Steps{{1, 50}} << 50 << "50%";
        QTest::newRow("paused with progress") << Steps{{1, 50}, {2, -1}} << 50 << "50%";
        QTest::newRow("paused at the begin") << Steps{{0, 0}, {2, -1}} << 0 << "pause";
        QTest::newRow("waits again") << Steps{{1, 50}, {2, -1}, {0, 0}} << 0 << "waiting download...";
    }

    void showsAStartedBarWithItsTextLeftWhenPaused()
    {
        using Steps = QVector<QPair<int, int>>;
        QFETCH(Steps, states);
        DownloadStateWt widget;
        for (const auto& step : states)
            widget.setState(step.first, step.second);
        QTEST(widget.findChild<QProgressBar*>(QStringLiteral("progressBar"))->value(), "bar");
        QTEST(widget.findChild<QLabel*>(QStringLiteral("state"))->text(), "text");
    }

    void tellsTheEndOfTheQueueOnlyWhenNothingIsOnItsWay()
    {
        QSignalSpy changed(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadQueueChanged);
        DownloadManager::instance().loadTasks();
        QTRY_COMPARE(changed.size(), 1);
        add(1);
        running(0);
        tell(key(0), EventConnectFailed); // split or not, it comes back to be tried again
        QueueWorld::settle();
        QueueWorld::settle();
        const QList<QVariant> end{0, 0, 0, 0};
        for (int i = 1; i < changed.size(); ++i)
            QVERIFY2(changed.at(i) != end, "told the end while a retry was due");
        QCOMPARE(changed.last(), (QList<QVariant>{0, 0, 0, 1}));
        m_failed->slotRedownloadTask(key(0));
        QueueWorld::settle();
        QCOMPARE(changed.last(), (QList<QVariant>{1, 0, 0, 0}));
        m_world->writeFile(running(0).savePath);
        tell(key(0), EventFinished, 100);
        QueueWorld::settle();
        QueueWorld::settle();
        QCOMPARE(changed.last(), end);
    }

    void keepsTablesCountsAndStoreTogetherWhateverHappens()
    {
        constexpr int operations = 400;
        const quint32 seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        std::mt19937 random(seed);
        const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
        int added = 0;
        for (int i = 0; i < operations; ++i) {
            QStringList keys = m_downloading->queue().waitingKeys() + m_downloading->queue().runningKeys().values();
            keys.sort();
            const QString any = keys.isEmpty() ? QString() : keys.at(below(keys.size()));
            switch (below(8)) {
            case 0:
            case 1: {
                DownloadTaskInfo task = QueueWorld::task(key(added), added % 7 + 1);
                task.beginTime = task.beginTime.addSecs(added++);
                DownloadTaskData::instance().addDownloadTasks({task});
                break;
            }
            case 2:
                if (!m_downloading->queue().isWaiting(any) || m_downloading->queue().isStarting(any))
                    tell(any, EventProgress, below(100));
                break;
            case 3: {
                const int events[] = {EventLoginFailed, EventConnectFailed, EventLimitReached, EventAbnormal};
                tell(any, events[below(4)]);
                break;
            }
            case 4:
                m_downloading->slotStopDownloading(any);
                break;
            case 5:
                m_downloading->slotStartDownloading(any);
                break;
            case 6:
                m_world->sdks.stopTime = below(2) ? "20260110083000" : "";
                if (const QString path = QueueWorld::stored().value(any).savePath; path.startsWith(QLatin1Char('/')))
                    m_world->writeFile(path);
                if (m_downloading->queue().isRunning(any))
                    tell(any, EventFinished, 100);
                break;
            default:
                m_downloading->slotTryDownloadTimeout();
                break;
            }
            QVERIFY(m_downloading->queue().runningCount() + m_downloading->queue().startingCount() <= 5);
            if (i % 20 == 0)
                agree();
        }
        agree();
    }

    // Last: the manager follows the store no more afterwards.
    void keepsEverythingWhenTheClientQuits()
    {
        add(7);
        for (int i = 0; i < 5; ++i)
            m_world->writeFile(running(i).savePath);
        m_downloading->slotStopDownloading(key(1));
        m_world->sdks.stopTime = "20260110083000";
        emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
        int finished = 0;
        int waiting = 0;
        int paused = 0;
        qint64 seconds = 0;
        for (const DownloadTaskInfo& task : QueueWorld::stored()) {
            finished += task.state == vemo_data::TaskSucceeded;
            waiting += task.state == vemo_data::TaskWaiting;
            paused += task.state == vemo_data::TaskPaused;
            seconds += task.beginTime.secsTo(task.endTime);
            QVERIFY(task.state != vemo_data::TaskSucceeded || QFile::exists(task.savePath));
        }
        QCOMPARE(finished, 5);
        QCOMPARE(waiting, 6);
        QCOMPARE(paused, 1);
        QCOMPARE(seconds, qint64(7 * 3600));
        QCOMPARE(m_downloading->queue().runningCount(), 0);
    }

private:
    vemo_base::TableWidget* table() const { return m_downloading->findChild<vemo_base::TableWidget*>(); }

    void add(int count)
    {
        QList<DownloadTaskInfo> tasks;
        for (int i = 0; i < count; ++i)
            tasks.append(QueueWorld::task(key(i), i + 1));
        QueueWorld::store(tasks);
    }

    /// Lets the task run and returns its record.
    DownloadTaskInfo running(int number) const
    {
        tell(key(number), EventProgress, 10);
        return QueueWorld::stored().value(key(number));
    }

    /// Every stored task is in the table of its state and in no other, and the tables say how many rows they have.
    void agree() const
    {
        QueueWorld::settle();
        QueueWorld::settle();
        int expected[3] = {0, 0, 0};
        for (const DownloadTaskInfo& task : QueueWorld::stored()) {
            const bool isDownloading = task.state == 0 || task.state == 2;
            const bool isFailed = task.state >= 4;
            QCOMPARE(m_downloading->hasTask(task.taskId), isDownloading);
            QCOMPARE(m_failed->hasTask(task.taskId), isFailed);
            QCOMPARE(m_success->hasTask(task.taskId), task.state == 3);
            ++expected[isDownloading ? 0 : isFailed ? 1 : 2];
        }
        QCOMPARE(m_downloading->taskCount(), expected[0]);
        QCOMPARE(m_failed->taskCount(), expected[1]);
        QCOMPARE(m_success->taskCount(), expected[2]);
        const DownloadQueue& queue = m_downloading->queue();
        for (const QString& running : queue.runningKeys())
            QVERIFY(m_downloading->hasTask(running) && !queue.isWaiting(running));
    }

    std::unique_ptr<QueueWorld> m_world;
    std::unique_ptr<DownloadingTable> m_downloading;
    std::unique_ptr<FailedTable> m_failed;
    std::unique_ptr<SuccessTable> m_success;
};

QTEST_MAIN(DownloadingTableTest)
#include "DownloadingTableTest.moc"
