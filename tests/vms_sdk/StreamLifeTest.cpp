#include "SdkLife.h"

#include <QElapsedTimer>
#include <QTcpSocket>

using namespace vms_sdk;

namespace {

const QString devId = QStringLiteral("dev-1");
const QString fileName = QStringLiteral("rec-1_20260110T080000000Z_20260110T081000000Z");

/// A recorder that answers every RTSP request with one status, or with nothing.
class RtspRefuser final : public QTcpServer
{
public:
    explicit RtspRefuser(QByteArray status)
        : m_status(std::move(status))
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                const QByteArray request = socket->readAll();
                received += request;
                const int at = request.indexOf("CSeq: ");
                if (at < 0 || m_status.isEmpty())
                    return;
                const QByteArray number = request.mid(at + 6, request.indexOf('\r', at) - at - 6);
                socket->write("RTSP/1.0 " + m_status + "\r\nCSeq: " + number +
                              "\r\nWWW-Authenticate: Digest realm=\"r\", nonce=\"n\"\r\n\r\n");
            });
        });
    }

    QUrl url() const { return QUrl(QStringLiteral("rtsp://127.0.0.1:%1/replay").arg(serverPort())); }
    QByteArray received;

private:
    const QByteArray m_status;
};

PlaybackByTimeCondition fromTime(const QString& device = devId, int channelNo = 1)
{
    PlaybackByTimeCondition condition;
    condition.devId = device;
    condition.channelNo = channelNo;
    condition.beginTime = QDateTime(QDate(2026, 1, 10), QTime(8, 0), Qt::UTC);
    condition.downloadFlag = 1;
    return condition;
}

PlaybackByFileCondition fromFile(const QString& name)
{
    PlaybackByFileCondition condition;
    condition.devId = devId;
    condition.channelNo = 1;
    condition.fileName = name;
    condition.downloadFlag = 1;
    return condition;
}

} // namespace

class StreamLifeTest final : public QObject
{
    Q_OBJECT

private slots:
    void tellsWhyAStreamFailed_data();
    void tellsWhyAStreamFailed();
    void tellsAMissingReplayAddress_data();
    void tellsAMissingReplayAddress();
    void tellsWhatCannotBePlayed_data();
    void tellsWhatCannotBePlayed();
    void asksForTheLiveVideoOfAProfile_data();
    void asksForTheLiveVideoOfAProfile();
    void saysNothingOfADisconnectedStream();
    void endsWithStreamsUnderWay();
    void takesReportsOfConsumedBytesFromAnyThread();
};

void StreamLifeTest::tellsWhyAStreamFailed_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<int>("event");
    QTest::addColumn<ErrorKind>("kind");

    QTest::newRow("login") << QByteArray("401 Unauthorized") << int(StreamLoginRefused) << ErrorKind::LoginRefused;
    QTest::newRow("limit") << QByteArray("453 Not Enough Bandwidth") << int(StreamLimitReached)
                           << ErrorKind::LimitReached;
    QTest::newRow("busy") << QByteArray("503 Service Unavailable") << int(StreamLimitReached)
                          << ErrorKind::LimitReached;
    QTest::newRow("not found") << QByteArray("404 Not Found") << int(StreamConnectFailed) << ErrorKind::NotFound;
    QTest::newRow("silent") << QByteArray() << int(StreamConnectFailed) << ErrorKind::TimedOut;
}

void StreamLifeTest::tellsWhyAStreamFailed()
{
    QFETCH(QByteArray, status);
    QFETCH(int, event);
    QFETCH(ErrorKind, kind);
    RtspRefuser recorder(status);
    SdkLimits limits = SdkLife::quickLimits();
    if (kind == ErrorKind::TimedOut)
        limits.answerTimeoutMs = 500;
    SdkLife sdk(limits);
    sdk.logIn(SdkLife::loginTo(recorder.url()));
    const quint64 streamId = playback_by_time_req(fromTime());
    QVERIFY(streamId != 0);
    QVERIFY2(sdk.events.isEmpty(), "a signal came from inside the request");
    QTRY_COMPARE_WITH_TIMEOUT(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, event}), patienceMs);
    QVERIFY2(stream_error(streamId).kind == kind, qPrintable(stream_error(streamId).message));
    QVERIFY(!recorder.received.contains("s3cret"));
    disconnect_stream_req(streamId);
    QCOMPARE(stream_error(streamId).kind, ErrorKind::None);
}

void StreamLifeTest::tellsAMissingReplayAddress_data()
{
    QTest::addColumn<bool>("hasReplay");
    QTest::addColumn<QByteArray>("faultCode");
    QTest::addColumn<int>("event");

    QTest::newRow("no replay service") << false << QByteArray() << int(StreamNoReplayAddress);
    QTest::newRow("fault") << true << QByteArray("ter:NoRecording") << int(StreamNoReplayAddress);
    QTest::newRow("login refused") << true << QByteArray("ter:NotAuthorized") << int(StreamLoginRefused);
}

void StreamLifeTest::tellsAMissingReplayAddress()
{
    QFETCH(bool, hasReplay);
    QFETCH(QByteArray, faultCode);
    QFETCH(int, event);
    OnvifFake device;
    device.flags.hasReplay = hasReplay;
    if (!faultCode.isEmpty())
        device.flags.replayFaultCodes = {faultCode};
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(device.address()));
    const quint64 streamId = playback_by_file_req(fromFile(fileName));
    QTRY_COMPARE_WITH_TIMEOUT(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, event}), patienceMs);
}

void StreamLifeTest::tellsWhatCannotBePlayed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("downloadedMs");
    QTest::addColumn<QString>("device");

    QTest::newRow("foreign name") << "holiday.mp4" << 0 << devId;
    QTest::newRow("beyond its end") << fileName << 600000 << devId;
    QTest::newRow("unknown device") << fileName << 0 << "nobody";
}

void StreamLifeTest::tellsWhatCannotBePlayed()
{
    QFETCH(QString, name);
    QFETCH(int, downloadedMs);
    QFETCH(QString, device);
    SdkLife sdk;
    PlaybackByFileCondition condition = fromFile(name);
    condition.downloadedMs = downloadedMs;
    condition.devId = device;
    const quint64 streamId = playback_by_file_req(condition);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamConnectFailed}), patienceMs);
    QCOMPARE(stream_error(streamId).kind, ErrorKind::NotFound);
    QVERIFY(!stream_error(streamId).message.isEmpty());
}

void StreamLifeTest::asksForTheLiveVideoOfAProfile_data()
{
    QTest::addColumn<int>("channelNo");
    QTest::addColumn<int>("profile");
    QTest::addColumn<QByteArray>("token");

    QTest::newRow("main") << 1 << int(LiveProfile::Main) << QByteArray(">prof-1<");
    QTest::newRow("sub, the largest of the smaller ones") << 1 << int(LiveProfile::Sub) << QByteArray(">prof-1b<");
    QTest::newRow("a channel without profile") << 2 << int(LiveProfile::Main) << QByteArray();
    QTest::newRow("no such channel") << 9 << int(LiveProfile::Main) << QByteArray();
}

void StreamLifeTest::asksForTheLiveVideoOfAProfile()
{
    QFETCH(int, channelNo);
    QFETCH(int, profile);
    QFETCH(QByteArray, token);
    OnvifFake device;
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    const quint64 streamId = live_play_req({devId, channelNo, static_cast<LiveProfile>(profile)});
    QTRY_COMPARE_WITH_TIMEOUT(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamConnectFailed}), patienceMs);
    QCOMPARE(device.count("GetStreamUri"), token.isEmpty() ? 0 : 1);
    if (token.isEmpty()) {
        QCOMPARE(stream_error(streamId).kind, ErrorKind::NotFound);
        return;
    }
    QVERIFY(device.requests.last().contains(token) && device.requests.last().contains(">RTP-Unicast<"));
    // The login stays with the host that was named, whatever the device calls itself.
    QVERIFY2(stream_error(streamId).message.contains(QStringLiteral("127.0.0.1")),
             qPrintable(stream_error(streamId).message));
}

void StreamLifeTest::saysNothingOfADisconnectedStream()
{
    RtspRefuser recorder("404 Not Found");
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(recorder.url()));
    disconnect_stream_req(playback_by_time_req(fromTime()));

    // From inside its own first signal.
    quint64 second = 0;
    const auto connection = connect(&ClientSignals::instance(), &ClientSignals::signalStreamEventPush, this,
                                    [&](quint64 streamId) { disconnect_stream_req(streamId); });
    second = playback_by_time_req(fromTime());
    QTRY_COMPARE_WITH_TIMEOUT(sdk.events.size(), 1, patienceMs);
    QTest::qWait(200);
    disconnect(connection);
    QCOMPARE(sdk.eventsOf(second), (QList<int>{StreamConnecting}));
    QCOMPARE(sdk.events.size(), 1);
}

void StreamLifeTest::endsWithStreamsUnderWay()
{
    RtspRefuser recorder({});
    OnvifFake device;
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(recorder.url()));
    sdk.logIn(SdkLife::loginTo(device.address(), QStringLiteral("dev-2")));
    device.flags.isSilent = true;
    for (int i = 0; i < 20; ++i) {
        playback_by_time_req(fromTime());
        playback_by_time_req(fromTime(QStringLiteral("dev-2")));
        RecsSearchCondition condition;
        condition.requestId = QString::number(i);
        condition.devId = QStringLiteral("dev-2");
        condition.channelNo = 1;
        condition.begin = QDateTime::currentDateTime().addDays(-1);
        condition.end = QDateTime::currentDateTime();
        search_video_recordings_req(condition);
    }
    QTRY_VERIFY_WITH_TIMEOUT(recorder.received.count("RTSP/1.0") >= 10, patienceMs);
    sdk.events.clear();
    QElapsedTimer timer;
    timer.start();
    uninit_sdk();
    QVERIFY2(timer.elapsed() < 5000, "ending waits for the network");
    QTest::qWait(50);
    QVERIFY2(sdk.events.isEmpty() && sdk.answers.isEmpty(), "a signal came after the end");
}

void StreamLifeTest::takesReportsOfConsumedBytesFromAnyThread()
{
    RtspRefuser recorder({});
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(recorder.url()));
    const quint64 streamId = playback_by_time_req(fromTime());
    QTRY_VERIFY_WITH_TIMEOUT(!recorder.received.isEmpty(), patienceMs);
    QScopedPointer<QThread> consumer(QThread::create([streamId] {
        for (int i = 0; i < 20000; ++i)
            stream_data_consumed(streamId, 65536);
    }));
    consumer->start();
    disconnect_stream_req(streamId);
    uninit_sdk(); // reports go on meanwhile
    QVERIFY(consumer->wait(patienceMs));
}

QTEST_GUILESS_MAIN(StreamLifeTest)
#include "StreamLifeTest.moc"
