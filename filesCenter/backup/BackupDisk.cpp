#include "BackupDisk.h"

#include <PlainFile.h>

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QUuid>

namespace vemo_filesCenter {

namespace {

constexpr qint64 longestMark = 64;

QString markPath(const QString& root)
{
    return root % QLatin1Char('/') % BackupDisk::markName();
}

QString readMark(const QString& root)
{
    QFile file;
    if (!VCOMMON::PlainFile::open(file, markPath(root)).isEmpty())
        return {};
    return QString::fromLatin1(file.read(longestMark)).trimmed();
}

/// Empty when the folder takes no file.
QString makeMark(const QString& root)
{
    const QString mark = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QFile file(markPath(root));
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return {};
    const QByteArray line = mark.toLatin1() + '\n';
    return file.write(line) == line.size() && file.flush() ? mark : QString();
}

/// The place lies on the disk below the one that was mounted there.
bool isUnmounted(const QString& mountPoint, const QString& before)
{
    return before.size() > mountPoint.size() && before.startsWith(mountPoint);
}

} // namespace

QString BackupDisk::markName()
{
    return QStringLiteral(".vemo-backup");
}

bool BackupDisk::look(const QString& root, const QString& mountPoint)
{
    if (!QFileInfo(root).isDir())
        return false;
    QString mark = readMark(root);
    if (root == m_root)
        return !mark.isEmpty() && mark == m_mark;
    const QString present = QStorageInfo(root).rootPath();
    if (mark.isEmpty() && isUnmounted(present, mountPoint))
        return false;
    if (mark.isEmpty())
        mark = makeMark(root);
    if (mark.isEmpty())
        return false;
    m_root = root;
    m_mark = mark;
    m_mountPoint = present;
    return true;
}

} // namespace vemo_filesCenter
