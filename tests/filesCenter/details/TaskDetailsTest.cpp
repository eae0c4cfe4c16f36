#include "FileVerifier.h"
#include "TaskDetailsText.h"
#include "TaskDetailsWt.h"
#include "TaskReportFacts.h"

#include <DownloadTaskInfo.h>
#include <TaskFactsData.h>
#include <TestWorld.h>

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using vemo_data::DownloadTaskInfo;
using vemo_data::TaskFacts;
using vemo_filesCenter::DetailLine;
using vemo_filesCenter::TaskDetailsText;
using vemo_filesCenter::TaskDetailsWt;
using vemo_filesCenter::TaskReportFacts;

namespace {

constexpr int patienceMs = 15000;

DownloadTaskInfo record(int state)
{
    DownloadTaskInfo task;
    task.taskId = QStringLiteral("{t}");
    task.channelName = QStringLiteral("Gate North");
    task.devLabel = QStringLiteral("Recorder 1");
    task.beginTime = QDateTime(QDate(2026, 1, 10), QTime(8, 29));
    task.endTime = QDateTime(QDate(2026, 1, 10), QTime(8, 31));
    task.state = state;
    task.savePath = QStringLiteral("/videos/a.mp4");
    return task;
}

QByteArray report(const QByteArray& end, const QByteArray& more)
{
    return "{\"asked_begin\":\"2026-01-10T08:29:00.000Z\",\"asked_end\":\"2026-01-10T08:31:00.000Z\","
           "\"begin\":\"2026-01-10T08:29:00.040Z\",\"end\":\"" +
           end + "\",\"bytes\":10485760,\"video\":\"h264\",\"width\":1920,\"height\":1080,\"audio\":\"aac\"" + more +
           "}";
}

QString valueOf(const QVector<DetailLine>& lines, const char* label)
{
    for (const DetailLine& line : lines)
        if (line.label == QLatin1String(label))
            return line.text;
    return QStringLiteral("(no such line)");
}

} // namespace

class TaskDetailsTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void tellsTheFacts_data();
    void tellsTheFacts();
    void takesNoNonsenseFromAReport_data();
    void takesNoNonsenseFromAReport();
    void keepsToolTipsShort();
    void verifiesAndCopiesFromThePanel();
};

void TaskDetailsTest::initTestCase()
{
    qputenv("TZ", "UTC");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void TaskDetailsTest::tellsTheFacts_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("text");

    const QByteArray whole = report("2026-01-10T08:31:00.000Z", "");
    const QByteArray gaps =
        report("2026-01-10T08:31:00.000Z", ",\"lost\":3,\"gaps\":[{\"begin\":\"2026-01-10T08:30:00.000Z\",\"end\":"
                                           "\"2026-01-10T08:30:20.000Z\",\"cause\":\"not recorded\"}]");
    const QByteArray cut = report("2026-01-10T08:30:18.000Z", ",\"error\":\"The stream broke off.\"");
    const auto row = [](const char* name, int state, const QByteArray& json, const char* reason, const char* label,
                        const char* text) {
        QTest::newRow(name) << state << json << QString::fromUtf8(reason) << QByteArray(label)
                            << QString::fromUtf8(text);
    };
    row("channel", 3, whole, "", "Channel", "Gate North of Recorder 1");
    row("asked", 3, whole, "", "Asked", "2026-01-10 08:29:00 to 08:31:00 (2 min)");
    row("received", 3, whole, "", "Received", "2026-01-10 08:29:00 to 08:31:00 (2 min)");
    row("received less", 6, cut, "", "Received",
        "2026-01-10 08:29:00 to 08:30:18 (1 min 18 s); ends 42 s earlier than asked");
    row("no gaps", 3, whole, "", "Gaps", "none");
    row("gap", 3, gaps, "", "Gaps", "08:30:00 to 08:30:20, 20 s, not recorded");
    row("losses", 3, gaps, "", "Losses", "3 frames did not arrive whole");
    row("media", 3, whole, "", "Media", "H.264 1920 x 1080, AAC");
    row("size", 3, whole, "", "Size", "10.00 MB (10,485,760 bytes)");
    row("rate", 3, whole, "", "Rate", "5.2 MB/s, 2 s in all");
    row("reason of the store wins", 6, cut, "The recorder ended the session.", "Reason",
        "The recorder ended the session.");
    row("reason of the report", 6, cut, "", "Reason", "The stream broke off.");
    row("no reason kept: what the state means", 4, "", "", "Reason",
        "The recorder refused the login. It is not tried again by itself: correct user and password of the recorder, "
        "then redownload.");
    row("no failure, no reason", 3, whole, "", "Reason", "(no such line)");
    row("no report, no claim about gaps", 0, "", "", "Gaps", "(no such line)");
    row("no sum yet", 3, whole, "", "SHA-256", "not summed yet");
    row("waiting tasks have no sum", 0, "", "", "SHA-256", "(no such line)");
}

void TaskDetailsTest::tellsTheFacts()
{
    QFETCH(const int, state);
    QFETCH(const QByteArray, json);
    QFETCH(const QString, reason);
    QFETCH(const QByteArray, label);
    QFETCH(const QString, text);
    TaskFacts facts;
    facts.report = json;
    facts.reason = reason;
    facts.seconds = 2;
    QCOMPARE(valueOf(TaskDetailsText::lines(record(state), facts), label.constData()), text);
}

void TaskDetailsTest::takesNoNonsenseFromAReport_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("no JSON") << QByteArray("\xff\xfe nonsense");
    QTest::newRow("an array") << QByteArray("[1,2]");
    QTest::newRow("wrong types") << QByteArray(
        R"({"begin":7,"end":{},"bytes":"many","lost":-1,"gaps":{"begin":1},"video":[],"width":1e99,"height":-4})");
    QTest::newRow("gap that ends before it begins")
        << QByteArray(R"({"gaps":[{"begin":"2026-01-10T09:00:00.000Z","end":"2026-01-10T08:00:00.000Z"},{},7,null]})");
    QTest::newRow("huge numbers") << QByteArray(R"({"bytes":1e300,"lost":1e300})");
}

void TaskDetailsTest::takesNoNonsenseFromAReport()
{
    QFETCH(const QByteArray, json);
    const TaskReportFacts facts = TaskReportFacts::parse(json);
    QVERIFY(facts.bytes >= 0 && facts.lostFrames >= 0);
    QVERIFY(facts.gaps.isEmpty());
    TaskFacts stored;
    stored.report = json;
    QVERIFY(!TaskDetailsText::lines(record(3), stored).isEmpty());
}

void TaskDetailsTest::keepsToolTipsShort()
{
    QByteArray gaps = ",\"gaps\":[";
    for (int i = 0; i < 3000; ++i)
        gaps += R"({"begin":"2026-01-10T08:30:00.000Z","end":"2026-01-10T08:30:20.000Z","cause":"not recorded"},)";
    gaps.chop(1);
    TaskFacts facts;
    facts.report = report("2026-01-10T08:31:00.000Z", gaps + "]");
    facts.sha256 = QByteArray(32, '\1');
    const QString tip = TaskDetailsWt::toolTipText(record(3), facts);
    QVERIFY(tip.count(QLatin1Char('\n')) < 20);
    QVERIFY(!tip.contains(QLatin1String("0101")));
    QVERIFY(valueOf(TaskDetailsText::lines(record(3), facts), "").contains(QLatin1String("08:30:00")));
    QVERIFY(TaskDetailsText::lines(record(3), facts).size() < 70);
}

void TaskDetailsTest::verifiesAndCopiesFromThePanel()
{
    TestWorld world;
    DownloadTaskInfo task = record(3);
    task.savePath = world.path(QStringLiteral("a b.mp4"));
    QFile file(task.savePath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("abc");
    file.close();
    TaskDetailsWt panel;
    panel.showTask(task);
    auto* verify = panel.findChild<QPushButton*>(QStringLiteral("verifyBt"));
    auto* copy = panel.findChild<QPushButton*>(QStringLiteral("copyChecksumBt"));
    const auto* message = panel.findChild<QLabel*>(QStringLiteral("verifyMessage"));
    QVERIFY(verify->isEnabled());
    QVERIFY2(!copy->isEnabled(), "there is no sum to copy");
    verify->click();
    QVERIFY2(!verify->isEnabled(), "the file is being read");
    QTRY_VERIFY_WITH_TIMEOUT(message->text().contains(QLatin1String("No SHA-256 of a b.mp4 was kept")), patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(copy->isEnabled() && verify->isEnabled(), patienceMs);
    copy->click();
    QCOMPARE(QApplication::clipboard()->text(),
             QStringLiteral("ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad  a b.mp4\n"));
    verify->click();
    QTRY_VERIFY_WITH_TIMEOUT(message->text().startsWith(QLatin1String("a b.mp4 is what was downloaded")), patienceMs);

    DownloadTaskInfo other = record(4);
    other.taskId = QStringLiteral("{u}");
    panel.showTask(other);
    QVERIFY2(message->text().isEmpty(), "the result belonged to another row");
    QVERIFY2(!verify->isEnabled(), "there is no finished file");
}

QTEST_MAIN(TaskDetailsTest)
#include "TaskDetailsTest.moc"
