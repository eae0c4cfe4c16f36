#include "TestWorld.h"

#include <DataSignals.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

using vemo_data::Database;
using vemo_data::DataFolder;

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
    void keepsWhatWasStoredOverAReopening()
    {
        const TestWorld world;
        QVERIFY(Database::instance().run(insertLog(QStringLiteral("one"))));
        Database::instance().close();
        QCOMPARE(logs(), QStringList{QStringLiteral("one")});
        QCOMPARE(Database::instance().notice(), QString());
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
