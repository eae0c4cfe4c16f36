#include "WindowLock.h"

#include <DataFolder.h>
#include <SysPaths.h>

#include <QCoreApplication>

namespace vemo_client {

Outcome WindowLock::take()
{
    const QString folder = vemo_worker::SysPaths::dataDir();
    const QString path = folder + QStringLiteral("/window.lock");
    m_lock = std::make_unique<QLockFile>(path);
    if (vemo_data::DataFolder::tryLock(m_lock.get(), path))
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
