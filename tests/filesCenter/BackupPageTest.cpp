#include "QueueWorld.h"

#include <backup/AddBackupTasksToolWt.h>
#include <backup/BackupAxisWt.h>
#include <backup/BackupTasksBox.h>
#include <backup/BackupTaskTimeAxisWt.h>
#include <backup/BackupWorker.h>
#include <backup/DevRecordingsBackupPage.h>
#include <backup/RecordingsBackUpTree.h>
#include <BackupTaskData.h>
#include <DateSelectLineEdit.h>
#include <DevsMgrData.h>
#include <download/DownloadEvents.h>
#include <download/DownloadSignals.h>
#include <LocalViewTree.h>
#include <ProgressButton.h>
#include <SystemConfig.h>
#include <SystemWorker.h>
#include <VFileDialog.h>
#include <VideoPointTree.h>
#include <vms_sdk.h>

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>
#include <QUuid>

using namespace vemo_filesCenter;
using vemo_data::BackupTaskData;
using vemo_data::BackupTaskInfo;
using vms_sdk::DevStatus;

namespace {

/// What the device client SDK is asked and answers here.
struct FakeDevice
{
    DevStatus status = DevStatus::Online;
    QList<vms_sdk::RecsSearchCondition> searches;
    QStringList renewed;
};

FakeDevice& device()
{
    static FakeDevice fake;
    return fake;
}

const QDate day(2026, 1, 10);

} // namespace

namespace vms_sdk {

DevStatus dev_status(const QString&)
{
    return device().status;
}

void search_video_recordings_req(const RecsSearchCondition& condition)
{
    device().searches.append(condition);
}

void renewal_request_id(const QString& requestId)
{
    device().renewed.append(requestId);
}

} // namespace vms_sdk

/// The backup page with its rows on a real store and the real worker; recorders and downloads are fakes.
class BackupPageTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsOnlyWhenTheDeviceAllowsIt_data();
    void startsOnlyWhenTheDeviceAllowsIt();
    void searchesTheWholeDayAndStartsWithWhatIsFound();
    void endsASearchWithAReason_data();
    void endsASearchWithAReason();
    void ignoresTheAnswersOfOtherRows();
    void startsTasksOfADayThatIsNotShownAnyMore();
    void tellsWhenAFailedTaskIsTriedAgain();
    void startsAndStopsAllRows();
    void waitsBehindFiveRunningTasks();
    void asksBeforeItDeletes();
    void saysThatADayHasNoTasks_data();
    void saysThatADayHasNoTasks();
    void followsTheStoreWithoutRebuildingRows();
    void addsTasksForCheckedChannels();
    void refusesMoreTasksThanADayMayHave();
    void appliesADayToAnother();
    void exportsFilesOfAllRows();
    void refusesToExport_data();
    void refusesToExport();
    void namesAChannelThatIsGone();

private:
    static BackupTaskInfo task(int channel);
    void store(const QList<BackupTaskInfo>& tasks);
    void storeMany(int count);
    BackupTaskTimeAxisWt* row(int index) const { return m_page->box()->row(index); }
    template <typename Widget>
    Widget* rowPart(int index, const char* name) const
    {
        return row(index)->findChild<Widget*>(QLatin1String(name));
    }
    QToolButton* startBt(int index) const { return rowPart<QToolButton>(index, "startBt"); }
    QString message(int index) const { return rowPart<QLabel>(index, "errorMsg")->accessibleName(); }
    QPushButton* pageBt(const char* name) const { return m_page->findChild<QPushButton*>(QLatin1String(name)); }
    static void answer(int search, int errorCode, int recordings);

    std::unique_ptr<QueueWorld> m_world;
    std::unique_ptr<DevRecordingsBackupPage> m_page;
};

BackupTaskInfo BackupPageTest::task(int channel)
{
    BackupTaskInfo task;
    task.taskId = QUuid::createUuid().toString();
    task.date = day;
    task.channelId = QStringLiteral("dev|%1").arg(channel);
    task.channelName = QStringLiteral("Gate %1").arg(channel);
    task.deviceNo = QStringLiteral("dev");
    task.channelNo = channel;
    task.timeSegments = {{QTime(8, 0), QTime(12, 0, 59)}};
    return task;
}

void BackupPageTest::init()
{
    m_world = std::make_unique<QueueWorld>();
    device() = FakeDevice();
    vemo_worker::SystemWorker::instance().setCurUser(QStringLiteral("admin"), vemo_worker::SystemWorker::allPowers);
    QDir().mkpath(m_world->filePath(QStringLiteral("backup")));
    vemo_worker::SystemConfig::instance().setRecordingBackupPath(m_world->filePath(QStringLiteral("backup")));
    m_page = std::make_unique<DevRecordingsBackupPage>();
    m_page->resize(1200, 700);
    m_page->showDate(day);
    m_page->show();
}

void BackupPageTest::cleanup()
{
    QStringList ids;
    for (int i = 0; i < m_page->box()->rowCount(); ++i)
        ids.append(row(i)->task().taskId);
    if (!ids.isEmpty())
        BackupTaskData::instance().deleteBackupTasks(ids);
    QueueWorld::settle();
    m_page.reset();
    VCOMMON::VFileDialog::setAnswerer({});
    m_world.reset();
}

void BackupPageTest::store(const QList<BackupTaskInfo>& tasks)
{
    QVERIFY(BackupTaskData::instance().addBackupTasks(tasks));
    BackupTaskData::instance().flush();
    QueueWorld::settle();
}

void BackupPageTest::storeMany(int count)
{
    QList<BackupTaskInfo> tasks;
    for (int i = 1; i <= count; ++i)
        tasks.append(task(i));
    store(tasks);
    QCOMPARE(m_page->box()->rowCount(), count);
}

void BackupPageTest::answer(int search, int errorCode, int recordings)
{
    QList<vms_sdk::VideoRecording> found;
    for (int i = 0; i < recordings; ++i) {
        vms_sdk::VideoRecording recording;
        recording.begin = QDateTime(day, QTime(7 + i, 0));
        recording.end = recording.begin.addSecs(3600);
        found.append(recording);
    }
    emit vms_sdk::ClientSignals::instance().signalSearchVideoRecordingsRes(device().searches.at(search).requestId,
                                                                           errorCode, found);
    QTRY_VERIFY(!BackupWorker::instance().isAtDisk());
}

void BackupPageTest::startsOnlyWhenTheDeviceAllowsIt_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("allPowerful");
    QTest::addColumn<QString>("refusal");
    const auto refuses = [](const char* name, DevStatus status, bool allPowerful, const char* refusal) {
        QTest::newRow(name) << int(status) << allPowerful << QString::fromLatin1(refusal);
    };
    refuses("online, all-powerful", DevStatus::Online, true, "");
    refuses("offline", DevStatus::Offline, true, "Failed to start backup:device offline");
    refuses("wrong login", DevStatus::WrongLogin, true,
            "Failed to start backup:wrong user name or password for connecting device");
    refuses("locked", DevStatus::Locked, true, "Failed to start backup:device login is locked");
    refuses("unknown", DevStatus::Unknown, true, "Failed to start backup:device status unknown");
}

void BackupPageTest::startsOnlyWhenTheDeviceAllowsIt()
{
    QFETCH(int, status);
    QFETCH(QString, refusal);
    storeMany(1);
    device().status = DevStatus(status);
    startBt(0)->click();
    QCOMPARE(device().searches.size(), refusal.isEmpty() ? 1 : 0);
    QCOMPARE(message(0).left(refusal.size()), refusal);
    QCOMPARE(startBt(0)->isHidden(), refusal.isEmpty());
    if (refusal.isEmpty())
        return;
    QVERIFY2(message(0).size() > refusal.size(), "the message has no time");
    QVERIFY(!startBt(0)->isChecked());
    QCOMPARE(startBt(0)->toolTip(), QStringLiteral("start backup"));
}

void BackupPageTest::searchesTheWholeDayAndStartsWithWhatIsFound()
{
    storeMany(1);
    startBt(0)->click();
    QCOMPARE(rowPart<QLabel>(0, "taskState")->property("task_state").toInt(), 0);
    const vms_sdk::RecsSearchCondition search = device().searches.value(0);
    QCOMPARE(search.devId + QString::number(search.channelNo), QStringLiteral("dev1"));
    QCOMPARE(search.begin, QDateTime(day, QTime(0, 0)));
    QCOMPARE(search.end, QDateTime(day, QTime(23, 59, 59)));
    answer(0, 0, 2);
    QVERIFY(!startBt(0)->isHidden());
    QVERIFY(startBt(0)->isChecked());
    QCOMPARE(startBt(0)->toolTip(), QStringLiteral("stop backup"));
    QCOMPARE(BackupWorker::instance().state(row(0)->task().taskId), int(vemo_data::BackupRunning));
    QCOMPARE(row(0)->task().recordings.size(), 2);
    startBt(0)->click();
    QCOMPARE(BackupWorker::instance().state(row(0)->task().taskId), int(vemo_data::BackupStopped));
    QVERIFY(row(0)->task().recordings.isEmpty());
    QCOMPARE(startBt(0)->toolTip(), QStringLiteral("start backup"));
}

void BackupPageTest::endsASearchWithAReason_data()
{
    QTest::addColumn<int>("errorCode");
    QTest::addColumn<bool>("timeout");
    QTest::addColumn<QString>("reason");
    QTest::newRow("failed") << 7 << false << QStringLiteral("Failed to search video recordings(7)");
    QTest::newRow("nothing found") << 0 << false << QStringLiteral("Non-video recordings");
    QTest::newRow("no answer") << 0 << true << QStringLiteral("Query video recording timeout");
}

void BackupPageTest::endsASearchWithAReason()
{
    QFETCH(int, errorCode);
    QFETCH(bool, timeout);
    QFETCH(QString, reason);
    storeMany(1);
    startBt(0)->click();
    if (timeout)
        emit vms_sdk::ClientSignals::instance().signalRequestTimeout(device().searches.value(0).requestId);
    else
        answer(0, errorCode, 0);
    QVERIFY2(message(0).startsWith(reason), qPrintable(message(0)));
    QVERIFY(!startBt(0)->isHidden());
    QVERIFY(!startBt(0)->isChecked());
    QVERIFY(!row(0)->isSearching());
}

void BackupPageTest::ignoresTheAnswersOfOtherRows()
{
    storeMany(2);
    pageBt("startBt")->click();
    QCOMPARE(device().searches.size(), 2);
    emit vms_sdk::ClientSignals::instance().signalRequestTimeout(QStringLiteral("{other}"));
    QVERIFY(row(0)->isSearching() && row(1)->isSearching());
    answer(0, 7, 0);
    QVERIFY(!row(0)->isSearching());
    QVERIFY2(row(1)->isSearching(), "another row's answer ended the search");
    QVERIFY(message(1).isEmpty());
    QCOMPARE(device().renewed, QStringList{device().searches.at(1).requestId});
}

void BackupPageTest::startsTasksOfADayThatIsNotShownAnyMore()
{
    storeMany(2);
    pageBt("startBt")->click();
    const QString id = row(0)->task().taskId;
    m_page->showDate(day.addDays(1));
    answer(0, 0, 2);
    QCOMPARE(BackupWorker::instance().state(id), int(vemo_data::BackupRunning));
    m_page->showDate(day);
    QVERIFY(startBt(0)->isChecked());
    QVERIFY2(row(1)->isSearching() && startBt(1)->isHidden(), "the row does not show its search");
    pageBt("stopBt")->click();
    QVERIFY(!row(1)->isSearching());
    QCOMPARE(BackupWorker::instance().state(id), int(vemo_data::BackupStopped));
    QTRY_VERIFY(!BackupWorker::instance().isAtDisk());
}

void BackupPageTest::tellsWhenAFailedTaskIsTriedAgain()
{
    storeMany(1);
    startBt(0)->click();
    answer(0, 0, 2);
    const QString id = row(0)->task().taskId;
    emit DownloadSignals::instance().signalDownloadEvent(id, EventAbnormal, 0);
    QTRY_VERIFY(BackupWorker::instance().retryTime(id).isValid());
    const QString earliest = QDateTime::currentDateTime().addSecs(170).toString(QStringLiteral("HH:mm"));
    const QString latest = QDateTime::currentDateTime().addSecs(310).toString(QStringLiteral("HH:mm"));
    const QString told = rowPart<QLabel>(0, "state")->text();
    QVERIFY2(told.startsWith(QStringLiteral("Retry at ")), qPrintable(told));
    QVERIFY2(earliest > latest || (told.right(5) >= earliest && told.right(5) <= latest), qPrintable(told));
}

void BackupPageTest::startsAndStopsAllRows()
{
    storeMany(3);
    pageBt("startBt")->click();
    QCOMPARE(device().searches.size(), 3);
    answer(0, 0, 2);
    pageBt("startBt")->click(); // rows at work are left alone
    QCOMPARE(device().searches.size(), 3);
    pageBt("stopBt")->click();
    for (int i = 0; i < 3; ++i) {
        QVERIFY(!row(i)->isSearching());
        QVERIFY(!startBt(i)->isChecked());
        QVERIFY(!startBt(i)->isHidden());
    }
    answer(1, 0, 2); // too late
    QCOMPARE(BackupWorker::instance().state(row(1)->task().taskId), int(vemo_data::BackupStopped));
}

void BackupPageTest::waitsBehindFiveRunningTasks()
{
    storeMany(6);
    pageBt("startBt")->click();
    for (int i = 0; i < 6; ++i)
        answer(i, 0, 2);
    QVERIFY2(message(5).startsWith(QStringLiteral("Waiting for backup...")), qPrintable(message(5)));
    QCOMPARE(rowPart<QLabel>(5, "state")->text(), QStringLiteral("Waiting"));
    QCOMPARE(rowPart<QLabel>(4, "state")->text(), QStringLiteral("Running, 0%"));
    QVERIFY(startBt(5)->isChecked());
}

void BackupPageTest::asksBeforeItDeletes()
{
    storeMany(3);
    m_world->answer = 0;
    rowPart<QToolButton>(1, "deleteBt")->click();
    QueueWorld::settle();
    QCOMPARE(m_page->box()->rowCount(), 3);
    m_world->answer = 1;
    rowPart<QToolButton>(1, "deleteBt")->click();
    QueueWorld::settle();
    QCOMPARE(m_page->box()->rowCount(), 2);
    QCOMPARE(row(1)->task().channelName, QStringLiteral("Gate 3"));
    pageBt("deleteBt")->click();
    QueueWorld::settle();
    QCOMPARE(m_page->box()->rowCount(), 0);
    QCOMPARE(m_world->questions,
             (QStringList{QStringLiteral("Do you want to delete the video recording backup task?"),
                          QStringLiteral("Do you want to delete the video recording backup task?"),
                          QStringLiteral("Do you want to delete all the backup tasks on 2026-01-10?")}));
    QVERIFY(BackupTaskData::instance().getBackupTasks(day).isEmpty());
}

void BackupPageTest::saysThatADayHasNoTasks_data()
{
    QTest::addColumn<QByteArray>("button");
    for (const char* button : {"startBt", "stopBt", "exportBt", "deleteBt", "applyBt"})
        QTest::newRow(button) << QByteArray(button);
}

void BackupPageTest::saysThatADayHasNoTasks()
{
    QFETCH(QByteArray, button);
    pageBt(button.constData())->click();
    QCOMPARE(m_world->alerts, QStringList{QStringLiteral("No backup task on 2026-01-10")});
}

void BackupPageTest::followsTheStoreWithoutRebuildingRows()
{
    storeMany(2);
    BackupTaskTimeAxisWt* first = row(0);
    BackupTaskInfo other = task(9);
    other.date = day.addDays(1);
    store({task(3), other});
    QCOMPARE(m_page->box()->rowCount(), 3);
    BackupTaskInfo::FileInfo entry;
    entry.startTime = QTime(8, 0);
    entry.endTime = QTime(9, 0);
    entry.finished = true;
    BackupTaskData::instance().updateBackupResults(first->task().taskId, {entry});
    QueueWorld::settle();
    QCOMPARE(row(0), first);
    QCOMPARE(first->task().fileInfos.size(), 1);
    QCOMPARE(row(1)->task().fileInfos.size(), 0);
    // The rows of another day are made from the store.
    m_page->showDate(day.addDays(1));
    QCOMPARE(m_page->box()->rowCount(), 1);
    QCOMPARE(row(0)->task().channelName, QStringLiteral("Gate 9"));
}

void BackupPageTest::addsTasksForCheckedChannels()
{
    vms_sdk::DevInfo info;
    info.devId = QStringLiteral("dev");
    info.supportsBackup = true;
    for (int number = 1; number <= 3; ++number) {
        vms_sdk::ChannelInfo channel;
        channel.channelNo = number;
        channel.name = QStringLiteral("Dock %1").arg(number);
        info.channels.append(channel);
    }
    emit vms_sdk::ClientSignals::instance().signalDevInfoPush(info);
    info.devId = QStringLiteral("dev2");
    info.supportsBackup = false;
    emit vms_sdk::ClientSignals::instance().signalDevInfoPush(info);

    pageBt("addBt")->click();
    auto* tool = m_page->findChild<AddBackupTasksToolWt*>();
    auto* add = tool->findChild<QPushButton*>(QStringLiteral("addBt"));
    add->click();
    QCOMPARE(m_world->alerts.takeLast(), QStringLiteral("Please select Nuvira 2.0 device channels"));
    // Channels of a recorder without replay can't be checked.
    RecordingsBackUpTree* tree = tool->clientTree();
    tree->showTree(vemo_base::ClientTreeWt::LocalViewTreeType);
    QCOMPARE(tree->getCurShowTreeType(), vemo_base::ClientTreeWt::LocalViewTreeType);
    tree->localViewTree()->setCheckedChannels(
        {QStringLiteral("dev|3"), QStringLiteral("dev|1"), QStringLiteral("dev2|1")});
    tree->showTree(vemo_base::ClientTreeWt::VideoPointTreeType);
    const QPair<QString, int> first(QStringLiteral("dev"), 1);
    const QPair<QString, int> third(QStringLiteral("dev"), 3);
    QCOMPARE(tree->getCheckedChannels(), (QList<QPair<QString, int>>{first, third}));
    add->click();
    QVERIFY(tool->isHidden());
    QueueWorld::settle();
    QCOMPARE(m_world->alerts, QStringList());
    QCOMPARE(m_page->box()->rowCount(), 2);
    const BackupTaskInfo made = row(1)->task();
    QCOMPARE(made.channelId + made.channelName + made.deviceNo, QStringLiteral("dev|3Dock 3dev"));
    QCOMPARE(made.timeSegments.size(), 1);
    QCOMPARE(made.date, day);
    QVERIFY(!QUuid(made.taskId).isNull());
}

void BackupPageTest::refusesMoreTasksThanADayMayHave()
{
    const int limit = BackupTaskData::maxBackupTasksCntOneDay();
    storeMany(limit - 1);
    pageBt("addBt")->click();
    auto* tool = m_page->findChild<AddBackupTasksToolWt*>();
    vms_sdk::DevInfo info;
    info.devId = QStringLiteral("dev");
    info.supportsBackup = true;
    for (int number = 1; number <= 2; ++number) {
        vms_sdk::ChannelInfo channel;
        channel.channelNo = number;
        info.channels.append(channel);
    }
    emit vms_sdk::ClientSignals::instance().signalDevInfoPush(info);
    tool->clientTree()->videoPointTree()->setCheckedChannels({QStringLiteral("dev|1"), QStringLiteral("dev|2")});
    tool->findChild<QPushButton*>(QStringLiteral("addBt"))->click();
    QCOMPARE(m_world->alerts.takeLast(),
             QStringLiteral("A maximum of %1 tasks can be added in one day, %2 have been added,2 to be added, please "
                            "reduce the selected channels")
                 .arg(limit)
                 .arg(limit - 1));
    tool->hideSettingToolWt();
    store({task(99)});
    pageBt("addBt")->click();
    QCOMPARE(m_world->alerts, QStringList{QStringLiteral("A maximum of %1 tasks can be added in one day").arg(limit)});
}

void BackupPageTest::appliesADayToAnother()
{
    storeMany(2);
    m_page->box()->applyTo(day.addDays(3));
    QueueWorld::settle();
    QCOMPARE(m_world->alerts, QStringList{QStringLiteral("Apply backup tasks to 2026-01-13 success")});
    const QList<BackupTaskInfo> copies = BackupTaskData::instance().getBackupTasks(day.addDays(3));
    QCOMPARE(copies.size(), 2);
    QCOMPARE(copies.at(1).channelName, QStringLiteral("Gate 2"));
    QVERIFY(copies.at(1).taskId != row(1)->task().taskId);
    QCOMPARE(m_page->box()->rowCount(), 2);
    QCOMPARE(BackupTaskData::instance().getBackupCalendar(2026, 1), (QList<int>{10, 13}));
    m_world->alerts.clear();
    m_page->box()->applyTo(day);
    QVERIFY(m_world->alerts.value(0).contains(QStringLiteral("select another day")));
    QCOMPARE(BackupTaskData::instance().getBackupTasks(day).size(), 2);
}

void BackupPageTest::exportsFilesOfAllRows()
{
    QList<BackupTaskInfo> tasks{task(1), task(2)};
    for (BackupTaskInfo& info : tasks) {
        BackupTaskInfo::FileInfo entry;
        entry.startTime = QTime(8, 0);
        entry.endTime = QTime(12, 0, 59);
        entry.finished = true;
        entry.filePath = m_world->writeFile(m_world->filePath(QStringLiteral("%1.mp4").arg(info.channelNo)), 300'000);
        info.fileInfos = {entry};
    }
    store(tasks);
    for (const BackupTaskInfo& info : tasks)
        BackupTaskData::instance().updateBackupResults(info.taskId, info.fileInfos);
    QueueWorld::settle();
    const QString target = m_world->filePath(QStringLiteral("export"));
    QDir().mkpath(target);
    int asked = 0;
    VCOMMON::VFileDialog::setAnswerer([&](const VCOMMON::VFileDialog::Request& request) {
        ++asked;
        return request.title == QLatin1String("Select Export Path") ? target : QString();
    });
    pageBt("exportBt")->click();
    auto* field = m_page->findChild<vemo_base::DateSelectLineEdit*>(QStringLiteral("date"));
    emit field->signalDateChanged(day.addDays(1));
    QCOMPARE(field->date(), day);
    QCOMPARE(m_world->alerts.takeFirst(),
             QStringLiteral("Exporting backup files, please check other backup tasks after "
                            "the export is finished"));
    QTRY_COMPARE_WITH_TIMEOUT(m_world->alerts.size(), 1, 20'000);
    QCOMPARE(m_world->alerts.first(),
             QStringLiteral("Export backup files finished, files total count:2, success count:2, failure count:0"));
    QCOMPARE(asked, 1);
    QVERIFY(!m_page->findChild<vemo_base::ProgressButton*>()->isWorking());
    QCOMPARE(QDir(target + QStringLiteral("/2026-01-10")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 2);
    QVERIFY2(QFile::exists(m_world->filePath(QStringLiteral("1.mp4"))), "an original is gone");
}

void BackupPageTest::refusesToExport_data()
{
    QTest::addColumn<bool>("hasFile");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<QString>("words");
    QTest::newRow("no file") << false << qint64(0) << QStringLiteral("No backup files available for export");
    QTest::newRow("too large") << true << qint64(1)
                               << QStringLiteral("The disk space is insufficient, total file size:");
}

void BackupPageTest::refusesToExport()
{
    QFETCH(bool, hasFile);
    QFETCH(QString, words);
    BackupTaskInfo info = task(1);
    store({info});
    if (hasFile) {
        BackupTaskInfo::FileInfo entry;
        entry.startTime = QTime(8, 0);
        entry.endTime = QTime(9, 0);
        entry.finished = true;
        entry.filePath = m_world->filePath(QStringLiteral("large.mp4"));
        QFile file(entry.filePath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        if (!file.resize(qint64(1) << 43)) // sparse: more than the disk has
            QSKIP("this file system has no sparse files of 8 TB");
        BackupTaskData::instance().updateBackupResults(info.taskId, {entry});
        QueueWorld::settle();
    }
    const QString target = m_world->filePath(QStringLiteral("export"));
    QDir().mkpath(target);
    VCOMMON::VFileDialog::setAnswerer([target](const VCOMMON::VFileDialog::Request&) { return target; });
    rowPart<QToolButton>(0, "exportBt")->click();
    QTRY_COMPARE(m_world->alerts.size() + m_world->questions.size(), 1);
    QVERIFY2((m_world->alerts + m_world->questions).first().startsWith(words),
             qPrintable((m_world->alerts + m_world->questions).first()));
    QVERIFY(QDir(target).isEmpty());
}

void BackupPageTest::namesAChannelThatIsGone()
{
    storeMany(1);
    vms_sdk::DevInfo info;
    info.devId = QStringLiteral("dev");
    info.channels.append(vms_sdk::ChannelInfo());
    info.channels[0].channelNo = 1;
    info.channels[0].name = QStringLiteral("Dock");
    emit vms_sdk::ClientSignals::instance().signalDevInfoPush(info); // told later than the task was made
    QCOMPARE(rowPart<QLabel>(0, "channelName")->text(), QStringLiteral("Dock"));
    info.channels[0].name = QStringLiteral("Gate 1");
    emit vms_sdk::ClientSignals::instance().signalDevInfoPush(info);
    QCOMPARE(rowPart<QLabel>(0, "channelName")->text(), QStringLiteral("Gate 1"));
    vemo_data::DevsMgrData::instance().removeDev(QStringLiteral("dev"));
    QCOMPARE(rowPart<QLabel>(0, "channelName")->text(), QStringLiteral("Gate 1(Not Exist)"));
    QVERIFY(!startBt(0)->isEnabled());
    QCOMPARE(startBt(0)->toolTip(), QStringLiteral("channel no longer exists"));
}

QTEST_MAIN(BackupPageTest)
#include "BackupPageTest.moc"
