#include "onvif/SoapEnvelope.h"

#include <QCryptographicHash>

#include <gtest/gtest.h>

using namespace recorder_sim;

namespace {

QByteArray envelope(const QByteArray& header, const QByteArray& body)
{
    return "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\">" + header + "<s:Body>" + body +
           "</s:Body></s:Envelope>";
}

QByteArray token(const QByteArray& password, const QByteArray& created)
{
    const QByteArray nonce = "0123456789abcdef";
    const QByteArray digest = QCryptographicHash::hash(nonce + created + password, QCryptographicHash::Sha1).toBase64();
    return "<s:Header><Security><UsernameToken><Username>admin</Username><Password>" + digest + "</Password><Nonce>" +
           nonce.toBase64() + "</Nonce><Created>" + created + "</Created></UsernameToken></Security></s:Header>";
}

} // namespace

TEST(Soap, refusesWhatIsNoPlainRequest)
{
    QByteArray deep;
    for (int i = 0; i < 100; ++i)
        deep += "<a>";
    for (int i = 0; i < 100; ++i)
        deep += "</a>";
    const struct
    {
        const char* what;
        QByteArray document;
        bool good;
    } rows[] = {
        {"a request", envelope("", "<x xmlns=\"urn:a\"><y> 1 </y></x>"), true},
        {"nothing", "", false},
        {"no XML", "abc", false},
        {"cut off", envelope("", "<x/>").chopped(3), false},
        {"an empty body", envelope("", ""), false},
        {"two operations", envelope("", "<x/><y/>"), false},
        {"SOAP 1.1",
         "<s:Envelope xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\"><s:Body><x/></s:Body></s:Envelope>", false},
        {"a DTD", "<!DOCTYPE a [<!ENTITY b \"c\">]>" + envelope("", "<x>&b;</x>"), false},
        {"too deep", envelope("", deep), false},
    };
    for (const auto& row : rows) {
        SoapRequest request;
        EXPECT_EQ(request.parse(row.document), row.good) << row.what;
    }
    SoapRequest request;
    ASSERT_TRUE(request.parse(rows[0].document));
    EXPECT_EQ(request.body->name, QStringLiteral("x"));
    EXPECT_EQ(request.body->nameSpace, QStringLiteral("urn:a"));
    EXPECT_EQ(request.body->textAt("y"), QStringLiteral("1"));
}

TEST(Soap, tokensNeedTheRightPasswordAndTheRightTime)
{
    std::int64_t now = 0;
    ASSERT_TRUE(parseXsdTime(QStringLiteral("2026-01-10T08:00:00Z"), now));
    const struct
    {
        QByteArray password;
        QByteArray created;
        TokenVerdict verdict;
    } rows[] = {
        {"pw", "2026-01-10T08:00:00Z", TokenVerdict::Accepted},
        {"pw", "2026-01-10T08:04:59.500Z", TokenVerdict::Accepted},
        {"pw", "2026-01-10T08:05:01Z", TokenVerdict::Refused},
        {"pw", "2026-01-10T07:54:00Z", TokenVerdict::Refused},
        {"wrong", "2026-01-10T08:00:00Z", TokenVerdict::Refused},
        {"pw", "never", TokenVerdict::Refused},
    };
    for (const auto& row : rows) {
        SoapRequest request;
        ASSERT_TRUE(request.parse(envelope(token(row.password, row.created), "<x/>")));
        EXPECT_EQ(request.checkToken("admin", "pw", now), row.verdict) << row.created.constData();
        EXPECT_EQ(request.checkToken("other", "pw", now), TokenVerdict::Refused);
    }
    SoapRequest request;
    ASSERT_TRUE(request.parse(envelope("", "<x/>")));
    EXPECT_EQ(request.checkToken("admin", "pw", now), TokenVerdict::Missing);
}

TEST(Soap, readsDurations)
{
    EXPECT_EQ(parseDurationMs(QStringLiteral("PT10S"), 1), 10'000);
    EXPECT_EQ(parseDurationMs(QStringLiteral("PT1H1M0.5S"), 1), 3'660'500);
    EXPECT_EQ(parseDurationMs(QStringLiteral("ten"), 1), 1);
}
