#include <pictures/Thumbnails.h>
#include <pictures/ThumbnailStore.h>

#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using vemo_base::PictureFit;
using vemo_base::Thumbnail;
using vemo_base::ThumbnailKey;
using vemo_base::Thumbnails;
using vemo_base::ThumbnailStore;
using Bucket = vemo_base::ThumbnailStore::Bucket;

class ThumbnailsTest final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void followsTheSharedFormat();
    void countsOnlyForTheFileAsItIs_data();
    void countsOnlyForTheFileAsItIs();
    void keepsEachPixel_data();
    void keepsEachPixel();
    void decodesEachFileOnce();
    void bringsTheNewestFirstAndDropsTheWithdrawn();
    void tellsWhatCannotBeRead_data();
    void tellsWhatCannotBeRead();
    void showsTheFirstPictureOfARecording();
    void staysInItsMemory();

private:
    QString picture(const QString& name, const QSize& size = {800, 600}) const;
    Thumbnail waitFor(const ThumbnailKey& key) const;
    static void age(const QString& path, int seconds);

    QTemporaryDir m_dir;
};

void ThumbnailsTest::initTestCase()
{
    qputenv("XDG_CACHE_HOME", m_dir.filePath(QStringLiteral("cache")).toUtf8());
    QVERIFY(ThumbnailStore::defaultRoot().startsWith(m_dir.path()));
}

QString ThumbnailsTest::picture(const QString& name, const QSize& size) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    const QString path = m_dir.filePath(name);
    if (!image.save(path, "jpg"))
        qFatal("cannot save a test image");
    age(path, 3600);
    return path;
}

void ThumbnailsTest::age(const QString& path, int seconds)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) ||
        !file.setFileTime(QDateTime::currentDateTime().addSecs(-seconds), QFileDevice::FileModificationTime))
        qFatal("cannot set a file's time");
}

Thumbnail ThumbnailsTest::waitFor(const ThumbnailKey& key) const
{
    QSignalSpy spy(&Thumbnails::instance(), &Thumbnails::signalThumbnail);
    Thumbnails::instance().request(key);
    while (spy.wait(10'000)) {
        for (const QList<QVariant>& call : qAsConst(spy)) {
            if (call.at(0).value<ThumbnailKey>() == key)
                return call.at(1).value<Thumbnail>();
        }
    }
    return {};
}

void ThumbnailsTest::followsTheSharedFormat()
{
    // The example that the format's own description gives.
    const ThumbnailStore example(QStringLiteral("/r"));
    QCOMPARE(example.filePath(QStringLiteral("/home/jens/photos/me.png"), Bucket::Normal),
             QStringLiteral("/r/normal/c6ee772d9e49320e97ec29a7eb5b1697.png"));
    QCOMPARE(ThumbnailStore::uriOf(QStringLiteral("/a b/S\u00fcd#1;[2]%.jpg")),
             QStringLiteral("file:///a%20b/S%C3%BCd%231%3B%5B2%5D%25.jpg"));

    const QString path = picture(QStringLiteral("Laderampe S\u00fcd (1).jpg"), {4000, 3000});
    QCOMPARE(waitFor({path, {300, 170}, PictureFit::Cover}).image.size(), QSize(300, 170));
    const ThumbnailStore store;
    const QString file = store.filePath(path, Bucket::ExtraLarge);
    const QImage stored(file);
    QCOMPARE(stored.text(QStringLiteral("Thumb::URI")), ThumbnailStore::uriOf(path));
    QCOMPARE(stored.text(QStringLiteral("Thumb::MTime")).toLongLong(),
             QFileInfo(path).lastModified().toSecsSinceEpoch());
    QCOMPARE(stored.text(QStringLiteral("Thumb::Image::Width")), QStringLiteral("4000"));
    QVERIFY(qMax(stored.size().width(), stored.size().height()) <= 512);
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY2(!(QFile::permissions(file) & others), "others may read what the footage shows");
    QVERIFY(!(QFile::permissions(QFileInfo(file).path()) & (others | QFile::ExeGroup | QFile::ExeOther)));
    QVERIFY2(QDir(QFileInfo(file).path()).entryList({QStringLiteral("*.tmp")}).isEmpty(), "a temporary file is left");
}

void ThumbnailsTest::countsOnlyForTheFileAsItIs_data()
{
    QTest::addColumn<int>("laterS");
    QTest::addColumn<int>("moreBytes");
    QTest::addColumn<bool>("found");
    QTest::newRow("the same") << 0 << 0 << true;
    QTest::newRow("of another time") << 1 << 0 << false;
    QTest::newRow("of another size") << 0 << 1 << false;
}

void ThumbnailsTest::countsOnlyForTheFileAsItIs()
{
    QFETCH(int, laterS);
    QFETCH(int, moreBytes);
    QFETCH(bool, found);
    const ThumbnailStore store(m_dir.filePath(QStringLiteral("own")));
    ThumbnailStore::Original original{QStringLiteral("/footage/a.jpg"), 1'700'000'000, 5000};
    QImage image(128, 96, QImage::Format_RGB32);
    image.fill(Qt::yellow);
    QVERIFY(store.store(original, Bucket::Normal, {image, {4000, 3000}}));
    QVERIFY(store.storeFailure(original));
    original.modifiedS += laterS;
    original.bytes += moreBytes;
    const auto entry = store.find(original, Bucket::Normal);
    QCOMPARE(entry.has_value(), found);
    QCOMPARE(store.isKnownFailure(original), found);
    if (entry) {
        QCOMPARE(entry->pictureSize, QSize(4000, 3000));
        store.remove(original.path);
        QVERIFY2(!store.find(original, Bucket::Normal), "the picture of a deleted file is kept");
    }
}

void ThumbnailsTest::keepsEachPixel_data()
{
    QTest::addColumn<QImage::Format>("format");
    QTest::addColumn<QSize>("size");
    QTest::newRow("opaque") << QImage::Format_RGB32 << QSize(127, 95);
    QTest::newRow("with holes") << QImage::Format_ARGB32 << QSize(61, 128);
    QTest::newRow("a row") << QImage::Format_RGB32 << QSize(128, 1);
}

void ThumbnailsTest::keepsEachPixel()
{
    QFETCH(QImage::Format, format);
    QFETCH(QSize, size);
    QImage image(size, format);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgba(x * 2, y * 2, x * y % 256, format == QImage::Format_RGB32 ? 255 : 1 + x * 4));
    }
    const ThumbnailStore store(m_dir.filePath(QStringLiteral("pixels")));
    const ThumbnailStore::Original original{QStringLiteral("/footage/b.jpg"), 1'700'000'000, 5000};
    QVERIFY(store.store(original, Bucket::Normal, {image, {4000, 3000}}));
    const QImage found = store.find(original, Bucket::Normal).value_or(ThumbnailStore::Entry()).image;
    QCOMPARE(found.hasAlphaChannel(), image.hasAlphaChannel());
    QCOMPARE(found.convertToFormat(format), image);
}

void ThumbnailsTest::decodesEachFileOnce()
{
    const QString path = picture(QStringLiteral("once.jpg"), {2000, 1500});
    const ThumbnailKey card{path, {300, 170}, PictureFit::Cover};
    QCOMPARE(waitFor(card).state, Thumbnail::State::Ready);
    QCOMPARE(Thumbnails::instance().find(card).pictureSize, QSize(2000, 1500));

    // What the disk has serves when the file's pixels are no longer there.
    QFile file(path);
    const QDateTime time = QFileInfo(path).lastModified();
    QVERIFY(file.open(QIODevice::ReadWrite) && file.write(QByteArray(64, 'x')) == 64);
    QVERIFY(file.flush() && file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(waitFor({path, {310, 170}, PictureFit::Cover}).state, Thumbnail::State::Ready);

    Thumbnails::instance().forget({path});
    QCOMPARE(Thumbnails::instance().find(card).state, Thumbnail::State::Unknown);
    QTRY_VERIFY(!QFileInfo::exists(ThumbnailStore().filePath(path, Bucket::ExtraLarge)));
    QCOMPARE(waitFor(card).state, Thumbnail::State::Unreadable);
}

void ThumbnailsTest::bringsTheNewestFirstAndDropsTheWithdrawn()
{
    constexpr int count = 40;
    Thumbnails& thumbnails = Thumbnails::instance();
    QSignalSpy spy(&thumbnails, &Thumbnails::signalThumbnail);
    QVector<ThumbnailKey> keys;
    for (int i = 0; i < count; ++i)
        keys.append({picture(QStringLiteral("many%1.jpg").arg(i), {1600, 1200}), {200, 150}, PictureFit::Whole});
    for (const ThumbnailKey& key : qAsConst(keys))
        thumbnails.request(key);
    for (int i = 0; i < count; i += 2)
        thumbnails.withdraw(keys.at(i));
    thumbnails.request(keys.first());
    QTRY_COMPARE_WITH_TIMEOUT(thumbnails.waitingCount(), 0, 30'000);
    for (const int oneOfTheLast : {1, 3, 5})
        QTRY_VERIFY(thumbnails.find(keys.at(oneOfTheLast)).state == Thumbnail::State::Ready);
    const auto orderOf = [&spy](const ThumbnailKey& key) {
        for (int i = 0; i < spy.size(); ++i) {
            if (spy.at(i).at(0).value<ThumbnailKey>() == key)
                return i;
        }
        return -1;
    };
    QVERIFY2(spy.size() < count, "what was withdrawn was decoded nevertheless");
    QVERIFY2(orderOf(keys.last()) < orderOf(keys.at(5)), "the newest has to wait for the oldest");
    QVERIFY2(orderOf(keys.first()) >= 0 && orderOf(keys.first()) < orderOf(keys.at(5)),
             "what was asked for again is not brought to the front");
}

void ThumbnailsTest::tellsWhatCannotBeRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("broken image") << QStringLiteral("broken.jpg") << QByteArray(5000, 'j');
    QTest::newRow("broken recording") << QStringLiteral("broken.mp4") << QByteArray(5000, 'm');
    QTest::newRow("recording without an index")
        << QStringLiteral("growing.mp4")
        << QByteArray::fromHex("00000018667479706d703432000000006d70343269736f6d00ffffff6d646174") +
               QByteArray(900, 'x');
    QTest::newRow("a box that claims 2^63 bytes")
        << QStringLiteral("lying.mp4")
        << QByteArray::fromHex("00000018667479706d703432000000006d70343269736f6d000000016d6f6f767fffffffffffffff");
    QTest::newRow("gone") << QStringLiteral("gone.jpg") << QByteArray();
}

void ThumbnailsTest::tellsWhatCannotBeRead()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const QString path = m_dir.filePath(name);
    if (!bytes.isEmpty()) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QCOMPARE(waitFor({path, {90, 64}, PictureFit::Whole}).state, Thumbnail::State::Unreadable);
    const ThumbnailStore::Original fresh{path, QFileInfo(path).lastModified().toSecsSinceEpoch(), bytes.size()};
    QVERIFY2(!ThumbnailStore().isKnownFailure(fresh), "a file that may still be written is given up for good");
}

void ThumbnailsTest::showsTheFirstPictureOfARecording()
{
    const QString path = m_dir.filePath(QStringLiteral("Gate North@1.mp4"));
    const int made =
        QProcess::execute(QStringLiteral("ffmpeg"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-f"), QStringLiteral("lavfi"),
                           QStringLiteral("-i"), QStringLiteral("color=c=red:s=640x360:d=1"),
                           QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p"), path});
    if (made != 0)
        QSKIP("no ffmpeg here");
    const Thumbnail thumbnail = waitFor({path, {90, 64}, PictureFit::Whole});
    QCOMPARE(thumbnail.state, Thumbnail::State::Ready);
    QCOMPARE(thumbnail.image.size(), QSize(90, 51));
    QCOMPARE(thumbnail.pictureSize, QSize(640, 360));
    const QColor color = thumbnail.image.pixelColor(45, 25);
    QVERIFY2(color.red() > 200 && color.blue() < 60, "the picture has other colours than the recording");
}

void ThumbnailsTest::staysInItsMemory()
{
    const QString path = picture(QStringLiteral("large.jpg"), {3000, 2000});
    for (int edge = 1000; edge < 1030; ++edge)
        QCOMPARE(waitFor({path, {edge, edge}, PictureFit::Whole}).state, Thumbnail::State::Ready);
    QVERIFY(Thumbnails::instance().memoryBytes() <= Thumbnails::memoryLimitBytes);
}

QTEST_MAIN(ThumbnailsTest)
#include "ThumbnailsTest.moc"
