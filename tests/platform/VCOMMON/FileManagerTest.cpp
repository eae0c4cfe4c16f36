#include <ToolsCollection.h>

#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>
#include <QUrl>

using VCOMMON::ToolsCollection;

namespace {

constexpr int patienceMs = 15000;

} // namespace

/// A file manager as the desktop's interface describes it; remembers what it was asked to show.
class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList asked;

public slots:
    void ShowItems(const QStringList& uris, const QString&) { asked << QStringLiteral("items") << uris; }
    void ShowFolders(const QStringList& uris, const QString&) { asked << QStringLiteral("folders") << uris; }
};

class FileManagerTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void asksTheDesktopsFileManager();
    void fallsBackOnTheFolderWithoutOne_data();
    void fallsBackOnTheFolderWithoutOne();
    void returnsAtOnceWhateverTheDesktopDoes();

private:
    QString calls() const;

    QTemporaryDir m_dir;
    QString m_file;
};

void FileManagerTest::initTestCase()
{
    // Names as people give them.
    const QString folder = m_dir.filePath(QStringLiteral("Aufnahmen, Süd 100%"));
    QVERIFY(QDir().mkpath(folder));
    m_file = folder + QStringLiteral("/Tor #2, Rampe & Hof.mp4");
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    // Stands in for the desktop's opener: writes down its one argument.
    QVERIFY(QDir().mkpath(m_dir.filePath(QStringLiteral("bin"))));
    QFile opener(m_dir.filePath(QStringLiteral("bin/xdg-open")));
    QVERIFY(opener.open(QIODevice::WriteOnly));
    const QByteArray written = QFile::encodeName(m_dir.filePath(QStringLiteral("calls")));
    opener.write("#!/bin/sh\nprintf '%s' \"$*\" > '" + written + "'.$$ && mv '" + written + "'.$$ '" + written + "'\n");
    opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    opener.close();
    qputenv("PATH", QFile::encodeName(m_dir.filePath(QStringLiteral("bin"))) + ":" + qgetenv("PATH"));
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_dir.path()));
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

QString FileManagerTest::calls() const
{
    QFile file(m_dir.filePath(QStringLiteral("calls")));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void FileManagerTest::asksTheDesktopsFileManager()
{
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                              QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    if (!bus.waitForStarted() || !bus.waitForReadyRead(patienceMs))
        QSKIP("no message bus can be started here");
    const QByteArray address = bus.readLine().trimmed();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    FakeFileManager manager;
    {
        QDBusConnection connection =
            QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("test"));
        QVERIFY(connection.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &manager,
                                          QDBusConnection::ExportAllSlots));
        QVERIFY(connection.registerService(QStringLiteral("org.freedesktop.FileManager1")));

        ToolsCollection::openFolderAndSelectFile(m_file);
        QTRY_COMPARE_WITH_TIMEOUT(manager.asked.size(), 2, patienceMs);
        QCOMPARE(manager.asked.at(0), QStringLiteral("items"));
        QCOMPARE(QUrl(manager.asked.at(1)).toLocalFile(), m_file);
        QVERIFY2(!manager.asked.at(1).contains(QLatin1Char(' ')), "a URI has no blanks");

        ToolsCollection::openFolder(m_dir.path());
        QTRY_COMPARE_WITH_TIMEOUT(manager.asked.size(), 4, patienceMs);
        QCOMPARE(manager.asked.at(2), QStringLiteral("folders"));
        QVERIFY2(calls().isEmpty(), "it was shown already");
    }
    QDBusConnection::disconnectFromBus(QStringLiteral("test"));
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    bus.terminate();
    bus.waitForFinished();
}

void FileManagerTest::fallsBackOnTheFolderWithoutOne_data()
{
    QTest::addColumn<bool>("file");
    QTest::newRow("file") << true;
    QTest::newRow("folder") << false;
}

void FileManagerTest::fallsBackOnTheFolderWithoutOne()
{
    QFETCH(const bool, file);
    QFile::remove(m_dir.filePath(QStringLiteral("calls")));
    const QString folder = QFileInfo(m_file).absolutePath();
    if (file)
        ToolsCollection::openFolderAndSelectFile(m_file);
    else
        ToolsCollection::openFolder(folder);
    QTRY_COMPARE_WITH_TIMEOUT(calls(), folder, patienceMs);
}

void FileManagerTest::returnsAtOnceWhateverTheDesktopDoes()
{
    // An address at which nobody answers.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + QFile::encodeName(m_dir.filePath(QStringLiteral("nobody"))));
    QFile::remove(m_dir.filePath(QStringLiteral("calls")));
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 100; ++i)
        ToolsCollection::openFolder(m_dir.path());
    QVERIFY2(timer.elapsed() < 500, "the window would stand still");
    QTRY_COMPARE_WITH_TIMEOUT(calls(), m_dir.path(), patienceMs);
}

QTEST_GUILESS_MAIN(FileManagerTest)
#include "FileManagerTest.moc"
