#include <download/RedownloadTimer.h>

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using vemo_filesCenter::RedownloadTimer;

class RedownloadTimerTest : public QObject
{
    Q_OBJECT

private slots:
    void scalesTheRandomPartToWholeSeconds_data()
    {
        QTest::addColumn<quint32>("random");
        QTest::addColumn<int>("delayMs");
        QTest::newRow("lowest") << 0u << 30'000;
        QTest::newRow("below the first second") << 71'582'788u << 30'000;
        QTest::newRow("first second") << 71'582'789u << 31'000;
        QTest::newRow("middle") << 0x80000000u << 60'000;
        QTest::newRow("highest") << 0xffffffffu << 89'000;
    }

    void scalesTheRandomPartToWholeSeconds()
    {
        QFETCH(quint32, random);
        QFETCH(int, delayMs);
        RedownloadTimer timer(
            QStringLiteral("id"), [random] { return random; }, nullptr);
        timer.scheduleRetry();
        QCOMPARE(tryTimer(timer)->interval(), delayMs);
        QVERIFY(tryTimer(timer)->isActive() && tryTimer(timer)->isSingleShot());
    }

    void waitsLongerAfterEachAttemptUpToTheEleventh()
    {
        RedownloadTimer timer(
            QStringLiteral("id"), [] { return 0u; }, nullptr);
        QSignalSpy retries(&timer, &RedownloadTimer::signalRedownloadTask);
        for (int attempt = 1; attempt <= 15; ++attempt) {
            timer.scheduleRetry();
            QCOMPARE(tryTimer(timer)->interval(), qMin(attempt, 11) * 30'000);
            elapse(tryTimer(timer));
            QCOMPARE(retries.size(), attempt);
        }
        QCOMPARE(retries.at(0).at(0).toString(), QStringLiteral("id"));
    }

    void livesAnHourFromTheLastArmedRetry()
    {
        const QPointer<RedownloadTimer> timer = new RedownloadTimer(QStringLiteral("id"), this);
        QTimer* kill = timer->findChild<QTimer*>(QStringLiteral("killTimer"));
        QCOMPARE(kill->interval(), 3'600'000);
        QVERIFY(kill->isActive());
        kill->stop();
        timer->scheduleRetry();
        QVERIFY(kill->isActive()); // begun again
        QCOMPARE(kill->interval(), 3'600'000);

        QSignalSpy destroyed(timer, &RedownloadTimer::signalRedownloadTimerDestroyed);
        elapse(kill);
        QCOMPARE(destroyed.size(), 1);
        QCOMPARE(destroyed.at(0).at(0).toString(), QStringLiteral("id"));
        QTRY_VERIFY(timer.isNull());
    }

    void drawsFromTheWholeRange()
    {
        RedownloadTimer timer(QStringLiteral("id"), nullptr);
        QSet<int> delays;
        for (int i = 0; i < 2000; ++i) {
            timer.scheduleRetry();
            const int delay = tryTimer(timer)->interval();
            QVERIFY(delay >= 30'000 && delay <= 89'000 && delay % 1000 == 0);
            delays.insert(delay);
        }
        QCOMPARE(delays.size(), 60);
    }

private:
    static QTimer* tryTimer(const RedownloadTimer& timer)
    {
        return timer.findChild<QTimer*>(QStringLiteral("tryTimer"));
    }

    static void elapse(QTimer* timer) { QVERIFY(QMetaObject::invokeMethod(timer, "timeout")); }
};

QTEST_GUILESS_MAIN(RedownloadTimerTest)
#include "RedownloadTimerTest.moc"
