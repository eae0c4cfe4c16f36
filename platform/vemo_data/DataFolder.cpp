#include "DataFolder.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QMutex>
#include <QMutexLocker>
#include <QStandardPaths>

namespace vemo_data {

namespace {

constexpr QFile::Permissions ownerFile = QFile::ReadOwner | QFile::WriteOwner;
constexpr QFile::Permissions ownerFolder = ownerFile | QFile::ExeOwner;

QMutex rootMutex;

QString& chosenRoot()
{
    static QString folder;
    return folder;
}

QString underRoot(const QString& name, QStandardPaths::StandardLocation fallback)
{
    const QString root = DataFolder::root();
    const QString path = root.isEmpty() ? QString(QStandardPaths::writableLocation(fallback) + QStringLiteral("/vemo"))
                                        : QString(root + QLatin1Char('/') + name);
    DataFolder::makePrivateFolder(path);
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

bool DataFolder::makePrivateFolder(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return true;
    const QString parent = info.absolutePath();
    if (parent == info.absoluteFilePath() || !makePrivateFolder(parent))
        return false;
    if (!QDir(parent).mkdir(info.fileName()))
        return QFileInfo(path).isDir(); // another process may have been first
    return QFile::setPermissions(path, ownerFolder);
}

bool DataFolder::makePrivateFile(const QString& path)
{
    QFile file(path);
    if (!file.exists() && !file.open(QIODevice::ReadWrite | QIODevice::NewOnly))
        return false;
    return file.setPermissions(ownerFile);
}

bool DataFolder::tryLock(QLockFile* lock, const QString& path)
{
    constexpr qint64 madeWithinSeconds = 2;
    lock->setStaleLockTime(0);
    if (lock->tryLock())
        return true;
    qint64 pid = 0;
    QString host;
    QString program;
    const bool namesNobody = lock->error() == QLockFile::LockFailedError && !lock->getLockInfo(&pid, &host, &program);
    return namesNobody && QFileInfo(path).lastModified().secsTo(QDateTime::currentDateTime()) > madeWithinSeconds &&
           QFile::remove(path) && lock->tryLock();
}

} // namespace vemo_data
