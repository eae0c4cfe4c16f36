#include <tables/DownloadPace.h>
#include <tables/DownloadQueue.h>

#include <QtTest>

using vemo_filesCenter::DownloadPace;
using vemo_filesCenter::DownloadQueue;

namespace {

/// A queue in which so many run, so many start and so many more wait: r0.., s0.., w0...
DownloadQueue makeQueue(int running, int starting, int waiting)
{
    DownloadQueue queue;
    const auto add = [&queue](char kind, int number) {
        const QString key = QLatin1Char(kind) + QString::number(number);
        queue.append(key);
        return key;
    };
    for (int i = 0; i < running; ++i)
        queue.noteProgress(add('r', i));
    for (int i = 0; i < starting; ++i)
        queue.takeSlot(add('s', i));
    for (int i = 0; i < waiting; ++i)
        add('w', i);
    return queue;
}

} // namespace

class DownloadQueueTest : public QObject
{
    Q_OBJECT

private slots:
    void givesFreeSlotsInOrder_data()
    {
        QTest::addColumn<int>("running");
        QTest::addColumn<int>("starting");
        QTest::addColumn<int>("waiting");
        QTest::addColumn<QString>("started");
        QTest::newRow("none runs") << 0 << 0 << 8 << "w0 w1 w2 w3 w4";
        QTest::newRow("five run") << 5 << 0 << 3 << "";
        QTest::newRow("five start") << 0 << 5 << 3 << "";
        QTest::newRow("three run, one starts") << 3 << 1 << 3 << "w0";
        QTest::newRow("two run, one waits") << 2 << 0 << 1 << "w0";
        QTest::newRow("starting ones in front take no budget") << 1 << 2 << 4 << "w0 w1";
        QTest::newRow("nothing waits") << 0 << 0 << 0 << "";
    }

    void givesFreeSlotsInOrder()
    {
        QFETCH(int, running);
        QFETCH(int, starting);
        QFETCH(int, waiting);
        QFETCH(QString, started);
        DownloadQueue queue = makeQueue(running, starting, waiting);
        QStringList got;
        queue.fillSlots([&got](const QString& key) { got.append(key); });
        QCOMPARE(got.join(QLatin1Char(' ')), started);
        QVERIFY(queue.runningCount() + queue.startingCount() <= DownloadQueue::slotLimit);
        got.clear();
        queue.fillSlots([&got](const QString& key) { got.append(key); });
        QCOMPARE(got, QStringList());
    }

    void startsWhatIsStillThereWhenAStartChangesTheQueue()
    {
        DownloadQueue queue = makeQueue(0, 0, 4);
        QStringList got;
        queue.fillSlots([&](const QString& key) {
            got.append(key);
            if (key == QLatin1String("w0")) {
                queue.remove(QStringLiteral("w1"));
                queue.append(QStringLiteral("later"));
            }
            if (key == QLatin1String("w2"))
                queue.putBack(key); // refused: not tried again in the same round
        });
        QCOMPARE(got.join(QLatin1Char(' ')), QStringLiteral("w0 w2 w3"));
        QCOMPARE(queue.waitingKeys().join(QLatin1Char(' ')), QStringLiteral("w0 w3 later w2"));
    }

    void putsATaskBackBehindTheOthers_data()
    {
        QTest::addColumn<int>("waiting");
        QTest::addColumn<QString>("order");
        QTest::newRow("alone") << 0 << "s0";
        QTest::newRow("one other") << 1 << "w0 s0";
        QTest::newRow("two others") << 2 << "w0 w1 s0";
    }

    void putsATaskBackBehindTheOthers()
    {
        QFETCH(int, waiting);
        QFETCH(QString, order);
        DownloadQueue queue = makeQueue(0, 1, waiting);
        queue.putBack(QStringLiteral("s0"));
        QCOMPARE(queue.waitingKeys().join(QLatin1Char(' ')), order);
        QCOMPARE(queue.startingCount(), 0);
    }

    void keepsATaskInOnePlaceOnly()
    {
        DownloadQueue queue = makeQueue(1, 1, 1);
        QVERIFY(queue.isWaiting(QStringLiteral("s0"))); // a starting task still waits
        QVERIFY(!queue.takeSlot(QStringLiteral("s0")) && !queue.takeSlot(QStringLiteral("r0")));
        QVERIFY(queue.noteProgress(QStringLiteral("s0")));
        QVERIFY(!queue.noteProgress(QStringLiteral("s0")));
        QVERIFY(!queue.isWaiting(QStringLiteral("s0")) && !queue.isStarting(QStringLiteral("s0")));
        queue.append(QStringLiteral("s0")); // resumed: it has its slot
        QCOMPARE(queue.waitingKeys(), QStringList(QStringLiteral("w0")));
        queue.stopWaiting(QStringLiteral("r0")); // paused: it keeps its slot
        QVERIFY(queue.isRunning(QStringLiteral("r0")));
        queue.remove(QStringLiteral("r0"));
        QVERIFY(!queue.isKnown(QStringLiteral("r0")));
    }

    void tellsTheTimeLeftByThePaceOfWhatRuns()
    {
        DownloadPace pace;
        const QString a = QStringLiteral("a");
        QCOMPARE(pace.secondsLeft(a, 0), -1);
        pace.note(a, 0, 600'000, 1000);
        QCOMPARE(pace.secondsLeft(a, 1500), -1); // too early to tell
        pace.note(a, 25, 600'000, 11'000);
        QCOMPARE(pace.secondsLeft(a, 11'000), 30);
        QCOMPARE(pace.secondsLeftForAll(150'000, 11'000), 40);
        pace.note(a, 20, 600'000, 11'000); // never backwards
        QCOMPARE(pace.secondsLeft(a, 11'000), 30);
        QCOMPARE(pace.secondsRun(a, 11'000), 10.0);
        pace.forget(a);
        QCOMPARE(pace.secondsLeftForAll(1000, 11'000), -1);
    }
};

QTEST_GUILESS_MAIN(DownloadQueueTest)
#include "DownloadQueueTest.moc"
