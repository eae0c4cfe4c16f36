#pragma once

#include <UserStore.h>

#include <QObject>
#include <QVector>

#include <functional>
#include <memory>

namespace vemo_client {

/// The users of this client as the window needs them. One object a process, on the GUI thread; hashing and disk work
/// are done one after another on a thread of its own, which ends with the application. open() comes first. Every other
/// question returns at once and answers later by the event loop; `context` gone: no answer. A problem is a sentence for
/// the person, empty when the change is stored.
class UserAccounts final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(UserAccounts)

public:
    using LoginAnswer = std::function<void(const vemo_worker::LoginResult& result)>;
    using Answer = std::function<void(const QString& problem)>;

    static UserAccounts& instance();
    ~UserAccounts() override;

    /// Reads the users, and who stays logged in; before there is a window, so on this thread. Reads three small files.
    vemo_worker::UserStore::State open();
    vemo_worker::UserStore::State state() const { return m_state; }
    /// Why the store is Unreadable.
    const QString& problem() const { return m_problem; }
    const QVector<vemo_worker::UserRecord>& users() const { return m_users; }

    /// From now on what the user may do holds for the whole program.
    void setCurrent(const vemo_worker::UserRecord& user);
    const vemo_worker::UserRecord& current() const { return m_current; }
    /// The user who stays logged in was made current by open().
    bool isLoggedIn() const { return !m_current.name.isEmpty(); }

    void logIn(const QString& name, const QString& password, bool stays, QObject* context, LoginAnswer answer);
    void add(const QString& name, const QString& password, int powers, QObject* context, Answer answer);
    void setPassword(const QString& name, const QString& password, QObject* context, Answer answer);
    void changePassword(const QString& name, const QString& current, const QString& password, QObject* context,
                        Answer answer);
    void setPowers(const QString& name, int powers, QObject* context, Answer answer);
    void setEnabled(const QString& name, bool isEnabled, QObject* context, Answer answer);
    void remove(const QString& name, QObject* context, Answer answer);

    /// Nobody stays logged in any more; done when it returns. For the end of the program.
    void logOut();

signals:
    void signalUsersChanged();

private:
    UserAccounts();

    template <typename Result>
    void carryOut(std::function<Result(vemo_worker::UserStore&)> work, QObject* context,
                  std::function<void(const Result&)> answer);
    void change(std::function<QString(vemo_worker::UserStore&)> work, QObject* context, Answer answer);
    void endThread();

    class Worker;
    std::unique_ptr<Worker> m_worker;
    vemo_worker::UserStore::State m_state = vemo_worker::UserStore::State::Unknown;
    QString m_problem;
    QVector<vemo_worker::UserRecord> m_users;
    vemo_worker::UserRecord m_current;
};

} // namespace vemo_client
