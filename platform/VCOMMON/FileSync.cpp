// platform file: no portable call forces a file to the disk.
#include "FileSync.h"

#include <QFileDevice>

#if defined(Q_OS_WIN)
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace VCOMMON {

bool syncToDisk(QFileDevice& file)
{
    if (!file.flush())
        return false;
#if defined(Q_OS_WIN)
    return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()))) != 0;
#else
    return ::fsync(file.handle()) == 0;
#endif
}

} // namespace VCOMMON
