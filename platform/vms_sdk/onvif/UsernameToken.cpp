#include "UsernameToken.h"

#include "OnvifTime.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <array>

namespace vms_sdk::onvif {

UsernameToken UsernameToken::make(const QString& user, const QString& password, const QByteArray& nonce,
                                  qint64 createdUtcMs)
{
    UsernameToken token;
    token.user = user;
    token.nonce = nonce.toBase64();
    token.created = formatDateTime(createdUtcMs);
    token.passwordDigest = digest(nonce, token.created, password);
    return token;
}

UsernameToken UsernameToken::make(const QString& user, const QString& password, qint64 createdUtcMs)
{
    std::array<quint32, 4> random{};
    QRandomGenerator::system()->fillRange(random.data(), static_cast<qsizetype>(random.size()));
    return make(user, password, QByteArray(reinterpret_cast<const char*>(random.data()), sizeof(random)), createdUtcMs);
}

QByteArray UsernameToken::digest(const QByteArray& nonce, const QString& created, const QString& password)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(nonce);
    hash.addData(created.toUtf8());
    hash.addData(password.toUtf8());
    return hash.result().toBase64();
}

QByteArray UsernameToken::toXml() const
{
    static const QByteArray profile("http://docs.oasis-open.org/wss/2004/01/oasis-200401-wss-");
    return "<wsse:Security s:mustUnderstand=\"true\" xmlns:wsse=\"" + profile +
           "wssecurity-secext-1.0.xsd\" xmlns:wsu=\"" + profile +
           "wssecurity-utility-1.0.xsd\"><wsse:UsernameToken><wsse:Username>" + user.toHtmlEscaped().toUtf8() +
           "</wsse:Username><wsse:Password Type=\"" + profile + "username-token-profile-1.0#PasswordDigest\">" +
           passwordDigest + "</wsse:Password><wsse:Nonce EncodingType=\"" + profile +
           "soap-message-security-1.0#Base64Binary\">" + nonce + "</wsse:Nonce><wsu:Created>" + created.toUtf8() +
           "</wsu:Created></wsse:UsernameToken></wsse:Security>";
}

} // namespace vms_sdk::onvif
