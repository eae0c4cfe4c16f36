#include "../platform/TestWorld.h"

#include <backup/BackupManifestFile.h>
#include <backup/BackupPaths.h>
#include <backup/ExportBackupFiles.h>

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStorageInfo>
#include <QTest>

#include <memory>

using vemo_data::BackupTaskInfo;
using vemo_filesCenter::BackupManifestFile;
using vemo_filesCenter::ExportBackupFiles;
using vemo_filesCenter::BackupPaths::folder;

namespace {

struct Counts
{
    int total;
    int succeeded;
    int failed;
};

} // namespace
Q_DECLARE_METATYPE(Counts)

class ExportBackupFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        m_task = {};
        m_task.date = QDate(2026, 1, 10);
        m_task.channelId = QStringLiteral("dev|1");
        m_task.channelName = QStringLiteral("Gate: north/south");
        m_task.deviceNo = QStringLiteral("NVR-1");
        m_task.channelNo = 1;
        m_backup = folder(m_world->path(QStringLiteral("backup")), m_task);
        m_target = m_world->path(QStringLiteral("usb"));
        QVERIFY(QDir().mkpath(m_backup) && QDir().mkpath(m_target));
        m_exported = folder(m_target, m_task);
    }

    void copiesWhatIsFinishedAndListsItForTheTool()
    {
        addPiece("080000-090000.mp4", 3'000'000);
        addPiece("unfinished.mp4", 500, false);
        addPiece("removed.mp4", 500);
        QVERIFY(QFile::remove(m_backup + QStringLiteral("/removed.mp4")));
        addPiece("100000-110000.mp4", 1'000'000);
        addPiece("", 0);
        ExportBackupFiles files;
        QSignalSpy progress(&files, &ExportBackupFiles::signalExportProgress);
        compare(files, {2, 2, 0});
        for (const QList<QVariant>& report : qAsConst(progress))
            QCOMPARE(report.at(2).toInt() == 100, &report == &progress.last());
        QCOMPARE(progress.last().at(0).toLongLong(), 4'000'000LL);
        QCOMPARE(progress.last().at(1).toInt(), 2);

        const QStringList names = QDir(m_exported).entryList(QDir::Files | QDir::Hidden);
        QCOMPARE(names, QStringList({QStringLiteral("080000-090000.mp4"), QStringLiteral("100000-110000.mp4"),
                                     BackupManifestFile::jsonName(), BackupManifestFile::sumsName()}));
        QProcess tool;
        tool.setWorkingDirectory(m_exported);
        tool.start(QStringLiteral("sha256sum"),
                   {QStringLiteral("--strict"), QStringLiteral("-c"), BackupManifestFile::sumsName()});
        QVERIFY(tool.waitForFinished());
        QCOMPARE(tool.exitCode(), 0);
        QCOMPARE(tool.readAllStandardOutput().count(": OK\n"), 2);

        // Once more into the same folder: what is there counts, and is listed once.
        compare(files, {2, 2, 0});
        QCOMPARE(QDir(m_exported).entryList(QDir::Files | QDir::Hidden), names);
        QCOMPARE(BackupManifestFile::read(m_exported).size(), 2);
    }

    void finishesWithNothingWhenThereIsNothing_data()
    {
        QTest::addColumn<bool>("withDeleted");
        QTest::addColumn<bool>("withEmpty");
        QTest::newRow("no entries") << false << false;
        QTest::newRow("all deleted from disk") << true << false;
        QTest::newRow("only an empty file") << false << true;
    }

    void finishesWithNothingWhenThereIsNothing()
    {
        QFETCH(bool, withDeleted);
        QFETCH(bool, withEmpty);
        if (withDeleted) {
            addPiece("gone.mp4", 10);
            QVERIFY(QFile::remove(m_backup + QStringLiteral("/gone.mp4")));
        }
        if (withEmpty)
            addPiece("empty.mp4", 0);
        ExportBackupFiles files;
        compare(files, {0, 0, 0});
        QVERIFY(QDir(m_target).isEmpty());
    }

    void countsWhatATargetRefusesAndLeavesNothing_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<Counts>("counts");
        QTest::newRow("vanishes behind the first file") << "vanishes" << Counts{3, 1, 2};
        QTest::newRow("another disk takes its place") << "replaced" << Counts{3, 1, 2};
        QTest::newRow("no room for one of them") << "full" << Counts{3, 2, 1};
        QTest::newRow("takes no files") << "read-only" << Counts{3, 0, 3};
        QTest::newRow("a link leads elsewhere") << "link" << Counts{3, 0, 3};
        QTest::newRow("was never there") << "missing" << Counts{3, 0, 3};
    }

    void countsWhatATargetRefusesAndLeavesNothing()
    {
        QFETCH(QString, fault);
        QFETCH(Counts, counts);
        addPiece("080000-090000.mp4", 200'000);
        addPiece("100000-110000.mp4", 1'000'000);
        addPiece("120000-130000.mp4", 1'000'000);
        const QString elsewhere = m_world->path(QStringLiteral("elsewhere"));
        QVERIFY(QDir().mkpath(elsewhere));
        ExportBackupFiles files;
        if (fault == QLatin1String("full")) {
            const qint64 tooMuch = QStorageInfo(m_target).bytesAvailable() + (1LL << 32);
            QFile film(m_task.fileInfos.at(1).filePath);
            if (!film.resize(tooMuch))
                QSKIP("this file system keeps no files with holes");
        } else if (fault == QLatin1String("read-only")) {
            m_target = QStringLiteral("/proc/self"); // refuses root as well
            if (!QFileInfo(m_target).isDir())
                QSKIP("no such folder on this system");
        } else if (fault == QLatin1String("link")) {
            QVERIFY(QFile::link(elsewhere, QFileInfo(m_exported).path()));
        } else if (fault == QLatin1String("missing")) {
            m_target += QStringLiteral("/missing");
        } else {
            // Of holes, and long enough on the way for the target to go meanwhile.
            QVERIFY(QFile::resize(m_task.fileInfos.at(1).filePath, 300'000'000));
            connect(&files, &ExportBackupFiles::signalExportProgress, this, [&](qint64, int finished, int) {
                const QString away = m_world->path(QStringLiteral("away"));
                if (finished == 1 && QDir().rename(m_target, away) && fault == QLatin1String("replaced"))
                    QVERIFY(QDir().mkpath(m_target));
            });
        }
        const QByteArray before = sumOf(m_backup);
        compare(files, counts);
        QCOMPARE(sumOf(m_backup), before);
        QVERIFY(QDir(elsewhere).isEmpty());
        int copies = 0;
        for (const QString& place : {m_world->path(QStringLiteral("usb")), m_world->path(QStringLiteral("away"))}) {
            QDirIterator found(place, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
            while (found.hasNext()) {
                const QString name = QFileInfo(found.next()).fileName();
                QVERIFY2(!name.endsWith(QLatin1String(".part")), qPrintable(name));
                copies += name.endsWith(QLatin1String(".mp4")) ? 1 : 0;
            }
        }
        QCOMPARE(copies, counts.succeeded);
    }

    void cancelsOnATargetThatIsSlow_data()
    {
        QTest::addColumn<int>("whole");
        QTest::newRow("before the first byte") << 0;
        QTest::newRow("in the second of three files") << 1;
    }

    void cancelsOnATargetThatIsSlow()
    {
        QFETCH(int, whole);
        for (const char* name : {"080000-090000.mp4", "100000-110000.mp4", "120000-130000.mp4"})
            addPiece(name, 200'000);
        QVERIFY(QFile::resize(m_task.fileInfos.at(1).filePath, 1'000'000'000)); // of holes: a second on any disk
        ExportBackupFiles files;
        QElapsedTimer sinceCancel;
        connect(&files, &ExportBackupFiles::signalExportProgress, this, [&](qint64, int finished, int) {
            if (finished == whole && !sinceCancel.isValid()) {
                sinceCancel.start();
                files.cancel();
            }
        });
        const QByteArray before = sumOf(m_backup);
        QSignalSpy finished(&files, &ExportBackupFiles::signalExportFinished);
        QVERIFY(files.exportTask(m_task, m_target));
        if (whole == 0) {
            sinceCancel.start();
            files.cancel();
        }
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 60000);
        QVERIFY2(sinceCancel.elapsed() < 10000, "cancelling takes as long as the copy");
        QCOMPARE(finished.at(0), QList<QVariant>({whole, whole, 0}));
        QCOMPARE(sumOf(m_backup), before);
        QCOMPARE(QDir(m_exported).entryList({QStringLiteral("*.mp4"), QStringLiteral("*.part")}, QDir::Files).size(),
                 whole);
        QCOMPARE(BackupManifestFile::read(m_exported).size(), whole);
    }

    void tellsOriginalsThatWereDamagedSinceTheirBackup_data()
    {
        QTest::addColumn<int>("backedUpBytes");
        QTest::newRow("other bytes") << 5000;
        QTest::newRow("cut off") << 9000;
    }

    void tellsOriginalsThatWereDamagedSinceTheirBackup()
    {
        QFETCH(int, backedUpBytes);
        addPiece("080000-090000.mp4", 5000);
        BackupManifestFile::Record record;
        record.file = QStringLiteral("080000-090000.mp4");
        record.bytes = backedUpBytes;
        record.sha256 = QByteArray(32, 'x');
        QVERIFY(BackupManifestFile::merge(m_backup, {record}));
        ExportBackupFiles files;
        compare(files, {1, 0, 1});
        QCOMPARE(BackupManifestFile::read(m_exported).value(0).sha256, record.sha256);
    }

    void keepsSomeoneElsesListOfChecksums()
    {
        addPiece("080000-090000.mp4", 5000);
        QVERIFY(QDir().mkpath(m_exported));
        const QString list = m_exported + QLatin1Char('/') + BackupManifestFile::sumsName();
        write(list, QByteArrayLiteral("theirs"));
        ExportBackupFiles files;
        compare(files, {1, 1, 0});
        QFile kept(list);
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), QByteArrayLiteral("theirs"));
    }

private:
    void addPiece(const char* name, int bytes, bool finished = true)
    {
        BackupTaskInfo::FileInfo entry;
        entry.finished = finished;
        if (*name) {
            entry.filePath = m_backup + QLatin1Char('/') + QString::fromLatin1(name);
            write(entry.filePath, QByteArray(bytes, 'x'));
        }
        m_task.fileInfos.append(entry);
    }

    static void write(const QString& path, const QByteArray& data)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
    }

    /// Of names, sizes and times.
    static QByteArray sumOf(const QString& path)
    {
        QByteArray state;
        for (const QFileInfo& info : QDir(path).entryInfoList(QDir::Files | QDir::Hidden))
            state += info.fileName().toUtf8() + QByteArray::number(info.size()) +
                     QByteArray::number(info.lastModified().toMSecsSinceEpoch());
        return state;
    }

    void compare(ExportBackupFiles& files, const Counts& expected)
    {
        QSignalSpy finished(&files, &ExportBackupFiles::signalExportFinished);
        QSignalSpy failures(&files, &ExportBackupFiles::signalExportFileFailed);
        QVERIFY(files.exportTask(m_task, m_target));
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 60000);
        QCOMPARE(finished.at(0), QList<QVariant>({expected.total, expected.succeeded, expected.failed}));
        QCOMPARE(failures.size(), expected.failed);
    }

    std::unique_ptr<TestWorld> m_world;
    BackupTaskInfo m_task;
    QString m_backup;
    QString m_target;
    QString m_exported;
};

QTEST_GUILESS_MAIN(ExportBackupFilesTest)
#include "ExportBackupFilesTest.moc"
