#include "VerbFolder.h"

#include <DataFolder.h>
#include <SysPaths.h>

#include <QCoreApplication>
#include <QDir>

namespace vemo_client {

using vemo_data::FolderLock;

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
        if (hasLeftovers(parent + QLatin1Char('/') + name) &&
            lock(parent + QLatin1Char('/') + name) == FolderLock::Outcome::Taken)
            return {};
    }
    for (int number = 1; number <= mostAtOnce; ++number) {
        const FolderLock::Outcome outcome = lock(parent + QLatin1Char('/') + QString::number(number));
        if (outcome == FolderLock::Outcome::Taken)
            return {};
        if (outcome != FolderLock::Outcome::Held)
            break;
    }
    return {ExitCode::Disk,
            QCoreApplication::translate("vemo_client::VerbFolder", "The data folder %1 can't be used.").arg(parent)};
}

FolderLock::Outcome VerbFolder::lock(const QString& folder)
{
    vemo_data::DataFolder::makePrivateFolder(folder);
    m_lock = std::make_unique<FolderLock>();
    const FolderLock::Outcome outcome = m_lock->take(folder + QStringLiteral("/lock"));
    if (outcome == FolderLock::Outcome::Taken)
        vemo_worker::SysPaths::setRoot(folder);
    return outcome;
}

} // namespace vemo_client
