#include "TestWorld.h"

#include <ClientSecretKey.h>
#include <DesktopKeyring.h>
#include <Keyring.h>
#include <PasswordStore.h>

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QtTest>

#include <functional>
#include <optional>
#include <vector>

using vemo_worker::ClientSecretKey;
using vemo_worker::Keyring;
using vemo_worker::PasswordStore;

namespace {

const QString device = QStringLiteral("{6b0f}");
const QString password = QStringLiteral("gehe/im %2B+<&\"'>ä 7");

/// A keyring in memory; `hangs`: it answers only when it is unlocked.
class FakeKeyring final : public Keyring
{
public:
    FakeKeyring(QMap<QString, QString>& texts, bool hangs)
        : m_texts(texts)
        , m_hangs(hangs)
    {}

    void read(const QString& name, Answer answer) override
    {
        const bool found = m_texts.contains(name);
        reply(answer, found ? Result::Done : Result::NotFound, m_texts.value(name));
    }
    void write(const QString& name, const QString& text, Answer answer) override
    {
        if (!m_hangs)
            m_texts.insert(name, text);
        reply(answer, Result::Done, {});
    }
    void remove(const QString& name, Answer answer) override
    {
        m_texts.remove(name);
        reply(answer, Result::Done, {});
    }

    void unlock()
    {
        m_hangs = false;
        for (const auto& each : m_waiting)
            each();
        m_waiting.clear();
    }

private:
    void reply(const Answer& answer, Result result, const QString& text)
    {
        const auto call = [answer, result, text] { answer(result, text); };
        if (m_hangs)
            m_waiting.push_back(call);
        else
            QMetaObject::invokeMethod(qApp, call, Qt::QueuedConnection);
    }

    std::vector<std::function<void()>> m_waiting;

    QMap<QString, QString>& m_texts;
    bool m_hangs;
};

} // namespace

class PasswordStoreTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_world = std::make_unique<TestWorld>();
        ClientSecretKey::instance().reset();
        m_store.setKeyring(nullptr);
    }

    void cleanup()
    {
        qunsetenv("VEMO_SECRETS_PASSWORD");
        m_world.reset();
    }

    void keepsPasswordsWithoutAKeyringAndNeverInPlainText()
    {
        QCOMPARE(get(), std::nullopt);
        QVERIFY(put(password));
        ClientSecretKey::instance().reset(); // as after a restart
        QCOMPARE(get(), std::optional<QString>(password));
        QVERIFY(put(QStringLiteral("other")));
        QCOMPARE(get(), std::optional<QString>(QStringLiteral("other")));
        m_store.remove(device);
        QTRY_COMPARE(get(), std::nullopt);

        QVERIFY(put(password));
        QDirIterator files(m_world->path(QString()), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray content = file.readAll();
            for (const QByteArray& form : {password.toUtf8(), password.toUtf8().toBase64()})
                QVERIFY2(!content.contains(form), qPrintable(file.fileName()));
            QCOMPARE(file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther),
                     QFile::Permissions());
            ++count;
        }
        QVERIFY(count >= 2); // key and secrets
    }

    void opensNothingWithoutThePasswordThatWasSet()
    {
        QVERIFY(put(password)); // under a key that lies open
        restartWith("first");
        QCOMPARE(get(), std::optional<QString>(password));        // from now on the key is sealed
        QCOMPARE(qgetenv("VEMO_SECRETS_PASSWORD"), QByteArray()); // children don't see it
        restartWith("");
        QCOMPARE(get(), std::nullopt);
        QVERIFY(!put(QStringLiteral("lost"))); // and nothing is overwritten
        restartWith("wrong");
        QCOMPARE(get(), std::nullopt);
        restartWith("first");
        QCOMPARE(get(), std::optional<QString>(password));
    }

    void setsADamagedFileAside_data()
    {
        QTest::addColumn<int>("flipped");
        QTest::newRow("in the head") << 3;
        QTest::newRow("in the text") << 40;
    }

    void setsADamagedFileAside()
    {
        QFETCH(int, flipped);
        QVERIFY(put(password));
        QFile file(m_world->path(QStringLiteral("config/secrets")));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QByteArray content = file.readAll();
        content[flipped] = char(content.at(flipped) ^ 1);
        QVERIFY(file.seek(0) && file.write(content) == content.size());
        file.close();
        QCOMPARE(get(), std::nullopt);
        QVERIFY(put(QStringLiteral("new")));
        QCOMPARE(get(), std::optional<QString>(QStringLiteral("new")));
        const QStringList aside =
            QDir(m_world->path(QStringLiteral("config"))).entryList({QStringLiteral("secrets.damaged-*")});
        QCOMPARE(aside.size(), 1);
    }

    void prefersTheKeyringAndTakesTheFilesCopyAway()
    {
        QVERIFY(put(QStringLiteral("old"))); // while there was no keyring
        QMap<QString, QString> texts;
        m_store.setKeyring(std::make_unique<FakeKeyring>(texts, false));
        QVERIFY(put(password));
        QCOMPARE(texts.value(device), password);
        QCOMPARE(get(), std::optional<QString>(password));
        m_store.setKeyring(nullptr);
        QCOMPARE(get(), std::nullopt);
    }

    void doesNotHangWithAKeyring()
    {
        QMap<QString, QString> texts;
        m_store.setKeyring(std::make_unique<FakeKeyring>(texts, true));
        QElapsedTimer clock;
        clock.start();
        bool kept = false;
        m_store.put(device, password, this, [&kept](bool ok) { kept = ok; });
        QVERIFY(clock.elapsed() < 1000);
        QTRY_VERIFY_WITH_TIMEOUT(kept, 10'000);
        clock.restart();
        QCOMPARE(get(), std::optional<QString>(password)); // nobody waits a second time
        QVERIFY(clock.elapsed() < 2000);
    }

    void takesAKeyringUpAgainThatIsUnlockedLate()
    {
        QMap<QString, QString> texts{{device, password}};
        auto made = std::make_unique<FakeKeyring>(texts, true);
        FakeKeyring* keyring = made.get();
        m_store.setKeyring(std::move(made));
        QSignalSpy opened(&m_store, &PasswordStore::signalKeyringOpened);
        QCOMPARE(get(), std::nullopt); // after a wait, so that the person can be asked
        QVERIFY(m_store.isKeyringClosed());
        keyring->unlock();
        QCOMPARE(opened.size(), 1);
        QVERIFY(!m_store.isKeyringClosed());
        QVERIFY(!PasswordStore::hasHungKeyring());
        QCOMPARE(get(), std::optional<QString>(password));
        m_store.setKeyring(nullptr);
    }

    void asksNoKeyringWithoutASessionBus()
    {
        const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", m_world->path(QString()).toLocal8Bit());
        const bool found = vemo_worker::DesktopKeyring::find() != nullptr;
        if (!bus.isNull())
            qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
        qputenv("XDG_RUNTIME_DIR", runtime);
        QVERIFY(!found);
    }

private:
    void restartWith(const char* secretsPassword)
    {
        qputenv("VEMO_SECRETS_PASSWORD", secretsPassword);
        ClientSecretKey::instance().reset();
    }

    bool put(const QString& text)
    {
        std::optional<bool> kept;
        m_store.put(device, text, this, [&kept](bool ok) { kept = ok; });
        return QTest::qWaitFor([&kept] { return kept.has_value(); }, 10'000) && *kept;
    }

    std::optional<QString> get()
    {
        std::optional<QString> result;
        bool answered = false;
        m_store.get(device, this, [&](const QString& text, bool found) {
            answered = true;
            if (found)
                result = text;
        });
        return QTest::qWaitFor([&answered] { return answered; }, 10'000) ? result : QStringLiteral("no answer");
    }

    PasswordStore& m_store = PasswordStore::instance();
    std::unique_ptr<TestWorld> m_world;
};

QTEST_GUILESS_MAIN(PasswordStoreTest)
#include "PasswordStoreTest.moc"
