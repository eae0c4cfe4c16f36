// platform file: opening without following links, and times finer than Qt's.
#include "PlainFile.h"

#include <QFile>
#include <QFileInfo>

#if defined(Q_OS_WIN)
#include "WindowsPath.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace VCOMMON {

QString PlainFile::notReadable(const QString& path)
{
    return tr("%1 can't be read: %2.").arg(path, qt_error_string());
}

QString PlainFile::notThere(const QString& path)
{
    return tr("%1 is not there.").arg(path);
}

QString PlainFile::notPlain(const QString& path)
{
    return tr("%1 is not a file.").arg(path);
}

#if defined(Q_OS_WIN)

namespace {

constexpr qint64 epochIn100Ns = 116444736000000000; // 1970 in the system's own count from 1601

HANDLE handleOf(const QFileDevice& file)
{
    return reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
}

} // namespace

QString PlainFile::open(QFile& file, const QString& path)
{
    const QFileInfo info(path);
    if (info.isSymLink() || info.isDir())
        return notPlain(path);
    if (!info.exists())
        return notThere(path);
    HANDLE handle =
        CreateFileW(windowsPath(info.absoluteFilePath()).c_str(), GENERIC_READ,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return notReadable(path);
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        CloseHandle(handle);
        return notPlain(path);
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_RDONLY | _O_BINARY);
    file.setFileName(path);
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return notReadable(path);
    return {};
}

bool PlainFile::readStamp(const QFileDevice& file, FileStamp& stamp)
{
    BY_HANDLE_FILE_INFORMATION info;
    if (!GetFileInformationByHandle(handleOf(file), &info))
        return false;
    const auto join = [](DWORD high, DWORD low) { return static_cast<qint64>(high) << 32 | low; };
    stamp.sizeBytes = join(info.nFileSizeHigh, info.nFileSizeLow);
    stamp.modifiedNs =
        (join(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime) - epochIn100Ns) * 100;
    return true;
}

bool PlainFile::setModified(QFileDevice& file, qint64 modifiedNs)
{
    const qint64 ticks = modifiedNs / 100 + epochIn100Ns;
    const FILETIME time{static_cast<DWORD>(ticks & 0xffffffff), static_cast<DWORD>(ticks >> 32)};
    return SetFileTime(handleOf(file), nullptr, nullptr, &time) != 0;
}

#else

QString PlainFile::open(QFile& file, const QString& path)
{
    // Without waiting: a pipe would hold the thread until someone writes into it.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        const bool isMissing = errno == ENOENT || errno == ENOTDIR;
        const bool isOther = errno == ELOOP || errno == ENXIO;
        return isMissing ? notThere(path) : isOther ? notPlain(path) : notReadable(path);
    }
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        return notPlain(path);
    }
    file.setFileName(path);
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return notReadable(path);
    return {};
}

bool PlainFile::readStamp(const QFileDevice& file, FileStamp& stamp)
{
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return false;
    stamp.sizeBytes = status.st_size;
    stamp.modifiedNs = static_cast<qint64>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    return true;
}

bool PlainFile::setModified(QFileDevice& file, qint64 modifiedNs)
{
    timespec times[2] = {};
    times[0].tv_nsec = UTIME_OMIT;
    const qint64 nsASecond = 1'000'000'000;
    const qint64 rest = (modifiedNs % nsASecond + nsASecond) % nsASecond; // also for a time before 1970
    times[1].tv_sec = static_cast<time_t>((modifiedNs - rest) / nsASecond);
    times[1].tv_nsec = static_cast<long>(rest);
    return ::futimens(file.handle(), times) == 0 || errno == EPERM || errno == ENOTSUP || errno == EINVAL;
}

#endif

} // namespace VCOMMON
