#include "SimulatedRecorder.h"

#include "vav_frame.h"

#include <QElapsedTimer>
#include <QJsonArray>

using namespace vms_sdk;

namespace {

const QString devId = QStringLiteral("dev-1");
const QString password = SimulatedRecorder::password();

QDateTime at(const char* utcTime)
{
    return SimulatedRecorder::at(utcTime);
}

/// What one stream delivered, taken apart.
struct Delivered
{
    qint64 bytes = 0;
    int videoFrames = 0;
    int infos = 0;
    bool isSound = true;
    qint64 firstNs = 0;
    qint64 lastNs = 0;
    QString deviceName;

    void take(const QByteArray& batch)
    {
        bytes += batch.size();
        vav::PacketReader reader(batch.constData(), static_cast<std::size_t>(batch.size()));
        vav::PacketReader::Status status = reader.next();
        for (; status == vav::PacketReader::Status::Packet; status = reader.next()) {
            if (reader.kind() == vav::PacketKind::StreamInfo) {
                ++infos;
                deviceName = QString::fromStdString(reader.streamInfo().deviceName);
            } else if (reader.frame().track == 0) {
                ++videoFrames;
                firstNs = firstNs == 0 ? reader.frame().timeNs : qMin<qint64>(firstNs, reader.frame().timeNs);
                lastNs = qMax<qint64>(lastNs, reader.frame().timeNs);
            }
        }
        isSound = isSound && status == vav::PacketReader::Status::End;
    }
};

} // namespace

/// The library against the simulated recorder, which shares no code with it.
class RecorderTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void findsWhatTheRecorderRecorded_data();
    void findsWhatTheRecorderRecorded();
    void playsASpanToItsEnd();
    void playsTheRestOfAFile();
    void holdsTheStreamBackUntilItWasConsumed();
    void keepsTheRecordersPaceWithoutTheDownloadFlag();
    void keepsToTheBandwidthLimit();
    void pausesAndGoesOn();
    void tellsHowAStreamEnded_data();
    void tellsHowAStreamEnded();
    void refusesHostileAnswersAtLogin_data();
    void refusesHostileAnswersAtLogin();
    void logsInOverASkewedClock();
    void isSilentAfterDisconnecting();
    void endsWithFiveDownloadsAtFullSpeed();

private:
    QByteArray control(const QString& target) { return m_recorder.control(target); }
    void fault(const QString& query) { m_recorder.fault(query); }
    DevLogin login() const { return m_recorder.login(); }
    PlaybackByTimeCondition span(const char* begin, const char* end) const;
    int framesSent(const char* begin, const char* end);
    /// Consumes everything that comes on any stream.
    void consumeAll(QObject* context, Delivered& delivered);

    SimulatedRecorder m_recorder;
};

void RecorderTest::initTestCase()
{
    QVERIFY(m_recorder.start());
}

void RecorderTest::cleanup()
{
    m_recorder.reset();
}

PlaybackByTimeCondition RecorderTest::span(const char* begin, const char* end) const
{
    PlaybackByTimeCondition condition;
    condition.devId = devId;
    condition.channelNo = 1;
    condition.beginTime = at(begin);
    condition.endTime = at(end);
    condition.downloadFlag = 1;
    return condition;
}

int RecorderTest::framesSent(const char* begin, const char* end)
{
    const QByteArray lines = control(QStringLiteral("/samples?channel=1&begin=%1&end=%2")
                                         .arg(at(begin).toString(Qt::ISODate), at(end).toString(Qt::ISODate)));
    int frames = 0;
    for (const QByteArray& line : lines.split('\n')) {
        const QJsonObject sample = QJsonDocument::fromJson(line).object();
        if (!sample.isEmpty() && sample.value(QStringLiteral("track")).toInt() == 0)
            ++frames;
    }
    return frames;
}

void RecorderTest::consumeAll(QObject* context, Delivered& delivered)
{
    connect(&ClientSignals::instance(), &ClientSignals::signalStreamData, context,
            [&delivered](quint64 streamId, const QByteArray& batch) {
                delivered.take(batch);
                stream_data_consumed(streamId, batch.size());
            });
}

void RecorderTest::findsWhatTheRecorderRecorded_data()
{
    QTest::addColumn<int>("channelNo");

    QTest::newRow("channel 1") << 1;
    QTest::newRow("channel 2") << 2;
}

void RecorderTest::findsWhatTheRecorderRecorded()
{
    QFETCH(int, channelNo);
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).message, QString());
    QCOMPARE(dev_info(devId).channels.size(), 2);
    QVERIFY(dev_info(devId).supportsBackup);
    RecsSearchCondition condition;
    condition.requestId = QStringLiteral("search");
    condition.devId = devId;
    condition.channelNo = channelNo;
    condition.begin = at("00:00:00");
    condition.end = at("23:59:59");
    search_video_recordings_req(condition);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);

    QStringList expected;
    const QJsonArray truth =
        QJsonDocument::fromJson(control(QStringLiteral("/recordings?channel=%1").arg(channelNo))).array();
    for (const QJsonValue& value : truth) {
        const QDateTime begin = QDateTime::fromString(value[QStringLiteral("begin")].toString(), Qt::ISODateWithMs);
        const QDateTime end = QDateTime::fromString(value[QStringLiteral("end")].toString(), Qt::ISODateWithMs);
        if (begin < condition.end)
            expected.append(begin.toString(QStringLiteral("HH:mm:ss.zzz ")) +
                            qMin(end, condition.end).toString(QStringLiteral("HH:mm:ss.zzz ")) +
                            QString::number(value[QStringLiteral("alarm")].toBool() ? 1 : 0));
    }
    QStringList found;
    for (const VideoRecording& recording : sdk.answers.first().at(2).value<QList<VideoRecording>>()) {
        found.append(recording.begin.toUTC().toString(QStringLiteral("HH:mm:ss.zzz ")) +
                     recording.end.toUTC().toString(QStringLiteral("HH:mm:ss.zzz ")) + QString::number(recording.type));
        QCOMPARE(recording.replayUri.scheme(), QStringLiteral("rtsp"));
    }
    QVERIFY(expected.size() > 5);
    QCOMPARE(found, expected);
}

void RecorderTest::playsASpanToItsEnd()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    QObject context;
    Delivered delivered;
    consumeAll(&context, delivered);
    QSignalSpy progress(&ClientSignals::instance(), &ClientSignals::signalPlaybackByTimeProgressPush);
    const quint64 streamId = playback_by_time_req(span("08:10:00", "08:12:00"));
    QTRY_COMPARE_WITH_TIMEOUT(sdk.eventsOf(streamId).size(), 3, patienceMs);
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying, StreamEndOfRecording}));
    QVERIFY2(delivered.isSound, "a batch does not end at the end of a packet");
    QVERIFY(delivered.infos >= 1);
    QCOMPARE(delivered.deviceName, QStringLiteral("Front gate"));
    const int sent = framesSent("08:10:00", "08:12:00");
    QVERIFY(sent > 1000);
    QVERIFY2(delivered.videoFrames >= sent,
             qPrintable(QStringLiteral("%1 of %2").arg(delivered.videoFrames).arg(sent)));
    QCOMPARE(delivered.firstNs / 1'000'000'000, at("08:10:00").toSecsSinceEpoch());
    QVERIFY(progress.size() >= 1);
    QCOMPARE(progress.last().at(1).toDateTime().toSecsSinceEpoch() / 10, at("08:11:59").toSecsSinceEpoch() / 10);
}

void RecorderTest::playsTheRestOfAFile()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    RecsSearchCondition search;
    search.requestId = QStringLiteral("search");
    search.devId = devId;
    search.channelNo = 1;
    search.begin = at("08:14:00");
    search.end = at("08:22:00");
    search_video_recordings_req(search);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QString alarmName;
    for (const VideoRecording& recording : sdk.answers.first().at(2).value<QList<VideoRecording>>()) {
        if (recording.type == 1)
            alarmName = recording.fileName; // 08:15 to 08:20
    }
    QVERIFY(!alarmName.isEmpty());
    QObject context;
    Delivered delivered;
    consumeAll(&context, delivered);
    QSignalSpy progress(&ClientSignals::instance(), &ClientSignals::signalPlaybackByFileProgressPush);
    PlaybackByFileCondition condition;
    condition.devId = devId;
    condition.channelNo = 1;
    condition.fileName = alarmName;
    condition.downloadedMs = 240'000;
    condition.downloadFlag = 1;
    const quint64 streamId = playback_by_file_req(condition);
    QTRY_VERIFY_WITH_TIMEOUT(sdk.eventsOf(streamId).contains(StreamEndOfRecording), patienceMs);
    QVERIFY(qAbs(delivered.firstNs / 1'000'000'000 - at("08:19:00").toSecsSinceEpoch()) <= 2);
    QVERIFY(qAbs(delivered.lastNs / 1'000'000'000 - at("08:20:00").toSecsSinceEpoch()) <= 2);
    QCOMPARE(progress.last().at(2).toUInt(), 300'000u);
    QVERIFY(progress.last().at(1).toUInt() > 295'000u);
}

void RecorderTest::holdsTheStreamBackUntilItWasConsumed()
{
    SdkLimits limits = SdkLife::quickLimits();
    limits.streamCreditBytes = 1024 * 1024;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    qint64 received = 0;
    QObject context;
    connect(&ClientSignals::instance(), &ClientSignals::signalStreamData, &context,
            [&](quint64, const QByteArray& batch) { received += batch.size(); });
    const quint64 streamId = playback_by_time_req(span("08:00:00", "08:10:00"));
    QTRY_VERIFY_WITH_TIMEOUT(received >= limits.streamCreditBytes, patienceMs);
    QTest::qWait(500);
    const qint64 held = received;
    QVERIFY2(held < limits.streamCreditBytes + 512 * 1024, qPrintable(QString::number(held)));
    stream_data_consumed(streamId, held);
    QTRY_VERIFY_WITH_TIMEOUT(received >= 2 * limits.streamCreditBytes, patienceMs);
    QTest::qWait(300);
    QVERIFY(received < 2 * limits.streamCreditBytes + 1024 * 1024);
}

void RecorderTest::keepsTheRecordersPaceWithoutTheDownloadFlag()
{
    SdkLimits limits = SdkLife::quickLimits();
    limits.streamCreditBytes = 256 * 1024;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    QObject context;
    Delivered delivered;
    connect(&ClientSignals::instance(), &ClientSignals::signalStreamData, &context,
            [&](quint64, const QByteArray& batch) { delivered.take(batch); }); // nobody reports what was consumed
    PlaybackByTimeCondition condition = span("08:00:00", "08:10:00");
    condition.downloadFlag = 0;
    playback_by_time_req(condition);
    QTRY_VERIFY_WITH_TIMEOUT(delivered.videoFrames > 0, patienceMs);
    QElapsedTimer timer;
    timer.start();
    QTest::qWait(2500);
    const double waited = static_cast<double>(timer.elapsed()) / 1000;
    const double seconds = static_cast<double>(delivered.lastNs - delivered.firstNs) * 1e-9;
    QVERIFY2(seconds > 0.2 && seconds < waited + 4,
             qPrintable(QStringLiteral("%1 s in %2 s").arg(seconds).arg(waited)));
    QVERIFY2(delivered.bytes > limits.streamCreditBytes, "delivered batches do not count as consumed");
}

void RecorderTest::keepsToTheBandwidthLimit()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    constexpr qint64 rate = 4'000'000;
    set_bandwidth_limit(rate);
    QObject context;
    Delivered delivered;
    consumeAll(&context, delivered);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 2; ++i)
        playback_by_time_req(span("08:00:00", "08:14:00"));
    QTest::qWait(3000);
    const double seconds = static_cast<double>(timer.elapsed()) / 1000;
    const double reached = static_cast<double>(delivered.bytes) / seconds;
    QVERIFY2(reached < 1.4 * rate, qPrintable(QString::number(reached)));
    QVERIFY2(reached > 0.1 * rate, qPrintable(QString::number(reached)));
    set_bandwidth_limit(0);
    const qint64 before = delivered.bytes;
    QTRY_VERIFY_WITH_TIMEOUT(delivered.bytes > before + 4 * rate, patienceMs);
}

void RecorderTest::pausesAndGoesOn()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    fault(QStringLiteral("name=rate&value=2000000"));
    QObject context;
    Delivered delivered;
    consumeAll(&context, delivered);
    const quint64 streamId = playback_by_time_req(span("08:10:00", "08:10:20"));
    QTRY_VERIFY_WITH_TIMEOUT(delivered.videoFrames > 20, patienceMs);
    playback_ctrl_req(streamId, PlaybackPause);
    QTest::qWait(700);
    const qint64 paused = delivered.bytes;
    QTest::qWait(500);
    QVERIFY2(delivered.bytes == paused, "it goes on while paused");
    playback_ctrl_req(streamId, PlaybackResume);
    download_speed_set_req(streamId, QStringLiteral("100X"));
    QTRY_VERIFY_WITH_TIMEOUT(sdk.eventsOf(streamId).contains(StreamEndOfRecording), patienceMs);
    QVERIFY(delivered.videoFrames >= framesSent("08:10:00", "08:10:20"));
}

void RecorderTest::tellsHowAStreamEnded_data()
{
    QTest::addColumn<QString>("faultQuery");
    QTest::addColumn<int>("event");

    QTest::newRow("no replay") << "name=no-replay" << int(StreamNoReplayAddress);
    QTest::newRow("limit") << "name=session-limit" << int(StreamLimitReached);
    QTest::newRow("busy") << "name=busy" << int(StreamLimitReached);
    QTest::newRow("not found") << "name=not-found" << int(StreamConnectFailed);
    QTest::newRow("login loop") << "name=auth-loop" << int(StreamLoginRefused);
    QTest::newRow("cut") << "name=drop-after&value=3000000" << int(StreamBroken);
    QTest::newRow("cut in order") << "name=drop-after&value=3000000&name=drop-kind&value=fin" << int(StreamBroken);
    QTest::newRow("stall") << "name=stall-after&value=3000000" << int(StreamBroken);
    QTest::newRow("rubbish") << "name=rubbish" << int(StreamConnectFailed);
}

void RecorderTest::tellsHowAStreamEnded()
{
    QFETCH(QString, faultQuery);
    QFETCH(int, event);
    SdkLimits limits = SdkLife::quickLimits();
    limits.silenceTimeoutMs = 1000;
    SdkLife sdk(limits);
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    fault(faultQuery);
    QObject context;
    Delivered delivered;
    consumeAll(&context, delivered);
    const quint64 streamId = playback_by_time_req(span("08:00:00", "08:14:00"));
    QTRY_VERIFY_WITH_TIMEOUT(sdk.eventsOf(streamId).size() >= (event == StreamBroken ? 3 : 2), patienceMs);
    QVERIFY2(sdk.eventsOf(streamId).last() == event, qPrintable(stream_error(streamId).message));
    QVERIFY(!stream_error(streamId).message.isEmpty());
    QVERIFY(!stream_error(streamId).message.contains(password));
}

void RecorderTest::refusesHostileAnswersAtLogin_data()
{
    QTest::addColumn<QString>("faultQuery");
    QTest::addColumn<ErrorKind>("kind");
    QTest::addColumn<QString>("named");

    QTest::newRow("wrong password") << "name=wrong-password" << ErrorKind::LoginRefused << "user name or password";
    QTest::newRow("401 for ever") << "name=auth-loop" << ErrorKind::LoginRefused << "";
    QTest::newRow("rubbish") << "name=rubbish" << ErrorKind::Corrupt << "does not answer in HTTP";
    QTest::newRow("endless line") << "name=endless-line" << ErrorKind::Corrupt << "longer than 8192";
    QTest::newRow("headers") << "name=many-headers&value=100000" << ErrorKind::Corrupt << "more than 128 headers";
    QTest::newRow("dtd") << "name=xml-bomb&value=dtd" << ErrorKind::Corrupt << "document type definition";
    QTest::newRow("entities") << "name=xml-bomb&value=entities" << ErrorKind::Corrupt << "document type definition";
    QTest::newRow("depth") << "name=xml-bomb&value=depth" << ErrorKind::Corrupt << "";
    QTest::newRow("attributes") << "name=xml-bomb&value=attributes" << ErrorKind::Corrupt << "";
    QTest::newRow("slow") << "name=slow-soap&value=5000" << ErrorKind::TimedOut << "did not answer";
}

void RecorderTest::refusesHostileAnswersAtLogin()
{
    QFETCH(QString, faultQuery);
    QFETCH(ErrorKind, kind);
    QFETCH(QString, named);
    fault(faultQuery);
    SdkLimits limits = SdkLife::quickLimits();
    if (kind == ErrorKind::TimedOut)
        limits.answerTimeoutMs = 500;
    SdkLife sdk(limits);
    const Error error = sdk.logIn(login());
    QVERIFY2(error.kind == kind, qPrintable(error.message));
    QVERIFY2(error.message.contains(named), qPrintable(error.message));
    QVERIFY(!error.message.contains(password) && !error.context.contains(password));
}

void RecorderTest::logsInOverASkewedClock()
{
    fault(QStringLiteral("name=clock-skew&value=5400"));
    SdkLife sdk;
    const Error error = sdk.logIn(login());
    QVERIFY2(!error, qPrintable(error.message));
    QVERIFY(qAbs(dev_info(devId).clockSkewMs - 5'400'000) < 2000);
}

void RecorderTest::isSilentAfterDisconnecting()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    QObject context;
    quint64 streamId = 0;
    int batches = 0;
    connect(&ClientSignals::instance(), &ClientSignals::signalStreamData, &context,
            [&](quint64 id, const QByteArray& batch) {
                stream_data_consumed(id, batch.size());
                if (++batches == 20)
                    disconnect_stream_req(streamId);
            });
    streamId = playback_by_time_req(span("08:00:00", "08:14:00"));
    QTRY_COMPARE_WITH_TIMEOUT(batches, 20, patienceMs);
    QTest::qWait(300);
    QCOMPARE(batches, 20);
    QCOMPARE(sdk.eventsOf(streamId), (QList<int>{StreamConnecting, StreamPlaying}));
}

void RecorderTest::endsWithFiveDownloadsAtFullSpeed()
{
    SdkLife sdk;
    QCOMPARE(sdk.logIn(login()).kind, ErrorKind::None);
    QObject context;
    Delivered delivered;
    consumeAll(&context, delivered);
    for (int i = 0; i < 5; ++i)
        playback_by_time_req(span("00:00:00", "03:00:00"));
    QTRY_VERIFY_WITH_TIMEOUT(delivered.bytes > 50'000'000, patienceMs);
    QElapsedTimer timer;
    timer.start();
    uninit_sdk();
    QVERIFY2(timer.elapsed() < 5000, "ending takes its time");
    const qint64 atTheEnd = delivered.bytes;
    QTest::qWait(100);
    QCOMPARE(delivered.bytes, atTheEnd);
}

QTEST_GUILESS_MAIN(RecorderTest)
#include "RecorderTest.moc"
