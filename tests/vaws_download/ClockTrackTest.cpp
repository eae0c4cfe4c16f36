#include "GrowingFile.h"
#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <sstream>

/// The clock track as ffmpeg shows it: what stands on the screen at any moment is the time of that picture.
namespace {

using testing::IsEmpty;

constexpr std::int64_t nsPerSecond = 1'000'000'000;
constexpr double toleranceS = 0.002; ///< subtitles are listed by the millisecond

struct Cue
{
    double beginS;
    double endS;
    std::string text;
};

std::vector<Cue> cuesOf(const std::string& path)
{
    std::istringstream lines(shellOutput("ffmpeg -v error -i '" + path + "' -map 0:s:0 -f srt - 2>&1"));
    std::vector<Cue> cues;
    for (std::string line; std::getline(lines, line);) {
        int at[8] = {};
        if (std::sscanf(line.c_str(), "%d:%d:%d,%d --> %d:%d:%d,%d", &at[0], &at[1], &at[2], &at[3], &at[4], &at[5],
                        &at[6], &at[7]) != 8)
            continue;
        auto seconds = [&at](int i) { return at[i] * 3600 + at[i + 1] * 60 + at[i + 2] + at[i + 3] / 1000.0; };
        Cue cue{seconds(0), seconds(4), {}};
        std::getline(lines, cue.text);
        // Styles of the whole track come as a tag around each text.
        cue.text = cue.text.substr(cue.text.find('>') + 1);
        cues.push_back({cue.beginS, cue.endS, cue.text.substr(0, cue.text.find('<'))});
    }
    return cues;
}

/// The clock of Kolkata, half an hour beside the hours of Greenwich and without summer time.
std::string expectedText(std::int64_t utcNs)
{
    const std::time_t local = utcNs / nsPerSecond + 19800;
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S +05:30", std::gmtime(&local));
    return text;
}

/// A stretch of the file without a gap: from `mediaS` on it shows the clock from `utcNs` on.
struct Stretch
{
    double mediaS;
    double endS;
    std::int64_t utcNs;
};

class ClockTrack : public testing::Test
{
protected:
    ClockTrack()
    {
        ::setenv("TZ", "Asia/Kolkata", 1);
        ::tzset();
        vaws_download_set_clock_track(1);
    }
    ~ClockTrack() override { vaws_download_set_clock_track(0); }

    void download(const ClipSource& source, std::int64_t beginNs, std::int64_t endNs)
    {
        ASSERT_EQ(vaws_download_time_range("vavFrame", clockText(beginNs).c_str(), clockText(endNs).c_str(),
                                           path.c_str(), "t"),
                  VAWS_OK);
        driver.pushAll("t", source);
        vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
        ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");
        EXPECT_EQ(TaskDriver::reportNumber("t", "verified"), 1);
    }

    static void expectClock(const std::string& file, const std::vector<Stretch>& stretches)
    {
        const std::vector<Cue> cues = cuesOf(file);
        std::size_t next = 0;
        for (const Stretch& stretch : stretches) {
            double untilS = stretch.mediaS;
            for (; next < cues.size() && cues[next].beginS < stretch.endS - toleranceS; ++next) {
                const Cue& cue = cues[next];
                ASSERT_NEAR(cue.beginS, untilS, toleranceS) << "a hole or an overlap in front of " << cue.text;
                untilS = cue.endS;
                for (const double atS : {cue.beginS + toleranceS, cue.endS - toleranceS})
                    EXPECT_EQ(cue.text, expectedText(stretch.utcNs + std::llround((atS - stretch.mediaS) * 1e9)))
                        << "at " << atS << " s";
            }
            EXPECT_NEAR(untilS, stretch.endS, 0.045) << "the clock does not go as far as the pictures";
        }
        EXPECT_EQ(next, cues.size());
    }

    TaskDriver driver;
    const std::string path = driver.path("clock.mp4");
};

void cutOut(ClipSource& source, std::int64_t fromNs, std::int64_t toNs)
{
    auto& frames = source.frames();
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                                [&](const ClipSource::Frame& frame) {
                                    return frame.header.timeNs >= fromNs && frame.header.timeNs < toNs;
                                }),
                 frames.end());
}

TEST_F(ClockTrack, jumpsWithTheClosedGapAndBeginsWithTheAskedSpan)
{
    ClipSource::Options options;
    options.seconds = 24;
    ClipSource source(TaskDriver::clip("h264_aac"), options);
    const std::int64_t begin = source.beginNs();
    cutOut(source, begin + 8 * nsPerSecond, begin + 16 * nsPerSecond);
    const std::int64_t asked = begin + 2'400'000'000;
    download(source, asked, begin + 23 * nsPerSecond);
    expectClock(path, {{0, 5.6, asked}, {5.6, 12.6, begin + 16 * nsPerSecond}});
    EXPECT_THAT(decodeErrors(path), IsEmpty());
    std::vector<std::string> sent = source.payloadMd5(0);
    sent.erase(sent.begin(), sent.begin() + 50); // in front of the key frame that the asked begin needs
    const std::vector<std::string> found = ffmpegPacketMd5(path, 0);
    ASSERT_GE(found.size(), 12 * 25u);
    EXPECT_TRUE(std::equal(found.begin(), found.end(), sent.begin()));
    EXPECT_EQ(probe(path, "-select_streams s -show_entries stream=codec_name"), "mov_text");
    EXPECT_NEAR(probeNumber(path, "-show_entries format=duration"), 12.6, 0.041);
    int code = 0;
    const std::string said = shellOutput("gst-launch-1.0 -q filesrc location='" + path +
                                             "' ! qtdemux name=d d.subtitle_0 ! fakesink sync=false 2>&1",
                                         &code);
    EXPECT_EQ(code, 0) << "GStreamer: " << said;
}

TEST_F(ClockTrack, showsNothingInAGapThatStaysAsTime)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    const std::int64_t begin = ClipSource(clip).beginNs();
    auto record = [&](int fromS) {
        return "{\"file_path\":\"" + clip + "\",\"begin_time\":\"" + clockText(begin + fromS * nsPerSecond) +
               "\",\"end_time\":\"" + clockText(begin + (fromS + 8) * nsPerSecond) + "\"}";
    };
    const std::string list = "{\"begin_time\":\"" + clockText(begin) + "\",\"end_time\":\"" +
                             clockText(begin + 20 * nsPerSecond) + "\",\"play_time\":\"" + clockText(begin) +
                             "\",\"records\":[" + record(0) + "," + record(12) + "]}";
    ASSERT_EQ(vaws_download_time_range(list.c_str(), clockText(begin).c_str(),
                                       clockText(begin + 20 * nsPerSecond).c_str(), path.c_str(), "t"),
              VAWS_OK);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");
    expectClock(path, {{0, 8, begin}, {12, 20, begin + 12 * nsPerSecond}});

    // Cut out of a file that has a clock already: one clock again, not two.
    const std::string again = driver.path("again.mp4");
    const std::string part = "{\"begin_time\":\"" + clockText(begin + 2 * nsPerSecond) + "\",\"end_time\":\"" +
                             clockText(begin + 6 * nsPerSecond) + "\",\"play_time\":\"" + clockText(begin) +
                             "\",\"records\":[{\"file_path\":\"" + path + "\",\"begin_time\":\"" + clockText(begin) +
                             "\",\"end_time\":\"" + clockText(begin + 20 * nsPerSecond) + "\"}]}";
    ASSERT_EQ(vaws_download_time_range(part.c_str(), clockText(begin + 2 * nsPerSecond).c_str(),
                                       clockText(begin + 6 * nsPerSecond).c_str(), again.c_str(), "again"),
              VAWS_OK);
    ASSERT_EQ(driver.waitForEnd("again"), VAWS_EVENT_FINISHED) << TaskDriver::report("again");
    EXPECT_EQ(probe(again, "-show_entries stream=codec_name"), "h264\naac\nmov_text");
    expectClock(again, {{0, 4, begin + 2 * nsPerSecond}});
}

TEST_F(ClockTrack, goesWithSoundAlone)
{
    ClipSource source(TaskDriver::clip("h264_aac"));
    source.info().tracks.erase(source.info().tracks.begin());
    auto& frames = source.frames();
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                                [](const ClipSource::Frame& frame) { return frame.header.track == 0; }),
                 frames.end());
    download(source, source.beginNs(), source.beginNs() + 7 * nsPerSecond);
    EXPECT_EQ(probe(path, "-show_entries stream=codec_name"), "aac\nmov_text");
    expectClock(path, {{0, 7, source.beginNs()}});
}

TEST_F(ClockTrack, isThereWhileTheFileGrows)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    vaws::AssemblyRequest request;
    request.clockTrack = true;
    const GrowingFile growing(source, 16 * 1024, request);
    saveBytes(path, growing.file.bytes);
    const std::vector<Cue> cues = cuesOf(path);
    ASSERT_EQ(cues.size(), 8u);
    for (std::size_t i = 0; i < cues.size(); ++i)
        EXPECT_EQ(cues[i].text, expectedText(source.beginNs() + static_cast<std::int64_t>(i) * nsPerSecond));
}

TEST_F(ClockTrack, isNotThereUnlessItWasAskedFor)
{
    vaws_download_set_clock_track(0);
    const ClipSource source(TaskDriver::clip("h264_aac"));
    download(source, source.beginNs(), source.endNs());
    EXPECT_EQ(probe(path, "-show_entries stream=codec_name"), "h264\naac");
}

} // namespace
