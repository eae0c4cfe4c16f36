#include "CutList.h"
#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::int64_t nsPerSecond = 1'000'000'000;

struct Record
{
    std::string path;
    std::int64_t beginNs;
    std::int64_t endNs;
};

std::string listText(std::int64_t beginNs, std::int64_t endNs, const std::vector<Record>& records)
{
    nlohmann::json list = {
        {"begin_time", clockText(beginNs)}, {"end_time", clockText(endNs)}, {"play_time", clockText(beginNs)}};
    for (const Record& record : records)
        list["records"].push_back({{"file_path", record.path},
                                   {"begin_time", clockText(record.beginNs)},
                                   {"end_time", clockText(record.endNs)}});
    return list.dump();
}

class Cut : public testing::Test
{
protected:
    int cut(const std::string& task, std::int64_t beginNs, std::int64_t endNs, const std::vector<Record>& records)
    {
        EXPECT_EQ(vaws_download_time_range(listText(beginNs, endNs, records).c_str(), clockText(beginNs).c_str(),
                                           clockText(endNs).c_str(), driver.path(task + ".mp4").c_str(), task.c_str()),
                  VAWS_OK);
        return driver.waitForEnd(task);
    }

    const std::int64_t origin = 1'768'032'000 * nsPerSecond;
    TaskDriver driver;
};

TEST_F(Cut, takesASpanOutOfOneFileExactly)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    const ClipSource source(clip);
    const std::int64_t begin = origin + 2'600'000'000;
    ASSERT_EQ(cut("t", begin, origin + 6'000'000'000, {{clip, origin, origin + 8 * nsPerSecond}}), VAWS_EVENT_FINISHED)
        << TaskDriver::report("t");
    const std::string path = driver.path("t.mp4");
    EXPECT_NEAR(probeNumber(path, "-select_streams v -show_entries stream=duration"), 3.4, 0.001);
    EXPECT_NEAR(probeNumber(path, "-select_streams a -show_entries stream=duration"), 3.4, 0.03);
    const std::vector<std::string> sent = source.payloadMd5(0);
    const std::vector<std::string> found = ffmpegPacketMd5(path, 0);
    ASSERT_GE(found.size(), 98u);
    EXPECT_TRUE(std::equal(found.begin(), found.end(), sent.begin() + 50))
        << "the cut begins at the key frame before the asked begin";
    EXPECT_THAT(decodeErrors(path), IsEmpty());
    EXPECT_EQ(probe(path, "-show_entries format_tags=com.vemo.start"), "2026-01-10T08:00:02.600Z");
}

TEST_F(Cut, joinsFilesAndKeepsTheGapBetweenThemAsTime)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    const ClipSource source(clip);
    const std::int64_t second = origin + 12 * nsPerSecond;
    ASSERT_EQ(cut("t", origin, origin + 20 * nsPerSecond,
                  {{clip, second, second + 8 * nsPerSecond}, {clip, origin, origin + 8 * nsPerSecond}}),
              VAWS_EVENT_FINISHED)
        << TaskDriver::report("t");
    const std::string path = driver.path("t.mp4");
    EXPECT_NEAR(probeNumber(path, "-select_streams v -show_entries stream=duration"), 20.0, 0.05);
    std::vector<std::string> twice = source.payloadMd5(0);
    const std::vector<std::string> once = twice;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(ffmpegPacketMd5(path, 0), twice);
    EXPECT_THAT(shellOutput("ffprobe -v error -show_chapters -of compact '" + path + "'"),
                HasSubstr("start_time=12.0"));
    EXPECT_THAT(TaskDriver::report("t"), HasSubstr("\"begin\":\"2026-01-10T08:00:08"));
}

TEST_F(Cut, isWhatTheExampleOfTheDocumentsShows)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    const std::string path = driver.path("example.mp4");
    int code = 0;
    const std::string said = shellOutput("cd '" + driver.folder().string() + "' && " VAWS_CUT_EXAMPLE " '" + clip +
                                             "' 20260110080000Z 20260110080002Z 20260110080005Z '" + path + "' 2>&1",
                                         &code);
    EXPECT_EQ(code, 0) << said;
    EXPECT_THAT(said, HasSubstr("\"verified\":true"));
    EXPECT_EQ(probe(path, "-show_entries stream=codec_name"), "h264\naac\nmov_text");
    EXPECT_NEAR(probeNumber(path, "-select_streams v -show_entries stream=duration"), 3.0, 0.001);
}

TEST_F(Cut, startsANewOutputForOtherParameterSets)
{
    const std::string one = TaskDriver::clip("h264_aac");
    const std::string other = TaskDriver::clip("h264_small");
    ASSERT_EQ(
        cut("t", origin, origin + 12 * nsPerSecond,
            {{one, origin, origin + 8 * nsPerSecond}, {other, origin + 8 * nsPerSecond, origin + 12 * nsPerSecond}}),
        VAWS_EVENT_FINISHED);
    ASSERT_EQ(driver.toggles().size(), 1u);
    EXPECT_EQ(ffmpegPacketMd5(driver.toggles().front().file, 0), ClipSource(one).payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(driver.path("t.mp4"), 0), ClipSource(other).payloadMd5(0));
}

TEST_F(Cut, cutsAgainWhatItCutAtTheTimesInsideTheFile)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    ASSERT_EQ(
        cut("first", origin + 2'600'000'000, origin + 8 * nsPerSecond, {{clip, origin, origin + 8 * nsPerSecond}}),
        VAWS_EVENT_FINISHED);
    // The record's own span is told in whole seconds; the file knows better.
    ASSERT_EQ(cut("again", origin + 4 * nsPerSecond, origin + 6 * nsPerSecond,
                  {{driver.path("first.mp4"), origin + 2 * nsPerSecond, origin + 8 * nsPerSecond}}),
              VAWS_EVENT_FINISHED);
    const std::vector<std::string> sent = ClipSource(clip).payloadMd5(0);
    const std::vector<std::string> found = ffmpegPacketMd5(driver.path("again.mp4"), 0);
    ASSERT_GE(found.size(), 50u);
    EXPECT_TRUE(std::equal(found.begin(), found.end(), sent.begin() + 100));
    EXPECT_NEAR(probeNumber(driver.path("again.mp4"), "-select_streams v -show_entries stream=duration"), 2.0, 0.001);
}

/// A recording file that another program wrote, made of one of our clips.
struct OtherForm
{
    const char* name;
    const char* clip;
    const char* suffix;
    const char* arguments; ///< of ffmpeg, between the clip and the file
    const char* codecs;    ///< of the cut
};

class CutsOtherForm : public Cut, public testing::WithParamInterface<OtherForm>
{};

TEST_P(CutsOtherForm, pictureByPicture)
{
    const std::string clip = TaskDriver::clip(GetParam().clip);
    const std::string file = driver.path(std::string("other.") + GetParam().suffix);
    const std::string judge = driver.path("judge.mp4");
    const auto remux = [](const std::string& from, const std::string& arguments, const std::string& to) {
        return shellOutput("ffmpeg -v error -i '" + from + "' " + arguments + " '" + to + "' 2>&1");
    };
    ASSERT_EQ(remux(clip, GetParam().arguments, file), "");
    ASSERT_EQ(remux(file, "-map 0:v:0 -c copy", judge), "");
    const auto length = static_cast<std::int64_t>(ClipSource(clip).endNs() - ClipSource(clip).beginNs());
    ASSERT_EQ(cut("t", origin, origin + length, {{file, origin, origin + length}}), VAWS_EVENT_FINISHED)
        << TaskDriver::report("t");
    EXPECT_EQ(TaskDriver::reportText("t", "error"), "");
    const std::string path = driver.path("t.mp4");
    EXPECT_EQ(probe(path, "-show_entries stream=codec_name"), GetParam().codecs);
    EXPECT_EQ(ffmpegPacketMd5(path, 0), ffmpegPacketMd5(judge, 0));
    EXPECT_THAT(decodeErrors(path), IsEmpty());
    EXPECT_NEAR(probeNumber(path, "-show_entries format=duration"), static_cast<double>(length) / nsPerSecond, 0.1);
}

INSTANTIATE_TEST_SUITE_P(
    Files, CutsOtherForm,
    testing::Values(OtherForm{"StartCodes", "h264_aac", "ts", "-an -c copy", "h264"},
                    OtherForm{"StartCodes265", "h265_g711", "ts", "-an -c copy", "hevc"},
                    OtherForm{"Lengths265", "h265_g711", "mov", "-c copy", "hevc\naac"},
                    OtherForm{"MuLaw", "h264_g711", "mov", "-c copy", "h264\naac"},
                    OtherForm{"Mjpeg", "mjpeg", "mkv", "-c copy", "mjpeg"},
                    OtherForm{"Picture", "h264_aac", "mp4",
                              "-f lavfi -i color=s=64x64:d=1:r=1 -map 0 -map 1 -c copy -c:v:1 mjpeg "
                              "-disposition:v:1 attached_pic",
                              "h264\naac"},
                    OtherForm{"NoPictures", "h264_small", "mkv", "-c copy -map 0:v -map 0:a -c:a:0 flac", "h264"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Cut, readsUnitsWhoseLengthsHaveTwoBytes)
{
    const std::string clip = TaskDriver::clip("h264_small");
    std::ifstream in(clip, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), {}};
    bytes.at(bytes.find("avcC") + 8) = static_cast<char>(0xfd);
    const ClipSource source(clip);
    for (const ClipSource::Frame& frame : source.frames()) {
        if (frame.header.track != 0)
            continue;
        std::string units;
        for (std::size_t at = 0; at + 4 < frame.payload.size();) {
            const std::size_t end = at + 4 + (frame.payload[at + 2] << 8 | frame.payload[at + 3]);
            units.append(frame.payload.begin() + static_cast<std::ptrdiff_t>(at + 2),
                         frame.payload.begin() + static_cast<std::ptrdiff_t>(end));
            at = end;
        }
        // The bytes that are left over become a unit of filler, so that nothing else in the file moves.
        const std::size_t filler = frame.payload.size() - units.size() - 2;
        units += {'\0', static_cast<char>(filler)};
        units += std::string("\x0c\xff\xff\xff\xff\xff\xff\xff\xff\xff").substr(0, filler);
        const std::size_t place = bytes.find(std::string(frame.payload.begin(), frame.payload.end()));
        ASSERT_NE(place, std::string::npos);
        bytes.replace(place, units.size(), units);
    }
    const std::string file = driver.path("short.mp4");
    std::ofstream(file, std::ios::binary) << bytes;
    const auto pictures = [](const std::string& path) {
        return shellOutput("ffmpeg -v error -i '" + path + "' -map 0:v -f framemd5 - | grep -v '^#' | cut -d, -f6");
    };
    ASSERT_EQ(cut("t", origin, origin + 4 * nsPerSecond, {{file, origin, origin + 4 * nsPerSecond}}),
              VAWS_EVENT_FINISHED);
    EXPECT_EQ(pictures(driver.path("t.mp4")), pictures(clip));
    EXPECT_THAT(decodeErrors(driver.path("t.mp4")), IsEmpty());
}

TEST_F(Cut, takesWhatTwoFilesHoldBothOnce)
{
    const std::string clip = TaskDriver::clip("h264_plain"); // 6 s, a key frame a second
    struct Row
    {
        const char* task;
        std::int64_t secondBeginMs;
        std::size_t pictures;
        double seconds;
    };
    for (const Row& row : {Row{"hand in hand", 6000, 300, 12}, Row{"a part of a second", 5200, 300, 12},
                           Row{"two seconds", 4000, 250, 10}, Row{"the same", 0, 150, 6}}) {
        const std::int64_t second = origin + row.secondBeginMs * 1'000'000;
        ASSERT_EQ(cut(row.task, origin, origin + 60 * nsPerSecond,
                      {{clip, origin, origin + 6 * nsPerSecond}, {clip, second, second + 6 * nsPerSecond}}),
                  VAWS_EVENT_FINISHED)
            << row.task;
        const std::string path = driver.path(std::string(row.task) + ".mp4");
        EXPECT_EQ(ffmpegPacketMd5(path, 0).size(), row.pictures) << row.task;
        EXPECT_NEAR(probeNumber(path, "-show_entries format=duration"), row.seconds, 0.05) << row.task;
    }
}

TEST_F(Cut, keepsWhatStandsBeforeADamageAndTellsIt)
{
    const std::string clip = TaskDriver::clip("h264_plain");
    const std::string part = driver.path("part.mp4");
    const std::string sound = driver.path("sound.wav");
    shellOutput("ffmpeg -v error -i '" + clip + "' -c copy -movflags +faststart '" + part + "'");
    std::filesystem::resize_file(part, std::filesystem::file_size(part) * 6 / 10);
    shellOutput("ffmpeg -v error -f lavfi -i sine=d=1 -c:a pcm_s16le '" + sound + "'");
    ASSERT_EQ(cut("t", origin, origin + 6 * nsPerSecond, {{part, origin, origin + 6 * nsPerSecond}}),
              VAWS_EVENT_FINISHED);
    EXPECT_THAT(TaskDriver::reportText("t", "error"), HasSubstr("part.mp4\" is damaged"));
    EXPECT_THAT(TaskDriver::report("t"), HasSubstr("not recorded"));
    const std::vector<std::string> sent = ClipSource(clip).payloadMd5(0);
    const std::vector<std::string> found = ffmpegPacketMd5(driver.path("t.mp4"), 0);
    ASSERT_GT(found.size(), 50u);
    ASSERT_LT(found.size(), sent.size());
    EXPECT_TRUE(std::equal(found.begin(), found.end(), sent.begin()));
    EXPECT_EQ(cut("s", origin, origin + nsPerSecond, {{sound, origin, origin + nsPerSecond}}), VAWS_EVENT_INVALID);
    EXPECT_THAT(TaskDriver::reportText("s", "error"), HasSubstr("sound.wav\" holds nothing that an MP4 file can hold"));
}

TEST_F(Cut, namesTheFileThatIsMissingOrBroken)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    std::ofstream(driver.path("rubbish.mp4")) << std::string(5000, 'x');
    EXPECT_EQ(cut("none", origin, origin + nsPerSecond, {{driver.path("missing.mp4"), origin, origin + nsPerSecond}}),
              VAWS_EVENT_INVALID);
    EXPECT_THAT(TaskDriver::reportText("none", "error"), HasSubstr("missing.mp4"));
    EXPECT_EQ(cut("beside", origin, origin + 16 * nsPerSecond,
                  {{clip, origin, origin + 8 * nsPerSecond},
                   {driver.path("rubbish.mp4"), origin + 8 * nsPerSecond, origin + 16 * nsPerSecond}}),
              VAWS_EVENT_FINISHED);
    EXPECT_THAT(TaskDriver::reportText("beside", "error"), HasSubstr("rubbish.mp4"));
    EXPECT_THAT(TaskDriver::report("beside"), HasSubstr("not recorded"));
    EXPECT_EQ(cut("nothing", origin, origin + nsPerSecond, {}), VAWS_EVENT_NO_DATA);
    EXPECT_EQ(cut("outside", origin - 100 * nsPerSecond, origin - 90 * nsPerSecond,
                  {{clip, origin, origin + 8 * nsPerSecond}}),
              VAWS_EVENT_NO_DATA);
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
}

TEST_F(Cut, stopsAndCancelsLikeADownload)
{
    const std::string clip = TaskDriver::clip("h264_aac");
    std::vector<Record> records;
    for (int i = 0; i < 400; ++i)
        records.push_back({clip, origin + i * 8 * nsPerSecond, origin + (i + 1) * 8 * nsPerSecond});
    const auto start = [&](const std::string& task) {
        return vaws_download_time_range(listText(origin, origin + 3200 * nsPerSecond, records).c_str(),
                                        clockText(origin).c_str(), clockText(origin + 3200 * nsPerSecond).c_str(),
                                        driver.path(task + ".mp4").c_str(), task.c_str());
    };
    ASSERT_EQ(start("cancelled"), VAWS_OK);
    ASSERT_TRUE(driver.waitForConsumed("cancelled", 1'000'000));
    EXPECT_EQ(vaws_download_cancel("cancelled"), VAWS_OK);
    EXPECT_THAT(driver.files(), IsEmpty());
    ASSERT_EQ(start("stopped"), VAWS_OK);
    ASSERT_TRUE(driver.waitForConsumed("stopped", 1'000'000));
    std::int64_t count = 0;
    char text[24] = {};
    EXPECT_EQ(vaws_download_stop("stopped", &count, text), VAWS_OK);
    EXPECT_GT(count, 0);
    EXPECT_NEAR(probeNumber(driver.path("stopped.mp4"), "-show_entries format=duration"),
                static_cast<double>(count) / 1000, 0.05);
}

TEST(CutListText, refusesWhatIsNoList)
{
    vaws::CutList list;
    std::string error;
    const std::string head = R"({"begin_time":"20260110080000","end_time":"20260110090000")";
    const auto entry = [](const std::string& begin, const std::string& file) {
        return R"({"file_path":")" + file + R"(","begin_time":")" + begin + R"(","end_time":"20260110090000"})";
    };
    std::string tooMany;
    for (int i = 0; i < 100'000; ++i)
        tooMany += "0,";
    EXPECT_TRUE(list.parse(head + "}", error));
    EXPECT_TRUE(list.parse(
        head + R"(,"records":[{"file_path":"a","begin_time":"20260110080000","end_time":"20260110090000"}]})", error));
    EXPECT_EQ(list.records.size(), 1u);
    for (const std::string& wrong :
         {std::string(), std::string("vavframe"), std::string("{}"), std::string("[]"), head,
          head + R"(,"records":{}})", head + R"(,"records":[1]})", head + R"(,"records":[{"file_path":"a"}]})",
          head + R"(,"records":[)" + entry("20260110080000", "a\\u0000b") + "]}",
          head + R"(,"records":[)" + entry("20260110080000", std::string(4097, 'a')) + "]}",
          head + R"(,"records":[)" + entry("20261310080000", "a") + "]}", head + R"(,"records":[)" + tooMany + "0]}",
          head + R"(,"note":")" + std::string(16 * 1024 * 1024, 'x') + "\"}",
          std::string(R"({"begin_time":"20260110090000","end_time":"20260110080000"})"), std::string(100'000, '['),
          std::string("{\"a\":") + std::string(5000, '[')}) {
        error.clear();
        EXPECT_FALSE(list.parse(wrong, error)) << wrong.substr(0, 80);
        EXPECT_FALSE(error.empty());
    }
}

} // namespace
