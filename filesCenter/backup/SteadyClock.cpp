// platform file: a clock that counts sleep
#include "SteadyClock.h"

#if defined(Q_OS_WIN)
#include <qt_windows.h>
#else
#include <ctime>
#endif

namespace vemo_filesCenter {

qint64 SteadyClock::nowMs()
{
#if defined(Q_OS_WIN)
    return static_cast<qint64>(GetTickCount64());
#else
#if defined(CLOCK_BOOTTIME)
    constexpr clockid_t clock = CLOCK_BOOTTIME;
#else
    constexpr clockid_t clock = CLOCK_MONOTONIC;
#endif
    timespec time{};
    clock_gettime(clock, &time);
    return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
#endif
}

} // namespace vemo_filesCenter
