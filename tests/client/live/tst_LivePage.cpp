#include "devices/RecorderLogins.h"
#include "live/LivePage.h"
#include "live/LiveStage.h"
#include "video/VideoTileWt.h"
#include "video/VideoWallWt.h"

#include <Database.h>
#include <DevsMgrData.h>
#include <LocalRecordingIndexes.h>
#include <LocalSnapImageIndexes.h>
#include <Notices.h>
#include <RecordingFile.h>
#include <SysPaths.h>
#include <SystemConfig.h>
#include <vaws_download.h>
#include <vms_sdk.h>

#include <QDir>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include "SimulatedRecorder.h"

#include <csignal>
#include <memory>

using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;
using vemo_client::ChannelRef;
using vemo_client::LivePage;
using vemo_client::LiveStage;
using vemo_client::RecorderLogins;

namespace {

constexpr int patienceMs = 30'000;

QString recordings()
{
    return vemo_worker::SystemConfig::instance().getLocalRecordingPath();
}

QStringList files(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files);
}

/// What ffprobe says of the first video stream.
QJsonObject probe(const QString& path)
{
    QProcess ffprobe;
    ffprobe.start(QStringLiteral("ffprobe"),
                  {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_streams"),
                   QStringLiteral("-show_format"), QStringLiteral("-count_packets"), QStringLiteral("-of"),
                   QStringLiteral("json"), path});
    ffprobe.waitForFinished(patienceMs);
    return QJsonDocument::fromJson(ffprobe.readAllStandardOutput()).object();
}

QString decodeErrors(const QString& path)
{
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"),
                 {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), path, QStringLiteral("-map"),
                  QStringLiteral("0:v"), QStringLiteral("-f"), QStringLiteral("null"), QStringLiteral("-")});
    ffmpeg.waitForFinished(patienceMs);
    return QString::fromUtf8(ffmpeg.readAllStandardError());
}

} // namespace

/// The page as a person uses it, against a recorder on the network. With VEMO_LIVE_CHILD in the environment it is the
/// program that records until it is killed.
class tst_LivePage : public QObject
{
    Q_OBJECT

public:
    explicit tst_LivePage(const QString& root)
        : m_root(root)
    {}

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void recordsFromTheFirstPictureOn();
    void savesTheWholePictureAsASnapshot();
    void comesBackWhenTheRecorderDoes();
    void waitsForAnotherLoginAfterARefusal();
    void leavesAPlayableFileWhenItIsKilled();
    void finishesRecordingsWhenTheClientEnds();

public:
    void addRecorder(const QUrl& address, const QString& password);
    LiveStage* stage() const { return m_page->stage(); }
    bool showsPicture(int tile) const { return stage()->hasPicture(tile) && text(tile).isEmpty(); }
    QString text(int tile) const { return stage()->wall()->tile(tile)->stateText(); }
    QList<LocalRecordingIndexInfo> indexed() const;
    void record(int tile, qint64 ms);

    QString m_root;
    QString m_devId;
    std::unique_ptr<SimulatedRecorder> m_recorder;
    std::unique_ptr<RecorderLogins> m_logins;
    std::unique_ptr<LivePage> m_page;
};

void tst_LivePage::initTestCase()
{
    m_recorder = std::make_unique<SimulatedRecorder>(m_root);
    QVERIFY2(m_recorder->isReady(), "the simulated recorder did not start");
}

void tst_LivePage::init()
{
    m_logins = std::make_unique<RecorderLogins>();
    m_page = std::make_unique<LivePage>(m_logins.get());
    m_page->resize(1100, 700);
    m_page->show();
    addRecorder(m_recorder->address(), SimulatedRecorder::password());
}

void tst_LivePage::cleanup()
{
    m_page.reset();
    m_logins->remove(m_devId);
    m_logins.reset();
}

void tst_LivePage::cleanupTestCase()
{
    vms_sdk::uninit_sdk();
    vaws_download_shutdown();
    vemo_data::Database::instance().close();
}

void tst_LivePage::addRecorder(const QUrl& address, const QString& password)
{
    vemo_data::DevRecord record;
    record.name = QStringLiteral("Gate recorder");
    record.address = address;
    record.user = SimulatedRecorder::user();
    m_devId = m_logins->add(record, password);
}

QList<LocalRecordingIndexInfo> tst_LivePage::indexed() const
{
    LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
    QSignalSpy answers(&indexes, &LocalRecordingIndexes::signalGetLocalRecordingIndexesInfoResult);
    const QDateTime now = QDateTime::currentDateTime();
    emit indexes.signalGetLocalRecordingIndexesInfo(QStringLiteral("test"), now.addYears(-5), now.addDays(1), 0);
    answers.wait(patienceMs);
    return answers.value(0).value(1).value<QList<LocalRecordingIndexInfo>>();
}

void tst_LivePage::record(int tile, qint64 ms)
{
    stage()->showChannel({m_devId, tile + 1});
    QTRY_VERIFY_WITH_TIMEOUT(showsPicture(tile), patienceMs);
    stage()->toggleRecording(tile);
    QTRY_VERIFY_WITH_TIMEOUT(stage()->isRecording(tile), patienceMs);
    QTest::qWait(static_cast<int>(ms));
}

void tst_LivePage::recordsFromTheFirstPictureOn()
{
    record(0, 3000);
    QCOMPARE(m_page->recordingCount(), 1);
    QVERIFY(!m_page->quitConcern().isEmpty());
    stage()->toggleRecording(0);
    QTRY_COMPARE_WITH_TIMEOUT(indexed().size(), 1, patienceMs);
    const LocalRecordingIndexInfo info = indexed().first();
    QCOMPARE(info.channelNo, 1);
    QCOMPARE(info.devId, m_devId);
    QVERIFY2(info.ok(), qPrintable(info.problem));
    const qint64 ms = info.beginTime.msecsTo(info.endTime);
    QVERIFY2(ms >= 2500 && ms < 10'000, qPrintable(QString::number(ms)));

    const QJsonObject told = probe(info.filePath);
    const QJsonObject video = told[QStringLiteral("streams")].toArray().first().toObject();
    QCOMPARE(video[QStringLiteral("codec_name")].toString(), QStringLiteral("h264"));
    QCOMPARE(video[QStringLiteral("width")].toInt(), 1920);
    const double seconds = told[QStringLiteral("format")].toObject()[QStringLiteral("duration")].toString().toDouble();
    QVERIFY2(std::abs(seconds * 1000 - double(ms)) < 500, qPrintable(QString::number(seconds)));
    const int packets = video[QStringLiteral("nb_read_packets")].toString().toInt();
    QVERIFY2(std::abs(packets - seconds * 25) < 13, qPrintable(QString::number(packets)));
    QCOMPARE(decodeErrors(info.filePath), QString());
}

void tst_LivePage::savesTheWholePictureAsASnapshot()
{
    stage()->showChannel({m_devId, 1});
    QTRY_VERIFY_WITH_TIMEOUT(showsPicture(0), patienceMs);
    const QDateTime now = QDateTime::currentDateTime();
    stage()->takeSnapshot(0);
    using VCOMMON::LocalSnapImageIndexes;
    const auto taken = [&now] {
        return LocalSnapImageIndexes::instance().getLocalSnapImageIndexesInfo(now.addDays(-1), now.addDays(1));
    };
    const QString folder = vemo_worker::SystemConfig::instance().getLocalSnapshotPath();
    QTRY_COMPARE_WITH_TIMEOUT(files(folder).size(), 1, patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(taken().size(), 1, patienceMs);
    QCOMPARE(QImageReader(taken().first().filePath).size(), QSize(1920, 1080));
    QVERIFY2(std::abs(taken().first().captureTime.secsTo(now)) < 20,
             qPrintable(taken().first().captureTime.toString()));
}

void tst_LivePage::comesBackWhenTheRecorderDoes()
{
    const int port = m_recorder->address().port();
    record(0, 1500);
    const QStringList before = files(recordings());
    m_recorder.reset();
    QTRY_VERIFY_WITH_TIMEOUT(text(0).contains(QLatin1String("Trying again in")), patienceMs);
    QVERIFY(stage()->isRecording(0));
    m_recorder =
        std::make_unique<SimulatedRecorder>(m_root, QStringList{QStringLiteral("--port"), QString::number(port)});
    QVERIFY(m_recorder->isReady());
    QTRY_VERIFY_WITH_TIMEOUT(showsPicture(0), patienceMs);
    QTest::qWait(1500);
    const int known = indexed().size();
    stage()->toggleRecording(0);
    QTRY_VERIFY_WITH_TIMEOUT(indexed().size() > known, patienceMs);
    const LocalRecordingIndexInfo info = indexed().last();
    QVERIFY2(before.contains(QFileInfo(info.filePath).fileName()), "goes on in the same file, with a gap");
    QCOMPARE(decodeErrors(info.filePath), QString());
}

void tst_LivePage::waitsForAnotherLoginAfterARefusal()
{
    m_logins->remove(m_devId);
    addRecorder(m_recorder->address(), QStringLiteral("wrong"));
    stage()->showChannel({m_devId, 1});
    QTRY_VERIFY_WITH_TIMEOUT(text(0).contains(QLatin1String("Devices")), patienceMs);
    QTest::qWait(1500);
    QVERIFY2(!text(0).contains(QLatin1String("Trying again")), "many tries would lock the account");
    m_logins->change(vemo_data::DevsMgrData::instance().devRecord(m_devId), SimulatedRecorder::password());
    QTRY_VERIFY_WITH_TIMEOUT(showsPicture(0), patienceMs);
}

void tst_LivePage::leavesAPlayableFileWhenItIsKilled()
{
    const QString root = m_root + QStringLiteral("/killed");
    QDir().mkpath(root);
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("VEMO_LIVE_CHILD"), root);
    environment.insert(QStringLiteral("VEMO_LIVE_ADDRESS"), m_recorder->address().toString());
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), QStringList());
    const QString folder = root + QStringLiteral("/videos/Recordings");
    QTRY_VERIFY_WITH_TIMEOUT(files(folder).size() == 1, patienceMs);
    QTest::qWait(3500);
    child.kill();
    child.waitForFinished();
    const QString path = folder + QLatin1Char('/') + files(folder).first();
    QVERIFY2(!VCOMMON::RecordingFile::read(path).isFinished(), "it was killed too late");

    // The next start repairs what it finds in its folder of journals.
    QProcess next;
    environment.insert(QStringLiteral("VEMO_LIVE_CHILD_ENDS"), QStringLiteral("1"));
    next.setProcessEnvironment(environment);
    next.start(QCoreApplication::applicationFilePath(), QStringList());
    QVERIFY(next.waitForFinished(2 * patienceMs));
    const VCOMMON::RecordingFile file = VCOMMON::RecordingFile::read(path);
    QVERIFY(file.isFinished());
    const qint64 ms = file.begin.msecsTo(file.end);
    QVERIFY2(ms > 1500, qPrintable(QString::number(ms)));
    QCOMPARE(decodeErrors(path), QString());
}

void tst_LivePage::finishesRecordingsWhenTheClientEnds()
{
    record(0, 1500);
    const int known = indexed().size();
    m_page.reset();
    QTRY_COMPARE_WITH_TIMEOUT(indexed().size(), known + 1, patienceMs);
    QVERIFY(VCOMMON::RecordingFile::read(indexed().last().filePath).isFinished());
}

namespace {

/// Records until it is killed, or repairs and ends.
int runChild(const QString& root)
{
    if (qEnvironmentVariableIsSet("VEMO_LIVE_CHILD_ENDS")) {
        vaws_download_init_sdk(vemo_worker::SysPaths::tempDir().toUtf8().constData());
        return vaws_download_wait_repaired(patienceMs) ? 0 : 1;
    }
    tst_LivePage child(root);
    child.m_logins = std::make_unique<RecorderLogins>();
    child.m_page = std::make_unique<LivePage>(child.m_logins.get());
    child.m_page->show();
    child.addRecorder(QUrl(qEnvironmentVariable("VEMO_LIVE_ADDRESS")), SimulatedRecorder::password());
    child.record(0, 10 * patienceMs);
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("VEMO_KEYRING", "off");
    QApplication application(argc, argv);
    QTemporaryDir folder;
    const QString child = qEnvironmentVariable("VEMO_LIVE_CHILD");
    const QString root = child.isEmpty() ? folder.path() : child;
    vemo_worker::SysPaths::setRoot(root + QStringLiteral("/data"));
    QDir().mkpath(root + QStringLiteral("/videos"));
    vemo_worker::SystemConfig::instance().setVideoFilePath(root + QStringLiteral("/videos"));
    vemo_base::Notices::instance(); // on this thread, as in the window
    if (!child.isEmpty())
        return runChild(child);
    tst_LivePage test(root);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_LivePage.moc"
