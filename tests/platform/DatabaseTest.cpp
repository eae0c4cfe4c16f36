#include "TestWorld.h"

#include <DataSignals.h>
#include <FolderLock.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtEndian>
#include <QtTest>

using vemo_data::Database;
using vemo_data::DataFolder;
using vemo_data::FolderLock;

namespace {

bool exec(QSqlDatabase& db, const QString& statement)
{
    return QSqlQuery(db).exec(statement);
}

Database::Job insertLog(const QString& text)
{
    return [text](QSqlDatabase& db) {
        return exec(db, QStringLiteral("INSERT INTO files_center_logs (time_utc_ms, kind, device, channel_no, "
                                       "channel_name, text) VALUES (1, 1, 'd', 1, 'c', '%1')")
                            .arg(text));
    };
}

QStringList logs()
{
    QStringList texts;
    Database::instance().run([&texts](QSqlDatabase& db) {
        QSqlQuery query(db);
        if (!query.exec(QStringLiteral("SELECT text FROM files_center_logs ORDER BY id")))
            return false;
        while (query.next())
            texts.append(query.value(0).toString());
        return true;
    });
    return texts;
}

QStringList setAsideFiles()
{
    return QDir(DataFolder::dataDir()).entryList({QStringLiteral("vemo.db.damaged-*")}, QDir::Files);
}

} // namespace

class DatabaseTest : public QObject
{
    Q_OBJECT

private slots:
    /// What the test before had to tell may still be on its way.
    void init() { QCoreApplication::processEvents(); }

    void keepsWhatWasStoredOverAReopening()
    {
        const TestWorld world;
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("one"))));
        Database::instance().close();
        QCOMPARE(logs(), QStringList{QStringLiteral("one")});
        QCOMPARE(Database::instance().notice(), QString());
    }

    /// Whatever lies in the file, such as the name of a process that may live, as older versions left it when killed.
    void locksAFolderAsLongAsItsHolderLives()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("window.lock"));
        QFile left(path);
        QVERIFY(left.open(QIODevice::WriteOnly) && left.write("1\nvemo_client\nhere\n") > 0);
        left.close();
        QProcess started; // that outlives the holder
        {
            FolderLock lock;
            QCOMPARE(lock.take(path), FolderLock::Outcome::Taken);
            QCOMPARE(lock.take(path), FolderLock::Outcome::Taken);
            QVERIFY(!(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::ReadOther | QFile::WriteOther)));
            QCOMPARE(FolderLock().take(path), FolderLock::Outcome::Held);
            started.start(QStringLiteral("sleep"), {QStringLiteral("60")});
            QVERIFY(started.waitForStarted());
        }
        QCOMPARE(FolderLock().take(path), FolderLock::Outcome::Taken);
        QCOMPARE(FolderLock().take(folder.path()), FolderLock::Outcome::Unusable);
        QCOMPARE(FolderLock().take(folder.filePath(QStringLiteral("none/lock"))), FolderLock::Outcome::Unusable);
        started.kill();
        started.waitForFinished();
    }

    void carriesOutJobsInOrderAndTellsOnTheGuiThread()
    {
        const TestWorld world;
        QList<int> done;
        QStringList texts;
        for (int i = 0; i < 100; ++i) {
            texts.append(QString::number(i));
            Database::instance().post(insertLog(texts.last()), [&done, i](bool ok) {
                QVERIFY(ok);
                QCOMPARE(QThread::currentThread(), qApp->thread());
                done.append(i);
            });
        }
        QTRY_COMPARE(done.size(), 100);
        QVERIFY(std::is_sorted(done.cbegin(), done.cend()));
        QCOMPARE(logs(), texts);
    }

    void storesOneTurnsJobsByOneCommitAndUndoesAFailedOneAlone()
    {
        const TestWorld world;
        QStringList told;
        const auto tell = [&told](const QString& name) {
            return [&told, name](bool ok) { told.append(name + (ok ? QLatin1Char('+') : QLatin1Char('-'))); };
        };
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("before"))));
        const int commitsBefore = walCommits(world);
        Database::instance().post(insertLog(QStringLiteral("a")), tell(QStringLiteral("a")));
        Database::instance().post(
            [](QSqlDatabase& db) {
                return insertLog(QStringLiteral("half"))(db) &&
                       exec(db, QStringLiteral("INSERT INTO nowhere VALUES (1)"));
            },
            tell(QStringLiteral("b")));
        Database::instance().post(insertLog(QStringLiteral("c")), tell(QStringLiteral("c")));
        QTRY_COMPARE(told.size(), 3);
        QCOMPARE(told, (QStringList{QStringLiteral("a+"), QStringLiteral("b-"), QStringLiteral("c+")}));
        QCOMPARE(walCommits(world) - commitsBefore, 1);
        QCOMPARE(logs(), (QStringList{QStringLiteral("before"), QStringLiteral("a"), QStringLiteral("c")}));
    }

    void carriesOutWhatWasPostedBeforeItCloses()
    {
        const TestWorld world;
        Database::instance().post(insertLog(QStringLiteral("posted")));
        Database::instance().close(); // without a turn of the event loop
        QCOMPARE(logs(), QStringList{QStringLiteral("posted")});
    }

    void leavesAFileAloneThatMayNotBeWritten()
    {
        const TestWorld world;
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("kept"))));
        Database::instance().close();
        QVERIFY(QFile::setPermissions(world.databaseFile(), QFile::ReadOwner));
        const QByteArray before = contents(world.databaseFile());
        QVERIFY(!Database::instance().run(insertLog(QStringLiteral("lost"))));
        QVERIFY2(Database::instance().notice().contains(world.databaseFile()), "the notice must name the file");
        QCOMPARE(contents(world.databaseFile()), before);
        QCOMPARE(setAsideFiles(), QStringList());
        Database::instance().close();
        QVERIFY(QFile::setPermissions(world.databaseFile(), QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(logs(), QStringList{QStringLiteral("kept")});
    }

    void waitsForADatabaseInUseAndNeverSetsItAside()
    {
        const TestWorld world;
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("kept"))));
        Database::instance().close();
        {
            QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
            other.setDatabaseName(world.databaseFile());
            QVERIFY(other.open());
            QVERIFY(exec(other, QStringLiteral("PRAGMA locking_mode = EXCLUSIVE")));
            QVERIFY(exec(other, QStringLiteral("BEGIN EXCLUSIVE")));
            QVERIFY(!Database::instance().run(insertLog(QStringLiteral("lost"))));
            QVERIFY(!Database::instance().notice().isEmpty());
            QCOMPARE(setAsideFiles(), QStringList());
            other.close();
        }
        QSqlDatabase::removeDatabase(QStringLiteral("other"));
        Database::instance().close(); // asks anew at once
        QCOMPARE(logs(), QStringList{QStringLiteral("kept")});
    }

    void losesNothingButTheLogWhenItsWriteAheadLogIsGone()
    {
        const TestWorld world;
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("kept"))));
        Database::instance().close(); // writes the log back
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("in the log"))));
        const QByteArray withoutLog = contents(world.databaseFile());
        Database::instance().close();
        QFile file(world.databaseFile());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(withoutLog) == withoutLog.size());
        file.close();
        QCOMPARE(logs(), QStringList{QStringLiteral("kept")});
        QCOMPARE(setAsideFiles(), QStringList());
    }

    void rollsAFailedJobBackAndTells()
    {
        const TestWorld world;
        QSignalSpy notice(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice);
        QVERIFY(!Database::instance().run([](QSqlDatabase& db) {
            return insertLog(QStringLiteral("half"))(db) && exec(db, QStringLiteral("INSERT INTO nowhere VALUES (1)"));
        }));
        QCOMPARE(logs(), QStringList());
        QTRY_COMPARE(notice.size(), 1);
    }

    void isOpenToItsOwnerAlone()
    {
        const TestWorld world;
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("x"))));
        const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                                          QFile::WriteOther | QFile::ExeOther;
        for (const QString& path : {DataFolder::configDir(), DataFolder::dataDir()})
            QVERIFY2((QFile::permissions(path) & others) == 0, qPrintable(path));
        const QFileInfoList files = QDir(DataFolder::dataDir()).entryInfoList(QDir::Files);
        QVERIFY(files.size() >= 2); // with its write-ahead log
        for (const QFileInfo& file : files)
            QVERIFY2((file.permissions() & others) == 0, qPrintable(file.filePath()));
    }

    void setsAUselessFileAsideAndBeginsAnew_data()
    {
        QTest::addColumn<QString>("damage");
        for (const char* damage :
             {"no database", "header flipped", "page flipped", "truncated", "schema gone", "newer"})
            QTest::newRow(damage) << QString::fromLatin1(damage);
    }

    void setsAUselessFileAsideAndBeginsAnew()
    {
        QFETCH(QString, damage);
        const TestWorld world;
        for (int i = 0; i < 200; ++i)
            QVERIFY(Database::instance().run(insertLog(QString(QLatin1Char('x')).repeated(500))));
        if (damage == QLatin1String("schema gone"))
            QVERIFY(Database::instance().run([](QSqlDatabase& db) {
                return exec(db, QStringLiteral("PRAGMA user_version = 0")) &&
                       exec(db, QStringLiteral("DROP TABLE devices"));
            }));
        if (damage == QLatin1String("newer"))
            QVERIFY(Database::instance().run(
                [](QSqlDatabase& db) { return exec(db, QStringLiteral("PRAGMA user_version = 4711")); }));
        Database::instance().close();
        spoil(world.databaseFile(), damage);
        const QByteArray spoiled = contents(world.databaseFile());

        QSignalSpy notice(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice);
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("fresh"))));
        QCOMPARE(logs(), QStringList{QStringLiteral("fresh")});
        const QStringList aside = setAsideFiles();
        QCOMPARE(aside.size(), 1);
        QCOMPARE(contents(DataFolder::dataDir() + QLatin1Char('/') + aside.first()), spoiled);
        QTRY_COMPARE(notice.size(), 1);
        QVERIFY2(notice.at(0).at(0).toString().contains(aside.first()), "the notice must name the file");
        QVERIFY(Database::instance().notice().contains(aside.first()));
    }

    void startsWithoutAStoreThatCanNotBeMade()
    {
        const TestWorld world;
        QFile file(world.path(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        DataFolder::setRoot(file.fileName()); // a folder can't be made in a file
        QSignalSpy notice(&vemo_data::DataSignals::instance(), &vemo_data::DataSignals::signalStoreNotice);
        QVERIFY(!Database::instance().run(insertLog(QStringLiteral("lost"))));
        QTRY_COMPARE(notice.size(), 1);
        bool ok = true;
        Database::instance().post(insertLog(QStringLiteral("lost")), [&ok](bool stored) { ok = stored; });
        QTRY_VERIFY(!ok);
        QCOMPARE(notice.size(), 1); // told once, not at every job
    }

    void takesTheFolderFromTheEnvironmentUnlessToldOtherwise()
    {
        const TestWorld world;
        qputenv("VEMO_DATA_DIR", world.path(QStringLiteral("env")).toLocal8Bit());
        DataFolder::setRoot(QString());
        QCOMPARE(DataFolder::dataDir(), world.path(QStringLiteral("env/data")));
        DataFolder::setRoot(world.path(QStringLiteral("option")));
        QCOMPARE(DataFolder::dataDir(), world.path(QStringLiteral("option/data")));
        QVERIFY(QFileInfo(DataFolder::configDir()).isDir());
        qunsetenv("VEMO_DATA_DIR");
    }

private:
    /// How many commits the write-ahead log holds, https://www.sqlite.org/fileformat2.html#walformat
    static int walCommits(const TestWorld& world)
    {
        constexpr int headBytes = 32;
        constexpr int frameHeadBytes = 24;
        const QByteArray log = contents(world.databaseFile() + QStringLiteral("-wal"));
        const auto number = [&log](int at) { return qFromBigEndian<quint32>(log.constData() + at); };
        if (log.size() < headBytes)
            return 0;
        const int pageBytes = int(number(8));
        int commits = 0;
        for (int at = headBytes; at + frameHeadBytes + pageBytes <= log.size(); at += frameHeadBytes + pageBytes)
            commits += number(at + 4) != 0 && number(at + 8) == number(16); // size after commit; salt of this round
        return commits;
    }

    static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static void spoil(const QString& path, const QString& damage)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QByteArray noise(3000, '\x5a');
        if (damage == QLatin1String("no database")) {
            QVERIFY(file.resize(0));
            file.write(noise);
        } else if (damage == QLatin1String("header flipped")) {
            file.write(noise.left(16));
        } else if (damage == QLatin1String("page flipped")) {
            QVERIFY(file.seek(file.size() / 2));
            file.write(noise);
        } else if (damage == QLatin1String("truncated")) {
            QVERIFY(file.resize(file.size() / 2));
        }
    }
};

QTEST_GUILESS_MAIN(DatabaseTest)
#include "DatabaseTest.moc"
