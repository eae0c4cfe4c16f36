#include "WindowLock.h"

#include <SysPaths.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace vemo_client {

namespace {

constexpr qint64 madeWithinSeconds = 2;

/// A process that was killed while it made the lock leaves a file that names nobody; Qt takes that for held for good.
bool namesNobody(const QLockFile& lock, const QString& path)
{
    qint64 pid = 0;
    QString host;
    QString program;
    return !lock.getLockInfo(&pid, &host, &program) &&
           QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > madeWithinSeconds;
}

} // namespace

Outcome WindowLock::take()
{
    const QString folder = vemo_worker::SysPaths::dataDir();
    const QString path = folder + QStringLiteral("/window.lock");
    m_lock = std::make_unique<QLockFile>(path);
    m_lock->setStaleLockTime(0);
    if (m_lock->tryLock() || (namesNobody(*m_lock, path) && QFile::remove(path) && m_lock->tryLock()))
        return {};
    if (m_lock->error() == QLockFile::LockFailedError)
        return {ExitCode::Failed, QCoreApplication::translate("vemo_client::WindowLock",
                                                              "A window or another run is at work in the data folder "
                                                              "%1; close it first.")
                                      .arg(folder)};
    return {ExitCode::Disk,
            QCoreApplication::translate("vemo_client::WindowLock", "The data folder %1 can't be used.").arg(folder)};
}

} // namespace vemo_client
