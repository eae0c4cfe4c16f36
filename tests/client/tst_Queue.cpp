#include <CliParser.h>
#include <QueueEdit.h>
#include <QueueListing.h>
#include <StoredRecorder.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QUuid>

using vemo_client::CliCommand;
using vemo_client::CliParser;
using vemo_client::ExitCode;
using vemo_client::QueueEdit;
using vemo_client::QueueListing;
using vemo_client::QueueOptions;
using vemo_client::StoredRecorder;
using vemo_data::DownloadTaskInfo;

namespace {

using Action = QueueOptions::Action;

DownloadTaskInfo taskIn(int state)
{
    DownloadTaskInfo task;
    task.taskId = QUuid::createUuid().toString();
    task.state = state;
    return task;
}

CliCommand parse(const QString& line, const std::optional<QString>& password = QStringLiteral("pw"))
{
    const QString whole = QStringLiteral("vemo_client queue ") + line;
    return CliParser::parse(whole.split(QLatin1Char(' '), Qt::SkipEmptyParts), password);
}

const QString span = QStringLiteral(" --begin 2026-01-10T08:00Z --end 2026-01-10T09:00Z");
const QString device = QStringLiteral("add --device 127.0.0.1 --user admin");

} // namespace

Q_DECLARE_METATYPE(QueueOptions::Action)

/// What the queue's command lines are taken for, and what they do to tasks of each state.
class tst_Queue : public QObject
{
    Q_OBJECT

private slots:
    void refusesWhatMakesNoSense_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("word");
        QTest::newRow("no action") << QStringLiteral("--json") << QStringLiteral("missing");
        QTest::newRow("unknown action") << QStringLiteral("empty") << QStringLiteral("\"empty\"");
        QTest::newRow("no task named") << QStringLiteral("pause") << QStringLiteral("--all");
        QTest::newRow("both ways") << QStringLiteral("cancel --all --id {6b0f2c1e-0b43-4a3d-9d6e-3a1f0c1b2d4e}")
                                   << QStringLiteral("either");
        QTest::newRow("no id") << QStringLiteral("retry --id 7") << QStringLiteral("\"7\"");
        QTest::newRow("option of another action") << QStringLiteral("list --all") << QStringLiteral("all");
        QTest::newRow("add without a span")
            << QString(device + QStringLiteral(" --channel 1")) << QStringLiteral("--begin");
        QTest::newRow("a name without a span")
            << QString(device + QStringLiteral(" --channel 1 --file REC")) << QStringLiteral("span");
        QTest::newRow("a recording of two channels")
            << QString(device + QStringLiteral(" --channel 1,2 --file R_20260110T080000000Z_20260110T090000000Z"))
            << QStringLiteral("one channel");
        QTest::newRow("one argument too many") << QStringLiteral("run now") << QStringLiteral("\"now\"");
    }

    void refusesWhatMakesNoSense()
    {
        QFETCH(QString, line);
        QFETCH(QString, word);
        const CliCommand command = parse(line);
        QCOMPARE(command.verb, CliCommand::Verb::Tell);
        QCOMPARE(command.exitCode, ExitCode::Usage);
        QVERIFY2(command.text.contains(word), qPrintable(command.text));
    }

    void readsTheSpanFromTheNameOfARecording()
    {
        const CliCommand command =
            parse(device + QStringLiteral(" --channel 3 --file a~20b_c_20260110T080000250Z_20260110T090000000Z"));
        QVERIFY2(command.verb == CliCommand::Verb::Queue, qPrintable(command.text));
        QCOMPARE(command.begin, QDateTime(QDate(2026, 1, 10), QTime(8, 0, 0, 250), Qt::UTC));
        QCOMPARE(command.end, QDateTime(QDate(2026, 1, 10), QTime(9, 0), Qt::UTC));
    }

    void knowsWhetherAPasswordWasGiven()
    {
        QVERIFY(parse(device + QStringLiteral(" --channel 1") + span).queue.hasPassword);
        const CliCommand without = parse(device + QStringLiteral(" --channel 1") + span, std::nullopt);
        QVERIFY2(without.verb == CliCommand::Verb::Queue, "a stored password may do");
        QVERIFY(!without.queue.hasPassword);
    }

    void waitsForRetriesUnlessToldOtherwise()
    {
        QVERIFY(parse(QStringLiteral("run")).needsWidgets());
        QVERIFY(parse(QStringLiteral("run")).queue.waitForRetries);
        QVERIFY(!parse(QStringLiteral("run --no-retry")).queue.waitForRetries);
    }

    void actsOnTheStatesForWhichItMakesSense_data()
    {
        QTest::addColumn<Action>("action");
        QTest::addColumn<QList<int>>("changed");
        QTest::addColumn<QList<int>>("removed");
        QTest::newRow("pause") << Action::Pause << QList<int>{0} << QList<int>();
        QTest::newRow("resume") << Action::Resume << QList<int>{2} << QList<int>();
        QTest::newRow("cancel") << Action::Cancel << QList<int>() << QList<int>{0, 2};
        QTest::newRow("retry") << Action::Retry << QList<int>{-1, 4, 7, 8} << QList<int>();
        QTest::newRow("clear") << Action::Clear << QList<int>() << QList<int>{-1, 3, 4, 7, 8};
    }

    void actsOnTheStatesForWhichItMakesSense()
    {
        QFETCH(Action, action);
        QFETCH(QList<int>, changed);
        QFETCH(QList<int>, removed);
        QList<DownloadTaskInfo> tasks;
        QHash<QString, int> before;
        for (const int state : {-1, 0, 2, 3, 4, 7, 8}) {
            tasks.append(taskIn(state));
            before.insert(tasks.last().taskId, state);
        }
        QueueOptions options;
        options.action = action;
        options.all = true;
        const QueueEdit::Plan plan = QueueEdit::plan(options, tasks);
        QList<int> changedStates;
        for (const DownloadTaskInfo& task : plan.changed) {
            changedStates.append(before.value(task.taskId));
            QCOMPARE(task.state, action == Action::Pause ? 2 : 0);
        }
        QList<int> removedStates;
        for (const DownloadTaskInfo& task : plan.removed)
            removedStates.append(task.state);
        QCOMPARE(changedStates, changed);
        QCOMPARE(removedStates, removed);
        QVERIFY(plan.refusals.isEmpty());

        options.all = false;
        options.ids = QStringList{tasks.at(3).taskId, QUuid::createUuid().toString()};
        const QueueEdit::Plan named = QueueEdit::plan(options, tasks);
        QCOMPARE(named.refusals.size(), action == Action::Clear ? 1 : 2);
        QCOMPARE(named.changed.size() + named.removed.size(), action == Action::Clear ? 1 : 0);
    }

    void tellsATaskWithItsReasonAndGaps()
    {
        DownloadTaskInfo task = taskIn(6);
        task.channelNo = 3;
        task.savePath = QStringLiteral("a.mp4");
        vemo_data::TaskFacts facts;
        facts.report = QByteArrayLiteral("{\"gaps\":[{\"begin\":\"2026-01-10T08:30:00.000Z\",\"end\":"
                                         "\"2026-01-10T08:30:20.000Z\",\"cause\":\"lost in transfer\"}]}");
        const auto object = [&] {
            return QJsonDocument::fromJson(QueueListing::json(task, facts, QStringLiteral("/videos"))).object();
        };
        QCOMPARE(object()[QStringLiteral("table")].toString(), QStringLiteral("failed"));
        QCOMPARE(object()[QStringLiteral("path")].toString(), QStringLiteral("/videos/a.mp4"));
        QCOMPARE(object()[QStringLiteral("reason")].toString(), QStringLiteral("The download broke off."));
        QCOMPARE(object()[QStringLiteral("gaps")].toArray().size(), 1);
        QVERIFY(object()[QStringLiteral("begin")].isNull());
        QVERIFY(QueueListing::isIncomplete(facts));
        facts.reason = QStringLiteral("The recorder closed the connection.");
        QCOMPARE(object()[QStringLiteral("reason")].toString(), facts.reason);
        task.state = 3; // a reason of an earlier try
        QCOMPARE(object()[QStringLiteral("reason")].toString(), QString());
    }

    void takesOneRecorderForOne_data()
    {
        QTest::addColumn<QString>("one");
        QTest::addColumn<QString>("other");
        QTest::addColumn<bool>("same");
        const auto row = [](const char* one, const char* other, bool same) {
            QTest::newRow(other) << QString::fromLatin1(one) << QString::fromLatin1(other) << same;
        };
        row("http://10.0.0.5", "http://10.0.0.5:80/onvif/device_service", true);
        row("https://10.0.0.5:443/", "https://10.0.0.5", true);
        row("http://10.0.0.5", "http://10.0.0.5:8080", false);
        row("http://10.0.0.5", "https://10.0.0.5", false);
        row("rtsp://10.0.0.5/a", "rtsp://10.0.0.5:554/a", true);
        row("rtsp://10.0.0.5/a", "rtsp://10.0.0.5/b", false);
        row("rtsp://10.0.0.5/a?x=1", "rtsp://10.0.0.5/a?x=2", false);
    }

    void takesOneRecorderForOne()
    {
        QFETCH(QString, one);
        QFETCH(QString, other);
        QFETCH(bool, same);
        QCOMPARE(StoredRecorder::isSameAddress(QUrl(one), QUrl(other)), same);
    }
};

QTEST_GUILESS_MAIN(tst_Queue)
#include "tst_Queue.moc"
