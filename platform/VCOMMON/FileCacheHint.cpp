// platform file: hints on the system's file cache, which Windows does not take for an open file.
#include "FileCacheHint.h"

#include <QFileDevice>

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
#include <fcntl.h>
#endif

namespace VCOMMON {

#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)

void hintSequential(QFileDevice& file)
{
    ::posix_fadvise(file.handle(), 0, 0, POSIX_FADV_SEQUENTIAL);
}

void dropFromCache(QFileDevice& file, qint64 offset, qint64 bytes)
{
    ::posix_fadvise(file.handle(), offset, bytes, POSIX_FADV_DONTNEED);
}

#else

void hintSequential(QFileDevice&) {}

void dropFromCache(QFileDevice&, qint64, qint64) {}

#endif

} // namespace VCOMMON
