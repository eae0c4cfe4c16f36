#include "Mp4Bytes.h"

#include <RecordingFile.h>
#include <scan/SnapImageFile.h>

#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>

using namespace Mp4Bytes;
using VCOMMON::RecordingFile;
using VCOMMON::SnapImageFile;
using Source = RecordingFile::Source;

namespace {

QDateTime utc(int hour, int minute = 0, int second = 0)
{
    return QDateTime(QDate(2026, 1, 10), QTime(hour, minute, second), Qt::UTC);
}

QByteArray ourTags(const char* begin, const char* end)
{
    return tags(tag("com.vemo.start", begin) + (*end ? tag("com.vemo.end", end) : QByteArray()) +
                tag("com.vemo.channel", "Gate") + tag("com.vemo.recorder", "NVR"));
}

QByteArray data(int bytes = 32)
{
    return box("mdat", QByteArray(bytes, 'x'));
}

QByteArray jpeg(const char* date, bool isWhole)
{
    // IFD0 with a pointer to the EXIF part, which holds the date and its offset from UTC
    QByteArray tiff = "MM" + number(42, 2) + number(8);
    tiff += number(1, 2) + number(0x8769, 2) + number(4, 2) + number(1) + number(26) + number(0);
    tiff += number(2, 2) + number(0x9003, 2) + number(2, 2) + number(20) + number(60);
    tiff += number(0x9011, 2) + number(2, 2) + number(7) + number(80) + number(0);
    tiff = tiff.leftJustified(60, '\0', true) + QByteArray(date).leftJustified(20, '\0', true) + "+00:00" + '\0';
    const QByteArray part = QByteArray("Exif\0\0", 6) + tiff;
    return "\xff\xd8\xff\xe1" + number(quint64(part.size() + 2), 2) + part + "\xff\xda picture" +
           (isWhole ? "\xff\xd9" : "");
}

/// A JPEG with these texts in its EXIF part, in the order of bytes of big or small machines.
QByteArray exif(const QList<QPair<int, QByteArray>>& texts, bool isBig)
{
    const auto in = [isBig](quint64 value, int bytes) {
        QByteArray text = number(value, bytes);
        if (!isBig)
            std::reverse(text.begin(), text.end());
        return text;
    };
    QByteArray tiff = (isBig ? "MM" : "II") + in(42, 2) + in(8, 4);
    tiff += in(1, 2) + in(0x8769, 2) + in(4, 2) + in(1, 4) + in(26, 4) + in(0, 4);
    tiff += in(quint64(texts.size()), 2);
    QByteArray values;
    for (const auto& [id, text] : texts) {
        const QByteArray value = text + '\0';
        tiff += in(quint64(id), 2) + in(2, 2) + in(quint64(value.size()), 4);
        if (value.size() <= 4) {
            tiff += value.leftJustified(4, '\0');
        } else {
            tiff += in(quint64(28 + 12 * texts.size() + 4 + values.size()), 4);
            values += value;
        }
    }
    const QByteArray part = QByteArray("Exif\0\0", 6) + tiff + in(0, 4) + values;
    return "\xff\xd8\xff\xe1" + number(quint64(part.size() + 2), 2) + part + "\xff\xda picture\xff\xd9";
}

} // namespace

/// What files tell of themselves, whoever wrote them.
class RecordingFileTest : public QObject
{
    Q_OBJECT

private slots:
    void tellsTheSpanByTheSurestSource_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("source");
        QTest::addColumn<QDateTime>("begin");
        QTest::addColumn<int>("lengthMs");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<bool>("finished");

        const QByteArray header = fileType() + data() + movie(since1904(utc(9)), 60'000);
        const QString ours = QStringLiteral("Gate@NVR_3@20260110080000~20260110090000@Device.mp4");
        const QDateTime named(QDate(2026, 1, 10), QTime(8, 0));
        const auto row = [](const char* what, const QString& name, const QByteArray& bytes, Source source,
                            const QDateTime& begin, int lengthMs, bool ok, bool finished = false) {
            QTest::newRow(what) << name << bytes << int(source) << begin << lengthMs << ok << finished;
        };
        const QString plain = QStringLiteral("clip.MP4");
        row("our tags", ours,
            fileType() + data() +
                movie(since1904(utc(9)), 60'000, ourTags("2026-01-10T07:00:00.500Z", "2026-01-10T07:10:00Z")),
            Source::Tags, utc(7).addMSecs(500), 599'500, true, true);
        row("our tags in a file that grows", plain,
            fileType() + movie(since1904(utc(7)), 0, ourTags("2026-01-10T07:00:00Z", "")) + fragment(0) +
                fragment(1000),
            Source::Tags, utc(7), 2000, true);
        row("the header", plain, header, Source::Header, utc(9), 60'000, true);
        row("the header of a fragmented file", plain,
            fileType() + movie(since1904(utc(9)), 0) + fragment(5000) + fragment(6000) + fragment(7000), Source::Header,
            utc(9), 3000, true);
        row("fragments cut in the last one's data", plain,
            QByteArray(fileType() + movie(since1904(utc(9)), 0) + fragment(0) + fragment(1000, 64)).chopped(10),
            Source::Header, utc(9), 1000, false);
        row("the name", ours, fileType() + data() + movie(0, 60'000), Source::Name, named, 3'600'000, true);
        row("the name of a broken one", ours, QByteArray("garbage"), Source::Name, named, 3'600'000, false);
        row("nothing: the time of writing", plain, fileType() + data() + movie(0, 60'000), Source::WriteTime,
            utc(11, 59), 60'000, true);
        row("a header that lies", plain, fileType() + data() + movie(0xffffffff, 0xfffffffe), Source::WriteTime, {}, -1,
            true);
        row("no index", plain, fileType() + data(), Source::WriteTime, utc(12), 0, false);
        row("cut in the data", plain, QByteArray(fileType() + data(400)).chopped(100), Source::WriteTime, utc(12), 0,
            false);
        row("an index without a track", plain, fileType() + box("moov", {}), Source::WriteTime, utc(12), 0, false);
        row("a box as long as the disk", plain, fileType() + number(1) + "mdat" + number(~quint64(0) >> 1, 8),
            Source::WriteTime, utc(12), 0, false);
        row("empty", plain, {}, Source::WriteTime, utc(12), 0, false);
        // An index as another program may write it: 64 bits, a track that says nothing, defaults for fragments.
        const QByteArray wide = fileType() + data() +
                                box("moov", box("mvhd", number(1 << 24) + number(since1904(utc(9)), 8) + number(0, 8) +
                                                            number(90000) + number(90000 * 60, 8)) +
                                                box("trak", box("tkhd", number(0))) + track(1 << 24));
        row("64 bits", plain, wide, Source::Header, utc(9), 60'000, true);
        row("an unknown length", plain, fileType() + data() + movie(since1904(utc(9)), ~quint32(0)), Source::Header,
            utc(9), 0, false);
        row("a length of centuries", plain,
            fileType() + data() +
                box("moov",
                    box("mvhd", number(0) + number(since1904(utc(9))) + number(0) + number(1) + number(1u << 31)) +
                        track()),
            Source::Header, utc(9), 0, false);
        row("a header that is cut", plain, fileType() + data() + box("moov", box("mvhd", number(0)) + track()),
            Source::WriteTime, utc(12), 0, false);
        const auto fragmented = [](const QByteArray& head, const QByteArray& run) -> QByteArray {
            return fileType() +
                   movie(since1904(utc(9)), 0,
                         box("mvex", box("trex", number(0) + number(1) + number(1) + number(250)))) +
                   fragment(head, run);
        };
        row("durations told once for all", plain, fragmented(number(0) + number(1), number(0) + number(8)),
            Source::Header, utc(9), 2000, true);
        row("durations told once a fragment", plain,
            fragmented(number(0xb) + number(1) + number(0, 8) + number(1) + number(500),
                       number(5) + number(8) + number(0, 8)),
            Source::Header, utc(9), 4000, true);
        row("samples with all their fields", plain,
            fragmented(number(0) + number(1), number(0xf00) + number(2) + number(700) + number(0, 8) + number(0) +
                                                  number(300) + number(0, 8) + number(0)),
            Source::Header, utc(9), 1000, true);
        row("fewer samples than told", plain,
            fragmented(number(0) + number(1), number(0x100) + number(~0u) + number(700)), Source::Header, utc(9), 700,
            true);
        row("more time than there is", plain, fragmented(number(8) + number(1) + number(~0u), number(0) + number(~0u)),
            Source::Header, utc(9), 0, false);
        row("a fragment of no known track", plain, fragmented(number(0) + number(7), number(0) + number(8)),
            Source::Header, utc(9), 0, false);
        row("half a box behind the data", plain, header + "mo", Source::Header, utc(9), 60'000, false);
        row("half a long box", plain, header + number(1) + "free", Source::Header, utc(9), 60'000, false);
        row("a box without end", plain, header + number(0) + "free", Source::Header, utc(9), 60'000, true);
        row("tags that lie", plain,
            fileType() + data() +
                movie(since1904(utc(9)), 60'000,
                      tags(box("----",
                               box("name", number(0) + "com.vemo.start") + number(9000) + "data" + number(0, 8)))),
            Source::Header, utc(9), 60'000, true);
        row("an end before the begin", plain,
            fileType() + data() + movie(0, 60'000, ourTags("2026-01-10T07:00:00Z", "2026-01-10T06:00:00Z")),
            Source::Tags, utc(7), 60'000, true);
    }

    void tellsTheSpanByTheSurestSource()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QDateTime, begin);
        QFETCH(int, lengthMs);
        const RecordingFile found = RecordingFile::read(write(name, bytes));
        QTEST(int(found.source), "source");
        QTEST(found.problem.isEmpty(), "ok");
        QTEST(found.isFinished(), "finished");
        QCOMPARE(found.bytes, qint64(bytes.size()));
        if (lengthMs < 0)
            return;
        QCOMPARE(found.likelyBegin.toUTC(), begin.toUTC());
        QCOMPARE(found.likelyBegin.msecsTo(found.likelyEnd), qint64(lengthMs));
    }

    void saysWhatItCannotRead()
    {
        const RecordingFile missing = RecordingFile::read(m_dir.filePath(QStringLiteral("Gate.mp4")));
        QCOMPARE(missing.source, Source::Unknown);
        QVERIFY(missing.problem.contains(QLatin1String("not there")));
        QCOMPARE(missing.channelName, QStringLiteral("Gate"));
        QVERIFY(!RecordingFile::read(m_dir.path()).problem.isEmpty());
        QVERIFY(SnapImageFile::read(m_dir.filePath(QStringLiteral("Gate.jpg")))
                    .problem.contains(QLatin1String("can't be read")));
        const QString link = m_dir.filePath(QStringLiteral("link.mp4"));
        QVERIFY(QFile::link(write(QStringLiteral("behind.mp4"), fileType() + data() + movie(since1904(utc(9)), 60'000)),
                            link));
        const RecordingFile linked = RecordingFile::read(link);
        QVERIFY2(linked.problem.contains(QLatin1String("can't be read")), "a link was followed");
        QCOMPARE(linked.likelyBegin.toUTC(), utc(12));
    }

    void tellsWhenAPictureWasTaken_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QDateTime>("time");
        QTest::addColumn<QString>("channel");
        QTest::addColumn<bool>("ok");
        const QDateTime named(QDate(2026, 1, 10), QTime(8, 14, 22, 250));
        const QString player = QStringLiteral("Gate@North@2026-01-10 08_14_22_250 (2).jpg");
        QTest::newRow("EXIF") << player << jpeg("2026:01:10 09:00:00", true) << utc(9) << "Gate@North" << true;
        QTest::newRow("the player's name") << player << jpeg("no time at all", true) << named << "Gate@North" << true;
        QTest::newRow("a saved one's name")
            << "Gate(2026-01-10 08_14_22).jpg" << jpeg("", true) << named.addMSecs(-250) << "Gate" << true;
        QTest::newRow("the time of writing") << "DSC_1.jpg" << jpeg("", true) << utc(12) << "DSC_1" << true;
        QTest::newRow("cut") << player << jpeg("2026:01:10 09:00:00", false) << utc(9) << "Gate@North" << false;
        QTest::newRow("empty") << player << QByteArray() << named << "Gate@North" << false;
        QTest::newRow("PNG") << player << QByteArray("\x89PNG\r\n\x1a\n...IEND....") << named << "Gate@North" << true;
        QTest::newRow("PNG, cut") << player << QByteArray("\x89PNG\r\n\x1a\n...") << named << "Gate@North" << false;
        QTest::newRow("BMP") << player << QByteArray("BM\x08\0\0\0..", 8) << named << "Gate@North" << true;
        QTest::newRow("BMP, cut") << player << QByteArray("BM\x09\0\0\0..", 8) << named << "Gate@North" << false;
        const QDateTime local(QDate(2026, 1, 10), QTime(9, 0));
        QTest::newRow("EXIF, fraction and west")
            << player << exif({{0x9003, "2026:01:10 09:00:00"}, {0x9291, "25"}, {0x9011, "-03:30"}}, true)
            << utc(12, 30).addMSecs(250) << "Gate@North" << true;
        QTest::newRow("EXIF, tenths and no zone")
            << player << exif({{0x9003, "2026:01:10 09:00:00"}, {0x9291, "2"}, {0x9011, "here"}}, true)
            << local.addMSecs(200) << "Gate@North" << true;
        QTest::newRow("EXIF, the other order of bytes")
            << player << exif({{0x9003, "2026:01:10 09:00:00"}, {0x9291, "x"}}, false) << local << "Gate@North" << true;
        QTest::newRow("EXIF behind another part") << player
                                                  << QByteArray("\xff\xd8\xff\xe0" + number(6, 2) + "JFIF" +
                                                                exif({{0x9003, "2026:01:10 09:00:00"}}, true).mid(2))
                                                  << local << "Gate@North" << true;
        QTest::newRow("a part without length")
            << player << QByteArray("\xff\xd8\xff\xe0" + number(1, 2) + "\xff\xd9") << named << "Gate@North" << true;
        QTest::newRow("no picture") << player << QByteArray("text") << named << "Gate@North" << false;
    }

    void tellsWhenAPictureWasTaken()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QDateTime, time);
        const SnapImageFile found = SnapImageFile::read(write(name, bytes));
        QCOMPARE(found.captureTime.toUTC(), time.toUTC());
        QTEST(found.channelName, "channel");
        QTEST(found.problem.isEmpty(), "ok");
    }

private:
    QString write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_dir.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
            !file.setFileTime(utc(12), QFileDevice::FileModificationTime))
            qFatal("no file to test with");
        return file.fileName();
    }

    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(RecordingFileTest)
#include "RecordingFileTest.moc"
