#include "SimulatedRecorder.h"
#include "Viewer.h"

#include <QElapsedTimer>
#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QTimer>
#include <QUdpSocket>

#include <algorithm>

using namespace vms_sdk;

namespace {

const QString devId = QStringLiteral("dev-1");
constexpr qint64 nsAMs = 1'000'000;

QDateTime at(const char* utcTime)
{
    return SimulatedRecorder::at(utcTime);
}

LiveCondition live(LiveProfile profile = LiveProfile::Main, bool flowControl = false)
{
    return {devId, 1, profile, flowControl};
}

PlaybackByTimeCondition playback(const char* begin, const char* end)
{
    PlaybackByTimeCondition condition;
    condition.devId = devId;
    condition.channelNo = 1;
    condition.beginTime = at(begin);
    condition.endTime = at(end);
    condition.flowControl = true;
    return condition;
}

} // namespace

/// Streams for the eye, live and played back, and finding devices.
class ViewingTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void showsAChannelLive_data();
    void showsAChannelLive();
    void tellsHowALiveStreamEnded_data();
    void tellsHowALiveStreamEnded();
    void dropsWholeGroupsForASlowViewer();
    void jumpsWhileItPlays_data();
    void jumpsWhileItPlays();
    void playsAtOtherSpeeds_data();
    void playsAtOtherSpeeds();
    void isHeldBackByAPausedViewer();
    void findsTheRecorderWhereverItAnswers();
    void boundsWhatTheNetworkAnswers();
    void endsADiscoveryThatIsCancelled();

private:
    SimulatedRecorder m_recorder;
};

void ViewingTest::initTestCase()
{
    QVERIFY(m_recorder.start());
}

void ViewingTest::cleanup()
{
    m_recorder.reset();
}

void ViewingTest::showsAChannelLive_data()
{
    QTest::addColumn<bool>("isDirect");
    QTest::addColumn<int>("profile");
    QTest::addColumn<int>("width");

    QTest::newRow("main") << false << int(LiveProfile::Main) << 1920;
    QTest::newRow("sub") << false << int(LiveProfile::Sub) << 640;
    QTest::newRow("plain RTSP source") << true << int(LiveProfile::Sub) << 1920;
}

void ViewingTest::showsAChannelLive()
{
    QFETCH(bool, isDirect);
    QFETCH(int, profile);
    QFETCH(int, width);
    SdkLife sdk;
    DevLogin login = m_recorder.login();
    if (isDirect)
        login.address = QUrl(m_recorder.rtsp + QStringLiteral("/live/{channel}"));
    QCOMPARE(sdk.logIn(login).message, QString());
    Viewer viewer;
    QElapsedTimer sinceOpened;
    sinceOpened.start();
    const quint64 streamId = live_play_req(live(static_cast<LiveProfile>(profile)));
    QVERIFY(viewer.has(1));
    QVERIFY2(sinceOpened.elapsed() < 2000, "the first picture takes its time");
    QVERIFY(viewer.has(60));
    QCOMPARE(viewer.width, width);
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying}));
    // The recorder begins with its last key frame, up to two seconds ago.
    const qint64 ageMs = QDateTime::currentMSecsSinceEpoch() - viewer.pictures.back().timeNs / nsAMs;
    QVERIFY2(ageMs > -500 && ageMs < 4000, qPrintable(QString::number(ageMs)));
    disconnect_stream_req(streamId);
    const std::size_t before = viewer.pictures.size();
    QTest::qWait(200);
    QCOMPARE(viewer.pictures.size(), before);
}

void ViewingTest::tellsHowALiveStreamEnded_data()
{
    QTest::addColumn<QString>("faultQuery");
    QTest::addColumn<int>("event");

    QTest::newRow("limit") << "name=session-limit" << int(StreamLimitReached);
    QTest::newRow("not found") << "name=not-found" << int(StreamConnectFailed);
    QTest::newRow("login") << "name=wrong-password" << int(StreamLoginRefused);
    QTest::newRow("login loop") << "name=auth-loop" << int(StreamLoginRefused);
    QTest::newRow("cut") << "name=drop-after&value=1000000" << int(StreamBroken);
    QTest::newRow("stall") << "name=stall-after&value=1000000" << int(StreamBroken);
}

void ViewingTest::tellsHowALiveStreamEnded()
{
    QFETCH(QString, faultQuery);
    QFETCH(int, event);
    SdkLimits limits = SdkLife::quickLimits();
    limits.silenceTimeoutMs = 1000;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(m_recorder.login()).kind, ErrorKind::None);
    m_recorder.fault(faultQuery);
    const quint64 streamId = live_play_req(live());
    QTRY_VERIFY_WITH_TIMEOUT(sdk.eventsOf(streamId).contains(event), patienceMs);
    const Error error = stream_error(streamId);
    QVERIFY(!error.message.isEmpty() && !error.message.contains(SimulatedRecorder::password()));
}

void ViewingTest::dropsWholeGroupsForASlowViewer()
{
    SdkLimits limits = SdkLife::quickLimits();
    limits.liveCreditBytes = 300'000;
    limits.silenceTimeoutMs = 1500;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(m_recorder.login()).kind, ErrorKind::None);
    Viewer viewer(false);
    const quint64 streamId = live_play_req(live(LiveProfile::Main, true));
    QTRY_VERIFY_WITH_TIMEOUT(viewer.unconsumed >= limits.liveCreditBytes, patienceMs);
    const std::size_t beforeDrop = viewer.pictures.size();
    // Longer than the watchdog waits: the socket is read all the time.
    QTest::qWait(3000);
    QVERIFY2(viewer.pictures.size() <= beforeDrop + 1, "it piles up");
    viewer.isConsuming = true;
    viewer.consume();
    QVERIFY(viewer.has(beforeDrop + 50));
    const vav::FrameHeader& first = viewer.pictures[beforeDrop];
    QCOMPARE(int(first.flags), int(vav::KeyFrame | vav::Discontinuity | vav::LossBefore));
    QVERIFY(first.lostBefore >= 50);
    QVERIFY(first.gapBeginNs > viewer.pictures[beforeDrop - 1].timeNs && first.gapBeginNs < first.timeNs);
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying}));
}

void ViewingTest::jumpsWhileItPlays_data()
{
    QTest::addColumn<bool>("isConsuming");
    QTest::addColumn<bool>("isPaused");
    QTest::addColumn<QDateTime>("target");

    QTest::newRow("forwards") << true << false << at("12:00:01");
    QTest::newRow("backwards") << true << false << at("06:30:00");
    QTest::newRow("while it is held back") << false << false << at("12:00:01");
    QTest::newRow("while it is paused") << true << true << at("12:00:01");
}

void ViewingTest::jumpsWhileItPlays()
{
    QFETCH(bool, isConsuming);
    QFETCH(bool, isPaused);
    QFETCH(QDateTime, target);
    SdkLimits limits = SdkLife::quickLimits();
    limits.streamCreditBytes = 500'000;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(m_recorder.login()).kind, ErrorKind::None);
    Viewer viewer(isConsuming);
    const quint64 streamId = playback_by_time_req(playback("09:00:00", "23:00:00"));
    QVERIFY(viewer.has(10));
    if (isPaused)
        playback_ctrl_req(streamId, PlaybackPause);
    if (!isConsuming)
        QTest::qWait(1500); // until the credit is used up
    playback_seek_req(streamId, at("15:00:00"));
    playback_seek_req(streamId, target);
    viewer.pictures.clear();
    viewer.isConsuming = true;
    viewer.consume(); // a decoder lets go of what it had
    QVERIFY(viewer.has(30));
    const vav::FrameHeader& first = viewer.pictures.front();
    QCOMPARE(int(first.flags), int(vav::KeyFrame | vav::Discontinuity));
    QCOMPARE(first.gapBeginNs, 0);
    const qint64 targetNs = target.toMSecsSinceEpoch() * nsAMs;
    for (const vav::FrameHeader& picture : viewer.pictures)
        QVERIFY2(qAbs(picture.timeNs - targetNs) < 10'000 * nsAMs, "a picture of another place");
    QVERIFY2(first.timeNs <= targetNs && first.timeNs > targetNs - 2100 * nsAMs, "no key frame before the target");
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying}));
}

void ViewingTest::playsAtOtherSpeeds_data()
{
    QTest::addColumn<QString>("speed");
    QTest::addColumn<double>("factor");
    QTest::addColumn<bool>("keyFramesOnly");

    QTest::newRow("half") << "0.5X" << 0.5 << false;
    QTest::newRow("quadruple") << "4X" << 4.0 << false;
    QTest::newRow("sixteenfold") << "16X" << 16.0 << true;
}

void ViewingTest::playsAtOtherSpeeds()
{
    QFETCH(QString, speed);
    QFETCH(double, factor);
    QFETCH(bool, keyFramesOnly);
    SdkLife sdk;
    QCOMPARE(sdk.logIn(m_recorder.login()).kind, ErrorKind::None);
    Viewer viewer;
    const quint64 streamId = playback_by_time_req(playback("09:00:00", "23:00:00"));
    QVERIFY(viewer.has(30));
    download_speed_set_req(streamId, speed);
    QTest::qWait(500);
    viewer.pictures.clear();
    QElapsedTimer timer;
    timer.start();
    QTest::qWait(2000);
    QVERIFY(viewer.pictures.size() > 5);
    const qint64 playedMs = (viewer.pictures.back().timeNs - viewer.pictures.front().timeNs) / nsAMs;
    const double played = static_cast<double>(playedMs) / static_cast<double>(timer.elapsed());
    QVERIFY2(played > factor * 0.6 && played < factor * 1.3, qPrintable(QString::number(played)));
    qint64 lastNs = 0;
    for (const vav::FrameHeader& picture : viewer.pictures) {
        QVERIFY(!keyFramesOnly || picture.flags == vav::KeyFrame);
        QVERIFY2(!keyFramesOnly || picture.timeNs > lastNs, "a picture comes twice");
        lastNs = picture.timeNs;
    }
    // Back at the usual speed every picture comes again, from the last key frame on.
    viewer.pictures.clear();
    download_speed_set_req(streamId, QStringLiteral("1X"));
    QVERIFY(viewer.has(80));
    const auto keys =
        std::count_if(viewer.pictures.end() - 50, viewer.pictures.end(),
                      [](const vav::FrameHeader& picture) { return (picture.flags & vav::KeyFrame) != 0; });
    QCOMPARE(int(keys), 1);
}

void ViewingTest::isHeldBackByAPausedViewer()
{
    SdkLimits limits = SdkLife::quickLimits();
    limits.streamCreditBytes = 500'000;
    limits.silenceTimeoutMs = 1000;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(m_recorder.login()).kind, ErrorKind::None);
    Viewer viewer(false);
    const quint64 streamId = playback_by_time_req(playback("09:00:00", "09:30:00"));
    QTRY_VERIFY_WITH_TIMEOUT(viewer.unconsumed >= limits.streamCreditBytes, patienceMs);
    QTest::qWait(2000);
    QVERIFY2(viewer.unconsumed < 2 * limits.streamCreditBytes, "the socket is read without credit");
    const std::size_t before = viewer.pictures.size();
    viewer.isConsuming = true;
    viewer.consume();
    QVERIFY(viewer.has(before + 50));
    for (const vav::FrameHeader& picture : viewer.pictures)
        QCOMPARE(int(picture.flags & ~vav::KeyFrame), 0);
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying}));
}

void ViewingTest::findsTheRecorderWhereverItAnswers()
{
    SdkLife sdk;
    QSignalSpy discovered(&ClientSignals::instance(), &ClientSignals::signalDevDiscovered);
    QSignalSpy finished(&ClientSignals::instance(), &ClientSignals::signalDiscoveryFinished);
    const QStringList arguments{QStringLiteral("--discovery"), QStringLiteral("--serial"),
                                QStringLiteral("viewing-%1").arg(QCoreApplication::applicationPid())};
    QString endpoint;
    for (int round = 0; round < 2; ++round) {
        SimulatedRecorder recorder;
        QVERIFY(recorder.start(arguments));
        QCOMPARE(sdk.logIn(recorder.login()).kind, ErrorKind::None);
        if (round == 0)
            endpoint = dev_info(devId).endpoint;
        QCOMPARE(dev_info(devId).endpoint, endpoint);
        QCOMPARE(endpoint.size(), 36);
        discovered.clear();
        discover_devs_req(QString::number(round), 1500);
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), round + 1, patienceMs);
        QCOMPARE(finished.last().at(0).toString(), QString::number(round));
        QVector<DiscoveredDev> ours;
        for (const QList<QVariant>& found : qAsConst(discovered)) {
            if (found.at(1).value<DiscoveredDev>().endpoint == endpoint)
                ours.append(found.at(1).value<DiscoveredDev>());
        }
        QCOMPARE(ours.size(), 1);
        QCOMPARE(ours.first().addresses, QList<QUrl>{recorder.onvif});
        QCOMPARE(ours.first().model, QStringLiteral("SIM-1"));
    }
}

void ViewingTest::boundsWhatTheNetworkAnswers()
{
    const QHostAddress group(QStringLiteral("239.255.255.250"));
    QUdpSocket flooder;
    QVERIFY(flooder.bind(QHostAddress::AnyIPv4, 3702, QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint));
    const QList<QNetworkInterface> networks = QNetworkInterface::allInterfaces();
    const auto loopback = std::find_if(networks.begin(), networks.end(), [](const QNetworkInterface& network) {
        return network.flags().testFlag(QNetworkInterface::IsLoopBack);
    });
    QVERIFY(loopback != networks.end() && flooder.joinMulticastGroup(group, *loopback));
    QNetworkDatagram probe;
    connect(&flooder, &QUdpSocket::readyRead, this, [&] { probe = flooder.receiveDatagram(); });
    SdkLife sdk;
    QSignalSpy discovered(&ClientSignals::instance(), &ClientSignals::signalDevDiscovered);
    QSignalSpy finished(&ClientSignals::instance(), &ClientSignals::signalDiscoveryFinished);
    discover_devs_req(QStringLiteral("flood"), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(!probe.data().isEmpty(), patienceMs);
    const QByteArray head = probe.data().mid(0, probe.data().indexOf("<a:To>")).replace("MessageID", "RelatesTo");
    int devices = 0;
    QTimer pace;
    connect(&pace, &QTimer::timeout, this, [&] {
        for (int i = 0; i < 50 && devices < 20'000; ++i) {
            const QByteArray number = QByteArray::number(++devices);
            flooder.writeDatagram(
                head + "</s:Header><s:Body><d:ProbeMatches><d:ProbeMatch><a:EndpointReference><a:Address>" + number +
                    "</a:Address></a:EndpointReference><d:XAddrs>http://10.0.0.1/" + number +
                    "</d:XAddrs></d:ProbeMatch></d:ProbeMatches></s:Body></s:Envelope>",
                probe.senderAddress(), static_cast<quint16>(probe.senderPort()));
        }
    });
    pace.start(10);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patienceMs);
    QVERIFY(devices > 2000);
    const auto ours = std::count_if(discovered.begin(), discovered.end(), [](const QList<QVariant>& found) {
        return found.at(1).value<DiscoveredDev>().addresses.first().host() == QLatin1String("10.0.0.1");
    });
    QVERIFY2(ours > 900 && discovered.size() <= 1000, qPrintable(QString::number(ours)));
}

void ViewingTest::endsADiscoveryThatIsCancelled()
{
    SdkLife sdk;
    QSignalSpy finished(&ClientSignals::instance(), &ClientSignals::signalDiscoveryFinished);
    QElapsedTimer timer;
    timer.start();
    discover_devs_req(QStringLiteral("cancelled"), 30'000);
    cancel_request(QStringLiteral("cancelled"));
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, patienceMs);
    QVERIFY(timer.elapsed() < 5000);
    discover_devs_req(QStringLiteral("under way"), 30'000);
    uninit_sdk();
    QVERIFY2(timer.elapsed() < 10'000, "the end waits for the discovery");
}

QTEST_GUILESS_MAIN(ViewingTest)
#include "ViewingTest.moc"
