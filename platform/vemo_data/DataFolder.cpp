// platform file: making files and folders that were never anybody else's, for a moment neither
#include "DataFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QStandardPaths>

#if !defined(Q_OS_WIN)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace vemo_data {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions ownerFolder = ownerFile | QFile::ExeOwner;
constexpr QFile::Permissions ofOthers =
    QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

QMutex rootMutex;

QString& chosenRoot()
{
    static QString folder;
    return folder;
}

#if defined(Q_OS_WIN)
// What is made in a profile belongs to its owner alone.
bool makeOwnersFolder(const QString& path)
{
    return QDir().mkdir(path);
}

bool makeOwnersFile(const QString& path)
{
    return QFile(path).open(QIODevice::ReadWrite | QIODevice::NewOnly);
}
#else
bool makeOwnersFolder(const QString& path)
{
    return ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0;
}

bool makeOwnersFile(const QString& path)
{
    const int file =
        ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return file >= 0 && ::close(file) == 0;
}
#endif

/// One that others may look into was made by hand, or is a copy.
void keepToOwner(const QString& folder)
{
    if (QFile::permissions(folder) & ofOthers)
        QFile::setPermissions(folder, ownerFolder);
}

QString underRoot(const QString& name, QStandardPaths::StandardLocation fallback)
{
    const QString root = DataFolder::root();
    const QString path = root.isEmpty() ? QString(QStandardPaths::writableLocation(fallback) + QStringLiteral("/vemo"))
                                        : QString(root + QLatin1Char('/') + name);
    if (DataFolder::makePrivateFolder(path))
        keepToOwner(path);
    return path;
}

} // namespace

void DataFolder::setRoot(const QString& folder)
{
    const QMutexLocker lock(&rootMutex);
    chosenRoot() = folder.isEmpty() ? QString() : QDir(folder).absolutePath();
}

QString DataFolder::root()
{
    {
        const QMutexLocker lock(&rootMutex);
        if (!chosenRoot().isEmpty())
            return chosenRoot();
    }
    const QString fromEnvironment = qEnvironmentVariable("VEMO_DATA_DIR");
    return fromEnvironment.isEmpty() ? QString() : QDir(fromEnvironment).absolutePath();
}

QString DataFolder::configDir()
{
    return underRoot(QStringLiteral("config"), QStandardPaths::GenericConfigLocation);
}

QString DataFolder::dataDir()
{
    return underRoot(QStringLiteral("data"), QStandardPaths::GenericDataLocation);
}

QString DataFolder::databaseFile()
{
    return dataDir() + QStringLiteral("/vemo.db");
}

QString DataFolder::settingsFile()
{
    const QString path = configDir() + QStringLiteral("/settings.ini");
    makePrivateFile(path);
    return path;
}

bool DataFolder::makePrivateFolder(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return true;
    const QString parent = info.absolutePath();
    if (parent == info.absoluteFilePath() || !makePrivateFolder(parent))
        return false;
    return makeOwnersFolder(info.absoluteFilePath()) || QFileInfo(path).isDir(); // another process may have been first
}

bool DataFolder::makePrivateFile(const QString& path)
{
    if (!QFile::exists(path) && makeOwnersFile(path))
        return true;
    // Set only where they differ: to set them anew changes the file's times, which a busy disk may hold up.
    const QFile::Permissions found = QFile::permissions(path);
    return ((found & ownerFile) == ownerFile && !(found & ofOthers)) || QFile::setPermissions(path, ownerFile);
}

} // namespace vemo_data
