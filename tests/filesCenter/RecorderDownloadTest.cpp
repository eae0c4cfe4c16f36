#include "../platform/TestWorld.h"
#include "SimulatedRecorder.h"

#include <BaseTools.h>
#include <DevsMgrData.h>
#include <download/DownloadEvents.h>
#include <download/DownloadSignals.h>
#include <download/DownloadWorker.h>
#include <FilesCenterInit.h>
#include <LocalRecordingIndexes.h>
#include <ModuleAccess.h>
#include <SystemMsg.h>
#include <vms_sdk.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>
#include <QUuid>

using namespace vemo_filesCenter;
using vemo_contact::ModuleAccess;
using vemo_data::DevsMgrData;

namespace {

constexpr int waitMs = 120'000;
constexpr double frameSeconds = 0.04;

/// What ffprobe says of a file.
struct Probe
{
    double seconds = 0;
    QStringList codecs;
};

Probe probe(const QString& path)
{
    QProcess ffprobe;
    ffprobe.start(QStringLiteral("ffprobe"),
                  {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-of"), QStringLiteral("json"),
                   QStringLiteral("-show_format"), QStringLiteral("-show_streams"), path});
    if (!ffprobe.waitForFinished(waitMs))
        qFatal("ffprobe does not answer");
    const QJsonObject answer = QJsonDocument::fromJson(ffprobe.readAllStandardOutput()).object();
    Probe result;
    result.seconds = answer[QLatin1String("format")][QLatin1String("duration")].toString().toDouble();
    for (const QJsonValue stream : answer[QLatin1String("streams")].toArray())
        result.codecs.append(stream[QLatin1String("codec_name")].toString());
    return result;
}

/// What ffmpeg has to say while it decodes the file.
QString decodeErrors(const QString& path)
{
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"), {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), path,
                                            QStringLiteral("-f"), QStringLiteral("null"), QStringLiteral("-")});
    if (!ffmpeg.waitForFinished(waitMs))
        qFatal("ffmpeg does not answer");
    return QString::fromUtf8(ffmpeg.readAllStandardError());
}

} // namespace

/// The module against a recorder on the network, nothing replaced in between.
class RecorderDownloadTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_world = std::make_unique<TestWorld>();
        m_recorder = std::make_unique<SimulatedRecorder>(m_dir.path());
        QVERIFY(m_recorder->isReady());
        m_slowRecorder = std::make_unique<SimulatedRecorder>(
            m_dir.path(), QStringList{QStringLiteral("--speed"), QStringLiteral("20")});
        QVERIFY(m_slowRecorder->isReady());
        FilesCenterInit::instance();
        m_devId = addDevice(*m_recorder, SimulatedRecorder::password());
        m_slowDevId = addDevice(*m_slowRecorder, SimulatedRecorder::password());
        QVERIFY(!m_devId.isEmpty() && !m_slowDevId.isEmpty());
        for (const vms_sdk::VideoRecording& recording : findRecordings(m_devId)) {
            const qint64 seconds = recording.begin.secsTo(recording.end);
            if (seconds >= 330 && !m_recording.begin.isValid())
                m_recording = recording;
            if (seconds >= 90 && (!m_shortest.begin.isValid() || seconds < m_shortest.begin.secsTo(m_shortest.end)))
                m_shortest = recording;
        }
        QVERIFY(m_recording.begin.isValid());
    }

    void cleanupTestCase()
    {
        vms_sdk::uninit_sdk();
        m_slowRecorder.reset();
        m_recorder.reset();
        m_world.reset();
    }

    void anImplicitDownloadBecomesAFileThatPlays_data()
    {
        QTest::addColumn<int>("channelNo");
        QTest::newRow("first channel") << 1;
        QTest::newRow("second channel") << 2;
    }

    void anImplicitDownloadBecomesAFileThatPlays()
    {
        QFETCH(int, channelNo);
        QSignalSpy results(&ModuleAccess::instance(),
                           &ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult);
        QSignalSpy trigger(&ModuleAccess::instance(), &ModuleAccess::signalDownloadRecordingTrigger);
        const QString path = m_dir.filePath(QStringLiteral("implicit-%1.mp4").arg(channelNo));
        const QString taskId = QUuid::createUuid().toString();
        const QDateTime begin = m_recording.begin.addSecs(30);
        emit ModuleAccess::instance().signalDownloadRecordingByTimeRangeImplicitly(
            channelId(m_devId, channelNo), 0, taskId, path, begin, begin.addSecs(20));
        QCOMPARE(trigger.size(), 1);
        QVERIFY(results.wait(waitMs));
        QCOMPARE(results.at(0), (QList<QVariant>{taskId, true}));
        checkFile(path, 20);
    }

    void aRefusedLoginIsAnsweredAsFailed()
    {
        const QString devId = addDevice(*m_recorder, QStringLiteral("wrong"));
        QSignalSpy results(&ModuleAccess::instance(),
                           &ModuleAccess::signalDownloadRecordingByTimeRangeImplicitlyResult);
        QSignalSpy events(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent);
        const QString path = m_dir.filePath(QStringLiteral("refused.mp4"));
        const QString taskId = QUuid::createUuid().toString();
        emit ModuleAccess::instance().signalDownloadRecordingByTimeRangeImplicitly(
            channelId(devId, 1), 0, taskId, path, m_recording.begin, m_recording.begin.addSecs(20));
        QVERIFY(results.wait(waitMs));
        QCOMPARE(results.at(0), (QList<QVariant>{taskId, false}));
        QCOMPARE(events.last(), (QList<QVariant>{taskId, int(EventLoginFailed), 0}));
        QVERIFY(!QFile::exists(path));
    }

    void aRecordingIsDownloadedByItsFileName_data()
    {
        QTest::addColumn<int>("restSeconds");
        QTest::newRow("as a whole") << 0;
        QTest::newRow("the rest of it") << 60;
    }

    void aRecordingIsDownloadedByItsFileName()
    {
        QFETCH(int, restSeconds);
        vemo_data::DownloadTaskInfo task = makeTask(m_devId, m_shortest.begin, m_shortest.end);
        task.downloadMode = vemo_data::DownloadByFile;
        task.fileName = m_shortest.fileName;
        task.downloadedMs = restSeconds == 0 ? 0 : task.durationMs - restSeconds * 1000;
        QCOMPARE(runToItsEnd(task), int(EventFinished));
        const double asked = restSeconds == 0 ? task.durationMs / 1000.0 : restSeconds;
        const double seconds = probe(task.savePath).seconds;
        // A rest begins at the key frame at or before the asked time.
        QVERIFY2(seconds > asked - 0.1 && seconds < asked + (restSeconds == 0 ? 0.1 : 4),
                 qPrintable(QStringLiteral("%1 s in the file, %2 asked for").arg(seconds).arg(asked)));
        QVERIFY(QFile::remove(task.savePath));
    }

    void aSpanIsCutOutOfARecordingOfThisComputer()
    {
        const QDateTime begin = m_recording.begin.addSecs(60);
        const vemo_data::DownloadTaskInfo source = makeTask(m_devId, begin, begin.addSecs(60));
        QCOMPARE(runToItsEnd(source), int(EventFinished));
        VCOMMON::LocalRecordingIndexInfo index;
        index.devId = m_devId;
        index.channelNo = 1;
        index.channelId = source.channelId;
        index.beginTime = source.beginTime;
        index.endTime = source.endTime;
        index.filePath = source.savePath;
        VCOMMON::LocalRecordingIndexes::instance().addLocalRecordingIndex(index);

        vemo_data::DownloadTaskInfo cut = makeTask(m_devId, begin.addSecs(20), begin.addSecs(40));
        cut.location = vemo_data::LocationThisComputer;
        QCOMPARE(runToItsEnd(cut), int(EventFinished));
        QVERIFY2(decodeErrors(cut.savePath).isEmpty(), qPrintable(decodeErrors(cut.savePath)));
        const double seconds = probe(cut.savePath).seconds;
        // From the key frame at or before the begin.
        QVERIFY2(seconds > 19.9 && seconds < 24, qPrintable(QString::number(seconds)));
    }

    void aPausedDownloadStandsStillAndGoesOn()
    {
        const vemo_data::DownloadTaskInfo task =
            makeTask(m_slowDevId, m_recording.begin.addSecs(30), m_recording.begin.addSecs(90));
        DownloadWorker& worker = DownloadWorker::instance();
        QSignalSpy events(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent);
        worker.startDownloadTask(task);
        QVERIFY(waitForProgress(events));
        worker.controlTask(task.taskId, DownloadWorker::ControlPause);
        QVERIFY(worker.isTaskPaused(task.taskId));
        QTest::qWait(500); // what was under way arrives
        events.clear();
        QTest::qWait(1500);
        for (const QList<QVariant>& event : qAsConst(events))
            QVERIFY2(event.at(1).toInt() != EventFinished, "a paused download finished");
        worker.controlTask(task.taskId, DownloadWorker::ControlResume);
        QVERIFY(!worker.isTaskPaused(task.taskId));
        QTRY_VERIFY_WITH_TIMEOUT(!events.isEmpty() && events.last().at(1).toInt() != EventProgress &&
                                     events.last().at(1).toInt() != EventUnderWay,
                                 waitMs);
        QCOMPARE(events.last().at(1).toInt(), int(EventFinished));
        checkFile(task.savePath, 60);
    }

    void aStoppedDownloadTellsItsLastFrameAndKeepsWhatItHas()
    {
        const vemo_data::DownloadTaskInfo task =
            makeTask(m_slowDevId, m_recording.begin.addSecs(30), m_recording.begin.addSecs(300));
        DownloadWorker& worker = DownloadWorker::instance();
        QSignalSpy events(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent);
        QSignalSpy rate(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadBitRate);
        worker.startDownloadTask(task);
        QVERIFY(waitForProgress(events));
        QTRY_VERIFY_WITH_TIMEOUT(!rate.isEmpty() && rate.last().at(0).toLongLong() > 0, waitMs);
        const QDateTime last = worker.lastFrameTime(task.taskId);
        QVERIFY2(last > task.beginTime && last < task.endTime, qPrintable(last.toString()));
        events.clear();
        const double seconds = probe(task.savePath).seconds;
        const double told = static_cast<double>(task.beginTime.msecsTo(last)) / 1000;
        QVERIFY2(qAbs(seconds - told) < 1.1,
                 qPrintable(QStringLiteral("%1 s in the file, %2 told").arg(seconds).arg(told)));
        QVERIFY2(decodeErrors(task.savePath).isEmpty(), qPrintable(decodeErrors(task.savePath)));
        QTest::qWait(300);
        QVERIFY(events.isEmpty());
    }

    void aCancelledDownloadLeavesNoFile()
    {
        const vemo_data::DownloadTaskInfo task =
            makeTask(m_slowDevId, m_recording.begin.addSecs(30), m_recording.begin.addSecs(300));
        QSignalSpy events(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent);
        DownloadWorker::instance().startDownloadTask(task);
        QVERIFY(waitForProgress(events));
        DownloadWorker::instance().controlTask(task.taskId, DownloadWorker::ControlCancel);
        QTRY_VERIFY(!QFile::exists(task.savePath));
    }

private:
    static QString channelId(const QString& devId, int channelNo)
    {
        return vemo_base::BaseTools::instance().formatChannelId(devId, channelNo);
    }

    /// Logs in and waits for the answer, whatever it is.
    static QString addDevice(const SimulatedRecorder& recorder, const QString& password)
    {
        vemo_data::DevRecord record;
        record.name = QStringLiteral("Simulated");
        record.address = recorder.address();
        record.user = SimulatedRecorder::user();
        DevsMgrData& devs = DevsMgrData::instance();
        const QString devId = devs.addSessionDev(record);
        QSignalSpy answers(&vms_sdk::ClientSignals::instance(), &vms_sdk::ClientSignals::signalDevLoginRes);
        devs.login(devId, password);
        return answers.wait(waitMs) ? devId : QString();
    }

    static QList<vms_sdk::VideoRecording> findRecordings(const QString& devId)
    {
        vms_sdk::RecsSearchCondition condition;
        condition.requestId = QUuid::createUuid().toString();
        condition.devId = devId;
        condition.channelNo = 1;
        condition.begin = QDateTime(QDate(2026, 1, 10), QTime(0, 0));
        condition.end = condition.begin.addDays(1);
        using vms_sdk::ClientSignals;
        QSignalSpy answers(&ClientSignals::instance(), &ClientSignals::signalSearchVideoRecordingsRes);
        vms_sdk::search_video_recordings_req(condition);
        if (!answers.wait(waitMs))
            return {};
        return answers.at(0).at(2).value<QList<vms_sdk::VideoRecording>>();
    }

    vemo_data::DownloadTaskInfo makeTask(const QString& devId, const QDateTime& begin, const QDateTime& end)
    {
        vemo_data::DownloadTaskInfo task;
        task.taskId = QUuid::createUuid().toString();
        task.channelId = channelId(devId, 1);
        task.beginTime = begin;
        task.endTime = end;
        task.durationMs = vemo_data::spanMs(begin, end);
        task.downloadMode = vemo_data::DownloadByTimeRange;
        task.savePath = m_dir.filePath(QStringLiteral("task-%1.mp4").arg(++m_files));
        return task;
    }

    /// The code of the event that ended it, -1 when none did in time.
    static int runToItsEnd(const vemo_data::DownloadTaskInfo& task)
    {
        int code = -1;
        QEventLoop loop;
        QTimer::singleShot(waitMs, &loop, &QEventLoop::quit);
        connect(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent, &loop,
                [&](const QString& taskId, int eventId, int) {
                    if (taskId != task.taskId || eventId == EventProgress || eventId == EventUnderWay)
                        return;
                    code = eventId;
                    loop.quit();
                });
        DownloadWorker::instance().startDownloadTask(task);
        if (code < 0)
            loop.exec();
        return code;
    }

    static bool waitForProgress(const QSignalSpy& events)
    {
        return QTest::qWaitFor(
            [&events] {
                return std::any_of(events.cbegin(), events.cend(), [](const QList<QVariant>& event) {
                    return event.at(1).toInt() == EventProgress && event.at(2).toInt() > 0;
                });
            },
            waitMs);
    }

    static void checkFile(const QString& path, double seconds)
    {
        const Probe found = probe(path);
        QVERIFY2(qAbs(found.seconds - seconds) <= frameSeconds + 0.001,
                 qPrintable(QStringLiteral("%1 s in the file, %2 asked for").arg(found.seconds).arg(seconds)));
        QVERIFY2(found.codecs.contains(QStringLiteral("h264")) || found.codecs.contains(QStringLiteral("hevc")),
                 qPrintable(found.codecs.join(QLatin1Char(' '))));
        const QString errors = decodeErrors(path);
        QVERIFY2(errors.isEmpty(), qPrintable(errors));
    }

    QTemporaryDir m_dir;
    std::unique_ptr<TestWorld> m_world;
    std::unique_ptr<SimulatedRecorder> m_recorder;
    std::unique_ptr<SimulatedRecorder> m_slowRecorder;
    QString m_devId;
    QString m_slowDevId;
    vms_sdk::VideoRecording m_recording; ///< long enough for every span that is asked for
    vms_sdk::VideoRecording m_shortest;
    int m_files = 0;
};

QTEST_MAIN(RecorderDownloadTest)
#include "RecorderDownloadTest.moc"
