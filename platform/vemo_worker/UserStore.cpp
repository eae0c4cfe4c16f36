#include "UserStore.h"

#include "PasswordHash.h"
#include "SecretBox.h"
#include "SysPaths.h"
#include "SystemWorker.h"
#include "UserRules.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMessageAuthenticationCode>

#include <openssl/crypto.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vemo_worker {

namespace {

constexpr int mostUsers = 500;
constexpr int fileVersion = 1;
constexpr int tokenBytes = 32;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_worker::UserStore", text);
}

QByteArray usersMagic()
{
    return QByteArrayLiteral("vemo users 1\n");
}

QString base64(const QByteArray& data)
{
    return QString::fromLatin1(data.toBase64());
}

QByteArray fromBase64(const QJsonValue& value)
{
    return QByteArray::fromBase64(value.toString().toLatin1());
}

/// Milliseconds don't fit into the 53 bits of a JSON number in every year, texts do.
QString number(qint64 value)
{
    return QString::number(value);
}

QJsonObject lockObject(const LoginLock& lock)
{
    return {{QStringLiteral("failures"), lock.failures()},
            {QStringLiteral("last_failure_utc_ms"), number(lock.lockedAtUtcMs())}};
}

LoginLock lockOf(const QJsonValue& value)
{
    const QJsonObject object = value.toObject();
    return {object.value(QStringLiteral("failures")).toInt(),
            object.value(QStringLiteral("last_failure_utc_ms")).toString().toLongLong()};
}

QByteArray proofOf(const QByteArray& token, const QByteArray& hash)
{
    return QMessageAuthenticationCode::hash(token, hash, QCryptographicHash::Sha256);
}

bool areEqual(const QByteArray& one, const QByteArray& other)
{
    return one.size() == other.size() &&
           CRYPTO_memcmp(one.constData(), other.constData(), std::size_t(one.size())) == 0;
}

/// Whoever may change users could give himself every power anyway.
int completePowers(int powers)
{
    return (powers & PowerUsers) != 0 ? SystemWorker::allPowers : powers;
}

QString unknownUser(const QString& name)
{
    return tr("There is no user %1.").arg(name);
}

QString noRoom()
{
    return tr("The password can't be worked on: the system has not enough free memory.");
}

} // namespace

UserStore::UserStore(Clock clock)
    : m_file(SysPaths::configDir() + QStringLiteral("/users"), usersMagic())
    , m_copy(SysPaths::dataDir() + QStringLiteral("/users"), usersMagic())
    , m_stayFile(SysPaths::configDir() + QStringLiteral("/stay"), QByteArrayLiteral("vemo stay 1\n"))
    , m_clock(std::move(clock))
{}

UserStore::Clock UserStore::systemClock()
{
    return [] {
        const auto steady = std::chrono::steady_clock::now().time_since_epoch();
        return LoginLock::Now{QDateTime::currentMSecsSinceEpoch(),
                              std::chrono::duration_cast<std::chrono::milliseconds>(steady).count()};
    };
}

UserStore::State UserStore::open(QString* problem)
{
    m_accounts.clear();
    m_state = State::Empty;
    problem->clear();
    QByteArray taken;
    for (const SealedFile* file : {&m_file, &m_copy}) {
        QByteArray plain;
        QString words;
        const SealedFile::State found = file->read(&plain, &words);
        if (m_state == State::Ready) {
            // The copy was lost, damaged, or is older after a crash.
            if (plain != taken && !m_copy.write(taken))
                qWarning("the copy of the users could not be mended");
        } else if (found == SealedFile::State::Good && take(plain)) {
            problem->clear();
            m_state = State::Ready;
            taken = plain;
            if (file == &m_copy && !m_file.write(taken))
                qWarning("the file of the users could not be mended");
        } else if (found != SealedFile::State::Absent) {
            m_state = State::Unreadable;
            *problem = words.isEmpty() ? tr("The file %1 is of another version.").arg(file->path()) : words;
        }
    }
    return m_state;
}

bool UserStore::beginAnew()
{
    for (const SealedFile* file : {&m_file, &m_copy}) {
        if (QFile::exists(file->path()) && !file->setAside())
            return false;
    }
    QFile::remove(m_stayFile.path());
    m_accounts.clear();
    m_state = State::Empty;
    return true;
}

bool UserStore::take(const QByteArray& plain)
{
    const QJsonObject object = QJsonDocument::fromJson(plain).object();
    const QJsonArray users = object.value(QStringLiteral("users")).toArray();
    if (object.value(QStringLiteral("version")).toInt() != fileVersion || users.isEmpty() || users.size() > mostUsers)
        return false;
    m_accounts.clear();
    for (const QJsonValue& value : users) {
        const QJsonObject user = value.toObject();
        Account account;
        account.user.name = user.value(QStringLiteral("name")).toString();
        account.user.powers = user.value(QStringLiteral("powers")).toInt();
        account.user.isEnabled = user.value(QStringLiteral("enabled")).toBool();
        const qint64 lastLogin = user.value(QStringLiteral("last_login_utc_ms")).toString().toLongLong();
        if (lastLogin > 0)
            account.user.lastLogin = QDateTime::fromMSecsSinceEpoch(lastLogin, Qt::UTC);
        account.hash = user.value(QStringLiteral("hash")).toString().toLatin1();
        account.stay = fromBase64(user.value(QStringLiteral("stay")));
        account.lock = lockOf(user.value(QStringLiteral("lock")));
        m_accounts.append(account);
    }
    m_strangers = lockOf(object.value(QStringLiteral("strangers")));
    return true;
}

bool UserStore::save()
{
    QJsonArray users;
    for (const Account& account : qAsConst(m_accounts)) {
        const qint64 lastLogin = account.user.lastLogin.isValid() ? account.user.lastLogin.toMSecsSinceEpoch() : 0;
        users.append(QJsonObject{{QStringLiteral("name"), account.user.name},
                                 {QStringLiteral("powers"), account.user.powers},
                                 {QStringLiteral("enabled"), account.user.isEnabled},
                                 {QStringLiteral("last_login_utc_ms"), number(lastLogin)},
                                 {QStringLiteral("hash"), QString::fromLatin1(account.hash)},
                                 {QStringLiteral("stay"), base64(account.stay)},
                                 {QStringLiteral("lock"), lockObject(account.lock)}});
    }
    const QJsonObject object{{QStringLiteral("version"), fileVersion},
                             {QStringLiteral("users"), users},
                             {QStringLiteral("strangers"), lockObject(m_strangers)}};
    const QByteArray plain = QJsonDocument(object).toJson(QJsonDocument::Compact);
    if (!m_file.write(plain))
        return false;
    if (!m_copy.write(plain))
        qWarning().noquote() << "the copy of the users can't be written:" << m_copy.path();
    return true;
}

QString UserStore::keep(const QVector<Account>& before)
{
    if (save()) {
        m_state = State::Ready;
        return {};
    }
    m_accounts = before;
    return tr("The file %1 can't be written; nothing was changed.").arg(m_file.path());
}

QVector<UserRecord> UserStore::users() const
{
    QVector<UserRecord> result;
    for (const Account& account : m_accounts)
        result.append(account.user);
    return result;
}

UserStore::Account* UserStore::find(const QString& name)
{
    return const_cast<Account*>(std::as_const(*this).find(name));
}

const UserStore::Account* UserStore::find(const QString& name) const
{
    const QString key = UserRules::nameKey(name);
    const auto found = std::find_if(m_accounts.begin(), m_accounts.end(), [&key](const Account& account) {
        return UserRules::nameKey(account.user.name) == key;
    });
    return found == m_accounts.end() ? nullptr : &*found;
}

bool UserStore::isLastAdministrator(const Account& account) const
{
    const auto mayManage = [](const Account& each) { return each.user.isEnabled && each.user.isAdministrator(); };
    return mayManage(account) && std::count_if(m_accounts.begin(), m_accounts.end(), mayManage) == 1;
}

LoginResult UserStore::logIn(const QString& name, const QString& password, bool stays)
{
    LoginResult result;
    const QString text = password.left(UserRules::longestPassword + 1);
    Account* account = find(name.left(UserRules::longestName + 1));
    LoginLock& lock = account ? account->lock : m_strangers;
    result.lockedMs = lock.remainingMs(m_clock());
    if (result.lockedMs > 0) {
        result.outcome = LoginResult::Outcome::Locked;
        return result;
    }
    bool isRight = false;
    if (account)
        isRight = PasswordHash::matches(text, account->hash);
    else
        PasswordHash::matchNobody(text);
    if (!isRight) {
        lock.fail(m_clock());
        result.outcome = LoginResult::Outcome::Wrong;
        result.lockedMs = lock.remainingMs(m_clock());
        result.triesLeft = qMax(0, LoginLock::freeTries - lock.failures());
    } else {
        lock.clear();
        result.outcome = account->user.isEnabled ? LoginResult::Outcome::Done : LoginResult::Outcome::Disabled;
    }
    if (result.outcome == LoginResult::Outcome::Done) {
        result.user = account->user;
        account->user.lastLogin = QDateTime::fromMSecsSinceEpoch(m_clock().utcMs, Qt::UTC);
        if (stays) {
            result.isKept = stayLoggedIn(account->user.name);
            return result;
        }
    }
    // Where nothing can be written the lock holds as long as the program runs.
    if (!save())
        qWarning("the file of the users can't be written");
    return result;
}

std::optional<UserRecord> UserStore::resume() const
{
    QByteArray plain;
    if (m_stayFile.read(&plain) != SealedFile::State::Good)
        return std::nullopt;
    const QJsonObject object = QJsonDocument::fromJson(plain).object();
    const Account* account = find(object.value(QStringLiteral("name")).toString());
    const QByteArray token = fromBase64(object.value(QStringLiteral("token")));
    if (!account || !account->user.isEnabled || token.size() != tokenBytes ||
        !areEqual(proofOf(token, account->hash), account->stay))
        return std::nullopt;
    return account->user;
}

bool UserStore::stayLoggedIn(const QString& name)
{
    Account* account = find(name);
    const QByteArray token = SecretBox::randomBytes(tokenBytes);
    if (!account || token.isEmpty())
        return false;
    for (Account& each : m_accounts)
        each.stay.clear(); // one user stays logged in on a computer
    account->stay = proofOf(token, account->hash);
    const QJsonObject object{{QStringLiteral("name"), account->user.name}, {QStringLiteral("token"), base64(token)}};
    return save() && m_stayFile.write(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void UserStore::forgetStay()
{
    QFile::remove(m_stayFile.path());
    bool isChanged = false;
    for (Account& account : m_accounts) {
        isChanged = isChanged || !account.stay.isEmpty();
        account.stay.clear();
    }
    if (isChanged && !save())
        qWarning("the file of the users can't be written");
}

QString UserStore::add(const QString& name, const QString& password, int powers)
{
    const QString tidy = UserRules::tidyName(name);
    const int complete = completePowers(powers);
    const bool isAdministrator = (complete & PowerUsers) != 0;
    QString problem = UserRules::nameProblem(tidy);
    if (problem.isEmpty() && find(tidy))
        problem = tr("There is a user %1 already.").arg(find(tidy)->user.name);
    if (problem.isEmpty())
        problem = UserRules::passwordProblem(password, tidy, isAdministrator);
    if (problem.isEmpty() && m_state == State::Empty && !isAdministrator)
        problem = tr("The first user has to be an administrator.");
    if (problem.isEmpty() && m_state != State::Empty && m_state != State::Ready)
        problem = tr("The accounts can't be opened.");
    if (problem.isEmpty() && m_accounts.size() >= mostUsers)
        problem = tr("There are %1 users already, which is the limit.").arg(mostUsers);
    if (!problem.isEmpty())
        return problem;
    Account account;
    account.user.name = tidy;
    account.user.powers = complete;
    account.hash = PasswordHash::make(password);
    if (account.hash.isEmpty())
        return noRoom();
    const QVector<Account> before = m_accounts;
    m_accounts.append(account);
    return keep(before);
}

QString UserStore::setPassword(const QString& name, const QString& password)
{
    Account* account = find(name);
    if (!account)
        return unknownUser(name);
    const QString problem = UserRules::passwordProblem(password, account->user.name, account->user.isAdministrator());
    if (!problem.isEmpty())
        return problem;
    const QByteArray hash = PasswordHash::make(password);
    if (hash.isEmpty())
        return noRoom();
    const QVector<Account> before = m_accounts;
    account = find(name); // the list has a copy of its own now
    account->hash = hash;
    account->stay.clear();
    account->lock.clear();
    return keep(before);
}

QString UserStore::changePassword(const QString& name, const QString& current, const QString& password)
{
    const LoginResult result = logIn(name, current, false);
    if (result.outcome == LoginResult::Outcome::Locked)
        return tr("The account is locked after too many wrong passwords. Try again later.");
    if (result.outcome != LoginResult::Outcome::Done)
        return tr("The current password is wrong.");
    return setPassword(name, password);
}

QString UserStore::setPowers(const QString& name, int powers)
{
    const Account* account = std::as_const(*this).find(name);
    if (!account)
        return unknownUser(name);
    const int complete = completePowers(powers);
    if ((complete & PowerUsers) == 0 && isLastAdministrator(*account))
        return tr("%1 is the only administrator; make another one first.").arg(account->user.name);
    const QVector<Account> before = m_accounts;
    find(name)->user.powers = complete;
    return keep(before);
}

QString UserStore::setEnabled(const QString& name, bool isEnabled)
{
    const Account* account = std::as_const(*this).find(name);
    if (!account)
        return unknownUser(name);
    if (!isEnabled && isLastAdministrator(*account))
        return tr("%1 is the only administrator and stays enabled; make another one first.").arg(account->user.name);
    const QVector<Account> before = m_accounts;
    Account* changed = find(name);
    changed->user.isEnabled = isEnabled;
    changed->stay.clear();
    changed->lock.clear();
    return keep(before);
}

QString UserStore::remove(const QString& name)
{
    const Account* account = std::as_const(*this).find(name);
    if (!account)
        return unknownUser(name);
    if (isLastAdministrator(*account))
        return tr("%1 is the only administrator and can't be removed.").arg(account->user.name);
    const QVector<Account> before = m_accounts;
    m_accounts.remove(int(account - m_accounts.constData()));
    return keep(before);
}

} // namespace vemo_worker
