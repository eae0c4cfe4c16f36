#include "UserVerb.h"

#include "Terminal.h"

#include <UserStore.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace vemo_client {

namespace {

using Action = UserOptions::Action;
using vemo_worker::UserRecord;
using vemo_worker::UserStore;

constexpr int nameColumn = 24;

QString json(const UserRecord& user)
{
    const QJsonObject object{{QStringLiteral("name"), user.name},
                             {QStringLiteral("administrator"), user.isAdministrator()},
                             {QStringLiteral("powers"), user.powers},
                             {QStringLiteral("enabled"), user.isEnabled},
                             {QStringLiteral("last_login"), user.lastLogin.isValid()
                                                                ? QJsonValue(user.lastLogin.toString(Qt::ISODate))
                                                                : QJsonValue()}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

bool UserVerb::changesStore(const CliCommand& command)
{
    return command.user.action != Action::List;
}

Outcome UserVerb::run(const CliCommand& command)
{
    UserStore store;
    QString problem;
    if (store.open(&problem) == UserStore::State::Unreadable) {
        const bool mayBeginAnew = command.user.action == Action::Add;
        if (!mayBeginAnew || !store.beginAnew())
            return {ExitCode::Failed, problem};
        Terminal::error(tr("%1 The accounts were kept under another name; they begin anew.").arg(problem));
    }
    return command.user.action == Action::List ? list(command, store) : change(command, store);
}

Outcome UserVerb::list(const CliCommand& command, const UserStore& store)
{
    const QVector<UserRecord> users = store.users();
    for (const UserRecord& user : users) {
        const QString kind = !user.isEnabled          ? tr("disabled")
                             : user.isAdministrator() ? tr("administrator")
                                                      : tr("powers %1").arg(user.powers);
        Terminal::out(command.json ? json(user)
                                   : QString(user.name.leftJustified(nameColumn) % QLatin1Char(' ') % kind));
    }
    return {};
}

Outcome UserVerb::change(const CliCommand& command, UserStore& store)
{
    const UserOptions& options = command.user;
    QString problem;
    switch (options.action) {
    case Action::Add:
        problem = store.add(options.name, options.password, options.powers);
        break;
    case Action::Password:
        problem = store.setPassword(options.name, options.password);
        break;
    default:
        problem = store.remove(options.name);
        break;
    }
    if (problem.isEmpty() && options.stays && !store.stayLoggedIn(options.name))
        problem = tr("That %1 stays logged in could not be stored.").arg(options.name);
    return problem.isEmpty() ? Outcome() : Outcome{ExitCode::Failed, problem};
}

} // namespace vemo_client
