#include "PictureFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <cmath>
#include <functional>

namespace vemo_base {

namespace {

// The largest step of scaling that a JPEG decoder takes without looking at most of each block's values.
constexpr int coarsestJpegStep = 8;
// A decoded picture that is this little smaller than asked for is not decoded at twice the size instead.
constexpr double goodEnough = 0.97;
constexpr qint64 maxBytesInMemory = 64LL * 1024 * 1024;

struct Failure
{
    Q_DECLARE_TR_FUNCTIONS(vemo_base::PictureFile)

public:
    static Picture of(const QString& sentence)
    {
        Picture picture;
        picture.error = sentence;
        return picture;
    }
    static Picture notThere() { return of(tr("The file is not there or may not be read.")); }
    static Picture noPicture() { return of(tr("This image can't be read")); }
    static Picture tooLarge(const QSize& size)
    {
        return of(tr("The image is too large to be shown: %1 x %2 pixels.").arg(size.width()).arg(size.height()));
    }
};

QByteArray formatOf(QFile& file)
{
    const QByteArray head = file.peek(8);
    if (head.startsWith("\xff\xd8\xff"))
        return QByteArrayLiteral("jpeg");
    if (head == QByteArrayLiteral("\x89PNG\r\n\x1a\n"))
        return QByteArrayLiteral("png");
    if (head.startsWith("BM"))
        return QByteArrayLiteral("bmp");
    return {};
}

QSize atLeastOne(const QSize& size)
{
    return size.expandedTo({1, 1});
}

QSize scaledBy(const QSize& size, double factor)
{
    return atLeastOne({qRound(size.width() * factor), qRound(size.height() * factor)});
}

/// The size to decode to: what a JPEG decoder gives by itself at the coarsest step that is still fine enough.
QSize decodedSize(const QByteArray& format, const QSize& stored, const QSize& wanted)
{
    if (format != "jpeg")
        return wanted;
    for (int step = coarsestJpegStep; step > 1; step /= 2) {
        const QSize size = atLeastOne(stored / step);
        if (size.width() >= wanted.width() * goodEnough && size.height() >= wanted.height() * goodEnough)
            return size;
    }
    return stored;
}

QImage painterFormat(const QImage& image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

/// `wantedSize` says, by the upright size, to what the picture is to be scaled.
Picture readAs(const QString& path, const std::function<QSize(const QSize&)>& wantedSize)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly))
        return Failure::notThere();
    if (file.size() > PictureFile::maxFileBytes)
        return Failure::of(Failure::tr("The image file is too large to be shown."));
    const QByteArray format = formatOf(file);
    if (format.isEmpty())
        return Failure::noPicture();

    // Out of memory a JPEG is decoded in two thirds of the time: the decoder looks far ahead, or else byte by byte.
    QBuffer buffer;
    if (file.size() <= maxBytesInMemory) {
        buffer.setData(file.readAll());
        buffer.open(QIODevice::ReadOnly);
    }
    QImageReader reader(buffer.isOpen() ? static_cast<QIODevice*>(&buffer) : &file, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    if (stored.isEmpty())
        return Failure::noPicture();
    const qint64 pixels = qint64(stored.width()) * stored.height();
    if (qMax(stored.width(), stored.height()) > PictureFile::maxEdge ||
        pixels > (format == "jpeg" ? PictureFile::maxJpegPixels : PictureFile::maxPixels))
        return Failure::tooLarge(stored);

    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    Picture picture;
    picture.size = turned ? stored.transposed() : stored;
    const QSize wanted = wantedSize(picture.size);
    const QSize decoded = decodedSize(format, stored, turned ? wanted.transposed() : wanted);
    if (decoded != stored)
        reader.setScaledSize(decoded);
    picture.image = reader.read();
    if (picture.image.isNull())
        return Failure::noPicture();
    picture.image = painterFormat(picture.image);
    return picture;
}

} // namespace

QSize PictureFile::scaledSize(const QSize& whole, const QSize& box, PictureFit fit)
{
    const double across = double(box.width()) / whole.width();
    const double down = double(box.height()) / whole.height();
    const double factor = fit == PictureFit::Cover ? qMax(across, down) : qMin(across, down);
    return factor < 1 ? scaledBy(whole, factor) : whole;
}

QImage PictureFile::fitted(const QImage& image, const QSize& box, PictureFit fit)
{
    const QSize wanted = scaledSize(image.size(), box, fit);
    QImage scaled =
        image.size() == wanted ? image : image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (fit == PictureFit::Cover && (wanted.width() > box.width() || wanted.height() > box.height())) {
        const QSize kept = wanted.boundedTo(box);
        scaled = scaled.copy((wanted.width() - kept.width()) / 2, (wanted.height() - kept.height()) / 2, kept.width(),
                             kept.height());
    }
    return scaled;
}

Picture PictureFile::readScaled(const QString& path, const QSize& box, PictureFit fit)
{
    Picture picture = readAs(path, [&box, fit](const QSize& whole) { return scaledSize(whole, box, fit); });
    if (!picture.image.isNull())
        picture.image = fitted(picture.image, box, fit);
    return picture;
}

Picture PictureFile::read(const QString& path, qint64 pixelLimit)
{
    return readAs(path, [pixelLimit](const QSize& whole) {
        const double pixels = double(whole.width()) * whole.height();
        return pixels > double(pixelLimit) ? scaledBy(whole, std::sqrt(double(pixelLimit) / pixels)) : whole;
    });
}

} // namespace vemo_base
