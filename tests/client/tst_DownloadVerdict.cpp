#include <DownloadVerdict.h>

#include <vaws_download.h>

#include <QTest>

Q_DECLARE_METATYPE(vemo_client::DownloadFacts)
Q_DECLARE_METATYPE(vemo_client::ExitCode)

using vemo_client::DownloadFacts;
using vemo_client::ExitCode;
using vemo_client::Outcome;
using vemo_client::Span;

/// What a download is taken for when it is over. Times are seconds from its begin.
class tst_DownloadVerdict : public QObject
{
    Q_OBJECT

private slots:
    void isDoneOnlyWithAllListedFootage_data();
    void isDoneOnlyWithAllListedFootage();
    void tellsFailuresApart_data();
    void tellsFailuresApart();
    void readsTheLibrarysReport();
};

namespace {

using Seconds = QList<QPair<double, double>>;

const QDateTime base(QDate(2026, 1, 10), QTime(8, 0));

Span span(double begin, double end)
{
    return {base.addMSecs(qint64(begin * 1000)), base.addMSecs(qint64(end * 1000))};
}

QList<Span> spans(const Seconds& list)
{
    QList<Span> result;
    for (const auto& each : list)
        result.append(span(each.first, each.second));
    return result;
}

DownloadFacts facts(int event, int frames = 0)
{
    DownloadFacts facts;
    facts.place = {QStringLiteral("http://10.0.0.5, channel 3"), QStringLiteral("10.0.0.5")};
    facts.asked = span(0, 120);
    facts.report.known = true;
    facts.report.event = event;
    facts.report.frames = frames;
    facts.report.path = QStringLiteral("/videos/clip.mp4");
    return facts;
}

vms_sdk::Error error(vms_sdk::ErrorKind kind)
{
    return {kind, QStringLiteral("the recorder said so"), {}};
}

} // namespace

void tst_DownloadVerdict::isDoneOnlyWithAllListedFootage_data()
{
    QTest::addColumn<Seconds>("listed");
    QTest::addColumn<QPair<double, double>>("received");
    QTest::addColumn<Seconds>("lost");
    QTest::addColumn<Seconds>("notRecorded");
    QTest::addColumn<ExitCode>("code");
    using P = QPair<double, double>;
    const Seconds none;
    QTest::newRow("all of it") << Seconds{{-60, 300}} << P{0, 120} << none << none << ExitCode::Done;
    QTest::newRow("a frame short at both ends")
        << Seconds{{-60, 300}} << P{0.04, 119.96} << none << none << ExitCode::Done;
    QTest::newRow("the recording begins later") << Seconds{{30, 300}} << P{30, 120} << none << none << ExitCode::Done;
    QTest::newRow("the recording ends earlier") << Seconds{{-60, 90}} << P{0, 90} << none << none << ExitCode::Done;
    QTest::newRow("the last minute did not come")
        << Seconds{{-60, 300}} << P{0, 60} << none << none << ExitCode::Incomplete;
    QTest::newRow("the first seconds did not come")
        << Seconds{{-60, 300}} << P{5, 120} << none << none << ExitCode::Incomplete;
    QTest::newRow("between two recordings is nothing to miss")
        << Seconds{{-60, 40}, {80, 300}} << P{0, 120} << none << Seconds{{40, 80}} << ExitCode::Done;
    QTest::newRow("the second recording did not come")
        << Seconds{{-60, 40}, {80, 300}} << P{0, 40} << none << none << ExitCode::Incomplete;
    QTest::newRow("a hole of the network")
        << Seconds{{-60, 300}} << P{0, 120} << Seconds{{50, 55}} << none << ExitCode::Incomplete;
    QTest::newRow("a lost picture") << Seconds{{-60, 300}} << P{0, 120} << Seconds{{50, 50.2}} << none
                                    << ExitCode::Done;
    QTest::newRow("a hole that the recorder tells of in a listed recording")
        << Seconds{{-60, 300}} << P{0, 120} << none << Seconds{{50, 70}} << ExitCode::Done;
    QTest::newRow("alarm within a recording, listed twice")
        << Seconds{{-60, 300}, {30, 50}} << P{0, 45} << none << none << ExitCode::Incomplete;
    QTest::newRow("nothing listed, all came") << none << P{0, 120} << none << none << ExitCode::Done;
}

void tst_DownloadVerdict::isDoneOnlyWithAllListedFootage()
{
    QFETCH(Seconds, listed);
    using P = QPair<double, double>;
    QFETCH(P, received);
    QFETCH(Seconds, lost);
    QFETCH(Seconds, notRecorded);
    QFETCH(ExitCode, code);
    DownloadFacts over = facts(VAWS_EVENT_FINISHED, 3000);
    over.listed = spans(listed);
    over.report.begin = span(received.first, received.second).begin;
    over.report.end = span(received.first, received.second).end;
    for (const Span& gap : spans(lost))
        over.report.gaps.append({gap.begin, gap.end, QStringLiteral("lost in transfer")});
    for (const Span& gap : spans(notRecorded))
        over.report.gaps.append({gap.begin, gap.end, QStringLiteral("not recorded")});
    const Outcome outcome = vemo_client::judgeDownload(over);
    QVERIFY2(outcome.code == code, qPrintable(outcome.sentence));
    QCOMPARE(outcome.sentence.isEmpty(), code == ExitCode::Done);
}

void tst_DownloadVerdict::tellsFailuresApart_data()
{
    QTest::addColumn<DownloadFacts>("over");
    QTest::addColumn<ExitCode>("code");
    QTest::addColumn<QString>("says");
    const auto row = [](const char* name, const DownloadFacts& over, ExitCode code, const char* says) {
        QTest::newRow(name) << over << code << QString::fromLatin1(says);
    };
    const auto with = [](DownloadFacts over, vms_sdk::ErrorKind kind) {
        over.streamError = error(kind);
        return over;
    };
    const auto listing = [](DownloadFacts over, const QList<Span>& listed) {
        over.listed = listed;
        return over;
    };
    const QList<Span> footage{span(-60, 300)};
    using Kind = vms_sdk::ErrorKind;

    row("login", with(facts(VAWS_EVENT_LOGIN_FAILED), Kind::LoginRefused), ExitCode::LoginRefused,
        "the recorder said so");
    row("limit", facts(VAWS_EVENT_LIMIT_REACHED), ExitCode::LimitReached, "no further stream");
    row("nobody there", with(facts(VAWS_EVENT_CONNECT_FAILED), Kind::Unreachable), ExitCode::Unreachable, "said so");
    row("no answer in time", with(facts(VAWS_EVENT_CONNECT_FAILED), Kind::TimedOut), ExitCode::Unreachable, "said so");
    row("no replay", with(facts(VAWS_EVENT_CONNECT_FAILED), Kind::NoReplay), ExitCode::Failed, "said so");
    row("rubbish", with(facts(VAWS_EVENT_CONNECT_FAILED), Kind::Corrupt), ExitCode::Failed, "said so");
    row("broke off", with(listing(facts(VAWS_EVENT_BROKEN, 100), footage), Kind::BrokenOff), ExitCode::Incomplete,
        "/videos/clip.mp4");
    row("broke off before anything came", with(listing(facts(VAWS_EVENT_BROKEN), footage), Kind::BrokenOff),
        ExitCode::Failed, "said so");
    row("disk", facts(VAWS_EVENT_WRITE_ERROR, 100), ExitCode::Disk, "/videos/clip.mp4");
    row("bad stream", facts(VAWS_EVENT_INVALID), ExitCode::Failed, "failed");
    row("nothing recorded", listing(facts(VAWS_EVENT_NO_DATA), {}), ExitCode::NoRecording, "no recording");
    row("nothing recorded, stream refused", with(listing(facts(VAWS_EVENT_CONNECT_FAILED), {}), Kind::NotFound),
        ExitCode::NoRecording, "no recording");
    row("nothing came, not listed", facts(VAWS_EVENT_NO_DATA), ExitCode::NoRecording, "sent nothing");
    row("nothing came of what is listed", listing(facts(VAWS_EVENT_NO_DATA), footage), ExitCode::Failed, "no picture");

    DownloadFacts full = facts(0);
    full.refused = true;
    full.freeBytes = 500'000'000;
    row("disk too full to begin", full, ExitCode::Disk, "1 GiB");
    full.freeBytes = 5'000'000'000;
    row("refused for another reason", full, ExitCode::Failed, "could not be begun");
}

void tst_DownloadVerdict::tellsFailuresApart()
{
    QFETCH(DownloadFacts, over);
    QFETCH(ExitCode, code);
    QFETCH(QString, says);
    const Outcome outcome = vemo_client::judgeDownload(over);
    QVERIFY2(outcome.code == code, qPrintable(outcome.sentence));
    QVERIFY2(outcome.sentence.contains(says), qPrintable(outcome.sentence));
    QVERIFY2(outcome.sentence.startsWith(over.place.text) && outcome.sentence.endsWith(QLatin1Char('.')),
             qPrintable(outcome.sentence));
}

void tst_DownloadVerdict::readsTheLibrarysReport()
{
    const auto report = vemo_client::DownloadReport::fromJson(
        R"({"task":"t","status":4,"event":16,"error":"","path":"/a.mp4","files":["/a.mp4"],"bytes":5368709120,
            "begin":"2026-01-10T07:00:00.040Z","end":"2026-01-10T07:02:00.000Z","frames":3000,"lost":2,
            "gaps":[{"begin":"2026-01-10T07:01:00.000Z","end":"2026-01-10T07:01:10.000Z","cause":"not recorded"}],
            "video":"h264","audio":"aac","verified":true})");
    QVERIFY(report.known && report.verified);
    QCOMPARE(report.bytes, 5'368'709'120LL);
    QCOMPARE(report.begin.toMSecsSinceEpoch(),
             QDateTime(QDate(2026, 1, 10), QTime(7, 0, 0, 40), Qt::UTC).toMSecsSinceEpoch());
    QCOMPARE(report.gaps.size(), 1);
    QCOMPARE(report.gaps.constFirst().begin.secsTo(report.gaps.constFirst().end), 10);
    QVERIFY(!vemo_client::DownloadReport::fromJson("").known);
    QVERIFY(!vemo_client::DownloadReport::fromJson("[1]").known);
}

QTEST_GUILESS_MAIN(tst_DownloadVerdict)
#include "tst_DownloadVerdict.moc"
