#include "TestWorld.h"

#include <DiskManager.h>
#include <FilesCenterLogs.h>
#include <SettingsFile.h>
#include <SysPaths.h>
#include <SystemAssistant.h>
#include <SystemConfig.h>
#include <SystemWorker.h>
#include <UiSettings.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>
#include <QSettings>
#include <QtTest>

#include <algorithm>

using namespace vemo_worker;

class ServicesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        // The default of the videos folder goes by the home folder.
        qputenv("HOME", m_world->path(QString()).toLocal8Bit());
        qputenv("XDG_DATA_HOME", m_world->path(QStringLiteral("data/share")).toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", m_world->path(QStringLiteral("xdg")).toLocal8Bit());
    }

    void cleanup() { m_world.reset(); }

    void makesTheDefaultFoldersButNeverAChosenOne()
    {
        SystemConfig& config = SystemConfig::instance();
        QVERIFY(!QFileInfo::exists(config.getVideoFilePath(false)));
        QVERIFY(QFileInfo(config.getVideoFilePath(true)).isDir());
        QVERIFY(config.getDownloadPath().startsWith(config.getVideoFilePath(false)));
        QVERIFY(QFileInfo(config.getDownloadPath()).isDir());
        QVERIFY(QFileInfo(config.getRecordingBackupPath()).isDir());

        const QString chosen = m_world->path(QStringLiteral("disk that is not there"));
        config.setVideoFilePath(chosen);
        QCOMPARE(config.getVideoFilePath(true), chosen);
        QCOMPARE(config.getDownloadPath(), QString(chosen + QStringLiteral("/Downloads")));
        QVERIFY(!QFileInfo::exists(chosen));
        config.setDownloadPath(m_world->path(QStringLiteral("elsewhere")));
        QCOMPARE(config.getDownloadPath(), m_world->path(QStringLiteral("elsewhere")));
    }

    void keepsSettingsForTheirOwnerAlone()
    {
        UiSettings::instance().setValue(QStringLiteral("times"), QVariantList{QTime(8, 0), QTime(9, 30)});
        SystemConfig::instance().setDateFormat(QStringLiteral("dd.MM.yyyy"));
        QCOMPARE(UiSettings::instance().value(QStringLiteral("times")).toList().value(1).toTime(), QTime(9, 30));
        QCOMPARE(SystemConfig::instance().getDateFormat(), QStringLiteral("dd.MM.yyyy"));
        QCOMPARE(QFile::permissions(vemo_data::DataFolder::settingsFile()) & (QFile::ReadGroup | QFile::ReadOther),
                 QFile::Permissions());
        QVERIFY(vemo_data::DataFolder::settingsFile().startsWith(m_world->path(QString())));
    }

    void waitsForNoDiskWithASetting()
    {
        const QString key = QStringLiteral("page");
        const QString path = vemo_data::DataFolder::settingsFile();
        QLockFile held(path + QStringLiteral(".lock")); // as a disk that takes long
        QVERIFY(held.lock());
        QElapsedTimer waited;
        waited.start();
        UiSettings::instance().setValue(key, 1);
        UiSettings::instance().setValue(key, 2);
        QCOMPARE(UiSettings::instance().value(key).toInt(), 2);
        QVERIFY(waited.elapsed() < 500);
        held.unlock();
        vemo_data::SettingsFile::instance().flush();
        QSettings other(path, QSettings::IniFormat); // of another process
        QCOMPARE(other.value(QStringLiteral("ui/page")).toInt(), 2);
        other.setValue(QStringLiteral("ui/page"), 3);
        other.sync();
        QCOMPARE(UiSettings::instance().value(key).toInt(), 3);
    }

    void testsEveryBitOfAPower()
    {
        SystemWorker& worker = SystemWorker::instance();
        QVERIFY(worker.isCurUserHasPower(PowerDownload | PowerLocalRecordings));
        worker.setCurUser(QStringLiteral("guard"), PowerLocalRecordings);
        QVERIFY(worker.isCurUserHasPower(PowerLocalRecordings));
        QVERIFY(!worker.isCurUserHasPower(PowerDownload | PowerLocalRecordings));
        worker.setCurUser(QStringLiteral("admin"), SystemWorker::allPowers);
    }

    void tellsOfDisksAndFolders()
    {
        const DiskManager& disks = DiskManager::instance();
        const QString missing = m_world->path(QStringLiteral("a/b/c.mp4"));
        QCOMPARE(DiskManager::existingFolderOf(missing), QFileInfo(m_world->path(QString())).absoluteFilePath());
        QVERIFY(!disks.getDiskName(missing).isEmpty());
        QVERIFY(SystemWorker::instance().getDiskFreeSpace(missing) > 0);
        QVERIFY(disks.isPathAvailable(m_world->path(QString()), true));
        QVERIFY(!disks.isPathAvailable(missing, false));
        QVERIFY(!disks.isPathAvailable(QString(), true));
        QVERIFY(
            QDir(m_world->path(QString())).entryList({QStringLiteral(".vemo*")}, QDir::Files | QDir::Hidden).isEmpty());
        if (QFile::exists(QStringLiteral("/proc/self")))
            QVERIFY(!disks.isPathAvailable(QStringLiteral("/proc/self"), true)); // nothing can be made there
    }

    void pagesThroughTheFilesCenterLogNewestFirst()
    {
        FilesCenterLogs& logs = FilesCenterLogs::instance();
        for (int i = 0; i < 25; ++i)
            logs.recordDownloadEventLog(QStringLiteral("Recorder"), i,
                                        i % 5 == 0 ? QStringLiteral("50%_Tor") : QString(),
                                        QStringLiteral("Download success"));
        FilesCenterLogs::Query query;
        query.limit = 10;
        QList<int> seen;
        for (int page = 0; page < 3; ++page) {
            const QList<FilesCenterLogs::Entry> entries = ask(query);
            for (const FilesCenterLogs::Entry& entry : entries)
                seen.append(entry.channelNo);
            query.beforeId = entries.isEmpty() ? 0 : entries.last().id;
        }
        QCOMPARE(seen.size(), 25);
        QVERIFY(std::is_sorted(seen.crbegin(), seen.crend()));

        query = {};
        query.contains = QStringLiteral("0%_t"); // wildcards of the query language mean themselves
        QCOMPARE(ask(query).size(), 5);
        query.contains = QStringLiteral("s%s");
        QCOMPARE(ask(query).size(), 0);
        query = {};
        query.end = QDateTime::currentDateTime().addSecs(-60);
        QCOMPARE(ask(query).size(), 0);
    }

    void removesFilesAndNothingBehindLinks()
    {
        const auto make = [this](const char* name) {
            const QString path = m_world->path(QString::fromLatin1(name));
            QFile file(path);
            return file.open(QIODevice::WriteOnly) ? path : QString();
        };
        const QString media = make("a.b.mp4");
        const QString index = make("a.b.vdx");
        const QString target = make("target");
        const QString link = m_world->path(QStringLiteral("link"));
        QVERIFY(QFile::link(target, link));
        const QString folder = m_world->path(QStringLiteral("folder"));
        QVERIFY(QDir().mkdir(folder));
        const QString pipe = m_world->path(QStringLiteral("pipe.mp4"));
        QProcess::execute(QStringLiteral("mkfifo"), {pipe});
        SystemAssistant::instance().removeVdxFiles({media});
        const QStringList left = remove({media, link, folder, m_world->path(QStringLiteral("nothing")), pipe});
        QCOMPARE(left, QFileInfo::exists(pipe) ? QStringList({folder, pipe}) : QStringList{folder});
        QVERIFY(!QFileInfo::exists(media) && !QFileInfo::exists(index) && !QFileInfo(link).isSymLink());
        QVERIFY(QFileInfo::exists(target) && QFileInfo(folder).isDir());
        const QString bin = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        if (QSysInfo::productType() != QLatin1String("windows"))
            QVERIFY(QFileInfo::exists(bin + QStringLiteral("/Trash/files/a.b.mp4")));
    }

    void removesThousandsWhileTheWindowGoesOn()
    {
        QStringList paths;
        for (int i = 0; i < 3000; ++i) {
            paths.append(m_world->path(QStringLiteral("%1.jpg").arg(i)));
            QVERIFY(QFile(paths.last()).open(QIODevice::WriteOnly));
        }
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&ticks] { ++ticks; });
        timer.start(1);
        QCOMPARE(remove(paths), QStringList());
        QVERIFY2(ticks > 10, qPrintable(QString::number(ticks)));
    }

private:
    /// What is still there afterwards.
    QStringList remove(const QStringList& paths)
    {
        bool answered = false;
        QStringList left;
        SystemAssistant::instance().removeFiles(paths, this, [&](const QStringList& remaining) {
            answered = true;
            left = remaining;
        });
        return QTest::qWaitFor([&answered] { return answered; }, 60000) ? left
                                                                        : QStringList{QStringLiteral("no answer")};
    }

    QList<FilesCenterLogs::Entry> ask(const FilesCenterLogs::Query& query)
    {
        bool answered = false;
        QList<FilesCenterLogs::Entry> result;
        FilesCenterLogs::instance().query(query, this, [&](const QList<FilesCenterLogs::Entry>& entries) {
            answered = true;
            result = entries;
        });
        return QTest::qWaitFor([&answered] { return answered; }) ? result : QList<FilesCenterLogs::Entry>();
    }

    std::unique_ptr<TestWorld> m_world;
};

QTEST_GUILESS_MAIN(ServicesTest)
#include "ServicesTest.moc"
