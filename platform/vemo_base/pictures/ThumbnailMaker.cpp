#include "ThumbnailMaker.h"

#include "frames/FrameLibrary.h"
#include "ThumbnailStore.h"

#include <QDateTime>
#include <QFileInfo>

namespace vemo_base {

namespace {

// A file that changed this little ago may still be written; what comes of it is not kept on the disk.
constexpr qint64 settledAfterS = 5;

bool isRecording(const QString& path)
{
    return path.endsWith(QLatin1String(".mp4"), Qt::CaseInsensitive);
}

Picture readPicture(const QString& path, const QSize& box, PictureFit fit)
{
    return isRecording(path) ? FrameLibrary::firstKeyFrame(path, box, fit) : PictureFile::readScaled(path, box, fit);
}

Thumbnail ready(const QImage& image, const QSize& pictureSize, const ThumbnailKey& key)
{
    Thumbnail thumbnail;
    thumbnail.state = Thumbnail::State::Ready;
    thumbnail.image =
        PictureFile::fitted(image, key.box, key.fit)
            .convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    thumbnail.pictureSize = pictureSize;
    return thumbnail;
}

Thumbnail unreadable()
{
    Thumbnail thumbnail;
    thumbnail.state = Thumbnail::State::Unreadable;
    return thumbnail;
}

/// Whether a stored thumbnail is fine enough for the box: one of a picture much wider than the box may be too low.
bool isFineEnough(const ThumbnailStore::Entry& entry, const ThumbnailKey& key)
{
    if (entry.pictureSize.isEmpty())
        return PictureFile::scaledSize(entry.image.size() * 2, key.box, key.fit).width() <= entry.image.width();
    const QSize wanted = PictureFile::scaledSize(entry.pictureSize, key.box, key.fit);
    return entry.image.width() >= wanted.width() - 1 && entry.image.height() >= wanted.height() - 1;
}

} // namespace

Thumbnail ThumbnailMaker::make(const ThumbnailKey& key, const ThumbnailStore& store)
{
    const QFileInfo info(key.path);
    if (!info.isFile() || key.box.isEmpty())
        return unreadable();
    const ThumbnailStore::Original original{key.path, info.lastModified().toSecsSinceEpoch(), info.size()};
    const auto bucket = ThumbnailStore::bucketFor(qMax(key.box.width(), key.box.height()));
    if (const auto entry = store.find(original, bucket)) {
        if (isFineEnough(*entry, key))
            return ready(entry->image, entry->pictureSize, key);
    }
    if (store.isKnownFailure(original))
        return unreadable();

    // Decoded to the bucket's own size, so that the same file serves for other boxes and other programs.
    const int edge = static_cast<int>(bucket);
    const bool toBucket = bucket != ThumbnailStore::Bucket::Unknown;
    const Picture picture =
        toBucket ? readPicture(key.path, {edge, edge}, PictureFit::Whole) : readPicture(key.path, key.box, key.fit);
    const bool isSettled = QDateTime::currentSecsSinceEpoch() - original.modifiedS > settledAfterS;
    if (picture.image.isNull()) {
        if (isSettled)
            store.storeFailure(original);
        return unreadable();
    }
    const ThumbnailStore::Entry made{picture.image, picture.size};
    if (toBucket && !isFineEnough(made, key)) {
        const Picture finer = readPicture(key.path, key.box, key.fit);
        if (!finer.image.isNull())
            return ready(finer.image, finer.size, key);
    }
    if (toBucket && isSettled && picture.image.size() != picture.size)
        store.store(original, bucket, made);
    return ready(picture.image, picture.size, key);
}

} // namespace vemo_base
