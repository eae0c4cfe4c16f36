#include "vaws_download.h"

#include "ClockText.h"
#include "TaskRegistry.h"

#include <algorithm>
#include <cstring>
#include <exception>

namespace {

using vaws::TaskRegistry;
using vaws::TaskSettings;

constexpr std::size_t maxIdBytes = 256;
constexpr std::size_t maxPathBytes = 4096;
constexpr std::size_t timeTextBytes = 24;

/// No exception leaves the library: what could throw runs in here, and `failed` is the answer when it did.
template <class Result, class Call>
Result guarded(Result failed, Call&& call) noexcept
{
    try {
        return call();
    } catch (const std::exception&) {
        return failed;
    }
}

template <class Call>
int withTask(const char* id, Call&& call) noexcept
{
    if (!id)
        return VAWS_BAD_ARGUMENT;
    return guarded(static_cast<int>(VAWS_BAD_ARGUMENT), [&] {
        const auto task = TaskRegistry::instance().find(id);
        return task ? call(*task) : static_cast<int>(VAWS_UNKNOWN_TASK);
    });
}

bool usable(const char* text, std::size_t limit)
{
    return text && *text && std::strlen(text) <= limit;
}

int copyText(const std::string& value, char* text, std::size_t size)
{
    if (text && size > 0) {
        const std::size_t count = std::min(size - 1, value.size());
        std::memcpy(text, value.data(), count);
        text[count] = '\0';
    }
    return static_cast<int>(value.size());
}

bool isPushed(const char* source)
{
    return std::strcmp(source, "vavFrame") == 0;
}

} // namespace

int vaws_download_init_sdk(const char* temp_dir)
{
    if (!temp_dir)
        return VAWS_BAD_ARGUMENT;
    return guarded(static_cast<int>(VAWS_BAD_ARGUMENT), [&] { return TaskRegistry::instance().initialise(temp_dir); });
}

void vaws_download_register_event_callback(vaws_event_callback callback)
{
    TaskRegistry::instance().callbacks().setEvent(callback);
}

void vaws_download_register_file_toggle_callback(vaws_file_toggle_callback callback)
{
    TaskRegistry::instance().callbacks().setToggle(callback);
}

void vaws_download_register_bitrate_callback(vaws_bitrate_callback callback)
{
    TaskRegistry::instance().callbacks().setBitrate(callback);
}

void vaws_download_register_consumed_callback(vaws_consumed_callback callback)
{
    TaskRegistry::instance().callbacks().setConsumed(callback);
}

int vaws_download_set_file_limit(int64_t bytes)
{
    if (bytes < 0)
        return VAWS_BAD_ARGUMENT;
    TaskRegistry::instance().setFileLimit(static_cast<std::uint64_t>(bytes));
    return VAWS_OK;
}

int vaws_download_set_whole_seconds(int on)
{
    TaskRegistry::instance().setWholeSeconds(on != 0);
    return VAWS_OK;
}

int vaws_download_set_clock_track(int on)
{
    TaskRegistry::instance().setClockTrack(on != 0);
    return VAWS_OK;
}

int vaws_download_file(const char* source, int downloaded_ms, const char* save_path, const char* task_id)
{
    if (!source || !usable(save_path, maxPathBytes) || !usable(task_id, maxIdBytes) || downloaded_ms < 0)
        return VAWS_BAD_ARGUMENT;
    return guarded(static_cast<int>(VAWS_BAD_ARGUMENT), [&] {
        TaskSettings settings;
        settings.id = task_id;
        settings.kind = TaskSettings::Kind::ByFile;
        settings.path = save_path;
        settings.downloadedMs = downloaded_ms;
        if (!isPushed(source))
            settings.problem = "The source of the download is of no known kind.";
        return TaskRegistry::instance().start(std::move(settings));
    });
}

int vaws_download_time_range(const char* source, const char* begin, const char* end, const char* save_path,
                             const char* task_id)
{
    if (!source || !begin || !end || !usable(save_path, maxPathBytes) || !usable(task_id, maxIdBytes))
        return VAWS_BAD_ARGUMENT;
    return guarded(static_cast<int>(VAWS_BAD_ARGUMENT), [&] {
        TaskSettings settings;
        settings.id = task_id;
        settings.kind = TaskSettings::Kind::TimeRange;
        settings.path = save_path;
        if (!vaws::parseClockText(begin, settings.beginNs) || !vaws::parseClockText(end, settings.endNs) ||
            settings.endNs <= settings.beginNs)
            return static_cast<int>(VAWS_BAD_ARGUMENT);
        if (!isPushed(source)) {
            settings.kind = TaskSettings::Kind::LocalCut;
            settings.cut.parse(source, settings.problem);
            settings.cut.beginNs = settings.beginNs;
            settings.cut.endNs = settings.endNs;
        }
        return TaskRegistry::instance().start(std::move(settings));
    });
}

int vaws_download_push_vavframe(const char* task_id, const void* data, size_t size)
{
    if (!data && size > 0)
        return VAWS_BAD_ARGUMENT;
    return withTask(task_id, [&](vaws::DownloadTask& task) { return task.push(data, size); });
}

int vaws_download_push_player_event(const char* task_id, int player_event)
{
    return withTask(task_id, [&](vaws::DownloadTask& task) { return task.playerEvent(player_event); });
}

int vaws_download_pause(const char* task_id)
{
    return withTask(task_id, [](vaws::DownloadTask& task) { return task.pause(); });
}

int vaws_download_resume(const char* task_id)
{
    return withTask(task_id, [](vaws::DownloadTask& task) { return task.resume(); });
}

int vaws_download_cancel(const char* task_id)
{
    return withTask(task_id, [](vaws::DownloadTask& task) { return task.cancel(); });
}

int vaws_download_stop(const char* task_id, int64_t* count, char* time_text)
{
    if (count)
        *count = 0;
    if (time_text)
        *time_text = '\0';
    return withTask(task_id, [&](vaws::DownloadTask& task) {
        std::int64_t reached = 0;
        std::string time;
        const int result = task.stop(reached, time);
        if (count)
            *count = reached;
        copyText(time, time_text, timeTextBytes);
        return result;
    });
}

int vaws_download_get_status(const char* task_id)
{
    const int status = withTask(task_id, [](vaws::DownloadTask& task) { return task.status(); });
    return status < 0 ? VAWS_STATUS_UNKNOWN : status;
}

int64_t vaws_download_get_backlog(const char* task_id)
{
    std::int64_t bytes = 0;
    const int result = withTask(task_id, [&](vaws::DownloadTask& task) {
        bytes = task.backlog();
        return static_cast<int>(VAWS_OK);
    });
    return result == VAWS_OK ? bytes : result;
}

int64_t vaws_download_get_credit_hint(const char* task_id)
{
    std::int64_t bytes = 0;
    const int result = withTask(task_id, [&](vaws::DownloadTask& task) {
        bytes = task.creditHint();
        return static_cast<int>(VAWS_OK);
    });
    return result == VAWS_OK ? bytes : result;
}

int vaws_download_get_report(const char* task_id, char* text, size_t size)
{
    return withTask(task_id, [&](vaws::DownloadTask& task) { return copyText(task.report().json(), text, size); });
}

int vaws_download_wait_repaired(int timeout_ms)
{
    return guarded(0, [&] { return TaskRegistry::instance().waitRepaired(timeout_ms) ? 1 : 0; });
}

int vaws_download_repair_report(char* text, size_t size)
{
    return guarded(static_cast<int>(VAWS_BAD_ARGUMENT),
                   [&] { return copyText(TaskRegistry::instance().repairReport(), text, size); });
}

const char* vaws_download_version(void)
{
    return "0.1.0";
}

const char* vaws_download_text(int event_or_result)
{
    switch (event_or_result) {
    case VAWS_OK:
        return "Done.";
    case VAWS_UNKNOWN_TASK:
        return "There is no such task.";
    case VAWS_BAD_ARGUMENT:
        return "An argument is missing or out of range.";
    case VAWS_TASK_EXISTS:
        return "A task of this id is running.";
    case VAWS_NOT_INITIALISED:
        return "The download library is not initialised.";
    case VAWS_REFUSED:
        return "There is too little free space on the disk.";
    case VAWS_EVENT_CONNECTING:
        return "The stream is being opened.";
    case VAWS_EVENT_WAITING:
        return "The task waits for its stream.";
    case VAWS_EVENT_CONNECT_FAILED:
        return "The stream could not be opened.";
    case VAWS_EVENT_LOGIN_FAILED:
        return "The recorder refused the login.";
    case VAWS_EVENT_LIMIT_REACHED:
        return "The recorder has reached its limit of connections.";
    case VAWS_EVENT_PLAYING:
        return "The stream is coming in.";
    case VAWS_EVENT_FILE_SWITCHED:
        return "The recording goes on in another file.";
    case VAWS_EVENT_BROKEN:
        return "The stream broke off.";
    case VAWS_EVENT_NO_DATA:
        return "Nothing is recorded in the asked span.";
    case VAWS_EVENT_WRITE_ERROR:
        return "The file could not be written.";
    case VAWS_EVENT_PROGRESS:
        return "The download goes on.";
    case VAWS_EVENT_INVALID:
        return "The source or its format is not valid.";
    case VAWS_EVENT_FINISHED:
        return "The file is finished.";
    case VAWS_EVENT_DISK_LOW:
        return "The disk is nearly full.";
    default:
        return "Unknown.";
    }
}

void vaws_download_shutdown(void)
{
    guarded(0, [] {
        TaskRegistry::instance().shutdown();
        return 0;
    });
}
