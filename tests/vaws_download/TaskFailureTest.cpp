#include "GrowingFile.h"
#include "SmallDisk.h"
#include "TaskDriver.h"
#include "TaskJournal.h"

#include <fcntl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <fstream>
#include <map>
#include <thread>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::int64_t nsPerSecond = 1'000'000'000;

class Failing : public testing::Test
{
protected:
    int start(const std::string& task, const std::string& name)
    {
        return vaws_download_time_range("vavFrame", clockText(source.beginNs()).c_str(),
                                        clockText(source.beginNs() + 3600 * nsPerSecond).c_str(),
                                        driver.path(name).c_str(), task.c_str());
    }
    /// Pushes some batches and has all of it written, as a pause does.
    void write(const std::string& task, const std::vector<std::vector<std::uint8_t>>& batches, std::size_t from,
               std::size_t to)
    {
        for (std::size_t i = from; i < to; ++i) {
            driver.push(task, batches[i]);
            m_pushed[task] += static_cast<std::int64_t>(batches[i].size());
        }
        vaws_download_pause(task.c_str());
        driver.waitForConsumed(task, m_pushed[task]);
        vaws_download_resume(task.c_str());
    }
    /// Until `holds`, for 20 s at most.
    template <class Condition>
    static bool waitUntil(Condition&& holds)
    {
        for (int round = 0; round < 2000; ++round) {
            if (holds())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    }

    ClipSource source{TaskDriver::clip("h264_aac")};
    TaskDriver driver;

private:
    std::map<std::string, std::int64_t> m_pushed;
};

TEST_F(Failing, keepsWhatPlaysWhereTheDiskTakesNoMore)
{
    const std::vector<std::string> sent = source.payloadMd5(0);
    const auto batches = source.batches(16 * 1024);
    std::size_t finished = 0;
    std::size_t leftToRepair = 0;
    for (const std::uint64_t room : {0, 512, 4096, 32 * 1024}) {
        const std::string name = std::to_string(room) + ".mp4";
        ASSERT_EQ(start(name, name), VAWS_OK);
        write(name, batches, 0, batches.size() / 2);
        {
            const SmallDisk disk(std::filesystem::file_size(driver.path(name)) + room);
            write(name, batches, batches.size() / 2, batches.size());
            ASSERT_EQ(driver.waitForEnd(name), VAWS_EVENT_WRITE_ERROR) << room;
            EXPECT_EQ(vaws_download_stop(name.c_str(), nullptr, nullptr), VAWS_OK);
        }
        EXPECT_THAT(TaskDriver::reportText(name, "error"), HasSubstr(name + "\" could not be written: File too large"));
        EXPECT_EQ(TaskDriver::reportNumber(name, "errno"), EFBIG);
        const std::vector<std::string> found = ffmpegPacketMd5(driver.path(name), 0);
        EXPECT_GT(found.size(), 50u) << room;
        EXPECT_TRUE(found.size() < sent.size() && std::equal(found.begin(), found.end(), sent.begin())) << room;
        const bool verified = TaskDriver::reportNumber(name, "verified") == 1;
        ++(verified ? finished : leftToRepair);
        EXPECT_EQ(TaskDriver::reportText(name, "files"), verified ? "[\"" + driver.path(name) + "\"]" : "[]");
        EXPECT_EQ(driver.journalFiles().size(), leftToRepair) << room;
        if (verified) {
            EXPECT_EQ(TaskDriver::reportNumber(name, "bytes"),
                      static_cast<long long>(std::filesystem::file_size(driver.path(name))));
        }
    }
    EXPECT_GT(finished, 0u) << "the index had room";
    EXPECT_GT(leftToRepair, 0u) << "the index had no room";
}

TEST_F(Failing, showsWholeSecondsOrNothing)
{
    const auto batches = source.batches(16 * 1024);
    for (const auto& [name, before] :
         {std::pair{"long.mp4", batches.size() / 2}, std::pair{"short.mp4", std::size_t{3}}}) {
        vaws_download_set_whole_seconds(1);
        ASSERT_EQ(start(name, name), VAWS_OK);
        vaws_download_set_whole_seconds(0);
        write(name, batches, 0, before);
        ASSERT_GT(TaskDriver::reportNumber(name, "frames"), 0);
        const bool kept = before > 3;
        const SmallDisk disk(std::filesystem::file_size(driver.path(name)) + 64 * 1024);
        write(name, batches, before, batches.size());
        ASSERT_EQ(driver.waitForEnd(name), VAWS_EVENT_WRITE_ERROR);
        EXPECT_EQ(std::filesystem::exists(driver.path(name)), kept);
        EXPECT_EQ(TaskDriver::reportNumber(name, "bytes") > 0, kept) << "bytes are told of a file that is not there";
        EXPECT_EQ(TaskDriver::reportNumber(name, "frames") > 0, kept);
    }
    const double seconds = probeNumber(driver.path("long.mp4"), "-select_streams v -show_entries stream=duration");
    EXPECT_GE(seconds, 1.0);
    EXPECT_NEAR(seconds, std::round(seconds), 0.001);
}

TEST_F(Failing, countsTheFilesBeforeTheOneThatFailed)
{
    ClipSource::Options options;
    options.beginNs = source.endNs();
    const ClipSource second(TaskDriver::clip("h264_small"), options);
    const auto batches = second.batches(16 * 1024);
    ASSERT_EQ(start("t", "cam.mp4"), VAWS_OK);
    const auto whole = source.batches();
    write("t", whole, 0, whole.size());
    write("t", batches, 0, batches.size() / 2);
    ASSERT_EQ(driver.toggles().size(), 1u);
    {
        const SmallDisk disk(std::filesystem::file_size(driver.path("cam.mp4")) + 32 * 1024);
        write("t", batches, batches.size() / 2, batches.size());
        ASSERT_EQ(driver.waitForEnd("t"), VAWS_EVENT_WRITE_ERROR);
    }
    EXPECT_EQ(TaskDriver::reportNumber("t", "bytes"),
              static_cast<long long>(std::filesystem::file_size(driver.toggles().front().file) +
                                     std::filesystem::file_size(driver.path("cam.mp4"))));
}

TEST_F(Failing, takesAnotherNameWhereTheSpansNameIsTaken)
{
    ClipSource::Options options;
    options.beginNs = source.endNs();
    const ClipSource second(TaskDriver::clip("h264_small"), options);
    for (const char* task : {"one", "two"}) {
        ASSERT_EQ(start(task, "cam.mp4"), VAWS_OK);
        driver.pushAll(task, source);
        driver.pushAll(task, second);
        vaws_download_push_player_event(task, VAWS_PLAYER_ENDED);
        ASSERT_EQ(driver.waitForEnd(task), VAWS_EVENT_FINISHED);
        EXPECT_EQ(vaws_download_stop(task, nullptr, nullptr), VAWS_OK);
        std::filesystem::remove(driver.path("cam.mp4"));
    }
    ASSERT_EQ(driver.toggles().size(), 2u);
    EXPECT_THAT(driver.toggles()[1].file, EndsWith(" (2).mp4"));
    EXPECT_EQ(ffmpegPacketMd5(driver.toggles()[0].file, 0), source.payloadMd5(0));
    EXPECT_EQ(ffmpegPacketMd5(driver.toggles()[1].file, 0), source.payloadMd5(0));
}

TEST_F(Failing, makesNoFileWithoutItsJournal)
{
    std::filesystem::remove_all(driver.journals());
    ASSERT_EQ(start("t", "out.mp4"), VAWS_OK);
    driver.pushAll("t", source);
    EXPECT_EQ(driver.waitForEnd("t"), VAWS_EVENT_WRITE_ERROR);
    EXPECT_THAT(TaskDriver::reportText("t", "error"), HasSubstr("could not be written: the folder does not exist"));
    EXPECT_THAT(driver.files(), IsEmpty());
}

TEST_F(Failing, doesNotTouchAFileThatCameMeanwhile)
{
    ASSERT_EQ(start("t", "out.mp4"), VAWS_OK);
    ASSERT_TRUE(waitUntil([&] { return !driver.events("t").empty(); }));
    ASSERT_TRUE(waitUntil([&] { return vaws_download_get_status("t") == VAWS_STATUS_WAITING; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(50)); // the first look at the path is over
    std::ofstream(driver.path("out.mp4")) << "precious";
    driver.pushAll("t", source);
    EXPECT_EQ(driver.waitForEnd("t"), VAWS_EVENT_WRITE_ERROR);
    EXPECT_THAT(TaskDriver::reportText("t", "error"), HasSubstr("already stands there"));
    EXPECT_EQ(std::filesystem::file_size(driver.path("out.mp4")), 8u);
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
}

TEST_F(Failing, holdsNoMoreInMemoryThanItSays)
{
    ASSERT_EQ(start("t", "out.mp4"), VAWS_OK);
    driver.push("t", std::vector<std::uint8_t>(97u * 1024 * 1024));
    EXPECT_EQ(driver.waitForEnd("t"), VAWS_EVENT_WRITE_ERROR);
    EXPECT_THAT(TaskDriver::reportText("t", "error"), HasSubstr("slower than the recording arrives"));
    EXPECT_TRUE(waitUntil([] { return vaws_download_get_backlog("t") == 0; })) << "what was pushed is given back";
}

TEST_F(Failing, tellsOnceThatTheDiskIsNearlyFull)
{
    constexpr std::uintmax_t much = 256u * 1024 * 1024;
    const std::uintmax_t free = std::filesystem::space(driver.folder()).available;
    if (free < 8 * much)
        GTEST_SKIP() << "too little room to fill some of it";
    setenv("VEMO_DISK_RESERVE_BYTES", std::to_string(free - much).c_str(), 1);
    const int started = start("t", "out.mp4");
    unsetenv("VEMO_DISK_RESERVE_BYTES");
    ASSERT_EQ(started, VAWS_OK);
    const int filler = open(driver.path("filler").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
    const int refused = posix_fallocate(filler, 0, static_cast<off_t>(2 * much));
    ASSERT_EQ(refused, 0);
    const auto isLow = [&] {
        const std::vector<int> events = driver.events("t");
        return std::count(events.begin(), events.end(), VAWS_EVENT_DISK_LOW);
    };
    EXPECT_TRUE(waitUntil([&] { return isLow() > 0; }));
    std::this_thread::sleep_for(std::chrono::milliseconds(1200)); // the next look at the disk
    EXPECT_EQ(isLow(), 1);
    close(filler);
    EXPECT_EQ(vaws_download_cancel("t"), VAWS_OK);
}

TEST_F(Failing, refusesCallsThatMakeNoSense)
{
    const char* const path = "/nowhere/out.mp4";
    const std::string longId(257, 'x');
    const std::string longPath(4097, 'x');
    const char* const begin = "20260110080000";
    const char* const end = "20260110090000";
    struct Row
    {
        const char* name;
        int result;
    };
    for (const Row& row :
         {Row{"folder", vaws_download_init_sdk(nullptr)}, Row{"empty folder", vaws_download_init_sdk("")},
          Row{"a device as folder", vaws_download_init_sdk("/dev/null")},
          Row{"limit", vaws_download_set_file_limit(-1)}, Row{"source", vaws_download_file(nullptr, 0, path, "t")},
          Row{"path", vaws_download_file("vavFrame", 0, nullptr, "t")},
          Row{"no path", vaws_download_file("vavFrame", 0, "", "t")},
          Row{"long path", vaws_download_file("vavFrame", 0, longPath.c_str(), "t")},
          Row{"id", vaws_download_file("vavFrame", 0, path, nullptr)},
          Row{"long id", vaws_download_file("vavFrame", 0, path, longId.c_str())},
          Row{"before the begin", vaws_download_file("vavFrame", -1, path, "t")},
          Row{"begin", vaws_download_time_range("vavFrame", nullptr, end, path, "t")},
          Row{"begin that is none", vaws_download_time_range("vavFrame", "now", end, path, "t")},
          Row{"end", vaws_download_time_range("vavFrame", begin, nullptr, path, "t")},
          Row{"no span", vaws_download_time_range("vavFrame", begin, begin, path, "t")},
          Row{"data", vaws_download_push_vavframe("t", nullptr, 1)}, Row{"pause", vaws_download_pause(nullptr)},
          Row{"report", vaws_download_get_report(nullptr, nullptr, 0)}})
        EXPECT_EQ(row.result, VAWS_BAD_ARGUMENT) << row.name;
    for (const int result :
         {vaws_download_push_vavframe("t", "", 0), vaws_download_push_player_event("t", 2), vaws_download_pause("t"),
          vaws_download_resume("t"), vaws_download_cancel("t"), static_cast<int>(vaws_download_get_backlog("t")),
          static_cast<int>(vaws_download_get_credit_hint("t")), vaws_download_get_report("t", nullptr, 0)})
        EXPECT_EQ(result, VAWS_UNKNOWN_TASK);
    EXPECT_EQ(vaws_download_get_status("t"), VAWS_STATUS_UNKNOWN);
    ASSERT_EQ(vaws_download_file("elsewhere", 0, driver.path("e.mp4").c_str(), "e"), VAWS_OK);
    EXPECT_EQ(driver.waitForEnd("e"), VAWS_EVENT_INVALID);
    EXPECT_THAT(TaskDriver::reportText("e", "error"), HasSubstr("of no known kind"));
    EXPECT_THAT(driver.files(), IsEmpty());
}

TEST_F(Failing, knowsOneTaskOfANameAtATimeAndNoneThatIsOver)
{
    ASSERT_EQ(start("t", "a.mp4"), VAWS_OK);
    EXPECT_EQ(start("t", "b.mp4"), VAWS_TASK_EXISTS);
    EXPECT_EQ(vaws_download_push_player_event("t", 99), VAWS_BAD_ARGUMENT);
    EXPECT_EQ(vaws_download_get_credit_hint("t"), 12 * 1024 * 1024) << "nothing is known of the disk";
    EXPECT_EQ(vaws_download_cancel("t"), VAWS_OK);
    for (const int result : {vaws_download_push_vavframe("t", "", 0), vaws_download_push_player_event("t", 2),
                             vaws_download_pause("t"), vaws_download_resume("t")})
        EXPECT_EQ(result, VAWS_UNKNOWN_TASK) << "a task that is over takes nothing";
    EXPECT_EQ(vaws_download_cancel("t"), VAWS_OK);
    ASSERT_EQ(start("t", "b.mp4"), VAWS_OK);
    driver.pushAll("t", source);
    EXPECT_GE(vaws_download_get_credit_hint("t"), 2 * 1024 * 1024);
    EXPECT_EQ(vaws_download_stop("t", nullptr, nullptr), VAWS_OK);
    EXPECT_EQ(ffmpegPacketMd5(driver.path("b.mp4"), 0), source.payloadMd5(0));
    vaws_download_shutdown();
    EXPECT_EQ(start("t", "c.mp4"), VAWS_NOT_INITIALISED);
    EXPECT_EQ(vaws_download_init_sdk(driver.journals().string().c_str()), VAWS_OK);
    EXPECT_EQ(vaws_download_get_status("t"), VAWS_STATUS_UNKNOWN);
    EXPECT_EQ(start("t", "c.mp4"), VAWS_OK);
}

TEST_F(Failing, keepsTheReportsOfTheLastTasksOnly)
{
    const auto id = [](int number) { return "n" + std::to_string(number); };
    for (int number = 0; number < 300; ++number) {
        ASSERT_EQ(vaws_download_file("elsewhere", 0, driver.path("n.mp4").c_str(), id(number).c_str()), VAWS_OK);
        ASSERT_EQ(driver.waitForEnd(id(number)), VAWS_EVENT_INVALID);
    }
    int known = 0;
    const auto count = [&] {
        known = 0;
        for (int number = 0; number < 300; ++number)
            known += vaws_download_get_report(id(number).c_str(), nullptr, 0) > 0 ? 1 : 0;
        return known == 256;
    };
    EXPECT_TRUE(waitUntil(count)) << known << " reports are kept";
}

std::atomic<int> highestRate{0};

TEST_F(Failing, tellsTheRateWhileATaskRunsAndNobodyWhoDoesNotListen)
{
    vaws_download_register_bitrate_callback([](int rate) { highestRate = std::max(highestRate.load(), rate); });
    ASSERT_EQ(start("t", "out.mp4"), VAWS_OK);
    std::int64_t bytes = 0;
    for (const auto& batch : source.batches())
        bytes += static_cast<std::int64_t>(batch.size());
    driver.pushAll("t", source);
    EXPECT_TRUE(waitUntil([] { return highestRate > 0; }));
    EXPECT_TRUE(driver.waitForConsumed("t", bytes)); // stop() writes for so long and no longer
    EXPECT_LE(highestRate, bytes * 8 / 1000 + 1);
    vaws_download_register_bitrate_callback(nullptr);
    vaws_download_register_event_callback(nullptr);
    vaws_download_register_consumed_callback(nullptr);
    EXPECT_EQ(vaws_download_stop("t", nullptr, nullptr), VAWS_OK);
    EXPECT_EQ(ffmpegPacketMd5(driver.path("out.mp4"), 0), source.payloadMd5(0));
}

TEST_F(Failing, repairsWhatACrashLeftBeforeAnythingElse)
{
    const GrowingFile growing(source);
    const std::filesystem::path journals = driver.folder() / "left";
    std::filesystem::create_directories(journals);
    saveBytes(driver.path("left.mp4"), growing.file.bytes);
    vaws::JournalEntry entry;
    entry.task = "before";
    entry.path = driver.path("left.mp4");
    entry.token = growing.plan->header.token;
    entry.identity = vaws::identityOf(entry.path);
    ASSERT_EQ(vaws::TaskJournal(journals, entry.token).write(entry), 0);
    std::ofstream(journals / "0000000000000001.vjournal") << "{";
    ASSERT_EQ(vaws_download_init_sdk(journals.string().c_str()), VAWS_OK);
    ASSERT_EQ(vaws_download_wait_repaired(20'000), 1);
    std::string text(static_cast<std::size_t>(vaws_download_repair_report(nullptr, 0)) + 1, '\0');
    vaws_download_repair_report(text.data(), text.size());
    text.pop_back();
    nlohmann::json records = nlohmann::json::parse(text, nullptr, false);
    ASSERT_EQ(records.size(), 2u) << text;
    std::sort(records.begin(), records.end(),
              [](const auto& one, const auto& other) { return one["outcome"] < other["outcome"]; });
    EXPECT_EQ(records[0]["outcome"], "failed");
    EXPECT_THAT(records[0]["error"].get<std::string>(), HasSubstr("cannot be read"));
    EXPECT_EQ(records[1]["outcome"], "repaired");
    EXPECT_EQ(records[1]["task"], "before");
    EXPECT_EQ(records[1]["path"], entry.path);
    EXPECT_EQ(records[1]["begin"], "2026-01-10T08:00:00.000Z");
    EXPECT_EQ(records[1]["end"], "2026-01-10T08:00:08.000Z");
    EXPECT_EQ(records[1]["bytes"], std::filesystem::file_size(entry.path));
    EXPECT_EQ(ffmpegPacketMd5(entry.path, 0), source.payloadMd5(0));
    EXPECT_EQ(vaws_download_init_sdk(journals.string().c_str()), VAWS_OK) << "the same folder again does nothing";
    EXPECT_EQ(vaws_download_repair_report(nullptr, 0), static_cast<int>(text.size()));
}

} // namespace
