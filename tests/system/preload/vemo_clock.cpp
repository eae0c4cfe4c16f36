// A preload library by which a test sets the clock of a program while it runs: the file that VEMO_CLOCK_FILE names
// begins with the seconds, as a 64-bit number, by which the wall clock is off. Clocks that nobody sets go on as they
// do.
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace {

const std::atomic<std::int64_t>* openFile()
{
    const char* path = std::getenv("VEMO_CLOCK_FILE");
    const int file = path ? open(path, O_RDONLY | O_CLOEXEC) : -1;
    if (file < 0)
        return nullptr;
    void* bytes = mmap(nullptr, sizeof(std::int64_t), PROT_READ, MAP_SHARED, file, 0);
    close(file);
    return bytes == MAP_FAILED ? nullptr : static_cast<const std::atomic<std::int64_t>*>(bytes);
}

std::int64_t offSeconds()
{
    static const std::atomic<std::int64_t>* const off = openFile();
    return off ? off->load() : 0;
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept
{
    const long result = syscall(SYS_clock_gettime, clock, time);
    if (result == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE))
        time->tv_sec += offSeconds();
    return static_cast<int>(result);
}

int gettimeofday(timeval* time, void*) noexcept
{
    timespec now{};
    const int result = clock_gettime(CLOCK_REALTIME, &now);
    constexpr long nsPerUs = 1000;
    *time = {now.tv_sec, now.tv_nsec / nsPerUs};
    return result;
}

time_t time(time_t* seconds) noexcept
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (seconds)
        *seconds = now.tv_sec;
    return now.tv_sec;
}

} // extern "C"
