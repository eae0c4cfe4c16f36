#include "TaskFiles.h"

#include "DownloadFileName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace vemo_filesCenter {

namespace TaskFiles {

namespace {

/// "name (2).mp4" -> "name.mp4"
QString withoutNumber(const QString& name)
{
    static const QRegularExpression number(QStringLiteral(R"( \(\d{1,4}\)(?=\.[^.]*$))"));
    QString plain = name;
    return plain.remove(number);
}

QString numbered(const QString& name, int number)
{
    if (number < 2)
        return name;
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    return name.left(dot) % QStringLiteral(" (%1)").arg(number) % (dot < 0 ? QString() : name.mid(dot));
}

} // namespace

QString freeTargetPath(const QString& folder, const QString& name, const std::function<bool(const QString&)>& claimed)
{
    const QString plain = withoutNumber(name);
    for (int number = 1;; ++number) {
        const QString path = folder % QLatin1Char('/') % numbered(plain, number);
        const QFileInfo there(path);
        if (!there.exists() && !there.isSymLink() && !(claimed && claimed(path)))
            return path;
    }
}

QString makeSegmentFileName(const QString& path, const QDateTime& begin, const QDateTime& end, bool renameOnDisk)
{
    const QFileInfo file(path);
    QStringList parts = file.fileName().split(QLatin1Char('@'));
    if (parts.size() < 2)
        return path;
    parts[parts.size() - 2] = compactTime(begin) % QLatin1Char('~') % compactTime(end);
    const QString name = parts.join(QLatin1Char('@'));
    const QString folder = path.left(path.size() - file.fileName().size());
    if (!renameOnDisk || !file.exists())
        return folder + name;
    if (name == file.fileName())
        return path;
    const QString target = freeTargetPath(folder.isEmpty() ? QStringLiteral(".") : folder.chopped(1), name, {});
    return QFile::rename(path, target) ? target : path;
}

QString comparable(const QString& path)
{
    return QDir::cleanPath(path).toCaseFolded();
}

} // namespace TaskFiles

} // namespace vemo_filesCenter
