#include "VerbFolder.h"

#include <DataFolder.h>
#include <SysPaths.h>

#include <QCoreApplication>
#include <QDir>

namespace vemo_client {

namespace {

constexpr int mostAtOnce = 256;

/// Something lies there that a process left which did not come to its end.
bool hasLeftovers(const QString& folder)
{
    return !QDir(folder + QStringLiteral("/data/temp")).isEmpty();
}

} // namespace

Outcome VerbFolder::take()
{
    const QString parent = vemo_data::DataFolder::dataDir() + QStringLiteral("/headless");
    // What a crash left is to be put in order soon, so its folder goes first.
    const QStringList used = QDir(parent).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : used) {
        if (hasLeftovers(parent + QLatin1Char('/') + name) && lock(parent + QLatin1Char('/') + name))
            return {};
    }
    for (int number = 1; number <= mostAtOnce; ++number) {
        if (lock(parent + QLatin1Char('/') + QString::number(number)))
            return {};
        if (m_lock->error() != QLockFile::LockFailedError)
            break;
    }
    return {ExitCode::Disk,
            QCoreApplication::translate("vemo_client::VerbFolder", "The data folder %1 can't be used.").arg(parent)};
}

bool VerbFolder::lock(const QString& folder)
{
    vemo_data::DataFolder::makePrivateFolder(folder);
    const QString path = folder + QStringLiteral("/lock");
    m_lock = std::make_unique<QLockFile>(path);
    if (!vemo_data::DataFolder::tryLock(m_lock.get(), path))
        return false;
    vemo_worker::SysPaths::setRoot(folder);
    return true;
}

} // namespace vemo_client
