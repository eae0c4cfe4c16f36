#pragma once

#include <QByteArray>
#include <QString>

namespace vms_sdk::onvif {

/// WS-Security UsernameToken with password digest (OASIS UsernameToken Profile 1.0, clause 3.1): the digest is
/// Base64(SHA-1(nonce + created + password)). `created` is a time on the device's clock, or the device takes it for a
/// replay.
struct UsernameToken
{
    QString user;
    QByteArray passwordDigest; ///< Base64
    QByteArray nonce;          ///< Base64
    QString created;

    static UsernameToken make(const QString& user, const QString& password, const QByteArray& nonce,
                              qint64 createdUtcMs);
    /// With a nonce of 16 random bytes.
    static UsernameToken make(const QString& user, const QString& password, qint64 createdUtcMs);
    static QByteArray digest(const QByteArray& nonce, const QString& created, const QString& password);

    /// The wsse:Security header element.
    QByteArray toXml() const;
};

} // namespace vms_sdk::onvif
