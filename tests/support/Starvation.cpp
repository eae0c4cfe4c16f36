// platform file: takes the place of glibc's allocator
#include "Starvation.h"

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#include "GlibcAllocator.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <unistd.h>

namespace {

struct Count
{
    bool isOn = false;
    long asked = 0;
    long refused = 0; ///< the number of the one that fails; 0: none
    long live = 0;    ///< given and not given back
};

thread_local Count count __attribute__((tls_model("initial-exec")));
char present[256]; ///< what is being tried

bool isRefused()
{
    if (!count.isOn || ++count.asked != count.refused)
        return false;
    errno = ENOMEM;
    return true;
}

void* given(void* block)
{
    if (count.isOn && block)
        ++count.live;
    return block;
}

[[noreturn]] void tellAndLeave(int)
{
    count.isOn = false;
    const ssize_t told = ::write(STDERR_FILENO, present, sizeof present);
    ::_exit(told < 0 ? EXIT_FAILURE : 70);
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) void* malloc(size_t size)
{
    return isRefused() ? nullptr : given(__libc_malloc(size));
}

__attribute__((visibility("default"))) void* calloc(size_t number, size_t size)
{
    return isRefused() ? nullptr : given(__libc_calloc(number, size));
}

__attribute__((visibility("default"))) void* realloc(void* block, size_t size)
{
    if (isRefused())
        return nullptr;
    void* const grown = __libc_realloc(block, size);
    return block ? grown : given(grown);
}

__attribute__((visibility("default"))) void* memalign(size_t alignment, size_t size)
{
    return isRefused() ? nullptr : given(__libc_memalign(alignment, size));
}

__attribute__((visibility("default"))) void* aligned_alloc(size_t alignment, size_t size)
{
    return memalign(alignment, size);
}

__attribute__((visibility("default"))) int posix_memalign(void** block, size_t alignment, size_t size)
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

__attribute__((visibility("default"))) void free(void* block)
{
    if (count.isOn && block)
        --count.live;
    __libc_free(block);
}
}

namespace starvation {

Outcome everyAllocation(const std::string& name, const std::function<void()>& work)
{
    std::set_terminate([] { tellAndLeave(SIGABRT); });
    for (const int sign : {SIGSEGV, SIGBUS, SIGABRT})
        std::signal(sign, tellAndLeave);
    const auto once = [&work](long refused) {
        count = {true, 0, refused, 0};
        try {
            work();
        } catch (const std::bad_alloc&) { // the caller is told
        }
        count.isOn = false;
    };
    Outcome outcome;
    once(0); // what is made once and kept
    once(0);
    const long usual = count.live;
    const long asked = count.asked;
    for (long k = 1; k <= asked; ++k) {
        std::snprintf(present, sizeof present, "%s: the process ends when allocation %ld of %ld fails\n", name.c_str(),
                      k, asked);
        once(k);
        ++outcome.cases;
        if (count.live > usual)
            ++outcome.kept;
    }
    return outcome;
}

} // namespace starvation

#else

namespace starvation {

Outcome everyAllocation(const std::string&, const std::function<void()>&)
{
    return {};
}

} // namespace starvation

#endif
