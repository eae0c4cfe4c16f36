#include <DataFolder.h>
#include <SysPaths.h>
#include <VerbFolder.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using vemo_client::ExitCode;
using vemo_client::VerbFolder;

/// Programs that run at the same time on one data folder don't get at each other's work files.
class tst_VerbFolder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void givesEachOfTwoItsOwnFolder();
    void takesUpWhatACrashLeft();
    void tellsWhenTheDataFolderCannotBeUsed();

private:
    /// The folder for work files that a verb gets when it takes one now.
    QString takenBy(VerbFolder& folder);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_VerbFolder::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

QString tst_VerbFolder::takenBy(VerbFolder& folder)
{
    vemo_data::DataFolder::setRoot(m_dir->path());
    return folder.take().code == ExitCode::Done ? vemo_worker::SysPaths::tempDir() : QString();
}

void tst_VerbFolder::givesEachOfTwoItsOwnFolder()
{
    auto first = std::make_unique<VerbFolder>();
    VerbFolder second;
    const QString firstDir = takenBy(*first);
    const QString secondDir = takenBy(second);
    QVERIFY(!firstDir.isEmpty() && !secondDir.isEmpty());
    QVERIFY2(firstDir != secondDir, qPrintable(firstDir));
    first.reset();
    VerbFolder third;
    QCOMPARE(takenBy(third), firstDir);
}

void tst_VerbFolder::takesUpWhatACrashLeft()
{
    QString crashed;
    {
        VerbFolder first;
        VerbFolder second;
        takenBy(first);
        crashed = takenBy(second);
        QFile journal(crashed + QStringLiteral("/open-output"));
        QVERIFY(journal.open(QIODevice::WriteOnly));
    }
    VerbFolder next;
    QCOMPARE(takenBy(next), crashed);
}

void tst_VerbFolder::tellsWhenTheDataFolderCannotBeUsed()
{
    QFile inTheWay(m_dir->filePath(QStringLiteral("data")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    vemo_data::DataFolder::setRoot(m_dir->path());
    VerbFolder folder;
    const vemo_client::Outcome outcome = folder.take();
    QVERIFY(outcome.code == ExitCode::Disk);
    QVERIFY2(outcome.sentence.contains(m_dir->path()), qPrintable(outcome.sentence));
}

QTEST_GUILESS_MAIN(tst_VerbFolder)
#include "tst_VerbFolder.moc"
