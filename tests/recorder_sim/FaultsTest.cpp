#include "RunningSimulator.h"

#include <chrono>
#include <thread>

using namespace recorder_sim;

using FaultsTest = RunningSimulator;

namespace {

constexpr char fullSpeed[] =
    "Require: onvif-replay\r\nRate-Control: no\r\nRange: clock=20260110T080000Z-20260110T083000Z\r\n";

} // namespace

TEST_F(FaultsTest, cutAtTheByte)
{
    const struct
    {
        const char* kind;
        std::int64_t bytes;
        bool ends;
    } rows[] = {{"rst", 1, true},       {"rst", 3'000'001, true}, {"fin", 1403, true},
                {"fin", 777'777, true}, {"silence", 5, false},    {"silence", 2'000'000, false}};
    for (const auto& row : rows) {
        fault(std::string("name=drop-kind&value=") + row.kind);
        fault("name=drop-after&count=1&value=" + std::to_string(row.bytes));
        RtspReader client = reader("/replay/1");
        ASSERT_TRUE(client.connect());
        ASSERT_TRUE(client.play(fullSpeed)) << client.error();
        EXPECT_EQ(client.discard(1 << 30, 3000), row.bytes) << row.kind;
        EXPECT_EQ(client.atEnd(), row.ends) << row.kind;
        EXPECT_EQ(control("/faults").find("drop-after"), std::string::npos) << "a counted fault is used up";
    }
}

TEST_F(FaultsTest, stallBetweenPacketsAndStillAnswer)
{
    fault("name=stall-after&value=100000");
    RtspReader client = reader("/replay/1");
    ASSERT_TRUE(client.connect());
    ASSERT_TRUE(client.play(fullSpeed)) << client.error();
    std::int64_t bytes = 0;
    EXPECT_TRUE(client.readPackets(
        [&](int, std::string_view packet) {
            bytes += static_cast<std::int64_t>(packet.size()) + 4;
            return true;
        },
        500));
    EXPECT_TRUE(bytes >= 100'000 && bytes < 102'000) << bytes;
    RtspReader::Answer answer;
    EXPECT_TRUE(client.request("GET_PARAMETER", client.url(), "", answer)) << client.error();
}

TEST_F(FaultsTest, slowTheLink)
{
    fault("name=rate&value=400000");
    RtspReader client = reader("/replay/1");
    ASSERT_TRUE(client.connect());
    ASSERT_TRUE(client.play(fullSpeed)) << client.error();
    const auto begin = std::chrono::steady_clock::now();
    client.discard(400'000, 1000);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    EXPECT_GT(seconds, 0.85) << "never faster than asked for";
    EXPECT_LT(seconds, 10.0);
}

TEST_F(FaultsTest, refuseInTheAskedWay)
{
    const struct
    {
        const char* name;
        const char* error;
    } rows[] = {
        {"session-limit", "SETUP was answered with 453"}, {"busy", "DESCRIBE was answered with 503"},
        {"not-found", "DESCRIBE was answered with 404"},  {"wrong-password", "DESCRIBE was answered with 401"},
        {"auth-loop", "DESCRIBE was answered with 401"},  {"redirect-loop", "DESCRIBE was answered with 302"},
    };
    for (const auto& row : rows) {
        fault(std::string("name=") + row.name);
        RtspReader client = reader("/replay/1");
        ASSERT_TRUE(client.connect());
        EXPECT_FALSE(client.play(fullSpeed));
        EXPECT_EQ(client.error(), row.error);
        control("/reset", "POST");
    }
    fault("name=busy&channel=2");
    EXPECT_TRUE(replay(1, "20260110T080000Z", "20260110T080002Z").sound) << "the fault is another channel's";
}

TEST_F(FaultsTest, limitSessionsForReal)
{
    std::vector<std::unique_ptr<RtspReader>> clients;
    for (int i = 0; i < 9; ++i) {
        RtspReader::Target target;
        target.port = port("rtsp");
        target.path = "/live/3";
        target.user = "admin";
        target.password = "pw";
        clients.push_back(std::make_unique<RtspReader>(target));
        ASSERT_TRUE(clients.back()->connect());
        EXPECT_EQ(clients.back()->play(""), i < 8) << clients.back()->error();
    }
    EXPECT_EQ(clients.back()->error(), "SETUP was answered with 453");
    clients.clear();
    for (int i = 0; i < 100 && control("/stats").find("\"rtspSessions\":0") == std::string::npos; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_NE(control("/stats").find("\"rtspSessions\":0"), std::string::npos)
        << "a closed connection gives its session back";
}

TEST_F(FaultsTest, changeParameterSetsWhereTheTruthSaysSo)
{
    fault("name=parameter-set-change&value=6&channel=1");
    const Received received = replay(1, "20260110T080000Z", "20260110T080012Z");
    EXPECT_TRUE(received.sound);
    EXPECT_EQ(received.samples[0], truth(1, "2026-01-10T08:00:00Z", "2026-01-10T08:00:12Z", 0));
    fault("name=parameter-set-change&value=08:00:20&channel=1");
    fault("name=earlier-key&value=2");
    fault("name=early-end&value=3");
    EXPECT_EQ(replay(1, "20260110T080014Z", "20260110T080030Z").samples[0],
              truth(1, "2026-01-10T08:00:14Z", "2026-01-10T08:00:30Z", 0));
}

TEST_F(FaultsTest, loseWhatIsAskedFor)
{
    const std::size_t whole = replay(3, "20260110T080000Z", "20260110T080100Z").samples[0].size();
    fault("name=loss&value=0.02");
    const Received lossy = replay(3, "20260110T080000Z", "20260110T080100Z");
    EXPECT_FALSE(lossy.sound) << "sequence numbers tell of the loss";
    EXPECT_LT(lossy.samples[0].size(), whole);
}

TEST_F(FaultsTest, breakTheFraming)
{
    for (const char* name : {"torn-packet", "wrong-length"}) {
        fault(std::string("name=") + name + "&value=500");
        RtspReader client = reader("/replay/1");
        ASSERT_TRUE(client.connect());
        ASSERT_TRUE(client.play(fullSpeed)) << client.error();
        int packets = 0;
        EXPECT_FALSE(client.readPackets([&](int, std::string_view) { return ++packets < 5000; }, 1000)) << name;
        control("/reset", "POST");
    }
}

TEST_F(FaultsTest, goOfflineAndComeBack)
{
    RtspReader standing = reader("/live/3");
    ASSERT_TRUE(standing.connect());
    ASSERT_TRUE(standing.play("")) << standing.error();
    fault("name=offline&value=1");
    standing.discard(1 << 30, 2000);
    EXPECT_TRUE(standing.atEnd()) << "standing connections are cut";
    EXPECT_FALSE(reader("/live/3").connect());
    bool back = false;
    for (int i = 0; i < 300 && !back; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        back = reader("/live/3").connect();
    }
    EXPECT_TRUE(back);
}

TEST_F(FaultsTest, unknownOnesAreRefused)
{
    for (const char* query :
         {"name=nonsense&value=1", "name=drop-after&value=many", "name=drop-kind&value=soft", "name=busy-"})
        EXPECT_EQ(http(port("control"), std::string("POST /fault?") + query + " HTTP/1.1\r\nConnection: close\r\n\r\n")
                      .substr(0, 12),
                  "HTTP/1.1 400")
            << query;
}
