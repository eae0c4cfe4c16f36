#include "net/DigestAuth.h"

#include "net/RequestReader.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QRandomGenerator>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace recorder_sim {
namespace {

constexpr std::int64_t nonceSeconds = 300;
constexpr char realm[] = "recorder";

std::string hashHex(QCryptographicHash::Algorithm algorithm, const std::string& text)
{
    const QByteArray bytes = QByteArray::fromRawData(text.data(), static_cast<int>(text.size()));
    return QCryptographicHash::hash(bytes, algorithm).toHex().toStdString();
}

std::int64_t nowSeconds()
{
    return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

std::string randomHex(int words)
{
    QByteArray bytes;
    for (int i = 0; i < words; ++i) {
        const quint32 word = QRandomGenerator::system()->generate();
        bytes.append(reinterpret_cast<const char*>(&word), sizeof word);
    }
    return bytes.toHex().toStdString();
}

/// Scheme and host of an address taken away, as clients differ in what they sign.
std::string_view pathOf(std::string_view address)
{
    const std::size_t scheme = address.find("://");
    if (scheme == std::string_view::npos)
        return address;
    const std::size_t path = address.find('/', scheme + 3);
    return path == std::string_view::npos ? std::string_view() : address.substr(path);
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

} // namespace

DigestAuth::DigestAuth(std::string user, std::string password, Scheme scheme, bool offersQop)
    : m_user(std::move(user))
    , m_password(std::move(password))
    , m_scheme(scheme)
    , m_offersQop(offersQop)
    , m_secret(randomHex(4))
{}

bool DigestAuth::parseScheme(std::string_view text, Scheme& scheme)
{
    static constexpr std::pair<std::string_view, Scheme> names[] = {
        {"basic", Scheme::Basic},
        {"digest-md5", Scheme::DigestMd5},
        {"digest-sha256", Scheme::DigestSha256},
        {"both", Scheme::BothDigests},
        {"digest-md5-sess", Scheme::DigestMd5Session},
        {"digest-sha256-sess", Scheme::DigestSha256Session},
        {"all", Scheme::All},
    };
    for (const auto& [name, value] : names) {
        if (name == text) {
            scheme = value;
            return true;
        }
    }
    return false;
}

bool DigestAuth::allows(std::string_view algorithm) const
{
    switch (m_scheme) {
    case Scheme::Basic:
        return equalsIgnoringCase(algorithm, "basic");
    case Scheme::DigestMd5:
        return equalsIgnoringCase(algorithm, "MD5");
    case Scheme::DigestSha256:
        return equalsIgnoringCase(algorithm, "SHA-256");
    case Scheme::BothDigests:
        return equalsIgnoringCase(algorithm, "MD5") || equalsIgnoringCase(algorithm, "SHA-256");
    case Scheme::DigestMd5Session:
        return equalsIgnoringCase(algorithm, "MD5-sess");
    case Scheme::DigestSha256Session:
        return equalsIgnoringCase(algorithm, "SHA-256-sess");
    case Scheme::All:
        return equalsIgnoringCase(algorithm, "basic") || equalsIgnoringCase(algorithm, "MD5") ||
               equalsIgnoringCase(algorithm, "SHA-256");
    }
    return false;
}

std::string DigestAuth::makeNonce() const
{
    const std::string head = std::to_string(nowSeconds()) + "-" + randomHex(1);
    return head + "-" + hashHex(QCryptographicHash::Sha256, head + m_secret).substr(0, 24);
}

bool DigestAuth::isFresh(const std::string& nonce, bool& genuine) const
{
    const std::size_t cut = nonce.rfind('-');
    genuine =
        cut != std::string::npos &&
        hashHex(QCryptographicHash::Sha256, nonce.substr(0, cut) + m_secret).substr(0, 24) == nonce.substr(cut + 1);
    return genuine && nowSeconds() - std::strtoll(nonce.c_str(), nullptr, 10) <= nonceSeconds;
}

std::vector<std::string> DigestAuth::challenges(bool stale) const
{
    std::vector<std::string> out;
    const std::string nonce = makeNonce();
    for (const char* algorithm : {"SHA-256", "SHA-256-sess", "MD5", "MD5-sess"}) {
        if (!allows(algorithm))
            continue;
        std::string text =
            std::string("Digest realm=\"") + realm + "\", nonce=\"" + nonce + "\", algorithm=" + algorithm;
        // A session key needs the client's nonce, which only comes with qop.
        if (m_offersQop || endsWith(algorithm, "-sess"))
            text += ", qop=\"auth\"";
        if (stale)
            text += ", stale=true";
        out.push_back(text);
    }
    if (allows("basic"))
        out.push_back(std::string("Basic realm=\"") + realm + "\"");
    return out;
}

DigestAuth::Verdict DigestAuth::check(std::string_view authorization, std::string_view method,
                                      std::string_view target) const
{
    authorization = trimmed(authorization);
    const std::size_t blank = authorization.find(' ');
    if (authorization.empty() || blank == std::string_view::npos)
        return Verdict::Missing;
    const std::string_view kind = authorization.substr(0, blank);
    const std::string_view rest = trimmed(authorization.substr(blank + 1));
    if (equalsIgnoringCase(kind, "Digest"))
        return checkDigest(rest, method, target);
    if (!equalsIgnoringCase(kind, "Basic") || !allows("basic"))
        return Verdict::Refused;
    const QByteArray told = QByteArray::fromBase64(QByteArray(rest.data(), static_cast<int>(rest.size())));
    return told.toStdString() == m_user + ":" + m_password ? Verdict::Accepted : Verdict::Refused;
}

DigestAuth::Verdict DigestAuth::checkDigest(std::string_view parameters, std::string_view method,
                                            std::string_view target) const
{
    const auto value = [&](const char* key) { return parameterValue(parameters, key, ','); };
    std::string algorithm = value("algorithm");
    if (algorithm.empty())
        algorithm = "MD5";
    if (!allows(algorithm) || value("username") != m_user || pathOf(value("uri")) != pathOf(target))
        return Verdict::Refused;
    const std::string nonce = value("nonce");
    bool genuine = false;
    const bool fresh = isFresh(nonce, genuine);
    if (!genuine)
        return Verdict::Refused;

    const auto hash = [&](const std::string& text) {
        const bool sha = equalsIgnoringCase(std::string_view(algorithm).substr(0, 7), "SHA-256");
        return hashHex(sha ? QCryptographicHash::Sha256 : QCryptographicHash::Md5, text);
    };
    const std::string cnonce = value("cnonce");
    std::string ha1 = hash(m_user + ":" + realm + ":" + m_password);
    if (endsWith(algorithm, "-sess"))
        ha1 = hash(ha1 + ":" + nonce + ":" + cnonce);
    const std::string ha2 = hash(std::string(method) + ":" + value("uri"));
    const std::string qop = value("qop");
    const std::string middle = qop.empty() ? nonce : nonce + ":" + value("nc") + ":" + cnonce + ":" + qop;
    if (value("response") != hash(ha1 + ":" + middle + ":" + ha2))
        return Verdict::Refused;
    return fresh ? Verdict::Accepted : Verdict::Stale;
}

std::string DigestAuth::answer(std::string_view challenge, const std::string& user, const std::string& password,
                               const std::string& method, const std::string& target)
{
    if (equalsIgnoringCase(challenge.substr(0, 5), "Basic")) {
        const std::string login = user + ":" + password;
        return "Basic " + QByteArray(login.data(), static_cast<int>(login.size())).toBase64().toStdString();
    }
    const std::string_view parameters = challenge.substr(std::min<std::size_t>(challenge.size(), 7));
    const std::string realmName = parameterValue(parameters, "realm", ',');
    const std::string nonce = parameterValue(parameters, "nonce", ',');
    const std::string algorithm = parameterValue(parameters, "algorithm", ',');
    const bool qop = !parameterValue(parameters, "qop", ',').empty();
    const bool sha = equalsIgnoringCase(std::string_view(algorithm).substr(0, 7), "SHA-256");
    const auto hash = [&](const std::string& text) {
        return hashHex(sha ? QCryptographicHash::Sha256 : QCryptographicHash::Md5, text);
    };
    const std::string cnonce = randomHex(2);
    std::string ha1 = hash(user + ":" + realmName + ":" + password);
    if (endsWith(algorithm, "-sess"))
        ha1 = hash(ha1 + ":" + nonce + ":" + cnonce);
    const std::string middle = qop ? nonce + ":00000001:" + cnonce + ":auth" : nonce;
    std::string out = "Digest username=\"" + user + "\", realm=\"" + realmName + "\", nonce=\"" + nonce + "\", uri=\"" +
                      target + "\", response=\"" + hash(ha1 + ":" + middle + ":" + hash(method + ":" + target)) + "\"";
    if (!algorithm.empty())
        out += ", algorithm=" + algorithm;
    if (qop)
        out += ", qop=auth, nc=00000001, cnonce=\"" + cnonce + "\"";
    return out;
}

} // namespace recorder_sim
