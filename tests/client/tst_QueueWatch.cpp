#include "shell/QueueWatch.h"

#include <DataSignals.h>
#include <SystemMsg.h>

#include <QSignalSpy>
#include <QTest>

using vemo_client::QueueWatch;

namespace {

void figures(int running, int waiting, int paused, int retrying)
{
    emit vemo_contact::SystemMsg::instance().signalDownloadQueueChanged(running, waiting, paused, retrying);
}

void ended(const char* taskId, int state)
{
    vemo_data::DownloadTaskInfo task;
    task.taskId = QString::fromLatin1(taskId);
    task.state = state;
    emit vemo_data::DataSignals::instance().signalUpdateDownloadTasksInLocalDB({task});
}

} // namespace

/// When the shell says that the downloads are done, and what it counts.
class tst_QueueWatch : public QObject
{
    Q_OBJECT

private slots:
    void tellsOnceWhenNothingIsLeftToDo();
    void waitsForRetriesAndForgetsFailuresThatWereMended();
    void isSilentAtTheStart();
    void saysWhatMattersMost_data();
    void saysWhatMattersMost();
};

void tst_QueueWatch::tellsOnceWhenNothingIsLeftToDo()
{
    QueueWatch watch;
    QSignalSpy emptied(&watch, &QueueWatch::signalEmptied);
    figures(2, 1, 1, 0);
    ended("a", vemo_data::TaskSucceeded);
    figures(2, 0, 1, 0);
    ended("b", vemo_data::TaskSucceeded);
    ended("c", vemo_data::TaskInvalidFile);
    figures(0, 0, 1, 0);
    figures(0, 0, 0, 0);
    QCOMPARE(emptied.size(), 1);
    QCOMPARE(emptied.first().at(0).toInt(), 2);
    QCOMPARE(emptied.first().at(1).toInt(), 1);

    figures(1, 0, 0, 0);
    figures(0, 0, 0, 0);
    QCOMPARE(emptied.size(), 2);
    QCOMPARE(emptied.last().at(0).toInt(), 0);
}

void tst_QueueWatch::waitsForRetriesAndForgetsFailuresThatWereMended()
{
    QueueWatch watch;
    QSignalSpy emptied(&watch, &QueueWatch::signalEmptied);
    figures(1, 0, 0, 0);
    ended("a", vemo_data::TaskConnectFailed);
    figures(0, 0, 0, 1);
    QCOMPARE(emptied.size(), 0);
    ended("a", vemo_data::TaskDownloading);
    figures(1, 0, 0, 0);
    ended("a", vemo_data::TaskSucceeded);
    figures(0, 0, 0, 0);
    QCOMPARE(emptied.size(), 1);
    QCOMPARE(emptied.first().at(1).toInt(), 0);
}

void tst_QueueWatch::isSilentAtTheStart()
{
    QueueWatch watch;
    QSignalSpy emptied(&watch, &QueueWatch::signalEmptied);
    figures(0, 0, 0, 0);
    figures(0, 0, 3, 0);
    figures(0, 0, 0, 0);
    QCOMPARE(emptied.size(), 0);
}

void tst_QueueWatch::saysWhatMattersMost_data()
{
    QTest::addColumn<QVector<int>>("figures");
    QTest::addColumn<QString>("words");
    QTest::newRow("at work") << QVector<int>{5, 5, 2, 1} << "5 running, 5 waiting";
    QTest::newRow("only waiting") << QVector<int>{0, 5, 0, 0} << "0 running, 5 waiting";
    QTest::newRow("only retries") << QVector<int>{0, 0, 2, 3} << "3 to be retried";
    QTest::newRow("only paused") << QVector<int>{0, 0, 2, 0} << "2 paused";
    QTest::newRow("nothing") << QVector<int>{0, 0, 0, 0} << "empty";
}

void tst_QueueWatch::saysWhatMattersMost()
{
    QFETCH(const QVector<int>, figures);
    QTEST(QueueWatch::words({figures.at(0), figures.at(1), figures.at(2), figures.at(3)}), "words");
}

QTEST_APPLESS_MAIN(tst_QueueWatch)
#include "tst_QueueWatch.moc"
