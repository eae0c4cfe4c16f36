#include "../TestWorld.h"
#include "Mp4Bytes.h"

#include <LocalIndexRescan.h>
#include <LocalRecordingIndexes.h>
#include <LocalSnapImageIndexes.h>

#include <QDir>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

#if defined(Q_OS_UNIX)
#include <sys/stat.h>
#endif

using namespace Mp4Bytes;
using VCOMMON::LocalIndexRescan;
using VCOMMON::LocalRecordingIndexes;
using VCOMMON::LocalRecordingIndexInfo;
using VCOMMON::LocalRescanResult;
using VCOMMON::LocalSnapImageIndexes;

namespace {

const QDateTime day(QDate(2026, 1, 10), QTime(0, 0));

QByteArray recording(int hour)
{
    return fileType() + box("mdat", QByteArray(hour, 'x')) + movie(since1904(day.addSecs(hour * 3600)), 600'000);
}

} // namespace

/// The index follows what people do to the files.
class LocalIndexRescanTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        LocalSnapImageIndexes::instance().reload();
        QDir().mkpath(m_world->path(QStringLiteral("files/sub")));
        write(QStringLiteral("files/a.mp4"), recording(8));
        write(QStringLiteral("files/sub/b.mp4"), recording(9));
        write(QStringLiteral("files/broken.mp4"), "garbage");
        write(QStringLiteral("files/Gate@2026-01-10 08_00_00.jpg"), "\xff\xd8\xff\xda\xff\xd9");
        write(QStringLiteral("files/notes.txt"), "text");
    }
    void cleanup() { m_world.reset(); }

    void findsWhatWasAddedChangedAndRemoved()
    {
        QCOMPARE(told(scan()), QStringLiteral("3 recordings, 1 snapshots, 4 read, 1 broken, 0 gone"));
        QCOMPARE(names(),
                 QStringList({QStringLiteral("a.mp4"), QStringLiteral("b.mp4"), QStringLiteral("broken.mp4!")}));
        QCOMPARE(told(scan()), QStringLiteral("3 recordings, 1 snapshots, 0 read, 0 broken, 0 gone"));

        write(QStringLiteral("files/broken.mp4"), recording(10));
        QFile::remove(m_world->path(QStringLiteral("files/a.mp4")));
        QFile::remove(m_world->path(QStringLiteral("files/Gate@2026-01-10 08_00_00.jpg")));
        QCOMPARE(told(scan()), QStringLiteral("2 recordings, 0 snapshots, 1 read, 0 broken, 2 gone"));
        QCOMPARE(names(), QStringList({QStringLiteral("b.mp4"), QStringLiteral("broken.mp4")}));
        QCOMPARE(snapshots(), 0);
    }

    void keepsTheRecordsOfAFolderThatIsGone_data()
    {
        QTest::addColumn<bool>("isMountPoint");
        QTest::newRow("gone") << false;
        QTest::newRow("another volume, empty") << true;
    }

    void keepsTheRecordsOfAFolderThatIsGone()
    {
        QFETCH(bool, isMountPoint);
        scan();
        QVERIFY(QDir().rename(m_world->path(QStringLiteral("files")), m_world->path(QStringLiteral("pulled"))));
        if (isMountPoint) {
            QDir().mkpath(m_world->path(QStringLiteral("files")));
            vemo_data::Database::instance().run([](QSqlDatabase& db) {
                return QSqlQuery(db).exec(QStringLiteral("UPDATE local_folders SET volume = 'the disk'"));
            });
        }
        const LocalRescanResult result = scan();
        QCOMPARE(result.gone, 0);
        QCOMPARE(result.problems.size(), 1);
        QCOMPARE(names().size(), 3);
        QCOMPARE(snapshots(), 1);
    }

#if defined(Q_OS_UNIX)
    void followsNoLinkAndWaitsAtNoPipe()
    {
        write(QStringLiteral("outside/secret.mp4"), recording(7));
        const QString folder = m_world->path(QStringLiteral("files/"));
        QVERIFY(QFile::link(m_world->path(QStringLiteral("outside/secret.mp4")), folder + QStringLiteral("l.mp4")));
        QVERIFY(QFile::link(m_world->path(QStringLiteral("outside")), folder + QStringLiteral("linked")));
        QCOMPARE(::mkfifo(QFile::encodeName(folder + QStringLiteral("pipe.mp4")).constData(), 0600), 0);
        QCOMPARE(scan().recordings, 3);
        QCOMPARE(names().filter(QStringLiteral("secret")), QStringList());
    }
#endif

    void keepsTheDeviceThatTheClientRecorded()
    {
        LocalRecordingIndexInfo record;
        record.devId = QStringLiteral("dev");
        record.channelNo = 3;
        record.channelName = QStringLiteral("Gate");
        record.beginTime = day;
        record.endTime = day.addSecs(1);
        record.filePath = m_world->path(QStringLiteral("files/a.mp4"));
        LocalRecordingIndexes::instance().addLocalRecordingIndex(record);
        scan();
        const LocalRecordingIndexInfo found = recordings().value(0);
        QCOMPARE(found.devId, record.devId);
        QCOMPARE(found.channelNo, 3);
        QCOMPARE(found.beginTime, day.addSecs(8 * 3600)); // by the file
    }

    void takesRecordsOutAndBack()
    {
        scan();
        const QString path = m_world->path(QStringLiteral("files/a.mp4"));
        LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
        QSignalSpy deleted(&indexes, &LocalRecordingIndexes::signalDeleteLocalRecordingIndexesResult);
        emit indexes.signalDeleteLocalRecordingIndexes(QStringLiteral("x"), {path, QStringLiteral("/none.mp4")});
        QVERIFY(deleted.wait());
        QCOMPARE(deleted.at(0).at(2).toBool(), true);
        QCOMPARE(names().size(), 2);
        indexes.restoreLocalRecordingIndexes({path});
        QCOMPARE(names().size(), 3);
    }

private:
    void write(const QString& name, const QByteArray& bytes)
    {
        const QString path = m_world->path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("no file to test with");
    }

    LocalRescanResult scan()
    {
        QSignalSpy finished(&LocalIndexRescan::instance(), &LocalIndexRescan::signalFinished);
        LocalIndexRescan::instance().start({m_world->path(QStringLiteral("files"))});
        if (!finished.wait())
            qFatal("the rescan does not end");
        return finished.at(0).at(0).value<LocalRescanResult>();
    }

    static QString told(const LocalRescanResult& result)
    {
        return QStringLiteral("%1 recordings, %2 snapshots, %3 read, %4 broken, %5 gone")
            .arg(result.recordings)
            .arg(result.snapshots)
            .arg(result.read)
            .arg(result.broken)
            .arg(result.gone);
    }

    static QList<LocalRecordingIndexInfo> recordings()
    {
        LocalRecordingIndexes& indexes = LocalRecordingIndexes::instance();
        QSignalSpy answers(&indexes, &LocalRecordingIndexes::signalGetLocalRecordingIndexesInfoResult);
        emit indexes.signalGetLocalRecordingIndexesInfo(QStringLiteral("x"), QDateTime::fromMSecsSinceEpoch(0),
                                                        QDateTime::currentDateTime().addDays(1), 0);
        if (!answers.wait())
            qFatal("the index does not answer");
        return answers.at(0).at(1).value<QList<LocalRecordingIndexInfo>>();
    }

    /// Of the files in the index; with "!" behind those that are broken.
    static QStringList names()
    {
        QStringList names;
        for (const LocalRecordingIndexInfo& record : recordings())
            names.append(QFileInfo(record.filePath).fileName() + (record.ok() ? QString() : QStringLiteral("!")));
        names.sort();
        return names;
    }

    static int snapshots()
    {
        return LocalSnapImageIndexes::instance().getLocalSnapImageIndexesInfo(day, day.addDays(1)).size();
    }

    std::unique_ptr<TestWorld> m_world;
};

QTEST_GUILESS_MAIN(LocalIndexRescanTest)
#include "LocalIndexRescanTest.moc"
