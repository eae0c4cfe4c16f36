#include "UserAccounts.h"

#include <SystemWorker.h>

#include <QCoreApplication>
#include <QPointer>
#include <QThread>

#include <utility>

namespace vemo_client {

using vemo_worker::LoginResult;
using vemo_worker::UserRecord;
using vemo_worker::UserStore;

/// The store and the thread that it is used on once something is asked.
class UserAccounts::Worker final
{
public:
    Worker()
    {
        m_thread.setObjectName(QStringLiteral("users"));
        m_there->moveToThread(&m_thread);
        QObject::connect(&m_thread, &QThread::finished, m_there, &QObject::deleteLater);
    }
    ~Worker()
    {
        if (!m_thread.isRunning()) {
            delete m_there;
            return;
        }
        m_thread.quit();
        m_thread.wait();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void post(std::function<void()> work)
    {
        if (!m_thread.isRunning())
            m_thread.start();
        QMetaObject::invokeMethod(m_there, std::move(work), Qt::QueuedConnection);
    }
    void run(std::function<void()> work)
    {
        if (!m_thread.isRunning())
            m_thread.start();
        QMetaObject::invokeMethod(m_there, std::move(work), Qt::BlockingQueuedConnection);
    }

    UserStore store;

private:
    QThread m_thread;
    QObject* m_there = new QObject; ///< lives on m_thread
};

UserAccounts::UserAccounts()
{
    qAddPostRoutine([] { UserAccounts::instance().endThread(); });
}

UserAccounts::~UserAccounts() = default;

UserAccounts& UserAccounts::instance()
{
    static UserAccounts accounts;
    return accounts;
}

void UserAccounts::endThread()
{
    m_worker.reset();
}

UserStore::State UserAccounts::open()
{
    m_worker = std::make_unique<Worker>();
    m_current = {};
    m_state = m_worker->store.open(&m_problem);
    m_users = m_worker->store.users();
    if (const std::optional<UserRecord> user = m_worker->store.resume())
        setCurrent(*user);
    return m_state;
}

void UserAccounts::setCurrent(const UserRecord& user)
{
    m_current = user;
    vemo_worker::SystemWorker::instance().setCurUser(user.name, user.powers);
}

template <typename Result>
void UserAccounts::carryOut(std::function<Result(UserStore&)> work, QObject* context,
                            std::function<void(const Result&)> answer)
{
    m_worker->post([this, &store = m_worker->store, work = std::move(work), guard = QPointer<QObject>(context),
                    answer = std::move(answer)] {
        const Result result = work(store);
        const QVector<UserRecord> users = store.users();
        const UserStore::State state = store.state();
        QMetaObject::invokeMethod(
            this,
            [this, result, users, state, guard, answer] {
                m_users = users;
                m_state = state;
                emit signalUsersChanged();
                if (guard)
                    answer(result);
            },
            Qt::QueuedConnection);
    });
}

void UserAccounts::change(std::function<QString(UserStore&)> work, QObject* context, Answer answer)
{
    carryOut<QString>(std::move(work), context, std::move(answer));
}

void UserAccounts::logIn(const QString& name, const QString& password, bool stays, QObject* context, LoginAnswer answer)
{
    carryOut<LoginResult>([=](UserStore& store) { return store.logIn(name, password, stays); }, context,
                          std::move(answer));
}

void UserAccounts::add(const QString& name, const QString& password, int powers, QObject* context, Answer answer)
{
    change([=](UserStore& store) { return store.add(name, password, powers); }, context, std::move(answer));
}

void UserAccounts::setPassword(const QString& name, const QString& password, QObject* context, Answer answer)
{
    change([=](UserStore& store) { return store.setPassword(name, password); }, context, std::move(answer));
}

void UserAccounts::changePassword(const QString& name, const QString& current, const QString& password,
                                  QObject* context, Answer answer)
{
    change([=](UserStore& store) { return store.changePassword(name, current, password); }, context, std::move(answer));
}

void UserAccounts::setPowers(const QString& name, int powers, QObject* context, Answer answer)
{
    change([=](UserStore& store) { return store.setPowers(name, powers); }, context, std::move(answer));
}

void UserAccounts::setEnabled(const QString& name, bool isEnabled, QObject* context, Answer answer)
{
    change([=](UserStore& store) { return store.setEnabled(name, isEnabled); }, context, std::move(answer));
}

void UserAccounts::remove(const QString& name, QObject* context, Answer answer)
{
    change([=](UserStore& store) { return store.remove(name); }, context, std::move(answer));
}

void UserAccounts::logOut()
{
    if (m_worker)
        m_worker->run([&store = m_worker->store] { store.forgetStay(); });
}

} // namespace vemo_client
