#include <backup/BackupManifestFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using vemo_filesCenter::BackupManifestFile;

/// The manifest on a disk that others write to as well.
class BackupManifestFileTest : public QObject
{
    Q_OBJECT

private slots:
    void neitherFollowsNorWaitsForWhatStandsInItsPlace_data();
    void neitherFollowsNorWaitsForWhatStandsInItsPlace();
    void takesNoRecordThatIsNotOfItsFolder();
};

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QList<BackupManifestFile::Record> one(const QString& name)
{
    BackupManifestFile::Record record;
    record.file = name;
    record.sha256 = QByteArray(32, 's');
    return {record};
}

} // namespace

void BackupManifestFileTest::neitherFollowsNorWaitsForWhatStandsInItsPlace_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("trap");
    QTest::addColumn<bool>("isWritten");
    for (const QString& name : {BackupManifestFile::sumsName(), BackupManifestFile::jsonName()}) {
        for (const char* trap : {"link", "dangling"})
            QTest::addRow("%s is a %s", qPrintable(name), trap) << name << QString::fromLatin1(trap) << true;
        for (const char* trap : {"pipe", "folder"})
            QTest::addRow("%s is a %s", qPrintable(name), trap) << name << QString::fromLatin1(trap) << false;
    }
}

void BackupManifestFileTest::neitherFollowsNorWaitsForWhatStandsInItsPlace()
{
    QFETCH(const QString, name);
    QFETCH(const QString, trap);
    QFETCH(const bool, isWritten);
    const QTemporaryDir world;
    const QString folder = world.filePath(QStringLiteral("backup"));
    const QString precious = world.filePath(QStringLiteral("precious"));
    const QString path = folder + QLatin1Char('/') + name;
    QVERIFY(QDir().mkpath(folder));
    write(precious, "not ours");
    if (trap == QLatin1String("link"))
        QVERIFY(QFile::link(precious, path));
    else if (trap == QLatin1String("dangling"))
        QVERIFY(QFile::link(world.filePath(QStringLiteral("new")), path));
    else if (trap == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(path));
    else if (QProcess::execute(QStringLiteral("mkfifo"), {path}) != 0)
        QSKIP("no pipes here");

    QCOMPARE(BackupManifestFile::merge(folder, one(QStringLiteral("a.mp4"))), isWritten);
    QCOMPARE(contentOf(precious), QByteArrayLiteral("not ours"));
    QVERIFY(!QFileInfo::exists(world.filePath(QStringLiteral("new"))));
    if (isWritten) {
        QVERIFY(QFileInfo(path).isFile() && !QFileInfo(path).isSymLink());
        QCOMPARE(BackupManifestFile::read(folder).size(), 1);
    }
}

void BackupManifestFileTest::takesNoRecordThatIsNotOfItsFolder()
{
    const QTemporaryDir world;
    QVERIFY(BackupManifestFile::merge(world.path(), one(QStringLiteral("a.mp4"))));
    const QString path = world.filePath(BackupManifestFile::jsonName());
    QByteArray json = contentOf(path);
    for (const char* name : {"../a.mp4", "/etc/passwd", ""}) {
        write(path, QByteArray(json).replace("a.mp4", name));
        QVERIFY2(BackupManifestFile::read(world.path()).isEmpty(), name);
    }
    write(path, "{\"files\": 7}");
    QVERIFY(BackupManifestFile::read(world.path()).isEmpty());
}

QTEST_GUILESS_MAIN(BackupManifestFileTest)
#include "BackupManifestFileTest.moc"
