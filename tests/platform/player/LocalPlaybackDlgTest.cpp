#include "PlayerClip.h"

#include <DataFolder.h>
#include <LocalPlaybackDlg.h>
#include <scan/SnapImageFile.h>
#include <SystemConfig.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using vemo_base::LocalPlaybackDlg;

namespace {

constexpr int patienceMs = 15000;

} // namespace

/// Through the dialog's own widgets, as a person has it.
class LocalPlaybackDlgTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void playsByTheRecordingsClock();
    void stepsFramesAndSkipsWithTheKeyboard();
    void choosesTheSpeedWithTheKeyboard();
    void saysInWordsWhatCantBePlayed_data();
    void saysInWordsWhatCantBePlayed();
    void savesSnapshotsWithoutOverwriting();
    void closesWhileTheFileIsBeingOpened();
    void mayBeDeletedWhileTheFileIsBeingOpened();
    void playsAnotherFileInTheOpenDialog();

private:
    void open(const QString& path);
    bool waitUntilPlaying();
    int valueMs() const { return m_dialog->findChild<QAbstractSlider*>(QStringLiteral("clockSlider"))->value(); }
    QString facts() const { return m_dialog->findChild<QLabel*>(QStringLiteral("playerFacts"))->text(); }
    QWidget* picture() const { return m_dialog->findChild<QWidget*>(QStringLiteral("playerPicture")); }
    bool pictureIsBlack() const;

    QTemporaryDir m_dir;
    QString m_clip;
    std::unique_ptr<LocalPlaybackDlg> m_dialog;
};

void LocalPlaybackDlgTest::initTestCase()
{
    vemo_data::DataFolder::setRoot(m_dir.filePath(QStringLiteral("data")));
    QDir().mkpath(m_dir.filePath(QStringLiteral("videos")));
    vemo_worker::SystemConfig::instance().setVideoFilePath(m_dir.filePath(QStringLiteral("videos")));
    m_clip = m_dir.filePath(QStringLiteral("Tor Süd, 1.mp4"));
    if (!PlayerClip::makeWithGap(m_clip))
        QSKIP("the ffmpeg program is missing, so there is nothing to play");
}

void LocalPlaybackDlgTest::init()
{
    m_dialog = std::make_unique<LocalPlaybackDlg>();
}

void LocalPlaybackDlgTest::cleanup()
{
    m_dialog.reset();
}

void LocalPlaybackDlgTest::open(const QString& path)
{
    m_dialog->setLocalVideoRecordingPath(path, {}, QStringLiteral("Tor Süd@2026-01-10 08:29:00~08:29:20"));
    m_dialog->showLocalPlaybackDlg();
}

bool LocalPlaybackDlgTest::waitUntilPlaying()
{
    return QTest::qWaitFor([this] { return facts().contains(QLatin1String("320 x 180")) && !pictureIsBlack(); },
                           patienceMs);
}

bool LocalPlaybackDlgTest::pictureIsBlack() const
{
    const QImage grabbed = picture()->grab().toImage();
    const QPoint middle = grabbed.rect().center();
    for (int x = -100; x <= 100; x += 10)
        if (qGray(grabbed.pixel(middle + QPoint(x, x))) > 16)
            return false;
    return true;
}

void LocalPlaybackDlgTest::playsByTheRecordingsClock()
{
    open(m_clip);
    QVERIFY2(waitUntilPlaying(), "no picture came");
    QVERIFY2(facts().startsWith(QLatin1String("1 gap, H.264 320 x 180, ")), qPrintable(facts()));
    const auto* slider = m_dialog->findChild<QAbstractSlider*>(QStringLiteral("clockSlider"));
    // 10 s of footage and a gap of 10 s.
    QTRY_COMPARE_WITH_TIMEOUT(slider->maximum(), 20000, patienceMs);
    const int early = valueMs();
    QTRY_VERIFY2_WITH_TIMEOUT(valueMs() > early + 400, "it does not play", patienceMs);
}

void LocalPlaybackDlgTest::stepsFramesAndSkipsWithTheKeyboard()
{
    open(m_clip);
    QVERIFY2(waitUntilPlaying(), "no picture came");
    QTest::keyClick(m_dialog.get(), Qt::Key_Space);
    const auto* play = m_dialog->findChild<QComboBox*>(QStringLiteral("playerSpeed"));
    QVERIFY(play && play->isEnabled());
    // Standing: the value stays.
    int standing = -1;
    QTRY_VERIFY_WITH_TIMEOUT(
        std::exchange(standing, valueMs()) == valueMs() && (QTest::qWait(120), standing == valueMs()), patienceMs);
    QTest::keyClick(m_dialog.get(), Qt::Key_Period);
    QTRY_COMPARE_WITH_TIMEOUT(valueMs(), standing + 40, patienceMs);
    QTest::keyClick(m_dialog.get(), Qt::Key_Comma);
    QTRY_COMPARE_WITH_TIMEOUT(valueMs(), standing, patienceMs);

    QTest::keyClick(m_dialog.get(), Qt::Key_Home);
    QTRY_COMPARE_WITH_TIMEOUT(valueMs(), 0, patienceMs);
    QTest::keyClick(m_dialog.get(), Qt::Key_Right);
    QTRY_VERIFY2_WITH_TIMEOUT(valueMs() >= 19900, "10 s on from the begin is the end, on the clock 20 s", patienceMs);
    QTest::keyClick(m_dialog.get(), Qt::Key_Left);
    QTRY_VERIFY_WITH_TIMEOUT(valueMs() <= 100, patienceMs);
}

void LocalPlaybackDlgTest::choosesTheSpeedWithTheKeyboard()
{
    open(m_clip);
    QVERIFY2(waitUntilPlaying(), "no picture came");
    const auto* speed = m_dialog->findChild<QComboBox*>(QStringLiteral("playerSpeed"));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(m_dialog.get(), Qt::Key_BracketRight);
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QStringLiteral("8x"), patienceMs);
    QTRY_VERIFY2_WITH_TIMEOUT(valueMs() >= 19900, "8 times as fast it must be at the end soon", 5000);
    for (int i = 0; i < 9; ++i)
        QTest::keyClick(m_dialog.get(), Qt::Key_BracketLeft);
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QStringLiteral("0.25x"), patienceMs);
}

void LocalPlaybackDlgTest::saysInWordsWhatCantBePlayed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("missing") << QByteArray() << "bad.mp4 is not there any more.";
    QTest::newRow("empty") << QByteArray("") << "bad.mp4 is empty.";
    QTest::newRow("text") << QByteArray("no video at all\n").repeated(100)
                          << "bad.mp4 can't be read as a video: it is none, or its beginning or its end is damaged.";
    // A list of files would send the player elsewhere.
    QTest::newRow("playlist") << QByteArray("#EXTM3U\n/etc/hostname\n") << "";
}

void LocalPlaybackDlgTest::saysInWordsWhatCantBePlayed()
{
    QFETCH(const QByteArray, content);
    QFETCH(const QString, sentence);
    const QString path = m_dir.filePath(QStringLiteral("bad.mp4"));
    QFile::remove(path);
    if (!content.isNull()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    open(path);
    QTRY_VERIFY_WITH_TIMEOUT(picture()->accessibleDescription().startsWith(QLatin1String("bad.mp4 ")), patienceMs);
    if (!sentence.isEmpty())
        QCOMPARE(picture()->accessibleDescription(), sentence);
}

void LocalPlaybackDlgTest::savesSnapshotsWithoutOverwriting()
{
    open(m_clip);
    QVERIFY2(waitUntilPlaying(), "no picture came");
    QTest::keyClick(m_dialog.get(), Qt::Key_Space);
    QTest::keyClick(m_dialog.get(), Qt::Key_Home);
    QTRY_COMPARE_WITH_TIMEOUT(valueMs(), 0, patienceMs);
    const QDir folder(m_dir.filePath(QStringLiteral("videos/Snapshots")));
    for (int count = 1; count <= 2; ++count) {
        QTest::keyClick(m_dialog.get(), Qt::Key_S);
        QTRY_COMPARE_WITH_TIMEOUT(folder.entryList(QDir::Files).size(), count, patienceMs);
    }
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    QVERIFY2(names.first().startsWith(QStringLiteral("Tor Süd@2026-01-10 ")), qPrintable(names.first()));
    QVERIFY2(names.join(QLatin1Char('\n')).contains(QLatin1String(" (2).jpg")),
             "the second one needs a name of its own");
    QCOMPARE(QImage(folder.filePath(names.first())).size(), QSize(320, 180));
    const VCOMMON::SnapImageFile facts = VCOMMON::SnapImageFile::read(folder.filePath(names.first()));
    QCOMPARE(facts.captureTime.date(), QDate(2026, 1, 10));
    QCOMPARE(facts.channelName, QStringLiteral("Tor Süd"));

    vemo_worker::SystemConfig::instance().setSnapshotFormat(QStringLiteral("BMP"));
    QTest::keyClick(m_dialog.get(), Qt::Key_S);
    QTRY_COMPARE_WITH_TIMEOUT(folder.entryList({QStringLiteral("*.bmp")}, QDir::Files).size(), 1, patienceMs);
    vemo_worker::SystemConfig::instance().setSnapshotFormat(QStringLiteral("JPG"));
    QCOMPARE(QImage(folder.filePath(folder.entryList({QStringLiteral("*.bmp")}).first())).size(), QSize(320, 180));
}

void LocalPlaybackDlgTest::closesWhileTheFileIsBeingOpened()
{
    QSignalSpy closed(m_dialog.get(), &LocalPlaybackDlg::signalPlaybackDlgClosed);
    constexpr int times = 20;
    for (int i = 0; i < times; ++i) {
        open(m_clip);
        QTest::qWait(i * 3);
        QElapsedTimer timer;
        timer.start();
        QTest::keyClick(m_dialog.get(), Qt::Key_Escape);
        QVERIFY(!m_dialog->isVisible());
        QVERIFY2(timer.elapsed() < 1000, "closing waits for the player");
    }
    QCOMPARE(closed.size(), times);
    QCOMPARE(closed.first().first().toString(), m_clip);
}

void LocalPlaybackDlgTest::mayBeDeletedWhileTheFileIsBeingOpened()
{
    for (int i = 0; i < 10; ++i) {
        init();
        open(m_clip);
        QTest::qWait(i * 20);
        m_dialog.reset();
    }
    init();
    open(m_clip);
    QVERIFY2(waitUntilPlaying(), "nothing plays after players were deleted in mid-work");
}

void LocalPlaybackDlgTest::playsAnotherFileInTheOpenDialog()
{
    open(m_dir.filePath(QStringLiteral("gone.mp4")));
    QTRY_VERIFY_WITH_TIMEOUT(!picture()->accessibleDescription().isEmpty(), patienceMs);
    m_dialog->setLocalVideoRecordingPath(m_clip, {}, QStringLiteral("Tor Süd@2026-01-10 08:29:00~08:29:20"));
    QVERIFY2(waitUntilPlaying(), "no picture came");
    QVERIFY(picture()->accessibleDescription().isEmpty());
}

QTEST_MAIN(LocalPlaybackDlgTest)
#include "LocalPlaybackDlgTest.moc"
