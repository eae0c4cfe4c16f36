#include "WindowLock.h"

#include <SysPaths.h>

#include <QCoreApplication>

namespace vemo_client {

using vemo_data::FolderLock;

Outcome WindowLock::take()
{
    const QString folder = vemo_worker::SysPaths::dataDir();
    const FolderLock::Outcome outcome = m_lock.take(folder + QStringLiteral("/window.lock"));
    if (outcome == FolderLock::Outcome::Taken)
        return {};
    if (outcome == FolderLock::Outcome::Held)
        return {ExitCode::Failed, QCoreApplication::translate("vemo_client::WindowLock",
                                                              "A window or another run is at work in the data folder "
                                                              "%1; close it first.")
                                      .arg(folder)};
    return {ExitCode::Disk,
            QCoreApplication::translate("vemo_client::WindowLock", "The data folder %1 can't be used.").arg(folder)};
}

} // namespace vemo_client
