#include <OutPath.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(vemo_client::ExitCode)

using vemo_client::ExitCode;
using vemo_client::Outcome;
using vemo_client::OutPath;

/// Where downloads go: never onto something that is there, always to a place that can be written.
class tst_OutPath : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void namesWhatIsWrongWithThePlace_data();
    void namesWhatIsWrongWithThePlace();
    void makesTheFolderThatIsAskedFor();
    void numbersNamesThatAreTaken();
    void neverWritesThroughALink();
    void givesTwoDownloadsOfOneRunTwoNames();
    void namesFilesAsTheClientDoes();
    void keepsNamesFromDevicesInTheFolder_data();
    void keepsNamesFromDevicesInTheFolder();

private:
    QString make(const QString& name);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_OutPath::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

QString tst_OutPath::make(const QString& name)
{
    QFile file(m_dir->filePath(name));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    return file.fileName();
}

void tst_OutPath::namesWhatIsWrongWithThePlace_data()
{
    QTest::addColumn<QString>("out");
    QTest::addColumn<bool>("several");
    QTest::addColumn<ExitCode>("code");
    QTest::newRow("a file in a folder") << QStringLiteral("clip.mp4") << false << ExitCode::Done;
    QTest::newRow("a folder that is not there") << QStringLiteral("nowhere/clip.mp4") << false << ExitCode::Disk;
    QTest::newRow("a file in place of the folder") << QStringLiteral("there.mp4/clip.mp4") << false << ExitCode::Disk;
    QTest::newRow("several into a file") << QStringLiteral("there.mp4") << true << ExitCode::Usage;
#if defined(Q_OS_UNIX)
    QTest::newRow("a device") << QStringLiteral("/dev/null") << false << ExitCode::Disk;
    QTest::newRow("a folder below a file") << QStringLiteral("there.mp4/below/") << false << ExitCode::Disk;
#endif
}

void tst_OutPath::namesWhatIsWrongWithThePlace()
{
    QFETCH(QString, out);
    QFETCH(bool, several);
    QFETCH(ExitCode, code);
    QVERIFY(!make(QStringLiteral("there.mp4")).isEmpty());
    OutPath path(QDir(m_dir->path()).isAbsolutePath(out) ? out : m_dir->filePath(out), several);
    const Outcome outcome = path.prepare();
    QVERIFY2(outcome.code == code, qPrintable(outcome.sentence));
    QCOMPARE(outcome.sentence.isEmpty(), code == ExitCode::Done);
    QVERIFY2(code == ExitCode::Done || outcome.sentence.endsWith(QLatin1Char('.')), qPrintable(outcome.sentence));
}

void tst_OutPath::makesTheFolderThatIsAskedFor()
{
    const QString folder = m_dir->filePath(QStringLiteral("new/one"));
    OutPath path(folder, true);
    QCOMPARE(path.prepare().code, ExitCode::Done);
    QVERIFY(path.namesItself());
    QVERIFY(QFileInfo(folder).isDir());
    QCOMPARE(path.take(QStringLiteral("a.mp4")), QString(folder + QStringLiteral("/a.mp4")));
}

void tst_OutPath::numbersNamesThatAreTaken()
{
    const QString wanted = make(QStringLiteral("clip.mp4"));
    make(QStringLiteral("clip (2).mp4"));
    OutPath file(wanted, false);
    QCOMPARE(file.prepare().code, ExitCode::Done);
    QVERIFY(!file.namesItself());
    QCOMPARE(file.take({}), m_dir->filePath(QStringLiteral("clip (3).mp4")));

    // The dot of a folder's name is no suffix.
    make(QStringLiteral("clip"));
    OutPath bare(m_dir->filePath(QStringLiteral("clip")), false);
    QCOMPARE(bare.prepare().code, ExitCode::Done);
    QCOMPARE(bare.take({}), m_dir->filePath(QStringLiteral("clip (2)")));
}

void tst_OutPath::neverWritesThroughALink()
{
    const QString link = m_dir->filePath(QStringLiteral("clip.mp4"));
    QVERIFY(QFile::link(m_dir->filePath(QStringLiteral("elsewhere.mp4")), link));
    OutPath path(link, false);
    QCOMPARE(path.prepare().code, ExitCode::Done);
    QCOMPARE(path.take({}), m_dir->filePath(QStringLiteral("clip (2).mp4")));
}

void tst_OutPath::givesTwoDownloadsOfOneRunTwoNames()
{
    OutPath path(m_dir->path(), true);
    QCOMPARE(path.prepare().code, ExitCode::Done);
    const QString first = path.take(QStringLiteral("same.mp4"));
    const QString second = path.take(QStringLiteral("same.mp4"));
    QVERIFY2(first != second, qPrintable(first));
}

void tst_OutPath::namesFilesAsTheClientDoes()
{
    const QDateTime begin(QDate(2026, 1, 10), QTime(8, 0));
    QCOMPARE(OutPath::fileName(QStringLiteral("Gate North"), QStringLiteral("Recorder"), 3, begin, begin.addSecs(1860),
                               QStringLiteral("Edge/Card")),
             QStringLiteral("Gate North@Recorder_3@20260110080000~20260110083100@Edge Card.mp4"));
}

void tst_OutPath::keepsNamesFromDevicesInTheFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("up") << QStringLiteral("../../etc/passwd");
    QTest::newRow("absolute") << QStringLiteral("/etc/passwd");
    QTest::newRow("drive") << QStringLiteral("C:\\x");
    QTest::newRow("line") << QStringLiteral("a\nb");
    QTest::newRow("endless") << QString(4096, QChar(0x4e2d));
    QTest::newRow("outside the basic plane") << QString::fromUtf8("\xf0\x9f\x8e\xa5").repeated(200);
}

void tst_OutPath::keepsNamesFromDevicesInTheFolder()
{
    QFETCH(QString, name);
    const QDateTime begin(QDate(2026, 1, 10), QTime(8, 0));
    OutPath path(m_dir->path(), true);
    QCOMPARE(path.prepare().code, ExitCode::Done);
    const QString taken =
        path.take(OutPath::fileName(name, name, 1, begin, begin.addSecs(60), QStringLiteral("Device")));
    QCOMPARE(QFileInfo(taken).absolutePath(), QDir(m_dir->path()).absolutePath());
    QVERIFY2(QFileInfo(taken).fileName().toUtf8().size() <= 250, qPrintable(taken));
    QFile file(taken);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
}

QTEST_GUILESS_MAIN(tst_OutPath)
#include "tst_OutPath.moc"
