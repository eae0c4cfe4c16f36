#include "LoginWords.h"

#include "CertificateWords.h"

#include <PasswordStore.h>

#include <QCoreApplication>
#include <QDateTime>

namespace vemo_client {

namespace {

using vms_sdk::ErrorKind;
using Phase = RecorderLogins::Phase;

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::LoginWords", text);
}

QString stateWord(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::LoginRefused:
        return tr("Wrong login");
    case ErrorKind::AccountLocked:
        return tr("Locked");
    case ErrorKind::NotActivated:
        return tr("Not activated");
    case ErrorKind::LimitReached:
        return tr("Connection limit");
    case ErrorKind::CertificateRefused:
        return tr("Certificate");
    case ErrorKind::Unreachable:
    case ErrorKind::TimedOut:
    case ErrorKind::BrokenOff:
        return tr("Offline");
    default:
        return tr("Failed");
    }
}

QString titleOf(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::LoginRefused:
        return tr("The recorder refused the login");
    case ErrorKind::AccountLocked:
        return tr("The account is locked");
    case ErrorKind::NotActivated:
        return tr("The recorder is not activated");
    case ErrorKind::LimitReached:
        return tr("The recorder takes no more connections");
    case ErrorKind::CertificateRefused:
        return tr("The certificate is not trusted");
    case ErrorKind::Unreachable:
        return tr("The recorder can't be reached");
    case ErrorKind::TimedOut:
        return tr("The recorder does not answer");
    case ErrorKind::BrokenOff:
        return tr("The connection broke off");
    case ErrorKind::NotFound:
        return tr("No recorder answers at this address");
    case ErrorKind::Unsupported:
        return tr("The recorder speaks another language");
    case ErrorKind::Corrupt:
        return tr("The answer can't be read");
    default:
        return tr("The login failed");
    }
}

QString adviceOf(ErrorKind kind)
{
    switch (kind) {
    case ErrorKind::LoginRefused:
        return tr("Check user and password. Many recorders lock the account after a few wrong tries.");
    case ErrorKind::AccountLocked:
        return tr("Wait until the recorder unlocks it, often 30 min, then try again.");
    case ErrorKind::NotActivated:
        return tr("Give it its first password on its own screen or web page, then try again.");
    case ErrorKind::LimitReached:
        return tr("Close other programs that are connected to it. It is tried again by itself.");
    case ErrorKind::CertificateRefused:
        return tr("Nothing was sent to it. Check the address, or ask who runs the recorder.");
    case ErrorKind::Unreachable:
    case ErrorKind::TimedOut:
    case ErrorKind::BrokenOff:
        return tr("Check address, cable and power. It is tried again by itself.");
    case ErrorKind::NotFound:
    case ErrorKind::Unsupported:
    case ErrorKind::Corrupt:
        return tr("Check address and port, and whether ONVIF is switched on in the recorder's settings.");
    default:
        return tr("Try again. If it stays so, the recorder's own log tells more.");
    }
}

QString sentence(QString text)
{
    text = text.trimmed();
    if (!text.isEmpty() && !text.endsWith(QLatin1Char('.')))
        text += QLatin1Char('.');
    return text;
}

LoginWords::Failure certificateFailure(const RecorderLogins::Login& login)
{
    QStringList cause = CertificateWords::problems(login.offeredCertificate, login.host, QDateTime::currentDateTime());
    if (cause.isEmpty() && !login.certificateReason.isEmpty())
        cause.append(sentence(login.certificateReason));
    const bool hasChanged = !login.trustedKeySha256.isEmpty();
    cause.prepend(
        hasChanged ? tr("Its certificate was renewed, or something stands between you and it. Nothing was sent to it.")
                   : tr("Compare the key with the one that the recorder shows. Nothing was sent to it so far."));
    QStringList facts;
    const QVector<CertificateWords::Fact> told = CertificateWords::facts(login.offeredCertificate);
    for (const CertificateWords::Fact& fact : told)
        facts.append(tr("%1: %2").arg(fact.first, fact.second));
    if (hasChanged)
        facts << tr("SHA-256 of the trusted key:") << CertificateWords::fingerprint(login.trustedKeySha256);
    facts << (hasChanged ? tr("SHA-256 of the new key:") : tr("SHA-256 of the key:"))
          << CertificateWords::fingerprint(login.offeredKeySha256);
    return {hasChanged ? tr("The recorder shows another key than the trusted one")
                       : tr("The recorder's key is not known yet"),
            cause.join(QLatin1Char(' ')), facts.join(QLatin1Char('\n')), !hasChanged};
}

} // namespace

LoginWords::State LoginWords::stateOf(const RecorderLogins::Login& login)
{
    using vemo_base::Token;
    switch (login.phase) {
    case Phase::Online:
        return {QStringLiteral("success"), Token::Success, tr("Online")};
    case Phase::PasswordWanted:
        return {QStringLiteral("lock"), Token::Warning, tr("Password wanted")};
    case Phase::CertificateUnknown:
        return {QStringLiteral("lock"), Token::Warning, tr("Certificate")};
    case Phase::Disabled:
        return {QStringLiteral("minus"), Token::Text2, tr("Disabled")};
    case Phase::Failed:
        break;
    case Phase::Unknown:
    case Phase::Connecting:
        return {QStringLiteral("waiting"), Token::Text2, tr("Connecting")};
    }
    const ErrorKind kind = login.error.kind;
    const bool mendsItself = RecorderLogins::retriesAfter(kind);
    const bool isLogin = kind == ErrorKind::LoginRefused || kind == ErrorKind::AccountLocked;
    return {isLogin ? QStringLiteral("lock") : QStringLiteral("offline"), mendsItself ? Token::Warning : Token::Error,
            stateWord(kind)};
}

LoginWords::State LoginWords::stateOf(const RecorderLogins::Login& login, vms_sdk::DevStatus status)
{
    using vemo_base::Token;
    if (login.phase == Phase::Disabled)
        return stateOf(login);
    switch (status) {
    case vms_sdk::DevStatus::DefaultPassword:
        return {QStringLiteral("warning"), Token::Warning, tr("Default password")};
    case vms_sdk::DevStatus::LoginLimit:
        return {QStringLiteral("offline"), Token::Warning, tr("Login limit")};
    case vms_sdk::DevStatus::RelayBroken:
        return {QStringLiteral("offline"), Token::Warning, tr("Relay broken")};
    default:
        return stateOf(login);
    }
}

LoginWords::Failure LoginWords::failureOf(const RecorderLogins::Login& login)
{
    switch (login.phase) {
    case Phase::PasswordWanted:
        if (vemo_worker::PasswordStore::instance().isKeyringClosed())
            return {
                tr("The keyring is closed"), tr("The password lies in the desktop's keyring, which does not open it."),
                tr("Unlock the keyring and log in again, or type the password: it is then kept in an encrypted file."),
                true};
        return {tr("The password is wanted"), tr("It is not kept on this computer, or can't be read."),
                tr("Type it once more."), true};
    case Phase::CertificateUnknown:
        return certificateFailure(login);
    case Phase::Failed:
        return {titleOf(login.error.kind), sentence(login.error.message), adviceOf(login.error.kind),
                RecorderLogins::retriesAfter(login.error.kind)};
    case Phase::Unknown:
    case Phase::Connecting:
    case Phase::Online:
    case Phase::Disabled:
        break;
    }
    return {};
}

} // namespace vemo_client
