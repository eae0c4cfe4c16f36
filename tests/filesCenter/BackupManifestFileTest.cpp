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
    void tellsWhatItLacks();
    void removesOnlyItsOwnLeftovers_data();
    void removesOnlyItsOwnLeftovers();
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

void BackupManifestFileTest::tellsWhatItLacks()
{
    const QTemporaryDir world;
    const QString listed = world.filePath(QStringLiteral("a.mp4"));
    const QString lacking = world.filePath(QStringLiteral("b.mp4"));
    write(listed, "a");
    write(lacking, "b");
    QVERIFY(BackupManifestFile::merge(world.path(), one(QStringLiteral("a.mp4"))));
    const QStringList asked{listed, lacking, world.filePath(QStringLiteral("gone.mp4"))};
    QCOMPARE(BackupManifestFile::unlisted(asked), QStringList{lacking});
    QVERIFY(QFile::remove(world.filePath(BackupManifestFile::jsonName())));
    QCOMPARE(BackupManifestFile::unlisted(asked), (QStringList{listed, lacking}));
}

void BackupManifestFileTest::removesOnlyItsOwnLeftovers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content"); ///< null: what the file without the last part of the name holds
    QTest::addColumn<bool>("isRemoved");
    const auto row = [](const char* name, const QByteArray& content, bool isRemoved) {
        QTest::addRow("%s, %s", name, content.isNull() ? "ours" : content.constData())
            << QString::fromLatin1(name) << content << isRemoved;
    };
    row("manifest.json.aBcXyZ", {}, true);
    row("SHA256SUMS.qqqqqQ", {}, true);
    row("manifest.json.backup", {}, false);
    row("manifest.json.aBcXyZ", "", true);
    row("SHA256SUMS.AbCdEf", QByteArray(64, '\0'), true);
    row("manifest.json.backup", "not ours", false);
    row("SHA256SUMS.backup", "{\"files\": 7}", false);
    for (const char* name : {"manifest.json.aBcXy", "manifest.json.aBcXyZz", "manifest.json.aBcXy1",
                             "SHA256SUMS.a.BcXy", "Manifest.json.aBcXyZ", "a.manifest.json.aBcXyZ", "MD5SUMS.aBcXyZ"})
        row(name, "", false);
}

void BackupManifestFileTest::removesOnlyItsOwnLeftovers()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    QFETCH(const bool, isRemoved);
    const QTemporaryDir world;
    const QString path = world.filePath(name);
    QVERIFY(BackupManifestFile::merge(world.path(), one(QStringLiteral("a.mp4"))));
    const QString whole = world.filePath(name.left(name.lastIndexOf(QLatin1Char('.'))));
    write(path, content.isNull() ? contentOf(whole) : content);
    const QString precious = world.filePath(QStringLiteral("precious"));
    const QString link = world.filePath(QStringLiteral("manifest.json.LinkTo"));
    write(precious, {});
    QVERIFY(QFile::link(precious, link) && QDir(world.path()).mkdir(QStringLiteral("SHA256SUMS.Folder")));

    QVERIFY(BackupManifestFile::merge(world.path(), one(QStringLiteral("b.mp4"))));
    QCOMPARE(QFileInfo::exists(path), !isRemoved);
    QVERIFY(QFileInfo(link).isSymLink() && QFileInfo::exists(precious));
    QVERIFY(QFileInfo(world.filePath(QStringLiteral("SHA256SUMS.Folder"))).isDir());
    QCOMPARE(BackupManifestFile::read(world.path()).size(), 2);
}

QTEST_GUILESS_MAIN(BackupManifestFileTest)
#include "BackupManifestFileTest.moc"
