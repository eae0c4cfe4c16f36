#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

/// Checks logins of RTSP and HTTP: Basic (RFC 7617) and Digest with MD5 or SHA-256, with and without qop and -sess (RFC
/// 7616, RFC 2617). Nonces carry their time under a secret, so that nothing is remembered; safe from any thread.
class DigestAuth final
{
public:
    enum class Scheme { Basic, DigestMd5, DigestSha256, BothDigests, DigestMd5Session, DigestSha256Session, All };
    enum class Verdict { Accepted, Missing, Refused, Stale };

    DigestAuth(std::string user, std::string password, Scheme scheme, bool offersQop);

    Verdict check(std::string_view authorization, std::string_view method, std::string_view target) const;

    /// Values of WWW-Authenticate headers, in the order in which they are to be sent.
    std::vector<std::string> challenges(bool stale) const;

    /// The Authorization header that answers a challenge, for a client.
    static std::string answer(std::string_view challenge, const std::string& user, const std::string& password,
                              const std::string& method, const std::string& target);

    static bool parseScheme(std::string_view text, Scheme& scheme);

private:
    Verdict checkDigest(std::string_view parameters, std::string_view method, std::string_view target) const;
    std::string makeNonce() const;
    bool isFresh(const std::string& nonce, bool& genuine) const;
    bool allows(std::string_view algorithm) const;

    const std::string m_user;
    const std::string m_password;
    const Scheme m_scheme;
    const bool m_offersQop;
    const std::string m_secret;
};

} // namespace recorder_sim
