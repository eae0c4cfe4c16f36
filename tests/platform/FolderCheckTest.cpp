// What is told of a folder when it is chosen.
#include "TestWorld.h"

#include <DiskCall.h>
#include <FolderCheck.h>

#include <QFile>
#include <QProcess>
#include <QSemaphore>
#include <QtTest>

using vemo_worker::DiskCall;
using vemo_worker::FolderCheck;
using State = FolderCheck::State;

Q_DECLARE_METATYPE(vemo_worker::FolderCheck::State)

namespace {

/// A small file system of its own in memory; needs rights that not every run of the tests has.
class SmallDisk final
{
public:
    SmallDisk(const QString& place, const QString& options)
        : m_place(place)
    {
        QDir().mkpath(place);
        m_isThere = call({QStringLiteral("mount"), QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                          options, QStringLiteral("vemo-test"), place});
    }
    ~SmallDisk()
    {
        if (m_isThere)
            call({QStringLiteral("umount"), m_place});
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isThere() const { return m_isThere; }

private:
    static bool call(QStringList words)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        const QString program = words.takeFirst();
        process.start(program, words);
        return process.waitForFinished() && process.exitCode() == 0;
    }

    QString m_place;
    bool m_isThere = false;
};

} // namespace

class FolderCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void tellsWhatIsWrong_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<State>("state");
        QTest::newRow("empty") << QStringLiteral("  ") << State::NotAFolder;
        QTest::newRow("half a path") << QStringLiteral("videos/today") << State::NotAFolder;
        QTest::newRow("a file") << QStringLiteral("%1/file") << State::NotAFolder;
        QTest::newRow("below a file") << QStringLiteral("%1/file/below") << State::NotAFolder;
        QTest::newRow("missing") << QStringLiteral("%1/new/one") << State::Missing;
        QTest::newRow("disk unplugged") << QStringLiteral("/media/Footage-9C1D/videos") << State::NotConnected;
#if defined(Q_OS_WIN)
        QTest::newRow("network place") << QStringLiteral("//nas-that-is-not-there/videos") << State::NotConnected;
#endif
        QTest::newRow("nothing can be made") << QStringLiteral("/proc/self") << State::NotWritable;
    }
    void tellsWhatIsWrong()
    {
        QFETCH(QString, folder);
        QFETCH(State, state);
        QFile file(m_world.path(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const FolderCheck::Result result = FolderCheck::check(folder.replace(QStringLiteral("%1"), m_world.path({})));
        QCOMPARE(result.state, state);
        QVERIFY(!result.isUsable());
        QVERIFY(!result.sentence.isEmpty());
    }

    void measuresAGoodFolderAndLeavesNothingBehind()
    {
        const FolderCheck::Result result = FolderCheck::check(m_world.path({}));
        QVERIFY2(result.isUsable(), qPrintable(result.sentence));
        QVERIFY(result.bytesPerSecond > 0);
        QVERIFY(result.totalBytes >= result.freeBytes && result.freeBytes > 0);
        QVERIFY(QDir(m_world.path({})).entryList({QStringLiteral(".vemo*")}, QDir::Files | QDir::Hidden).isEmpty());
    }

    void tellsOfSmallAndReadOnlyDisks_data()
    {
        QTest::addColumn<QString>("options");
        QTest::addColumn<State>("state");
        QTest::newRow("full") << QStringLiteral("size=64m") << State::Full;
        QTest::newRow("low") << QStringLiteral("size=2g") << State::Low;
        QTest::newRow("read-only") << QStringLiteral("size=2g,ro") << State::NotWritable;
    }
    void tellsOfSmallAndReadOnlyDisks()
    {
        QFETCH(QString, options);
        QFETCH(State, state);
        const QString place = m_world.path(QStringLiteral("disk"));
        const SmallDisk disk(place, options);
        if (!disk.isThere())
            QSKIP("no right to mount");
        const FolderCheck::Result result = FolderCheck::check(place);
        QCOMPARE(result.state, state);
        QCOMPARE(result.isUsable(), state == State::Low);
        QVERIFY(!result.sentence.isEmpty());
    }

    void seesNestedFolders_data()
    {
        QTest::addColumn<QString>("one");
        QTest::addColumn<QString>("other");
        QTest::addColumn<bool>("nested");
        QTest::newRow("same") << QStringLiteral("/v/a") << QStringLiteral("/v/a/") << true;
        QTest::newRow("below") << QStringLiteral("/v/a/b") << QStringLiteral("/v/x/../a") << true;
        QTest::newRow("above") << QStringLiteral("/v") << QStringLiteral("/v/a") << true;
        QTest::newRow("like name") << QStringLiteral("/v/a") << QStringLiteral("/v/ab") << false;
    }
    void seesNestedFolders()
    {
        QFETCH(QString, one);
        QFETCH(QString, other);
        QTEST(FolderCheck::isNested(one, other), "nested");
        QTEST(FolderCheck::isNested(other, one), "nested");
    }

    void givesAHangingDiskUp()
    {
        const auto release = std::make_shared<QSemaphore>();
        const auto hang = [release](const std::atomic<bool>&) -> DiskCall::Answer {
            release->acquire();
            return [] { qFatal("an answer after it was given up"); };
        };
        QObject context;
        int givenUp = 0;
        // More than may hang at a time: the last is given up without a thread.
        for (int i = 0; i <= DiskCall::mostThreads; ++i)
            DiskCall::start(&context, 50, hang, [&givenUp] { ++givenUp; });
        QTRY_COMPARE(givenUp, DiskCall::mostThreads + 1);
        release->release(DiskCall::mostThreads);
        QTest::qWait(50); // a late answer would come now
    }

    void answersNobodyWhenTheAskerIsGone()
    {
        auto context = std::make_unique<QObject>();
        FolderCheck::start(m_world.path({}), context.get(),
                           [](const FolderCheck::Result&) { qFatal("an answer to one that is gone"); });
        context.reset();
        QTest::qWait(300);
    }

private:
    TestWorld m_world;
};

QTEST_GUILESS_MAIN(FolderCheckTest)
#include "FolderCheckTest.moc"
