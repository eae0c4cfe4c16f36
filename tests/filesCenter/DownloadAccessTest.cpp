#include "../platform/TestWorld.h"
#include "FakeSdks.h"

#include <BaseTools.h>
#include <ClientSignals.h>
#include <DataSignals.h>
#include <DevsMgrData.h>
#include <download/DownloadAccess.h>
#include <download/DownloadFileName.h>
#include <FormsMgr.h>
#include <ModuleAccess.h>
#include <SystemAssistant.h>
#include <SystemWorker.h>

#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_contact::ModuleAccess;
using vemo_data::DataSignals;
using vemo_data::DownloadTaskInfo;
using vemo_worker::SystemWorker;

namespace {

const QDateTime begin(QDate(2026, 1, 10), QTime(8, 0));
const QDateTime end(QDate(2026, 1, 10), QTime(8, 31));

} // namespace

class DownloadAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        DownloadAccess::instance();
        m_sdks.reset();
        SystemWorker::instance().setCurUser(QStringLiteral("u"), SystemWorker::allPowers);
        vemo_worker::SystemAssistant::instance().setPresenter(
            [this](const QString&, const QString& text) { m_alerts.append(text); });
        m_alerts.clear();
        m_added = std::make_unique<QSignalSpy>(&DataSignals::instance(), &DataSignals::signalAddDownloadTasksToLocalDB);
        m_forms = std::make_unique<QSignalSpy>(&ModuleAccess::instance(), &ModuleAccess::signalCreateModuleForm);

        vemo_data::DevRecord dev;
        dev.devId = QStringLiteral("dev");
        dev.name = QStringLiteral("Rec/1");
        vemo_data::DevsMgrData::instance().addSessionDev(dev);
        vms_sdk::DevInfo info;
        info.devId = dev.devId;
        vms_sdk::ChannelInfo channel;
        channel.channelNo = 3;
        channel.name = QStringLiteral("Gate: North");
        info.channels = {channel};
        emit vms_sdk::ClientSignals::instance().signalDevInfoPush(info);
    }

    void cleanup() { m_world.reset(); }

    void storesABurstAsOneListOfTasks()
    {
        for (int i = 0; i < 10; ++i)
            byFile(QStringLiteral("rec-%1").arg(i));
        QCOMPARE(m_added->size(), 0);
        QVERIFY(m_added->wait());
        QTest::qWait(300);
        QCOMPARE(m_added->size(), 1);
        const auto tasks = m_added->at(0).at(0).value<QList<DownloadTaskInfo>>();
        QCOMPARE(tasks.size(), 10);
        QSet<QString> ids;
        for (const DownloadTaskInfo& task : tasks)
            ids.insert(task.taskId);
        QCOMPARE(ids.size(), 10);
        QCOMPARE(m_forms->size(), 10); // nobody made the form
        QCOMPARE(m_forms->at(0).at(0).toInt(), 19);
    }

    void makesATaskOfARequest()
    {
        byFile(QStringLiteral("rec-1"));
        emit ModuleAccess::instance().signalDownloadRecordingByTimeRange(nullptr, QStringLiteral("dev|3"), 2, begin,
                                                                         end);
        QVERIFY(m_added->wait());
        const auto tasks = m_added->at(0).at(0).value<QList<DownloadTaskInfo>>();
        QCOMPARE(tasks.size(), 2);
        const DownloadTaskInfo& task = tasks.at(0);
        QCOMPARE(task.channelId, QStringLiteral("dev|3"));
        QCOMPARE(task.channelName, QStringLiteral("Gate: North"));
        QCOMPARE(task.devLabel, QStringLiteral("Rec/1"));
        QCOMPARE(task.channelNo, 3);
        QCOMPARE(task.beginTime, begin);
        QCOMPARE(task.endTime, end);
        QCOMPARE(task.durationMs, 31 * 60 * 1000);
        QCOMPARE(task.downloadMode, 0);
        QCOMPARE(task.fileName, QStringLiteral("rec-1"));
        QCOMPARE(task.savePath, QStringLiteral("Gate North@Rec1_3@20260110080000~20260110083100@Device.mp4"));
        QCOMPARE(task.state, 0);
        QCOMPARE(tasks.at(1).downloadMode, 1);
        QCOMPARE(tasks.at(1).fileName, QString());
        QCOMPARE(tasks.at(1).savePath, QStringLiteral("Gate North@Rec1_3@20260110080000~20260110083100@Edge Card.mp4"));
    }

    void turnsAwayAUserWithoutThePower_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("by file") << 0;
        QTest::newRow("by time range") << 1;
        QTest::newRow("implicitly") << 2;
    }

    void turnsAwayAUserWithoutThePower()
    {
        QFETCH(int, way);
        SystemWorker::instance().setCurUser(QStringLiteral("u"), SystemWorker::allPowers & ~8388608);
        QSignalSpy results(&ModuleAccess::instance(),
                           &ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult);
        request(way);
        QCOMPARE(m_alerts,
                 QStringList{QStringLiteral("No download recording permission, please contact the administrator")});
        QVERIFY(!m_added->wait(400));
        QCOMPARE(m_forms->size(), 0);
        QCOMPARE(results.size(), 0);
        QCOMPARE(m_sdks.takeCalls(), QStringList());
    }

    void startsAnImplicitDownloadAtOnceAndPastTheStore()
    {
        request(2);
        QCOMPARE(m_sdks.takeCalls().size(), 2);
        QCOMPARE(m_forms->size(), 1);
        QVERIFY(!m_added->wait(400));
        QVERIFY(m_alerts.isEmpty());
    }

    void asksForNoSecondForm()
    {
        vemo_base::BaseForm* form = nullptr;
        vemo_base::FormsMgr& forms = vemo_base::FormsMgr::instance();
        forms.registerForm(vemo_base::FilesCenterFormType,
                           [] { return new vemo_base::BaseForm(vemo_base::FilesCenterFormType); });
        connect(&forms, &vemo_base::FormsMgr::signalFormCreated, this,
                [&form](vemo_base::BaseForm* made) { form = made; });
        byFile(QStringLiteral("a"));
        QVERIFY(form);
        byFile(QStringLiteral("b"));
        QCOMPARE(m_forms->size(), 1);
        delete form;
    }

    void keepsAnySavedNameLegalAndShortEnough_data()
    {
        QTest::addColumn<QString>("channelName");
        QTest::addColumn<QString>("devLabel");
        QTest::addColumn<QString>("start");
        const QString rest = QStringLiteral("_0@20260110080000~20260110083100@Device.mp4");
        QTest::newRow("nothing known") << QString() << QString() << QString(QStringLiteral("@") + rest);
        QTest::newRow("climbing out") << QStringLiteral("../..") << QStringLiteral("/..\\x")
                                      << QString(QStringLiteral("@x") + rest);
        QTest::newRow("endless") << QStringLiteral("門").repeated(2000) << QStringLiteral("ü").repeated(2000)
                                 << QStringLiteral("門門門門門");
    }

    void keepsAnySavedNameLegalAndShortEnough()
    {
        QFETCH(QString, channelName);
        QFETCH(QString, devLabel);
        QFETCH(QString, start);
        DownloadTaskInfo task;
        task.channelName = channelName;
        task.devLabel = devLabel;
        task.beginTime = begin;
        task.endTime = end;
        const QString name = downloadFileName(task);
        QVERIFY2(name.startsWith(start), qPrintable(name));
        QVERIFY(name.endsWith(QStringLiteral("@20260110080000~20260110083100@Device.mp4")));
        QVERIFY(name.toUtf8().size() <= 240);
        QVERIFY(!name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')));
    }

private:
    void request(int way)
    {
        ModuleAccess& access = ModuleAccess::instance();
        if (way == 0)
            byFile(QStringLiteral("a"));
        else if (way == 1)
            emit access.signalDownloadRecordingByTimeRange(nullptr, QStringLiteral("dev|3"), 0, begin, end);
        else
            emit access.signalDownloadRecordingByTimeRangeImplicitly(QStringLiteral("dev|3"), 0, QStringLiteral("{i}"),
                                                                     QStringLiteral("/v/i.mp4"), begin, end);
    }

    static void byFile(const QString& fileName)
    {
        emit ModuleAccess::instance().signalDownloadRecordingByFile(nullptr, QStringLiteral("dev|3"), 0, fileName,
                                                                    begin, end);
    }

    FakeSdks& m_sdks = FakeSdks::instance();
    std::unique_ptr<TestWorld> m_world;
    QStringList m_alerts;
    std::unique_ptr<QSignalSpy> m_added;
    std::unique_ptr<QSignalSpy> m_forms;
};

QTEST_MAIN(DownloadAccessTest)
#include "DownloadAccessTest.moc"
