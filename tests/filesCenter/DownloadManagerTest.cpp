#include "../platform/TestWorld.h"

#include <DataSignals.h>
#include <download/DownloadManager.h>
#include <download/DownloadSignals.h>
#include <DownloadTaskData.h>
#include <SystemMsg.h>

#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_data::DataSignals;

namespace {

/// Notes what it is asked for, into a list that all tables share.
class NotingTable final : public DownloadTasksTable
{
public:
    NotingTable(const QString& name, QStringList* notes)
        : m_name(name)
        , m_notes(notes)
    {}

    void addTask(const DownloadTaskInfo& task, Source source) override
    {
        note((source == Source::Store ? QStringLiteral("store ") : QStringLiteral("start-up ")) + task.taskId);
        ++m_count;
    }
    void updateTask(const DownloadTaskInfo& task) override { note(QStringLiteral("update ") + task.taskId); }
    void removeTasks(const QSet<QString>& taskIds) override
    {
        QStringList ids = taskIds.values();
        ids.sort();
        note(QStringLiteral("remove ") + ids.join(QLatin1Char(',')));
    }
    bool hasTask(const QString& taskId) const override { return held.contains(taskId); }
    int taskCount() const override { return m_count; }
    void updateOrderNumbers() override { note(QStringLiteral("number")); }
    void startDownloading() override { note(QStringLiteral("start")); }
    void stopAllDownloads() override { note(QStringLiteral("stop")); }

    QSet<QString> held;

private:
    void note(const QString& what) { m_notes->append(m_name + QLatin1Char(' ') + what); }

    QString m_name;
    QStringList* m_notes;
    int m_count = 0;
};

DownloadTaskInfo makeTask(int state)
{
    DownloadTaskInfo task;
    task.taskId = QStringLiteral("t%1").arg(state);
    task.channelId = QStringLiteral("dev|%1").arg(state);
    task.state = state;
    return task;
}

QStringList lines(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class DownloadManagerTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        m_notes.clear();
        m_downloading = std::make_unique<NotingTable>(QStringLiteral("D"), &m_notes);
        m_failed = std::make_unique<NotingTable>(QStringLiteral("F"), &m_notes);
        m_success = std::make_unique<NotingTable>(QStringLiteral("S"), &m_notes);
        setTables(m_downloading.get(), m_failed.get(), m_success.get());
        for (int state = -1; state <= 9; ++state)
            m_tasks.append(makeTask(state));
    }

    void cleanup()
    {
        setTables(nullptr, nullptr, nullptr);
        m_tasks.clear();
        m_world.reset();
    }

    void handsStoredTasksToTheTablesOfTheirStates()
    {
        vemo_data::DownloadTaskData::instance().addDownloadTasks(m_tasks);
        QSignalSpy added(&DataSignals::instance(), &DataSignals::signalAddDownloadTasksToLocalDB);
        QVERIFY(added.wait());
        QCOMPARE(m_notes, lines("D store t0\nD store t2\nS store t3\nF store t4\nF store t5\nF store t6\nF store t7\n"
                                "F store t8"));
        m_notes.clear();
        QSignalSpy failedCount(&DownloadSignals::instance(), &DownloadSignals::signalFailedTasksCnt);
        m_manager.loadTasks();
        QCOMPARE(m_notes,
                 lines("D start-up t0\nD start-up t2\nF start-up t4\nF start-up t5\nF start-up t6\nF start-up t7\n"
                       "F start-up t8\nS start-up t3\nD start\nD number\nF number\nS number"));
        QCOMPARE(failedCount.size(), 1);
        QCOMPARE(failedCount.at(0).at(0).toInt(), 10);
    }

    void announcesTheCountsOfAnEmptyStoreAndStartsNothing()
    {
        QSignalSpy downloading(&DownloadSignals::instance(), &DownloadSignals::signalDownloadingTasksCnt);
        QSignalSpy success(&DownloadSignals::instance(), &DownloadSignals::signalSuccessTasksCnt);
        m_manager.loadTasks();
        QCOMPARE(m_notes, lines("D number\nF number\nS number"));
        QCOMPARE(downloading.size() + success.size(), 2);
    }

    void passesOverTablesThatAreNotSet()
    {
        setTables(nullptr, m_failed.get(), nullptr);
        QSignalSpy downloading(&DownloadSignals::instance(), &DownloadSignals::signalDownloadingTasksCnt);
        emit DataSignals::instance().signalAddDownloadTasksToLocalDB(m_tasks);
        m_manager.loadTasks();
        QCOMPARE(m_notes.filter(QRegularExpression(QStringLiteral("^F"))).size(), m_notes.size());
        QCOMPARE(downloading.size(), 0);
    }

    void removesByTheStateInAscendingOrder()
    {
        emit DataSignals::instance().signalDeleteDownloadTasksFromLocalDB(
            {{5, {QStringLiteral("f")}},
             {1, {QStringLiteral("none")}},
             {0, {QStringLiteral("a"), QStringLiteral("b")}},
             {3, {QStringLiteral("s")}}});
        QCOMPARE(m_notes, lines("D remove a,b\nS remove s\nF remove f"));
    }

    void makesATableLetGoOfATaskThatMovedToAnother()
    {
        m_downloading->held = {QStringLiteral("t5"), QStringLiteral("t2"), QStringLiteral("t-1")};
        emit DataSignals::instance().signalUpdateDownloadTasksInLocalDB({makeTask(5), makeTask(2), makeTask(-1)});
        QCOMPARE(m_notes, lines("D remove t5\nF update t5\nD update t2\nD remove t-1"));
    }

    // Last: what the manager lets go of at the end it does not follow again.
    void followsOnlyDeletionsOnceTheClientQuits()
    {
        emit DataSignals::instance().signalUpdateDownloadTasksInLocalDB({makeTask(2), makeTask(1), makeTask(7)});
        QCOMPARE(m_notes, lines("D update t2\nF update t7"));
        m_notes.clear();
        emit vemo_contact::SystemMsg::instance().signalPrepareQuitSystem();
        QCOMPARE(m_notes, lines("D stop"));
        m_notes.clear();
        emit DataSignals::instance().signalAddDownloadTasksToLocalDB(m_tasks);
        emit DataSignals::instance().signalUpdateDownloadTasksInLocalDB(m_tasks);
        emit DataSignals::instance().signalDeleteDownloadTasksFromLocalDB({{2, {QStringLiteral("a")}}});
        QCOMPARE(m_notes, lines("D remove a"));
    }

private:
    void setTables(DownloadTasksTable* downloading, DownloadTasksTable* failed, DownloadTasksTable* success)
    {
        m_manager.setDownloadingTable(downloading);
        m_manager.setFailedTable(failed);
        m_manager.setSuccessTable(success);
    }

    DownloadManager& m_manager = DownloadManager::instance();
    std::unique_ptr<TestWorld> m_world;
    QStringList m_notes;
    std::unique_ptr<NotingTable> m_downloading;
    std::unique_ptr<NotingTable> m_failed;
    std::unique_ptr<NotingTable> m_success;
    QList<DownloadTaskInfo> m_tasks;
};

QTEST_GUILESS_MAIN(DownloadManagerTest)
#include "DownloadManagerTest.moc"
