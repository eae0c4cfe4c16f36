#include "playback/Footage.h"
#include "playback/FrameBudget.h"
#include "playback/FrameThinner.h"
#include "playback/TimeView.h"

#include <QTest>

using vemo_base::DayAxis;
using vemo_client::Footage;
using vemo_client::FrameBudget;
using vemo_client::FrameThinner;
using vemo_client::TimeView;
using Keep = FrameThinner::Keep;

namespace {

constexpr qint64 secondMs = 1000;
constexpr qint64 hourMs = 3600 * secondMs;

QByteArray packet(vav::Codec codec, int octet, bool isKey, std::uint8_t track = 0)
{
    vav::FrameHeader header;
    header.track = track;
    header.flags = isKey ? vav::KeyFrame : 0;
    // A delimiter or the like stands ahead of the picture.
    const int ahead = codec == vav::Codec::H264 ? 9 : 35 << 1;
    const QByteArray payload =
        QByteArray("\0\0\0\2", 4) + char(ahead) + '\x10' + QByteArray("\0\0\0\3", 4) + char(octet) + "\x01\x80";
    header.payloadBytes = std::uint32_t(payload.size());
    QByteArray bytes(int(vav::headerBytes), '\0');
    vav::writeFrameHeader(reinterpret_cast<std::uint8_t*>(bytes.data()), header);
    return bytes + payload;
}

QByteArray description(vav::Codec codec)
{
    vav::StreamInfo info;
    info.tracks.resize(2);
    info.tracks[0].codec = codec;
    info.tracks[1].track = 1;
    info.tracks[1].codec = vav::Codec::PcmA;
    const std::vector<std::uint8_t> bytes = vav::encodeStreamInfo(info);
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), int(bytes.size()));
}

} // namespace

/// What the time line and the player work out without pictures and widgets.
class tst_TimeLine : public QObject
{
    Q_OBJECT

private slots:
    void findsFootageAndGaps_data();
    void findsFootageAndGaps();
    void leavesOutWhatNoPictureNeeds_data();
    void leavesOutWhatNoPictureNeeds();
    void beginsAnewAtAKeyFrame();
    void keepsWhatCanBeDecoded();
    void staysWhereThePointerIsWhileZooming_data();
    void staysWhereThePointerIsWhileZooming();
    void labelsWhatFits_data();
    void labelsWhatFits();
};

void tst_TimeLine::findsFootageAndGaps_data()
{
    QTest::addColumn<qint64>("at");
    QTest::addColumn<bool>("covered");
    QTest::addColumn<qint64>("next"); ///< -1: none
    QTest::addColumn<qint64>("gapBegin");
    QTest::addColumn<qint64>("gapEnd");

    // Footage of the day: 0 to 4 h (of two recordings, a second apart), 5 to 8 h, overlapped by an alarm.
    QTest::newRow("from the day before on") << qint64(0) << true << qint64(0) << qint64(-1) << qint64(-1);
    QTest::newRow("in the seam of two recordings")
        << 2 * hourMs + 500 << true << 2 * hourMs + 500 << qint64(-1) << qint64(-1);
    QTest::newRow("where a gap begins") << 4 * hourMs << false << 5 * hourMs << 4 * hourMs << 5 * hourMs;
    QTest::newRow("where it ends") << 5 * hourMs << true << 5 * hourMs << qint64(-1) << qint64(-1);
    QTest::newRow("behind a short alarm in a long recording")
        << 7 * hourMs << true << 7 * hourMs << qint64(-1) << qint64(-1);
    QTest::newRow("behind the last") << 9 * hourMs << false << qint64(-1) << 8 * hourMs << 24 * hourMs;
}

void tst_TimeLine::findsFootageAndGaps()
{
    const DayAxis axis(QDate(2026, 1, 10), QTimeZone::utc());
    const auto recording = [&axis](qint64 beginMs, qint64 endMs, int type = 0) {
        vms_sdk::VideoRecording made;
        made.begin = QDateTime::fromMSecsSinceEpoch(axis.beginMs() + beginMs);
        made.end = QDateTime::fromMSecsSinceEpoch(axis.beginMs() + endMs);
        made.type = type;
        return made;
    };
    const Footage footage(axis,
                          {recording(5 * hourMs, 8 * hourMs), recording(6 * hourMs, 6 * hourMs + 300 * secondMs, 1),
                           recording(-hourMs, 2 * hourMs), recording(2 * hourMs + secondMs, 4 * hourMs)});
    QFETCH(const qint64, at);
    QFETCH(const qint64, next);
    QFETCH(const bool, covered);
    const qint64 ms = axis.beginMs() + at;
    QCOMPARE(footage.covers(ms), covered);
    QCOMPARE(footage.nextFrom(ms).value_or(axis.beginMs() - 1) - axis.beginMs(), next);
    if (covered)
        return;
    QTEST(footage.gapAt(ms).beginMs - axis.beginMs(), "gapBegin");
    QTEST(footage.gapAt(ms).endMs - axis.beginMs(), "gapEnd");
}

void tst_TimeLine::leavesOutWhatNoPictureNeeds_data()
{
    QTest::addColumn<int>("codec");
    QTest::addColumn<int>("octet");
    QTest::addColumn<bool>("isKey");
    QTest::addColumn<bool>("isReference");

    const int h264 = int(vav::Codec::H264);
    const int h265 = int(vav::Codec::H265);
    QTest::newRow("H.264 key") << h264 << 0x65 << true << true;
    QTest::newRow("H.264 P") << h264 << 0x41 << false << true;
    QTest::newRow("H.264 B that nobody refers to") << h264 << 0x01 << false << false;
    QTest::newRow("H.265 key") << h265 << (19 << 1) << true << true;
    QTest::newRow("H.265 TRAIL_R") << h265 << (1 << 1) << false << true;
    QTest::newRow("H.265 TRAIL_N") << h265 << 0 << false << false;
    QTest::newRow("H.265 RASL_N") << h265 << (8 << 1) << false << false;
}

void tst_TimeLine::leavesOutWhatNoPictureNeeds()
{
    QFETCH(const int, codec);
    QFETCH(const int, octet);
    QFETCH(const bool, isKey);
    QFETCH(const bool, isReference);
    const QByteArray info = description(vav::Codec(codec));
    const QByteArray sound = packet(vav::Codec::H264, 0, true, 1);
    const QByteArray frame = packet(vav::Codec(codec), octet, isKey);
    const QByteArray batch = info + sound + frame + sound + info;
    FrameThinner thinner;
    QCOMPARE(thinner.thinned(batch), batch);
    thinner.setKeep(Keep::References);
    QCOMPARE(thinner.thinned(batch), info + (isReference ? frame : QByteArray()) + info);
    thinner.setKeep(Keep::KeyFrames);
    QCOMPARE(thinner.thinned(batch), info + (isKey ? frame : QByteArray()) + info);
}

void tst_TimeLine::beginsAnewAtAKeyFrame()
{
    FrameThinner thinner;
    thinner.setKeep(Keep::KeyFrames);
    const QByteArray key = packet(vav::Codec::H264, 0x65, true);
    const QByteArray p = packet(vav::Codec::H264, 0x41, false);
    QCOMPARE(thinner.thinned(description(vav::Codec::H264) + p), description(vav::Codec::H264));
    thinner.setKeep(Keep::All);
    QCOMPARE(thinner.thinned(p + p), QByteArray()); // what they refer to was left out
    QCOMPARE(thinner.thinned(p + key + p), key + p);
    QCOMPARE(thinner.thinned(p), p);
}

void tst_TimeLine::keepsWhatCanBeDecoded()
{
    FrameBudget budget;
    constexpr double hd = 1920.0 * 1080 * 25;
    QCOMPARE(budget.keep(6 * hd, 2), Keep::References);
    QCOMPARE(budget.keep(2 * hd, 2), Keep::All);
    QCOMPARE(budget.keep(16 * hd, 2), Keep::KeyFrames);
    for (int i = 0; i < 20; ++i)
        QVERIFY2(!budget.note(100'000, i % 5 == 0), "a few short waits are usual");
    bool isLess = false;
    for (int i = 0; i < 40 && !isLess; ++i)
        isLess = budget.note(100'000, i % 2 == 0);
    QVERIFY2(isLess, "the clock waits half of the time and nothing is done about it");
    QCOMPARE(budget.keep(2 * hd, 2), Keep::References);
    budget.reset();
    QCOMPARE(budget.keep(2 * hd, 2), Keep::All);
}

void tst_TimeLine::staysWhereThePointerIsWhileZooming_data()
{
    QTest::addColumn<double>("place");
    QTest::addColumn<QVector<double>>("factors");
    QTest::addColumn<double>("length");

    const double day = 24 * 60;
    QTest::newRow("in") << 0.25 << QVector<double>{2, 2} << 0.25;
    QTest::newRow("as close as it goes") << 0.5 << QVector<double>{1e9} << 4 / day;
    QTest::newRow("in and out again") << 0.75 << QVector<double>{4, 0.5} << 0.5;
    QTest::newRow("no farther than the day") << 0.5 << QVector<double>{4, 0.1} << 1.0;
}

void tst_TimeLine::staysWhereThePointerIsWhileZooming()
{
    QFETCH(const double, place);
    QFETCH(const QVector<double>, factors);
    TimeView view;
    const double position = view.positionAt(place);
    for (const double factor : factors)
        view.zoom(factor, place);
    QTEST(view.length(), "length");
    QCOMPARE(view.placeOf(position), place);
    view.pan(1e6);
    QCOMPARE(view.to(), 1.0);
    view.pan(-1e6);
    QCOMPARE(view.from(), 0.0);
    view.reveal(0.99);
    QVERIFY(view.placeOf(0.99) >= 0 && view.placeOf(0.99) <= 1);
}

void tst_TimeLine::labelsWhatFits_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("pixels");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    QTest::newRow("hours") << 1.0 << 960.0 << QStringLiteral("0") << QStringLiteral("1");
    QTest::newRow("every second hour") << 1.0 << 480.0 << QStringLiteral("0") << QStringLiteral("2");
    QTest::newRow("quarters of an hour") << 8.0 << 960.0 << QStringLiteral("00:00") << QStringLiteral("00:15");
    QTest::newRow("minutes") << 360.0 << 960.0 << QStringLiteral("00:00") << QStringLiteral("00:01");
}

void tst_TimeLine::labelsWhatFits()
{
    QFETCH(const double, factor);
    QFETCH(const double, pixels);
    TimeView view;
    view.zoom(factor, 0);
    QStringList texts;
    double last = -1;
    const QVector<TimeView::Mark> marks = view.marks(pixels);
    for (const TimeView::Mark& mark : marks) {
        QVERIFY2((mark.position - last) * pixels * factor > 6, "ticks touch each other");
        last = mark.position;
        if (!mark.text.isEmpty())
            texts.append(mark.text);
    }
    QTEST(texts.value(0), "first");
    QTEST(texts.value(1), "second");
}

QTEST_APPLESS_MAIN(tst_TimeLine)
#include "tst_TimeLine.moc"
