#include <FileChecksum.h>

#include <QCryptographicHash>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using VCOMMON::FileChecksum;

namespace {

constexpr int chunkBytes = 1024 * 1024;
constexpr int patienceMs = 15000;

QByteArray pattern(int bytes)
{
    QByteArray data(bytes, Qt::Uninitialized);
    for (int i = 0; i < bytes; ++i)
        data[i] = static_cast<char>(i * 31 + i / 997);
    return data;
}

} // namespace

class FileChecksumTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<FileChecksum::Failure>(); }

    void sumsUpWholeFiles_data();
    void sumsUpWholeFiles();
    void writesLinesThatTheToolChecks_data();
    void writesLinesThatTheToolChecks();
    void tellsWhatIsMissingOrNoFile_data();
    void tellsWhatIsMissingOrNoFile();
    void saysNothingMoreOnceCancelled();
    void standsStillWhilePaused();

private:
    QString write(const QString& name, const QByteArray& content);

    QTemporaryDir m_dir;
};

QString FileChecksumTest::write(const QString& name, const QByteArray& content)
{
    QFile file(m_dir.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("no test file");
    return file.fileName();
}

void FileChecksumTest::sumsUpWholeFiles_data()
{
    QTest::addColumn<int>("bytes");
    for (const int bytes : {0, 1, chunkBytes - 1, chunkBytes, chunkBytes + 1, 5 * chunkBytes + 17})
        QTest::addRow("%d bytes", bytes) << bytes;
}

void FileChecksumTest::sumsUpWholeFiles()
{
    QFETCH(const int, bytes);
    const QByteArray content = pattern(bytes);
    FileChecksum checksum;
    QSignalSpy finished(&checksum, &FileChecksum::signalFinished);
    QSignalSpy progress(&checksum, &FileChecksum::signalProgress);
    QVERIFY(checksum.start(write(QStringLiteral("a"), content)));
    QVERIFY2(!checksum.start(QStringLiteral("b")), "one at a time");
    QVERIFY(finished.wait(patienceMs));
    QCOMPARE(finished.first().at(0).toByteArray(), QCryptographicHash::hash(content, QCryptographicHash::Sha256));
    QCOMPARE(finished.first().at(1).toLongLong(), static_cast<qint64>(bytes));
    QByteArray marks;
    for (int end = chunkBytes; end < bytes + chunkBytes; end += chunkBytes)
        marks += QCryptographicHash::hash(content.left(end), QCryptographicHash::Sha256).left(FileChecksum::markBytes);
    QCOMPARE(finished.first().at(2).toByteArray().toHex(), marks.toHex());
    QVERIFY(!checksum.isRunning());
    if (bytes > 0) {
        QCOMPARE(progress.last().at(0).toLongLong(), static_cast<qint64>(bytes));
        QCOMPARE(progress.last().at(1).toLongLong(), static_cast<qint64>(bytes));
    }
}

void FileChecksumTest::writesLinesThatTheToolChecks_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "Gate North@2026-01-10 08_00_00.mp4";
    QTest::newRow("umlauts and commas") << QStringLiteral("Tor Süd, Rampe 2.mp4");
    QTest::newRow("leading blanks") << "  two.mp4";
#if defined(Q_OS_UNIX)
    QTest::newRow("backslash") << "a\\b.mp4";
    QTest::newRow("line break") << "a\nb.mp4";
#endif
}

void FileChecksumTest::writesLinesThatTheToolChecks()
{
    QFETCH(const QString, name);
    const QByteArray content = pattern(1000);
    const QString path = write(name, content);
    const QString line = FileChecksum::checkLine(QCryptographicHash::hash(content, QCryptographicHash::Sha256), path) +
                         QLatin1Char('\n');
    QProcess tool;
    tool.setWorkingDirectory(m_dir.path());
    tool.start(QStringLiteral("sha256sum"), {QStringLiteral("--strict"), QStringLiteral("-c")});
    if (!tool.waitForStarted())
        QSKIP("sha256sum is not installed");
    tool.write(line.toUtf8());
    tool.closeWriteChannel();
    QVERIFY(tool.waitForFinished());
    QVERIFY2(tool.exitCode() == 0, tool.readAllStandardError().constData());
}

void FileChecksumTest::tellsWhatIsMissingOrNoFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_dir.filePath(QStringLiteral("gone"));
    QTest::newRow("folder") << m_dir.path();
#if defined(Q_OS_UNIX)
    QTest::newRow("device without end") << QStringLiteral("/dev/zero");
#endif
}

void FileChecksumTest::tellsWhatIsMissingOrNoFile()
{
    QFETCH(const QString, path);
    FileChecksum checksum;
    QSignalSpy failed(&checksum, &FileChecksum::signalFailed);
    QVERIFY(checksum.start(path));
    QVERIFY(failed.wait(patienceMs));
    QCOMPARE(failed.first().at(0).value<FileChecksum::Failure>(), FileChecksum::Failure::Missing);
    QVERIFY(failed.first().at(1).toString().contains(path));
}

void FileChecksumTest::saysNothingMoreOnceCancelled()
{
    const QString path = write(QStringLiteral("long"), pattern(32 * chunkBytes));
    FileChecksum checksum;
    QSignalSpy finished(&checksum, &FileChecksum::signalFinished);
    QSignalSpy failed(&checksum, &FileChecksum::signalFailed);
    QVERIFY(checksum.start(path));
    checksum.cancel();
    QVERIFY(!checksum.isRunning());
    // Another file at once: nothing of the first may be taken for it.
    const QByteArray content = pattern(3);
    QVERIFY(checksum.start(write(QStringLiteral("short"), content)));
    QVERIFY(finished.wait(patienceMs));
    QTest::qWait(50);
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished.first().at(0).toByteArray(), QCryptographicHash::hash(content, QCryptographicHash::Sha256));
    QVERIFY(failed.isEmpty());
}

void FileChecksumTest::standsStillWhilePaused()
{
    FileChecksum checksum;
    QSignalSpy finished(&checksum, &FileChecksum::signalFinished);
    checksum.setPaused(true);
    QVERIFY(checksum.start(write(QStringLiteral("a"), pattern(10))));
    QVERIFY(!finished.wait(200));
    checksum.setPaused(false);
    QVERIFY(finished.wait(patienceMs));

    checksum.setPaused(true);
    QVERIFY(checksum.start(write(QStringLiteral("a"), pattern(10))));
    // Destroying one that stands must not hang.
}

QTEST_GUILESS_MAIN(FileChecksumTest)
#include "FileChecksumTest.moc"
