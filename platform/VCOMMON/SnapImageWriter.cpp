#include "SnapImageWriter.h"

#include "CopyFolder.h"
#include "FileSync.h"
#include "scan/ExifPart.h"
#include "ToolsCollection.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QMutex>
#include <QMutexLocker>
#include <QSet>

namespace VCOMMON {

namespace {

constexpr int mostNamesTried = 100;

QByteArray encode(const QImage& picture, const SnapImageFacts& facts, SnapImageWriter::Format format, int quality)
{
    const bool isJpeg = format == SnapImageWriter::Format::Jpeg;
    QBuffer buffer;
    QImageWriter writer(&buffer, isJpeg ? QByteArrayLiteral("jpeg") : QByteArrayLiteral("bmp"));
    if (isJpeg)
        writer.setQuality(quality);
    if (!buffer.open(QIODevice::WriteOnly) || !writer.write(picture))
        return {};
    QByteArray bytes = buffer.buffer();
    if (isJpeg && !ExifPart::insert(bytes, ExifPart::make(facts, picture.size())))
        return {};
    return bytes;
}

/// What a crash left is looked for once a folder, since looking goes through all its names.
void cleanOnce(CopyFolder& folder, const QString& path)
{
    static QMutex mutex;
    static QSet<QString> cleaned;
    {
        const QMutexLocker lock(&mutex);
        if (cleaned.contains(path))
            return;
        cleaned.insert(path);
    }
    folder.removeAbandoned();
}

} // namespace

SnapImageWriter::Result SnapImageWriter::write(const QString& path, const QImage& picture, const SnapImageFacts& facts,
                                               Format format, int quality)
{
    const QString folderPath = QFileInfo(path).absolutePath();
    const QString shown = QDir::toNativeSeparators(path);
    const QByteArray bytes = encode(picture, facts, format, quality);
    if (bytes.isEmpty())
        return {{}, tr("The picture for %1 can't be encoded.").arg(shown)};
    CopyFolder folder;
    if (!QDir().mkpath(folderPath))
        return {{}, tr("The folder %1 can't be made.").arg(QDir::toNativeSeparators(folderPath))};
    const QString refused = folder.open(folderPath, {}, {});
    if (!refused.isEmpty())
        return {{}, refused};

    QFile file;
    if (!folder.createTemporary(file))
        return {{}, tr("%1 can't be written: %2.").arg(shown, qt_error_string())};
    QString taken;
    auto published = CopyFolder::Published::Failed;
    if (file.write(bytes) == bytes.size() && syncToDisk(file)) {
        published = CopyFolder::Published::Taken;
        for (int i = 0; i < mostNamesTried && published == CopyFolder::Published::Taken; ++i) {
            taken = ToolsCollection::freeFileName(path);
            published = folder.publish(file, QFileInfo(taken).fileName());
        }
    }
    if (published != CopyFolder::Published::Done) {
        const QString reason = qt_error_string();
        folder.remove(file);
        return {{}, tr("%1 can't be written: %2.").arg(shown, reason)};
    }
    folder.sync();
    cleanOnce(folder, folderPath);
    return {taken, {}};
}

QString SnapImageWriter::fileName(const QString& channelName, const QDateTime& captureTime, Format format)
{
    return fileName(channelName, captureTime.toString(QStringLiteral("yyyy-MM-dd hh_mm_ss_zzz")), format);
}

QString SnapImageWriter::fileName(const QString& channelName, const QString& timeText, Format format)
{
    constexpr int timeAndSuffixBytes = 64;
    QString channel = channelName;
    ToolsCollection::cutToBytes(channel, ToolsCollection::maxFileNameBytes - timeAndSuffixBytes);
    const QString suffix = format == Format::Bmp ? QStringLiteral(".bmp") : QStringLiteral(".jpg");
    QString name = channel + QLatin1Char('@') + timeText + suffix;
    return ToolsCollection::formatLegalFileName(name, QStringLiteral("_"));
}

} // namespace VCOMMON
