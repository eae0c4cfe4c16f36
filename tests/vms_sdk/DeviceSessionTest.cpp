#include "SdkLife.h"
#include "TestCertificate.h"

#include <QElapsedTimer>

#include <functional>

using namespace vms_sdk;

using Misbehave = std::function<void(OnvifFake&)>;
Q_DECLARE_METATYPE(Misbehave)
using Dress = std::function<QByteArray(const QByteArray&)>;
Q_DECLARE_METATYPE(Dress)

class DeviceSessionTest final : public QObject
{
    Q_OBJECT

private slots:
    void tellsWhoTheDeviceIsAndItsChannels();
    void keepsFailuresApart_data();
    void keepsFailuresApart();
    void tellsAPeerThatIsNoRecorder_data();
    void tellsAPeerThatIsNoRecorder();
    void asksCapabilitiesWhereThereIsNoServiceList();
    void findsChannelsWhateverTheDeviceLists_data();
    void findsChannelsWhateverTheDeviceLists();
    void tellsAnAddressThatIsNone();
    void staysOnTheHostThatWasReached();
    void refusesAnUnknownCertificateAndShowsIt();
    void answersEveryLoginOnceWhenTheyCrowd();
    void forgetsALoggedOutDevice();
    void logsInAgainAfterThePasswordWasCorrected();
    void knowsADirectSourceAsSoonAsItsPortAnswers();
    void endsInTimeWithLoginsUnderWay();
};

void DeviceSessionTest::tellsWhoTheDeviceIsAndItsChannels()
{
    OnvifFake device;
    device.flags.clockOffsetMs = -3 * 3600 * 1000;
    SdkLife sdk;
    QThread* deliveredOn = nullptr;
    connect(&ClientSignals::instance(), &ClientSignals::signalDevInfoPush, this,
            [&] { deliveredOn = QThread::currentThread(); });
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    QCOMPARE(dev_status(QStringLiteral("dev-1")), DevStatus::Online);
    QCOMPARE(deliveredOn, qApp->thread());
    const DevInfo info = dev_info(QStringLiteral("dev-1"));
    QCOMPARE(info.name, QStringLiteral("Front gate"));
    QCOMPARE(info.model, QStringLiteral("Four Channels"));
    QVERIFY(info.supportsBackup);
    QVERIFY2(qAbs(info.clockSkewMs - device.flags.clockOffsetMs) < 1500, "the clock's skew is wrong");
    QCOMPARE(info.channels.size(), 2);
    QCOMPARE(info.channels.at(1).channelNo, 2);
    QCOMPARE(info.channels.at(1).name, QStringLiteral("Gate 2"));
    QCOMPARE(info.channels.at(1).recordingToken, QStringLiteral("rec-2"));
    QCOMPARE(info.channels.at(0).profileToken, QStringLiteral("prof-1"));
    QCOMPARE(info.channels.at(0).subProfileToken, QStringLiteral("prof-1b"));
    QCOMPARE(info.channels.at(1).profileToken, QString());
    QCOMPARE(info.endpoint, QStringLiteral("abcd-42"));
    disconnect(&ClientSignals::instance(), nullptr, this, nullptr);
}

void DeviceSessionTest::keepsFailuresApart_data()
{
    QTest::addColumn<Misbehave>("misbehave");
    QTest::addColumn<ErrorKind>("kind");
    QTest::addColumn<DevStatus>("status");

    QTest::newRow("wrong password") << Misbehave([](OnvifFake& d) { d.flags.password = QStringLiteral("x"); })
                                    << ErrorKind::LoginRefused << DevStatus::WrongLogin;
    QTest::newRow("endless 401") << Misbehave([](OnvifFake& d) {
        d.flags.httpChallenge = "Digest realm=\"r\", nonce=\"n\", stale=true";
        d.flags.refusesForEver = true;
    }) << ErrorKind::LoginRefused << DevStatus::WrongLogin;
    QTest::newRow("locked") << Misbehave([](OnvifFake& d) { d.flags.isLocked = true; }) << ErrorKind::AccountLocked
                            << DevStatus::Locked;
    QTest::newRow("not activated") << Misbehave([](OnvifFake& d) {
        d.flags.dressXml = [](const QByteArray&) { return OnvifFake::fault("ter:NotActivated", "No password yet"); };
    }) << ErrorKind::NotActivated << DevStatus::NotActive;
    QTest::newRow("not there") << Misbehave([](OnvifFake& d) { d.close(); }) << ErrorKind::Unreachable
                               << DevStatus::Offline;
    QTest::newRow("silent") << Misbehave([](OnvifFake& d) { d.flags.isSilent = true; }) << ErrorKind::TimedOut
                            << DevStatus::Offline;
    QTest::newRow("busy") << Misbehave([](OnvifFake& d) {
        d.flags.rawAnswer = "HTTP/1.1 503 X\r\nContent-Length: 0\r\n\r\n";
    }) << ErrorKind::LimitReached
                          << DevStatus::ConnectionLimit;
    QTest::newRow("redirects for ever") << Misbehave([](OnvifFake& d) { d.flags.redirects = 1000; })
                                        << ErrorKind::Corrupt << DevStatus::Unknown;
}

void DeviceSessionTest::keepsFailuresApart()
{
    QFETCH(Misbehave, misbehave);
    QFETCH(ErrorKind, kind);
    QFETCH(DevStatus, status);
    OnvifFake device;
    const QUrl address = device.address();
    misbehave(device);
    SdkLimits limits = SdkLife::quickLimits();
    if (kind == ErrorKind::TimedOut)
        limits.answerTimeoutMs = 500;
    SdkLife sdk(limits);
    const Error error = sdk.logIn(SdkLife::loginTo(address));
    QVERIFY2(error.kind == kind, qPrintable(error.message));
    QVERIFY(error.message.endsWith(QLatin1Char('.')));
    QCOMPARE(sdk.lastStatus(), status);
    QCOMPARE(sdk.infos.size(), 0);
}

void DeviceSessionTest::tellsAPeerThatIsNoRecorder_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<qint64>("endlessBytes");
    QTest::addColumn<QString>("named");

    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray dtd = "<!DOCTYPE a [<!ENTITY b \"c\">]><a>&b;</a>";
    QTest::newRow("web page") << QByteArray(ok + "Content-Length: 13\r\n\r\n<html></html>") << qint64(0)
                              << "cannot be read";
    QTest::newRow("dtd") << QByteArray(ok + "Content-Length: " + QByteArray::number(dtd.size()) + "\r\n\r\n" + dtd)
                         << qint64(0) << "document type definition";
    QTest::newRow("endless line") << QByteArray(ok + "X: ") << qint64(16 << 20) << "longer than 8192";
    QTest::newRow("huge body") << QByteArray(ok + "Content-Length: 9000000\r\n\r\n") << qint64(0)
                               << "larger than 8388608";
    QTest::newRow("ssh") << QByteArray("SSH-2.0-OpenSSH\r\n") << qint64(0) << "does not answer in HTTP";
}

void DeviceSessionTest::tellsAPeerThatIsNoRecorder()
{
    QFETCH(QByteArray, answer);
    QFETCH(qint64, endlessBytes);
    QFETCH(QString, named);
    OnvifFake device;
    device.flags.rawAnswer = answer;
    device.flags.endlessBytes = endlessBytes;
    SdkLife sdk;
    const Error error = sdk.logIn(SdkLife::loginTo(device.address()));
    QCOMPARE(error.kind, ErrorKind::Corrupt);
    QVERIFY2(error.message.contains(named), qPrintable(error.message));
}

void DeviceSessionTest::asksCapabilitiesWhereThereIsNoServiceList()
{
    OnvifFake device;
    device.flags.hasGetServices = false;
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    QVERIFY(dev_info(QStringLiteral("dev-1")).supportsBackup);
    QCOMPARE(dev_info(QStringLiteral("dev-1")).channels.size(), 2);
}

void DeviceSessionTest::findsChannelsWhateverTheDeviceLists_data()
{
    QTest::addColumn<QStringList>("listed"); // recordings that the device lists without being searched
    QTest::addColumn<Dress>("dress");
    QTest::addColumn<QStringList>("found"); // name, recording and profile of each channel

    const auto row = [](const char* name, const QStringList& listed, const QStringList& found, const Dress& dress) {
        QTest::newRow(name) << listed << dress << found;
    };
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    const auto of = [](const QByteArray& answer, const char* operation) {
        return answer.contains(QByteArray(operation) + "Response");
    };
    const QStringList one{text("rec-1")};
    const QStringList searched{text("Channel 1|rec-1|prof-1")};
    row("found by a search", {}, searched, [](const QByteArray& answer) { return answer; });
    row("a search that takes its time and does not wait", {}, searched,
        [of, time = QElapsedTimer()](const QByteArray& answer) mutable {
            if (!of(answer, "GetRecordingSearchResults"))
                return answer;
            if (!time.isValid())
                time.start();
            return time.elapsed() > 1500
                       ? answer
                       : OnvifFake::envelope("<tse:GetRecordingSearchResultsResponse><tse:ResultList>"
                                             "<tt:SearchState>Searching</tt:SearchState>"
                                             "</tse:ResultList></tse:GetRecordingSearchResultsResponse>");
        });
    row("a search that begins anew on each page", {}, searched, [of, pages = 0](QByteArray answer) mutable {
        const bool isEarly = of(answer, "GetRecordingSearchResults") && ++pages < 3;
        return isEarly ? answer.replace("Completed", "Searching") : answer;
    });
    row("a recording that is listed twice", {text("rec-1"), text("rec-1"), text("rec-2")},
        {text("Gate 1|rec-1|prof-1"), text("Gate 3|rec-2|")}, [](const QByteArray& answer) { return answer; });
    row("no recordings, but cameras", {}, {text("Channel 1||prof-1")}, [of](const QByteArray& answer) {
        return of(answer, "FindRecordings") ? OnvifFake::fault("ter:ActionNotSupported", "No") : answer;
    });
    row("sources named by their addresses", one, {text("Gate 1|rec-1|prof-1")},
        [](QByteArray answer) { return answer.replace("SourceId>src-", "SourceId>http://10.0.0."); });
    row("no media service", one, {text("Gate 1|rec-1|")},
        [](QByteArray answer) { return answer.replace("ver10/media/wsdl</", "ver99/media/wsdl</"); });
    row("a media service that answers nonsense", one, {text("Gate 1|rec-1|")}, [of](const QByteArray& answer) {
        return of(answer, "GetProfiles") || of(answer, "GetVideoSources") ? QByteArray("<html/>") : answer;
    });
}

void DeviceSessionTest::findsChannelsWhateverTheDeviceLists()
{
    QFETCH(QStringList, listed);
    QFETCH(Dress, dress);
    QFETCH(QStringList, found);
    OnvifFake device;
    device.recordingTokens = listed;
    device.flags.dressXml = dress;
    SdkLife sdk;
    DevLogin login = SdkLife::loginTo(device.address());
    login.name.clear();
    QCOMPARE(sdk.logIn(login).message, QString());
    const DevInfo info = dev_info(QStringLiteral("dev-1"));
    QCOMPARE(info.name, QStringLiteral("Four Channels")); // the model, where the person gave no name
    QStringList channels;
    for (const ChannelInfo& channel : info.channels)
        channels.append(channel.name + QLatin1Char('|') + channel.recordingToken + QLatin1Char('|') +
                        channel.profileToken);
    QCOMPARE(channels, found);
    QVERIFY2(device.count("GetRecordingSearchResults") <= 20, "asked again and again without a pause");
}

void DeviceSessionTest::tellsAnAddressThatIsNone()
{
    SdkLife sdk;
    const Error error = sdk.logIn(SdkLife::loginTo(QUrl(QStringLiteral("ftp://127.0.0.1/onvif"))));
    QCOMPARE(error.kind, ErrorKind::Unsupported);
    QVERIFY2(error.message.contains(QStringLiteral("must begin with")), qPrintable(error.message));
}

void DeviceSessionTest::staysOnTheHostThatWasReached()
{
    OnvifFake device;
    device.flags.toldHost = QStringLiteral("10.9.8.7");
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    QCOMPARE(device.count("GetRecordings"), 1);
}

void DeviceSessionTest::refusesAnUnknownCertificateAndShowsIt()
{
    const TestCertificate certificate = TestCertificate::make(QStringLiteral("127.0.0.1"));
    OnvifFake device;
    device.useTls(certificate.serverConfiguration());
    SdkLife sdk;
    DevLogin login = SdkLife::loginTo(device.address());
    QCOMPARE(sdk.logIn(login).kind, ErrorKind::CertificateRefused);
    QCOMPARE(device.requests.size(), 0);
    QVERIFY(!sdk.certificates.isEmpty());
    // The person saw the fingerprint and accepts it.
    login.tls.pinnedKeySha256 = sdk.certificates.last().at(2).toByteArray();
    QCOMPARE(sdk.logIn(login).kind, ErrorKind::None);
    login.tls.pinnedKeySha256 = QByteArray(32, 'x');
    const int requests = device.requests.size();
    QCOMPARE(sdk.logIn(login).kind, ErrorKind::CertificateRefused);
    QCOMPARE(device.requests.size(), requests);
}

void DeviceSessionTest::answersEveryLoginOnceWhenTheyCrowd()
{
    OnvifFake device;
    SdkLife sdk;
    for (int i = 0; i < 5; ++i)
        login_dev_req(SdkLife::loginTo(device.address()));
    QTRY_COMPARE_WITH_TIMEOUT(sdk.logins.size(), 5, patienceMs);
    QCOMPARE(device.count("GetDeviceInformation"), 1);
}

void DeviceSessionTest::forgetsALoggedOutDevice()
{
    OnvifFake device;
    SdkLife sdk;
    login_dev_req(SdkLife::loginTo(device.address()));
    logout_dev_req(QStringLiteral("dev-1"));
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address(), QStringLiteral("dev-2"))).kind, ErrorKind::None);
    QCOMPARE(sdk.logins.size(), 1);
    QCOMPARE(dev_status(QStringLiteral("dev-1")), DevStatus::Unknown);
    QCOMPARE(dev_info(QStringLiteral("dev-1")).devId, QString());
}

void DeviceSessionTest::logsInAgainAfterThePasswordWasCorrected()
{
    OnvifFake device;
    SdkLife sdk;
    DevLogin login = SdkLife::loginTo(device.address());
    login.password = QStringLiteral("wrong");
    QCOMPARE(sdk.logIn(login).kind, ErrorKind::LoginRefused);
    QCOMPARE(sdk.logIn(SdkLife::loginTo(device.address())).kind, ErrorKind::None);
    QCOMPARE(dev_status(QStringLiteral("dev-1")), DevStatus::Online);
}

void DeviceSessionTest::knowsADirectSourceAsSoonAsItsPortAnswers()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QUrl address(QStringLiteral("rtsp://127.0.0.1:%1/replay/{channel}").arg(server.serverPort()));
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(address)).kind, ErrorKind::None);
    QVERIFY(dev_info(QStringLiteral("dev-1")).supportsBackup);
    server.close();
    QCOMPARE(sdk.logIn(SdkLife::loginTo(address)).kind, ErrorKind::Unreachable);
    QCOMPARE(sdk.lastStatus(), DevStatus::Offline);
}

void DeviceSessionTest::endsInTimeWithLoginsUnderWay()
{
    OnvifFake device;
    device.flags.isSilent = true;
    QElapsedTimer timer;
    {
        SdkLife sdk;
        for (int i = 0; i < 50; ++i)
            login_dev_req(SdkLife::loginTo(device.address(), QString::number(i)));
        QTRY_VERIFY_WITH_TIMEOUT(device.requests.size() > 10, patienceMs);
        timer.start();
        uninit_sdk();
        QVERIFY2(timer.elapsed() < 5000, "ending waits for devices");
        QTest::qWait(50);
        QVERIFY2(sdk.logins.isEmpty(), "a signal came after the end");
    }
    // And it can live again.
    OnvifFake other;
    SdkLife sdk;
    QCOMPARE(sdk.logIn(SdkLife::loginTo(other.address())).kind, ErrorKind::None);
}

QTEST_GUILESS_MAIN(DeviceSessionTest)
#include "DeviceSessionTest.moc"
