#include "LoadedPicture.h"

namespace vemo_base {

namespace {

constexpr int coarsestEdge = 256;

} // namespace

qint64 LoadedPicture::bytes() const
{
    qint64 sum = 0;
    for (const QImage& level : levels)
        sum += level.sizeInBytes();
    return sum;
}

const QImage& LoadedPicture::levelFor(double width) const
{
    int level = 0;
    while (level + 1 < levels.size() && levels.at(level + 1).width() >= width)
        ++level;
    return levels.at(level);
}

LoadedPicture LoadedPicture::of(const QImage& image)
{
    LoadedPicture picture;
    picture.size = image.size();
    picture.levels.append(image);
    while (qMax(picture.levels.last().width(), picture.levels.last().height()) > 2 * coarsestEdge) {
        const QSize half = (picture.levels.last().size() / 2).expandedTo({1, 1});
        picture.levels.append(picture.levels.last().scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return picture;
}

} // namespace vemo_base
