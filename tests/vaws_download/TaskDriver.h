#pragma once

#include "ClipSource.h"
#include "vaws_download.h"

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <vector>

/// Drives tasks of the media download SDK through its C interface in a folder of its own and keeps everything that the
/// callbacks told. One at a time in a process; its destructor shuts the library down.
class TaskDriver
{
public:
    struct Event
    {
        std::string task;
        int event;
        int value;
    };
    struct Toggle
    {
        std::string task;
        std::string file;
        int offsetMs;
        std::string time;
    };

    TaskDriver();
    ~TaskDriver();

    std::filesystem::path folder() const { return m_folder; }
    std::filesystem::path journals() const { return m_folder / "journals"; }
    std::string path(const std::string& name) const { return (m_folder / name).string(); }
    /// A clip of this name, made once for all test programs.
    static std::string clip(const std::string& name);

    /// Pushes all batches of the source with flow control; stops early when the task ends. How many bytes it pushed.
    std::int64_t pushAll(const std::string& task, const ClipSource& source, std::size_t batchBytes = 64 * 1024);
    void push(const std::string& task, const std::vector<std::uint8_t>& batch);
    /// The ending event of the task (not 1, 2, 6, 7, 11, 17), 0 when none came in time.
    int waitForEnd(const std::string& task, int timeoutMs = 20'000);
    bool waitForConsumed(const std::string& task, std::int64_t bytes, int timeoutMs = 20'000);
    std::vector<int> events(const std::string& task) const;
    std::vector<Toggle> toggles() const;
    std::int64_t consumed(const std::string& task) const;
    std::size_t callbackCount() const;
    static std::string report(const std::string& task);
    static std::string reportText(const std::string& task, const std::string& key);
    static long long reportNumber(const std::string& task, const std::string& key);
    std::vector<std::string> journalFiles() const;
    std::vector<std::string> files() const; ///< in the folder, journals not included

private:
    std::filesystem::path m_folder;
};

/// Times as the C interface takes them, UTC with milliseconds.
std::string clockText(std::int64_t timeNs);

/// The top-level boxes of an MP4 file in their order, "ftyp mdat moov".
std::string boxOrder(const std::string& path);

/// A value that ffprobe shows.
std::string probe(const std::string& path, const std::string& entries);
double probeNumber(const std::string& path, const std::string& entries);
/// Messages of a full decode by ffmpeg; empty when it is flawless.
std::string decodeErrors(const std::string& path);
