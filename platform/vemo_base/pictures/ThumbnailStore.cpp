#include "ThumbnailStore.h"

#include "PictureFile.h"
#include "QuickPng.h"

#include <DataFolder.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QUrl>

#include <array>
#include <filesystem>

namespace vemo_base {

namespace {

constexpr std::array buckets{ThumbnailStore::Bucket::Normal, ThumbnailStore::Bucket::Large,
                             ThumbnailStore::Bucket::ExtraLarge, ThumbnailStore::Bucket::TwiceExtraLarge};
constexpr qint64 maxThumbnailBytes = 8LL * 1024 * 1024;

QString folderOf(ThumbnailStore::Bucket bucket)
{
    switch (bucket) {
    case ThumbnailStore::Bucket::Normal:
        return QStringLiteral("normal");
    case ThumbnailStore::Bucket::Large:
        return QStringLiteral("large");
    case ThumbnailStore::Bucket::ExtraLarge:
        return QStringLiteral("x-large");
    case ThumbnailStore::Bucket::TwiceExtraLarge:
        return QStringLiteral("xx-large");
    case ThumbnailStore::Bucket::Unknown:
        break;
    }
    return {};
}

QString uriKey()
{
    return QStringLiteral("Thumb::URI");
}

QString modifiedKey()
{
    return QStringLiteral("Thumb::MTime");
}

QString bytesKey()
{
    return QStringLiteral("Thumb::Size");
}

QString widthKey()
{
    return QStringLiteral("Thumb::Image::Width");
}

QString heightKey()
{
    return QStringLiteral("Thumb::Image::Height");
}

QString fileName(const QString& path)
{
    const QByteArray uri = ThumbnailStore::uriOf(path).toLatin1();
    return QString::fromLatin1(QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex()) % QLatin1String(".png");
}

bool isOf(const QImage& image, const ThumbnailStore::Original& original)
{
    const QString bytes = image.text(bytesKey());
    return image.text(uriKey()) == ThumbnailStore::uriOf(original.path) &&
           image.text(modifiedKey()) == QString::number(original.modifiedS) &&
           (bytes.isEmpty() || bytes == QString::number(original.bytes));
}

/// Null when there is none, or none that a thumbnail could be.
QImage readThumbnail(const QString& path)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || info.size() > maxThumbnailBytes || !file.open(QIODevice::ReadOnly))
        return {};
    QImageReader reader(&file, QByteArrayLiteral("png"));
    reader.setAutoDetectImageFormat(false);
    constexpr int edge = static_cast<int>(ThumbnailStore::Bucket::TwiceExtraLarge);
    const QSize size = reader.size();
    // The texts are asked of the image: the reader takes their names apart at colons.
    return !size.isEmpty() && size.width() <= edge && size.height() <= edge ? reader.read() : QImage();
}

bool renameOver(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(from.toStdU16String()), std::filesystem::path(to.toStdU16String()),
                            error);
    return !error;
}

} // namespace

QString ThumbnailStore::defaultRoot()
{
#if defined(Q_OS_WIN)
    const auto location = QStandardPaths::CacheLocation;
#else
    const auto location = QStandardPaths::GenericCacheLocation;
#endif
    const QString cache = QStandardPaths::writableLocation(location);
    return cache.isEmpty() ? QString() : cache + QStringLiteral("/thumbnails");
}

ThumbnailStore::ThumbnailStore(const QString& root)
    : m_root(root)
{}

ThumbnailStore::Bucket ThumbnailStore::bucketFor(int longestEdge)
{
    for (const Bucket bucket : buckets) {
        if (longestEdge <= static_cast<int>(bucket))
            return bucket;
    }
    return Bucket::Unknown;
}

QString ThumbnailStore::uriOf(const QString& path)
{
    // The characters that the other programs of the desktop leave as they are, since the URI is hashed.
    const QByteArray plain = QByteArrayLiteral("!$&'()*+,/:=@");
    const QString absolute = QDir::fromNativeSeparators(path);
    const QLatin1String start(absolute.startsWith(QLatin1Char('/')) ? "file://" : "file:///");
    return start + QString::fromLatin1(QUrl::toPercentEncoding(absolute, plain));
}

QString ThumbnailStore::filePath(const QString& path, Bucket bucket) const
{
    return m_root % QLatin1Char('/') % folderOf(bucket) % QLatin1Char('/') % fileName(path);
}

QString ThumbnailStore::failurePath(const QString& path) const
{
    return m_root % QLatin1String("/fail/vemo-1/") % fileName(path);
}

bool ThumbnailStore::isInside(const QString& path) const
{
    return path.startsWith(m_root + QLatin1Char('/'));
}

std::optional<ThumbnailStore::Entry> ThumbnailStore::find(const Original& original, Bucket bucket) const
{
    if (m_root.isEmpty() || bucket == Bucket::Unknown)
        return std::nullopt;
    Entry entry;
    entry.image = readThumbnail(filePath(original.path, bucket));
    if (entry.image.isNull() || !isOf(entry.image, original))
        return std::nullopt;
    entry.pictureSize = QSize(entry.image.text(widthKey()).toInt(), entry.image.text(heightKey()).toInt());
    return entry;
}

bool ThumbnailStore::store(const Original& original, Bucket bucket, const Entry& entry) const
{
    if (bucket == Bucket::Unknown)
        return false;
    return write(entry.image, original, entry.pictureSize, filePath(original.path, bucket));
}

bool ThumbnailStore::isKnownFailure(const Original& original) const
{
    return !m_root.isEmpty() && isOf(readThumbnail(failurePath(original.path)), original);
}

bool ThumbnailStore::storeFailure(const Original& original) const
{
    QImage nothing(1, 1, QImage::Format_ARGB32);
    nothing.fill(Qt::transparent);
    return write(nothing, original, {}, failurePath(original.path));
}

void ThumbnailStore::remove(const QString& path) const
{
    if (m_root.isEmpty())
        return;
    for (const Bucket bucket : buckets)
        QFile::remove(filePath(path, bucket));
    QFile::remove(failurePath(path));
}

bool ThumbnailStore::write(const QImage& image, const Original& original, const QSize& pictureSize,
                           const QString& target) const
{
    const QString folder = QFileInfo(target).path();
    if (m_root.isEmpty() || isInside(original.path) || !vemo_data::DataFolder::makePrivateFolder(folder))
        return false;
    QuickPng::Texts texts{{uriKey().toLatin1(), uriOf(original.path).toLatin1()},
                          {modifiedKey().toLatin1(), QByteArray::number(original.modifiedS)},
                          {bytesKey().toLatin1(), QByteArray::number(original.bytes)},
                          {"Software", "Vemo"}};
    if (!pictureSize.isEmpty()) {
        texts.append({widthKey().toLatin1(), QByteArray::number(pictureSize.width())});
        texts.append({heightKey().toLatin1(), QByteArray::number(pictureSize.height())});
    }
    QTemporaryFile file(folder + QStringLiteral("/vemo-XXXXXX.tmp")); // made for its owner alone
    if (!file.open())
        return false;
    if (!QuickPng::write(&file, image, texts) || !file.flush())
        return false;
    const QString written = file.fileName();
    file.close();
    if (!renameOver(written, target))
        return false;
    file.setAutoRemove(false);
    return true;
}

} // namespace vemo_base
