#include <VCopyLocalFiles.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using VCOMMON::VCopyLocalFiles;

/// A file of holes: it takes no room, and long enough to be copied for something to happen meanwhile.
constexpr qint64 longBytes = 400'000'000;

class VCopyLocalFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("to")));
    }

    void goesOnBehindAFailureAndCountsBytes()
    {
        const QStringList sources{file("a.mp4", 3'000'000), path("missing.mp4"), file("empty.mp4", 0),
                                  file("b.mp4", 1'000'000)};
        VCopyLocalFiles copies(QStringLiteral("id"));
        QSignalSpy failures(&copies, &VCopyLocalFiles::signalCopyFileFailed);
        QSignalSpy bytes(&copies, &VCopyLocalFiles::signalCopyFileBytes);
        QSignalSpy progress(&copies, &VCopyLocalFiles::signalCopyFilesProgress);
        const QList<QVariant> end = finish(copies, sources, targets(sources));
        QCOMPARE(end.at(1).toStringList(), QStringList({sources.at(0), sources.at(2), sources.at(3)}));
        QCOMPARE(end.at(2).toStringList(), QStringList{sources.at(1)});
        QCOMPARE(failures.size(), 1);
        QVERIFY2(failures.at(0).at(2).toString().contains(sources.at(1)), qPrintable(failures.at(0).at(2).toString()));

        QList<qint64> wholeFiles;
        for (const QList<QVariant>& report : qAsConst(bytes)) {
            if (report.at(1) == report.at(2))
                wholeFiles.append(report.at(1).toLongLong());
        }
        QCOMPARE(wholeFiles, QList<qint64>({3'000'000, 1'000'000}));
        QCOMPARE(bytes.last().at(3).toInt(), 3);
        int before = 0;
        for (const QList<QVariant>& report : qAsConst(progress)) {
            QVERIFY(report.at(3).toInt() >= before);
            before = report.at(3).toInt();
            QCOMPARE(before == 100, &report == &progress.last());
        }
        QCOMPARE(progress.last().at(1).toInt(), 4);
        QCOMPARE(progress.last().at(2).toInt(), 4);
    }

    void keepsBothOfTwoEqualNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("second");
        QTest::newRow("plain") << QStringLiteral("x.mp4") << QStringLiteral("x (2).mp4");
        const QString full = QString(125, QChar(0xe4)); // 250 bytes, with the suffix 254
        QTest::newRow("as long as can be")
            << full + QStringLiteral(".mp4") << full.left(123) + QStringLiteral(" (2).mp4");
        QTest::newRow("right to left") << QStringLiteral("\u05de\u05e6\u05dc\u05de\u05d4.mp4")
                                       << QStringLiteral("\u05de\u05e6\u05dc\u05de\u05d4 (2).mp4");
    }

    void keepsBothOfTwoEqualNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, second);
        // Alike in size and time, as two pictures of one second may be.
        const QStringList sources{file("one", 1000, 'a'), file("two", 1000, 'b')};
        const QDateTime time(QDate(2026, 1, 10), QTime(8, 0));
        for (const QString& source : sources)
            setTime(source, time);
        const QString target = path("to/") + name;
        QCOMPARE(finish(VCopyLocalFiles(QString()), sources, {target, target}).at(1).toStringList(), sources);
        QCOMPARE(read(target), QByteArray(1000, 'a'));
        QCOMPARE(read(path("to/") + second), QByteArray(1000, 'b'));
        // Once more: what is there already counts, a third and fourth are not made.
        QCOMPARE(finish(VCopyLocalFiles(QString()), {sources.at(0)}, {target}).at(1).toStringList().size(), 1);
        QCOMPARE(QDir(path("to")).entryList(QDir::Files).size(), 2);
    }

    void anEmptyListFinishesAndAnUnevenOneIsRefused()
    {
        VCopyLocalFiles copies(QStringLiteral("id"));
        QVERIFY(!copies.copyFiles({path("a")}, {}));
        QCOMPARE(finish(copies, {}, {}).at(0).toString(), QStringLiteral("id"));
    }

    void cancelKeepsWholeFilesAndRemovesTheTornOne()
    {
        const QStringList sources{file("a.mp4", 1000), file("b.mp4", 0)};
        QVERIFY(QFile::resize(sources.at(1), longBytes));
        VCopyLocalFiles copies(QStringLiteral("id"));
        QSignalSpy finished(&copies, &VCopyLocalFiles::signalCopyFilesFinished);
        QSignalSpy cancelled(&copies, &VCopyLocalFiles::signalCopyFilesCancelled);
        // As soon as the first is told, the second is on its way.
        connect(&copies, &VCopyLocalFiles::signalCopyFileSucceeded, &copies, [&copies] {
            copies.pauseCopyFiles();
            QVERIFY(copies.isCopyPausing());
            copies.cancelCopyFiles();
        });
        copies.setVerified(true);
        QVERIFY(copies.copyFiles(sources, targets(sources)));
        QTRY_COMPARE_WITH_TIMEOUT(cancelled.size(), 1, 20000);
        QCOMPARE(finished.size(), 0);
        QCOMPARE(QDir(path("to")).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.mp4")});
    }

    void verifiedCopiesTellTheirSum()
    {
        const QString source = file("a.mp4", 700'000);
        VCopyLocalFiles copies(QStringLiteral("id"));
        copies.setVerified(true);
        QSignalSpy succeeded(&copies, &VCopyLocalFiles::signalCopyFileSucceeded);
        finish(copies, {source}, {path("to/a.mp4")});
        QCOMPARE(succeeded.size(), 1);
        QCOMPARE(succeeded.at(0).at(2).toString(), path("to/a.mp4"));
        QCOMPARE(succeeded.at(0).at(3).toByteArray(),
                 QCryptographicHash::hash(read(source), QCryptographicHash::Sha256));
        // An equal file whose bytes differ is no copy.
        write(path("to/a.mp4"), QByteArray(700'000, 'z'));
        setTime(path("to/a.mp4"), QFileInfo(source).lastModified());
        finish(copies, {source}, {path("to/a.mp4")});
        QCOMPARE(read(path("to/a (2).mp4")), read(source));
    }

    void neverFollowsALinkNorWaitsForAPipe_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("copied");
        QTest::newRow("source is a link") << "link.mp4"
                                          << "to/x.mp4" << false;
        QTest::newRow("source is a pipe") << "pipe.mp4"
                                          << "to/x.mp4" << false;
        QTest::newRow("source is a device") << "/dev/zero"
                                            << "to/x.mp4" << false;
        QTest::newRow("target is a link") << "plain.mp4"
                                          << "to/link.mp4" << true;
        QTest::newRow("target is a pipe") << "plain.mp4"
                                          << "to/pipe.mp4" << true;
        QTest::newRow("folder is missing") << "plain.mp4"
                                           << "to/new/day/x.mp4" << true;
        QTest::newRow("folder is a link out") << "plain.mp4"
                                              << "to/out/x.mp4" << false;
        QTest::newRow("outside of the root") << "plain.mp4"
                                             << "outside/x.mp4" << false;
        QTest::newRow("climbs out of the root") << "plain.mp4"
                                                << "to/../outside/x.mp4" << false;
    }

    void neverFollowsALinkNorWaitsForAPipe()
    {
        QFETCH(QString, source);
        QFETCH(QString, target);
        QFETCH(bool, copied);
        const QString plain = file("plain.mp4", 5000);
        QDir(m_dir->path()).mkdir(QStringLiteral("outside"));
        QVERIFY(QFile::link(plain, path("link.mp4")) && QFile::link(plain, path("to/link.mp4")));
        QVERIFY(QFile::link(path("outside"), path("to/out")));
        if (QProcess::execute(QStringLiteral("mkfifo"), {path("pipe.mp4"), path("to/pipe.mp4")}) != 0)
            QSKIP("no pipes here");
        VCopyLocalFiles copies(QStringLiteral("id"));
        copies.setRoot(path("to"));
        const QList<QVariant> end = finish(copies, {QDir(m_dir->path()).filePath(source)}, {m_dir->filePath(target)});
        QCOMPARE(end.at(1).toStringList().size(), copied ? 1 : 0);
        QCOMPARE(read(plain).size(), 5000);
        QVERIFY(QDir(path("outside")).isEmpty());
        QVERIFY(QFileInfo(path("to/link.mp4")).isSymLink());
    }

    void aSourceThatChangesMeanwhileIsAFailure()
    {
        const QString source = file("growing.mp4", 0);
        QVERIFY(QFile::resize(source, longBytes));
        VCopyLocalFiles copies(QStringLiteral("id"));
        QSignalSpy failures(&copies, &VCopyLocalFiles::signalCopyFileFailed);
        QSignalSpy finished(&copies, &VCopyLocalFiles::signalCopyFilesFinished);
        connect(&copies, &VCopyLocalFiles::signalCopyFileBytes, &copies, [&source] {
            QFile growing(source);
            QVERIFY(growing.open(QIODevice::Append) && growing.write("more") == 4);
        });
        QVERIFY(copies.copyFiles({source}, {path("to/x.mp4")}));
        QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 20000);
        QCOMPARE(failures.size(), 1);
        QVERIFY2(failures.at(0).at(2).toString().contains(QStringLiteral("changed")),
                 qPrintable(failures.at(0).at(2).toString()));
        QVERIFY(QDir(path("to")).entryList(QDir::Files | QDir::Hidden).isEmpty());
    }

private:
    QString path(const char* name) const { return m_dir->filePath(QString::fromLatin1(name)); }

    QString file(const char* name, int bytes, char fill = 'x') const
    {
        write(path(name), QByteArray(bytes, fill));
        return path(name);
    }

    static void write(const QString& to, const QByteArray& data)
    {
        QFile file(to);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(data) == data.size());
    }

    static QByteArray read(const QString& from)
    {
        QFile file(from);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void setTime(const QString& to, const QDateTime& time)
    {
        QFile file(to);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime));
    }

    QStringList targets(const QStringList& sources) const
    {
        QStringList paths;
        for (const QString& source : sources)
            paths.append(path("to/") + QFileInfo(source).fileName());
        return paths;
    }

    static QList<QVariant> finish(VCopyLocalFiles& copies, const QStringList& sources, const QStringList& to)
    {
        QSignalSpy finished(&copies, &VCopyLocalFiles::signalCopyFilesFinished);
        if (!copies.copyFiles(sources, to) || (finished.isEmpty() && !finished.wait(20000)) || finished.size() != 1)
            qFatal("the copies did not finish");
        return finished.at(0);
    }
    static QList<QVariant> finish(VCopyLocalFiles&& copies, const QStringList& sources, const QStringList& to)
    {
        return finish(copies, sources, to);
    }

    std::unique_ptr<QTemporaryDir> m_dir;
};

QTEST_GUILESS_MAIN(VCopyLocalFilesTest)
#include "VCopyLocalFilesTest.moc"
