#include "devices/CertificateWords.h"
#include "devices/NetworkSearch.h"

#include "TestCertificate.h"

#include <Database.h>
#include <DataFolder.h>
#include <DevsMgrData.h>

#include <QTemporaryDir>
#include <QTest>

using vemo_client::CertificateWords;
using vemo_client::NetworkSearch;
using vemo_data::DevRecord;
using vemo_data::DevsMgrData;
using Standing = NetworkSearch::Standing;

/// Who it is that answers on the network, and what is said of a certificate.
class tst_NetworkSearch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { vemo_data::DataFolder::setRoot(m_folder.path()); }
    void cleanup();
    void cleanupTestCase() { vemo_data::Database::instance().close(); }

    void recognisesKnownRecorders_data();
    void recognisesKnownRecorders();
    void learnsTheEndpointOfAKnownAddress();
    void saysWhatIsWrongWithACertificate_data();
    void saysWhatIsWrongWithACertificate();

private:
    QTemporaryDir m_folder;
};

void tst_NetworkSearch::cleanup()
{
    const QStringList devIds = DevsMgrData::instance().devIds();
    for (const QString& devId : devIds)
        DevsMgrData::instance().removeDev(devId);
}

void tst_NetworkSearch::recognisesKnownRecorders_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("endpoint"); // stored
    QTest::addColumn<QStringList>("answers");
    QTest::addColumn<int>("standing");
    QTest::addColumn<QString>("address");

    const auto row = [](const char* name, const char* stored, const char* endpoint, const char* answers,
                        Standing standing, const char* address) {
        QTest::newRow(name) << QString::fromLatin1(stored) << QString::fromLatin1(endpoint)
                            << QString::fromLatin1(answers).split(QLatin1Char(' ')) << int(standing)
                            << QString::fromLatin1(address);
    };
    row("a stranger", "http://10.0.0.9", "", "http://10.0.0.5/onvif", Standing::New, "http://10.0.0.5/onvif");
    row("at its address", "http://10.0.0.5", "", "http://10.0.0.5:80/onvif", Standing::Known, "");
    row("at its second address", "http://10.0.0.5", "urn:x", "http://10.0.0.6 http://10.0.0.5", Standing::Known, "");
    row("another port is another one", "http://10.0.0.5:8001", "", "http://10.0.0.5:8002", Standing::New,
        "http://10.0.0.5:8002");
    row("asked over TLS, answers without", "https://10.0.0.5:8443", "urn:x", "http://10.0.0.5", Standing::Known, "");
    row("over TLS by another port than any usual one", "https://10.0.0.5:8443", "", "http://10.0.0.5:8001",
        Standing::New, "http://10.0.0.5:8001");
    row("at home over TLS, and known by its name", "https://10.0.0.5:8443", "urn:x", "http://10.0.0.5:8001",
        Standing::Known, "");
    row("a stream of the same host", "rtsp://10.0.0.5/live", "", "http://10.0.0.5", Standing::New, "http://10.0.0.5");
    row("moved", "http://10.0.0.9", "urn:x", "http://10.0.0.5/onvif", Standing::Moved, "http://10.0.0.5/onvif");
    row("moved, but never without TLS", "https://10.0.0.9:8443/onvif", "urn:x", "http://10.0.0.5/onvif",
        Standing::Moved, "https://10.0.0.5:8443/onvif");
    row("moved, TLS offered", "https://10.0.0.9", "urn:x", "http://10.0.0.5 https://10.0.0.5:444/o", Standing::Moved,
        "https://10.0.0.5:444/o");
    row("another recorder took its place", "http://10.0.0.5", "urn:other", "http://10.0.0.5", Standing::New,
        "http://10.0.0.5");
    row("address that is none", "http://10.0.0.9", "", "rtsp://10.0.0.5 http://", Standing::Unknown, "");
    row("address with a login", "http://10.0.0.9", "", "http://a:b@10.0.0.5/", Standing::Unknown, "");
}

void tst_NetworkSearch::recognisesKnownRecorders()
{
    QFETCH(const QString, stored);
    QFETCH(const QString, endpoint);
    QFETCH(const QStringList, answers);
    QFETCH(const int, standing);
    QFETCH(const QString, address);
    DevRecord record;
    record.address = QUrl(stored);
    record.endpoint = endpoint;
    DevsMgrData::instance().addDev(record);
    vms_sdk::DiscoveredDev dev;
    dev.endpoint = QStringLiteral("urn:x");
    for (const QString& answer : answers)
        dev.addresses.append(QUrl(answer));
    const NetworkSearch::Found found = NetworkSearch::judge(dev);
    QCOMPARE(int(found.standing), standing);
    if (!address.isEmpty())
        QCOMPARE(found.address, QUrl(address));
}

void tst_NetworkSearch::learnsTheEndpointOfAKnownAddress()
{
    DevRecord record;
    record.address = QUrl(QStringLiteral("http://10.0.0.5"));
    record.user = QStringLiteral("someone");
    const QString devId = DevsMgrData::instance().addDev(record);
    vms_sdk::DiscoveredDev dev;
    dev.endpoint = QStringLiteral("urn:x");
    dev.addresses = {record.address};
    NetworkSearch::judge(dev);
    QCOMPARE(DevsMgrData::instance().devRecord(devId).endpoint, dev.endpoint);
    QCOMPARE(DevsMgrData::instance().devRecord(devId).user, record.user);
    dev.addresses = {QUrl(QStringLiteral("http://10.0.0.7"))};
    QCOMPARE(int(NetworkSearch::judge(dev).standing), int(Standing::Moved));
}

void tst_NetworkSearch::saysWhatIsWrongWithACertificate_data()
{
    QTest::addColumn<QString>("issuedFor");
    QTest::addColumn<int>("days");
    QTest::addColumn<QString>("host");
    QTest::addColumn<QString>("says"); // of what every certificate of the test has: nobody vouches for it
    QTest::newRow("good name") << "nvr.example" << 2 << "NVR.example"
                               << "";
    QTest::newRow("good address") << "127.0.0.1" << 2 << "127.0.0.1"
                                  << "";
    QTest::newRow("run out") << "nvr.example" << -1 << "nvr.example"
                             << "run out";
    QTest::newRow("other name") << "nvr.example" << 2 << "evil.example"
                                << "not issued for evil.example";
    QTest::newRow("other address") << "10.0.0.5" << 2 << "10.0.0.50"
                                   << "not issued for 10.0.0.50";
    QTest::newRow("wildcard") << "*.example" << 2 << "nvr.example"
                              << "";
    QTest::newRow("wildcard for one label alone") << "*.example" << 2 << "a.b.example"
                                                  << "not issued";
    QTest::newRow("wildcard is no address") << "*.0.0.5" << 2 << "10.0.0.5"
                                            << "not issued";
}

void tst_NetworkSearch::saysWhatIsWrongWithACertificate()
{
    QFETCH(const QString, issuedFor);
    QFETCH(const int, days);
    QFETCH(const QString, host);
    QFETCH(const QString, says);
    const QSslCertificate certificate = TestCertificate::make(issuedFor, days).certificate;
    const QStringList problems = CertificateWords::problems(certificate, host, QDateTime::currentDateTime());
    QCOMPARE(problems.size(), says.isEmpty() ? 1 : 2);
    if (!says.isEmpty())
        QVERIFY2(problems.first().contains(says), qPrintable(problems.first()));
    QVERIFY(!CertificateWords::facts(certificate).isEmpty());
    QVERIFY(CertificateWords::facts(QSslCertificate()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_NetworkSearch)
#include "tst_NetworkSearch.moc"
