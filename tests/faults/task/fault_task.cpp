// Drives whole lives of download library tasks through the C interface, so that something can go wrong in the middle of
// them.
//
//   fault_task --temp DIR --clip CLIP --out FILE [--tasks N] [--speed X] [--loops N] [--end ended|stop|cancel|broken]
//   [--log FILE] fault_task --temp DIR --repair
//
// The first form pushes the clip to one task for each --out at once (task1, task2...), X times real time (0: as fast as
// the backlog lets it), and prints {"tasks": [report...]} when all have ended. The second starts the library, waits for
// the repair of what an earlier run left, and prints {"repaired": [...], "ms": how long it took}. The log gets lines of
// "monotonicNs task pushed track count" and "monotonicNs task event number value": what a judge needs to tell what was
// pushed, and said, by when.

#include "ClipSource.h"

#include "vaws_download.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::int64_t backlogLimit = 8 * 1024 * 1024;
constexpr std::size_t batchBytes = 64 * 1024;
constexpr auto endTimeout = std::chrono::seconds(60);

struct Options
{
    std::string temp;
    std::string clip;
    std::vector<std::string> outputs;
    std::string end = "ended";
    std::string log;
    double speed = 0;
    bool repair = false;
};

[[noreturn]] void fail(const std::string& message)
{
    std::cerr << "fault_task: " << message << '\n';
    std::exit(2);
}

Options optionsFrom(int count, char** arguments)
{
    Options options;
    for (int index = 1; index < count; ++index) {
        const std::string name = arguments[index];
        if (name == "--repair") {
            options.repair = true;
            continue;
        }
        if (name == "--clock") {
            vaws_download_set_clock_track(1);
            continue;
        }
        if (index + 1 == count) {
            fail(name + " needs a value");
        }
        const std::string value = arguments[++index];
        if (name == "--temp") {
            options.temp = value;
        } else if (name == "--clip") {
            options.clip = value;
        } else if (name == "--out") {
            options.outputs.push_back(value);
        } else if (name == "--end") {
            options.end = value;
        } else if (name == "--log") {
            options.log = value;
        } else if (name == "--speed") {
            options.speed = std::stod(value);
        } else {
            fail("unknown option " + name);
        }
    }
    if (options.temp.empty() || (!options.repair && (options.clip.empty() || options.outputs.empty()))) {
        fail("--temp, and --repair or --clip and --out, are needed");
    }
    return options;
}

/// What the callbacks and the pushing threads say, for the judge; every line is flushed, the process may die at any
/// time.
class Journal
{
public:
    void open(const std::string& path)
    {
        if (!path.empty()) {
            m_file.open(path, std::ios::app);
        }
    }
    void line(const std::string& task, const char* what, long long first, long long second)
    {
        if (!m_file.is_open()) {
            return;
        }
        const auto now = std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_file << now << ' ' << task << ' ' << what << ' ' << first << ' ' << second << std::endl;
    }

private:
    std::mutex m_mutex;
    std::ofstream m_file;
};

Journal journal;

std::mutex endedMutex;
std::map<std::string, int> endedWith; // guarded by endedMutex

bool endsTask(int event)
{
    switch (event) {
    case VAWS_EVENT_CONNECT_FAILED:
    case VAWS_EVENT_LOGIN_FAILED:
    case VAWS_EVENT_LIMIT_REACHED:
    case VAWS_EVENT_BROKEN:
    case VAWS_EVENT_NO_DATA:
    case VAWS_EVENT_WRITE_ERROR:
    case VAWS_EVENT_INVALID:
    case VAWS_EVENT_FINISHED:
        return true;
    default:
        return false;
    }
}

void onEvent(const char* task, int event, int value)
{
    journal.line(task, "event", event, value);
    if (endsTask(event)) {
        const std::lock_guard<std::mutex> lock(endedMutex);
        endedWith.emplace(task, event);
    }
}

bool hasEnded(const std::string& task)
{
    const std::lock_guard<std::mutex> lock(endedMutex);
    return endedWith.count(task) != 0;
}

template <typename Read>
std::string textOf(Read read)
{
    std::vector<char> text(1 << 16);
    const int size = read(text.data(), text.size());
    if (size < 0) {
        return "null";
    }
    if (static_cast<std::size_t>(size) >= text.size()) {
        text.resize(static_cast<std::size_t>(size) + 1);
        read(text.data(), text.size());
    }
    return text.data();
}

/// Pushes the clip to one task and ends it; returns its last report.
std::string drive(const Options& options, const ClipSource& clip, std::size_t index)
{
    const std::string task = "task" + std::to_string(index + 1);
    const std::string& out = options.outputs[index];
    if (const int result = vaws_download_file("vavFrame", 0, out.c_str(), task.c_str()); result != VAWS_OK) {
        return "{\"task\": \"" + task + "\", \"start\": " + std::to_string(result) + "}";
    }
    vaws_download_push_player_event(task.c_str(), VAWS_PLAYER_PLAYING);
    const auto info = vav::encodeStreamInfo(clip.info());
    vaws_download_push_vavframe(task.c_str(), info.data(), info.size());

    const auto begin = Clock::now();
    std::map<int, long long> pushed;
    std::vector<std::uint8_t> batch;
    const auto flush = [&] {
        while (vaws_download_get_backlog(task.c_str()) > backlogLimit && !hasEnded(task)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        if (!batch.empty()) {
            vaws_download_push_vavframe(task.c_str(), batch.data(), batch.size());
            batch.clear();
            for (const auto& [track, count] : pushed) {
                journal.line(task, "pushed", track, count);
            }
        }
    };
    for (const auto& frame : clip.frames()) {
        if (hasEnded(task)) {
            break;
        }
        if (options.speed > 0) {
            const auto sinceBegin = static_cast<double>(frame.header.timeNs - clip.beginNs());
            const auto due = begin + std::chrono::nanoseconds(static_cast<long long>(sinceBegin / options.speed));
            if (due > Clock::now()) {
                flush();
                std::this_thread::sleep_until(due);
            }
        }
        const auto packet = ClipSource::packet(frame);
        batch.insert(batch.end(), packet.begin(), packet.end());
        ++pushed[frame.header.track];
        if (batch.size() >= batchBytes) {
            flush();
        }
    }
    flush();

    if (options.end == "stop") {
        std::int64_t count = 0;
        char text[24] = {};
        vaws_download_stop(task.c_str(), &count, text);
        journal.line(task, "stopped", count, 0);
    } else if (options.end == "cancel") {
        vaws_download_cancel(task.c_str());
    } else {
        vaws_download_push_player_event(task.c_str(), options.end == "broken" ? VAWS_PLAYER_BROKEN : VAWS_PLAYER_ENDED);
        const auto until = Clock::now() + endTimeout;
        while (!hasEnded(task) && Clock::now() < until) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    return textOf([&](char* text, std::size_t size) { return vaws_download_get_report(task.c_str(), text, size); });
}

int run(const Options& options)
{
    const ClipSource clip(options.clip);
    if (vaws_download_init_sdk(options.temp.c_str()) != VAWS_OK) {
        fail("the library did not take its folder " + options.temp);
    }
    std::vector<std::string> reports(options.outputs.size());
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < reports.size(); ++index) {
        threads.emplace_back([&, index] { reports[index] = drive(options, clip, index); });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    vaws_download_shutdown();
    std::cout << "{\"tasks\": [";
    for (std::size_t index = 0; index < reports.size(); ++index) {
        std::cout << (index ? ", " : "") << reports[index];
    }
    std::cout << "]}" << std::endl;
    return 0;
}

int repair(const Options& options)
{
    const auto begin = Clock::now();
    if (vaws_download_init_sdk(options.temp.c_str()) != VAWS_OK || vaws_download_wait_repaired(10'000) != 1) {
        fail("the repair did not end");
    }
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin).count();
    const auto report = textOf([](char* text, std::size_t size) { return vaws_download_repair_report(text, size); });
    vaws_download_shutdown();
    std::cout << "{\"repaired\": " << report << ", \"ms\": " << ms << "}" << std::endl;
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    try {
        const Options options = optionsFrom(count, arguments);
        journal.open(options.log);
        vaws_download_register_event_callback(onEvent);
        return options.repair ? repair(options) : run(options);
    } catch (const std::exception& error) {
        fail(error.what());
    }
}
