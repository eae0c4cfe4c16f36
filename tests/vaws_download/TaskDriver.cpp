#include "TaskDriver.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <random>

namespace {

std::mutex mutex;
std::condition_variable changed;
std::vector<TaskDriver::Event> seenEvents;
std::vector<TaskDriver::Toggle> seenToggles;
std::map<std::string, std::int64_t> consumedBytes;
std::size_t callbacks = 0;

void onEvent(const char* task, int event, int value)
{
    const std::lock_guard lock(mutex);
    seenEvents.push_back({task, event, value});
    ++callbacks;
    changed.notify_all();
}

void onToggle(const char* task, const char* file, int offset, const char* time)
{
    const std::lock_guard lock(mutex);
    seenToggles.push_back({task, file, offset, time});
    ++callbacks;
}

void onConsumed(const char* task, std::int64_t bytes)
{
    const std::lock_guard lock(mutex);
    consumedBytes[task] += bytes;
    ++callbacks;
    changed.notify_all();
}

bool isEnding(int event)
{
    static constexpr std::array going = {1, 2, 6, 7, 11, 17};
    return std::find(going.begin(), going.end(), event) == going.end();
}

int endOf(const std::string& task)
{
    for (const TaskDriver::Event& event : seenEvents) {
        if (event.task == task && isEnding(event.event))
            return event.event;
    }
    return 0;
}

nlohmann::json reportJson(const std::string& task)
{
    return nlohmann::json::parse(TaskDriver::report(task), nullptr, false);
}

} // namespace

TaskDriver::TaskDriver()
{
    std::random_device random;
    m_folder = std::filesystem::temp_directory_path() / ("vaws-test-" + std::to_string(random()));
    std::filesystem::create_directories(m_folder);
    {
        const std::lock_guard lock(mutex);
        seenEvents.clear();
        seenToggles.clear();
        consumedBytes.clear();
        callbacks = 0;
    }
    vaws_download_init_sdk(journals().string().c_str());
    vaws_download_register_event_callback(&onEvent);
    vaws_download_register_file_toggle_callback(&onToggle);
    vaws_download_register_consumed_callback(&onConsumed);
}

TaskDriver::~TaskDriver()
{
    vaws_download_shutdown();
    std::error_code error;
    std::filesystem::remove_all(m_folder, error);
}

std::string TaskDriver::clip(const std::string& name)
{
    const std::filesystem::path folder = VAWS_CLIP_FOLDER;
    std::filesystem::create_directories(folder);
    const std::string path = (folder / (name + (name.find("g711") != std::string::npos ? ".mov" : ".mp4"))).string();
    const std::string h264 = "-c:v libx264 -preset veryfast -g 50 -bf 3 -b:v 1M -pix_fmt yuv420p ";
    const std::map<std::string, std::pair<double, std::string>> recipes = {
        {"h264_aac", {8, h264 + "-c:a aac -b:a 64k"}},
        {"h264_open", {6, h264 + "-x264-params open-gop=1 -an"}},
        {"h264_small", {4, "-vf scale=320:180 " + h264 + "-c:a aac -b:a 64k"}},
        {"h264_plain", {6, "-c:v libx264 -preset veryfast -g 25 -bf 0 -b:v 1M -pix_fmt yuv420p -an"}},
        {"h265_g711",
         {6, "-c:v libx265 -preset veryfast -x265-params log-level=error:keyint=50 -b:v 800k -tag:v hvc1 -pix_fmt "
             "yuv420p -c:a pcm_alaw -ar 8000 -ac 1"}},
        {"h264_g711", {6, h264 + "-c:a pcm_mulaw -ar 8000 -ac 1"}},
        {"mjpeg", {2, "-c:v mjpeg -q:v 5 -pix_fmt yuvj420p -an"}},
    };
    const auto& [seconds, arguments] = recipes.at(name);
    ClipSource::makeClip(path, seconds, arguments);
    return path;
}

void TaskDriver::push(const std::string& task, const std::vector<std::uint8_t>& batch)
{
    vaws_download_push_vavframe(task.c_str(), batch.data(), batch.size());
}

std::int64_t TaskDriver::pushAll(const std::string& task, const ClipSource& source, std::size_t batchBytes)
{
    std::int64_t pushed = 0;
    for (const std::vector<std::uint8_t>& batch : source.batches(batchBytes)) {
        std::unique_lock lock(mutex);
        changed.wait_for(lock, std::chrono::seconds(10),
                         [&] { return endOf(task) != 0 || vaws_download_get_backlog(task.c_str()) < 8 * 1024 * 1024; });
        if (endOf(task) != 0)
            break;
        lock.unlock();
        push(task, batch);
        pushed += static_cast<std::int64_t>(batch.size());
    }
    return pushed;
}

int TaskDriver::waitForEnd(const std::string& task, int timeoutMs)
{
    std::unique_lock lock(mutex);
    changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return endOf(task) != 0; });
    return endOf(task);
}

bool TaskDriver::waitForConsumed(const std::string& task, std::int64_t bytes, int timeoutMs)
{
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] { return consumedBytes[task] >= bytes; });
}

std::vector<int> TaskDriver::events(const std::string& task) const
{
    const std::lock_guard lock(mutex);
    std::vector<int> result;
    for (const Event& event : seenEvents) {
        if (event.task == task)
            result.push_back(event.event);
    }
    return result;
}

std::vector<TaskDriver::Toggle> TaskDriver::toggles() const
{
    const std::lock_guard lock(mutex);
    return seenToggles;
}

std::int64_t TaskDriver::consumed(const std::string& task) const
{
    const std::lock_guard lock(mutex);
    return consumedBytes[task];
}

std::size_t TaskDriver::callbackCount() const
{
    const std::lock_guard lock(mutex);
    return callbacks;
}

std::string TaskDriver::report(const std::string& task)
{
    const int length = vaws_download_get_report(task.c_str(), nullptr, 0);
    if (length < 0)
        return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    vaws_download_get_report(task.c_str(), text.data(), text.size());
    text.pop_back();
    return text;
}

std::string TaskDriver::reportText(const std::string& task, const std::string& key)
{
    const nlohmann::json value = reportJson(task)[key];
    return value.is_string() ? value.get<std::string>() : value.dump();
}

long long TaskDriver::reportNumber(const std::string& task, const std::string& key)
{
    const nlohmann::json value = reportJson(task)[key];
    return value.is_number() ? value.get<long long>() : (value.is_boolean() ? (value.get<bool>() ? 1 : 0) : -1);
}

std::vector<std::string> TaskDriver::journalFiles() const
{
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(journals(), error))
        names.push_back(entry.path().filename().string());
    return names;
}

std::vector<std::string> TaskDriver::files() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
        if (entry.is_regular_file())
            names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string clockText(std::int64_t timeNs)
{
    const std::time_t seconds = static_cast<std::time_t>(timeNs / 1'000'000'000);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y%m%d%H%M%S", std::gmtime(&seconds));
    std::string ms = std::to_string(timeNs / 1'000'000 % 1000);
    return std::string(text.data()) + std::string(3 - ms.size(), '0') + ms + "Z";
}

std::string boxOrder(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::string order;
    for (std::size_t at = 0; at + 16 <= bytes.size();) {
        auto byte = [&](std::size_t i) {
            return static_cast<std::uint64_t>(static_cast<unsigned char>(bytes[at + i]));
        };
        std::uint64_t size = byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3);
        if (size == 1) {
            size = 0;
            for (std::size_t i = 8; i < 16; ++i)
                size = size << 8 | byte(i);
        }
        order += (order.empty() ? "" : " ") + bytes.substr(at + 4, 4);
        if (size < 8)
            return order + " broken";
        at += size;
    }
    return order;
}

std::string probe(const std::string& path, const std::string& entries)
{
    std::string text = shellOutput("ffprobe -v error " + entries + " -of default=nw=1:nk=1 '" + path + "' 2>&1");
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

double probeNumber(const std::string& path, const std::string& entries)
{
    return std::strtod(probe(path, entries).c_str(), nullptr);
}

std::string decodeErrors(const std::string& path)
{
    return shellOutput("ffmpeg -v error -i '" + path + "' -f null - 2>&1");
}
