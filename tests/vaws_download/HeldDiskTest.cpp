// A disk that holds up syncs, as a slow or busy one does. platform file: takes the place of the C library's call.
#include "TaskDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using testing::IsEmpty;

constexpr std::int64_t nsPerSecond = 1'000'000'000;

class HeldDisk
{
public:
    void hold()
    {
        const std::lock_guard lock(m_mutex);
        m_isHeld = true;
    }
    void letGo()
    {
        const std::lock_guard lock(m_mutex);
        m_isHeld = false;
        m_changed.notify_all();
    }
    bool waitForSync()
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(20), [this] { return m_waiting > 0; });
    }
    void pass()
    {
        std::unique_lock lock(m_mutex);
        ++m_waiting;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return !m_isHeld; });
        --m_waiting;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isHeld = false;
    int m_waiting = 0;
};

HeldDisk disk;

struct Stop
{
    const char* name;
    bool hasFootage; ///< some was written before the disk held
};

class HeldStop : public testing::TestWithParam<Stop>
{
protected:
    ~HeldStop() override { disk.letGo(); }

    bool waitForStatus(int status)
    {
        const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (vaws_download_get_status("t") != status && std::chrono::steady_clock::now() < until)
            usleep(5000);
        return vaws_download_get_status("t") == status;
    }

    TaskDriver driver;
};

/// The caller has recorded what it was told, renames the file and lets the task go, before the disk has closed it.
TEST_P(HeldStop, isKeptAsTold)
{
    ClipSource::Options options;
    options.seconds = 30;
    ClipSource source(TaskDriver::clip("h264_aac"), options);
    ClipSource begin = source;
    auto& frames = begin.frames();
    frames.erase(frames.begin() + std::ptrdiff_t(frames.size() / 3), frames.end());
    auto& rest = source.frames();
    rest.erase(rest.begin(), rest.begin() + std::ptrdiff_t(frames.size()));
    const std::string path = driver.path("held.mp4");
    const std::string renamed = driver.path("renamed.mp4");
    vaws_download_set_whole_seconds(1);
    if (!GetParam().hasFootage)
        disk.hold();
    vaws_download_time_range("vavFrame", clockText(begin.beginNs()).c_str(),
                             clockText(begin.beginNs() + 3600 * nsPerSecond).c_str(), path.c_str(), "t");
    vaws_download_set_whole_seconds(0);
    const std::int64_t pushed = driver.pushAll("t", begin);
    if (GetParam().hasFootage) {
        ASSERT_TRUE(driver.waitForConsumed("t", pushed));
        disk.hold();
        ASSERT_TRUE(disk.waitForSync());
        driver.pushAll("t", source);
    }
    std::int64_t count = 0;
    char text[24] = {};
    const auto before = std::chrono::steady_clock::now();
    ASSERT_EQ(vaws_download_stop("t", &count, text), VAWS_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(1000));
    EXPECT_EQ(vaws_download_get_status("t"), VAWS_STATUS_FINISHING);
    if (!GetParam().hasFootage) {
        EXPECT_STREQ(text, "");
        disk.letGo();
        ASSERT_TRUE(waitForStatus(VAWS_STATUS_ENDED));
        EXPECT_THAT(driver.files(), IsEmpty());
        return;
    }
    std::filesystem::rename(path, renamed);
    EXPECT_EQ(vaws_download_cancel("t"), VAWS_OK);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(2000)) << "the disk was waited for";
    disk.letGo();
    ASSERT_TRUE(waitForStatus(VAWS_STATUS_ENDED));
    const std::string toldEnd = std::string(text).substr(10);
    const double seconds = probeNumber(renamed, "-select_streams v -show_entries stream=duration");
    EXPECT_GE(seconds, 8);
    EXPECT_EQ(toldEnd, clockText(begin.beginNs() + std::int64_t(seconds + 0.5) * nsPerSecond).substr(10, 4));
    EXPECT_NEAR(probeNumber(renamed, "-count_frames -select_streams v -show_entries stream=nb_read_frames"),
                seconds * 25, 0.5);
    EXPECT_THAT(decodeErrors(renamed), IsEmpty());
    EXPECT_EQ(boxOrder(renamed), "ftyp mdat moov");
    EXPECT_THAT(driver.journalFiles(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Disk, HeldStop, testing::Values(Stop{"footage", true}, Stop{"nothing", false}),
                         [](const auto& told) { return std::string(told.param.name); });

} // namespace

extern "C" [[gnu::visibility("default")]] int fdatasync(int file)
{
    disk.pass();
    return static_cast<int>(syscall(SYS_fdatasync, file));
}
