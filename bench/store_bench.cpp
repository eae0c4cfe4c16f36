// What the store of download tasks costs beside the sqlite3 shell doing the same to the same tables, and what a write
// costs the GUI thread. usage: store_bench [ROUNDS [rows]]   (with rows: only the comparison)
// Needs sqlite3; works below the folder for temporary files.
#include "JsonLine.h"

#include <Database.h>
#include <DataFolder.h>
#include <DataSignals.h>
#include <DownloadTaskData.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimeZone>
#include <QUuid>

#include <algorithm>
#include <functional>
#include <vector>

using vemo_data::Database;
using vemo_data::DataFolder;
using vemo_data::DownloadTaskData;
using vemo_data::DownloadTaskInfo;

namespace {

using Tasks = QList<DownloadTaskInfo>;

constexpr int taskCount = 10'000;
constexpr int manyTasks = 100'000;
constexpr int singleWrites = 1000;
constexpr int oneInIsOpen = 10;
constexpr int readTimes = 20;

double msOf(const std::function<void()>& call)
{
    QElapsedTimer timer;
    timer.start();
    call();
    return static_cast<double>(timer.nsecsElapsed()) * 1e-6;
}

double quantile(std::vector<double> values, double share)
{
    std::sort(values.begin(), values.end());
    return values.at(std::min(values.size() - 1, static_cast<std::size_t>(share * static_cast<double>(values.size()))));
}

Tasks makeTasks(int count)
{
    Tasks tasks;
    const QDateTime first(QDate(2026, 1, 10), QTime(0, 0));
    for (int i = 0; i < count; ++i) {
        DownloadTaskInfo task;
        task.state = i % oneInIsOpen == 0 ? vemo_data::TaskWaiting : vemo_data::TaskSucceeded;
        task.taskId = QUuid::createUuid().toString();
        task.channelId = QStringLiteral("{5a3f3c5e-0b43-4a3d-9d6e-3a1f0c1b2d4e}|%1").arg(i % 16);
        task.channelName = QStringLiteral("Channel %1").arg(i % 16);
        task.devLabel = QStringLiteral("Recorder");
        task.channelNo = i % 16;
        task.beginTime = first.addSecs(60 * i);
        task.endTime = task.beginTime.addSecs(60);
        task.downloadMode = vemo_data::DownloadByTimeRange;
        task.savePath = QStringLiteral("/videos/Downloads/Channel %1@Recorder_%1@%2~%3@Device.mp4")
                            .arg(i % 16)
                            .arg(task.beginTime.toString(QStringLiteral("yyyyMMddhhmmss")),
                                 task.endTime.toString(QStringLiteral("yyyyMMddhhmmss")));
        task.durationMs = 60'000;
        tasks.append(task);
    }
    return tasks;
}

/// A data folder for one measurement.
class World final
{
public:
    World()
    {
        Database::instance().close();
        DataFolder::setRoot(m_dir.path());
    }
    ~World() { Database::instance().close(); }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    QString path(const char* name) const { return m_dir.filePath(QString::fromLatin1(name)); }

private:
    QTemporaryDir m_dir;
};

/// The shell's time for a script, without that of an empty one. What only reads is done `times` over, since one time is
/// little beside the start of a process.
double shellMs(const World& world, const QString& database, const QString& script, int times = 1)
{
    const QString path = world.path("script.sql");
    const auto run = [&](const QString& text) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("the script can't be written");
        file.write(QStringLiteral("PRAGMA synchronous = FULL;\n").toUtf8() + text.toUtf8());
        file.close();
        QProcess shell;
        shell.setStandardInputFile(path);
        shell.setStandardOutputFile(QProcess::nullDevice());
        return msOf([&] {
            shell.start(QStringLiteral("sqlite3"), {database});
            if (!shell.waitForFinished(60'000) || shell.exitCode() != 0)
                qFatal("sqlite3 failed: %s", shell.readAllStandardError().constData());
        });
    };
    return std::max(0.01, run(script.repeated(times)) - run(QString())) / times;
}

/// What only reads is done as often as by the shell.
double readMs(const std::function<void()>& read)
{
    return msOf([&] {
               for (int i = 0; i < readTimes; ++i)
                   read();
           }) /
           readTimes;
}

QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QLatin1String("''")) + QLatin1Char('\'');
}

QString inOneTransaction(const Tasks& tasks, const std::function<QString(const DownloadTaskInfo&)>& statement)
{
    QString script = QStringLiteral("BEGIN IMMEDIATE;\n");
    for (const DownloadTaskInfo& task : tasks)
        script += statement(task) + QLatin1Char('\n');
    return script + QStringLiteral("COMMIT;\n");
}

QString insertStatement(const DownloadTaskInfo& task)
{
    return QStringLiteral("INSERT INTO download_tasks (task_id, channel_id, channel_name, dev_label, channel_no, "
                          "begin_utc_ms, end_utc_ms, zone, download_mode, state, location, progress, downloaded_bytes, "
                          "file_name, save_path, downloaded_ms, duration_ms, request_key) VALUES (%1, %2, %3, %4, %5, "
                          "%6, %7, 'Europe/Berlin', 1, %10, 0, 0, 0, '', %8, 0, 60000, %9);")
        .arg(quoted(task.taskId), quoted(task.channelId), quoted(task.channelName), quoted(task.devLabel))
        .arg(task.channelNo)
        .arg(task.beginTime.toMSecsSinceEpoch())
        .arg(task.endTime.toMSecsSinceEpoch())
        .arg(quoted(task.savePath), task.state == vemo_data::TaskWaiting ? quoted(task.taskId) : QStringLiteral("NULL"))
        .arg(task.state);
}

struct Row
{
    const char* name;
    std::vector<double> ours;
    std::vector<double> shell;
};

void measureRound(std::vector<Row>& rows)
{
    const World world;
    DownloadTaskData& store = DownloadTaskData::instance();
    Tasks tasks = makeTasks(taskCount);
    store.flush();
    Database::instance().close();
    const QString other = world.path("shell.db");
    QFile::copy(DataFolder::databaseFile(), other); // the same tables, empty
    store.flush();

    rows[0].ours.push_back(msOf([&] {
        store.addDownloadTasks(tasks);
        store.flush();
    }));
    rows[0].shell.push_back(shellMs(world, other, inOneTransaction(tasks, insertStatement)));

    rows[1].ours.push_back(readMs([&] {
        if (store.getAllDownloadTasks().size() != taskCount)
            qFatal("not all tasks were stored");
    }));
    rows[1].shell.push_back(
        shellMs(world, other, QStringLiteral("SELECT * FROM download_tasks ORDER BY seq;\n"), readTimes));

    rows[4].ours.push_back(readMs([&] {
        if (store.getOpenDownloadTasks().size() != taskCount / oneInIsOpen)
            qFatal("not all open tasks were found");
    }));
    rows[4].shell.push_back(
        shellMs(world, other,
                QStringLiteral("SELECT * FROM download_tasks WHERE state BETWEEN 0 AND 2 ORDER BY seq;\n"), readTimes));
    // The table of rows sorts; queue_rows_bench measures it.
    rows[5].shell.push_back(
        shellMs(world, other, QStringLiteral("SELECT * FROM download_tasks ORDER BY begin_utc_ms DESC;\n"), readTimes));

    for (DownloadTaskInfo& task : tasks)
        task.state = vemo_data::TaskPaused;
    rows[2].ours.push_back(msOf([&] {
        store.updateDownloadTasks(tasks, false);
        store.flush();
    }));
    rows[2].shell.push_back(shellMs(
        world, other, inOneTransaction(tasks, [](const DownloadTaskInfo& task) {
            return QStringLiteral("UPDATE download_tasks SET channel_id = %2, channel_name = %3, dev_label = %4, "
                                  "channel_no = %5, begin_utc_ms = %6, end_utc_ms = %7, state = 2, save_path = %8, "
                                  "request_key = %9 WHERE task_id = %1;")
                .arg(quoted(task.taskId), quoted(task.channelId), quoted(task.channelName), quoted(task.devLabel))
                .arg(task.channelNo)
                .arg(task.beginTime.toMSecsSinceEpoch())
                .arg(task.endTime.toMSecsSinceEpoch())
                .arg(quoted(task.savePath), quoted(task.taskId));
        })));

    rows[3].ours.push_back(msOf([&] {
        store.deleteDownloadTasks(tasks);
        store.flush();
    }));
    rows[3].shell.push_back(
        shellMs(world, other, inOneTransaction(tasks, [](const DownloadTaskInfo& task) {
                    return QStringLiteral("DELETE FROM download_tasks WHERE task_id = %1;").arg(quoted(task.taskId));
                })));
}

/// The call on the GUI thread, and how long until it is on disk and announced.
void measureWrites(QTextStream& out)
{
    const World world;
    DownloadTaskData& store = DownloadTaskData::instance();
    Tasks tasks = makeTasks(taskCount);
    store.addDownloadTasks(tasks);
    store.flush();
    QCoreApplication::processEvents();
    std::vector<double> calls;
    std::vector<double> announced;
    bool done = false;
    QObject::connect(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalUpdateDownloadTasksInLocalDB,
                     QCoreApplication::instance(), [&done] { done = true; });
    for (int i = 0; i < singleWrites; ++i) {
        DownloadTaskInfo task = tasks.at(i);
        task.state = vemo_data::TaskPaused;
        done = false;
        QElapsedTimer timer;
        timer.start();
        calls.push_back(msOf([&] { store.updateDownloadTasks({task}, true); }));
        while (!done)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        announced.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-6);
    }
    out << QStringLiteral("one write, call on the GUI thread   median %1 ms   p99 %2 ms   max %3 ms\n")
               .arg(quantile(calls, 0.5), 0, 'f', 4)
               .arg(quantile(calls, 0.99), 0, 'f', 4)
               .arg(quantile(calls, 1), 0, 'f', 4);
    out << QStringLiteral("one write, on disk and announced    median %1 ms   p99 %2 ms\n")
               .arg(quantile(announced, 0.5), 0, 'f', 2)
               .arg(quantile(announced, 0.99), 0, 'f', 2);
}

void measureOpening(QTextStream& out, int count)
{
    const World world;
    DownloadTaskData& store = DownloadTaskData::instance();
    store.addDownloadTasks(makeTasks(count));
    store.flush();
    Database::instance().close();
    const double opening = msOf([&] { store.flush(); });
    const double loading = msOf([&] { store.getAllDownloadTasks(); });
    out << QStringLiteral("%1 tasks: opened and checked in %2 ms, loaded in %3 ms\n")
               .arg(count, 6)
               .arg(opening, 0, 'f', 1)
               .arg(loading, 0, 'f', 1);
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("TZ", QTimeZone::systemTimeZoneId()); // as the program does
    QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    const int rounds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 7;
    std::vector<Row> rows{{"insert", {}, {}}, {"load", {}, {}},   {"update", {}, {}},
                          {"delete", {}, {}}, {"filter", {}, {}}, {"sort", {}, {}}};
    for (int round = 0; round < std::max(1, rounds); ++round)
        measureRound(rows);
    out << QStringLiteral("%1 tasks    ours, ms   sqlite3 shell, ms   ratio\n").arg(taskCount);
    QJsonObject figures;
    for (const Row& row : rows) {
        figures.insert(QLatin1String(row.name), QJsonObject{{QStringLiteral("ours"), json_line::array(row.ours)},
                                                            {QStringLiteral("shell"), json_line::array(row.shell)}});
        if (row.ours.empty())
            continue;
        const double ours = quantile(row.ours, 0.5);
        const double shell = quantile(row.shell, 0.5);
        out << QStringLiteral("%1 %2 %3 %4\n")
                   .arg(QLatin1String(row.name), -10)
                   .arg(ours, 12, 'f', 1)
                   .arg(shell, 19, 'f', 1)
                   .arg(ours / shell, 7, 'f', 2);
    }
    if (argc < 3 || qstrcmp(argv[2], "rows") != 0) {
        measureWrites(out);
        for (const int count : {0, taskCount, manyTasks})
            measureOpening(out, count);
    }
    out.flush();
    json_line::print(figures);
    return 0;
}
