// platform file: locks that end with the process
#include "FolderLock.h"

#include "DataFolder.h"

#include <QDir>
#include <QFile>

#if defined(Q_OS_WIN)
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace vemo_data {

#if defined(Q_OS_WIN)

FolderLock::~FolderLock()
{
    if (m_file != -1)
        CloseHandle(reinterpret_cast<HANDLE>(m_file));
}

FolderLock::Outcome FolderLock::take(const QString& path)
{
    if (m_file != -1)
        return Outcome::Taken;
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    HANDLE file =
        CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return Outcome::Unusable;
    OVERLAPPED start = {};
    if (LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &start)) {
        m_file = reinterpret_cast<qintptr>(file);
        return Outcome::Taken;
    }
    const DWORD error = GetLastError();
    CloseHandle(file);
    return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? Outcome::Held : Outcome::Unusable;
}

#else

FolderLock::~FolderLock()
{
    if (m_file != -1)
        ::close(int(m_file));
}

FolderLock::Outcome FolderLock::take(const QString& path)
{
    if (m_file != -1)
        return Outcome::Taken;
    DataFolder::makePrivateFile(path);
    const int file = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    if (file < 0)
        return Outcome::Unusable;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0) {
        m_file = file;
        return Outcome::Taken;
    }
    const int error = errno;
    ::close(file);
    return error == EWOULDBLOCK ? Outcome::Held : Outcome::Unusable;
}

#endif

} // namespace vemo_data
