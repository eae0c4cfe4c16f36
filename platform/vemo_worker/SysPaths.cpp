#include "SysPaths.h"

#include <DataFolder.h>

namespace vemo_worker {

using vemo_data::DataFolder;

namespace {

QString below(const QString& folder, const char* name)
{
    const QString path = folder + QLatin1Char('/') + QLatin1String(name);
    DataFolder::makePrivateFolder(path);
    return path;
}

} // namespace

void SysPaths::setRoot(const QString& folder)
{
    DataFolder::setRoot(folder);
}

QString SysPaths::configDir()
{
    return DataFolder::configDir();
}

QString SysPaths::dataDir()
{
    return DataFolder::dataDir();
}

QString SysPaths::logDir()
{
    return below(dataDir(), "logs");
}

QString SysPaths::tempDir()
{
    return below(dataDir(), "temp");
}

} // namespace vemo_worker
