#include "DigestAuthenticator.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <utility>

namespace vms_sdk::rtsp {
namespace {

QByteArray systemRandomHex()
{
    quint32 words[4];
    QRandomGenerator::system()->fillRange(words);
    return QByteArray(reinterpret_cast<const char*>(words), sizeof words).toHex();
}

QByteArray quoted(QByteArray text)
{
    // A line break would let a name smuggle in a header of its own.
    text.replace('\\', "\\\\").replace('"', "\\\"").replace('\r', "").replace('\n', "");
    return '"' + text + '"';
}

bool isSession(const AuthChallenge& challenge)
{
    return challenge.parameters.value("algorithm").toLower().endsWith("-sess");
}

bool offersQopAuth(const AuthChallenge& challenge)
{
    for (const QByteArray& option : challenge.parameters.value("qop").toLower().split(','))
        if (option.trimmed() == "auth")
            return true;
    return false;
}

} // namespace

DigestAuthenticator::DigestAuthenticator(const QString& user, const QString& password, bool overTls,
                                         RandomHex randomHex)
    : m_user(user.toUtf8())
    , m_password(password.toUtf8())
    , m_overTls(overTls)
    , m_randomHex(randomHex ? std::move(randomHex) : RandomHex(systemRandomHex))
{}

DigestAuthenticator::Strength DigestAuthenticator::strengthOf(const AuthChallenge& challenge)
{
    if (challenge.scheme == "basic")
        return Strength::Basic;
    if (challenge.scheme != "digest" || !challenge.parameters.contains("nonce"))
        return Strength::None;
    // qop=auth-int alone would need the hash of a body, which no recorder asks for.
    if (!challenge.parameters.value("qop").isEmpty() && !offersQopAuth(challenge))
        return Strength::None;
    const QByteArray algorithm = challenge.parameters.value("algorithm").toLower();
    if (algorithm == "sha-256" || algorithm == "sha-256-sess")
        return Strength::Sha256;
    if (algorithm.isEmpty() || algorithm == "md5" || algorithm == "md5-sess")
        return Strength::Md5;
    return Strength::None;
}

DigestAuthenticator::Verdict DigestAuthenticator::challenged(const QList<QByteArray>& headers)
{
    if (m_user.isEmpty())
        return Verdict::NoLogin;

    Strength best = Strength::None;
    AuthChallenge chosen;
    for (const QByteArray& header : headers) {
        for (const AuthChallenge& challenge : parseChallenges(header)) {
            const Strength strength = strengthOf(challenge);
            if (strength > best) {
                best = strength;
                chosen = challenge;
            }
        }
    }
    const bool stale = chosen.parameters.value("stale").toLower() == "true";
    // A nonce that served before may have run out without a word; a first nonce that fails means a wrong login, and
    // every further try would bring the account nearer to being locked.
    const bool sameNonce = chosen.parameters.value("nonce") == m_challenge.parameters.value("nonce");
    if (m_sent && !stale && (!m_everAccepted || sameNonce || best == Strength::Basic))
        return Verdict::WrongLogin;
    if (++m_rounds > maxRounds)
        return Verdict::TooManyRounds;
    if (best == Strength::None || best < m_strength)
        return Verdict::NothingUsable;
    if (best == Strength::Basic && !m_overTls)
        return Verdict::BasicInClear;

    m_strength = best;
    m_challenge = chosen;
    m_clientNonce = m_randomHex();
    m_nonceCount = 0;
    m_sent = false;
    return Verdict::Retry;
}

void DigestAuthenticator::accepted()
{
    m_rounds = 0;
    m_everAccepted = m_everAccepted || m_sent;
}

QByteArray DigestAuthenticator::authorization(const QByteArray& method, const QByteArray& uri)
{
    if (m_strength == Strength::None)
        return {};
    m_sent = true;
    if (m_strength == Strength::Basic)
        return "Basic " + QByteArray(m_user + ':' + m_password).toBase64();
    return digest(method, uri);
}

QByteArray DigestAuthenticator::hash(const QByteArray& text) const
{
    const auto method = m_strength == Strength::Sha256 ? QCryptographicHash::Sha256 : QCryptographicHash::Md5;
    return QCryptographicHash::hash(text, method).toHex();
}

QByteArray DigestAuthenticator::digest(const QByteArray& method, const QByteArray& uri)
{
    const QByteArray realm = m_challenge.parameters.value("realm");
    const QByteArray nonce = m_challenge.parameters.value("nonce");
    const bool withQop = offersQopAuth(m_challenge);
    const bool withUserHash = m_challenge.parameters.value("userhash").toLower() == "true";
    const QByteArray count = QByteArray::number(++m_nonceCount, 16).rightJustified(8, '0');

    QByteArray secret = hash(m_user + ':' + realm + ':' + m_password);
    if (isSession(m_challenge))
        secret = hash(secret + ':' + nonce + ':' + m_clientNonce);
    const QByteArray request = hash(method + ':' + uri);
    const QByteArray response =
        withQop ? hash(secret + ':' + nonce + ':' + count + ':' + m_clientNonce + ":auth:" + request)
                : hash(secret + ':' + nonce + ':' + request);

    QByteArray value = "Digest username=" + quoted(withUserHash ? hash(m_user + ':' + realm) : m_user) +
                       ", realm=" + quoted(realm) + ", nonce=" + quoted(nonce) + ", uri=" + quoted(uri) +
                       ", response=\"" + response + '"';
    if (m_challenge.parameters.contains("algorithm"))
        value += QByteArray(", algorithm=" + m_challenge.parameters.value("algorithm"));
    if (m_challenge.parameters.contains("opaque"))
        value += QByteArray(", opaque=" + quoted(m_challenge.parameters.value("opaque")));
    if (withQop)
        value += QByteArray(", qop=auth, nc=" + count);
    if (withQop || isSession(m_challenge))
        value += QByteArray(", cnonce=\"" + m_clientNonce + '"');
    if (withUserHash)
        value += ", userhash=true";
    return value;
}

} // namespace vms_sdk::rtsp
