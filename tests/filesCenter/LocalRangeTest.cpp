#include "../platform/TestWorld.h"

#include <BaseTools.h>
#include <DevsMgrData.h>
#include <download/DownloadEvents.h>
#include <download/DownloadSignals.h>
#include <download/DownloadWorker.h>
#include <LocalIndexRescan.h>

#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>
#include <QUuid>

#include <memory>

using namespace vemo_filesCenter;

namespace {

constexpr int waitMs = 60'000;
constexpr int framesPerSecond = 10;

QString run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(waitMs) || process.exitCode() != 0)
        qFatal("%s failed: %s", qPrintable(program), process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QDateTime at(int second)
{
    return QDateTime(QDate(2026, 1, 10), QTime(8, 0)).addSecs(second);
}

} // namespace

/// A span of a channel is cut out of the files that lie on this computer, which the index found by itself.
class LocalRangeTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_world = std::make_unique<TestWorld>();
        vemo_data::DevRecord device;
        device.name = QStringLiteral("NVR");
        device.address = QUrl(QStringLiteral("http://127.0.0.1:9"));
        m_devId = vemo_data::DevsMgrData::instance().addSessionDev(device);
        makeFile(1, 0, 20);
        makeFile(1, 30, 50); // behind a gap of 10 s
        makeFile(2, 0, 60);
        QSignalSpy finished(&VCOMMON::LocalIndexRescan::instance(), &VCOMMON::LocalIndexRescan::signalFinished);
        VCOMMON::LocalIndexRescan::instance().start({m_world->path(QStringLiteral("files"))});
        QVERIFY(finished.wait(waitMs));
    }
    void cleanupTestCase() { m_world.reset(); }

    void cutsTheSpanOutOfTheChannelsFiles_data()
    {
        QTest::addColumn<int>("begin");
        QTest::addColumn<int>("end");
        QTest::addColumn<int>("seconds"); // as long as the file plays
        QTest::addColumn<int>("footage");
        QTest::newRow("within one file") << 5 << 15 << 10 << 10;
        QTest::newRow("over two files and the gap between") << 10 << 40 << 30 << 20;
    }

    void cutsTheSpanOutOfTheChannelsFiles()
    {
        QFETCH(int, begin);
        QFETCH(int, end);
        QFETCH(int, seconds);
        QFETCH(int, footage);
        vemo_data::DownloadTaskInfo task;
        task.taskId = QUuid::createUuid().toString();
        task.channelId = vemo_base::BaseTools::instance().formatChannelId(m_devId, 1);
        task.beginTime = at(begin);
        task.endTime = at(end);
        task.downloadMode = vemo_data::DownloadByTimeRange;
        task.location = vemo_data::LocationThisComputer;
        task.savePath = m_world->path(QStringLiteral("cut-%1.mp4").arg(begin));

        QSignalSpy events(&DownloadSignals::instance(), &DownloadSignals::signalDownloadEvent);
        DownloadWorker::instance().startDownloadTask(task);
        QTRY_VERIFY_WITH_TIMEOUT(!events.isEmpty() && events.last().at(1).toInt() != EventProgress &&
                                     events.last().at(1).toInt() != EventUnderWay,
                                 waitMs);
        QCOMPARE(events.last().at(1).toInt(), int(EventFinished));
        const QStringList told =
            run(QStringLiteral("ffprobe"),
                {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-count_packets"),
                 QStringLiteral("-show_entries"), QStringLiteral("stream=width,nb_read_packets:format=duration"),
                 QStringLiteral("-of"), QStringLiteral("csv=p=0"), task.savePath})
                .split(QRegularExpression(QStringLiteral("[,\\s]+")));
        QCOMPARE(told.size(), 3);
        QCOMPARE(told.at(0), QStringLiteral("64")); // of this channel
        // From the key frame at or before the begin, which is a second before at most.
        const int frames = told.at(1).toInt() - footage * framesPerSecond;
        QVERIFY2(frames >= 0 && frames <= 2 * framesPerSecond, qPrintable(told.join(QLatin1Char(' '))));
        const double more = told.at(2).toDouble() - seconds;
        QVERIFY2(more > -0.2 && more < 1.2, qPrintable(told.join(QLatin1Char(' '))));
    }

private:
    /// Channel 2 has larger pictures.
    void makeFile(int channelNo, int begin, int end)
    {
        const QString folder = m_world->path(QStringLiteral("files"));
        QDir().mkpath(folder);
        const QString form = QStringLiteral("yyyyMMddhhmmss");
        const QString name = QStringLiteral("Channel@NVR_%1@%2~%3@Device.mp4")
                                 .arg(channelNo)
                                 .arg(at(begin).toString(form), at(end).toString(form));
        run(QStringLiteral("ffmpeg"),
            {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
             QStringLiteral("-i"),
             QStringLiteral("testsrc=size=%1x48:rate=%2:duration=%3")
                 .arg(64 * channelNo)
                 .arg(framesPerSecond)
                 .arg(end - begin),
             QStringLiteral("-c:v"), QStringLiteral("libx264"), QStringLiteral("-g"), QString::number(framesPerSecond),
             QStringLiteral("-bf"), QStringLiteral("0"), folder + QLatin1Char('/') + name});
    }

    std::unique_ptr<TestWorld> m_world;
    QString m_devId;
};

QTEST_MAIN(LocalRangeTest)
#include "LocalRangeTest.moc"
