#include "DigestAuthenticator.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

using namespace vms_sdk::rtsp;
using Verdict = DigestAuthenticator::Verdict;

namespace {

/// The value of one parameter of an Authorization header.
std::string parameter(const QByteArray& authorization, const char* name)
{
    const QList<AuthChallenge> parsed = parseChallenges(authorization);
    return parsed.isEmpty() ? std::string() : parsed.first().parameters.value(QByteArray(name)).toStdString();
}

DigestAuthenticator authenticator(const char* user, const char* password, const char* clientNonce, bool overTls = false)
{
    return DigestAuthenticator(QString::fromLatin1(user), QString::fromLatin1(password), overTls,
                               [nonce = QByteArray(clientNonce)] { return nonce; });
}

QByteArray md5(const QByteArray& text)
{
    return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

} // namespace

TEST(DigestAuthenticator, answersThePublishedExamples)
{
    const struct
    {
        const char* user;
        const char* password;
        const char* clientNonce;
        const char* challenge;
        const char* uri;
        const char* response;
    } rows[] = {
        // RFC 2617 clause 3.5
        {"Mufasa", "Circle Of Life", "0a4f113b",
         "Digest realm=\"testrealm@host.com\", qop=\"auth,auth-int\", nonce=\"dcd98b7102dd2f0e8b11d0f600bfb0c093\", "
         "opaque=\"5ccc069c403ebaf9f0171e9517f40e41\"",
         "/dir/index.html", "6629fae49393a05397450978507c4ef1"},
        // RFC 7616 clause 3.9.1, both algorithms
        {"Mufasa", "Circle of Life", "f2/wE4q74E6zIJEtWaHKaf5wv/H5QzzpXusqGemxURZJ",
         "Digest realm=\"http-auth@example.org\", qop=\"auth, auth-int\", algorithm=MD5, "
         "nonce=\"7ypf/xlj9XXwfDPEoM4URrv/xwf94BcCAzFZH4GiTo0v\", "
         "opaque=\"FQhe/qaU925kfnzjCev0ciny7QMkPqMAFRtzCUYo5tdS\"",
         "/dir/index.html", "8ca523f5e9506fed4657c9700eebdbec"},
        {"Mufasa", "Circle of Life", "f2/wE4q74E6zIJEtWaHKaf5wv/H5QzzpXusqGemxURZJ",
         "Digest realm=\"http-auth@example.org\", qop=\"auth, auth-int\", algorithm=SHA-256, "
         "nonce=\"7ypf/xlj9XXwfDPEoM4URrv/xwf94BcCAzFZH4GiTo0v\", "
         "opaque=\"FQhe/qaU925kfnzjCev0ciny7QMkPqMAFRtzCUYo5tdS\"",
         "/dir/index.html", "753927fa0e85d155564e2e272a28d1802ca10daf4496794697cf8db5856cb6c1"},
    };
    for (const auto& row : rows) {
        DigestAuthenticator login = authenticator(row.user, row.password, row.clientNonce);
        ASSERT_EQ(login.challenged({row.challenge}), Verdict::Retry);
        const QByteArray value = login.authorization("GET", row.uri);
        EXPECT_EQ(parameter(value, "response"), row.response) << value.toStdString();
        EXPECT_EQ(parameter(value, "nc"), "00000001");
        EXPECT_EQ(parameter(value, "qop"), "auth");
    }
}

TEST(DigestAuthenticator, computesTheFormsWithoutExample)
{
    const QByteArray ha1 = md5("u:r:p");
    const QByteArray ha2 = md5("PLAY:rtsp://h/s");
    DigestAuthenticator plain = authenticator("u", "p", "c");
    plain.challenged({"Digest realm=\"r\", nonce=\"n\""});
    const QByteArray value = plain.authorization("PLAY", "rtsp://h/s");
    EXPECT_EQ(parameter(value, "response"), md5(ha1 + ":n:" + ha2).toStdString());
    EXPECT_EQ(parameter(value, "qop") + parameter(value, "nc") + parameter(value, "cnonce"), "");

    DigestAuthenticator session = authenticator("u", "p", "c");
    session.challenged({"Digest realm=\"r\", nonce=\"n\", qop=\"auth\", algorithm=MD5-sess"});
    session.authorization("PLAY", "rtsp://h/s");
    const QByteArray second = session.authorization("PLAY", "rtsp://h/s");
    EXPECT_EQ(parameter(second, "response"), md5(md5(ha1 + ":n:c") + ":n:00000002:c:auth:" + ha2).toStdString());
    EXPECT_EQ(parameter(second, "algorithm"), "MD5-sess");
}

TEST(DigestAuthenticator, takesTheStrongestWayWhateverTheOrder)
{
    const QByteArray basic = "Basic realm=\"r\"";
    const QByteArray md5Challenge = "Digest realm=\"r\", nonce=\"m\", algorithm=MD5";
    const QByteArray shaChallenge = "Digest realm=\"r\", nonce=\"s\", algorithm=SHA-256, qop=\"auth\"";
    const QByteArray unknown = "Digest realm=\"r\", nonce=\"x\", algorithm=SHA-512-256";
    const QList<QByteArray> lists[] = {
        {basic, md5Challenge, shaChallenge},
        {shaChallenge, md5Challenge, basic},
        {unknown, md5Challenge, "Negotiate abc==", shaChallenge},
        {basic + ", " + md5Challenge + ", " + shaChallenge + ", " + unknown},
    };
    for (const QList<QByteArray>& headers : lists) {
        DigestAuthenticator login = authenticator("u", "p", "c", true);
        ASSERT_EQ(login.challenged(headers), Verdict::Retry);
        EXPECT_EQ(parameter(login.authorization("PLAY", "rtsp://h/"), "nonce"), "s")
            << headers.join('\n').toStdString();
    }
}

TEST(DigestAuthenticator, givesUpInsteadOfLockingTheAccountOrWeakening)
{
    const QByteArray shaChallenge = "Digest realm=\"r\", nonce=\"1\", algorithm=SHA-256";
    struct Row
    {
        const char* name;
        const char* user;
        bool overTls;
        QList<QByteArray> challenges; ///< one 401 each
        QList<Verdict> verdicts;
    };
    const Row rows[] = {
        {"no user", "", false, {shaChallenge}, {Verdict::NoLogin}},
        {"wrong password",
         "u",
         false,
         {shaChallenge, "Digest realm=\"r\", nonce=\"2\", algorithm=SHA-256"},
         {Verdict::Retry, Verdict::WrongLogin}},
        {"weaker after a failure",
         "u",
         false,
         {shaChallenge, "Digest realm=\"r\", nonce=\"2\", stale=true"},
         {Verdict::Retry, Verdict::NothingUsable}},
        {"stale for ever",
         "u",
         false,
         {shaChallenge, "Digest realm=\"r\", nonce=\"2\", algorithm=SHA-256, stale=true",
          "Digest realm=\"r\", nonce=\"3\", algorithm=SHA-256, stale=true",
          "Digest realm=\"r\", nonce=\"4\", algorithm=SHA-256, stale=true"},
         {Verdict::Retry, Verdict::Retry, Verdict::Retry, Verdict::TooManyRounds}},
        {"Basic in clear", "u", false, {"Basic realm=\"r\""}, {Verdict::BasicInClear}},
        {"Basic over TLS, refused",
         "u",
         true,
         {"Basic realm=\"r\"", "Basic realm=\"r\""},
         {Verdict::Retry, Verdict::WrongLogin}},
        {"unknown only", "u", true, {"Negotiate"}, {Verdict::NothingUsable}},
        {"nothing at all", "u", true, {""}, {Verdict::NothingUsable}},
        {"qop that needs a body",
         "u",
         true,
         {"Digest realm=\"r\", nonce=\"1\", qop=\"auth-int\""},
         {Verdict::NothingUsable}},
    };
    for (const Row& row : rows) {
        DigestAuthenticator login = authenticator(row.user, "p", "c", row.overTls);
        for (int i = 0; i < row.challenges.size(); ++i) {
            ASSERT_EQ(login.challenged({row.challenges.at(i)}), row.verdicts.at(i)) << row.name << ", answer " << i;
            login.authorization("DESCRIBE", "rtsp://h/");
        }
    }
}

TEST(DigestAuthenticator, acceptsANewNonceOnceTheLoginWasGood)
{
    DigestAuthenticator login = authenticator("u", "p", "c");
    ASSERT_EQ(login.challenged({"Digest realm=\"r\", nonce=\"1\""}), Verdict::Retry);
    login.authorization("DESCRIBE", "rtsp://h/");
    login.accepted();
    EXPECT_EQ(login.challenged({"Digest realm=\"r\", nonce=\"2\""}), Verdict::Retry);
    EXPECT_EQ(parameter(login.authorization("PLAY", "rtsp://h/"), "nonce"), "2");
}

TEST(DigestAuthenticator, keepsNamesInsideTheirQuotes)
{
    DigestAuthenticator login = authenticator("a\"b\\c\r\nX: y", "p", "c");
    login.challenged({"Digest realm=\"r\\\"q\", nonce=\"n\""});
    const QByteArray value = login.authorization("PLAY", "rtsp://h/");
    EXPECT_FALSE(value.contains('\n'));
    EXPECT_EQ(parameter(value, "username"), "a\"b\\cX: y");
    EXPECT_EQ(parameter(value, "realm"), "r\"q");
    EXPECT_EQ(parameter(value, "nonce"), "n");
}

TEST(AuthChallenge, readsDamagedHeadersWithoutLosingTheRest)
{
    const QList<AuthChallenge> parsed =
        parseChallenges(",, =x, Digest realm = \"a,b\" , nonce=n1,nonce=n2, stale=TRUE, bad=\"open");
    ASSERT_EQ(parsed.size(), 1);
    EXPECT_EQ(parsed.first().parameters.value("realm").toStdString(), "a,b");
    EXPECT_EQ(parsed.first().parameters.value("nonce").toStdString(), "n1");
    EXPECT_EQ(parsed.first().parameters.value("stale").toStdString(), "TRUE");
}
