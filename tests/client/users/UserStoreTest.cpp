#include "TestWorld.h"

#include <ClientSecretKey.h>
#include <SysPaths.h>
#include <SystemWorker.h>
#include <UserRules.h>
#include <UserStore.h>

#include <QDirIterator>
#include <QtTest>

using vemo_worker::LoginLock;
using vemo_worker::LoginResult;
using vemo_worker::SysPaths;
using vemo_worker::SystemWorker;
using vemo_worker::UserRules;
using vemo_worker::UserStore;

namespace {

constexpr qint64 minuteMs = 60'000;
const QString admin = QStringLiteral("m.keller");
const QString secret = QStringLiteral("gehe/im %2B+<&\"'>ä 7");
const QString other = QStringLiteral("another Word 4 all");
const QString operatorName = QStringLiteral("Operator");

} // namespace

Q_DECLARE_METATYPE(LoginResult::Outcome)

class UserStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        vemo_worker::ClientSecretKey::instance().reset();
        m_now = {1'700'000'000'000, 5'000};
    }

    void cleanup() { m_world.reset(); }

    void locksLongerWithEachWrongPassword()
    {
        LoginLock lock;
        const qint64 expected[] = {0, 0, 0, 0, minuteMs, 5 * minuteMs, 15 * minuteMs, 15 * minuteMs};
        for (const qint64 ms : expected) {
            lock.fail(m_now);
            QCOMPARE(lock.remainingMs(m_now), ms);
            m_now.steadyMs += ms;
            m_now.utcMs += ms;
            QCOMPARE(lock.remainingMs(m_now), qint64(0));
        }
        lock.clear();
        lock.fail(m_now);
        QCOMPARE(lock.remainingMs(m_now), qint64(0));
    }

    void measuresALockByAClockThatCannotBeSet_data()
    {
        QTest::addColumn<bool>("restarts");
        QTest::addColumn<qint64>("calendarMs"); // by so much the calendar goes on
        QTest::addColumn<qint64>("remainingMs");
        QTest::newRow("running, set on by a day") << false << 1440 * minuteMs << minuteMs - 1000;
        QTest::newRow("running, set back by a day") << false << -1440 * minuteMs << minuteMs - 1000;
        QTest::newRow("restarted at once") << true << 0ll << minuteMs;
        QTest::newRow("restarted later") << true << 20'000ll << 40'000ll;
        QTest::newRow("restarted after it") << true << minuteMs << 0ll;
        QTest::newRow("restarted, set back") << true << -1440 * minuteMs << minuteMs;
    }

    void measuresALockByAClockThatCannotBeSet()
    {
        QFETCH(bool, restarts);
        QFETCH(qint64, calendarMs);
        QFETCH(qint64, remainingMs);
        LoginLock lock;
        for (int i = 0; i < LoginLock::freeTries; ++i)
            lock.fail(m_now);
        LoginLock after = restarts ? LoginLock(lock.failures(), lock.lockedAtUtcMs()) : lock;
        m_now.utcMs += calendarMs;
        m_now.steadyMs = restarts ? 17 : m_now.steadyMs + 1000;
        QCOMPARE(after.remainingMs(m_now), remainingMs);
    }

    void refusesNamesThatMislead_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isGood");
        QTest::newRow("usual") << admin << true;
        QTest::newRow("Chinese") << QString::fromUtf8("值班员") << true;
        QTest::newRow("64") << QString(64, QLatin1Char('x')) << true;
        QTest::newRow("65") << QString(65, QLatin1Char('x')) << false;
        QTest::newRow("empty") << QStringLiteral("  ") << false;
        QTest::newRow("line break") << QStringLiteral("a\nb") << false;
        QTest::newRow("writing direction") << QString::fromUtf8("a\xE2\x80\xAE"
                                                                "b")
                                           << false;
        QTest::newRow("half a character") << QString(QChar(0xD800)) << false;
    }

    void refusesNamesThatMislead()
    {
        QFETCH(QString, name);
        QFETCH(bool, isGood);
        QCOMPARE(UserRules::nameProblem(name).isEmpty(), isGood);
    }

    void refusesPasswordsThatAreEasyToGuess_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<bool>("forUser");
        QTest::addColumn<bool>("forAdministrator");
        QTest::newRow("seven") << QStringLiteral("aB3$aB3") << false << false;
        QTest::newRow("eight") << QStringLiteral("aB3$aB3$") << true << false;
        QTest::newRow("twelve") << QStringLiteral("aB3$aB3$aB3$") << true << true;
        QTest::newRow("one kind") << QStringLiteral("abcdefghijklmnop") << false << false;
        QTest::newRow("the name") << QStringLiteral("Schichtleiter-12") << false << false;
        QTest::newRow("too long") << QString(257, QLatin1Char('x')) + QLatin1Char('1') << false << false;
    }

    void refusesPasswordsThatAreEasyToGuess()
    {
        QFETCH(QString, password);
        const QString name = QStringLiteral("schichtleiter-12");
        QTEST(UserRules::passwordProblem(password, name, false).isEmpty(), "forUser");
        QTEST(UserRules::passwordProblem(password, name, true).isEmpty(), "forAdministrator");
    }

    void tellsAnUnknownNameFromAWrongPasswordToNobody()
    {
        UserStore store = filled();
        for (const QString& name : {admin, QStringLiteral("nobody")}) {
            for (int i = 1; i <= LoginLock::freeTries; ++i) {
                const LoginResult result = store.logIn(name, other, false);
                QCOMPARE(result.outcome, LoginResult::Outcome::Wrong);
                QCOMPARE(result.triesLeft, LoginLock::freeTries - i);
                QCOMPARE(result.lockedMs, i < LoginLock::freeTries ? qint64(0) : minuteMs);
            }
            const LoginResult locked = store.logIn(name, secret, false);
            QCOMPARE(locked.outcome, LoginResult::Outcome::Locked);
        }
        UserStore again = opened();
        QCOMPARE(again.logIn(admin, secret, false).outcome, LoginResult::Outcome::Locked);
        m_now.steadyMs += minuteMs;
        QCOMPARE(again.logIn(admin.toUpper(), secret, false).outcome, LoginResult::Outcome::Done);
        QCOMPARE(opened().users().constFirst().lastLogin.toMSecsSinceEpoch(), m_now.utcMs);
    }

    void takesTheSameLettersInAnyFormOfUnicode()
    {
        UserStore store = opened();
        const QString composed = QString::fromUtf8("J\xC3\xBCrgen");
        const QString parted = QString::fromUtf8("ju\xCC\x88rgen");
        QCOMPARE(store.add(composed, composed + secret, SystemWorker::allPowers), QString());
        QVERIFY(!store.add(parted, secret, 0).isEmpty());
        const QString typed = QString(composed + secret).normalized(QString::NormalizationForm_D);
        QCOMPARE(store.logIn(parted, typed, false).outcome, LoginResult::Outcome::Done);
    }

    void keepsAnAdministrator()
    {
        UserStore first = opened();
        QVERIFY(!first.add(operatorName, other, vemo_worker::PowerLive).isEmpty());
        UserStore store = filled();
        QVERIFY(!store.setPowers(admin, vemo_worker::PowerLive).isEmpty());
        QVERIFY(!store.setEnabled(admin, false).isEmpty());
        QVERIFY(!store.remove(admin).isEmpty());
        QCOMPARE(store.setPowers(operatorName, vemo_worker::PowerUsers), QString());
        QCOMPARE(store.users().constLast().powers, SystemWorker::allPowers);
        QCOMPARE(store.setEnabled(operatorName, false), QString());
        QVERIFY(!store.remove(admin).isEmpty()); // the other one is disabled
        QCOMPARE(store.logIn(operatorName, other, false).outcome, LoginResult::Outcome::Disabled);
        QCOMPARE(store.setEnabled(operatorName, true), QString());
        QCOMPARE(store.remove(admin), QString());
        QCOMPARE(opened().users().size(), 1);
    }

    void staysLoggedInUntilSomethingRevokesIt_data()
    {
        QTest::addColumn<QString>("deed");
        QTest::addColumn<bool>("stays");
        QTest::newRow("a restart") << QString() << true;
        QTest::newRow("a password") << QStringLiteral("password") << false;
        QTest::newRow("disabled") << QStringLiteral("disable") << false;
        QTest::newRow("removed") << QStringLiteral("remove") << false;
        QTest::newRow("logged out") << QStringLiteral("log out") << false;
        QTest::newRow("another one stays") << QStringLiteral("other") << false;
    }

    void staysLoggedInUntilSomethingRevokesIt()
    {
        QFETCH(QString, deed);
        QFETCH(bool, stays);
        UserStore store = filled();
        QVERIFY(store.logIn(operatorName, other, true).isKept);
        QCOMPARE(opened().resume()->name, operatorName);
        const QByteArray token = content(SysPaths::configDir() + QStringLiteral("/stay"));
        if (deed == QLatin1String("password"))
            store.setPassword(operatorName, secret);
        else if (deed == QLatin1String("disable"))
            store.setEnabled(operatorName, false);
        else if (deed == QLatin1String("remove"))
            store.remove(operatorName);
        else if (deed == QLatin1String("log out"))
            store.forgetStay();
        else if (deed == QLatin1String("other"))
            store.stayLoggedIn(admin);
        // Somebody who kept the file brings it back.
        write(SysPaths::configDir() + QStringLiteral("/stay"), token);
        QCOMPARE(opened().resume().has_value(), stays);
    }

    void neverMakesAnybodyTheAdministratorWhenFilesAreLost_data()
    {
        QTest::addColumn<QString>("config"); // what becomes of the file there: removed, damaged, or left
        QTest::addColumn<QString>("data");
        QTest::addColumn<int>("state");
        const QString gone = QStringLiteral("gone");
        const QString torn = QStringLiteral("torn");
        QTest::newRow("the first gone") << gone << QString() << int(UserStore::State::Ready);
        QTest::newRow("the first torn") << torn << QString() << int(UserStore::State::Ready);
        QTest::newRow("the copy gone") << QString() << gone << int(UserStore::State::Ready);
        QTest::newRow("both torn") << torn << torn << int(UserStore::State::Unreadable);
        QTest::newRow("one gone, one torn") << gone << torn << int(UserStore::State::Unreadable);
        QTest::newRow("the key gone") << QStringLiteral("key") << QString() << int(UserStore::State::Unreadable);
        QTest::newRow("both gone") << gone << gone << int(UserStore::State::Empty);
    }

    void neverMakesAnybodyTheAdministratorWhenFilesAreLost()
    {
        QFETCH(QString, config);
        QFETCH(QString, data);
        QFETCH(int, state);
        filled();
        const QString first = SysPaths::configDir() + QStringLiteral("/users");
        const QString copy = SysPaths::dataDir() + QStringLiteral("/users");
        harm(first, config);
        harm(copy, data);
        if (config == QLatin1String("key"))
            QVERIFY(QFile::remove(SysPaths::configDir() + QStringLiteral("/secrets.key")));
        vemo_worker::ClientSecretKey::instance().reset();
        UserStore store(clock());
        QString problem;
        QCOMPARE(int(store.open(&problem)), state);
        QCOMPARE(problem.isEmpty(), state != int(UserStore::State::Unreadable));
        if (state == int(UserStore::State::Ready)) {
            QCOMPARE(store.users().size(), 2);
            QVERIFY(harm(first, QStringLiteral("torn")));
            QCOMPARE(opened().users().size(), 2); // it was mended, or the copy is there
            return;
        }
        if (state != int(UserStore::State::Unreadable))
            return;
        QVERIFY(!store.add(QStringLiteral("thief"), secret, SystemWorker::allPowers).isEmpty());
        QVERIFY(store.beginAnew());
        QCOMPARE(store.add(admin, secret, SystemWorker::allPowers), QString());
        QCOMPARE(opened().users().size(), 1);
        QVERIFY(!QDir(SysPaths::dataDir()).entryList({QStringLiteral("users.damaged-*")}).isEmpty());
    }

    void writesNoPasswordAndNothingThatOthersMayRead()
    {
        UserStore store = filled();
        QVERIFY(store.logIn(admin, secret, true).isKept);
        QDirIterator files(m_world->path(QString()), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QByteArray text = content(files.next());
            for (const QByteArray& form : {secret.toUtf8(), secret.toUtf8().toBase64(), QByteArray("argon2")})
                QVERIFY2(!text.contains(form), qPrintable(files.filePath()));
            QCOMPARE(QFile::permissions(files.filePath()) &
                         (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                     QFile::Permissions());
            ++count;
        }
        QVERIFY(count >= 4); // the users twice, who stays, the key
    }

private:
    UserStore::Clock clock()
    {
        return [this] { return m_now; };
    }

    UserStore opened()
    {
        UserStore store(clock());
        QString problem;
        store.open(&problem);
        return store;
    }

    UserStore filled()
    {
        UserStore store = opened();
        store.add(admin, secret, SystemWorker::allPowers);
        store.add(operatorName, other, vemo_worker::PowerLive | vemo_worker::PowerPlayback);
        return store;
    }

    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static bool write(const QString& path, const QByteArray& text)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size() &&
               file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }

    static bool harm(const QString& path, const QString& how)
    {
        if (how == QLatin1String("gone"))
            return QFile::remove(path);
        QByteArray text = content(path);
        text[text.size() / 2] = char(text.at(text.size() / 2) ^ 1);
        return how != QLatin1String("torn") || write(path, text);
    }

    std::unique_ptr<TestWorld> m_world;
    LoginLock::Now m_now;
};

QTEST_GUILESS_MAIN(UserStoreTest)
#include "UserStoreTest.moc"
