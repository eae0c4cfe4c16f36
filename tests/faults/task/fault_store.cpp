// Writes download tasks into the program's store as the queue does, so that something can go wrong in the middle of it.
//
//   fault_store work DATA LOG STEPS SEED   one step, one commit: tasks are added, changed, split, deleted
//   fault_store list DATA...               what each store holds after opening it
//
// LOG gets a JSON line before each step, {"ns", "step", "put": {id: [state, progress, path]}, "gone": [id]}, and one
// when the store has answered, {"ns", "step", "told": whether the change was announced, "notices": [text]}. `list`
// prints a line a store: {"tasks": {id: [...]}, "readable", "notice"}.

#include <Database.h>
#include <DataFolder.h>
#include <DataSignals.h>
#include <DownloadTaskData.h>

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <chrono>
#include <functional>
#include <random>

using vemo_data::Database;
using vemo_data::DataFolder;
using vemo_data::DataSignals;
using vemo_data::DownloadTaskData;
using vemo_data::DownloadTaskInfo;

namespace {

QJsonArray valueOf(const DownloadTaskInfo& task)
{
    return {task.state, task.progress, task.savePath};
}

/// By the clock that the preload library reads.
qint64 monotonicNs()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

class Queue final
{
public:
    Queue(const QString& log, unsigned seed)
        : m_log(log)
        , m_chance(seed)
    {
        if (!m_log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            qFatal("cannot write the log");
        const auto tell = [this] { m_told = true; };
        DataSignals& store = DataSignals::instance();
        QObject::connect(&store, &DataSignals::signalAddDownloadTasksToLocalDB, &store, tell);
        QObject::connect(&store, &DataSignals::signalUpdateDownloadTasksInLocalDB, &store, tell);
        QObject::connect(&store, &DataSignals::signalDeleteDownloadTasksFromLocalDB, &store, tell);
        QObject::connect(&store, &DataSignals::signalStoreNotice, &store,
                         [this](const QString& text) { m_notices.append(text); });
    }

    void step(int number)
    {
        QJsonObject put;
        QJsonArray gone;
        const QList<DownloadTaskInfo> before = m_tasks;
        m_told = false;
        m_notices = QJsonArray();
        m_writes.clear();
        change(number);
        for (const DownloadTaskInfo& task : qAsConst(m_tasks))
            put[task.taskId] = valueOf(task);
        for (const DownloadTaskInfo& task : before) {
            if (!put.contains(task.taskId))
                gone.append(task.taskId);
            else if (put.value(task.taskId).toArray() == valueOf(task))
                put.remove(task.taskId);
        }
        write({{QStringLiteral("step"), number}, {QStringLiteral("put"), put}, {QStringLiteral("gone"), gone}});
        for (const auto& each : qAsConst(m_writes))
            each();
        DownloadTaskData::instance().flush();
        QCoreApplication::processEvents();
        write({{QStringLiteral("step"), number},
               {QStringLiteral("told"), m_told},
               {QStringLiteral("notices"), m_notices}});
        if (!m_told)
            m_tasks = before; // what was not stored is not worked with
    }

private:
    DownloadTaskInfo newTask()
    {
        DownloadTaskInfo task;
        task.taskId = QStringLiteral("{t%1}").arg(++m_added);
        task.channelId = QStringLiteral("{dev}|%1").arg(m_added % 16);
        task.channelName = QStringLiteral("Laderampe");
        task.beginTime = QDateTime::fromMSecsSinceEpoch(1'768'032'000'000 + m_added * 60'000);
        task.endTime = task.beginTime.addSecs(60);
        task.downloadMode = vemo_data::DownloadByTimeRange;
        task.savePath = QStringLiteral("clip-%1.mp4").arg(m_added);
        return task;
    }

    void add(int count)
    {
        QList<DownloadTaskInfo> added;
        for (int i = 0; i < count; ++i)
            added.append(newTask());
        m_tasks += added;
        m_writes.append([added] { DownloadTaskData::instance().addDownloadTasks(added); });
    }

    /// One action of the queue; what it writes is posted in one turn of the event loop.
    void change(int number)
    {
        auto& data = DownloadTaskData::instance();
        const int kind = m_tasks.isEmpty() ? 0 : static_cast<int>(m_chance() % 6);
        const int at = m_tasks.isEmpty() ? 0 : static_cast<int>(m_chance() % static_cast<unsigned>(m_tasks.size()));
        if (kind <= 1) {
            add(kind == 0 ? 1 : 40);
        } else if (kind == 2) {
            const DownloadTaskInfo gone = m_tasks.takeAt(at);
            m_writes.append([&data, gone] { data.deleteDownloadTasks({gone}); });
        } else {
            DownloadTaskInfo& task = m_tasks[at];
            task.progress = number;
            task.state = kind == 3 ? vemo_data::TaskDownloading : vemo_data::TaskSucceeded;
            const DownloadTaskInfo changed = task;
            if (kind == 5) {
                const DownloadTaskInfo rest = newTask();
                m_tasks.append(rest);
                m_writes.append([&data, changed, rest] { data.splitDownloadTask(changed, rest); });
            } else {
                m_writes.append([&data, changed] { data.amendDownloadTasksByUpdate({changed}); });
            }
            if (kind == 4)
                add(1);
        }
    }

    void write(QJsonObject line)
    {
        line[QStringLiteral("ns")] = monotonicNs();
        m_log.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    }

    QFile m_log;
    std::mt19937 m_chance;
    QList<DownloadTaskInfo> m_tasks;
    QList<std::function<void()>> m_writes;
    QJsonArray m_notices;
    bool m_told = false;
    int m_added = 0;
};

int work(const QStringList& words)
{
    DataFolder::setRoot(words.at(0));
    Queue queue(words.at(1), words.at(3).toUInt());
    const int steps = words.at(2).toInt();
    for (int number = 1; number <= steps; ++number)
        queue.step(number);
    Database::instance().close();
    return 0;
}

int list(const QStringList& folders)
{
    for (const QString& folder : folders) {
        Database::instance().close();
        DataFolder::setRoot(folder);
        QJsonObject tasks;
        for (const DownloadTaskInfo& task : DownloadTaskData::instance().getAllDownloadTasks())
            tasks[task.taskId] = valueOf(task);
        const QJsonObject told{{QStringLiteral("tasks"), tasks},
                               {QStringLiteral("readable"), DownloadTaskData::instance().flush()},
                               {QStringLiteral("notice"), Database::instance().notice()}};
        QTextStream(stdout) << QJsonDocument(told).toJson(QJsonDocument::Compact) << Qt::endl;
    }
    Database::instance().close();
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    QCoreApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments().mid(1);
    if (words.size() == 5 && words.first() == QLatin1String("work"))
        return work(words.mid(1));
    if (words.size() > 1 && words.first() == QLatin1String("list"))
        return list(words.mid(1));
    return 2;
}
