#include "SdkLife.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QUuid>

#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

using namespace vms_sdk;

namespace {

const QString devId = QStringLiteral("dev-1");

RecsSearchCondition day(int channelNo = 1)
{
    RecsSearchCondition condition;
    condition.requestId = QUuid::createUuid().toString();
    condition.devId = devId;
    condition.channelNo = channelNo;
    condition.begin = QDateTime(QDate(2026, 1, 10), QTime(0, 0), Qt::UTC);
    condition.end = QDateTime(QDate(2026, 1, 10), QTime(23, 59, 59), Qt::UTC);
    return condition;
}

/// What the process holds in memory; 0 where the system does not tell.
qint64 residentBytes()
{
    constexpr qint64 pageBytes = 4096;
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() * pageBytes : 0;
}

/// "08:00-08:10 08:10-08:20!" in UTC, '!' for type 1.
QString shown(const QList<VideoRecording>& recordings)
{
    QStringList parts;
    for (const VideoRecording& recording : recordings) {
        parts.append(recording.begin.toUTC().toString(QStringLiteral("HH:mm")) + QLatin1Char('-') +
                     recording.end.toUTC().toString(QStringLiteral("HH:mm")) +
                     (recording.type == 1 ? QStringLiteral("!") : QString()));
    }
    return parts.join(QLatin1Char(' '));
}

} // namespace

class RecordingSearchTest final : public QObject
{
    Q_OBJECT

private slots:
    void makesRecordingsOfTheDevicesEvents();
    void findsSomethingWhateverTheDeviceOffers_data();
    void findsSomethingWhateverTheDeviceOffers();
    void goesOnOrTellsWhyNot_data();
    void goesOnOrTellsWhyNot();
    void tellsWhatItCannotSearch_data();
    void tellsWhatItCannotSearch();
    void keepsToItsLimits_data();
    void keepsToItsLimits();
    void staysSmallAndCancelsAtOnceAmongManyDevices();
    void timesOutOnceUnlessRenewed();
    void cancelsAtOnce();
    void answersEachOfManyExactlyOnce();
    void searchesADirectSourceWithoutAsking();
    void logsInAgainWhenTheSessionWasLost();
    void answersRunningSearchesAtLogout();

private:
    static QList<VideoRecording> recordingsOf(const QSignalSpy& spy)
    {
        return spy.last().at(2).value<QList<VideoRecording>>();
    }
    static ErrorKind kindOf(const QSignalSpy& spy) { return static_cast<ErrorKind>(spy.last().at(1).toInt()); }
    static void giveEvents(OnvifFake& device)
    {
        device.events = {
            OnvifFake::trackState("rec-1", "V", "2026-01-10T00:00:00Z", false, true),
            OnvifFake::trackState("rec-1", "V", "2026-01-10T08:00:00Z", true),
            OnvifFake::motion("rec-1", "2026-01-10T08:10:00Z", true),
            OnvifFake::motion("rec-1", "2026-01-10T08:20:00Z", false),
            OnvifFake::trackState("rec-1", "V", "2026-01-10T08:30:00Z", false),
            OnvifFake::trackState("rec-2", "V", "2026-01-10T09:00:00Z", true), // another recording
            OnvifFake::trackState("rec-1", "V", "2026-01-10T23:00:00Z", true),
        };
    }
};

void RecordingSearchTest::makesRecordingsOfTheDevicesEvents()
{
    OnvifFake device;
    giveEvents(device);
    device.flags.toldHost = QStringLiteral("10.9.8.7");
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    const RecsSearchCondition condition = day();
    search_video_recordings_req(condition);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(sdk.answers.last().at(0).toString(), condition.requestId);
    QCOMPARE(kindOf(sdk.answers), ErrorKind::None);
    const QList<VideoRecording> recordings = recordingsOf(sdk.answers);
    QCOMPARE(shown(recordings), QStringLiteral("08:00-08:10 08:10-08:20! 08:20-08:30 23:00-23:59"));
    QCOMPARE(recordings.first().begin.timeSpec(), Qt::LocalTime);
    QCOMPARE(recordings.first().fileName, QStringLiteral("rec-1_20260110T080000000Z_20260110T081000000Z"));
    QCOMPARE(recordings.first().replayUri, QUrl(QStringLiteral("rtsp://127.0.0.1:1/replay/rec-1")));
    QCOMPARE(device.count("EndSearch"), 2);

    // The same again: same names, and the replay address is known.
    search_video_recordings_req(day());
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 2, patienceMs);
    QCOMPARE(recordingsOf(sdk.answers).first().fileName, recordings.first().fileName);
    QCOMPARE(device.count("GetReplayUri"), 1);
}

void RecordingSearchTest::findsSomethingWhateverTheDeviceOffers_data()
{
    QTest::addColumn<bool>("hasEvents");
    QTest::addColumn<bool>("refusesFilters");
    QTest::addColumn<bool>("hasReplay");
    QTest::addColumn<QString>("recordings");

    QTest::newRow("refuses the filter") << true << true << true << "08:00-08:10 08:10-08:20! 08:20-08:30 23:00-23:59";
    QTest::newRow("no event search") << false << false << true << "00:00-23:59";
    QTest::newRow("no replay") << true << false << false << "08:00-08:10 08:10-08:20! 08:20-08:30 23:00-23:59";
}

void RecordingSearchTest::findsSomethingWhateverTheDeviceOffers()
{
    QFETCH(bool, hasEvents);
    QFETCH(bool, refusesFilters);
    QFETCH(bool, hasReplay);
    QFETCH(QString, recordings);
    OnvifFake device;
    giveEvents(device);
    device.flags.hasEvents = hasEvents;
    device.flags.refusesFilters = refusesFilters;
    device.flags.hasReplay = hasReplay;
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(device.address()));
    search_video_recordings_req(day());
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(shown(recordingsOf(sdk.answers)), recordings);
    QCOMPARE(recordingsOf(sdk.answers).first().replayUri.isEmpty(), !hasReplay);
}

void RecordingSearchTest::goesOnOrTellsWhyNot_data()
{
    QTest::addColumn<QByteArray>("answerOf"); // the operation that is answered otherwise
    QTest::addColumn<QByteArray>("pattern");  // a part of that answer and what stands there; none: a fault of that code
    QTest::addColumn<QByteArray>("with");
    QTest::addColumn<ErrorKind>("kind");
    QTest::addColumn<QString>("found");

    const auto row = [](const char* name, const char* answerOf, const char* pattern, const char* with, ErrorKind kind,
                        const char* found = "") {
        QTest::newRow(name) << QByteArray(answerOf) << QByteArray(pattern) << QByteArray(with) << kind
                            << QString::fromLatin1(found);
    };
    const char* const all = "08:00-08:10 08:10-08:20! 08:20-08:30 23:00-23:59";
    const char* const extents = "GetRecordingSearchResults";
    const char* const events = "GetEventSearchResults";
    row("no search of recordings", "FindRecordings", "", "ter:ActionNotSupported", ErrorKind::None, all);
    row("a search of recordings that leads nowhere", "FindRecordings", "find-1", "", ErrorKind::None, all);
    row("extents refused", extents, "", "ter:InvalidToken", ErrorKind::None, all);
    row("login refused for the extents", extents, "", "ter:NotAuthorized", ErrorKind::LoginRefused);
    row("account locked meanwhile", "FindRecordings", "", "ter:AccountLocked", ErrorKind::AccountLocked);
    row("busy with other searches", "FindEvents", "", "ter:ResourceProblem", ErrorKind::LimitReached);
    row("events refused to this person", "FindEvents", "", "ter:NotAuthorized", ErrorKind::LoginRefused);
    row("a search of events that leads nowhere", "FindEvents", "events-1", "", ErrorKind::None, "00:00-23:59");
    row("every filter refused", "FindEvents", "", "ter:InvalidFilterFault", ErrorKind::None, "00:00-23:59");
    row("a search that is forgotten meanwhile", events, "", "ter:InvalidToken", ErrorKind::NotFound);
    row("no results", events, "tse:ResultList", "tse:Other", ErrorKind::Corrupt);
    row("events of other recordings alone", events, "rec-1", "rec-2", ErrorKind::None);
    row("begun later", extents, "2026-01-10T00", "2026-01-11T00", ErrorKind::None);
    row("ended before", extents, "2026-01-12T00:00:00Z", "2026-01-10T00:00:00Z", ErrorKind::None);
    row("ended on that day", extents, "2026-01-12T00", "2026-01-10T08", ErrorKind::None);
    row("being written", extents, "2026-01-12T00:00:00Z(.*)Stopped", "2026-01-10T08:05:00Z\\1Recording",
        ErrorKind::None, all);
}

void RecordingSearchTest::goesOnOrTellsWhyNot()
{
    QFETCH(QByteArray, answerOf);
    QFETCH(QByteArray, pattern);
    QFETCH(QByteArray, with);
    QFETCH(ErrorKind, kind);
    QFETCH(QString, found);
    OnvifFake device;
    giveEvents(device);
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    device.flags.dressXml = [&](const QByteArray& text) {
        if (!text.contains(answerOf + "Response"))
            return text;
        return pattern.isEmpty()
                   ? OnvifFake::fault(with, "No")
                   : QString::fromUtf8(text)
                         .replace(QRegularExpression(QString::fromLatin1(pattern)), QString::fromUtf8(with))
                         .toUtf8();
    };
    const RecsSearchCondition condition = day();
    search_video_recordings_req(condition);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QVERIFY2(kindOf(sdk.answers) == kind, qPrintable(search_error(condition.requestId).message));
    QCOMPARE(shown(recordingsOf(sdk.answers)), found);
}

void RecordingSearchTest::tellsWhatItCannotSearch_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("channelNo");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<ErrorKind>("kind");

    QTest::newRow("unknown device") << "dev-9" << 1 << 3600 << ErrorKind::NotFound;
    QTest::newRow("unknown channel") << devId << 9 << 3600 << ErrorKind::NotFound;
    QTest::newRow("end before begin") << devId << 1 << -1 << ErrorKind::NotFound;
    QTest::newRow("nothing recorded then") << devId << 1 << 60 << ErrorKind::None;
}

void RecordingSearchTest::tellsWhatItCannotSearch()
{
    QFETCH(QString, device);
    QFETCH(int, channelNo);
    QFETCH(int, seconds);
    QFETCH(ErrorKind, kind);
    OnvifFake fake;
    giveEvents(fake);
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(fake.address()));
    RecsSearchCondition condition = day(channelNo);
    condition.devId = device;
    condition.begin = QDateTime(QDate(2026, 1, 9), QTime(12, 0), Qt::UTC);
    condition.end = condition.begin.addSecs(seconds);
    search_video_recordings_req(condition);
    QVERIFY2(sdk.answers.isEmpty(), "answered from inside the request");
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(kindOf(sdk.answers), kind);
    QVERIFY(recordingsOf(sdk.answers).isEmpty());
    QCOMPARE(search_error(condition.requestId).kind, kind);
}

void RecordingSearchTest::keepsToItsLimits_data()
{
    const SdkLimits usual = SdkLife::quickLimits();
    QTest::addColumn<int>("endlessEvents");
    QTest::addColumn<int>("endlessRecordings");
    QTest::addColumn<int>("mostEvents");
    QTest::addColumn<int>("mostRecordings");
    QTest::addColumn<QString>("message"); // none: what was found is answered
    QTest::newRow("events") << 500 << 0 << 3000 << usual.searchRecordings << "3000";
    QTest::newRow("recordings of the day") << 0 << 0 << usual.searchEvents << 3 << "more than 3 recordings";
    QTest::newRow("recordings looked through") << 0 << 500 << 3000 << usual.searchRecordings << "";
}

void RecordingSearchTest::keepsToItsLimits()
{
    QFETCH(int, endlessEvents);
    QFETCH(int, endlessRecordings);
    QFETCH(int, mostEvents);
    QFETCH(int, mostRecordings);
    QFETCH(QString, message);
    OnvifFake device;
    giveEvents(device);
    SdkLimits limits = SdkLife::quickLimits();
    limits.searchEvents = mostEvents;
    limits.searchRecordings = mostRecordings;
    SdkLife sdk(limits);
    sdk.logIn(SdkLife::loginTo(device.address()));
    device.flags.endlessEvents = endlessEvents;
    device.flags.endlessRecordings = endlessRecordings;
    const int before = device.count("GetRecordingSearchResults");
    const RecsSearchCondition condition = day();
    search_video_recordings_req(condition);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(kindOf(sdk.answers), message.isEmpty() ? ErrorKind::None : ErrorKind::Corrupt);
    if (message.isEmpty())
        QVERIFY(shown(recordingsOf(sdk.answers)).startsWith(QStringLiteral("08:00-08:10")));
    else
        QVERIFY(search_error(condition.requestId).message.contains(message));
    QVERIFY(device.count("GetEventSearchResults") <= 7);
    QVERIFY(device.count("GetRecordingSearchResults") - before <= 7);
}

/// G11: each of the devices has pages without end; all are searched at once.
void RecordingSearchTest::staysSmallAndCancelsAtOnceAmongManyDevices()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    constexpr int devices = 40;
#else
    constexpr int devices = 200;
#endif
    [[maybe_unused]] constexpr qint64 roomBytes = 300LL * 1024 * 1024;
    SdkLimits limits = SdkLife::quickLimits();
    limits.requestTimeoutMs = 4 * patienceMs;
    limits.answerTimeoutMs = 4 * patienceMs;
    SdkLife sdk(limits);
    std::vector<std::unique_ptr<OnvifFake>> fakes;
    QStringList ids;
    for (int i = 0; i < devices; ++i) {
        fakes.push_back(std::make_unique<OnvifFake>());
        fakes.back()->flags.endlessEvents = 500;
        login_dev_req(SdkLife::loginTo(fakes.back()->address(), QStringLiteral("dev-%1").arg(i)));
    }
    QTRY_COMPARE_WITH_TIMEOUT(sdk.logins.size(), devices, 4 * patienceMs);
    const qint64 before = residentBytes();
    for (int i = 0; i < devices; ++i) {
        RecsSearchCondition condition = day();
        condition.devId = QStringLiteral("dev-%1").arg(i);
        ids.append(condition.requestId);
        search_video_recordings_req(condition);
    }
    const auto pages = [&fakes] {
        return std::accumulate(fakes.cbegin(), fakes.cend(), 0, [](int sum, const std::unique_ptr<OnvifFake>& fake) {
            return sum + fake->count("GetEventSearchResults");
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(pages() > devices / 2, 4 * patienceMs);
    std::vector<qint64> times;
    for (const QString& id : qAsConst(ids)) {
        const int answered = sdk.answers.size();
        QElapsedTimer timer;
        timer.start();
        cancel_request(id);
        QVERIFY(QTest::qWaitFor([&] { return sdk.answers.size() > answered; }, patienceMs));
        times.push_back(timer.elapsed());
    }
    std::sort(times.begin(), times.end());
    const qint64 grown = residentBytes() - before;
    qInfo("%d pages of %d events, %lld MiB more, cancelled in %lld ms (median), %lld ms (longest)", pages(), 500,
          static_cast<long long>(grown >> 20), static_cast<long long>(times.at(times.size() / 2)),
          static_cast<long long>(times.back()));
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // they keep what was freed
    QVERIFY2(grown < roomBytes, qPrintable(QString::number(grown)));
#endif
    QVERIFY2(times.at(times.size() / 2) < 200, qPrintable(QString::number(times.at(times.size() / 2))));
    QCOMPARE(sdk.answers.size(), devices);
}

void RecordingSearchTest::timesOutOnceUnlessRenewed()
{
    OnvifFake device;
    device.flags.neverCompletes = true;
    SdkLimits limits = SdkLife::quickLimits();
    limits.requestTimeoutMs = 600;
    SdkLife sdk(limits);
    sdk.logIn(SdkLife::loginTo(device.address()));
    const RecsSearchCondition condition = day();
    QElapsedTimer timer;
    timer.start();
    search_video_recordings_req(condition);
    QTest::qWait(400);
    renewal_request_id(condition.requestId);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.timeouts.size(), 1, patienceMs);
    QVERIFY2(timer.elapsed() >= 950, "the renewal did not count");
    QCOMPARE(sdk.timeouts.first().at(0).toString(), condition.requestId);
    QTest::qWait(300);
    QCOMPARE(sdk.timeouts.size() + sdk.answers.size(), 1);
    QCOMPARE(search_error(condition.requestId).kind, ErrorKind::TimedOut);
}

void RecordingSearchTest::cancelsAtOnce()
{
    OnvifFake device;
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(device.address()));
    device.flags.isSilent = true;
    const RecsSearchCondition condition = day();
    search_video_recordings_req(condition);
    QTRY_VERIFY_WITH_TIMEOUT(device.operations.contains("FindRecordings"), patienceMs);
    QElapsedTimer timer;
    timer.start();
    cancel_request(condition.requestId);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QVERIFY2(timer.elapsed() < SdkLife::quickLimits().answerTimeoutMs / 2, "cancelling waits for the device");
    QCOMPARE(kindOf(sdk.answers), ErrorKind::Cancelled);
}

void RecordingSearchTest::answersEachOfManyExactlyOnce()
{
    OnvifFake device;
    giveEvents(device);
    SdkLimits limits = SdkLife::quickLimits();
    limits.requestTimeoutMs = 700;
    SdkLife sdk(limits);
    sdk.logIn(SdkLife::loginTo(device.address()));
    device.flags.neverCompletes = true;
    QStringList ids;
    for (int i = 0; i < 40; ++i) {
        RecsSearchCondition condition = day(1 + i % 3);
        if (i % 10 == 0)
            condition.devId = QStringLiteral("nobody");
        ids.append(condition.requestId);
        search_video_recordings_req(condition);
        search_video_recordings_req(condition); // a request of that id is waiting already
        if (i % 4 == 0)
            cancel_request(condition.requestId);
    }
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size() + sdk.timeouts.size(), ids.size(), patienceMs);
    QTest::qWait(1000);
    QStringList answered;
    for (const QSignalSpy* spy : {&sdk.answers, &sdk.timeouts}) {
        for (const QList<QVariant>& answer : *spy)
            answered.append(answer.at(0).toString());
    }
    answered.sort();
    ids.sort();
    QCOMPARE(answered, ids);
}

void RecordingSearchTest::searchesADirectSourceWithoutAsking()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    SdkLife sdk;
    sdk.logIn(
        SdkLife::loginTo(QUrl(QStringLiteral("rtsp://127.0.0.1:%1/play/{channel}?x=1").arg(server.serverPort()))));
    search_video_recordings_req(day(3));
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(shown(recordingsOf(sdk.answers)), QStringLiteral("00:00-23:59"));
    QCOMPARE(recordingsOf(sdk.answers).first().replayUri,
             QUrl(QStringLiteral("rtsp://127.0.0.1:%1/play/3?x=1").arg(server.serverPort())));
}

void RecordingSearchTest::logsInAgainWhenTheSessionWasLost()
{
    OnvifFake device;
    giveEvents(device);
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(device.address()));
    // The device's clock jumps: the tokens are too old until the clock is read anew.
    device.flags.clockOffsetMs = 3600 * 1000;
    search_video_recordings_req(day());
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(kindOf(sdk.answers), ErrorKind::None);
    QCOMPARE(recordingsOf(sdk.answers).size(), 4);
}

void RecordingSearchTest::answersRunningSearchesAtLogout()
{
    OnvifFake device;
    SdkLife sdk;
    sdk.logIn(SdkLife::loginTo(device.address()));
    device.flags.isSilent = true;
    search_video_recordings_req(day());
    QTRY_VERIFY_WITH_TIMEOUT(device.operations.contains("FindRecordings"), patienceMs);
    logout_dev_req(devId);
    QTRY_COMPARE_WITH_TIMEOUT(sdk.answers.size(), 1, patienceMs);
    QCOMPARE(kindOf(sdk.answers), ErrorKind::Cancelled);
}

QTEST_GUILESS_MAIN(RecordingSearchTest)
#include "RecordingSearchTest.moc"
