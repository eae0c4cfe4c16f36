#include "QueueWorld.h"

#include <backup/BackupManifest.h>
#include <backup/BackupManifestFile.h>
#include <download/DiskWork.h>

#include <BackupTaskData.h>
#include <FileChecksum.h>

#include <QDir>
#include <QSemaphore>
#include <QSignalSpy>
#include <QtTest>

using namespace vemo_filesCenter;
using vemo_data::BackupTaskData;

namespace {

void owe(const QString& path)
{
    BackupTaskData::instance().addUnlisted({path, QStringLiteral("dev"), 1, QStringLiteral("Gate 1")});
}

} // namespace

/// The manifest of files on a disk that comes and goes.
class BackupManifestTest : public QObject
{
    Q_OBJECT

private slots:
    void remembersWhatLiesOnADiskThatIsPulled()
    {
        const QueueWorld world;
        const QString pulled = world.filePath(QStringLiteral("pulled/a.mp4"));
        owe(pulled);
        owe(world.filePath(QStringLiteral("removed.mp4")));
        world.writeFile(world.filePath(BackupManifestFile::jsonName()));
        BackupManifest manifest(nullptr);
        QTRY_VERIFY(manifest.isIdle());
        const QList<vemo_data::BackupUnlisted> left = BackupTaskData::instance().getUnlisted();
        QCOMPARE(left.size(), 1);
        QCOMPARE(left.first().filePath, pulled);
    }

    /// Between the summing up of a file and the writing of its manifest.
    void listsNothingOnADiskThatTookItsPlace()
    {
        const QueueWorld world;
        const QString folder = world.filePath(QStringLiteral("disk"));
        const QString away = world.filePath(QStringLiteral("away"));
        QVERIFY(QDir().mkpath(folder));
        owe(world.writeFile(folder + QStringLiteral("/a.mp4")));
        QSemaphore mayWrite;
        DiskWork::run([&mayWrite] { mayWrite.acquire(); }, qApp, [] {}, 0);
        {
            BackupManifest manifest(nullptr);
            QSignalSpy summed(manifest.findChild<VCOMMON::FileChecksum*>(), &VCOMMON::FileChecksum::signalFinished);
            const bool isSwapped = summed.wait() && QDir().rename(folder, away) && QDir().mkpath(folder);
            mayWrite.release();
            QVERIFY(isSwapped);
            QTRY_VERIFY(manifest.isIdle());
        }
        QVERIFY2(QDir(folder).isEmpty(), "the other disk got a manifest");
        QCOMPARE(BackupTaskData::instance().getUnlisted().size(), 1);
        // It is back, and what was owed is made up for.
        QVERIFY(QDir().rmdir(folder) && QDir().rename(away, folder));
        BackupManifest manifest(nullptr);
        QTRY_VERIFY(manifest.isIdle());
        QCOMPARE(BackupManifestFile::read(folder).size(), 1);
        QVERIFY(BackupTaskData::instance().getUnlisted().isEmpty());
    }
};

QTEST_MAIN(BackupManifestTest)
#include "BackupManifestTest.moc"
