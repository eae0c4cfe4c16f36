#include "device/Mailbox.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopedPointer>
#include <QTest>
#include <QThread>
#include <QTimer>

using namespace vms_sdk;

class MailboxTest final : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheOrderOfEachSender();
    void letsTimersHaveTheirTurn();
    void runsNothingAfterItsEnd();
};

void MailboxTest::keepsTheOrderOfEachSender()
{
    constexpr int calls = 20000;
    Mailbox mailbox;
    int last[2] = {-1, -1};
    bool isInOrder = true;
    const auto send = [&](int sender) {
        for (int i = 0; i < calls; ++i) {
            mailbox.post([&, sender, i] {
                isInOrder = isInOrder && i == last[sender] + 1 && QThread::currentThread() == qApp->thread();
                last[sender] = i;
            });
        }
    };
    QScopedPointer<QThread> first(QThread::create([&] { send(0); }));
    QScopedPointer<QThread> second(QThread::create([&] { send(1); }));
    first->start();
    second->start();
    QTRY_VERIFY_WITH_TIMEOUT(last[0] == calls - 1 && last[1] == calls - 1, 30000);
    QVERIFY(isInOrder);
    QVERIFY(first->wait() && second->wait());
}

void MailboxTest::letsTimersHaveTheirTurn()
{
    Mailbox mailbox;
    int done = 0;
    // Half a second of work in one go; without turns the timer would fire once, at the end.
    for (int i = 0; i < 500; ++i) {
        mailbox.post([&done] {
            QThread::msleep(1);
            ++done;
        });
    }
    int ticksMeanwhile = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { ticksMeanwhile += done < 500 ? 1 : 0; });
    timer.start(1);
    QTRY_COMPARE_WITH_TIMEOUT(done, 500, 30000);
    QVERIFY2(ticksMeanwhile > 10, qPrintable(QString::number(ticksMeanwhile)));
}

void MailboxTest::runsNothingAfterItsEnd()
{
    auto* mailbox = new Mailbox;
    int run = 0;
    mailbox->post([&] {
        ++run;
        delete mailbox; // by a listener, in the middle of its turn
    });
    mailbox->post([&] { ++run; });
    QTRY_VERIFY(run > 0);
    QCoreApplication::processEvents();
    QCOMPARE(run, 1);
}

QTEST_GUILESS_MAIN(MailboxTest)
#include "MailboxTest.moc"
