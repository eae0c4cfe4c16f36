#include "onvif/HttpAnswerReader.h"

#include <QTest>

using namespace vms_sdk;
using namespace vms_sdk::onvif;

class HttpAnswerReaderTest final : public QObject
{
    Q_OBJECT

private slots:
    void readsTheSameAtEverySplitPoint_data();
    void readsTheSameAtEverySplitPoint();
    void refusesWhatIsBeyondALimit_data();
    void refusesWhatIsBeyondALimit();
    void keepsLittleOfAnEndlessLine();
    void doesNotReuseAConnectionWithUnaskedBytes();
};

void HttpAnswerReaderTest::readsTheSameAtEverySplitPoint_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isClosedByPeer");
    QTest::addColumn<bool>("keepsConnection");

    QTest::newRow("length") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhello") << false << true;
    QTest::newRow("length, closing") << QByteArray(
                                            "HTTP/1.1 200 OK\r\nConnection: Close\r\nContent-Length: 5\r\n\r\nhello")
                                     << false << false;
    QTest::newRow("http 1.0") << QByteArray("HTTP/1.0 200 OK\r\nContent-Length: 5\r\n\r\nhello") << false << false;
    QTest::newRow("bare newlines") << QByteArray("HTTP/1.1 200 OK\nContent-Length: 5\n\nhello") << false << true;
    QTest::newRow("chunks") << QByteArray("HTTP/1.1 200 OK\r\nTransfer-Encoding: "
                                          "chunked\r\n\r\n2;x=y\r\nhe\r\n3\r\nllo\r\n0\r\nTrailer: 1\r\n\r\n")
                            << false << true;
    QTest::newRow("interim") << QByteArray(
                                    "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhello")
                             << false << true;
    QTest::newRow("folded header")
        << QByteArray("HTTP/1.1 200 OK\r\nServer: a\r\n\tb: c\r\ncontent-length:\r\n 5\r\n\r\nhello") << false << true;
    QTest::newRow("until closed") << QByteArray("HTTP/1.1 200 OK\r\nServer: x\r\n\r\nhello") << true << false;
}

void HttpAnswerReaderTest::readsTheSameAtEverySplitPoint()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isClosedByPeer);
    QFETCH(bool, keepsConnection);
    for (int split = 0; split <= bytes.size(); ++split) {
        HttpAnswerReader reader;
        reader.feed(bytes.left(split));
        HttpAnswerReader::Status status = reader.feed(bytes.mid(split));
        if (isClosedByPeer)
            status = reader.end();
        QVERIFY2(status == HttpAnswerReader::Status::Done, qPrintable(QStringLiteral("split at %1").arg(split)));
        QCOMPARE(reader.answer().status, 200);
        QCOMPARE(reader.answer().body, QByteArray("hello"));
        QCOMPARE(reader.answer().keepsConnection, keepsConnection);
    }
}

void HttpAnswerReaderTest::refusesWhatIsBeyondALimit_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<ErrorKind>("kind");
    QTest::addColumn<QString>("named");

    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    QTest::newRow("long line") << QByteArray(ok + "X: " + QByteArray(9000, 'x') + "\r\n") << ErrorKind::Corrupt
                               << "longer than 8192";
    QTest::newRow("headers") << QByteArray(ok + QByteArray("X: y\r\n").repeated(200)) << ErrorKind::Corrupt
                             << "more than 128 headers";
    QTest::newRow("folded without end") << QByteArray(ok + "X: y\r\n" + QByteArray(" y\r\n").repeated(200))
                                        << ErrorKind::Corrupt << "more than 128 headers";
    QTest::newRow("interim answers") << QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(1000) << ErrorKind::Corrupt
                                     << "more than 128 headers";
    QTest::newRow("trailers") << QByteArray(ok + "Transfer-Encoding: chunked\r\n\r\n0\r\n" +
                                            QByteArray("X: y\r\n").repeated(200))
                              << ErrorKind::Corrupt << "more than 128 headers";
    QTest::newRow("announced body") << QByteArray(ok + "Content-Length: 99999999999\r\n\r\n") << ErrorKind::Corrupt
                                    << "larger than 8388608";
    QTest::newRow("negative body") << QByteArray(ok + "Content-Length: -1\r\n\r\n") << ErrorKind::Corrupt
                                   << "cannot be read";
    QTest::newRow("two lengths") << QByteArray(ok + "Content-Length: 1\r\nContent-Length: 2\r\n\r\n")
                                 << ErrorKind::Corrupt << "cannot be read";
    QTest::newRow("chunk") << QByteArray(ok + "Transfer-Encoding: chunked\r\n\r\n7fffffffffffffff\r\n")
                           << ErrorKind::Corrupt << "larger than 8388608";
    QTest::newRow("chunk sum") << QByteArray(ok + "Transfer-Encoding: chunked\r\n\r\n" +
                                             QByteArray("100000\r\n" + QByteArray(0x100000, 'x') + "\r\n").repeated(9))
                               << ErrorKind::Corrupt << "larger than 8388608";
    QTest::newRow("body until closed") << QByteArray(ok + "\r\n" + QByteArray(8388609, 'x')) << ErrorKind::Corrupt
                                       << "larger than 8388608";
    QTest::newRow("rubbish") << QByteArray("\x16\x03\x01 no http\r\n") << ErrorKind::Corrupt << "not answer in HTTP";
    QTest::newRow("wrong status") << QByteArray("HTTP/1.1 abc\r\n") << ErrorKind::Corrupt << "not answer in HTTP";
    QTest::newRow("cut body") << QByteArray(ok + "Content-Length: 5\r\n\r\nhel") << ErrorKind::BrokenOff
                              << "middle of its answer";
    QTest::newRow("cut head") << ok << ErrorKind::BrokenOff << "middle of its answer";
}

void HttpAnswerReaderTest::refusesWhatIsBeyondALimit()
{
    QFETCH(QByteArray, bytes);
    QFETCH(ErrorKind, kind);
    QFETCH(QString, named);
    HttpAnswerReader reader;
    HttpAnswerReader::Status status = HttpAnswerReader::Status::NeedsMore;
    for (int i = 0; i < bytes.size() && status == HttpAnswerReader::Status::NeedsMore; i += 4096)
        status = reader.feed(bytes.mid(i, 4096));
    if (status == HttpAnswerReader::Status::NeedsMore)
        status = reader.end();
    QVERIFY(status == HttpAnswerReader::Status::Failed);
    QCOMPARE(reader.error().kind, kind);
    QVERIFY2(reader.error().message.contains(named), qPrintable(reader.error().message));
}

void HttpAnswerReaderTest::keepsLittleOfAnEndlessLine()
{
    HttpAnswerReader reader;
    reader.feed("HTTP/1.1 200 OK\r\nX: ");
    int fed = 0;
    while (reader.feed(QByteArray(1000, 'x')) == HttpAnswerReader::Status::NeedsMore)
        ++fed;
    QVERIFY2(fed <= 9, "the line is still read beyond its limit");
}

void HttpAnswerReaderTest::doesNotReuseAConnectionWithUnaskedBytes()
{
    HttpAnswerReader reader;
    reader.feed("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nokHTTP/1.1 200 OK\r\n");
    QCOMPARE(reader.answer().body, QByteArray("ok"));
    QVERIFY(!reader.answer().keepsConnection);
}

QTEST_APPLESS_MAIN(HttpAnswerReaderTest)
#include "HttpAnswerReaderTest.moc"
