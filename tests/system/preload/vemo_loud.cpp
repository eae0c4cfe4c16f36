// A preload library that makes libav tell everything, down to its traces, on the standard error stream, whatever the
// program asks of it.
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>

namespace {

constexpr int traceLevel = 56; // AV_LOG_TRACE

void say(void*, int, const char* format, va_list arguments)
{
    std::vfprintf(stderr, format, arguments);
}

/// The library is loaded at its first use, so it is not among those that RTLD_NEXT looks through.
template <typename Function>
Function ofLibav(const char* name)
{
    void* library = dlopen(VEMO_LIBAVUTIL, RTLD_LAZY | RTLD_NOLOAD);
    return library ? reinterpret_cast<Function>(dlsym(library, name)) : nullptr;
}

} // namespace

extern "C" {

void av_log_set_level(int)
{
    if (const auto real = ofLibav<void (*)(int)>("av_log_set_level"))
        real(traceLevel);
}

void av_log_set_callback(void (*)(void*, int, const char*, va_list))
{
    if (const auto real = ofLibav<void (*)(void (*)(void*, int, const char*, va_list))>("av_log_set_callback"))
        real(say);
}
}
