#pragma once

#include "LoginLock.h"
#include "SealedFile.h"
#include "UserRecord.h"
#include "vemo_worker_global.h"

#include <QByteArray>
#include <QVector>

#include <functional>
#include <optional>

namespace vemo_worker {

/// How an attempt to log in ended.
struct LoginResult
{
    enum class Outcome : int { Unknown = 0, Done, Wrong, Locked, Disabled };

    Outcome outcome = Outcome::Unknown;
    UserRecord user;     ///< with Done
    qint64 lockedMs = 0; ///< so long from now on; with Locked, and with a Wrong that locked
    int triesLeft = 0;   ///< with Wrong: before the account is locked
    bool isKept = true;  ///< with Done: false when it was to be kept logged in and could not be
};

/// The users of this client, their proofs and their powers: one sealed file "users" in the config folder and the same
/// again in the data folder, so that neither a lost database nor a lost file takes the accounts away. Waits for the
/// disk and for password hashing; used on one thread at a time, after open().
///
/// While one of the two files is there and none can be opened, the store is Unreadable: it never begins anew by itself,
/// since then whoever sits there could make himself the administrator. Changes answer with a sentence for the person,
/// empty when they are stored; a change that could not be stored has not happened.
class VEMO_WORKER_EXPORT UserStore final
{
public:
    enum class State : int { Unknown = 0, Empty, Ready, Unreadable };
    using Clock = std::function<LoginLock::Now()>;

    explicit UserStore(Clock clock = systemClock());

    /// Reads the files; `problem` gets a sentence when they are Unreadable.
    State open(QString* problem);
    /// Puts files aside that can't be opened, under dated names, and begins without users. False: not possible.
    bool beginAnew();
    State state() const { return m_state; }
    /// In the order of adding.
    QVector<UserRecord> users() const;

    /// A wrong name takes as long as a wrong password, and is locked likewise. With `stays` the next start of the
    /// program needs no password: see resume().
    LoginResult logIn(const QString& name, const QString& password, bool stays);
    /// The user who stays logged in on this computer; nobody once the password was changed, the user disabled, or
    /// forgetStay() called. Takes no hashing and writes nothing.
    std::optional<UserRecord> resume() const;
    /// From now on the user stays logged in; false when that could not be stored.
    bool stayLoggedIn(const QString& name);
    void forgetStay();

    /// The first user is to be an administrator.
    QString add(const QString& name, const QString& password, int powers);
    QString setPassword(const QString& name, const QString& password);
    /// A wrong `current` counts as a failed login.
    QString changePassword(const QString& name, const QString& current, const QString& password);
    QString setPowers(const QString& name, int powers);
    QString setEnabled(const QString& name, bool isEnabled);
    QString remove(const QString& name);

    static Clock systemClock();

private:
    struct Account
    {
        UserRecord user;
        QByteArray hash;
        QByteArray stay; ///< proof of the token that lies on this computer; empty: none
        LoginLock lock;
    };

    bool take(const QByteArray& plain);
    bool save();
    /// Stores the accounts as they are; takes `before` back when that fails.
    QString keep(const QVector<Account>& before);
    Account* find(const QString& name);
    const Account* find(const QString& name) const;
    /// The change would leave nobody who may manage users.
    bool isLastAdministrator(const Account& account) const;

    SealedFile m_file;
    SealedFile m_copy;
    SealedFile m_stayFile;
    Clock m_clock;
    State m_state = State::Unknown;
    QVector<Account> m_accounts;
    LoginLock m_strangers; ///< of all names that nobody has
};

} // namespace vemo_worker
