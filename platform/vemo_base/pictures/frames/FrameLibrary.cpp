#include "FrameLibrary.h"

#include "FrameEntry.h"
#include "OwnLibrary.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLoggingCategory>

namespace vemo_base {

namespace {

constexpr int limitMs = 2000;

const vemo_frames::FrameEntry* load()
{
    QString error;
    using Entry = const vemo_frames::FrameEntry* (*)();
    const QFunctionPointer found =
        OwnLibrary::resolve(QStringLiteral("vemo_frames"), vemo_frames::frameEntryName, error);
    if (found)
        return reinterpret_cast<Entry>(found)();
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
