#include "../platform/TestWorld.h"
#include "FakeSdks.h"

#include <download/DownloadSignals.h>
#include <download/ImplicitDownload.h>
#include <ModuleAccess.h>
#include <SystemMsg.h>

#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_contact::ModuleAccess;

class ImplicitDownloadTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        m_taskId = QStringLiteral("{task %1}").arg(++m_count);
        m_sdks.reset();
        m_results = std::make_unique<QSignalSpy>(&ModuleAccess::instance(),
                                                 &ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult);
    }

    void cleanup() { m_world.reset(); }

    void startsAtOnceAndOnlyOnce()
    {
        download(8);
        QCOMPARE(
            m_sdks.takeCalls(),
            (QStringList{QStringLiteral("time_range vavFrame 20260110080000 20260110081000 /v/a.mp4 ") + m_taskId,
                         QStringLiteral("playback_by_time dev 2 20260110080000 20260110081000 location=0 flag=1")}));
        download(9);
        QCOMPARE(m_sdks.takeCalls(), QStringList());
    }

    void answersOnceAndByTheEvent_data()
    {
        QTest::addColumn<int>("event");
        QTest::addColumn<bool>("answered");
        QTest::addColumn<bool>("ok");
        for (int event : {1, 2, 4, 7, 8, 9})
            QTest::newRow(qPrintable(QStringLiteral("failure %1").arg(event))) << event << true << false;
        QTest::newRow("finished") << 6 << true << true;
        for (int event : {0, 3, 5, 10, 11, -1})
            QTest::newRow(qPrintable(QStringLiteral("no end %1").arg(event))) << event << false << false;
    }

    void answersOnceAndByTheEvent()
    {
        QFETCH(int, event);
        QFETCH(bool, answered);
        QFETCH(bool, ok);
        download(8);
        tell(QStringLiteral("a user's task"), event);
        QCOMPARE(m_results->size(), 0);
        tell(m_taskId, event);
        tell(m_taskId, 6); // answered tasks are not answered again
        QCOMPARE(m_results->size(), 1);
        QCOMPARE(m_results->at(0), (QList<QVariant>{m_taskId, answered ? ok : true}));
    }

    void aTaskWithoutRoomOnTheDiskStaysUnanswered()
    {
        m_sdks.startResult = VAWS_REFUSED;
        download(8);
        m_sdks.takeCalls();
        m_sdks.startResult = VAWS_OK;
        download(8); // its id is taken for good
        QCOMPARE(m_sdks.takeCalls(), QStringList());
        QCOMPARE(m_results->size(), 0);
    }

    void endsWhatRunsWhenTheClientQuits()
    {
        download(8);
        m_sdks.takeCalls();
        emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
        QVERIFY(m_sdks.takeCalls().contains(QStringLiteral("stop ") + m_taskId));
        QVERIFY(m_results->contains(QList<QVariant>{m_taskId, false}));
    }

private:
    void download(int hour)
    {
        const QDateTime begin(QDate(2026, 1, 10), QTime(hour, 0));
        ImplicitDownload::instance().download(QStringLiteral("dev|2"), 0, m_taskId, QStringLiteral("/v/a.mp4"), begin,
                                              begin.addSecs(600));
    }

    static void tell(const QString& taskId, int event)
    {
        emit DownloadSignals::instance().signalDownloadEvent(taskId, event, 0);
    }

    FakeSdks& m_sdks = FakeSdks::instance();
    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<QSignalSpy> m_results;
    QString m_taskId;
    int m_count = 0;
};

QTEST_GUILESS_MAIN(ImplicitDownloadTest)
#include "ImplicitDownloadTest.moc"
