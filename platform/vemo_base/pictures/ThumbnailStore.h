#pragma once

#include "vemo_base_global.h"

#include <QDateTime>
#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace vemo_base {

/// The desktop's shared thumbnail cache, by the rules of freedesktop.org's Thumbnail Managing Standard, so that the
/// file manager's thumbnails serve here and ours there; on Windows a folder of the client's own in the same format. Any
/// thread; has no state but the folder.
///
/// A thumbnail is a PNG named by the MD5 of the file's URI, which says inside of which file and of which time it is. It
/// counts only while both hold. Folders are open to their owner alone, files too; a file is written beside its place
/// and renamed. What fails here costs nothing but time.
class VEMO_BASE_EXPORT ThumbnailStore final
{
public:
    /// Longest edge of a thumbnail, in pixels.
    enum class Bucket : int { Unknown = 0, Normal = 128, Large = 256, ExtraLarge = 512, TwiceExtraLarge = 1024 };

    /// Which file, as it was when it was looked at.
    struct Original
    {
        QString path; ///< absolute
        qint64 modifiedS = 0;
        qint64 bytes = 0;
    };

    struct Entry
    {
        QImage image;
        QSize pictureSize; ///< of the original; empty when the thumbnail's maker did not say
    };

    static QString defaultRoot();
    explicit ThumbnailStore(const QString& root = defaultRoot());

    /// The smallest bucket for pictures whose longest edge is to be so many pixels.
    static Bucket bucketFor(int longestEdge);
    static QString uriOf(const QString& path);
    QString filePath(const QString& path, Bucket bucket) const;

    std::optional<Entry> find(const Original& original, Bucket bucket) const;
    bool store(const Original& original, Bucket bucket, const Entry& entry) const;
    /// The client tried this file, as it is, and failed.
    bool isKnownFailure(const Original& original) const;
    bool storeFailure(const Original& original) const;
    /// The file has gone, or is another one now.
    void remove(const QString& path) const;

private:
    QString failurePath(const QString& path) const;
    bool write(const QImage& image, const Original& original, const QSize& pictureSize, const QString& target) const;
    bool isInside(const QString& path) const;

    QString m_root;
};

} // namespace vemo_base
