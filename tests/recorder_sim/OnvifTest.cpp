#include "RunningSimulator.h"

#include <QCryptographicHash>
#include <QDateTime>

using namespace recorder_sim;

namespace {

class OnvifTest : public RunningSimulator
{
protected:
    /// The answer of one operation: status line, head and body. `skewSeconds` moves the login's time.
    static std::string call(const char* service, const std::string& body, const char* password = "pw",
                            int skewSeconds = 0)
    {
        const QByteArray nonce = "nonce-of-the-test";
        const QByteArray created =
            QDateTime::currentDateTimeUtc().addSecs(skewSeconds).toString(Qt::ISODate).toLatin1();
        const QByteArray digest =
            QCryptographicHash::hash(nonce + created + password, QCryptographicHash::Sha1).toBase64();
        const QByteArray header = "<s:Header><Security><UsernameToken><Username>admin</Username><Password>" + digest +
                                  "</Password><Nonce>" + nonce.toBase64() + "</Nonce><Created>" + created +
                                  "</Created></UsernameToken></Security></s:Header>";
        return post((*password ? header.toStdString() : std::string()) + "<s:Body xmlns=\"http://www.onvif.org/ver10/" +
                    service + "/wsdl\">" + body + "</s:Body>");
    }

    static std::string between(const std::string& text, const std::string& before, const std::string& after)
    {
        const std::size_t begin = text.find(before);
        if (begin == std::string::npos)
            return {};
        const std::size_t valueBegin = begin + before.size();
        return text.substr(valueBegin, text.find(after, valueBegin) - valueBegin);
    }

    static int count(const std::string& text, const std::string& what)
    {
        int found = 0;
        for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++found;
        return found;
    }

private:
    static std::string post(const std::string& content)
    {
        const std::string body =
            "<s:Envelope xmlns:s=\"http://www.w3.org/2003/05/soap-envelope\">" + content + "</s:Envelope>";
        return http(
            port("onvif"),
            "POST /onvif/device_service HTTP/1.1\r\nHost: 127.0.0.1:1\r\nConnection: close\r\nContent-Length: " +
                std::to_string(body.size()) + "\r\n\r\n" + body);
    }
};

} // namespace

TEST_F(OnvifTest, tellsWithoutLoginOnlyWhatALoginNeeds)
{
    EXPECT_EQ(call("device", "<GetSystemDateAndTime/>", "").substr(0, 12), "HTTP/1.1 200");
    EXPECT_NE(call("device", "<GetServices/>", "").find("ver10/replay/wsdl"), std::string::npos);
    const std::string challenged = call("recording", "<GetRecordings/>", "");
    EXPECT_EQ(challenged.substr(0, 12), "HTTP/1.1 401");
    EXPECT_NE(challenged.find("WWW-Authenticate: Digest"), std::string::npos);
    const std::string refused = call("recording", "<GetRecordings/>", "wrong");
    EXPECT_EQ(refused.substr(0, 12), "HTTP/1.1 400");
    EXPECT_NE(refused.find("ter:NotAuthorized"), std::string::npos);
    EXPECT_EQ(count(call("recording", "<GetRecordings/>"), "<trc:RecordingItem>"), 4);
}

TEST_F(OnvifTest, searchesTheDayInPages)
{
    const std::string begun =
        call("search", "<FindEvents><StartPoint>2026-01-10T08:00:00Z</StartPoint>"
                       "<EndPoint>2026-01-10T09:00:00Z</EndPoint><Scope><IncludedRecordings>recording_1"
                       "</IncludedRecordings></Scope><IncludeStartState>true</IncludeStartState></FindEvents>");
    const std::string token = between(begun, "SearchToken>", "<");
    ASSERT_FALSE(token.empty()) << begun;
    std::string all;
    int pages = 0;
    do {
        const std::string page = call("search", "<GetEventSearchResults><SearchToken>" + token +
                                                    "</SearchToken><MaxResults>4</MaxResults></GetEventSearchResults>");
        ASSERT_LE(count(page, "<tt:Result>"), 4);
        all += page;
    } while (all.find("Completed") == std::string::npos && ++pages < 10);
    // Start states of alarm, video and audio; the gap's two edges on two tracks; the alarm's two edges.
    EXPECT_EQ(count(all, "<tt:Result>"), 9);
    EXPECT_EQ(count(all, "<tt:StartStateEvent>true"), 3);
    EXPECT_EQ(count(all, "<tt:Time>2026-01-10T08:30:00Z"), 2);
    EXPECT_EQ(count(all, "<tt:Time>2026-01-10T08:30:20Z"), 2);
    EXPECT_EQ(count(all, "tns1:VideoSource/MotionAlarm"), 3);
    EXPECT_EQ(call("search", "<EndSearch><SearchToken>" + token + "</SearchToken></EndSearch>").substr(0, 12),
              "HTTP/1.1 200");
    EXPECT_NE(call("search", "<GetEventSearchResults><SearchToken>" + token + "</SearchToken></GetEventSearchResults>")
                  .find("ter:InvalidToken"),
              std::string::npos);
}

TEST_F(OnvifTest, givesReplayAddressesOfItsRecordings)
{
    const std::string request = "<GetReplayUri><RecordingToken>recording_2</RecordingToken></GetReplayUri>";
    EXPECT_EQ(between(call("replay", request), "<trp:Uri>", "<"),
              "rtsp://127.0.0.1:" + std::to_string(port("rtsp")) + "/replay/2");
    EXPECT_NE(
        call("replay", "<GetReplayUri><RecordingToken>other</RecordingToken></GetReplayUri>").find("ter:NoRecording"),
        std::string::npos);
    fault("name=no-replay");
    EXPECT_NE(call("replay", request).find("ter:ActionNotSupported"), std::string::npos);
}

TEST_F(OnvifTest, faultsStrikeSoapToo)
{
    fault("name=clock-skew&value=7200");
    EXPECT_NE(call("device", "<GetDeviceInformation/>").find("NotAuthorized"), std::string::npos)
        << "the login's time is too old";
    EXPECT_NE(call("device", "<GetDeviceInformation/>", "pw", 7200).find("FirmwareVersion"), std::string::npos);
    control("/reset", "POST");
    const struct
    {
        const char* query;
        const char* found;
    } rows[] = {
        {"name=xml-bomb&value=dtd", "<!DOCTYPE"},
        {"name=xml-bomb&value=entities", "&e9;"},
        {"name=xml-bomb&value=depth", "<a><a><a>"},
        {"name=xml-bomb&value=attributes", " b999999="},
        {"name=many-headers&value=5000", "X-4999: 1"},
        {"name=redirect-loop", "HTTP/1.1 302"},
        {"name=auth-loop", "stale=true"},
        {"name=wrong-password", "ter:NotAuthorized"},
    };
    for (const auto& row : rows) {
        fault(row.query);
        EXPECT_NE(call("device", "<GetDeviceInformation/>").find(row.found), std::string::npos) << row.query;
        control("/reset", "POST");
    }
}
