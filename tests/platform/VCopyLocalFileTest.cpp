#include <VCopyLocalFile.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QtTest>

using VCOMMON::VCopyLocalFile;

namespace {

QByteArray pattern(int bytes)
{
    QByteArray data(bytes, Qt::Uninitialized);
    for (int i = 0; i < bytes; ++i)
        data[i] = static_cast<char>(i * 31 + i / 997);
    return data;
}

void write(const QString& path, const QByteArray& data)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), static_cast<qint64>(data.size()));
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class VCopyLocalFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        m_source = m_dir->filePath(QStringLiteral("source.mp4"));
        QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("to")));
        m_target = m_dir->filePath(QStringLiteral("to/target.mp4"));
    }

    void copiesBytesAndTimeAndLeavesNothingElse()
    {
        const QByteArray data = pattern(9'000'001);
        write(m_source, data);
        const QDateTime modified(QDate(2026, 1, 10), QTime(8, 0));
        setModified(m_source, modified);

        VCopyLocalFile copy(QStringLiteral("id"));
        QSignalSpy progress(&copy, &VCopyLocalFile::signalCopyFileProgress);
        QCOMPARE(finish(copy), true);
        QCOMPARE(read(m_target), data);
        QCOMPARE(QFileInfo(m_target).lastModified(), modified);
        QCOMPARE(QDir(m_dir->filePath(QStringLiteral("to"))).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QVERIFY(!progress.isEmpty());
        QCOMPARE(progress.last().at(1).toLongLong(), static_cast<qint64>(data.size()));
        QCOMPARE(progress.last().at(2).toLongLong(), static_cast<qint64>(data.size()));
        qint64 before = 0;
        for (const QList<QVariant>& report : qAsConst(progress)) {
            QVERIFY(report.at(1).toLongLong() >= before);
            before = report.at(1).toLongLong();
        }
    }

    void copiesAnEmptyFileWithoutAnyProgress()
    {
        write(m_source, {});
        VCopyLocalFile copy(QStringLiteral("id"));
        QSignalSpy progress(&copy, &VCopyLocalFile::signalCopyFileProgress);
        QCOMPARE(finish(copy), true);
        QVERIFY(QFileInfo(m_target).isFile());
        QCOMPARE(progress.size(), 0);
    }

    void neverOverwritesAnotherFile()
    {
        write(m_source, pattern(5000));
        write(m_target, QByteArrayLiteral("someone else's"));
        VCopyLocalFile copy(QStringLiteral("id"));
        QCOMPARE(finish(copy), true);
        QCOMPARE(read(m_target), QByteArrayLiteral("someone else's"));
        QCOMPARE(copy.targetPath(), m_dir->filePath(QStringLiteral("to/target (2).mp4")));
        QCOMPARE(read(copy.targetPath()), pattern(5000));
    }

    void takesAnEqualFileForTheCopy()
    {
        write(m_source, pattern(5000));
        write(m_target, pattern(5000));
        setModified(m_target, QFileInfo(m_source).lastModified());
        VCopyLocalFile copy(QStringLiteral("id"));
        QCOMPARE(finish(copy), true);
        QCOMPARE(copy.targetPath(), m_target);
        QCOMPARE(QDir(m_dir->filePath(QStringLiteral("to"))).entryList(QDir::Files).size(), 1);
    }

    void standsStillWhilePausedAndGoesOnToTheSameBytes()
    {
        const QByteArray data = pattern(40'000'000);
        write(m_source, data);
        VCopyLocalFile copy(QStringLiteral("id"));
        QSignalSpy finished(&copy, &VCopyLocalFile::signalCopyFileFinished);
        copy.pauseCopyFile(); // nothing runs: without effect
        QVERIFY(copy.copyFile(m_source, m_target));
        QVERIFY(!copy.isCopyPausing());
        copy.pauseCopyFile();
        QVERIFY(copy.isCopyPausing());
        QVERIFY(!copy.copyFile(m_source, m_target));
        QVERIFY(!finished.wait(300));
        QVERIFY(!QFileInfo::exists(m_target));
        copy.continueCopyFile();
        QVERIFY(finished.wait(20000));
        QCOMPARE(read(m_target), data);
    }

    void cancelLeavesNothingAndTellsOnlyThat_data()
    {
        QTest::addColumn<bool>("paused");
        QTest::newRow("running") << false;
        QTest::newRow("paused") << true;
    }

    void cancelLeavesNothingAndTellsOnlyThat()
    {
        QFETCH(bool, paused);
        write(m_source, pattern(40'000'000));
        VCopyLocalFile copy(QStringLiteral("id"));
        QSignalSpy finished(&copy, &VCopyLocalFile::signalCopyFileFinished);
        QSignalSpy cancelled(&copy, &VCopyLocalFile::signalCopyFileCancelled);
        QVERIFY(copy.copyFile(m_source, m_target));
        if (paused)
            copy.pauseCopyFile();
        copy.cancelCopyFile();
        QVERIFY(cancelled.wait(20000));
        QCOMPARE(finished.size(), 0);
        QVERIFY(QDir(m_dir->filePath(QStringLiteral("to"))).entryList(QDir::Files | QDir::Hidden).isEmpty());
    }

    void destroyingAPausedCopyEndsIt()
    {
        write(m_source, pattern(40'000'000));
        {
            VCopyLocalFile copy(QStringLiteral("id"));
            QVERIFY(copy.copyFile(m_source, m_target));
            copy.pauseCopyFile();
        }
        QVERIFY(QDir(m_dir->filePath(QStringLiteral("to"))).entryList(QDir::Files | QDir::Hidden).isEmpty());
    }

    void saysWhyItFailed_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("word");
        QTest::newRow("no source") << QStringLiteral("missing.mp4") << QStringLiteral("to/x.mp4")
                                   << QStringLiteral("missing.mp4");
        QTest::newRow("source is a folder") << QStringLiteral("to") << QStringLiteral("x.mp4") << QStringLiteral("to");
        QTest::newRow("no folder to write to")
            << QStringLiteral("source.mp4") << QStringLiteral("gone/x.mp4") << QStringLiteral("gone");
    }

    void saysWhyItFailed()
    {
        QFETCH(QString, source);
        QFETCH(QString, target);
        QFETCH(QString, word);
        write(m_source, pattern(10));
        m_source = m_dir->filePath(source);
        m_target = m_dir->filePath(target);
        VCopyLocalFile copy(QStringLiteral("id"));
        QCOMPARE(finish(copy), false);
        QVERIFY2(copy.errorText().contains(word), qPrintable(copy.errorText()));
        QVERIFY(copy.targetPath().isEmpty());
    }

    void refusesWhatTheDiskHasNoRoomFor()
    {
        QFile file(m_source);
        QVERIFY(file.open(QIODevice::WriteOnly));
        // A file of holes: large in size, nothing on disk.
        if (!file.resize(QStorageInfo(m_dir->path()).bytesAvailable() + (1LL << 30)))
            QSKIP("this file system keeps no files with holes");
        file.close();
        VCopyLocalFile copy(QStringLiteral("id"));
        QCOMPARE(finish(copy), false);
        QVERIFY2(copy.errorText().contains(QStringLiteral("room")), qPrintable(copy.errorText()));
        QVERIFY(QDir(m_dir->filePath(QStringLiteral("to"))).entryList(QDir::Files | QDir::Hidden).isEmpty());
    }

private:
    bool finish(VCopyLocalFile& copy)
    {
        QSignalSpy finished(&copy, &VCopyLocalFile::signalCopyFileFinished);
        if (!copy.copyFile(m_source, m_target) || !finished.wait(20000) || finished.size() != 1)
            qFatal("the copy did not finish");
        if (finished.at(0).at(0).toString() != m_source || finished.at(0).at(1).toString() != QLatin1String("id"))
            qFatal("the copy finished under another name");
        return finished.at(0).at(2).toBool();
    }

    static void setModified(const QString& path, const QDateTime& time)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    }

    std::unique_ptr<QTemporaryDir> m_dir;
    QString m_source;
    QString m_target;
};

QTEST_GUILESS_MAIN(VCopyLocalFileTest)
#include "VCopyLocalFileTest.moc"
