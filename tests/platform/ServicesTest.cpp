#include "TestWorld.h"

#include <DiskManager.h>
#include <FilesCenterLogs.h>
#include <SysPaths.h>
#include <SystemConfig.h>
#include <SystemWorker.h>
#include <UiSettings.h>

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

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
        QCOMPARE(QFile::permissions(SysPaths::settingsFile()) & (QFile::ReadGroup | QFile::ReadOther),
                 QFile::Permissions());
        QVERIFY(SysPaths::settingsFile().startsWith(m_world->path(QString())));
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

    void writesTheFilesCenterLog()
    {
        FilesCenterLogs::instance().recordDownloadEventLog(QStringLiteral("Recorder"), 3, QString(),
                                                           QStringLiteral("Download success"));
        QString line;
        QVERIFY(vemo_data::Database::instance().run([&line](QSqlDatabase& db) {
            QSqlQuery query(db);
            if (!query.exec(QStringLiteral("SELECT kind, device, channel_no, text FROM files_center_logs")) ||
                !query.next())
                return false;
            for (int i = 0; i < 4; ++i)
                line += query.value(i).toString() + QLatin1Char(';');
            return true;
        }));
        QCOMPARE(line, QStringLiteral("1;Recorder;3;Download success;"));
    }

private:
    std::unique_ptr<TestWorld> m_world;
};

QTEST_GUILESS_MAIN(ServicesTest)
#include "ServicesTest.moc"
