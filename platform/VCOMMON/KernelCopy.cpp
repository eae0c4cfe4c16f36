// platform file: each system has calls of its own.
#include "KernelCopy.h"

#include "WriteBehind.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#if defined(Q_OS_WIN)
#include "WindowsPath.h"

#include <windows.h>
#elif defined(Q_OS_LINUX)
#include <cerrno>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace VCOMMON {

#if defined(Q_OS_WIN)

namespace {

COPYFILE2_MESSAGE_ACTION CALLBACK onProgress(const COPYFILE2_MESSAGE* message, PVOID context)
{
    const auto& step = *static_cast<const KernelCopy::Step*>(context);
    if (message->Type != COPYFILE2_CALLBACK_CHUNK_FINISHED)
        return COPYFILE2_PROGRESS_CONTINUE;
    const auto done = static_cast<qint64>(message->Info.ChunkFinished.uliTotalBytesTransferred.QuadPart);
    return step(done) ? COPYFILE2_PROGRESS_CONTINUE : COPYFILE2_PROGRESS_CANCEL;
}

} // namespace

KernelCopy::End KernelCopy::copy(QFile&, const QString& fromPath, QFile& to, qint64, const Step& step)
{
    const std::wstring fromName = windowsPath(QFileInfo(fromPath).absoluteFilePath());
    const std::wstring toName = windowsPath(to.fileName());
    to.close(); // it is opened by the call itself
    COPYFILE2_EXTENDED_PARAMETERS parameters = {};
    parameters.dwSize = sizeof(parameters);
    parameters.pProgressRoutine = onProgress;
    parameters.pvCallbackContext = const_cast<Step*>(&step);
    const HRESULT result = CopyFile2(fromName.c_str(), toName.c_str(), &parameters);
    if (result == HRESULT_FROM_WIN32(ERROR_REQUEST_ABORTED))
        return End::Stopped;
    if (FAILED(result)) {
        SetLastError(static_cast<DWORD>(HRESULT_CODE(result)));
        return End::Failed;
    }
    // A read-only source makes a read-only copy, which could not be synced.
    SetFileAttributesW(toName.c_str(), FILE_ATTRIBUTE_NORMAL);
    return to.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) ? End::Done : End::Failed;
}

#elif defined(Q_OS_LINUX)

namespace {

constexpr qint64 smallestSliceBytes = 256 * 1024;
constexpr qint64 largestSliceBytes = 8 * 1024 * 1024;
constexpr qint64 shortMs = 10;
constexpr qint64 longMs = 30;

bool meansUnsupported(int error)
{
    return error == EXDEV || error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM ||
           error == ETXTBSY || error == EBADF;
}

} // namespace

KernelCopy::End KernelCopy::copy(QFile& from, const QString&, QFile& to, qint64 totalBytes, const Step& step)
{
    if (!step(0))
        return End::Stopped;
    if (::ioctl(to.handle(), FICLONE, from.handle()) == 0)
        return End::Done;
    WriteBehind disk(to);
    QElapsedTimer sinceSlice;
    qint64 sliceBytes = smallestSliceBytes;
    for (qint64 done = 0; done < totalBytes;) {
        sinceSlice.start();
        const auto wanted = static_cast<std::size_t>(qMin(sliceBytes, totalBytes - done));
        const ssize_t size = ::copy_file_range(from.handle(), nullptr, to.handle(), nullptr, wanted, 0);
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0)
            return done == 0 && meansUnsupported(errno) ? End::Unsupported : End::Failed;
        if (size == 0)
            return done == 0 ? End::Unsupported : End::Done;
        done += size;
        if (!disk.advance(done))
            return End::Failed;
        // Slices fit the disk, so that whoever pauses is heard soon.
        if (sinceSlice.elapsed() > longMs)
            sliceBytes = qMax(smallestSliceBytes, sliceBytes / 2);
        else if (sinceSlice.elapsed() < shortMs)
            sliceBytes = qMin(largestSliceBytes, sliceBytes * 2);
        if (!step(done))
            return End::Stopped;
    }
    return End::Done;
}

#else

KernelCopy::End KernelCopy::copy(QFile&, const QString&, QFile&, qint64, const Step&)
{
    return End::Unsupported;
}

#endif

} // namespace VCOMMON
