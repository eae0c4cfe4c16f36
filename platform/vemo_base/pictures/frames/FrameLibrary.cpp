#include "FrameLibrary.h"

#include "FrameEntry.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QLoggingCategory>

namespace vemo_base {

namespace {

constexpr int limitMs = 2000;

const vemo_frames::FrameEntry* load()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QString name = QStringLiteral("vemo_frames");
    QString error;
    for (const QString& place :
         {QString(folder + QStringLiteral("/../lib/") + name), QString(folder + QLatin1Char('/') + name)}) {
        QLibrary library(place);
        using Entry = const vemo_frames::FrameEntry* (*)();
        if (const auto function = reinterpret_cast<Entry>(library.resolve(vemo_frames::frameEntryName)))
            return function();
        error = library.errorString();
    }
    qWarning("Recordings have no pictures: %s", qUtf8Printable(error));
    return nullptr;
}

} // namespace

Picture FrameLibrary::firstKeyFrame(const QString& path, const QSize& box, PictureFit fit)
{
    static const vemo_frames::FrameEntry* const entry = load();
    Picture picture;
    vemo_frames::Frame frame;
    const vemo_frames::FrameWish wish{path.toStdString(), box.width(), box.height(), fit == PictureFit::Cover, limitMs};
    if (!entry || !QFileInfo(path).isFile() || !entry->firstKeyFrame(wish, frame)) {
        picture.error = QCoreApplication::translate("vemo_base::PictureFile", "This recording has no picture yet.");
        return picture;
    }
    const QImage view(frame.pixels.data(), frame.width, frame.height, frame.width * 4, QImage::Format_RGB32);
    picture.image = PictureFile::fitted(view, box, fit).copy();
    picture.size = {frame.pictureWidth, frame.pictureHeight};
    return picture;
}

} // namespace vemo_base
