#include "CopyFolder.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace VCOMMON {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

CopyFolder::Id idOf(int descriptor)
{
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0)
        return {};
    return {static_cast<quint64>(status.st_dev), static_cast<quint64>(status.st_ino)};
}

bool isSame(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Some file systems can't sync a folder; their names last without.
bool syncFolder(int descriptor)
{
    return ::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EBADF;
}

} // namespace

struct CopyFolder::Handles
{
    int folder = -1;
    Id root;

    Handles() = default;
    ~Handles() { step(-1); }
    Q_DISABLE_COPY_MOVE(Handles)

    void step(int next)
    {
        if (folder >= 0)
            ::close(folder);
        folder = next;
    }

    /// Goes down into a folder of the present one and makes it if it is missing.
    bool enter(const QByteArray& name)
    {
        int next = ::openat(folder, name.constData(), folderFlags | O_NOFOLLOW);
        if (next < 0 && errno == ENOENT) {
            if (::mkdirat(folder, name.constData(), 0777) != 0 && errno != EEXIST)
                return false;
            if (!syncFolder(folder))
                return false;
            next = ::openat(folder, name.constData(), folderFlags | O_NOFOLLOW);
        }
        if (next < 0)
            return false;
        step(next);
        return true;
    }
};

CopyFolder::CopyFolder()
    : m_handles(std::make_unique<Handles>())
{}

CopyFolder::~CopyFolder() = default;

QString CopyFolder::open(const QString& path, const QString& root, const Id& known)
{
    m_path = QDir::cleanPath(path);
    const QString start = root.isEmpty() ? m_path : QDir::cleanPath(root);
    m_handles->step(::open(QFile::encodeName(start).constData(), folderFlags));
    if (m_handles->folder < 0)
        return notThere();
    m_handles->root = idOf(m_handles->folder);
    if (isOther(known))
        return replaced(start);
    if (start == m_path)
        return {};
    const QString below = start.endsWith(QLatin1Char('/')) ? start : QString(start + QLatin1Char('/'));
    if (!m_path.startsWith(below)) {
        errno = EINVAL;
        return notThere();
    }
    const QStringList names = m_path.mid(below.size()).split(QLatin1Char('/'));
    for (const QString& name : names) {
        if (!m_handles->enter(QFile::encodeName(name)))
            return notThere();
    }
    return {};
}

CopyFolder::Id CopyFolder::rootId() const
{
    return m_handles->root;
}

qint64 CopyFolder::freeBytes() const
{
    struct statvfs disk = {};
    if (::fstatvfs(m_handles->folder, &disk) != 0)
        return -1;
    return static_cast<qint64>(disk.f_bavail) * static_cast<qint64>(disk.f_frsize);
}

bool CopyFolder::createTemporary(QFile& file, const QFile* like)
{
    struct stat source = {};
    source.st_mode = 0666;
    if (like && ::fstat(like->handle(), &source) != 0)
        return false;
    for (;;) {
        m_name = temporaryName();
        const int descriptor = ::openat(m_handles->folder, QFile::encodeName(m_name).constData(),
                                        O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, source.st_mode & 0777);
        if (descriptor < 0)
            return false;
        // Locked while it is in work: removeAbandoned() of another program leaves it alone, or was just before this.
        ::flock(descriptor, LOCK_EX | LOCK_NB);
        struct stat made = {};
        if (::fstat(descriptor, &made) == 0 && made.st_nlink == 0) {
            ::close(descriptor);
            continue;
        }
        file.setFileName(m_path + QLatin1Char('/') + m_name);
        return file.open(descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
    }
}

CopyFolder::Published CopyFolder::publish(QFile&, const QString& name)
{
    const QByteArray from = QFile::encodeName(m_name);
    const QByteArray to = QFile::encodeName(name);
    const int folder = m_handles->folder;
    int result = ::renameat2(folder, from.constData(), folder, to.constData(), RENAME_NOREPLACE);
    if (result != 0 && (errno == EINVAL || errno == ENOSYS)) {
        // The file system can't promise it: looked at first, then renamed.
        if (::faccessat(folder, to.constData(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
            return Published::Taken;
        result = ::renameat(folder, from.constData(), folder, to.constData());
    }
    if (result != 0)
        return errno == EEXIST ? Published::Taken : Published::Failed;
    m_name = name;
    return Published::Done;
}

bool CopyFolder::isPublished(const QFile& file, const QString& name) const
{
    struct stat mine = {};
    struct stat there = {};
    const QString path = m_path + QLatin1Char('/') + name;
    return ::fstat(file.handle(), &mine) == 0 && ::lstat(QFile::encodeName(path).constData(), &there) == 0 &&
           isSame(mine, there);
}

void CopyFolder::remove(QFile& file)
{
    struct stat mine = {};
    struct stat there = {};
    const QByteArray name = QFile::encodeName(m_name);
    if (::fstat(file.handle(), &mine) == 0 &&
        ::fstatat(m_handles->folder, name.constData(), &there, AT_SYMLINK_NOFOLLOW) == 0 && isSame(mine, there))
        ::unlinkat(m_handles->folder, name.constData(), 0);
    file.close();
}

bool CopyFolder::sync()
{
    return syncFolder(m_handles->folder);
}

void CopyFolder::removeAbandoned()
{
    const QStringList names =
        QDir(m_path).entryList({QStringLiteral(".vemo-*.part")}, QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& name : names) {
        if (name.size() != temporaryName().size())
            continue;
        const QByteArray encoded = QFile::encodeName(name);
        const int file = ::openat(m_handles->folder, encoded.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (file < 0)
            continue;
        struct stat status = {};
        if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && ::flock(file, LOCK_EX | LOCK_NB) == 0)
            ::unlinkat(m_handles->folder, encoded.constData(), 0);
        ::close(file);
    }
}

} // namespace VCOMMON
