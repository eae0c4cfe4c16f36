#include "TaskFiles.h"

#include "DownloadFileName.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>

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

namespace {

constexpr int maxTopBoxes = 16;
constexpr int maxChildren = 256;
constexpr qint64 maxTagBytes = 256 * 1024;

struct Box
{
    QByteArray type;
    qint64 begin = 0; ///< of the payload
    qint64 end = 0;
};

/// The box at `offset`; its type is empty when there is none that fits.
Box boxAt(QIODevice& device, qint64 offset, qint64 limit)
{
    constexpr int headBytes = 16;
    Box box;
    if (limit - offset < 8 || !device.seek(offset))
        return box;
    const QByteArray head = device.read(headBytes);
    if (head.size() < 8)
        return box;
    qint64 size = qFromBigEndian<quint32>(head.constData());
    qint64 headSize = 8;
    if (size == 1 && head.size() == headBytes) {
        size = qFromBigEndian<qint64>(head.constData() + 8);
        headSize = headBytes;
    } else if (size == 0) {
        size = limit - offset;
    }
    if (size < headSize || size > limit - offset)
        return box;
    box.type = head.mid(4, 4);
    box.begin = offset + headSize;
    box.end = offset + size;
    return box;
}

/// The last box of that type among the children.
Box child(QIODevice& device, qint64 begin, qint64 end, const char* type, int maxBoxes)
{
    Box found;
    for (int count = 0; count < maxBoxes && begin < end; ++count) {
        const Box box = boxAt(device, begin, end);
        if (box.type.isEmpty())
            break;
        if (box.type == type)
            found = box;
        begin = box.end;
    }
    return found;
}

/// Text of the tag "----" with that name; the list is small and was read whole.
QByteArray tagText(const QByteArray& tags, const QByteArray& name)
{
    constexpr int dataHeadBytes = 16; // size, "data", type, locale
    const int at = tags.indexOf(name);
    const int data = at < 0 ? -1 : tags.indexOf("data", at + name.size());
    if (data < 4 || data != at + name.size() + 4)
        return {};
    const qint64 size = qFromBigEndian<quint32>(tags.constData() + data - 4);
    if (size <= dataHeadBytes || size > 64 || data - 4 + size > tags.size())
        return {};
    return tags.mid(data - 4 + dataHeadBytes, static_cast<int>(size) - dataHeadBytes);
}

} // namespace

RecordingFile RecordingFile::read(const QString& path)
{
    RecordingFile found;
    QFile file(path);
    const QFileInfo info(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return found;
    found.bytes = file.size();
    const Box movie = child(file, 0, file.size(), "moov", maxTopBoxes);
    const Box user = child(file, movie.begin, movie.end, "udta", maxChildren);
    const qint64 length = user.end - user.begin;
    if (length <= 0 || length > maxTagBytes || !file.seek(user.begin))
        return found;
    const QByteArray tags = file.read(length);
    const auto time = [&tags](const char* name) {
        return QDateTime::fromString(QString::fromLatin1(tagText(tags, name)), Qt::ISODateWithMs).toLocalTime();
    };
    found.begin = time("com.vemo.start");
    found.end = time("com.vemo.end");
    return found;
}

} // namespace vemo_filesCenter
