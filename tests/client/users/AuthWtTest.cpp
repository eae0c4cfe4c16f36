#include "TestWorld.h"

#include "users/AuthWt.h"
#include "users/Avatar.h"
#include "users/UserAccounts.h"
#include "users/UserDialog.h"
#include "users/UserMenu.h"
#include "users/UserRow.h"
#include "users/UsersSettingsWt.h"

#include <ClientSecretKey.h>
#include <SysPaths.h>
#include <SystemConfig.h>
#include <SystemWorker.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

using vemo_client::AuthWt;
using vemo_client::UserAccounts;
using vemo_client::UserDialog;
using vemo_worker::SystemWorker;

namespace {

constexpr int waitMs = 20'000; // hashing on a busy machine
const QString admin = QStringLiteral("m.keller");
const QString secret = QStringLiteral("gehe/im %2B+<&\"'>ä 7");

template <typename Widget>
Widget* named(const QWidget& parent, const QString& name)
{
    const QList<Widget*> all = parent.findChildren<Widget*>();
    for (Widget* each : all) {
        if (each->accessibleName() == name || each->property("text").toString() == name)
            return each;
    }
    return nullptr;
}

bool shows(const QWidget& parent, const QString& part)
{
    const QList<QLabel*> labels = parent.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) { return label->text().contains(part); });
}

void type(const QWidget& parent, const QString& field, const QString& text)
{
    named<QLineEdit>(parent, field)->setText(text);
}

} // namespace

class AuthWtTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        vemo_worker::ClientSecretKey::instance().reset();
        vemo_worker::SystemConfig::instance().setVideoFilePath(m_world->path(QStringLiteral("Videos")));
        QDir().mkpath(m_world->path(QStringLiteral("Videos")));
        UserAccounts::instance().open();
    }

    void cleanup()
    {
        SystemWorker::instance().setCurUser(QStringLiteral("admin"), SystemWorker::allPowers);
        m_world.reset();
    }

    void letsOnlyASoundAdministratorBegin()
    {
        AuthWt auth(languages, QStringLiteral("en"));
        auth.show();
        QSignalSpy loggedIn(&auth, &AuthWt::signalLoggedIn);
        QPushButton* create = button(auth, "Create and continue");
        const struct
        {
            QString name, password, repeat;
            bool isGood;
        } tries[] = {{QString(), secret, secret, false},
                     {admin, QStringLiteral("Short-1"), QStringLiteral("Short-1"), false},
                     {admin, secret, secret.left(5), false},
                     {admin, secret, secret, true}};
        for (const auto& each : tries) {
            type(auth, QStringLiteral("User name"), each.name);
            type(auth, QStringLiteral("Password"), each.password);
            type(auth, QStringLiteral("Repeat the password"), each.repeat);
            QCOMPARE(create->isEnabled(), each.isGood);
        }
        create->click();
        QTRY_VERIFY_WITH_TIMEOUT(button(auth, "Continue"), waitMs);
        QVERIFY(!named<QToolButton>(auth, QStringLiteral("Language: English"))->isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(button(auth, "Continue")->isEnabled(), waitMs); // the folders will do
        button(auth, "Continue")->click();
        QTRY_VERIFY(button(auth, "Look for recorders"));
        QCOMPARE(loggedIn.count(), 0);
        button(auth, "Look for recorders")->click();
        QCOMPARE(loggedIn.count(), 1);
        QVERIFY(auth.wantsRecorders());
        QCOMPARE(SystemWorker::instance().curUserName(), admin);
        QCOMPARE(UserAccounts::instance().open(), vemo_worker::UserStore::State::Ready);
        QVERIFY(!UserAccounts::instance().isLoggedIn());
    }

    void tellsWrongPasswordsAndTheLock()
    {
        addUsers();
        AuthWt auth(languages, QStringLiteral("en"));
        auth.show();
        QSignalSpy loggedIn(&auth, &AuthWt::signalLoggedIn);
        for (int i = 1; i <= vemo_worker::LoginLock::freeTries; ++i) {
            logIn(auth, admin, QStringLiteral("wrong"));
            QTRY_VERIFY_WITH_TIMEOUT(!named<QLineEdit>(auth, QStringLiteral("Password"))->text().size(), waitMs);
            QTRY_VERIFY_WITH_TIMEOUT(shows(auth, QStringLiteral("wrong")), waitMs);
        }
        QTRY_VERIFY(shows(auth, QStringLiteral("The account is locked for")));
        type(auth, QStringLiteral("Password"), secret);
        QVERIFY(!button(auth, "Log in")->isEnabled());
        // Somebody else isn't locked out.
        logIn(auth, QStringLiteral("watch"), secret);
        QTRY_COMPARE_WITH_TIMEOUT(loggedIn.count(), 1, waitMs);
        QVERIFY(!SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerDownload));
        QVERIFY(SystemWorker::instance().isCurUserHasPower(vemo_worker::PowerLive));
    }

    void offersNoAdministratorWhenTheAccountsCannotBeOpened()
    {
        addUsers();
        for (const QString& folder : {vemo_worker::SysPaths::configDir(), vemo_worker::SysPaths::dataDir()}) {
            QFile file(folder + QStringLiteral("/users"));
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write("vemo users 1\nrubbish");
        }
        UserAccounts::instance().open();
        const AuthWt auth(languages, QStringLiteral("en"));
        QVERIFY(shows(auth, QStringLiteral("The accounts can't be opened")));
        QVERIFY(auth.findChildren<QLineEdit*>().isEmpty());
        QVERIFY(!button(auth, "Create and continue"));
    }

    void staysLoggedInWhenAskedTo()
    {
        addUsers();
        AuthWt auth(languages, QStringLiteral("en"));
        QSignalSpy loggedIn(&auth, &AuthWt::signalLoggedIn);
        named<QCheckBox>(auth, QStringLiteral("Stay logged in on this computer"))->setChecked(true);
        logIn(auth, admin, secret);
        QTRY_COMPARE_WITH_TIMEOUT(loggedIn.count(), 1, waitMs);
        UserAccounts::instance().open();
        QVERIFY(UserAccounts::instance().isLoggedIn());
        UserAccounts::instance().logOut();
        UserAccounts::instance().open();
        QVERIFY(!UserAccounts::instance().isLoggedIn());
    }

    void showsTheUsersToAdministratorsOnly_data()
    {
        QTest::addColumn<int>("powers");
        QTest::addColumn<int>("rows");
        QTest::newRow("administrator") << SystemWorker::allPowers << 2;
        QTest::newRow("settings alone") << int(vemo_worker::PowerSettings) << 0;
    }

    void showsTheUsersToAdministratorsOnly()
    {
        QFETCH(int, powers);
        addUsers();
        vemo_worker::UserRecord own;
        own.name = admin;
        own.powers = powers;
        UserAccounts::instance().setCurrent(own);
        const vemo_client::UsersSettingsWt page;
        QTEST(page.findChildren<vemo_client::UserRow*>().size(), "rows");
        QCOMPARE(button(page, "Add a user") != nullptr, powers == SystemWorker::allPowers);
        QVERIFY(button(page, "Change password"));
    }

    void changesTheOwnPasswordOnlyWithTheOldOne()
    {
        addUsers();
        const QString next = QStringLiteral("a whole new Word 9");
        for (const QString& current : {QStringLiteral("wrong"), secret}) {
            auto* dialog =
                new UserDialog(UserDialog::Deed::ChangeOwnPassword, UserAccounts::instance().users().at(0), nullptr);
            QSignalSpy closed(dialog, &QDialog::accepted);
            type(*dialog, QStringLiteral("Current password"), current);
            type(*dialog, QStringLiteral("New password"), next);
            QVERIFY(!button(*dialog, "Save")->isEnabled());
            type(*dialog, QStringLiteral("Repeat the password"), next);
            button(*dialog, "Save")->click();
            if (current == secret) {
                QTRY_COMPARE_WITH_TIMEOUT(closed.count(), 1, waitMs);
                continue;
            }
            QTRY_VERIFY_WITH_TIMEOUT(shows(*dialog, QStringLiteral("The current password is wrong.")), waitMs);
            delete dialog;
        }
    }

    void findsInitials_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("initials");
        QTest::newRow("two") << admin << QStringLiteral("MK");
        QTest::newRow("one") << QStringLiteral("demo") << QStringLiteral("D");
        QTest::newRow("three") << QStringLiteral("Anna Maria Roth") << QStringLiteral("AR");
        QTest::newRow("beyond 16 bits") << QString::fromUtf8("\xF0\x9F\x98\x80 x")
                                        << QString::fromUtf8("\xF0\x9F\x98\x80X");
        QTest::newRow("dots") << QStringLiteral("...") << QString();
    }

    void findsInitials()
    {
        QFETCH(QString, name);
        QTEST(vemo_client::Avatar::initialsOf(name), "initials");
    }

private:
    static QPushButton* button(const QWidget& parent, const char* text)
    {
        return named<QPushButton>(parent, QString::fromLatin1(text));
    }

    static void logIn(const AuthWt& auth, const QString& name, const QString& password)
    {
        named<QComboBox>(auth, QStringLiteral("User name"))->setCurrentText(name);
        type(auth, QStringLiteral("Password"), password);
        button(auth, "Log in")->click();
    }

    void addUsers()
    {
        int done = 0;
        const auto count = [&done](const QString& problem) { done += problem.isEmpty() ? 1 : 100; };
        UserAccounts::instance().add(admin, secret, SystemWorker::allPowers, this, count);
        UserAccounts::instance().add(QStringLiteral("watch"), secret, vemo_worker::PowerLive, this, count);
        QTRY_COMPARE_WITH_TIMEOUT(done, 2, waitMs);
    }

    const QStringList languages{QStringLiteral("en"), QStringLiteral("de")};
    std::unique_ptr<TestWorld> m_world;
};

QTEST_MAIN(AuthWtTest)
#include "AuthWtTest.moc"
