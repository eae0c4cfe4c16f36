#include "DecodeEntry.h"
#include "StreamVideoDecoder.h"

#include <atomic>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstring>

extern "C" {
#include <libavutil/log.h>
}

#if defined(_WIN32)
#define VEMO_DECODE_EXPORT __declspec(dllexport)
#else
#define VEMO_DECODE_EXPORT __attribute__((visibility("default")))
#endif

namespace vemo_decode {

namespace {

constexpr int linesPerMinute = 20; ///< a damaged stream has something to say for every frame
constexpr int lineBytes = 512;

std::atomic<void (*)(const char*)> logTarget{nullptr};

bool mayLog()
{
    static std::atomic<long long> minute{-1};
    static std::atomic<int> lines{0};
    const long long now =
        std::chrono::duration_cast<std::chrono::minutes>(std::chrono::steady_clock::now().time_since_epoch()).count();
    if (minute.exchange(now) != now)
        lines = 0;
    return lines.fetch_add(1) < linesPerMinute;
}

void takeLine(void* context, int level, const char* format, va_list arguments)
{
    const auto target = logTarget.load();
    if (level > AV_LOG_ERROR || !target || !mayLog())
        return;
    char line[lineBytes];
    int printsPrefix = 1;
    av_log_format_line2(context, level, format, arguments, line, sizeof line, &printsPrefix);
    line[std::strcspn(line, "\r\n")] = '\0';
    if (!std::strstr(line, "://")) // addresses may carry a login
        target(line);
}

std::unique_ptr<Decoder> create()
{
    return std::make_unique<StreamVideoDecoder>();
}

void setLog(void (*log)(const char* line))
{
    logTarget = log;
    av_log_set_level(AV_LOG_QUIET); // should another library take the callback away
    av_log_set_callback(takeLine);
}

constexpr DecodeEntry entry{create, setLog};

} // namespace

} // namespace vemo_decode

extern "C" VEMO_DECODE_EXPORT const vemo_decode::DecodeEntry* vemo_decode_entry();

const vemo_decode::DecodeEntry* vemo_decode_entry()
{
    return &vemo_decode::entry;
}
