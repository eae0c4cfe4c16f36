// Which devices a backup may start on, and how strong a password counts as.
#include "backup/BackupDeviceCheck.h"

#include <PwdStrength.h>

#include <QtTest>

using VCOMMON::PwdStrength;
using vemo_filesCenter::BackupDeviceCheck;
using vms_sdk::DevStatus;

class BackupDeviceCheckTest final : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("allPowerful");
        QTest::addColumn<bool>("weak");
        QTest::addColumn<bool>("ownPassword");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* name, DevStatus status, int type, bool allPowerful, bool weak, bool ownPassword,
                            const char* reason) {
            QTest::newRow(name) << int(status) << type << allPowerful << weak << ownPassword
                                << QString::fromLatin1(reason);
        };
        row("offline", DevStatus::Offline, 6, true, false, true, "device offline");
        row("online", DevStatus::Online, 0, false, false, true, "");
        row("online, weak", DevStatus::Online, 0, false, true, true, "device uses weak password");
        row("online, weak, all-powerful", DevStatus::Online, 0, true, true, true, "");
        row("online, weak, type 6", DevStatus::Online, 6, false, true, true, "");
        row("login", DevStatus::WrongLogin, 6, true, false, true, "wrong user name or password for connecting device");
        row("connections", DevStatus::ConnectionLimit, 6, true, false, true,
            "the connection limit of the device has been reached");
        row("default, none set", DevStatus::DefaultPassword, 0, true, false, false, "device uses default password");
        row("default, own set", DevStatus::DefaultPassword, 0, false, true, true, "");
        row("default, type 6", DevStatus::DefaultPassword, 6, false, false, false, "");
        row("not active", DevStatus::NotActive, 6, true, false, true, "device not active");
        row("locked", DevStatus::Locked, 6, true, false, true, "device login is locked");
        row("logins", DevStatus::LoginLimit, 6, true, false, true, "the login limit of the device has been reached");
        row("relay", DevStatus::RelayBroken, 6, true, false, true, "device relay connection broken");
        row("unknown", DevStatus::Unknown, 6, true, false, true, "device status unknown");
        row("never heard of", DevStatus(10), 6, true, false, true, "device status unknown");
    }

    void refusals()
    {
        QFETCH(int, status);
        QFETCH(int, type);
        QFETCH(bool, allPowerful);
        QFETCH(bool, weak);
        QFETCH(bool, ownPassword);
        QFETCH(QString, reason);
        const QString wanted = reason.isEmpty() ? QString() : QStringLiteral("Failed to start backup:") + reason;
        QCOMPARE(BackupDeviceCheck::refusal({DevStatus(status), type, allPowerful, weak, ownPassword}), wanted);
    }

    void strengths_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<int>("strength");
        const auto row = [](const char* password, PwdStrength strength) {
            QTest::newRow(password) << QString::fromLatin1(password) << int(strength);
        };
        row("", PwdStrength::VeryWeak);
        row("aB1-x", PwdStrength::VeryWeak);
        row("aB1-xy7", PwdStrength::Weak);
        row("abcdefghijklmn", PwdStrength::Weak);
        row("abcdefg1", PwdStrength::Medium);
        row("abcDefg1", PwdStrength::Medium);
        row("abcDefghijk1", PwdStrength::Strong);
        row("abcDef-1", PwdStrength::Strong);
    }

    void strengths()
    {
        QFETCH(QString, password);
        QFETCH(int, strength);
        QCOMPARE(int(VCOMMON::checkPwdStrength(password)), strength);
    }
};

QTEST_GUILESS_MAIN(BackupDeviceCheckTest)

#include "BackupDeviceCheckTest.moc"
