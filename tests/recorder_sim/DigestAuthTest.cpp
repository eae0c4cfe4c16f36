#include "net/DigestAuth.h"

#include <gtest/gtest.h>

using namespace recorder_sim;

TEST(DigestAuth, acceptsTheRightLoginInEveryScheme)
{
    for (const char* name :
         {"basic", "digest-md5", "digest-sha256", "both", "digest-md5-sess", "digest-sha256-sess", "all"}) {
        DigestAuth::Scheme scheme = DigestAuth::Scheme::Basic;
        ASSERT_TRUE(DigestAuth::parseScheme(name, scheme));
        for (const bool qop : {false, true}) {
            const DigestAuth auth("admin", "p:w", scheme, qop);
            const std::string url = "rtsp://127.0.0.1/replay/1";
            EXPECT_EQ(auth.check("", "PLAY", url), DigestAuth::Verdict::Missing);
            for (const std::string& challenge : auth.challenges(false)) {
                const std::string right = DigestAuth::answer(challenge, "admin", "p:w", "PLAY", url);
                EXPECT_EQ(auth.check(right, "PLAY", url), DigestAuth::Verdict::Accepted) << challenge;
                const std::string wrong = DigestAuth::answer(challenge, "admin", "other", "PLAY", url);
                EXPECT_EQ(auth.check(wrong, "PLAY", url), DigestAuth::Verdict::Refused) << challenge;
                if (challenge.rfind("Digest", 0) == 0) {
                    EXPECT_EQ(auth.check(right, "PAUSE", url), DigestAuth::Verdict::Refused)
                        << "signed for another method";
                    EXPECT_EQ(auth.check(right, "PLAY", "rtsp://127.0.0.1/replay/2"), DigestAuth::Verdict::Refused);
                }
            }
        }
    }
}

TEST(DigestAuth, refusesNoncesOfOthers)
{
    const DigestAuth one("admin", "pw", DigestAuth::Scheme::DigestMd5, false);
    const DigestAuth other("admin", "pw", DigestAuth::Scheme::DigestMd5, false);
    const std::string login = DigestAuth::answer(one.challenges(false).front(), "admin", "pw", "PLAY", "/a");
    EXPECT_EQ(one.check(login, "PLAY", "/a"), DigestAuth::Verdict::Accepted);
    EXPECT_EQ(other.check(login, "PLAY", "/a"), DigestAuth::Verdict::Refused);
}

TEST(DigestAuth, answersTheExampleOfTheStandard)
{
    // RFC 2069 2.4, the response as its errata correct it.
    const std::string challenge = "Digest realm=\"testrealm@host.com\", nonce=\"dcd98b7102dd2f0e8b11d0f600bfb0c093\"";
    const std::string login = DigestAuth::answer(challenge, "Mufasa", "CircleOfLife", "GET", "/dir/index.html");
    EXPECT_NE(login.find("response=\"1949323746fe6a43ef61f9606e7febea\""), std::string::npos) << login;
}
