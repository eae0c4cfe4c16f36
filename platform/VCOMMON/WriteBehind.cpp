// platform file: writing back a part of a file is a call of Linux alone.
#include "WriteBehind.h"

#include <QFileDevice>

#if defined(Q_OS_LINUX)
#include <cerrno>
#include <fcntl.h>
#endif

namespace VCOMMON {

#if defined(Q_OS_LINUX)

namespace {

/// Some file systems have no such call, which harms nothing.
bool isHarmless(int result)
{
    return result == 0 || errno == EINVAL || errno == ESPIPE || errno == ENOSYS || errno == EOPNOTSUPP;
}

} // namespace

bool WriteBehind::advance(qint64 writtenBytes)
{
    if (writtenBytes - m_startedBytes < stepBytes)
        return true;
    const int file = m_file.handle();
    if (!isHarmless(::sync_file_range(file, m_startedBytes, writtenBytes - m_startedBytes, SYNC_FILE_RANGE_WRITE)))
        return false;
    m_startedBytes = writtenBytes;
    const qint64 due = writtenBytes - limitBytes;
    if (due <= m_settledBytes)
        return true;
    const unsigned settle = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
    if (!isHarmless(::sync_file_range(file, m_settledBytes, due - m_settledBytes, settle)))
        return false;
    m_settledBytes = due;
    return true;
}

#else

bool WriteBehind::advance(qint64)
{
    return true;
}

#endif

} // namespace VCOMMON
