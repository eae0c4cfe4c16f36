#include "DesktopKeyring.h"

#include <qt5keychain/keychain.h>

#include <QFile>
#include <QObject>
#include <QThread>

#include <type_traits>

namespace vemo_worker {

namespace {

constexpr int endWithinMs = 300;

QString service()
{
    return QStringLiteral("vemo");
}

Keyring::Result resultOf(QKeychain::Error error)
{
    switch (error) {
    case QKeychain::NoError:
        return Keyring::Result::Done;
    case QKeychain::EntryNotFound:
        return Keyring::Result::NotFound;
    default:
        return Keyring::Result::Unavailable;
    }
}

bool hasService()
{
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
    return true;
#else
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR", QStringLiteral("/nowhere")) + QStringLiteral("/bus"));
#endif
}

} // namespace

std::unique_ptr<Keyring> DesktopKeyring::find()
{
    if (qEnvironmentVariable("VEMO_KEYRING") == QLatin1String("off") || !hasService())
        return nullptr;
    return std::make_unique<DesktopKeyring>();
}

DesktopKeyring::DesktopKeyring()
    : m_thread(new QThread)
    , m_there(new QObject)
    , m_here(new QObject, [](QObject* here) { here->deleteLater(); })
{
    m_thread->setObjectName(QStringLiteral("keyring"));
    m_there->moveToThread(m_thread);
    QObject::connect(m_thread, &QThread::finished, m_there, &QObject::deleteLater);
    m_thread->start();
}

DesktopKeyring::~DesktopKeyring()
{
    m_here.reset();
    m_thread->quit();
    // A call that hangs is left behind with its thread: ending a thread by force would leave locks held.
    if (m_thread->wait(endWithinMs))
        delete m_thread;
}

template <typename Job, typename Prepare>
void DesktopKeyring::carryOut(const QString& name, Prepare prepare, Answer answer)
{
    const std::weak_ptr<QObject> here(m_here);
    QMetaObject::invokeMethod(
        m_there,
        [there = m_there, here, name, prepare, answer = std::move(answer)] {
            auto* job = new Job(service(), there); // deletes itself
            job->setInsecureFallback(false);
            job->setKey(name);
            prepare(job);
            QObject::connect(job, &QKeychain::Job::finished, there, [here, answer, job](QKeychain::Job*) {
                QString text;
                if constexpr (std::is_same_v<Job, QKeychain::ReadPasswordJob>)
                    text = job->textData();
                const Result result = resultOf(job->error());
                const std::shared_ptr<QObject> receiver = here.lock();
                if (!receiver)
                    return;
                QMetaObject::invokeMethod(
                    receiver.get(),
                    [here, answer, result, text] {
                        if (!here.expired())
                            answer(result, text);
                    },
                    Qt::QueuedConnection);
            });
            job->start();
        },
        Qt::QueuedConnection);
}

void DesktopKeyring::read(const QString& name, Answer answer)
{
    carryOut<QKeychain::ReadPasswordJob>(
        name, [](QKeychain::ReadPasswordJob*) {}, std::move(answer));
}

void DesktopKeyring::write(const QString& name, const QString& text, Answer answer)
{
    carryOut<QKeychain::WritePasswordJob>(
        name, [text](QKeychain::WritePasswordJob* job) { job->setTextData(text); }, std::move(answer));
}

void DesktopKeyring::remove(const QString& name, Answer answer)
{
    carryOut<QKeychain::DeletePasswordJob>(
        name, [](QKeychain::DeletePasswordJob*) {}, std::move(answer));
}

} // namespace vemo_worker
