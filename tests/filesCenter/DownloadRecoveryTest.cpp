#include "QueueWorld.h"

#include <DataSignals.h>
#include <download/DownloadManager.h>
#include <download/DownloadRecovery.h>
#include <download/TaskFiles.h>
#include <DownloadTaskData.h>
#include <tables/DownloadingTable.h>
#include <tables/SuccessTable.h>

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_data::DownloadTaskData;

namespace {

QString t()
{
    return QStringLiteral("{t}");
}

QString name(const char* span, const char* tail = "Device")
{
    return QStringLiteral("Gate 1@Recorder_1@%1@%2.mp4").arg(QLatin1String(span), QLatin1String(tail));
}

/// "<state> <begin>~<end>" of each, in order of begin.
QStringList spans(const QHash<QString, DownloadTaskInfo>& tasks)
{
    QStringList lines;
    for (const DownloadTaskInfo& task : tasks)
        lines.append(task.beginTime.toString(QStringLiteral("hh:mm:ss~")) +
                     task.endTime.toString(QStringLiteral("hh:mm:ss ")) + QString::number(task.state));
    lines.sort();
    return lines;
}

QStringList list(const char* joined)
{
    return QString::fromLatin1(joined).split(QLatin1Char('|'));
}

struct Left
{
    QString name;
    QTime begin;
    QTime end; ///< invalid: still open
};

} // namespace

Q_DECLARE_METATYPE(QVector<Left>)

class DownloadRecoveryTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_world = std::make_unique<QueueWorld>(); }
    void cleanup() { m_world.reset(); }

    void makesARecordOfWhatACrashLeft_data()
    {
        QTest::addColumn<int>("state");
        QTest::addColumn<bool>("byFile");
        QTest::addColumn<QVector<Left>>("files"); ///< the first is the target
        QTest::addColumn<QStringList>("after");
        using Files = QVector<Left>;
        const QString target = name("20260110080000~20260110090000");
        const QTime eight(8, 0);
        QTest::newRow("half of it") << 0 << false << Files{{target, eight, QTime(8, 30)}}
                                    << list("08:00:00~08:30:00 3|08:30:00~09:00:00 0");
        QTest::newRow("half of a paused one")
            << 2 << false << Files{{target, eight, QTime(8, 30)}} << list("08:00:00~08:30:00 3|08:30:00~09:00:00 2");
        QTest::newRow("all of it") << 0 << false << Files{{target, eight, QTime(8, 59, 59, 960)}}
                                   << list("08:00:00~09:00:00 3");
        QTest::newRow("begins with a gap") << 0 << false << Files{{target, QTime(8, 5), QTime(8, 30)}}
                                           << list("08:00:00~08:30:00 3|08:30:00~09:00:00 0");
        QTest::newRow("nothing there") << 0 << false << Files{} << list("08:00:00~09:00:00 0");
        QTest::newRow("still open") << 0 << false << Files{{target, eight, QTime()}} << list("08:00:00~09:00:00 0");
        QTest::newRow("below a second") << 0 << false << Files{{target, eight, QTime(8, 0, 0)}}
                                        << list("08:00:00~09:00:00 0");
        QTest::newRow("named after its span already")
            << 0 << false << Files{{name("20260110080000~20260110083000"), eight, QTime(8, 30)}}
            << list("08:00:00~08:30:00 3|08:30:00~09:00:00 0");
        QTest::newRow("closed file and the next")
            << 0 << false
            << Files{{target, QTime(8, 20, 0, 40), QTime(8, 45)},
                     {name("20260110080000~20260110090000", "Device_20260110080000~20260110082000"), eight,
                      QTime(8, 20, 0, 40)}}
            << list("08:00:00~08:20:00 3|08:20:00~08:45:00 3|08:45:00~09:00:00 0");
        QTest::newRow("by file, half") << 0 << true << Files{{target, eight, QTime(8, 30, 0, 500)}}
                                       << list("08:00:00~08:30:00 3|08:30:00~09:00:00 0");
        QTest::newRow("by file, all") << 0 << true << Files{{target, eight, QTime(8, 59, 59, 500)}}
                                      << list("08:00:00~09:00:00 3");
    }

    void makesARecordOfWhatACrashLeft()
    {
        QFETCH(int, state);
        QFETCH(bool, byFile);
        QFETCH(QVector<Left>, files);
        QFETCH(QStringList, after);
        DownloadTaskInfo task = QueueWorld::task(t());
        task.state = state;
        task.downloadMode = byFile ? vemo_data::DownloadByFile : vemo_data::DownloadByTimeRange;
        task.savePath = m_world->filePath(name("20260110080000~20260110090000"));
        for (const Left& file : files) {
            const QDate day(2026, 1, 10);
            m_world->writeRecording(m_world->filePath(file.name), QDateTime(day, file.begin),
                                    file.end.isValid() ? QDateTime(day, file.end) : QDateTime());
        }
        const QStringList foreign = {m_world->writeFile(m_world->filePath(QStringLiteral("other.mp4")))};
        QueueWorld::store({task});

        const DownloadRecovery::Changes changes =
            DownloadRecovery::recover(DownloadTaskData::instance().getAllDownloadTasks(), "[]");
        DownloadTaskData::instance().amendDownloadTasksByUpdate(changes.updates);
        DownloadTaskData::instance().amendDownloadTasksByAdd(changes.adds);
        QueueWorld::settle();
        const QHash<QString, DownloadTaskInfo> stored = QueueWorld::stored();
        QCOMPARE(spans(stored), after);
        QSet<QString> paths;
        for (const DownloadTaskInfo& record : stored) {
            if (record.state == vemo_data::TaskSucceeded)
                QVERIFY2(QFile::exists(record.savePath), qPrintable(record.savePath));
            QVERIFY2(!paths.contains(record.savePath), qPrintable(record.savePath));
            paths.insert(record.savePath);
        }
        if (after.size() > 1)
            QCOMPARE(stored.value(t()).state, int(vemo_data::TaskSucceeded)); // the part keeps the key
        QCOMPARE(QFile(foreign.first()).size(), 2000);

        // Once more, as after a crash of the recovery itself: nothing is left to do.
        const DownloadRecovery::Changes again =
            DownloadRecovery::recover(DownloadTaskData::instance().getAllDownloadTasks(), "[]");
        QCOMPARE(again.updates.size() + again.adds.size(), 0);
    }

    void believesTheRepairWhereTheFileLies()
    {
        const DownloadTaskInfo task = QueueWorld::task(t()); // a bare name: never stored with its path
        const QString path = m_world->writeRecording(m_world->filePath(QStringLiteral("moved.mp4")), QueueWorld::at(8),
                                                     QueueWorld::at(8, 10));
        const QJsonArray entries{QJsonObject{{QStringLiteral("task"), t()},
                                             {QStringLiteral("path"), path},
                                             {QStringLiteral("outcome"), QStringLiteral("repaired")}}};
        const QByteArray report = QJsonDocument(entries).toJson();
        const DownloadRecovery::Changes changes = DownloadRecovery::recover({task}, report);
        QCOMPARE(changes.updates.size(), 1);
        QCOMPARE(changes.updates.first().endTime, QueueWorld::at(8, 10));
        QCOMPARE(changes.adds.size(), 1);
    }

    /// The disk was full when the first file was to be closed, so the span was fetched anew, and that was killed.
    void takesAwayWhatAnotherFileOfTheTaskHolds()
    {
        DownloadTaskInfo task = QueueWorld::task(t());
        const QString first = m_world->filePath(name("20260110080000~20260110090000"));
        task.savePath = m_world->filePath(name("20260110080000~20260110090000", "Device (2)"));
        m_world->writeRecording(first, QueueWorld::at(8), QueueWorld::at(8, 10));
        m_world->writeRecording(task.savePath, QueueWorld::at(8), QueueWorld::at(8, 20));
        QJsonArray entries;
        for (const QString& path : {first, task.savePath})
            entries.append(QJsonObject{{QStringLiteral("task"), t()},
                                       {QStringLiteral("path"), path},
                                       {QStringLiteral("outcome"), QStringLiteral("repaired")}});
        const QByteArray report = QJsonDocument(entries).toJson();
        for (const int state : {int(vemo_data::TaskWaiting), int(vemo_data::TaskAbnormal)}) {
            task.state = state;
            const DownloadRecovery::Changes changes = DownloadRecovery::recover({task}, report);
            QCOMPARE(changes.updates.size(), 1);
            QCOMPARE(changes.updates.first().endTime, QueueWorld::at(8, 20));
            QCOMPARE(changes.adds.value(0).state, state);
            QCOMPARE(changes.doubles, QStringList{first});
            QVERIFY(QFile::rename(changes.updates.first().savePath, task.savePath));
        }
        task.state = vemo_data::TaskSucceeded;
        QCOMPARE(DownloadRecovery::recover({task}, report).doubles, QStringList{first});
        // What begins where the other one is not over, but goes on behind it, is all that is left of that footage.
        QVERIFY(QFile::remove(task.savePath));
        m_world->writeRecording(task.savePath, QueueWorld::at(8, 5), QueueWorld::at(8, 20));
        for (const int state : {int(vemo_data::TaskWaiting), int(vemo_data::TaskSucceeded)}) {
            task.state = state;
            QCOMPARE(DownloadRecovery::recover({task}, report).doubles, QStringList());
        }
    }

    void takesNoFileThatBelongsToAnotherTask()
    {
        DownloadTaskInfo task = QueueWorld::task(t());
        task.savePath = m_world->filePath(name("20260110080000~20260110090000"));
        DownloadTaskInfo other = QueueWorld::task(QStringLiteral("{o}"));
        other.state = vemo_data::TaskSucceeded;
        other.endTime = QueueWorld::at(8, 30);
        other.savePath = m_world->writeRecording(m_world->filePath(name("20260110080000~20260110083000")),
                                                 QueueWorld::at(8), QueueWorld::at(8, 30));
        const DownloadRecovery::Changes changes = DownloadRecovery::recover({task, other}, "[]");
        QCOMPARE(changes.updates.size() + changes.adds.size(), 0);
    }

    void handsTasksOutAfterTheRepair()
    {
        DownloadingTable downloading;
        SuccessTable success;
        DownloadTaskInfo task = QueueWorld::task(t());
        task.savePath = m_world->writeRecording(m_world->filePath(name("20260110080000~20260110090000")),
                                                QueueWorld::at(8), QueueWorld::at(8, 30));
        DownloadManager::instance().setDownloadingTable(nullptr);
        QueueWorld::store({task});
        DownloadManager::instance().setDownloadingTable(&downloading);
        m_world->sdks.isRepaired = false;
        DownloadManager::instance().loadTasks();
        QCOMPARE(downloading.taskCount(), 0); // not before the files are right
        m_world->sdks.isRepaired = true;
        QTRY_COMPARE(downloading.taskCount(), 1);
        QCOMPARE(success.taskCount(), 1);
        QueueWorld::settle();
        QCOMPARE(downloading.taskCount(), 1);
        QCOMPARE(success.taskCount(), 1);
        const QStringList calls = m_world->sdks.takeCalls().filter(QStringLiteral("time_range"));
        QCOMPARE(calls.size(), 1);
        QVERIFY2(calls.first().contains(QStringLiteral("20260110083000 20260110090000")), qPrintable(calls.first()));
    }

    void namesFilesWithoutWritingOverAny_data()
    {
        QTest::addColumn<QString>("wanted");
        QTest::addColumn<QStringList>("there");
        QTest::addColumn<QString>("got");
        QTest::newRow("free") << "a.mp4" << QStringList() << "a.mp4";
        QTest::newRow("taken") << "a.mp4" << list("a.mp4") << "a (2).mp4";
        QTest::newRow("taken twice") << "a.mp4" << list("a.mp4|a (2).mp4") << "a (3).mp4";
        QTest::newRow("numbered, the plain one is free") << "a (2).mp4" << list("a (2).mp4") << "a.mp4";
        QTest::newRow("claimed by another task") << "claimed.mp4" << QStringList() << "claimed (2).mp4";
        QTest::newRow("no suffix") << "a" << list("a") << "a (2)";
    }

    void namesFilesWithoutWritingOverAny()
    {
        QFETCH(QString, wanted);
        QFETCH(QStringList, there);
        QFETCH(QString, got);
        for (const QString& file : there)
            m_world->writeFile(m_world->filePath(file));
        const QString path = TaskFiles::freeTargetPath(m_world->folder(), wanted, [](const QString& candidate) {
            return candidate.endsWith(QLatin1String("/claimed.mp4"));
        });
        QCOMPARE(QFileInfo(path).fileName(), got);
    }

    void givesAPartTheNameOfItsSpan()
    {
        const auto named = [this](const QString& path, bool onDisk) {
            return QFileInfo(TaskFiles::makeSegmentFileName(path, QueueWorld::at(8, 20), QueueWorld::at(8, 40), onDisk))
                .fileName();
        };
        const QString path = m_world->writeFile(m_world->filePath(name("20260110080000~20260110090000")));
        const QString part = name("20260110082000~20260110084000");
        QCOMPARE(named(path, false), part);
        QVERIFY(QFile::exists(path));
        m_world->writeFile(m_world->filePath(part));
        QCOMPARE(named(path, true), name("20260110082000~20260110084000", "Device (2)"));
        QVERIFY(!QFile::exists(path));
        QCOMPARE(named(QStringLiteral("/v/plain.mp4"), true), QStringLiteral("plain.mp4"));
    }

    void readsNoSpanOutOfFilesThatAreNotOurs_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no movie at all, just words");
        QTest::newRow("box beyond the end") << QByteArray("\x7f\xff\xff\xffmoov", 8);
        QTest::newRow("box of no length") << QByteArray("\0\0\0\4moov\0\0\0\1udta", 16);
        QTest::newRow("tag beyond the end") << QByteArray("\0\0\0\x32moov\0\0\0\x2audta", 16) + "com.vemo.start" +
                                                   QByteArray("\xff\xff\xff\xff", 4) + "data0123456789ab";
    }

    void readsNoSpanOutOfFilesThatAreNotOurs()
    {
        QFETCH(QByteArray, bytes);
        QFile file(m_world->filePath(QStringLiteral("x.mp4")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        QVERIFY(!RecordingFile::read(file.fileName()).isFinished());
    }

private:
    std::unique_ptr<QueueWorld> m_world;
};

QTEST_MAIN(DownloadRecoveryTest)
#include "DownloadRecoveryTest.moc"
