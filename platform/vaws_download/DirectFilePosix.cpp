// platform file: POSIX and Linux
#include "DirectFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#ifndef O_DIRECT
#define O_DIRECT 0
#endif

namespace vaws {
namespace {

constexpr std::uint64_t alignment = 4096;
constexpr std::uint64_t writeBackLag = 8u * 1024 * 1024; ///< written but perhaps not on the disk, at most

FileIdentity identityOfStat(const struct stat& status)
{
    return {static_cast<std::uint64_t>(status.st_dev) + 1, static_cast<std::uint64_t>(status.st_ino)};
}

int openRetrying(const char* path, int flags, mode_t mode)
{
    int descriptor = -1;
    do {
        descriptor = ::open(path, flags | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

int writeText(const std::filesystem::path& path, int flags, const std::string& text)
{
    const int descriptor = openRetrying(path.c_str(), O_WRONLY | O_NOFOLLOW | flags, 0600);
    if (descriptor < 0)
        return errno;
    int error = 0;
    for (std::size_t done = 0; done < text.size() && error == 0;) {
        const ssize_t count = ::write(descriptor, text.data() + done, text.size() - done);
        if (count > 0)
            done += static_cast<std::size_t>(count);
        else if (count == 0 || errno != EINTR)
            error = count == 0 ? ENOSPC : errno;
    }
    if (::close(descriptor) != 0 && error == 0)
        error = errno;
    return error;
}

bool aligned(std::uint64_t offset, const std::uint8_t* data, std::size_t size)
{
    return offset % alignment == 0 && size % alignment == 0 && reinterpret_cast<std::uintptr_t>(data) % alignment == 0;
}

} // namespace

struct DirectFile::Handle
{
    int descriptor = -1;
    bool direct = false;
    std::uint64_t pacedTo = 0; ///< buffered mode: write-back up to here was waited for

    ~Handle()
    {
        if (descriptor >= 0)
            ::close(descriptor);
    }
};

DirectFile::DirectFile(std::unique_ptr<Handle> handle)
    : m_handle(std::move(handle))
{}

DirectFile::~DirectFile() = default;

int DirectFile::create(const std::filesystem::path& path, std::unique_ptr<DirectFile>& file)
{
    auto handle = std::make_unique<Handle>();
    constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW;
    handle->descriptor = openRetrying(path.c_str(), flags | O_DIRECT, 0644);
    handle->direct = O_DIRECT != 0;
    if (handle->descriptor < 0 && errno == EINVAL) {
        // Some file systems make the name before they refuse the flag: it is ours then, and empty.
        handle->direct = false;
        handle->descriptor = openRetrying(path.c_str(), flags, 0644);
        if (handle->descriptor < 0 && errno == EEXIST)
            handle->descriptor = openRetrying(path.c_str(), O_RDWR | O_NOFOLLOW, 0644);
        struct stat status
        {};
        if (handle->descriptor >= 0 && (::fstat(handle->descriptor, &status) != 0 || status.st_size != 0))
            return EEXIST;
    }
    if (handle->descriptor < 0)
        return errno;
    file.reset(new DirectFile(std::move(handle)));
    return 0;
}

int DirectFile::open(const std::filesystem::path& path, bool readOnly, std::unique_ptr<DirectFile>& file)
{
    auto handle = std::make_unique<Handle>();
    handle->descriptor = openRetrying(path.c_str(), (readOnly ? O_RDONLY : O_RDWR) | O_NOFOLLOW | O_NONBLOCK, 0);
    struct stat status
    {};
    if (handle->descriptor < 0 || ::fstat(handle->descriptor, &status) != 0)
        return errno;
    if (!S_ISREG(status.st_mode))
        return EINVAL;
    file.reset(new DirectFile(std::move(handle)));
    return 0;
}

int DirectFile::leaveDirectMode()
{
    if (!m_handle->direct)
        return 0;
    m_handle->direct = false;
    const int flags = ::fcntl(m_handle->descriptor, F_GETFL);
    return flags >= 0 && ::fcntl(m_handle->descriptor, F_SETFL, flags & ~O_DIRECT) == 0 ? 0 : errno;
}

int DirectFile::writeAt(std::uint64_t offset, const std::uint8_t* data, std::size_t size)
{
    if (m_handle->direct && !aligned(offset, data, size)) {
        if (const int error = leaveDirectMode())
            return error;
    }
    const std::uint64_t begin = offset;
    while (size > 0) {
        const ssize_t done = ::pwrite(m_handle->descriptor, data, size, static_cast<off_t>(offset));
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0 && errno == EINVAL && m_handle->direct) {
            if (const int error = leaveDirectMode())
                return error;
            continue;
        }
        if (done <= 0)
            return done < 0 ? errno : ENOSPC;
        offset += static_cast<std::uint64_t>(done);
        data += done;
        size -= static_cast<std::size_t>(done);
        // The rest of a short direct write is no longer aligned.
        if (m_handle->direct && size > 0 && !aligned(offset, data, size)) {
            if (const int error = leaveDirectMode())
                return error;
        }
    }
#ifdef __linux__
    if (!m_handle->direct && offset - begin >= alignment) {
        ::sync_file_range(m_handle->descriptor, static_cast<off_t>(begin), static_cast<off_t>(offset - begin),
                          SYNC_FILE_RANGE_WRITE);
        if (offset > m_handle->pacedTo + 2 * writeBackLag) {
            const std::uint64_t target = offset - writeBackLag;
            ::sync_file_range(m_handle->descriptor, static_cast<off_t>(m_handle->pacedTo),
                              static_cast<off_t>(target - m_handle->pacedTo),
                              SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
            m_handle->pacedTo = target;
        }
    }
#else
    static_cast<void>(begin);
#endif
    return 0;
}

int DirectFile::readAt(std::uint64_t offset, std::uint8_t* data, std::size_t size, std::size_t& got)
{
    got = 0;
    if (const int error = leaveDirectMode())
        return error;
    while (got < size) {
        const ssize_t done = ::pread(m_handle->descriptor, data + got, size - got, static_cast<off_t>(offset + got));
        if (done < 0 && errno == EINTR)
            continue;
        if (done < 0)
            return errno;
        if (done == 0)
            break;
        got += static_cast<std::size_t>(done);
    }
    return 0;
}

int DirectFile::length(std::uint64_t& bytes)
{
    struct stat status
    {};
    if (::fstat(m_handle->descriptor, &status) != 0)
        return errno;
    bytes = static_cast<std::uint64_t>(status.st_size);
    return 0;
}

int DirectFile::truncate(std::uint64_t bytes)
{
    return ::ftruncate(m_handle->descriptor, static_cast<off_t>(bytes)) == 0 ? 0 : errno;
}

int DirectFile::sync()
{
    return ::fdatasync(m_handle->descriptor) == 0 ? 0 : errno;
}

FileIdentity DirectFile::identity() const
{
    struct stat status
    {};
    return ::fstat(m_handle->descriptor, &status) == 0 ? identityOfStat(status) : FileIdentity();
}

int DirectFile::remove(const std::filesystem::path& path)
{
    if (!(identityOf(path) == identity()))
        return ENOENT;
    return ::unlink(path.c_str()) == 0 ? 0 : errno;
}

int DirectFile::rename(const std::filesystem::path& from, const std::filesystem::path& to)
{
    if (!(identityOf(from) == identity()))
        return ENOENT;
#ifdef __linux__
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
#endif
    if (::link(from.c_str(), to.c_str()) == 0)
        return ::unlink(from.c_str()) == 0 ? 0 : errno;
    if (errno == EEXIST || nameTaken(to))
        return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

FileIdentity identityOf(const std::filesystem::path& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) ? identityOfStat(status) : FileIdentity();
}

bool nameTaken(const std::filesystem::path& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0;
}

std::vector<std::filesystem::path> entriesOf(const std::filesystem::path& folder, std::size_t most)
{
    std::vector<std::filesystem::path> entries;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), &::closedir);
    while (const dirent* entry = open && entries.size() < most ? ::readdir(open.get()) : nullptr) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            entries.push_back(folder / name);
    }
    return entries;
}

int syncFolder(const std::filesystem::path& folder)
{
    const int descriptor = openRetrying(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY, 0);
    if (descriptor < 0)
        return errno;
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}

int replaceSmallFile(const std::filesystem::path& path, const std::string& text)
{
    const std::string part = path.string() + ".part";
    int error = writeText(part, O_CREAT | O_TRUNC, text);
    if (error == 0 && ::rename(part.c_str(), path.c_str()) != 0)
        error = errno;
    if (error != 0)
        ::unlink(part.c_str());
    return error;
}

int appendToSmallFile(const std::filesystem::path& path, const std::string& text)
{
    return writeText(path, O_APPEND, text);
}

int syncFile(const std::filesystem::path& path)
{
    const int descriptor = openRetrying(path.c_str(), O_RDONLY | O_NOFOLLOW, 0);
    if (descriptor < 0)
        return errno;
    const int error = ::fdatasync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}

std::int64_t birthTimeNs(const std::filesystem::path& path)
{
#if defined(__linux__) && defined(STATX_BTIME)
    struct statx status
    {};
    if (::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, STATX_BTIME, &status) == 0 &&
        (status.stx_mask & STATX_BTIME) != 0)
        return std::int64_t{status.stx_btime.tv_sec} * 1'000'000'000 + status.stx_btime.tv_nsec;
#endif
    struct stat plain
    {};
    return ::lstat(path.c_str(), &plain) == 0 ? std::int64_t{plain.st_ctime} * 1'000'000'000 : 0;
}

std::uint8_t* allocateAligned(std::size_t bytes)
{
    void* memory = nullptr;
    return ::posix_memalign(&memory, alignment, bytes) == 0 ? static_cast<std::uint8_t*>(memory) : nullptr;
}

void freeAligned(std::uint8_t* memory)
{
    std::free(memory);
}

void keepLargeBlocksOnHeap(std::size_t bytes)
{
#ifdef __GLIBC__
    ::mallopt(M_MMAP_THRESHOLD, static_cast<int>(bytes));
    ::mallopt(M_TRIM_THRESHOLD, static_cast<int>(bytes * 16));
#else
    static_cast<void>(bytes);
#endif
}

} // namespace vaws
