#include "PasswordStore.h"

#include "DesktopKeyring.h"
#include "SecretMask.h"
#include "SecretsFile.h"

#include <QCoreApplication>
#include <QDebug>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <optional>

namespace vemo_worker {

namespace {

constexpr int keyringAnswersWithinMs = 3000;

std::atomic<bool> keyringHung{false};

} // namespace

/// Lives on the GUI thread; the file is read and written on a thread of its own.
class PasswordStore::Private final
{
public:
    using KeyringCall = std::function<void(Keyring&, Keyring::Answer)>;

    ~Private() { endThread(); }

    /// Asks the keyring; `answer` is called once, with Unavailable when it takes too long.
    void ask(const KeyringCall& call, const Keyring::Answer& answer);
    /// Runs `work` on the file thread, then `done` with its result on the GUI thread.
    template <typename Result>
    void onFile(std::function<Result()> work, std::function<void(const Result&)> done);
    void findKeyring();
    void endThread();
    void takeLateAnswer();

    std::unique_ptr<Keyring> keyring;
    std::unique_ptr<Keyring> lateKeyring; ///< that did not answer, but still may
    bool keyringSought = false;
    bool isRefused = false; ///< the keyring's last answer was that it can't be read

private:
    std::shared_ptr<QObject> m_here{new QObject, [](QObject* here) { here->deleteLater(); }};
    std::unique_ptr<QThread> m_thread;
    QObject* m_there = nullptr; ///< lives on m_thread
};

void PasswordStore::Private::findKeyring()
{
    if (keyringSought)
        return;
    keyringSought = true;
    keyring = DesktopKeyring::find();
}

void PasswordStore::Private::ask(const KeyringCall& call, const Keyring::Answer& answer)
{
    findKeyring();
    if (!keyring) {
        QMetaObject::invokeMethod(
            m_here.get(), [answer] { answer(Keyring::Result::Unavailable, QString()); }, Qt::QueuedConnection);
        return;
    }
    auto* clock = new QTimer(m_here.get());
    auto answerOnce = [this, clock = QPointer<QTimer>(clock), answer](Keyring::Result result, const QString& text) {
        if (!clock) {
            if (result != Keyring::Result::Unavailable)
                takeLateAnswer();
            return;
        }
        delete clock;
        answer(result, text);
    };
    QObject::connect(clock, &QTimer::timeout, clock, [this, answerOnce] {
        if (keyring) {
            qWarning("the keyring does not answer; passwords go to the encrypted file");
            keyringHung = true;
            lateKeyring = std::move(keyring);
        }
        answerOnce(Keyring::Result::Unavailable, QString());
    });
    clock->setSingleShot(true);
    clock->start(keyringAnswersWithinMs);
    call(*keyring, answerOnce);
}

/// It was unlocked, or has come to itself.
void PasswordStore::Private::takeLateAnswer()
{
    if (!lateKeyring)
        return;
    keyring = std::move(lateKeyring);
    keyringHung = false;
    emit PasswordStore::instance().signalKeyringOpened();
}

template <typename Result>
void PasswordStore::Private::onFile(std::function<Result()> work, std::function<void(const Result&)> done)
{
    if (!m_thread) {
        m_thread = std::make_unique<QThread>();
        m_thread->setObjectName(QStringLiteral("passwords"));
        m_there = new QObject;
        m_there->moveToThread(m_thread.get());
        QObject::connect(m_thread.get(), &QThread::finished, m_there, &QObject::deleteLater);
        m_thread->start();
    }
    QMetaObject::invokeMethod(
        m_there,
        [here = std::weak_ptr<QObject>(m_here), work = std::move(work), done = std::move(done)] {
            const Result result = work();
            const std::shared_ptr<QObject> receiver = here.lock();
            if (receiver)
                QMetaObject::invokeMethod(
                    receiver.get(), [result, done] { done(result); }, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void PasswordStore::Private::endThread()
{
    keyring.reset();
    lateKeyring.reset();
    keyringSought = false;
    if (!m_thread)
        return;
    m_thread->quit();
    m_thread->wait();
    m_thread.reset();
    m_there = nullptr;
}

PasswordStore::PasswordStore()
    : d(std::make_unique<Private>())
{
    // The threads end before the application object goes.
    qAddPostRoutine([] { PasswordStore::instance().d->endThread(); });
}

PasswordStore::~PasswordStore() = default;

PasswordStore& PasswordStore::instance()
{
    static PasswordStore store;
    return store;
}

bool PasswordStore::isKeyringClosed() const
{
    return d->lateKeyring || d->isRefused;
}

bool PasswordStore::hasHungKeyring()
{
    return keyringHung;
}

void PasswordStore::setKeyring(std::unique_ptr<Keyring> keyring)
{
    d->keyring = std::move(keyring);
    d->lateKeyring.reset();
    d->isRefused = false;
    d->keyringSought = true;
}

void PasswordStore::put(const QString& devId, const QString& password, QObject* context, Kept kept)
{
    SecretMask::hide(password);
    const bool hasContext = context != nullptr;
    const QPointer<QObject> guard(context);
    const std::function<void(const bool&)> tell = [guard, hasContext, kept = std::move(kept)](const bool& ok) {
        if (kept && (guard || !hasContext))
            kept(ok);
    };
    const auto written = [this, devId, password, tell](Keyring::Result result, const QString&) {
        if (result == Keyring::Result::Done) {
            // What an earlier run without keyring kept would else win over it.
            d->onFile<bool>([devId] { return SecretsFile::remove(devId); }, [tell](const bool&) { tell(true); });
            return;
        }
        d->onFile<bool>([devId, password] { return SecretsFile::write(devId, password); }, tell);
    };
    d->ask([devId, password](Keyring& keyring,
                             Keyring::Answer answer) { keyring.write(devId, password, std::move(answer)); },
           written);
}

void PasswordStore::get(const QString& devId, QObject* context, Found found)
{
    const QPointer<QObject> guard(context);
    // The file first: it answers at once, and holds something only when there was no keyring.
    const std::function<void(const std::optional<QString>&)> looked =
        [this, devId, guard, found = std::move(found)](const std::optional<QString>& inFile) {
            if (!guard)
                return;
            if (inFile) {
                SecretMask::hide(*inFile);
                found(*inFile, true);
                return;
            }
            d->ask([devId](Keyring& keyring, Keyring::Answer answer) { keyring.read(devId, std::move(answer)); },
                   [this, guard, found](Keyring::Result result, const QString& text) {
                       d->isRefused = d->keyring && result == Keyring::Result::Unavailable;
                       if (result == Keyring::Result::Done)
                           SecretMask::hide(text);
                       if (guard)
                           found(text, result == Keyring::Result::Done);
                   });
        };
    d->onFile<std::optional<QString>>([devId] { return SecretsFile::read(devId); }, looked);
}

void PasswordStore::remove(const QString& devId)
{
    d->onFile<bool>([devId] { return SecretsFile::remove(devId); }, [](const bool&) {});
    d->ask([devId](Keyring& keyring, Keyring::Answer answer) { keyring.remove(devId, std::move(answer)); },
           [](Keyring::Result, const QString&) {});
}

} // namespace vemo_worker
