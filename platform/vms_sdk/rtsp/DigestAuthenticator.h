#pragma once

#include "AuthChallenge.h"

#include <QString>

#include <cstdint>
#include <functional>

namespace vms_sdk::rtsp {

/// The login of one client to one host: chooses among the challenges of the host and makes the Authorization header
/// (RFC 7616, RFC 2617; Basic after RFC 7617 over TLS only). It takes the strongest way offered and never a weaker one
/// later. One instance a host: it must not be asked for requests that go elsewhere. Holds the password and never logs
/// it.
class DigestAuthenticator
{
public:
    /// What to do after a 401.
    enum class Verdict : std::uint8_t {
        Retry,         ///< send the request again with authorization()
        NoLogin,       ///< there is no user to log in with
        WrongLogin,    ///< the host knows the login and refuses it
        TooManyRounds, ///< still refused after maxRounds
        NothingUsable, ///< no way that this client speaks, or only weaker ones than before
        BasicInClear,  ///< the password would go over the network in clear
    };

    static constexpr int maxRounds = 3;

    using RandomHex = std::function<QByteArray()>;

    /// `randomHex` makes client nonces; the default takes 16 bytes from the system's generator.
    DigestAuthenticator(const QString& user, const QString& password, bool overTls, RandomHex randomHex = RandomHex());

    /// For a 401; `headers` are the values of its WWW-Authenticate headers.
    Verdict challenged(const QList<QByteArray>& headers);
    /// For any other answer: the login was good, rounds are counted anew.
    void accepted();

    /// The Authorization value for the next request, empty before the first challenge. Counts the nonce up.
    QByteArray authorization(const QByteArray& method, const QByteArray& uri);

private:
    enum class Strength : std::uint8_t { None = 0, Basic = 1, Md5 = 2, Sha256 = 3 };

    static Strength strengthOf(const AuthChallenge& challenge);
    QByteArray hash(const QByteArray& text) const;
    QByteArray digest(const QByteArray& method, const QByteArray& uri);

    QByteArray m_user;
    QByteArray m_password;
    bool m_overTls;
    RandomHex m_randomHex;

    Strength m_strength = Strength::None;
    AuthChallenge m_challenge;
    QByteArray m_clientNonce;
    std::uint32_t m_nonceCount = 0;
    int m_rounds = 0;
    bool m_sent = false;         ///< authorization() was used with the present challenge
    bool m_everAccepted = false; ///< this login was good once
};

} // namespace vms_sdk::rtsp
