#include <scan/SnapImageFile.h>
#include <SnapImageWriter.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using VCOMMON::SnapImageFacts;
using VCOMMON::SnapImageFile;
using VCOMMON::SnapImageWriter;

/// The EXIF part is judged by two programs that others wrote, never by our own reader alone.
class SnapImageWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void tellsOtherProgramsTimeChannelAndRecorder_data();
    void tellsOtherProgramsTimeChannelAndRecorder();
    void keepsFilesThatAreThere();
    void saysWhyThereIsNoFile();

private:
    static QImage picture();
    static QByteArray said(const QString& program, const QStringList& arguments);

    QTemporaryDir m_dir;
};

QImage SnapImageWriterTest::picture()
{
    QImage image(640, 360, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QPainter(&image).fillRect(100, 100, 200, 100, Qt::yellow);
    return image;
}

QByteArray SnapImageWriterTest::said(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput() + process.readAllStandardError();
}

void SnapImageWriterTest::tellsOtherProgramsTimeChannelAndRecorder_data()
{
    QTest::addColumn<int>("offsetSeconds");
    QTest::addColumn<QString>("offset");
    QTest::addColumn<QString>("channel");
    QTest::newRow("east") << 3600 << "+01:00"
                          << "Gate North";
    QTest::newRow("west, half an hour, every script") << -12600 << "-03:30" << QString::fromUtf8("Süd/門 \"1\"");
    QTest::newRow("Greenwich, a long name") << 0 << "+00:00" << QString(300, QLatin1Char('x'));
}

void SnapImageWriterTest::tellsOtherProgramsTimeChannelAndRecorder()
{
    QFETCH(const int, offsetSeconds);
    QFETCH(const QString, offset);
    QFETCH(const QString, channel);
    SnapImageFacts facts;
    facts.captureTime = QDateTime({2026, 1, 10}, {8, 12, 47, 120}, Qt::OffsetFromUTC, offsetSeconds);
    facts.channelName = channel;
    facts.devName = QString::fromUtf8("Recorder Ost");
    using Format = SnapImageWriter::Format;
    const QString name = SnapImageWriter::fileName(channel, facts.captureTime, Format::Jpeg);
    const auto written = SnapImageWriter::write(m_dir.filePath(name), picture(), facts, Format::Jpeg);
    QVERIFY2(written.ok(), qPrintable(written.error));
    QVERIFY(QFileInfo(written.path).fileName().endsWith(QLatin1String("@2026-01-10 08_12_47_120.jpg")));

    const SnapImageFile ours = SnapImageFile::read(written.path);
    QCOMPARE(ours.captureTime, facts.captureTime);
    QCOMPARE(ours.channelName, channel);
    QCOMPARE(ours.devName, facts.devName);
    QVERIFY2(ours.problem.isEmpty(), qPrintable(ours.problem));

    if (QStandardPaths::findExecutable(QStringLiteral("exiftool")).isEmpty() ||
        QStandardPaths::findExecutable(QStringLiteral("exiv2")).isEmpty())
        QSKIP("exiftool or exiv2 is missing, so nobody judges the EXIF part");
    const QJsonObject tags =
        QJsonDocument::fromJson(said(QStringLiteral("exiftool"),
                                     {QStringLiteral("-j"), QStringLiteral("-validate"), QStringLiteral("-warning"),
                                      QStringLiteral("-a"), QStringLiteral("-all"), written.path}))
            .array()
            .first()
            .toObject();
    const auto tag = [&tags](const char* key) { return tags.value(QLatin1String(key)).toVariant().toString(); };
    QCOMPARE(tag("Validate"), QStringLiteral("OK"));
    QCOMPARE(tag("SubSecDateTimeOriginal"), QStringLiteral("2026:01:10 08:12:47.120") + offset);
    QCOMPARE(tag("ImageDescription"), channel);
    QCOMPARE(tag("Model"), facts.devName);
    QCOMPARE(tag("ImageSize"), QStringLiteral("640x360"));
    const QByteArray other = said(QStringLiteral("exiv2"), {QStringLiteral("-PEkt"), written.path});
    QVERIFY2(other.contains("Exif.Photo.OffsetTimeOriginal") && other.contains("2026:01:10 08:12:47") &&
                 other.contains(channel.toUtf8()) && !other.contains("Warning") && !other.contains("Error"),
             other.constData());
}

void SnapImageWriterTest::keepsFilesThatAreThere()
{
    const QString path = m_dir.filePath(QStringLiteral("new folder/A@2026-01-10 08_00_00_000.bmp"));
    using Format = SnapImageWriter::Format;
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile abandoned(QFileInfo(path).absolutePath() + QStringLiteral("/.vemo-0123456789abcdef.part")); // by a crash
    QVERIFY(abandoned.open(QIODevice::WriteOnly));
    abandoned.close();
    QCOMPARE(SnapImageWriter::write(path, picture(), {}, Format::Bmp).path, path);
    QFile first(path);
    QVERIFY(first.open(QIODevice::ReadOnly));
    const QByteArray before = first.readAll();
    const auto second = SnapImageWriter::write(path, picture().scaled(64, 36), {}, Format::Bmp);
    QCOMPARE(second.path, m_dir.filePath(QStringLiteral("new folder/A@2026-01-10 08_00_00_000 (2).bmp")));
    QCOMPARE(QImage(second.path).size(), QSize(64, 36));
    first.seek(0);
    QCOMPARE(first.readAll(), before);
    QCOMPARE(QImage(path), picture());
    QCOMPARE(QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

void SnapImageWriterTest::saysWhyThereIsNoFile()
{
    using Format = SnapImageWriter::Format;
    QFile plain(m_dir.filePath(QStringLiteral("plain")));
    QVERIFY(plain.open(QIODevice::WriteOnly));
    const QString below = plain.fileName() + QStringLiteral("/a.jpg");
    const auto noFolder = SnapImageWriter::write(below, picture(), {}, Format::Jpeg);
    QVERIFY(noFolder.path.isEmpty() && noFolder.error.contains(plain.fileName()));
    const QString path = m_dir.filePath(QStringLiteral("none.jpg"));
    const auto noPicture = SnapImageWriter::write(path, {}, {}, Format::Jpeg);
    QVERIFY(!noPicture.ok() && !QFile::exists(path));
}

QTEST_GUILESS_MAIN(SnapImageWriterTest)
#include "SnapImageWriterTest.moc"
