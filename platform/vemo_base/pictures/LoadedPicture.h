#pragma once

#include <QImage>
#include <QSize>
#include <QString>
#include <QVector>

namespace vemo_base {

/// A picture as the viewer paints it: the whole one, then each a half of the one before, so that a picture that is
/// shown small is neither slow nor rough.
struct LoadedPicture
{
    QVector<QImage> levels; ///< empty when it can't be read
    QSize size;             ///< of the file's picture, upright; larger than the first level above the viewer's limit
    QString error;          ///< a sentence, when it can't be read

    qint64 bytes() const;
    /// The coarsest level that still has a pixel for each pixel of the screen when the picture is `width` pixels wide.
    const QImage& levelFor(double width) const;
    static LoadedPicture of(const QImage& image);
};

} // namespace vemo_base
