#include "FakeSdks.h"
#include "QueueWorld.h"

#include <details/FileVerifier.h>
#include <DevsMgrData.h>
#include <download/DownloadManager.h>
#include <download/DownloadSignals.h>
#include <download/RedownloadTimer.h>
#include <DownloadTaskData.h>
#include <SystemConfig.h>
#include <tables/FailedTable.h>
#include <tables/SuccessTable.h>
#include <tables/TaskTexts.h>
#include <TableWidget.h>

#include <QDialog>
#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_base::TableWidget;

namespace {

DownloadTaskInfo failedTask(const QString& key, int state, const QString& channelId = QStringLiteral("dev|1"))
{
    DownloadTaskInfo task = QueueWorld::task(key);
    task.state = state;
    task.channelId = channelId;
    task.fileName = key; // each another request
    return task;
}

QString a()
{
    return QStringLiteral("{a}");
}

QString b()
{
    return QStringLiteral("{b}");
}

} // namespace

class EndedTablesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<QueueWorld>();
        m_failed = std::make_unique<FailedTable>();
        m_success = std::make_unique<SuccessTable>();
    }

    void cleanup()
    {
        m_failed.reset();
        m_success.reset();
        delete &FileVerifier::instance(); // may wait for answers of a store that is closed now
        m_world.reset();
    }

    void retriesByItselfOnlyWhatMayPass_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<QString>("channelId");
        QTest::addColumn<int>("timers");
        const QString here = QStringLiteral("dev|1");
        QTest::newRow("login") << 4 << here << 0;
        QTest::newRow("connect") << 5 << here << 1;
        QTest::newRow("abnormal") << 6 << here << 1;
        QTest::newRow("invalid file") << 7 << here << 0;
        QTest::newRow("no address") << 8 << here << 1;
        QTest::newRow("channel gone") << 5 << QStringLiteral("gone|1") << 0;
    }

    void retriesByItselfOnlyWhatMayPass()
    {
        QFETCH(int, state);
        QFETCH(QString, channelId);
        QFETCH(int, timers);
        const DownloadTaskInfo task = failedTask(a(), state, channelId);
        QueueWorld::store({task});
        m_failed->slotAddDownloadTaskToFailedTable(task); // again
        QCOMPARE(m_failed->taskCount(), 1);
        QCOMPARE(timersOf().size(), timers);
        if (timers == 0)
            return;
        QTimer* tryTimer = timersOf().first()->findChild<QTimer*>(QStringLiteral("tryTimer"));
        QVERIFY(tryTimer->isActive() && tryTimer->interval() >= 30'000 && tryTimer->interval() <= 89'000);
        QMetaObject::invokeMethod(tryTimer, "timeout"); // the time has come
        QueueWorld::settle();
        QCOMPARE(m_failed->taskCount(), 0);
        QCOMPARE(QueueWorld::stored().value(a()).state, 0);
    }

    void leavesTheTimersOfAnEarlierRunToThePerson()
    {
        m_failed->addTask(failedTask(a(), 5), DownloadTasksTable::Source::StartUp);
        m_failed->addTasks({failedTask(b(), 6)}, DownloadTasksTable::Source::StartUp);
        QCOMPARE(m_failed->taskCount(), 2);
        QCOMPARE(timersOf().size(), 0);
    }

    void putsTheNewestAtTheTop()
    {
        QueueWorld::store({failedTask(a(), 5), failedTask(b(), 4)});
        QCOMPARE(table(*m_failed)->item(0, 4)->text(), QStringLiteral("Login Dev Failed"));
        QCOMPARE(table(*m_failed)->item(1, 4)->text(), QStringLiteral("Connect Failed"));
    }

    void discardsTheTimerEvenWhenThePersonSaysNo()
    {
        QueueWorld::store({failedTask(a(), 5)});
        m_world->answer = 0;
        m_failed->slotCleanDownloadTask(a());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_world->questions,
                 QStringList(
                     QStringLiteral("Do you want to delete download task:Channel 1(2026-01-10 08:00:00~09:00:00)?")));
        QCOMPARE(m_failed->taskCount(), 1);
        QCOMPARE(timersOf().size(), 0);
        m_world->answer = 1;
        m_failed->slotCleanDownloadTask(a());
        QueueWorld::settle();
        QCOMPARE(m_failed->taskCount(), 0);
        QCOMPARE(QueueWorld::stored().size(), 0);
    }

    void deletesNothingThatWentWhileTheQuestionWasOpen()
    {
        QueueWorld::store({failedTask(a(), 5)});
        m_world->whileAsked = [this] { m_failed->removeTaskRows({a()}); };
        m_failed->slotCleanDownloadTask(a());
        QueueWorld::settle();
        QCOMPARE(QueueWorld::stored().size(), 1);
    }

    void redownloadsCheckedTasksWhoseChannelExists()
    {
        m_failed->batchRedownload();
        m_failed->batchDelete();
        QCOMPARE(m_world->alerts, QStringList({QStringLiteral("please check tasks to redownload"),
                                               QStringLiteral("please check tasks to clean")}));
        QueueWorld::store({failedTask(a(), 5), failedTask(b(), 5, QStringLiteral("gone|1"))});
        m_failed->slotRedownloadTask(b());
        QCOMPARE(m_failed->taskCount(), 2);
        table(*m_failed)->checkAll(true);
        m_failed->batchRedownload();
        QueueWorld::settle();
        QVERIFY(!m_failed->hasTask(a()) && m_failed->hasTask(b()));
        QCOMPARE(QueueWorld::stored().value(a()).state, 0);
        QCOMPARE(QueueWorld::stored().value(b()).state, 5);
    }

    void deletesCheckedTasksAndTheirTimers()
    {
        QueueWorld::store({failedTask(a(), 5), failedTask(b(), 6)});
        QSignalSpy counts(&DownloadSignals::instance(), &DownloadSignals::signalFailedTasksCnt);
        table(*m_failed)->checkAll(true);
        m_failed->batchDelete();
        QueueWorld::settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_world->questions.last(), QStringLiteral("Do you want to clean checked tasks?"));
        QCOMPARE(m_failed->taskCount(), 0);
        QCOMPARE(timersOf().size(), 0);
        QCOMPARE(counts.last().at(0).toInt(), 0);
    }

    void saysSizesInBytesKilobytesAndMegabytes_data()
    {
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << qint64(0) << "0 B (01:00:00)";
        QTest::newRow("last in bytes") << qint64(1024) << "1024 B (01:00:00)";
        QTest::newRow("first in KB") << qint64(1025) << "1.00 KB (01:00:00)";
        QTest::newRow("last in KB") << qint64(1048576) << "1024.00 KB (01:00:00)";
        QTest::newRow("first in MB") << qint64(1048577) << "1.00 MB (01:00:00)";
        QTest::newRow("gigabytes") << qint64(5'368'709'120) << "5120.00 MB (01:00:00)";
    }

    void saysSizesInBytesKilobytesAndMegabytes()
    {
        QFETCH(qint64, bytes);
        DownloadTaskInfo task = QueueWorld::task(a());
        task.downloadedSize = bytes;
        QTEST(TaskTexts::size(task), "text");
    }

    void namesChannelsThatAreGone_data()
    {
        QTest::addColumn<QString>("channelId");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text");
        QTest::newRow("there") << "dev|3"
                               << "Old"
                               << "Channel 3";
        QTest::newRow("gone") << "gone|3"
                              << "Old"
                              << "Old(No longer exists)";
        QTest::newRow("gone, nameless") << "gone|3"
                                        << ""
                                        << "Device does not exist";
    }

    void namesChannelsThatAreGone()
    {
        QFETCH(QString, channelId);
        QFETCH(QString, name);
        DownloadTaskInfo task = QueueWorld::task(a());
        task.channelId = channelId;
        task.channelName = name;
        QTEST(TaskTexts::channel(task), "text");
    }

    void showsFinishedFilesThatAreThere()
    {
        QSignalSpy counts(&DownloadSignals::instance(), &DownloadSignals::signalSuccessTasksCnt);
        QueueWorld::store({finished(a()), finished(b(), false)});
        QCOMPARE(m_success->taskCount(), 1);
        QCOMPARE(counts.last().at(0).toInt(), 1);
        DownloadTaskInfo again = QueueWorld::stored().value(a());
        again.downloadedSize = 5;
        m_success->addFinishedTask(again); // the record only
        QCOMPARE(m_success->taskCount(), 1);
        QCOMPARE(table(*m_success)->item(0, 4)->text(), QStringLiteral("1.95 KB (01:00:00)"));

        m_success->addTasks({finished(QStringLiteral("{c}"), false), finished(QStringLiteral("{d}"))},
                            DownloadTasksTable::Source::StartUp);
        QTRY_COMPARE(m_success->taskCount(), 2);
        QVERIFY(m_success->hasTask(QStringLiteral("{d}")));
    }

    void sumsUpAFileWhenItIsClosedAndTakesItsSize()
    {
        FakeSdks::instance().status = VAWS_STATUS_FINISHING;
        QSignalSpy kept(&FileVerifier::instance(), &FileVerifier::signalSumKept);
        const DownloadTaskInfo task = finished(a());
        QueueWorld::store({task});
        QVERIFY2(!kept.wait(500), "the disk is still at it");
        QFile file(task.savePath);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray(3072, 'x')) == 3072);
        file.close();
        FakeSdks::instance().status = VAWS_STATUS_ENDED;
        QVERIFY(kept.wait(15'000));
        QCOMPARE(kept.first().at(2).toLongLong(), 3072);
        QCOMPARE(table(*m_success)->item(0, 4)->text(), QStringLiteral("3.00 KB (01:00:00)"));
        QueueWorld::settle();
        QCOMPARE(QueueWorld::stored().value(a()).downloadedSize, 3072);
    }

    void letsGoOfRowsWhoseFilesWentWhenItIsShown()
    {
        QueueWorld::store({finished(a()), finished(b())});
        QFile::remove(QueueWorld::stored().value(a()).savePath);
        m_success->show();
        QTRY_COMPARE(m_success->taskCount(), 1);
        QVERIFY(m_success->hasTask(b()));
        QCOMPARE(QueueWorld::stored().size(), 2); // the record stays
        m_success->slotOpenDownloadFile(a());
        QCOMPARE(m_success->findChildren<QDialog*>().size(), 0);
    }

    void saysThatTheFolderIsInvalid()
    {
        vemo_worker::SystemConfig::instance().setDownloadPath(m_world->filePath(QStringLiteral("gone")));
        m_success->openDownloadFolder();
        QCOMPARE(m_world->alerts, QStringList(QStringLiteral("download path is invalid")));
    }

private:
    static TableWidget* table(const QWidget& page) { return page.findChild<TableWidget*>(); }
    QList<RedownloadTimer*> timersOf() const { return m_failed->findChildren<RedownloadTimer*>(); }

    DownloadTaskInfo finished(const QString& key, bool hasFile = true) const
    {
        DownloadTaskInfo task = failedTask(key, vemo_data::TaskSucceeded);
        task.savePath = m_world->filePath(key + QStringLiteral(".mp4"));
        task.downloadedSize = 2000;
        if (hasFile)
            m_world->writeFile(task.savePath);
        return task;
    }

    std::unique_ptr<QueueWorld> m_world;
    std::unique_ptr<FailedTable> m_failed;
    std::unique_ptr<SuccessTable> m_success;
};

QTEST_MAIN(EndedTablesTest)
#include "EndedTablesTest.moc"
