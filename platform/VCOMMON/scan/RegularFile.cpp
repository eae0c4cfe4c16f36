// platform file: opening without following links and without waiting at pipes.
#include "RegularFile.h"

#include <QFile>
#include <QFileInfo>

#if defined(Q_OS_UNIX)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace VCOMMON {

#if defined(Q_OS_UNIX)

bool openRegularFile(QFile& file)
{
    const int handle = ::open(QFile::encodeName(file.fileName()).constData(),
                              O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat facts = {};
    if (handle >= 0 && ::fstat(handle, &facts) == 0 && S_ISREG(facts.st_mode) &&
        file.open(handle, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return true;
    if (handle >= 0)
        ::close(handle);
    return false;
}

#else

bool openRegularFile(QFile& file)
{
    const QFileInfo info(file.fileName());
    return info.isFile() && !info.isSymLink() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

#endif

} // namespace VCOMMON
