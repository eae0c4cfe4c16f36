#include "RunningSimulator.h"

#include <QProcess>

#include <algorithm>

using namespace recorder_sim;

using SimulatorTest = RunningSimulator;

TEST_F(SimulatorTest, sendsExactlyWhatItSaysThatItSends)
{
    for (int channel = 1; channel <= 4; ++channel) {
        const Received received = replay(channel, "20260110T080001Z", "20260110T080040.5Z");
        EXPECT_TRUE(received.sound);
        EXPECT_EQ(received.byes, 2);
        for (int track = 0; track < 2; ++track) {
            const std::vector<Sample> wanted = truth(channel, "2026-01-10T08:00:01Z", "2026-01-10T08:00:40.5Z", track);
            EXPECT_GT(wanted.size(), 600u);
            EXPECT_EQ(received.samples[track], wanted) << "channel " << channel;
            EXPECT_EQ(received.lastFlags[track] & 0x10, 0x10) << "the last unit carries the T bit";
        }
    }
}

TEST_F(SimulatorTest, unitsOfALoopAreNotAlike)
{
    for (int channel = 1; channel <= 4; ++channel) {
        for (int track = 0; track < 2; ++track) {
            std::vector<std::string> digests;
            for (const Sample& sample : truth(channel, "2026-01-10T08:00:00Z", "2026-01-10T08:00:16Z", track))
                digests.push_back(sample.md5);
            const std::size_t all = digests.size();
            std::sort(digests.begin(), digests.end());
            digests.erase(std::unique(digests.begin(), digests.end()), digests.end());
            EXPECT_EQ(digests.size(), all) << "channel " << channel << " track " << track;
        }
    }
}

TEST_F(SimulatorTest, tellsGapsByFlagsAndTime)
{
    const Received received = replay(1, "20260110T082950Z", "20260110T083030Z");
    EXPECT_TRUE(received.sound);
    ASSERT_EQ(received.discontinuities.size(), 1u);
    EXPECT_EQ(received.discontinuities.front(), 1'768'033'820'000'000'000) << "08:30:20";
    ASSERT_EQ(received.sectionEnds.size(), 1u);
    EXPECT_GE(received.sectionEnds.front(), 1'768'033'799'880'000'000)
        << "one of the last three pictures before 08:30:00";
    EXPECT_EQ(received.samples[0], truth(1, "2026-01-10T08:29:50Z", "2026-01-10T08:30:30Z", 0));
}

TEST_F(SimulatorTest, isReadByFfprobe)
{
    const struct
    {
        const char* path;
        const char* streams;
    } rows[] = {
        {"/live/1", "h264,1920,1080\naac,48000"},
        {"/live/2", "hevc,1280,720\npcm_alaw,8000"},
        {"/replay/3", "h264,640,360\npcm_mulaw,8000"},
        {"/replay/4?clock=20260110T080000Z-20260110T080010Z", "hevc,640,360\naac,16000"},
    };
    for (const auto& row : rows) {
        QProcess probe;
        const QString url =
            QStringLiteral("rtsp://admin:pw@127.0.0.1:%1%2").arg(port("rtsp")).arg(QLatin1String(row.path));
        probe.start(QStringLiteral("ffprobe"),
                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-rtsp_transport"),
                     QStringLiteral("tcp"), QStringLiteral("-show_entries"),
                     QStringLiteral("stream=codec_name,width,height,sample_rate"), QStringLiteral("-of"),
                     QStringLiteral("csv=p=0"), url});
        ASSERT_TRUE(probe.waitForFinished(60'000)) << row.path;
        EXPECT_EQ(probe.readAllStandardOutput().trimmed().toStdString(), row.streams) << row.path;
        EXPECT_EQ(probe.readAllStandardError().toStdString(), "") << row.path;
    }
}

TEST_F(SimulatorTest, repositionsAndPauses)
{
    RtspReader client = reader("/replay/1");
    ASSERT_TRUE(client.connect());
    ASSERT_TRUE(client.play("Require: onvif-replay\r\nRange: clock=20260110T080000Z-\r\n")) << client.error();
    RtspReader::Answer answer;
    ASSERT_TRUE(client.request("PAUSE", client.url(), "", answer)) << client.error();
    ASSERT_TRUE(client.request("PLAY", client.url(),
                               "Range: clock=20260110T090001Z-20260110T090003Z\r\nRate-Control: no\r\n", answer));
    EXPECT_EQ(answer.header("Range"), "clock=20260110T090000Z-20260110T090003Z");
    EXPECT_FALSE(client.request("PLAY", client.url(), "Range: clock=20300110T090001Z-\r\n", answer));
    EXPECT_EQ(answer.status, 457);
    EXPECT_TRUE(client.request("TEARDOWN", client.url(), "", answer)) << client.error();
}

TEST_F(SimulatorTest, answersWithTheStatusOfTheCase)
{
    const struct
    {
        const char* method;
        const char* path;
        const char* headers;
        int status;
    } rows[] = {
        {"DESCRIBE", "/replay/1", "", 200},
        {"DESCRIBE", "/replay/5", "", 404},
        {"DESCRIBE", "/nothing", "", 404},
        {"DESCRIBE", "/replay/1", "Require: something-else\r\n", 551},
        {"SETUP", "/replay/1/trackID=0", "Transport: RTP/AVP;unicast;client_port=5000-5001\r\n", 461},
        {"SETUP", "/replay/1/trackID=7", "Transport: RTP/AVP/TCP;unicast\r\n", 404},
        {"PLAY", "/replay/1", "", 454},
        {"PLAY", "/replay/1", "Session: 123\r\n", 454},
        {"RECORD", "/replay/1", "", 501},
    };
    for (const auto& row : rows) {
        RtspReader client = reader(row.path);
        ASSERT_TRUE(client.connect());
        RtspReader::Answer answer;
        client.request(row.method, client.url(), row.headers, answer);
        EXPECT_EQ(answer.status, row.status) << row.method << " " << row.path << " " << row.headers;
    }
    RtspReader stranger = reader("/replay/1", "wrong");
    ASSERT_TRUE(stranger.connect());
    RtspReader::Answer answer;
    EXPECT_FALSE(stranger.request("DESCRIBE", stranger.url(), "", answer));
    EXPECT_EQ(answer.status, 401);
}
