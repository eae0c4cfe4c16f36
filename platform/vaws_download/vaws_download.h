#pragma once

/// The media download SDK: library tasks that turn pushed stream packets, or local files, into MP4 files.
///
/// Plain C. Texts are UTF-8. A task is known by the caller's task id, a text. Every start returns at once; one writer
/// thread a task does the work. Callbacks come on library threads, never while a lock of the library is held, and none
/// comes for a task after `vaws_download_cancel` or `vaws_download_stop` for it has returned. Times in texts are local,
/// "yyyyMMddhhmmss". All functions may be called from any thread; calls for one task id are to come from one thread at
/// a time.

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#if defined(VAWS_DOWNLOAD_LIBRARY)
#define VAWS_DOWNLOAD_API __declspec(dllexport)
#else
#define VAWS_DOWNLOAD_API __declspec(dllimport)
#endif
#else
#define VAWS_DOWNLOAD_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// Events of the event callback. `value` is 0 unless said otherwise.
enum vaws_download_event {
    VAWS_EVENT_CONNECTING = 1,
    VAWS_EVENT_WAITING = 2,
    VAWS_EVENT_CONNECT_FAILED = 3,
    VAWS_EVENT_LOGIN_FAILED = 4,
    VAWS_EVENT_LIMIT_REACHED = 5,
    VAWS_EVENT_PLAYING = 6,
    VAWS_EVENT_FILE_SWITCHED = 7,
    VAWS_EVENT_BROKEN = 8,
    VAWS_EVENT_NO_DATA = 9,
    VAWS_EVENT_WRITE_ERROR = 10,
    VAWS_EVENT_PROGRESS = 11, ///< value: 0 to 100, never falling
    VAWS_EVENT_INVALID = 14,
    VAWS_EVENT_FINISHED = 16,
    VAWS_EVENT_DISK_LOW = 17, ///< less than 1 GiB free; sent once, the task goes on until the caller pauses it
};

/// What happened to the stream that feeds a task; the argument of vaws_download_push_player_event.
enum vaws_player_event {
    VAWS_PLAYER_CONNECTING = 1,
    VAWS_PLAYER_FAILED = 2, ///< could not be opened, for any reason without a number of its own
    VAWS_PLAYER_PLAYING = 3,
    VAWS_PLAYER_LOGIN_REFUSED = 4,
    VAWS_PLAYER_LIMIT_REACHED = 5,
    VAWS_PLAYER_ENDED = 6,  ///< finalises: frames were written, then event 16; none, then 9
    VAWS_PLAYER_BROKEN = 7, ///< broke off after it played: finalises what is there, then event 8
};

enum vaws_download_result {
    VAWS_OK = 0,
    VAWS_UNKNOWN_TASK = -1,
    VAWS_BAD_ARGUMENT = -2,
    VAWS_TASK_EXISTS = -3,
    VAWS_NOT_INITIALISED = -4,
    VAWS_REFUSED = -10, ///< less than 1 GiB free on the disk of the target
};

enum vaws_download_status {
    VAWS_STATUS_UNKNOWN = 0,
    VAWS_STATUS_WAITING = 1, ///< started, no frame yet
    VAWS_STATUS_RUNNING = 2,
    VAWS_STATUS_FINISHING = 3,
    VAWS_STATUS_ENDED = 4,
    VAWS_STATUS_PAUSED = 12,
};

typedef void (*vaws_event_callback)(const char* task_id, int event, int value);
/// The output moved on: `file_name` is the path under which the finished file now stands, `offset` its length in ms,
/// `toggle_time` the local time of the first frame of the next file.
typedef void (*vaws_file_toggle_callback)(const char* task_id, const char* file_name, int offset,
                                          const char* toggle_time);
/// Bytes a second that all tasks together received over the last second, in kbit/s; about once a second while a task
/// runs.
typedef void (*vaws_bitrate_callback)(int kbit_per_second);
/// `bytes` of what was pushed for the task have been taken over (written or let go): the sum over a task's life equals
/// the sum pushed. This is what flow control towards the network goes by.
typedef void (*vaws_consumed_callback)(const char* task_id, int64_t bytes);

/// `temp_dir` keeps the journals of open outputs; it is made when missing. Journals that a crash left are worked off on
/// a library thread; vaws_download_wait_repaired waits for it and vaws_download_repair_report tells the outcome.
/// Calling again with the same folder does nothing. Returns VAWS_OK or VAWS_BAD_ARGUMENT.
VAWS_DOWNLOAD_API int vaws_download_init_sdk(const char* temp_dir);

VAWS_DOWNLOAD_API void vaws_download_register_event_callback(vaws_event_callback callback);
VAWS_DOWNLOAD_API void vaws_download_register_file_toggle_callback(vaws_file_toggle_callback callback);
VAWS_DOWNLOAD_API void vaws_download_register_bitrate_callback(vaws_bitrate_callback callback);
VAWS_DOWNLOAD_API void vaws_download_register_consumed_callback(vaws_consumed_callback callback);

/// Tasks started from now on begin a new file at the first key frame beyond so many bytes; 0, as at the start: no
/// limit.
VAWS_DOWNLOAD_API int vaws_download_set_file_limit(int64_t bytes);

/// Non-zero: tasks by time range started from now on that end before their span does, also by a crash, show their file
/// up to a whole second, and that is the time that vaws_download_stop and the repair tell; one without a whole second
/// leaves no file. Who asks for the rest of the span from that second on has all of it, once. 0, as at the start: every
/// frame is shown.
VAWS_DOWNLOAD_API int vaws_download_set_whole_seconds(int on);

/// Non-zero: files of tasks started from now on have a text track with the wall clock of the recording, which players
/// show like subtitles: a line a second, "2026-01-10 08:12:47 +01:00" in the process' zone. 0, as at the start: none.
VAWS_DOWNLOAD_API int vaws_download_set_clock_track(int on);

/// Starts a task by recording file. `source` is "vavFrame". `downloaded_ms` is what an earlier part of this recording
/// already holds: the new file at `save_path` gets the rest. Returns VAWS_OK, VAWS_REFUSED or another negative result.
VAWS_DOWNLOAD_API int vaws_download_file(const char* source, int downloaded_ms, const char* save_path,
                                         const char* task_id);

/// Starts a task by time range. `source` is "vavFrame", or a JSON text {"begin_time", "end_time", "play_time",
/// "records":
/// [{"file_path", "begin_time", "end_time"}]} that names local files to cut. It ends by itself (event 16) once
/// everything before `end` is written.
VAWS_DOWNLOAD_API int vaws_download_time_range(const char* source, const char* begin, const char* end,
                                               const char* save_path, const char* task_id);

/// Takes one batch of whole vav_frame packets; the bytes are copied. Never waits for the disk.
VAWS_DOWNLOAD_API int vaws_download_push_vavframe(const char* task_id, const void* data, size_t size);
VAWS_DOWNLOAD_API int vaws_download_push_player_event(const char* task_id, int player_event);

VAWS_DOWNLOAD_API int vaws_download_pause(const char* task_id);
VAWS_DOWNLOAD_API int vaws_download_resume(const char* task_id);
/// Ends the task and removes the file that it is writing, and nothing else. What a stop told of stays.
VAWS_DOWNLOAD_API int vaws_download_cancel(const char* task_id);
/// Ends the task, keeps what was written as a finished file, and tells how far it got: `*count` in ms from the begin of
/// the recording or range, `downloaded_ms` included; `time_text` (at least 24 bytes) the local time of the last frame
/// written, or "". Returns within 200 ms; the sync to disk goes on behind it. On a disk that takes longer the closing
/// does so too, by the name that the file has then, and the status is VAWS_STATUS_FINISHING; the file ends where it was
/// told.
VAWS_DOWNLOAD_API int vaws_download_stop(const char* task_id, int64_t* count, char* time_text);
VAWS_DOWNLOAD_API int vaws_download_get_status(const char* task_id);

/// Bytes pushed for the task and not yet consumed.
VAWS_DOWNLOAD_API int64_t vaws_download_get_backlog(const char* task_id);

/// How many bytes the caller should let be under way at most, so that a stop on this disk stays quick; 2 to 12 MiB.
VAWS_DOWNLOAD_API int64_t vaws_download_get_credit_hint(const char* task_id);

/// What is known of a task, as JSON, also for the last 256 that ended:
/// {"task", "status", "event" (the ending one, 0 while it runs), "error" (a sentence, "" when none), "path", "files":
/// [every finished file's path], "bytes", "begin", "end" (ISO 8601 UTC with ms, first and behind last frame),
/// "asked_begin", "asked_end", "progress", "frames", "lost", "gaps": [{"begin", "end", "cause": "not recorded" | "lost
/// in transfer"}], "video", "audio" (codec names or ""), "width", "height", "verified": bool, "errno"}. Returns the
/// length without the closing NUL; writes at most `size` bytes with the NUL; negative when the task is not known.
VAWS_DOWNLOAD_API int vaws_download_get_report(const char* task_id, char* text, size_t size);

/// Waits until the repair begun by init is done, at most `timeout_ms`; 1 when done, 0 when not.
VAWS_DOWNLOAD_API int vaws_download_wait_repaired(int timeout_ms);
/// The repaired files as JSON: [{"task", "path", "outcome": "repaired" | "kept" | "empty removed" | "failed", "bytes",
/// "begin", "end", "asked_end", "error"}]. Returns and writes as vaws_download_get_report.
VAWS_DOWNLOAD_API int vaws_download_repair_report(char* text, size_t size);

VAWS_DOWNLOAD_API const char* vaws_download_version(void);
/// A plain English sentence for an event or a negative result.
VAWS_DOWNLOAD_API const char* vaws_download_text(int event_or_result);

/// Ends every task as vaws_download_stop does, joins all threads. For the end of the process and for tests.
VAWS_DOWNLOAD_API void vaws_download_shutdown(void);

#ifdef __cplusplus
}
#endif
