#include "SdkLife.h"
#include "Viewer.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

using namespace vms_sdk;

/// Live video and seeking with a server that shares nothing with ours: GStreamer's RTSP server library.
class LivePeerTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void showsItLive();
    void refusesAWrongPassword();
    void jumpsInItsRecording();

private:
    static constexpr qint64 beginS = 1'768'032'000; // 2026-01-10T08:00:00Z
    DevLogin login(const char* path) const;

    QTemporaryDir m_folder;
    QProcess m_peer;
    QUrl m_url;
};

void LivePeerTest::initTestCase()
{
    const QString clip = m_folder.filePath(QStringLiteral("clip.mov"));
    QProcess ffmpeg;
    ffmpeg.start(QStringLiteral("ffmpeg"),
                 QStringLiteral("-v error -f lavfi -i testsrc2=size=320x180:rate=25:duration=30 -f lavfi -i "
                                "sine=sample_rate=16000:duration=30 -c:a aac -c:v libx264 -preset "
                                "ultrafast -g 25 -x264-params scenecut=0")
                         .split(QLatin1Char(' ')) +
                     QStringList{clip});
    QVERIFY(ffmpeg.waitForFinished(60'000) && ffmpeg.exitCode() == 0);
    QFile password(m_folder.filePath(QStringLiteral("password")));
    QVERIFY(password.open(QIODevice::WriteOnly) && password.write("peer-word\n") > 0);
    password.close();
    m_peer.start(QStringLiteral(GST_REPLAY_PEER),
                 {QStringLiteral("--clip"), clip, QStringLiteral("--begin"), QString::number(beginS),
                  QStringLiteral("--user"), QStringLiteral("admin"), QStringLiteral("--password-file"),
                  password.fileName()});
    QVERIFY(m_peer.waitForReadyRead(patienceMs));
    m_url = QUrl(QJsonDocument::fromJson(m_peer.readLine()).object().value(QStringLiteral("rtsp")).toString());
    QVERIFY(m_url.isValid());
}

void LivePeerTest::cleanupTestCase()
{
    m_peer.terminate();
    m_peer.waitForFinished(5000);
}

DevLogin LivePeerTest::login(const char* path) const
{
    QUrl address = m_url;
    address.setPath(QString::fromLatin1(path));
    DevLogin login = SdkLife::loginTo(address);
    login.password = QStringLiteral("peer-word");
    return login;
}

void LivePeerTest::showsItLive()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login("/live")).message, QString());
    Viewer viewer;
    const quint64 streamId = live_play_req({QStringLiteral("dev-1"), 1, LiveProfile::Main, true});
    QVERIFY(viewer.has(100));
    QCOMPARE(viewer.width, 640);
    QVERIFY(viewer.sounds > 20);
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying}));
    qint64 lastNs = 0;
    for (const vav::FrameHeader& picture : viewer.pictures) {
        QVERIFY2(picture.timeNs > lastNs, "time goes back");
        QCOMPARE(int(picture.flags & ~vav::KeyFrame), 0);
        lastNs = picture.timeNs;
    }
    // The server stamps by this computer's clock.
    QVERIFY(qAbs(QDateTime::currentMSecsSinceEpoch() - lastNs / 1'000'000) < 2000);
}

void LivePeerTest::refusesAWrongPassword()
{
    SdkLife sdk;
    DevLogin wrong = login("/live");
    wrong.password = QStringLiteral("other-word");
    QCOMPARE(sdk.logIn(wrong).kind, ErrorKind::None); // only the stream asks for it
    const quint64 streamId = live_play_req({QStringLiteral("dev-1"), 1});
    QTRY_COMPARE_WITH_TIMEOUT(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamLoginRefused}), patienceMs);
}

void LivePeerTest::jumpsInItsRecording()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login("/recording")).kind, ErrorKind::None);
    Viewer viewer;
    PlaybackByTimeCondition condition;
    condition.devId = QStringLiteral("dev-1");
    condition.channelNo = 1;
    // At the begin of its clip the peer sees no need to seek, and paces its times, counted from 1900, from zero.
    condition.beginTime = QDateTime::fromSecsSinceEpoch(beginS + 5);
    condition.endTime = QDateTime::fromSecsSinceEpoch(beginS + 30);
    condition.flowControl = true;
    const quint64 streamId = playback_by_time_req(condition);
    QVERIFY(viewer.has(20));
    playback_seek_req(streamId, condition.beginTime.addSecs(15));
    viewer.pictures.clear();
    QVERIFY(viewer.has(20));
    QCOMPARE(int(viewer.pictures.front().flags), int(vav::KeyFrame | vav::Discontinuity));
    const qint64 offMs = viewer.pictures.front().timeNs / 1'000'000 - (beginS + 20) * 1000;
    QVERIFY2(qAbs(offMs) <= 1000, qPrintable(QString::number(offMs)));
}

QTEST_GUILESS_MAIN(LivePeerTest)
#include "LivePeerTest.moc"
