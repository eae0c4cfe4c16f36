#include "../platform/TestWorld.h"
#include "FakeSdks.h"

#include <ClientSignals.h>
#include <download/DownloadEvents.h>
#include <download/DownloadSignals.h>
#include <download/DownloadWorker.h>
#include <LocalRecordingIndexes.h>
#include <ModuleAccess.h>
#include <SystemMsg.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;

namespace {

QStringList debugLines;

void noteDebugLine(QtMsgType type, const QMessageLogContext&, const QString& line)
{
    if (type == QtDebugMsg)
        debugLines.append(line);
}

DownloadTaskInfo makeTask(int mode, int location)
{
    DownloadTaskInfo task;
    task.taskId = QStringLiteral("{t}");
    task.channelId = QStringLiteral("dev|2");
    task.beginTime = QDateTime(QDate(2026, 1, 10), QTime(8, 0));
    task.endTime = QDateTime(QDate(2026, 1, 10), QTime(8, 31));
    task.downloadMode = mode;
    task.location = location;
    task.fileName = QStringLiteral("rec-1");
    task.savePath = QStringLiteral("/v/ü.mp4");
    task.downloadedMs = 4000;
    return task;
}

constexpr int byFile = vemo_data::DownloadByFile;
constexpr int byTime = vemo_data::DownloadByTimeRange;

} // namespace

class DownloadWorkerTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_world = std::make_unique<TestWorld>();
        m_worker = &DownloadWorker::instance();
        QVERIFY2(QDir::isAbsolutePath(m_sdks.tempDir) && QDir(m_sdks.tempDir).exists(), qPrintable(m_sdks.tempDir));
    }

    void init()
    {
        m_sdks.reset();
        m_stream = m_sdks.nextStreamId;
        m_events = std::make_unique<QSignalSpy>(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent);
        m_toggles =
            std::make_unique<QSignalSpy>(&DownloadSignals::instance(), &DownloadSignals::signalDownloadFileToggle);
    }

    void cleanup()
    {
        m_worker->controlTask(QStringLiteral("{t}"), DownloadWorker::ControlCancel);
        m_sdks.takeCalls();
    }

    void cleanupTestCase() { m_world.reset(); }

    void startsTheLibraryFirstAndThenTheStream_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("location");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("by file") << byFile << 0
                                 << QStringList{
                                        QStringLiteral("file vavFrame 4000 /v/ü.mp4 {t}"),
                                        QStringLiteral("playback_by_file dev 2 rec-1 location=0 from=4000 flag=1")};
        QTest::newRow("by time range")
            << byTime << 2
            << QStringList{QStringLiteral("time_range vavFrame 20260110080000 20260110083100 /v/ü.mp4 {t}"),
                           QStringLiteral("playback_by_time dev 2 20260110080000 20260110083100 location=2 flag=1")};
    }

    void startsTheLibraryFirstAndThenTheStream()
    {
        QFETCH(int, mode);
        QFETCH(int, location);
        QFETCH(QStringList, calls);
        QSignalSpy trigger(&vemo_contact::ModuleAccess::instance(),
                           &vemo_contact::ModuleAccess::signalDownloadRecordingTrigger);
        const DownloadTaskInfo task = makeTask(mode, location);
        m_worker->startDownloadTask(task);
        QCOMPARE(m_sdks.takeCalls(), calls);
        QCOMPARE(trigger.size(), 1);
        QCOMPARE(trigger.at(0), (QList<QVariant>{QStringLiteral("dev"), 2, task.beginTime, task.endTime, location}));
        QVERIFY(!m_worker->isCopyTask(task.taskId));
        m_worker->startDownloadTask(task); // it runs already
        QCOMPARE(m_sdks.takeCalls(), QStringList());
    }

    void tellsOfARefusedStartAndOpensNoStream_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("location");
        QTest::addColumn<int>("result");
        QTest::addColumn<int>("event");
        QTest::newRow("by file, disk low") << byFile << 0 << int(VAWS_REFUSED) << 10;
        QTest::newRow("by time, disk low") << byTime << 0 << int(VAWS_REFUSED) << 10;
        QTest::newRow("local by time, disk low") << byTime << 4 << int(VAWS_REFUSED) << 10;
        QTest::newRow("by time, bad argument") << byTime << 0 << int(VAWS_BAD_ARGUMENT) << 7;
    }

    void tellsOfARefusedStartAndOpensNoStream()
    {
        QFETCH(int, mode);
        QFETCH(int, location);
        QFETCH(int, result);
        QFETCH(int, event);
        QSignalSpy trigger(&vemo_contact::ModuleAccess::instance(),
                           &vemo_contact::ModuleAccess::signalDownloadRecordingTrigger);
        m_sdks.startResult = result;
        m_worker->startDownloadTask(makeTask(mode, location));
        QCOMPARE(*m_events, (QList<QList<QVariant>>{{QStringLiteral("{t}"), event, 0}}));
        QCOMPARE(m_sdks.takeCalls().size(), 1);
        QCOMPARE(trigger.size(), 1);
    }

    void cutsLocalFilesByAListOfThem_data()
    {
        QTest::addColumn<bool>("recorded");
        QTest::addColumn<QString>("json");
        const QString span = QStringLiteral(R"({"begin_time":"20260110080000","end_time":"20260110083100",)"
                                            R"("play_time":"20260110080000")");
        QTest::newRow("nothing recorded") << false << QString(span + QLatin1Char('}'));
        QTest::newRow("one file") << true
                                  << QString(span + QStringLiteral(R"(,"records":[{"begin_time":"20260110080500",)"
                                                                   R"("end_time":"20260110081500",)"
                                                                   R"("file_path":"/r/ä.mp4"}]})"));
    }

    void cutsLocalFilesByAListOfThem()
    {
        QFETCH(bool, recorded);
        QFETCH(QString, json);
        if (recorded) {
            VCOMMON::LocalRecordingIndexInfo record;
            record.devId = QStringLiteral("dev");
            record.channelNo = 2;
            record.beginTime = QDateTime(QDate(2026, 1, 10), QTime(8, 5));
            record.endTime = QDateTime(QDate(2026, 1, 10), QTime(8, 15));
            record.filePath = QStringLiteral("/r/ä.mp4");
            VCOMMON::LocalRecordingIndexes::instance().addLocalRecordingIndex(record);
        }
        m_worker->startDownloadTask(makeTask(byTime, vemo_data::LocationThisComputer));
        const QStringList calls = m_sdks.takeCalls();
        QCOMPARE(calls.size(), 1);
        const QJsonDocument sent = QJsonDocument::fromJson(calls.at(0).section(QLatin1Char(' '), 1, -5).toUtf8());
        QCOMPARE(sent, QJsonDocument::fromJson(json.toUtf8()));
        QCOMPARE(calls.at(0).section(QLatin1Char(' '), -4),
                 QStringLiteral("20260110080000 20260110083100 /v/ü.mp4 {t}"));
    }

    void aTaskCancelledWhileTheIndexIsReadDoesNotStart()
    {
        QTimer::singleShot(0, m_worker, [this] { m_worker->controlTask(QStringLiteral("{t}"), 2); });
        m_worker->startDownloadTask(makeTask(byTime, vemo_data::LocationThisComputer));
        QCOMPARE(m_sdks.takeCalls(), QStringList{QStringLiteral("cancel {t}")});
    }

    void handsFramesToTheTaskOfTheirStream()
    {
        start();
        emit client().signalStreamData(m_stream, QByteArrayLiteral("frames"));
        emit client().signalStreamData(m_stream + 100, QByteArrayLiteral("unknown"));
        QCOMPARE(m_sdks.takeCalls(), QStringList{QStringLiteral("push {t} frames")});
    }

    void translatesStreamEventsAndLetsEndedStreamsGo_data()
    {
        QTest::addColumn<int>("event");
        QTest::addColumn<int>("playerEvent");
        QTest::addColumn<bool>("isOver");
        const auto row = [](const char* tag, int event, int playerEvent, bool isOver) {
            QTest::newRow(tag) << event << playerEvent << isOver;
        };
        row("connecting", 1, 1, false);
        row("connect failed", 2, 2, true);
        row("playing", 3, 3, false);
        row("end of recording", 4, 6, true);
        row("no replay address", 5, 2, true);
        row("login refused", 6, 4, true);
        row("limit reached", 7, 5, true);
        row("broken", 8, 7, true);
        row("end by device", 9, 6, true);
        row("unknown", 77, 2, true);
    }

    void translatesStreamEventsAndLetsEndedStreamsGo()
    {
        QFETCH(int, event);
        QFETCH(int, playerEvent);
        QFETCH(bool, isOver);
        start();
        debugLines.clear();
        const QtMessageHandler before = qInstallMessageHandler(noteDebugLine);
        emit client().signalStreamEventPush(m_stream, static_cast<vms_sdk::StreamEvent>(event));
        qInstallMessageHandler(before);

        QStringList expected;
        if (isOver)
            expected << QStringLiteral("disconnect %1").arg(m_stream);
        if (event == vms_sdk::StreamPlaying)
            expected << QStringLiteral("speed %1 100X").arg(m_stream);
        expected << QStringLiteral("player_event {t} %1").arg(playerEvent);
        QCOMPARE(m_sdks.takeCalls(), expected);

        const QString date = QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d.*");
        QCOMPARE(debugLines.size(), 2);
        const QRegularExpression first(
            date + QStringLiteral(" slot stream event push, stream id:%1 stream event:%2$").arg(m_stream).arg(event));
        QVERIFY2(first.match(debugLines.at(0)).hasMatch(), qPrintable(debugLines.at(0)));
        const QRegularExpression second(
            date + QStringLiteral("vaws_download_push_player_event:\\{t\\} player event:%1$").arg(playerEvent));
        QVERIFY2(second.match(debugLines.at(1)).hasMatch(), qPrintable(debugLines.at(1)));

        // The stream is in the maps exactly while it is not over.
        emit client().signalStreamData(m_stream, QByteArrayLiteral("x"));
        m_worker->controlTask(QStringLiteral("{t}"), DownloadWorker::ControlPause);
        QStringList after;
        if (!isOver)
            after << QStringLiteral("push {t} x") << QStringLiteral("playback_ctrl %1 1").arg(m_stream);
        after << QStringLiteral("pause {t}");
        QCOMPARE(m_sdks.takeCalls(), after);
    }

    void translatesLibraryEvents_data()
    {
        QTest::addColumn<int>("event");
        QTest::addColumn<int>("code");
        QTest::addColumn<bool>("endsStream");
        const QList<QPair<int, int>> codes{{1, 3},  {2, 3},  {3, 2},   {4, 1},  {5, 4},  {6, 3},  {7, 3},
                                           {8, 7},  {9, 7},  {10, 7},  {11, 5}, {12, 0}, {13, 0}, {14, 7},
                                           {15, 0}, {16, 6}, {17, 10}, {0, 0},  {-1, 0}, {99, 0}};
        const QSet<int> ending{3, 4, 5, 8, 9, 10, 14, 16};
        for (const auto& row : codes)
            QTest::newRow(qPrintable(QString::number(row.first)))
                << row.first << row.second << ending.contains(row.first);
    }

    void translatesLibraryEvents()
    {
        QFETCH(int, event);
        QFETCH(int, code);
        QFETCH(bool, endsStream);
        start();
        debugLines.clear();
        const QtMessageHandler before = qInstallMessageHandler(noteDebugLine);
        m_sdks.libraryEvent("{t}", event, 42);
        qInstallMessageHandler(before);
        QCOMPARE(m_events->size(), 0); // only queued by the callback
        QCOMPARE(m_sdks.takeCalls(), QStringList());
        QTRY_COMPARE(m_events->size(), 1);
        QCOMPARE(m_events->at(0), (QList<QVariant>{QStringLiteral("{t}"), code, 42}));
        QCOMPARE(m_sdks.takeCalls(),
                 endsStream ? QStringList{QStringLiteral("disconnect %1").arg(m_stream)} : QStringList());
        QCOMPARE(debugLines.size(), event == VAWS_EVENT_PROGRESS ? 0 : 1);
        if (!debugLines.isEmpty())
            QVERIFY2(debugLines.at(0).endsWith(
                         QStringLiteral(" download event callback, task id:{t} event type:%1").arg(event)),
                     qPrintable(debugLines.at(0)));
    }

    void tellsNothingMoreOfATaskThatWasEnded_data()
    {
        QTest::addColumn<int>("how");
        QTest::newRow("cancelled") << 0;
        QTest::newRow("stopped for its length") << 1;
        QTest::newRow("stopped for its last frame") << 2;
        QTest::newRow("ended and started anew") << 3;
    }

    void tellsNothingMoreOfATaskThatWasEnded()
    {
        QFETCH(int, how);
        start();
        m_sdks.libraryEvent("{t}", VAWS_EVENT_BROKEN);
        m_sdks.fileToggle("{t}", "/v/a.mp4", 1, "20260110080000");
        const QString taskId = QStringLiteral("{t}");
        if (how == 0 || how == 3)
            m_worker->controlTask(taskId, DownloadWorker::ControlCancel);
        else if (how == 1)
            m_worker->downloadedMsecs(taskId);
        else
            m_worker->lastFrameTime(taskId);
        if (how == 3)
            m_worker->startDownloadTask(makeTask(byTime, 0)); // the old run's events are not the new one's
        QTest::qWait(20);
        QCOMPARE(m_events->size(), 0);
        QCOMPARE(m_toggles->size(), 0);
        m_sdks.takeCalls();
        m_sdks.consumed("{t}", 5);
        QCOMPARE(m_sdks.takeCalls().size(), how == 3 ? 1 : 0);
    }

    void controlsStreamAndLibrary_data()
    {
        QTest::addColumn<int>("op");
        QTest::addColumn<QStringList>("withStream");
        QTest::addColumn<QStringList>("without");
        QTest::newRow("resume") << 0
                                << QStringList{QStringLiteral("playback_ctrl # 0"), QStringLiteral("speed # 100X"),
                                               QStringLiteral("resume {t}")}
                                << QStringList{QStringLiteral("resume {t}")};
        QTest::newRow("pause") << 1 << QStringList{QStringLiteral("playback_ctrl # 1"), QStringLiteral("pause {t}")}
                               << QStringList{QStringLiteral("pause {t}")};
        QTest::newRow("cancel") << 2 << QStringList{QStringLiteral("disconnect #"), QStringLiteral("cancel {t}")}
                                << QStringList{QStringLiteral("cancel {t}")};
        QTest::newRow("any other") << 3 << QStringList() << QStringList();
    }

    void controlsStreamAndLibrary()
    {
        QFETCH(int, op);
        QFETCH(QStringList, withStream);
        QFETCH(QStringList, without);
        start();
        m_worker->controlTask(QStringLiteral("{t}"), op);
        withStream.replaceInStrings(QStringLiteral("#"), QString::number(m_stream));
        QCOMPARE(m_sdks.takeCalls(), withStream);
        emit client().signalStreamEventPush(m_stream, vms_sdk::StreamEndOfRecording);
        m_sdks.takeCalls();
        m_worker->controlTask(QStringLiteral("{t}"), op);
        QCOMPARE(m_sdks.takeCalls(), without);
    }

    void readsBackHowFarAStoppedTaskGot_data()
    {
        QTest::addColumn<qint64>("count");
        QTest::addColumn<QByteArray>("time");
        QTest::addColumn<int>("milliseconds");
        QTest::addColumn<QDateTime>("lastFrame");
        QTest::newRow("some") << qint64(61000) << QByteArray("20260110080101") << 61000
                              << QDateTime(QDate(2026, 1, 10), QTime(8, 1, 1));
        QTest::newRow("none") << qint64(0) << QByteArray() << 0 << QDateTime();
        QTest::newRow("negative") << qint64(-1) << QByteArray("rubbish") << 0 << QDateTime();
        QTest::newRow("a full buffer without its end") << qint64(1) << QByteArray(24, '9') << 1 << QDateTime();
    }

    void readsBackHowFarAStoppedTaskGot()
    {
        QFETCH(qint64, count);
        QFETCH(QByteArray, time);
        QFETCH(int, milliseconds);
        QFETCH(QDateTime, lastFrame);
        start();
        m_sdks.stopCount = count;
        m_sdks.stopTime = time;
        QCOMPARE(m_worker->downloadedMsecs(QStringLiteral("{t}")), milliseconds);
        QCOMPARE(m_sdks.takeCalls(),
                 (QStringList{QStringLiteral("disconnect %1").arg(m_stream), QStringLiteral("stop {t}")}));
        const QDateTime told = m_worker->lastFrameTime(QStringLiteral("{t}"));
        QCOMPARE(told.isValid(), lastFrame.isValid());
        if (lastFrame.isValid())
            QCOMPARE(told, lastFrame);
        QCOMPARE(m_sdks.takeCalls(), QStringList{QStringLiteral("stop {t}")});
    }

    void tellsOfAFileToggle()
    {
        start();
        m_sdks.fileToggle("{t}", "/v/tür.mp4", 90500, "20260110080130");
        QTRY_COMPARE(m_toggles->size(), 1);
        QCOMPARE(m_toggles->at(0), (QList<QVariant>{QStringLiteral("{t}"), QStringLiteral("/v/tür.mp4"), 90500,
                                                    QDateTime(QDate(2026, 1, 10), QTime(8, 1, 30))}));
    }

    void passesBitRateAndConsumedBytesOn()
    {
        start();
        QSignalSpy rate(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadBitRate);
        m_sdks.bitRate(51200);
        QTRY_COMPARE(rate.size(), 1);
        QCOMPARE(rate.at(0).at(0).toLongLong(), 51200);
        m_sdks.consumed("{t}", 65536);
        m_sdks.consumed("{other}", 65536);
        QCOMPARE(m_sdks.takeCalls(), QStringList{QStringLiteral("consumed %1 65536").arg(m_stream)});
    }

    void copiesARecordingOfThisComputerWithoutTheLibrary()
    {
        const DownloadTaskInfo task = makeCopyTask(5'000'000);
        m_worker->startDownloadTask(task);
        QVERIFY(m_worker->isCopyTask(task.taskId));
        m_worker->controlTask(task.taskId, DownloadWorker::ControlPause);
        QVERIFY(m_worker->isTaskPaused(task.taskId));
        m_worker->controlTask(task.taskId, DownloadWorker::ControlResume);
        QVERIFY(!m_worker->isTaskPaused(task.taskId));
        QTRY_COMPARE(m_events->isEmpty() ? 0 : m_events->last().at(1).toInt(), int(EventFinished));
        QCOMPARE(m_events->last(), (QList<QVariant>{task.taskId, 6, 100}));
        QCOMPARE(m_events->at(m_events->size() - 2), (QList<QVariant>{task.taskId, 5, 100}));
        QVERIFY(!m_worker->isCopyTask(task.taskId));
        QCOMPARE(QFile(task.savePath).size(), 5'000'000);
        QCOMPARE(m_sdks.takeCalls(), QStringList());
    }

    void tellsOfAFailedCopy()
    {
        DownloadTaskInfo task = makeCopyTask(10);
        task.fileName = m_world->path(QStringLiteral("missing"));
        m_worker->startDownloadTask(task);
        QTRY_COMPARE(m_events->size(), 1);
        QCOMPARE(m_events->at(0), (QList<QVariant>{task.taskId, 7, -1}));
        QVERIFY(!m_worker->isCopyTask(task.taskId));
    }

    void aCancelledCopyTellsNothingAndLeavesNoFile()
    {
        const DownloadTaskInfo task = makeCopyTask(40'000'000);
        m_worker->startDownloadTask(task);
        m_worker->controlTask(task.taskId, DownloadWorker::ControlPause);
        QTest::qWait(50);
        m_events->clear();
        m_worker->controlTask(task.taskId, DownloadWorker::ControlCancel);
        QVERIFY(!m_worker->isCopyTask(task.taskId));
        QTRY_VERIFY(m_worker->children().isEmpty());
        QCOMPARE(m_events->size(), 0);
        QVERIFY(!QFile::exists(task.savePath));
    }

    void knowsALibraryTaskThatIsPaused()
    {
        start();
        QVERIFY(!m_worker->isTaskPaused(QStringLiteral("{t}")));
        m_sdks.status = VAWS_STATUS_PAUSED;
        QVERIFY(m_worker->isTaskPaused(QStringLiteral("{t}")));
    }

private:
    static vms_sdk::ClientSignals& client() { return vms_sdk::ClientSignals::instance(); }

    void start()
    {
        m_worker->startDownloadTask(makeTask(byTime, 0));
        m_sdks.takeCalls();
    }

    DownloadTaskInfo makeCopyTask(int bytes)
    {
        DownloadTaskInfo task = makeTask(byFile, vemo_data::LocationThisComputer);
        task.fileName = m_world->path(QStringLiteral("source.mp4"));
        task.savePath = m_world->path(QStringLiteral("copy-%1.mp4").arg(bytes));
        QFile source(task.fileName);
        if (!source.open(QIODevice::WriteOnly) || source.write(QByteArray(bytes, 'v')) != bytes)
            qFatal("no source to copy");
        return task;
    }

    FakeSdks& m_sdks = FakeSdks::instance();
    std::unique_ptr<TestWorld> m_world;
    DownloadWorker* m_worker = nullptr;
    quint64 m_stream = 0;
    std::unique_ptr<QSignalSpy> m_events;
    std::unique_ptr<QSignalSpy> m_toggles;
};

QTEST_GUILESS_MAIN(DownloadWorkerTest)
#include "DownloadWorkerTest.moc"
