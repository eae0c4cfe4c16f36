#include "video/PlaybackClock.h"
#include "video/StreamDecoder.h"

#include <ClipSource.h>

#include <QDir>
#include <QSignalSpy>
#include <QtTest>

using vemo_client::PlaybackClock;
using vemo_client::StreamDecoder;
using vemo_client::VideoFormat;

namespace {

constexpr qint64 nsPerS = 1'000'000'000;
constexpr int patienceMs = 20'000;

std::string clip(const QString& name, double seconds, const QString& arguments)
{
    QDir().mkpath(QStringLiteral(CLIP_FOLDER));
    const QString path = QStringLiteral(CLIP_FOLDER "/") + name;
    ClipSource::makeClip(path.toStdString(), seconds, arguments.toStdString());
    return path.toStdString();
}

ClipSource h264(int width = 640, int height = 360, const QString& color = QStringLiteral("red"))
{
    return ClipSource(
        clip(QStringLiteral("h264_%1x%2_%3.mp4").arg(width).arg(height).arg(color), 2,
             QStringLiteral("-an -vf drawbox=c=%3:t=fill,scale=%1:%2 -c:v libx264 -g 25 -bf 2 -pix_fmt yuv420p")
                 .arg(width)
                 .arg(height)
                 .arg(color)));
}

QByteArray bytes(const std::vector<std::uint8_t>& packet)
{
    return {reinterpret_cast<const char*>(packet.data()), static_cast<int>(packet.size())};
}

/// A decoder and what it told.
struct Run
{
    StreamDecoder decoder;
    QSignalSpy pictures{&decoder, &StreamDecoder::signalPicture};
    QSignalSpy problems{&decoder, &StreamDecoder::signalProblem};
    QVector<qint64> times;
    qint64 pushed = 0;
    qint64 consumed = 0;

    Run()
    {
        decoder.setTargetSize({320, 320});
        QObject::connect(&decoder, &StreamDecoder::signalPicture, &decoder,
                         [this] { times.append(decoder.picture().utcNs); });
        QObject::connect(&decoder, &StreamDecoder::signalConsumed, &decoder, [this](qint64 done) { consumed += done; });
    }

    void push(const QByteArray& packets)
    {
        pushed += packets.size();
        decoder.push(packets);
    }
    void push(const ClipSource& source)
    {
        for (const std::vector<std::uint8_t>& batch : source.batches())
            push(bytes(batch));
    }
    /// One packet, and nothing of it left inside: as live video comes.
    bool pushSlowly(const QByteArray& packets)
    {
        push(packets);
        return QTest::qWaitFor([this] { return consumed == pushed; }, patienceMs);
    }
};

} // namespace

class StreamDecoderTest final : public QObject
{
    Q_OBJECT

private slots:
    void showsEveryPictureOfLiveVideoInItsColours_data();
    void showsEveryPictureOfLiveVideoInItsColours();
    void goesOnBehindDamage_data();
    void goesOnBehindDamage();
    void followsChangedParameterSets();
    void tellsWhatCantBeDecoded();
    void waitsForTheClock();
    void endsWithPacketsInWork();
};

void StreamDecoderTest::showsEveryPictureOfLiveVideoInItsColours_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("shown");
    const QString red = QStringLiteral("-an -vf drawbox=c=red:t=fill,scale=%1,setsar=1 ");
    QTest::newRow("H.264 with B-frames") << "l1.mp4"
                                         << QString(red.arg(QStringLiteral("1280:720:out_color_matrix=bt709")) +
                                                    QStringLiteral("-c:v libx264 -g 25 -bf 2 -pix_fmt yuv420p"))
                                         << "H.264" << QSize(1280, 720) << QSize(320, 180);
    QTest::newRow("H.265")
        << "l2.mp4"
        << QString(red.arg(QStringLiteral("640:480")) +
                   QStringLiteral(
                       "-c:v libx265 -x265-params log-level=none:keyint=25:open-gop=0 -tag:v hvc1 -pix_fmt yuv420p"))
        << "H.265" << QSize(640, 480) << QSize(320, 240);
    QTest::newRow("MJPEG") << "l3.mp4"
                           << QString(red.arg(QStringLiteral("200:400")) + QStringLiteral("-c:v mjpeg -q:v 3"))
                           << "MJPEG" << QSize(200, 400) << QSize(160, 320);
    QTest::newRow("pixels that are not square, and a picture smaller than its room")
        << "l4.mp4"
        << QString(red.arg(QStringLiteral("120:120")) +
                   QStringLiteral("-c:v libx264 -g 25 -pix_fmt yuv420p -bsf:v h264_metadata=sample_aspect_ratio=2/1"))
        << "H.264" << QSize(120, 120) << QSize(240, 120);
}

void StreamDecoderTest::showsEveryPictureOfLiveVideoInItsColours()
{
    QFETCH(QString, name);
    QFETCH(QString, arguments);
    QFETCH(QSize, size);
    QFETCH(QSize, shown);
    const ClipSource source(clip(name, 2.4, arguments));
    Run run;
    const vav::StreamInfo info = source.info();
    QVERIFY(run.pushSlowly(bytes(vav::encodeStreamInfo(info))));
    for (const ClipSource::Frame& frame : source.frames())
        QVERIFY(run.pushSlowly(bytes(ClipSource::packet(frame))));

    // A decoder keeps as many as are reordered.
    QVERIFY2(run.times.size() >= int(source.frames().size()) - 3, qPrintable(QString::number(run.times.size())));
    QVERIFY(std::is_sorted(run.times.cbegin(), run.times.cend()));
    QCOMPARE(run.times.first(), qint64(source.beginNs()));
    QTEST(run.decoder.format().codec, "codec");
    QCOMPARE(run.decoder.format().size, size);
    QCOMPARE(qRound(run.decoder.format().fps), 25);
    const QImage picture = run.decoder.picture().image;
    QCOMPARE(picture.size(), shown);
    const QColor middle = picture.pixelColor(picture.rect().center());
    QVERIFY2(middle.red() > 245 && middle.green() < 12 && middle.blue() < 12, qPrintable(middle.name()));
    QCOMPARE(run.problems.size(), 0);

    QSignalSpy full(&run.decoder, &StreamDecoder::signalFullPicture);
    run.decoder.requestFullPicture();
    QVERIFY(full.wait(patienceMs));
    QCOMPARE(full.first().first().value<QImage>().size(), run.decoder.format().shape);
    QCOMPARE(full.first().last().toLongLong(), run.times.last());
}

void StreamDecoderTest::goesOnBehindDamage_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("noise in the pictures") << 0;
    QTest::newRow("lengths beyond the end") << 1;
    QTest::newRow("frames lost in transfer") << 2;
    QTest::newRow("a torn packet") << 3;
}

void StreamDecoderTest::goesOnBehindDamage()
{
    QFETCH(int, kind);
    ClipSource source = h264();
    std::vector<ClipSource::Frame>& frames = source.frames();
    const std::size_t damaged = 30; // the second group begins at 25
    Run run;
    QVERIFY(run.pushSlowly(bytes(vav::encodeStreamInfo(source.info()))));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        ClipSource::Frame frame = frames[i];
        const bool isHit = i >= damaged && i < damaged + 8;
        if (isHit && kind == 0) {
            for (std::size_t at = 6; at < frame.payload.size(); ++at)
                frame.payload[at] = static_cast<std::uint8_t>(frame.payload[at] ^ (at * 37));
        } else if (isHit && kind == 1) {
            frame.payload[0] = 0x7f;
        } else if (isHit && kind == 2) {
            continue;
        }
        if (i == damaged + 8 && kind == 2)
            frame.header.flags |= vav::LossBefore;
        QByteArray packet = bytes(ClipSource::packet(frame));
        if (isHit && kind == 3)
            packet.chop(packet.size() / 2);
        QVERIFY(run.pushSlowly(packet));
    }
    const int before = run.times.size();
    // The same clip once more, later by its length: its first frame is a key frame.
    for (ClipSource::Frame frame : frames) {
        frame.header.timeNs += 2 * nsPerS;
        QVERIFY(run.pushSlowly(bytes(ClipSource::packet(frame))));
    }
    QVERIFY2(run.times.size() - before >= int(frames.size()) - 3,
             qPrintable(QString::number(run.times.size() - before)));
    const qint64 lossNs = source.beginNs() + qint64(damaged + 3) * nsPerS / 25; // three are reordered
    if (kind == 2) {
        for (const qint64 time : qAsConst(run.times))
            QVERIFY2(time <= lossNs || time >= source.beginNs() + 2 * nsPerS, "shown between the loss and a key frame");
    }
}

void StreamDecoderTest::followsChangedParameterSets()
{
    Run run;
    QSignalSpy formats(&run.decoder, &StreamDecoder::signalFormat);
    qint64 offsetNs = 0;
    for (const QSize& size : {QSize(640, 360), QSize(320, 240), QSize(640, 360)}) {
        const ClipSource source = h264(size.width(), size.height());
        QVERIFY(run.pushSlowly(bytes(vav::encodeStreamInfo(source.info()))));
        for (ClipSource::Frame frame : source.frames()) {
            frame.header.timeNs += offsetNs;
            QVERIFY(run.pushSlowly(bytes(ClipSource::packet(frame))));
        }
        offsetNs += 2 * nsPerS;
        QCOMPARE(run.decoder.format().size, size);
    }
    QVERIFY(std::is_sorted(run.times.cbegin(), run.times.cend()));
    QVERIFY(run.times.size() >= 140);
}

void StreamDecoderTest::tellsWhatCantBeDecoded()
{
    const ClipSource source = h264();
    Run run;
    vav::StreamInfo info = source.info();
    info.tracks.front().codec = vav::Codec::G726;
    run.push(bytes(vav::encodeStreamInfo(info)));
    QTRY_COMPARE(run.problems.size(), 1);
    QVERIFY(!run.problems.first().first().toString().isEmpty());
    run.push(source);
    QVERIFY(QTest::qWaitFor([&] { return run.consumed == run.pushed; }, patienceMs));
    QCOMPARE(run.problems.last().first().toString(), QString()); // the clip's own info came with it
    QVERIFY(run.pictures.size() > 0);
}

void StreamDecoderTest::waitsForTheClock()
{
    const ClipSource source = h264();
    PlaybackClock clock;
    Run run;
    run.decoder.setOutput(StreamDecoder::Output::Clocked, &clock);
    run.push(source);
    const qint64 frameNs = nsPerS / 25;
    const auto queuedUntil = [&](qint64 frame) {
        return run.decoder.queuedUntilUtcNs() == source.beginNs() + frame * frameNs;
    };
    QVERIFY(QTest::qWaitFor([&] { return queuedUntil(3) || queuedUntil(4); }, patienceMs));
    QTest::qWait(50);
    QVERIFY2(queuedUntil(3) || queuedUntil(4), "decodes on although pictures enough are waiting");
    QCOMPARE(run.pictures.size(), 0);
    QVERIFY(run.consumed < run.pushed);
    QCOMPARE(run.decoder.waitingBytes(), run.pushed - run.consumed);

    clock.setUtcNs(source.beginNs() + frameNs + 1);
    QCOMPARE(run.times, QVector<qint64>{source.beginNs() + frameNs});
    run.decoder.stepForward();
    QCOMPARE(run.times.last(), qint64(source.beginNs() + 2 * frameNs));

    // Another room while nothing moves: the same picture in the new size.
    QVERIFY(QTest::qWaitFor([&] { return queuedUntil(6) || queuedUntil(7); }, patienceMs));
    run.decoder.setTargetSize({160, 160});
    QVERIFY(QTest::qWaitFor([&] { return run.decoder.picture().image.width() == 160; }, patienceMs));
    QCOMPARE(run.times.last(), qint64(source.beginNs() + 2 * frameNs));

    // Far ahead: what lies between is decoded and left out, the picture at the clock's time is shown.
    clock.setUtcNs(source.beginNs() + 40 * frameNs);
    QVERIFY(QTest::qWaitFor([&] { return run.times.last() == source.beginNs() + 40 * frameNs; }, patienceMs));

    run.decoder.reset();
    QCOMPARE(run.decoder.waitingBytes(), run.pushed - run.consumed);
    QVERIFY(QTest::qWaitFor([&] { return run.pushed == run.consumed; }, patienceMs));
    run.push(source);
    QVERIFY(QTest::qWaitFor([&] { return run.times.last() == source.beginNs() + 40 * frameNs; }, patienceMs));
}

void StreamDecoderTest::endsWithPacketsInWork()
{
    const ClipSource source = h264();
    for (int i = 0; i < 10; ++i) {
        Run run;
        run.push(source);
        QTest::qWait(i);
    }
}

QTEST_MAIN(StreamDecoderTest)
#include "tst_StreamDecoder.moc"
