#include "device/BandwidthLimiter.h"

#include <QElapsedTimer>
#include <QScopedPointer>
#include <QTest>
#include <QThread>

#include <atomic>

using namespace vms_sdk;

class BandwidthLimiterTest final : public QObject
{
    Q_OBJECT

private slots:
    void letsEverythingThroughWithoutALimit();
    void sharesTheLimitAmongThreads();
};

void BandwidthLimiterTest::letsEverythingThroughWithoutALimit()
{
    BandwidthLimiter limiter;
    QCOMPARE(limiter.take(1LL << 40), 1LL << 40);
    limiter.setLimit(1000);
    QVERIFY(limiter.take(1LL << 40) < 1000);
    limiter.setLimit(0);
    QCOMPARE(limiter.take(5), 5);
}

void BandwidthLimiterTest::sharesTheLimitAmongThreads()
{
    constexpr qint64 rate = 10'000'000;
    BandwidthLimiter limiter;
    limiter.setLimit(rate);
    std::atomic<qint64> taken{0};
    QElapsedTimer timer;
    timer.start();
    const auto consume = [&] {
        while (timer.elapsed() < 500) {
            taken += limiter.take(64 * 1024);
            QThread::msleep(1);
        }
    };
    QScopedPointer<QThread> first(QThread::create(consume));
    QScopedPointer<QThread> second(QThread::create(consume));
    first->start();
    second->start();
    QVERIFY(first->wait() && second->wait());
    // Never more than the time's worth and what may be saved up.
    const qint64 allowed = rate * timer.elapsed() / 1000 + rate / 4;
    QVERIFY2(taken <= allowed, qPrintable(QStringLiteral("%1 of %2").arg(taken.load()).arg(allowed)));
    QVERIFY2(taken > rate / 10, "next to nothing went through");
}

QTEST_APPLESS_MAIN(BandwidthLimiterTest)
#include "BandwidthLimiterTest.moc"
