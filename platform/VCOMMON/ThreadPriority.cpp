// platform file: QThread's priorities below the normal one change nothing under Linux's usual scheduler, except for
// idle ones, which may get no time at all for minutes.
#include "ThreadPriority.h"

#include <QThread>

#if defined(Q_OS_LINUX)
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace VCOMMON {

void lowerThreadPriority()
{
#if defined(Q_OS_LINUX)
    constexpr int tenthOfTheShare = 10;
    // Linux keeps the nice value by thread (setpriority(2), "C library/kernel differences").
    setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), tenthOfTheShare);
#else
    QThread::currentThread()->setPriority(QThread::LowPriority);
#endif
}

} // namespace VCOMMON
