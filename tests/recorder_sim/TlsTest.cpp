#include "onvif/WsDiscovery.h"
#include "RunningSimulator.h"

#include <QProcess>
#include <QSslSocket>
#include <QTemporaryDir>

using namespace recorder_sim;

using TlsTest = RunningSimulator;

TEST_F(TlsTest, servesSoapAndRtspOverTls)
{
    const QTemporaryDir folder;
    const QString certificate = folder.filePath(QStringLiteral("cert.pem"));
    const QString key = folder.filePath(QStringLiteral("key.pem"));
    ASSERT_EQ(QProcess::execute(
                  QStringLiteral("openssl"),
                  {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-newkey"), QStringLiteral("ec"),
                   QStringLiteral("-pkeyopt"), QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes"),
                   QStringLiteral("-subj"), QStringLiteral("/CN=127.0.0.1"), QStringLiteral("-days"),
                   QStringLiteral("2"), QStringLiteral("-keyout"), key, QStringLiteral("-out"), certificate}),
              0);
    Options options;
    options.password = "pw";
    options.channels = 3;
    options.firstDay = QDate(2026, 1, 10);
    options.zone = QTimeZone::utc();
    options.tlsCertificate = certificate.toStdString();
    options.tlsKey = key.toStdString();
    Simulator secure(options);
    ASSERT_TRUE(secure.start()) << secure.error().toStdString();
    const QJsonObject addresses = QJsonDocument::fromJson(secure.addresses()).object();
    const QUrl onvifs(addresses.value(QStringLiteral("onvifs")).toString());
    const QUrl rtsps(addresses.value(QStringLiteral("rtsps")).toString());

    QSslSocket socket;
    socket.setPeerVerifyMode(QSslSocket::VerifyNone);
    socket.connectToHostEncrypted(onvifs.host(), static_cast<quint16>(onvifs.port()));
    ASSERT_TRUE(socket.waitForEncrypted(10'000)) << socket.errorString().toStdString();
    const QByteArray body = "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\"><s:Body>"
                            "<GetServices xmlns=\"http://www.onvif.org/ver10/device/wsdl\"/></s:Body></s:Envelope>";
    socket.write("POST /onvif/device_service HTTP/1.1\r\nHost: 127.0.0.1:5\r\nConnection: close\r\nContent-Length: " +
                 QByteArray::number(body.size()) + "\r\n\r\n" + body);
    while (socket.waitForReadyRead(5000))
        continue;
    EXPECT_TRUE(socket.readAll().contains("<tds:XAddr>https://127.0.0.1:5/onvif/replay_service"));

    QProcess probe;
    const QString url = QStringLiteral("rtsps://admin:pw@127.0.0.1:%1/replay/3?clock=20260110T080000Z-20260110T080010Z")
                            .arg(rtsps.port());
    probe.start(QStringLiteral("ffprobe"),
                {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-rtsp_transport"),
                 QStringLiteral("tcp"), QStringLiteral("-show_entries"), QStringLiteral("stream=codec_name"),
                 QStringLiteral("-of"), QStringLiteral("csv=p=0"), url});
    ASSERT_TRUE(probe.waitForFinished(60'000));
    EXPECT_EQ(probe.readAllStandardOutput().trimmed().toStdString(), "h264\npcm_mulaw")
        << probe.readAllStandardError().toStdString();
}

TEST_F(TlsTest, refusesToStartWithoutUsableCertificate)
{
    Options options;
    options.password = "pw";
    options.tlsCertificate = "/nowhere/cert.pem";
    options.tlsKey = "/nowhere/key.pem";
    Simulator secure(options);
    EXPECT_FALSE(secure.start());
    EXPECT_TRUE(secure.error().contains(QStringLiteral("/nowhere/cert.pem")));
}

TEST(WsDiscovery, answersProbesForRecordersOnly)
{
    const auto probe = [](const QByteArray& types) {
        return QByteArray("<e:Envelope xmlns:e=\"http://www.w3.org/2003/05/soap-envelope\" "
                          "xmlns:w=\"http://schemas.xmlsoap.org/ws/2004/08/addressing\" "
                          "xmlns:d=\"http://schemas.xmlsoap.org/ws/2005/04/discovery\"><e:Header><w:MessageID>uuid:7</"
                          "w:MessageID>"
                          "</e:Header><e:Body><d:Probe><d:Types>") +
               types + "</d:Types></d:Probe></e:Body></e:Envelope>";
    };
    const struct
    {
        QByteArray datagram;
        bool answered;
    } rows[] = {{probe("dn:NetworkVideoTransmitter"), true},
                {probe(""), true},
                {probe("pt:Printer"), false},
                {"rubbish", false},
                {probe("").replace("Probe>", "Hello>"), false}};
    for (const auto& row : rows) {
        const QByteArray answer =
            WsDiscovery::answer(row.datagram, QStringLiteral("urn:uuid:1"), QStringLiteral("http://h/x"));
        EXPECT_EQ(!answer.isEmpty(), row.answered) << row.datagram.constData();
        EXPECT_EQ(answer.contains("<a:RelatesTo>uuid:7<") && answer.contains("<d:XAddrs>http://h/x<"), row.answered);
    }
}
