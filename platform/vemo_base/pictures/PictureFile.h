#pragma once

#include "vemo_base_global.h"

#include <QImage>
#include <QSize>
#include <QString>

namespace vemo_base {

/// How a picture goes into a box: whole inside of it, or filling it with the overhang cut off evenly.
enum class PictureFit : int { Whole = 0, Cover };

/// What came of reading a picture file.
struct Picture
{
    QImage image;  ///< upright, in the painter's own format; null when it can't be read
    QSize size;    ///< of the whole picture, upright
    QString error; ///< a sentence, when it can't be read
};

/// Reads JPEG, PNG and BMP files that may come from anywhere. Any thread but the GUI thread.
///
/// Only regular files are opened, so that a pipe or a device never blocks. The kind is told by the first bytes, not by
/// the name. Files, edges and pixels above the limits are refused before anything is allocated for them. The camera's
/// orientation is applied.
class VEMO_BASE_EXPORT PictureFile final
{
public:
    PictureFile() = delete;

    static constexpr qint64 maxFileBytes = 256LL * 1024 * 1024;
    static constexpr int maxEdge = 65500; ///< the most that JPEG knows
    static constexpr qint64 maxJpegPixels = 120'000'000;
    static constexpr qint64 maxPixels = 64'000'000; ///< of kinds that can't be scaled while they are decoded

    /// The picture scaled down, never up, to go into `box` (pixels). It is scaled while it is decoded where the kind
    /// can: a JPEG then costs a fraction of the whole.
    static Picture readScaled(const QString& path, const QSize& box, PictureFit fit);
    /// The picture with at most `pixelLimit` pixels.
    static Picture read(const QString& path, qint64 pixelLimit);
    /// `whole` as it goes into `box`, without its overhang cut; never larger than `whole`.
    static QSize scaledSize(const QSize& whole, const QSize& box, PictureFit fit);
    /// Scales an image and cuts its overhang as readScaled() does.
    static QImage fitted(const QImage& image, const QSize& box, PictureFit fit);
};

} // namespace vemo_base
