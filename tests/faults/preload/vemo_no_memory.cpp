// Preload library for tests: lets allocations fail that certain libraries ask for, and counts what they do not give
// back.
//
//     VEMO_NO_MEMORY_LIBS    ends of library names, separated by commas; only what these ask for counts
//     VEMO_NO_MEMORY_FAIL    k or k:n: n allocations from the k-th on fail (default: one)
//     VEMO_NO_MEMORY_REPORT  file that gets "<allocations> <blocks not freed>" when the process ends by itself
//
// Who asks is told by the return address; where that is the C++ library, by the first caller outside of it.

#include "GlibcAllocator.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <exception>
#include <execinfo.h>
#include <fcntl.h>
#include <mutex>
#include <new>
#include <unistd.h>

#define VEMO_INTERPOSED extern "C" __attribute__((visibility("default")))

namespace {

constexpr std::size_t tableSize = 1u << 20;
constexpr int mostFrames = 12;

std::mutex tableMutex;
std::uintptr_t table[tableSize]; // guarded by tableMutex; 1 marks what was taken out
std::uint64_t allocations = 0;   // guarded by tableMutex
std::int64_t live = 0;           // guarded by tableMutex
std::uint64_t failFrom = 0;
std::uint64_t failCount = 1;
thread_local bool inside __attribute__((tls_model("initial-exec"))) = false;
bool isReady = false;

bool endsWith(const char* text, const char* end, std::size_t endSize)
{
    const std::size_t size = std::strlen(text);
    return size >= endSize && std::memcmp(text + size - endSize, end, endSize) == 0;
}

enum class Owner { Other, Wanted, Runtime };

Owner ownerOf(void* address)
{
    Dl_info info{};
    if (dladdr(address, &info) == 0 || !info.dli_fname)
        return Owner::Other;
    if (std::strstr(info.dli_fname, "libstdc++") || std::strstr(info.dli_fname, "libvemo_no_memory"))
        return Owner::Runtime;
    for (const char* name = std::getenv("VEMO_NO_MEMORY_LIBS"); name && *name;) {
        const std::size_t size = std::strcspn(name, ",");
        if (endsWith(info.dli_fname, name, size))
            return Owner::Wanted;
        name += size + (name[size] == ',' ? 1 : 0);
    }
    return Owner::Other;
}

/// Whether an allocation asked for from `caller` counts.
bool counts(void* caller)
{
    if (!isReady || inside)
        return false;
    inside = true;
    Owner owner = ownerOf(caller);
    if (owner == Owner::Runtime) {
        void* frames[mostFrames];
        const int count = backtrace(frames, mostFrames);
        for (int index = 1; index < count && owner == Owner::Runtime; ++index)
            owner = ownerOf(frames[index]);
    }
    inside = false;
    return owner == Owner::Wanted;
}

/// Numbers an allocation that counts; false when it is to fail.
bool mayHave()
{
    const std::lock_guard<std::mutex> lock(tableMutex);
    ++allocations;
    return failFrom == 0 || allocations < failFrom || allocations >= failFrom + failCount;
}

std::size_t slotOf(std::uintptr_t key)
{
    return static_cast<std::size_t>((key >> 4) * 0x9e3779b97f4a7c15u >> 44) % tableSize;
}

void* keep(void* block)
{
    if (!block)
        return block;
    const auto key = reinterpret_cast<std::uintptr_t>(block);
    const std::lock_guard<std::mutex> lock(tableMutex);
    std::size_t slot = slotOf(key);
    while (table[slot] > 1)
        slot = (slot + 1) % tableSize;
    table[slot] = key;
    ++live;
    return block;
}

/// Whether the block was counted.
bool forget(void* block)
{
    if (!isReady || !block)
        return false;
    const auto key = reinterpret_cast<std::uintptr_t>(block);
    const std::lock_guard<std::mutex> lock(tableMutex);
    for (std::size_t slot = slotOf(key); table[slot] != 0; slot = (slot + 1) % tableSize) {
        if (table[slot] == key) {
            table[slot] = 1;
            --live;
            return true;
        }
    }
    return false;
}

template <typename Allocate>
void* allocated(void* caller, Allocate allocate)
{
    if (!counts(caller))
        return allocate();
    if (!mayHave()) {
        errno = ENOMEM;
        return nullptr;
    }
    return keep(allocate());
}

template <typename Allocate>
void* allocatedOrThrown(void* caller, Allocate allocate)
{
    void* block = allocated(caller, allocate);
    if (!block)
        throw std::bad_alloc();
    return block;
}

/// Says where nobody caught it; addr2line turns the offsets into lines.
[[noreturn]] void uncaught()
{
    void* frames[40];
    inside = true;
    backtrace_symbols_fd(frames, backtrace(frames, 40), STDERR_FILENO);
    std::abort();
}

__attribute__((constructor)) void begin()
{
    std::set_terminate(uncaught);
    void* frames[2];
    backtrace(frames, 2); // loads what it needs
    if (const char* fail = std::getenv("VEMO_NO_MEMORY_FAIL")) {
        char* end = nullptr;
        failFrom = std::strtoull(fail, &end, 10);
        failCount = *end == ':' ? std::strtoull(end + 1, nullptr, 10) : 1;
        if (failFrom == 0 || failCount == 0)
            std::_Exit(99);
    }
    isReady = true;
}

__attribute__((destructor)) void end()
{
    const char* path = std::getenv("VEMO_NO_MEMORY_REPORT");
    const int file = path ? open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600) : -1;
    if (file < 0)
        return;
    char line[64];
    const std::lock_guard<std::mutex> lock(tableMutex);
    const int size = std::snprintf(line, sizeof(line), "%llu %lld\n", static_cast<unsigned long long>(allocations),
                                   static_cast<long long>(live));
    if (write(file, line, static_cast<std::size_t>(size)) != size)
        std::_Exit(99);
}

} // namespace

VEMO_INTERPOSED void* malloc(size_t size)
{
    return allocated(__builtin_return_address(0), [=] { return __libc_malloc(size); });
}

VEMO_INTERPOSED void* calloc(size_t count, size_t size)
{
    return allocated(__builtin_return_address(0), [=] { return __libc_calloc(count, size); });
}

VEMO_INTERPOSED void* realloc(void* block, size_t size)
{
    if (!counts(__builtin_return_address(0))) {
        const bool wasCounted = forget(block);
        void* moved = __libc_realloc(block, size);
        return wasCounted ? keep(moved) : moved;
    }
    if (size > 0 && !mayHave()) {
        errno = ENOMEM;
        return nullptr;
    }
    forget(block);
    return keep(__libc_realloc(block, size));
}

VEMO_INTERPOSED int posix_memalign(void** block, size_t alignment, size_t size)
{
    void* made = allocated(__builtin_return_address(0), [=] { return __libc_memalign(alignment, size); });
    if (!made)
        return ENOMEM;
    *block = made;
    return 0;
}

VEMO_INTERPOSED void* aligned_alloc(size_t alignment, size_t size)
{
    return allocated(__builtin_return_address(0), [=] { return __libc_memalign(alignment, size); });
}

VEMO_INTERPOSED void free(void* block)
{
    forget(block);
    __libc_free(block);
}

__attribute__((visibility("default"))) void* operator new(std::size_t size)
{
    return allocatedOrThrown(__builtin_return_address(0), [=] { return __libc_malloc(size); });
}

__attribute__((visibility("default"))) void* operator new[](std::size_t size)
{
    return allocatedOrThrown(__builtin_return_address(0), [=] { return __libc_malloc(size); });
}

__attribute__((visibility("default"))) void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return allocated(__builtin_return_address(0), [=] { return __libc_malloc(size); });
}

__attribute__((visibility("default"))) void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return allocated(__builtin_return_address(0), [=] { return __libc_malloc(size); });
}

__attribute__((visibility("default"))) void operator delete(void* block) noexcept
{
    free(block);
}

__attribute__((visibility("default"))) void operator delete[](void* block) noexcept
{
    free(block);
}

__attribute__((visibility("default"))) void operator delete(void* block, std::size_t) noexcept
{
    free(block);
}

__attribute__((visibility("default"))) void operator delete[](void* block, std::size_t) noexcept
{
    free(block);
}
