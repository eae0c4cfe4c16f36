#include <pictures/PictureFile.h>

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using vemo_base::Picture;
using vemo_base::PictureFile;
using vemo_base::PictureFit;

class PictureFileTest final : public QObject
{
    Q_OBJECT

private slots:
    void scalesToTheBox_data();
    void scalesToTheBox();
    void refusesHostileFiles_data();
    void refusesHostileFiles();
    void neverWaitsForAPipe();
    void turnsPicturesUpright();

private:
    QString write(const QString& name, const QByteArray& bytes) const;
    QString saved(const QString& name, const QSize& size, const char* format) const;

    QTemporaryDir m_dir;
};

QString PictureFileTest::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(m_dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write a test file");
    return file.fileName();
}

QString PictureFileTest::saved(const QString& name, const QSize& size, const char* format) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    const QString path = m_dir.filePath(name);
    if (!image.save(path, format))
        qFatal("cannot save a test image");
    return path;
}

void PictureFileTest::scalesToTheBox_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("box");
    QTest::addColumn<bool>("covers");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("wide into a box") << QSize(4000, 3000) << QSize(256, 256) << false << QSize(256, 192);
    QTest::newRow("odd edges") << QSize(4001, 2999) << QSize(128, 128) << false << QSize(128, 96);
    QTest::newRow("wide fills a card") << QSize(1920, 1080) << QSize(300, 170) << true << QSize(300, 170);
    QTest::newRow("tall fills a card") << QSize(1080, 1920) << QSize(300, 170) << true << QSize(300, 170);
    QTest::newRow("small stays small") << QSize(60, 40) << QSize(300, 170) << true << QSize(60, 40);
    QTest::newRow("low and wide is cut") << QSize(600, 100) << QSize(300, 170) << true << QSize(300, 100);
    QTest::newRow("a line keeps a pixel") << QSize(1, 6000) << QSize(128, 128) << false << QSize(1, 128);
}

void PictureFileTest::scalesToTheBox()
{
    QFETCH(QSize, size);
    QFETCH(QSize, box);
    QFETCH(bool, covers);
    QFETCH(QSize, expected);
    for (const char* format : {"jpg", "png", "bmp"}) {
        const QString path = saved(QStringLiteral("scaled"), size, format); // the name says nothing of the kind
        const Picture picture = PictureFile::readScaled(path, box, covers ? PictureFit::Cover : PictureFit::Whole);
        QVERIFY2(picture.error.isEmpty(), qPrintable(picture.error));
        QCOMPARE(picture.image.size(), expected);
        QCOMPARE(picture.size, size);
        QVERIFY2(qAbs(picture.image.pixelColor(0, 0).green() - QColor(Qt::darkCyan).green()) < 4, format);
    }
}

void PictureFileTest::refusesHostileFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto number = [](quint32 value, bool isLittle) {
        QByteArray bytes;
        for (int shift = 0; shift < 32; shift += 8)
            isLittle ? bytes.append(char(value >> shift)) : bytes.prepend(char(value >> shift));
        return bytes;
    };
    const auto png = [number](quint32 width, quint32 height) -> QByteArray {
        const QByteArray header = QByteArrayLiteral("IHDR") + number(width, false) + number(height, false) +
                                  QByteArray::fromHex("0802000000");
        quint32 crc = 0xffffffff;
        for (const char byte : header) {
            crc ^= static_cast<uchar>(byte);
            for (int bit = 0; bit < 8; ++bit)
                crc = (crc >> 1) ^ (crc & 1 ? 0xedb88320 : 0);
        }
        return QByteArray::fromHex("89504e470d0a1a0a0000000d") + header + number(~crc, false);
    };
    const auto bmp = [number](qint32 width, qint32 height) -> QByteArray {
        return QByteArray::fromHex("424d0000000000000000") + number(54, true) + number(40, true) +
               number(quint32(width), true) + number(quint32(height), true) + QByteArray::fromHex("01001800") +
               QByteArray(24, '\0');
    };
    const auto jpegHead = [number](quint32 width, quint32 height) -> QByteArray {
        return QByteArray::fromHex("ffd8ffc0001108") + number(height, false).mid(2) + number(width, false).mid(2) +
               QByteArray::fromHex("03012200021101031101ffda000c03010002110311003f00");
    };
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("not a picture at all, but long enough to look at");
    QTest::newRow("a magic number alone") << QByteArray::fromHex("89504e470d0a1a0a");
    QTest::newRow("PNG of 4 gigapixels") << png(65000, 65000);
    QTest::newRow("PNG with edges of 2^31") << png(0x7fffffff, 0x7fffffff);
    QTest::newRow("PNG 1 x 100000") << png(1, 100000);
    QTest::newRow("PNG without pixels") << png(64, 64);
    QTest::newRow("BMP of 4 gigapixels") << bmp(65000, 65000);
    QTest::newRow("BMP of negative size") << bmp(-100, 0x40000000);
    QTest::newRow("JPEG of 4 gigapixels") << jpegHead(65000, 65000);
    QTest::newRow("SVG") << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
}

void PictureFileTest::refusesHostileFiles()
{
    QFETCH(QByteArray, bytes);
    const QString path = write(QStringLiteral("hostile.jpg"), bytes);
    QElapsedTimer watch;
    watch.start();
    for (const Picture& picture :
         {PictureFile::readScaled(path, {256, 256}, PictureFit::Cover), PictureFile::read(path, 1'000'000)}) {
        QVERIFY2(picture.image.isNull(), "a picture came out of what is none");
        QVERIFY2(!picture.error.isEmpty(), "the person is not told why there is no picture");
    }
    QVERIFY2(watch.elapsed() < 2000, "a hostile file kept the reader busy");
}

void PictureFileTest::neverWaitsForAPipe()
{
#if defined(Q_OS_UNIX)
    const QString pipe = m_dir.filePath(QStringLiteral("pipe.jpg"));
    QCOMPARE(QProcess::execute(QStringLiteral("mkfifo"), {pipe}), 0);
    for (const QString& path : {pipe, QStringLiteral("/dev/zero"), m_dir.path()})
        QVERIFY(PictureFile::read(path, 1'000'000).image.isNull());
#else
    QSKIP("pipes have no names here");
#endif
}

void PictureFileTest::turnsPicturesUpright()
{
    QImage image(400, 200, QImage::Format_RGB32);
    image.fill(Qt::red);
    QPainter(&image).fillRect(0, 0, 200, 200, Qt::blue);
    QBuffer buffer;
    QVERIFY(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "jpg"));
    // An EXIF block that says: turn by 90 degrees clockwise to be upright.
    const QByteArray exif = QByteArray::fromHex("ffe10022457869660000"
                                                "49492a0008000000"
                                                "01001201030001000000060000000000"
                                                "0000");
    const QByteArray bytes = buffer.data().left(2) + exif + buffer.data().mid(2);
    const Picture picture =
        PictureFile::readScaled(write(QStringLiteral("turned.jpg"), bytes), {50, 50}, PictureFit::Whole);
    QCOMPARE(picture.size, QSize(200, 400));
    QCOMPARE(picture.image.size(), QSize(25, 50));
    QVERIFY2(picture.image.pixelColor(12, 5).blue() > 200, "its left half should stand on top");
}

QTEST_GUILESS_MAIN(PictureFileTest)
#include "PictureFileTest.moc"
