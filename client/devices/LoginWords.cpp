#include "LoginWords.h"

#include <QCoreApplication>

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
    const QString shown = LoginWords::fingerprint(login.offeredKeySha256);
    if (!login.trustedKeySha256.isEmpty())
        return {tr("The recorder shows another key than the trusted one"),
                tr("Its certificate was renewed, or something stands between you and it. Nothing was sent to it."),
                tr("SHA-256 of the new key:") + QLatin1Char('\n') + shown, false};
    return {tr("The recorder's key is not known yet"),
            tr("Compare it with the one that the recorder shows. Nothing was sent to it so far."),
            tr("SHA-256 of the key:") + QLatin1Char('\n') + shown, true};
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

LoginWords::Failure LoginWords::failureOf(const RecorderLogins::Login& login)
{
    switch (login.phase) {
    case Phase::PasswordWanted:
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
        break;
    }
    return {};
}

QString LoginWords::fingerprint(const QByteArray& sha256)
{
    constexpr int bytesALine = 16;
    QStringList lines;
    for (int at = 0; at < sha256.size(); at += bytesALine)
        lines.append(QString::fromLatin1(sha256.mid(at, bytesALine).toHex(':').toUpper()));
    return lines.join(QLatin1Char('\n'));
}

} // namespace vemo_client
