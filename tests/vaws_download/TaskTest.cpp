#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::int64_t nsPerSecond = 1'000'000'000;

std::string readText(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class Task : public testing::Test
{
protected:
    void startRange(const std::string& task, const std::string& name, std::int64_t beginNs, std::int64_t endNs)
    {
        ASSERT_EQ(vaws_download_time_range("vavFrame", clockText(beginNs).c_str(), clockText(endNs).c_str(),
                                           driver.path(name).c_str(), task.c_str()),
                  VAWS_OK);
    }

    TaskDriver driver;
};

/// A clip and what its file is to be.
struct ClipCase
{
    const char* clip;
    const char* codecs;
    bool soundAsSent;
};

class WholeClip : public testing::TestWithParam<ClipCase>
{
protected:
    TaskDriver driver;
};

TEST_P(WholeClip, arrivesInTheFileAsItWasSent)
{
    const ClipSource source(TaskDriver::clip(GetParam().clip));
    const std::string path = driver.path("out.mp4");
    ASSERT_EQ(vaws_download_time_range("vavFrame", clockText(source.beginNs()).c_str(),
                                       clockText(source.endNs() + 60 * nsPerSecond).c_str(), path.c_str(), "t"),
              VAWS_OK);
    vaws_download_push_player_event("t", VAWS_PLAYER_CONNECTING);
    vaws_download_push_player_event("t", VAWS_PLAYER_PLAYING);
    driver.pushAll("t", source);
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");

    EXPECT_EQ(boxOrder(path), "ftyp mdat moov");
    EXPECT_EQ(probe(path, "-show_entries stream=codec_name"), GetParam().codecs);
    EXPECT_EQ(ffmpegPacketMd5(path, 0), source.payloadMd5(0));
    if (GetParam().soundAsSent) {
        EXPECT_EQ(ffmpegPacketMd5(path, 1), source.payloadMd5(1));
    }
    EXPECT_THAT(decodeErrors(path), IsEmpty());
    const double seconds = static_cast<double>(source.endNs() - source.beginNs()) / nsPerSecond;
    EXPECT_NEAR(probeNumber(path, "-show_entries format=duration"), seconds, 0.041);
    EXPECT_NEAR(probeNumber(path, "-show_entries format=start_time"), 0, 0.001);
    EXPECT_EQ(probe(path, "-show_entries format_tags=title"), "Gate");
    EXPECT_EQ(probe(path, "-show_entries format_tags=artist"), "Recorder 1");
    EXPECT_EQ(probe(path, "-show_entries format_tags=creation_time"), "2026-01-10T08:00:00.000000Z");
    EXPECT_EQ(probe(path, "-show_entries format_tags=com.vemo.start"), "2026-01-10T08:00:00.000Z");
    EXPECT_EQ(TaskDriver::reportNumber("t", "verified"), 1);
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
    std::vector<int> events = driver.events("t");
    events.erase(std::remove(events.begin(), events.end(), VAWS_EVENT_PROGRESS), events.end());
    EXPECT_THAT(events,
                ElementsAre(VAWS_EVENT_WAITING, VAWS_EVENT_CONNECTING, VAWS_EVENT_PLAYING, VAWS_EVENT_FINISHED));
}

INSTANTIATE_TEST_SUITE_P(Clips, WholeClip,
                         testing::Values(ClipCase{"h264_aac", "h264\naac", true}, ClipCase{"h264_open", "h264", true},
                                         ClipCase{"h264_plain", "h264", true},
                                         ClipCase{"h265_g711", "hevc\naac", false},
                                         ClipCase{"h264_g711", "h264\naac", false}, ClipCase{"mjpeg", "mjpeg", true}),
                         [](const auto& row) { return std::string(row.param.clip); });

/// Frames of the source as they would come when the recorder has nothing between `fromS` and `toS`.
void cutOut(ClipSource& source, double fromS, double toS, std::uint8_t flag)
{
    const std::int64_t from = source.beginNs() + static_cast<std::int64_t>(fromS * nsPerSecond);
    const std::int64_t to = source.beginNs() + static_cast<std::int64_t>(toS * nsPerSecond);
    auto& frames = source.frames();
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                                [&](const ClipSource::Frame& frame) {
                                    return frame.header.timeNs >= from && frame.header.timeNs < to;
                                }),
                 frames.end());
    for (int track : {0, 1}) {
        const auto first = std::find_if(frames.begin(), frames.end(), [&](const ClipSource::Frame& frame) {
            return frame.header.track == track && frame.header.timeNs >= to;
        });
        if (first != frames.end())
            first->header.flags = static_cast<std::uint8_t>(first->header.flags | flag);
    }
}

struct GapCase
{
    const char* name;
    std::uint8_t flag;
    const char* cause;
};

class GapInside : public testing::TestWithParam<GapCase>
{
protected:
    TaskDriver driver;
};

TEST_P(GapInside, isLeftOutOfTheMovieAndBecomesAChapter)
{
    ClipSource::Options options;
    options.seconds = 40;
    ClipSource source(TaskDriver::clip("h264_aac"), options);
    cutOut(source, 10, 30, GetParam().flag);
    const std::string path = driver.path("gap.mp4");
    vaws_download_time_range("vavFrame", clockText(source.beginNs()).c_str(),
                             clockText(source.beginNs() + 40 * nsPerSecond).c_str(), path.c_str(), "t");
    driver.pushAll("t", source);
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");

    EXPECT_NEAR(probeNumber(path, "-select_streams v -show_entries stream=duration"), 20.0, 0.041);
    EXPECT_NEAR(probeNumber(path, "-select_streams a -show_entries stream=duration"), 20.0, 0.06);
    EXPECT_EQ(ffmpegPacketMd5(path, 0), source.payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(path, 1), source.payloadMd5(1));
    const std::string chapters = shellOutput("ffprobe -v error -show_chapters -of compact '" + path + "'");
    EXPECT_THAT(chapters, HasSubstr(std::string("after 20 s ") + GetParam().cause));
    EXPECT_THAT(chapters, HasSubstr("start_time=10.0"));
    EXPECT_THAT(
        TaskDriver::report("t"),
        HasSubstr(std::string("\"gaps\":[{\"begin\":\"2026-01-10T08:00:10.000Z\",\"end\":\"2026-01-10T08:00:30.000Z\","
                              "\"cause\":\"") +
                  GetParam().cause + "\"}]"));
    EXPECT_EQ(TaskDriver::reportText("t", "end"), "2026-01-10T08:00:40.000Z");
}

INSTANTIATE_TEST_SUITE_P(Causes, GapInside,
                         testing::Values(GapCase{"Flagged", vav::Discontinuity, "not recorded"},
                                         GapCase{"Jump", 0, "not recorded"},
                                         GapCase{"Loss", vav::LossBefore, "lost in transfer"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Task, startsAndEndsExactlyAtTheAskedTimesAndEndsByItself)
{
    ClipSource::Options options;
    options.seconds = 20;
    const ClipSource source(TaskDriver::clip("h264_aac"), options);
    const std::int64_t begin = source.beginNs() + 5'240'000'000;
    const std::int64_t end = source.beginNs() + 11'500'000'000;
    startRange("t", "span.mp4", begin, end);
    driver.pushAll("t", source);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");
    const std::string path = driver.path("span.mp4");
    EXPECT_NEAR(probeNumber(path, "-select_streams v -show_entries stream=duration"), 6.26, 0.001);
    EXPECT_NEAR(probeNumber(path, "-show_entries format=duration"), 6.26, 0.03);
    EXPECT_EQ(probe(path, "-show_entries format_tags=com.vemo.start"), "2026-01-10T08:00:05.240Z");
    // The key frame before the begin is at 4 s; everything from there to the last picture before the end is in the
    // file, once.
    const std::vector<std::string> sent = source.payloadMd5(0);
    const std::vector<std::string> found = ffmpegPacketMd5(path, 0);
    ASSERT_GE(found.size(), 187u);
    EXPECT_LE(found.size(), 191u);
    EXPECT_TRUE(std::equal(found.begin(), found.end(), sent.begin() + 100));
    EXPECT_THAT(decodeErrors(path), IsEmpty());
    // What is shown first is the picture at the asked begin: as many shown as the span holds.
    EXPECT_NEAR(probeNumber(path, "-count_frames -select_streams v -show_entries stream=nb_read_frames"), 157, 1);
    EXPECT_EQ(driver.consumed("t") > 0, true);
}

TEST_F(Task, leavesOutWhatTheRecorderSendsBeforeTheKeyFrameOfTheBegin)
{
    const ClipSource source(TaskDriver::clip("h264_plain"));
    startRange("t", "late.mp4", source.beginNs() + 3'000'000'000, source.beginNs() + 5'000'000'000);
    driver.pushAll("t", source);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED);
    const std::vector<std::string> sent = source.payloadMd5(0);
    EXPECT_EQ(ffmpegPacketMd5(driver.path("late.mp4"), 0),
              std::vector<std::string>(sent.begin() + 75, sent.begin() + 125));
}

TEST_F(Task, continuesARecordingBehindWhatIsAlreadyThere)
{
    ClipSource source(TaskDriver::clip("h264_aac"));
    ASSERT_EQ(vaws_download_file("vavFrame", 4000, driver.path("rest.mp4").c_str(), "t"), VAWS_OK);
    driver.pushAll("t", source);
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");
    EXPECT_NEAR(probeNumber(driver.path("rest.mp4"), "-show_entries format=duration"), 4.0, 0.041);
    std::int64_t count = 0;
    char text[24] = {};
    EXPECT_EQ(vaws_download_stop("t", &count, text), VAWS_OK);
    EXPECT_NEAR(static_cast<double>(count), 8000, 41);
}

TEST_F(Task, startsANewFileWhenTheParameterSetsChange)
{
    const ClipSource first(TaskDriver::clip("h264_aac"));
    ClipSource::Options options;
    options.beginNs = first.endNs();
    const ClipSource second(TaskDriver::clip("h264_small"), options);
    const std::string path = driver.path("cam.mp4");
    startRange("t", "cam.mp4", first.beginNs(), second.endNs() + nsPerSecond);
    driver.pushAll("t", first);
    driver.pushAll("t", second);
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED) << TaskDriver::report("t");
    ASSERT_EQ(driver.toggles().size(), 1u);
    const TaskDriver::Toggle toggle = driver.toggles().front();
    EXPECT_THAT(toggle.file, HasSubstr("cam_2026"));
    EXPECT_NEAR(toggle.offsetMs, 8000, 45);
    EXPECT_EQ(ffmpegPacketMd5(toggle.file, 0), first.payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(toggle.file, 1), first.payloadMd5(1));
    EXPECT_EQ(ffmpegPacketMd5(path, 0), second.payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(path, 1), second.payloadMd5(1));
    EXPECT_EQ(probe(path, "-select_streams v -show_entries stream=width"), "320");
    EXPECT_THAT(driver.events("t"), Contains(VAWS_EVENT_FILE_SWITCHED));
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
}

TEST_F(Task, startsANewFileAtTheSizeLimitWithoutLosingAFrame)
{
    ClipSource::Options options;
    options.seconds = 32;
    const ClipSource source(TaskDriver::clip("h264_aac"), options);
    ASSERT_EQ(vaws_download_set_file_limit(1'000'000), VAWS_OK);
    startRange("t", "cap.mp4", source.beginNs(), source.endNs());
    ASSERT_EQ(vaws_download_set_file_limit(0), VAWS_OK);
    driver.pushAll("t", source);
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED);
    ASSERT_GE(driver.toggles().size(), 2u);
    std::vector<std::string> found[2];
    double seconds = 0;
    std::vector<std::string> files;
    for (const TaskDriver::Toggle& toggle : driver.toggles())
        files.push_back(toggle.file);
    files.push_back(driver.path("cap.mp4"));
    for (const std::string& file : files) {
        seconds += probeNumber(file, "-select_streams v -show_entries stream=duration");
        for (int track : {0, 1}) {
            const std::vector<std::string> part = ffmpegPacketMd5(file, track);
            found[track].insert(found[track].end(), part.begin(), part.end());
        }
    }
    EXPECT_EQ(found[0], source.payloadMd5(0));
    EXPECT_EQ(found[1], source.payloadMd5(1));
    EXPECT_NEAR(seconds, 32.0, 0.05);
}

TEST_F(Task, startsANewFileWhenTheRecorderGoesBackInTime)
{
    const ClipSource source(TaskDriver::clip("h264_plain"));
    ClipSource back(TaskDriver::clip("h264_plain"));
    for (ClipSource::Frame& frame : back.frames())
        frame.header.timeNs -= 3 * nsPerSecond;
    startRange("t", "back.mp4", source.beginNs() - 10 * nsPerSecond, source.endNs() + 10 * nsPerSecond);
    driver.pushAll("t", source);
    driver.pushAll("t", back);
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED);
    ASSERT_EQ(driver.toggles().size(), 1u);
    EXPECT_EQ(ffmpegPacketMd5(driver.toggles().front().file, 0), source.payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(driver.path("back.mp4"), 0), source.payloadMd5(0));
}

TEST_F(Task, stopKeepsAFinishedFileAndTellsHowFarItGot)
{
    ClipSource::Options options;
    options.seconds = 60;
    const ClipSource source(TaskDriver::clip("h264_aac"), options);
    startRange("t", "stopped.mp4", source.beginNs(), source.beginNs() + 3600 * nsPerSecond);
    driver.pushAll("t", source);
    std::int64_t count = 0;
    char text[24] = {};
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(vaws_download_stop("t", &count, text), VAWS_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(400));
    const std::size_t callbacks = driver.callbackCount();
    EXPECT_NEAR(static_cast<double>(count), 60'000, 41);
    EXPECT_EQ(std::string(text).size(), 14u);
    EXPECT_EQ(boxOrder(driver.path("stopped.mp4")), "ftyp mdat moov");
    EXPECT_EQ(ffmpegPacketMd5(driver.path("stopped.mp4"), 0), source.payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(driver.path("stopped.mp4"), 1), source.payloadMd5(1));
    EXPECT_EQ(vaws_download_get_status("t"), VAWS_STATUS_ENDED);
    EXPECT_EQ(driver.callbackCount(), callbacks) << "a callback came after stop had returned";
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
}

/// How a task by time range may end before its span does.
struct EarlyEnd
{
    const char* name;
    double seconds; ///< of footage that came
    bool broken;
    std::int64_t wholeSeconds; ///< to be kept; 0: no file
};

class EndsEarly : public testing::TestWithParam<EarlyEnd>
{
protected:
    TaskDriver driver;
};

TEST_P(EndsEarly, onAWholeSecondFromWhichTheRestIsAskedFor)
{
    ClipSource::Options options;
    options.seconds = 12;
    ClipSource source(TaskDriver::clip("h264_aac"), options);
    auto& frames = source.frames();
    const std::int64_t until = source.beginNs() + static_cast<std::int64_t>(GetParam().seconds * nsPerSecond);
    frames.erase(std::remove_if(frames.begin(), frames.end(),
                                [&](const ClipSource::Frame& frame) { return frame.header.timeNs >= until; }),
                 frames.end());
    vaws_download_set_whole_seconds(1);
    const std::string path = driver.path("part.mp4");
    vaws_download_time_range("vavFrame", clockText(source.beginNs()).c_str(),
                             clockText(source.beginNs() + 3600 * nsPerSecond).c_str(), path.c_str(), "t");
    vaws_download_set_whole_seconds(0);
    const std::int64_t pushed = driver.pushAll("t", source);
    if (GetParam().broken) {
        vaws_download_push_player_event("t", VAWS_PLAYER_BROKEN);
        ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_BROKEN);
    }
    ASSERT_TRUE(driver.waitForConsumed("t", pushed)); // stop() writes for so long and no longer
    std::int64_t count = 0;
    char text[24] = {};
    ASSERT_EQ(vaws_download_stop("t", &count, text), VAWS_OK);
    const std::int64_t kept = GetParam().wholeSeconds;
    if (kept == 0) {
        EXPECT_STREQ(text, "");
        EXPECT_THAT(driver.files(), IsEmpty());
        return;
    }
    // clockText() is UTC, the library tells local time; the tests run in one zone of whole hours.
    EXPECT_EQ(std::string(text).substr(10), clockText(source.beginNs() + kept * nsPerSecond).substr(10, 4));
    EXPECT_NEAR(probeNumber(path, "-select_streams v -show_entries stream=duration"), static_cast<double>(kept), 0.001);
    EXPECT_NEAR(probeNumber(path, "-count_frames -select_streams v -show_entries stream=nb_read_frames"),
                static_cast<double>(kept) * 25, 0.5);
    EXPECT_THAT(decodeErrors(path), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Ends, EndsEarly,
                         testing::Values(EarlyEnd{"Stopped", 7.6, false, 7}, EarlyEnd{"Broken", 7.6, true, 7},
                                         EarlyEnd{"OnTheSecond", 8.0, false, 8}, EarlyEnd{"TooShort", 0.5, false, 0},
                                         EarlyEnd{"TooShortBroken", 0.5, true, 0}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Task, cancelRemovesItsFileAndNothingElse)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    std::ofstream(driver.path("neighbour.mp4")) << "precious";
    startRange("t", "cancelled.mp4", source.beginNs(), source.beginNs() + 3600 * nsPerSecond);
    driver.pushAll("t", source);
    ASSERT_EQ(vaws_download_cancel("t"), VAWS_OK);
    const std::size_t callbacks = driver.callbackCount();
    EXPECT_THAT(driver.files(), ElementsAre("neighbour.mp4"));
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
    EXPECT_EQ(driver.callbackCount(), callbacks);
}

#if defined(__linux__)
TEST_F(Task, keepsNoThreadOfASoundThatNobodyWaitsFor)
{
    const auto threads = [] {
        const std::filesystem::directory_iterator tasks("/proc/self/task");
        return std::distance(begin(tasks), std::filesystem::directory_iterator());
    };
    const ClipSource source(TaskDriver::clip("h265_g711"));
    const auto before = threads();
    for (const std::string task : {"one", "other", "third"}) {
        startRange(task, task + ".mp4", source.beginNs(), source.beginNs() + 3600 * nsPerSecond);
        driver.pushAll(task, source);
        EXPECT_GT(threads(), before);
        ASSERT_EQ(vaws_download_cancel(task.c_str()), VAWS_OK);
    }
    for (int i = 0; i < 200 && threads() > before; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(threads(), before);
}
#endif

TEST_F(Task, goesOnAfterAPauseWithoutAHole)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    startRange("t", "paused.mp4", source.beginNs(), source.endNs());
    const std::vector<std::vector<std::uint8_t>> batches = source.batches();
    std::int64_t pushed = 0;
    for (std::size_t i = 0; i < batches.size(); ++i) {
        driver.push("t", batches[i]);
        pushed += static_cast<std::int64_t>(batches[i].size());
        if (i != batches.size() / 2)
            continue;
        ASSERT_EQ(vaws_download_pause("t"), VAWS_OK);
        EXPECT_EQ(vaws_download_get_status("t"), VAWS_STATUS_PAUSED);
        EXPECT_TRUE(driver.waitForConsumed("t", pushed)) << "a pause does not leave anything unwritten";
        ASSERT_EQ(vaws_download_resume("t"), VAWS_OK);
        EXPECT_EQ(vaws_download_get_status("t"), VAWS_STATUS_RUNNING);
    }
    vaws_download_push_player_event("t", VAWS_PLAYER_ENDED);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_FINISHED);
    EXPECT_EQ(ffmpegPacketMd5(driver.path("paused.mp4"), 0), source.payloadMd5(0));
    EXPECT_TRUE(driver.waitForConsumed("t", pushed));
    EXPECT_EQ(driver.consumed("t"), pushed);
}

TEST_F(Task, neverOpensAFileThatStandsThere)
{
    std::ofstream(driver.path("mine.mp4")) << "precious";
    std::filesystem::create_symlink(driver.path("nowhere.mp4"), driver.path("link.mp4"));
    const ClipSource source(TaskDriver::clip("h264_plain"));
    for (const std::string name : {"mine.mp4", "link.mp4"}) {
        startRange(name, name, source.beginNs(), source.endNs());
        EXPECT_EQ(driver.waitForEnd(name), VAWS_EVENT_WRITE_ERROR);
        EXPECT_THAT(TaskDriver::reportText(name, "error"), HasSubstr("already stands there"));
        EXPECT_THAT(TaskDriver::reportText(name, "error"), HasSubstr(name));
    }
    EXPECT_EQ(readText(driver.path("mine.mp4")), "precious");
    EXPECT_FALSE(std::filesystem::exists(driver.path("nowhere.mp4")));
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
}

TEST_F(Task, tellsWhyAPathCannotBeWritten)
{
    std::ofstream(driver.path("file")) << "no folder";
    const ClipSource source(TaskDriver::clip("h264_plain"));
    startRange("t", "file/out.mp4", source.beginNs(), source.endNs());
    EXPECT_EQ(driver.waitForEnd("t"), VAWS_EVENT_WRITE_ERROR);
    EXPECT_THAT(TaskDriver::reportText("t", "error"), HasSubstr("file/out.mp4"));
    EXPECT_GT(TaskDriver::reportNumber("t", "errno"), 0);
}

TEST_F(Task, refusesToStartOnAFullDiskAndTellsOnceWhenItFills)
{
    const ClipSource source(TaskDriver::clip("h264_plain"));
    setenv("VEMO_DISK_RESERVE_BYTES", "4611686018427387904", 1);
    EXPECT_EQ(
        vaws_download_time_range("vavFrame", "20260110080000", "20260110080100", driver.path("x.mp4").c_str(), "t"),
        VAWS_REFUSED);
    setenv("VEMO_DISK_RESERVE_BYTES", "1", 1);
    startRange("t", "x.mp4", source.beginNs(), source.endNs());
    unsetenv("VEMO_DISK_RESERVE_BYTES");
    EXPECT_EQ(vaws_download_cancel("t"), VAWS_OK);
}

/// What a sender may do wrong, as bytes pushed behind a good beginning.
struct BadPackets
{
    const char* name;
    std::vector<std::uint8_t> bytes;
};

class BadInput : public testing::TestWithParam<BadPackets>
{
protected:
    TaskDriver driver;
};

TEST_P(BadInput, failsTheTaskAndKeepsWhatWasThere)
{
    const ClipSource source(TaskDriver::clip("h264_plain"));
    const std::string path = driver.path("bad.mp4");
    vaws_download_time_range("vavFrame", clockText(source.beginNs()).c_str(),
                             clockText(source.endNs() + nsPerSecond).c_str(), path.c_str(), "t");
    driver.pushAll("t", source);
    driver.push("t", GetParam().bytes);
    EXPECT_EQ(driver.waitForEnd("t"), VAWS_EVENT_INVALID);
    EXPECT_THAT(TaskDriver::reportText("t", "error"), Not(IsEmpty()));
    EXPECT_EQ(ffmpegPacketMd5(path, 0), source.payloadMd5(0));
    EXPECT_EQ(boxOrder(path), "ftyp mdat moov");
}

std::vector<std::uint8_t> headerWith(std::size_t offset, std::uint8_t value)
{
    std::vector<std::uint8_t> bytes(vav::headerBytes);
    vav::FrameHeader header;
    header.timeNs = 1;
    vav::writeFrameHeader(bytes.data(), header);
    bytes[offset] = value;
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(Packets, BadInput,
                         testing::Values(BadPackets{"CutHeader", std::vector<std::uint8_t>(17, 0x56)},
                                         BadPackets{"Magic", headerWith(0, 0)}, BadPackets{"Version", headerWith(4, 9)},
                                         BadPackets{"CutPayload", headerWith(8, 20)},
                                         BadPackets{"Oversized", headerWith(11, 0x7f)},
                                         BadPackets{"Track", headerWith(6, 200)}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Task, endsWithTheEventOfThePlayer)
{
    const std::vector<std::pair<int, int>> rows = {{VAWS_PLAYER_FAILED, VAWS_EVENT_CONNECT_FAILED},
                                                   {VAWS_PLAYER_LOGIN_REFUSED, VAWS_EVENT_LOGIN_FAILED},
                                                   {VAWS_PLAYER_LIMIT_REACHED, VAWS_EVENT_LIMIT_REACHED},
                                                   {VAWS_PLAYER_ENDED, VAWS_EVENT_NO_DATA},
                                                   {VAWS_PLAYER_BROKEN, VAWS_EVENT_BROKEN}};
    for (const auto& [player, event] : rows) {
        const std::string task = "p" + std::to_string(player);
        ASSERT_EQ(vaws_download_file("vavFrame", 0, driver.path(task + ".mp4").c_str(), task.c_str()), VAWS_OK);
        vaws_download_push_player_event(task.c_str(), player);
        EXPECT_EQ(driver.waitForEnd(task), event) << "player event " << player;
        EXPECT_EQ(vaws_download_get_status(task.c_str()), VAWS_STATUS_ENDED);
    }
    EXPECT_THAT(driver.files(), IsEmpty());
    EXPECT_EQ(
        vaws_download_time_range("nonsense", "20260110080000", "20260110080100", driver.path("n.mp4").c_str(), "n"),
        VAWS_OK);
    EXPECT_EQ(driver.waitForEnd("n"), VAWS_EVENT_INVALID);
    EXPECT_EQ(
        vaws_download_time_range("vavFrame", "20260110080100", "20260110080000", driver.path("n.mp4").c_str(), "n"),
        VAWS_BAD_ARGUMENT);
    EXPECT_EQ(vaws_download_stop("unknown", nullptr, nullptr), VAWS_UNKNOWN_TASK);
}

TEST_F(Task, keepsWhatCameWhenTheStreamBreaksOff)
{
    const ClipSource source(TaskDriver::clip("h264_aac"));
    startRange("t", "broken.mp4", source.beginNs(), source.beginNs() + 3600 * nsPerSecond);
    driver.pushAll("t", source);
    vaws_download_push_player_event("t", VAWS_PLAYER_BROKEN);
    ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_BROKEN);
    EXPECT_EQ(ffmpegPacketMd5(driver.path("broken.mp4"), 0), source.payloadMd5(0));
    std::int64_t count = 0;
    char text[24] = {};
    EXPECT_EQ(vaws_download_stop("t", &count, text), VAWS_OK);
    EXPECT_NEAR(static_cast<double>(count), 8000, 41) << "an ended task still tells how far it got";
}

} // namespace
