// Preload library for tests: stands between a program and the C library's file calls, counts those on files below a
// folder, and kills the process at one of them, lets one fail, cuts a write short, or keeps a log of all (FaultPlan.h
// has the variables). Not seen: mappings, io_uring and sendfile, and what the C library calls within
// itself (stdio).

#include "CallLog.h"
#include "FaultPlan.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <linux/fs.h>
#include <mutex>
#include <string>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#define VEMO_INTERPOSED extern "C" __attribute__((visibility("default")))

namespace {

using faults::Call;
using faults::CallLog;
using faults::Decision;
using faults::FaultPlan;
using faults::LoggedCall;

/// The next definition of a function behind this library's own.
template <typename Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// Calls are decided, done and logged one after the other, so that the log's order is the order in which they happened.
std::mutex& order()
{
    static auto* mutex = new std::mutex;
    return *mutex;
}

[[noreturn]] void die()
{
    CallLog::instance().note("killed");
    (void)syscall(SYS_kill, getpid(), SIGKILL);
    for (;;) {
        pause();
    }
}

/// What is to happen before the call.
void strike(const Decision& decision)
{
    if (decision.killBefore) {
        die();
    }
    if (decision.swapBefore) {
        FaultPlan::instance().swapFolders();
    }
}

std::string targetOf(int descriptor)
{
    char target[PATH_MAX];
    char link[64];
    std::snprintf(link, sizeof(link), "/proc/self/fd/%d", descriptor);
    const auto size = readlink(link, target, sizeof(target));
    std::string path(target, size > 0 ? static_cast<std::size_t>(size) : 0);
    const std::string deleted = " (deleted)";
    if (path.size() > deleted.size() && path.compare(path.size() - deleted.size(), deleted.size(), deleted) == 0) {
        path.resize(path.size() - deleted.size());
    }
    return path;
}

std::string absolute(int folder, const char* path)
{
    if (!path || *path == '\0') {
        return {};
    }
    if (*path == '/') {
        return std::filesystem::path(path).lexically_normal().string();
    }
    const auto base = folder == AT_FDCWD ? std::filesystem::current_path().string() : targetOf(folder);
    return (std::filesystem::path(base) / path).lexically_normal().string();
}

bool concerns(Call call, const std::string& path, std::uint64_t length = 0)
{
    return FaultPlan::instance().counts(call, length) && FaultPlan::instance().covers(path);
}

void describe(LoggedCall& entry, int descriptor)
{
    struct stat status
    {};
    if (fstat(descriptor, &status) == 0) {
        entry.inode = status.st_ino;
        entry.isFolder = S_ISDIR(status.st_mode);
    }
}

/// A call on a descriptor. `perform` gets the limit for its bytes.
template <typename Perform>
auto onDescriptor(LoggedCall entry, int descriptor, bool isWrite, Perform perform) -> decltype(perform(std::size_t{0}))
{
    if (!FaultPlan::instance().isActive()) {
        return perform(Decision::noLimit);
    }
    const int errnoBefore = errno;
    entry.path = targetOf(descriptor);
    if (!concerns(entry.call, entry.path, isWrite ? entry.length : 0)) {
        errno = errnoBefore;
        return perform(Decision::noLimit);
    }
    const std::lock_guard<std::mutex> lock(order());
    if (isWrite && entry.offset < 0) {
        const bool appends = (fcntl(descriptor, F_GETFL) & O_APPEND) != 0;
        struct stat status
        {};
        entry.offset = appends && fstat(descriptor, &status) == 0 ? status.st_size : lseek(descriptor, 0, SEEK_CUR);
    }
    const Decision decision = FaultPlan::instance().decide();
    entry.number = decision.number;
    CallLog::instance().trace(decision, entry.call, entry.path, entry.offset, entry.length);
    strike(decision);
    if (decision.failWith != 0) {
        errno = decision.failWith;
        return -1;
    }
    const bool isCut = isWrite && decision.shortTo < entry.length;
    const int flags = isCut ? fcntl(descriptor, F_GETFL) : 0;
    if (isCut && (flags & O_DIRECT) != 0) {
        // A torn sector, which the page cache takes and direct writing would refuse.
        fcntl(descriptor, F_SETFL, flags & ~O_DIRECT);
    }
    errno = errnoBefore;
    const auto result = perform(isCut ? decision.shortTo : Decision::noLimit);
    const int errnoAfter = errno;
    if (isCut && (flags & O_DIRECT) != 0) {
        fcntl(descriptor, F_SETFL, flags);
    }
    if (result >= 0) {
        if (isWrite) {
            entry.length = static_cast<std::uint64_t>(result);
        }
        describe(entry, descriptor);
        CallLog::instance().write(entry);
    }
    if (decision.killAfter) {
        die();
    }
    errno = errnoAfter;
    return result;
}

/// A call on one or two paths.
template <typename Perform>
int onPath(Call call, const std::string& path, const std::string& secondPath, Perform perform)
{
    auto& plan = FaultPlan::instance();
    if (!plan.isActive() || !(concerns(call, path) || concerns(call, secondPath))) {
        return perform();
    }
    const std::lock_guard<std::mutex> lock(order());
    LoggedCall entry;
    entry.call = call;
    entry.path = path;
    entry.secondPath = secondPath;
    struct stat status
    {};
    if (lstat(path.c_str(), &status) == 0) {
        entry.inode = status.st_ino;
    }
    const Decision decision = plan.decide();
    entry.number = decision.number;
    CallLog::instance().trace(decision, call, path, 0, 0);
    strike(decision);
    if (decision.failWith != 0) {
        errno = decision.failWith;
        return -1;
    }
    const int result = perform();
    if (result == 0) {
        CallLog::instance().write(entry);
    }
    return result;
}

template <typename Perform>
int onOpen(int folder, const char* path, int flags, Perform perform)
{
    auto& plan = FaultPlan::instance();
    if (!plan.isActive()) {
        return perform();
    }
    const int errnoBefore = errno;
    const bool changes = (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_ACCMODE) != O_RDONLY;
    LoggedCall entry;
    entry.call = changes ? Call::Open : Call::OpenRead;
    entry.path = absolute(folder, path);
    errno = errnoBefore;
    if (!concerns(entry.call, entry.path)) {
        return perform();
    }
    const std::lock_guard<std::mutex> lock(order());
    const Decision decision = plan.decide();
    entry.number = decision.number;
    CallLog::instance().trace(decision, entry.call, entry.path, 0, 0);
    strike(decision);
    if (decision.failWith != 0) {
        errno = decision.failWith;
        return -1;
    }
    struct stat status
    {};
    const bool stood = stat(entry.path.c_str(), &status) == 0;
    errno = errnoBefore;
    const int descriptor = perform();
    const int errnoAfter = errno;
    if (descriptor >= 0 && changes) {
        entry.created = !stood;
        entry.truncated = (flags & O_TRUNC) != 0;
        describe(entry, descriptor);
        CallLog::instance().write(entry);
    }
    errno = errnoAfter;
    return descriptor;
}

LoggedCall logged(Call call, std::int64_t offset, std::uint64_t length, const void* data = nullptr)
{
    LoggedCall entry;
    entry.call = call;
    entry.offset = offset;
    entry.length = length;
    entry.data = data;
    return entry;
}

mode_t modeArgument(int flags, va_list arguments)
{
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return hasMode ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

} // namespace

VEMO_INTERPOSED ssize_t write(int file, const void* data, size_t size)
{
    static const auto real = next<ssize_t(int, const void*, size_t)>("write");
    return onDescriptor(logged(Call::Write, -1, size, data), file, true,
                        [=](size_t limit) { return real(file, data, std::min(size, limit)); });
}

VEMO_INTERPOSED ssize_t pwrite(int file, const void* data, size_t size, off_t offset)
{
    static const auto real = next<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    return onDescriptor(logged(Call::Pwrite, offset, size, data), file, true,
                        [=](size_t limit) { return real(file, data, std::min(size, limit), offset); });
}

VEMO_INTERPOSED ssize_t pwrite64(int file, const void* data, size_t size, off64_t offset)
{
    return pwrite(file, data, size, offset);
}

namespace {

/// A gathered write goes out as one plain write, so that the log sees its bytes in one piece.
ssize_t gathered(int file, const iovec* parts, int count, off_t offset)
{
    std::string bytes;
    for (int index = 0; index < count; ++index) {
        bytes.append(static_cast<const char*>(parts[index].iov_base), parts[index].iov_len);
    }
    static const auto realWrite = next<ssize_t(int, const void*, size_t)>("write");
    static const auto realPwrite = next<ssize_t(int, const void*, size_t, off_t)>("pwrite");
    return onDescriptor(logged(Call::Writev, offset, bytes.size(), bytes.data()), file, true, [&](size_t limit) {
        const auto size = std::min(bytes.size(), limit);
        return offset < 0 ? realWrite(file, bytes.data(), size) : realPwrite(file, bytes.data(), size, offset);
    });
}

} // namespace

VEMO_INTERPOSED ssize_t writev(int file, const iovec* parts, int count)
{
    static const auto real = next<ssize_t(int, const iovec*, int)>("writev");
    if (!FaultPlan::instance().isActive() || !FaultPlan::instance().covers(targetOf(file))) {
        return real(file, parts, count);
    }
    return gathered(file, parts, count, -1);
}

VEMO_INTERPOSED ssize_t pwritev(int file, const iovec* parts, int count, off_t offset)
{
    static const auto real = next<ssize_t(int, const iovec*, int, off_t)>("pwritev");
    if (!FaultPlan::instance().isActive() || !FaultPlan::instance().covers(targetOf(file))) {
        return real(file, parts, count, offset);
    }
    return gathered(file, parts, count, offset);
}

VEMO_INTERPOSED ssize_t pwritev64(int file, const iovec* parts, int count, off64_t offset)
{
    return pwritev(file, parts, count, offset);
}

VEMO_INTERPOSED int ftruncate(int file, off_t length)
{
    static const auto real = next<int(int, off_t)>("ftruncate");
    return onDescriptor(logged(Call::Ftruncate, 0, static_cast<std::uint64_t>(length)), file, false,
                        [=](size_t) { return real(file, length); });
}

VEMO_INTERPOSED int ftruncate64(int file, off64_t length)
{
    return ftruncate(file, length);
}

VEMO_INTERPOSED int fallocate(int file, int mode, off_t offset, off_t length)
{
    static const auto real = next<int(int, int, off_t, off_t)>("fallocate");
    return onDescriptor(logged(Call::Fallocate, offset, static_cast<std::uint64_t>(length)), file, false,
                        [=](size_t) { return real(file, mode, offset, length); });
}

VEMO_INTERPOSED int fallocate64(int file, int mode, off64_t offset, off64_t length)
{
    return fallocate(file, mode, offset, length);
}

VEMO_INTERPOSED int posix_fallocate(int file, off_t offset, off_t length)
{
    // Reports by its result instead of errno.
    return fallocate(file, 0, offset, length) == 0 ? 0 : errno;
}

VEMO_INTERPOSED int posix_fallocate64(int file, off64_t offset, off64_t length)
{
    return posix_fallocate(file, offset, length);
}

VEMO_INTERPOSED ssize_t read(int file, void* data, size_t size)
{
    static const auto real = next<ssize_t(int, void*, size_t)>("read");
    return onDescriptor(logged(Call::Read, 0, size), file, false, [=](size_t) { return real(file, data, size); });
}

VEMO_INTERPOSED ssize_t copy_file_range(int from, off64_t* fromOffset, int file, off64_t* offset, size_t size,
                                        unsigned flags)
{
    static const auto real = next<ssize_t(int, off64_t*, int, off64_t*, size_t, unsigned)>("copy_file_range");
    return onDescriptor(logged(Call::CopyFileRange, offset ? *offset : -1, size), file, true, [=](size_t limit) {
        return real(from, fromOffset, file, offset, std::min(size, limit), flags);
    });
}

VEMO_INTERPOSED int ioctl(int file, unsigned long request, ...) noexcept
{
    static const auto real = next<int(int, unsigned long, void*)>("ioctl");
    va_list arguments;
    va_start(arguments, request);
    void* argument = va_arg(arguments, void*);
    va_end(arguments);
    if (request != FICLONE) {
        return real(file, request, argument);
    }
    return onDescriptor(logged(Call::Clone, 0, 0), file, false, [=](size_t) { return real(file, request, argument); });
}

VEMO_INTERPOSED int futimens(int file, const timespec times[2]) noexcept
{
    static const auto real = next<int(int, const timespec*)>("futimens");
    return onDescriptor(logged(Call::Futimens, 0, 0), file, false, [=](size_t) { return real(file, times); });
}

VEMO_INTERPOSED int fsync(int file)
{
    static const auto real = next<int(int)>("fsync");
    return onDescriptor(logged(Call::Fsync, 0, 0), file, false, [=](size_t) { return real(file); });
}

VEMO_INTERPOSED int fdatasync(int file)
{
    static const auto real = next<int(int)>("fdatasync");
    return onDescriptor(logged(Call::Fdatasync, 0, 0), file, false, [=](size_t) { return real(file); });
}

VEMO_INTERPOSED int sync_file_range(int file, off64_t offset, off64_t length, unsigned flags)
{
    static const auto real = next<int(int, off64_t, off64_t, unsigned)>("sync_file_range");
    return onDescriptor(logged(Call::SyncFileRange, offset, static_cast<std::uint64_t>(length)), file, false,
                        [=](size_t) { return real(file, offset, length, flags); });
}

VEMO_INTERPOSED int rename(const char* from, const char* to)
{
    static const auto real = next<int(const char*, const char*)>("rename");
    return onPath(Call::Rename, absolute(AT_FDCWD, from), absolute(AT_FDCWD, to), [=] { return real(from, to); });
}

VEMO_INTERPOSED int renameat(int fromFolder, const char* from, int toFolder, const char* to)
{
    static const auto real = next<int(int, const char*, int, const char*)>("renameat");
    return onPath(Call::Rename, absolute(fromFolder, from), absolute(toFolder, to),
                  [=] { return real(fromFolder, from, toFolder, to); });
}

VEMO_INTERPOSED int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags)
{
    static const auto real = next<int(int, const char*, int, const char*, unsigned)>("renameat2");
    return onPath(Call::Rename, absolute(fromFolder, from), absolute(toFolder, to),
                  [=] { return real(fromFolder, from, toFolder, to, flags); });
}

VEMO_INTERPOSED int unlink(const char* path)
{
    static const auto real = next<int(const char*)>("unlink");
    return onPath(Call::Unlink, absolute(AT_FDCWD, path), {}, [=] { return real(path); });
}

VEMO_INTERPOSED int unlinkat(int folder, const char* path, int flags)
{
    static const auto real = next<int(int, const char*, int)>("unlinkat");
    return onPath(Call::Unlink, absolute(folder, path), {}, [=] { return real(folder, path, flags); });
}

VEMO_INTERPOSED int remove(const char* path)
{
    static const auto real = next<int(const char*)>("remove");
    return onPath(Call::Unlink, absolute(AT_FDCWD, path), {}, [=] { return real(path); });
}

VEMO_INTERPOSED int mkdir(const char* path, mode_t mode)
{
    static const auto real = next<int(const char*, mode_t)>("mkdir");
    return onPath(Call::Mkdir, absolute(AT_FDCWD, path), {}, [=] { return real(path, mode); });
}

VEMO_INTERPOSED int mkdirat(int folder, const char* path, mode_t mode)
{
    static const auto real = next<int(int, const char*, mode_t)>("mkdirat");
    return onPath(Call::Mkdir, absolute(folder, path), {}, [=] { return real(folder, path, mode); });
}

VEMO_INTERPOSED int link(const char* from, const char* to)
{
    static const auto real = next<int(const char*, const char*)>("link");
    return onPath(Call::Link, absolute(AT_FDCWD, from), absolute(AT_FDCWD, to), [=] { return real(from, to); });
}

VEMO_INTERPOSED int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags)
{
    static const auto real = next<int(int, const char*, int, const char*, int)>("linkat");
    return onPath(Call::Link, absolute(fromFolder, from), absolute(toFolder, to),
                  [=] { return real(fromFolder, from, toFolder, to, flags); });
}

namespace {

int opened(int folder, const char* path, int flags, mode_t mode)
{
    static const auto real = next<int(int, const char*, int, ...)>("openat");
    return onOpen(folder, path, flags, [=] { return real(folder, path, flags, mode); });
}

} // namespace

VEMO_INTERPOSED int openat(int folder, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return opened(folder, path, flags, mode);
}

VEMO_INTERPOSED int openat64(int folder, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return opened(folder, path, flags, mode);
}

VEMO_INTERPOSED int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return opened(AT_FDCWD, path, flags, mode);
}

VEMO_INTERPOSED int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeArgument(flags, arguments);
    va_end(arguments);
    return opened(AT_FDCWD, path, flags, mode);
}

VEMO_INTERPOSED int creat(const char* path, mode_t mode)
{
    return opened(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

VEMO_INTERPOSED int creat64(const char* path, mode_t mode)
{
    return opened(AT_FDCWD, path, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

// What the checked variants of the headers call when the flags are not known at compile time.
VEMO_INTERPOSED int __open_2(const char* path, int flags)
{
    return opened(AT_FDCWD, path, flags, 0);
}
VEMO_INTERPOSED int __open64_2(const char* path, int flags)
{
    return opened(AT_FDCWD, path, flags, 0);
}
VEMO_INTERPOSED int __openat_2(int folder, const char* path, int flags)
{
    return opened(folder, path, flags, 0);
}
VEMO_INTERPOSED int __openat64_2(int folder, const char* path, int flags)
{
    return opened(folder, path, flags, 0);
}
