#include "FileIconProvider.h"

#include <QFileInfo>

namespace vemo_filesCenter {

FileIconProvider::FileIconProvider()
    : m_recording(QStringLiteral(":/filesCenter_images/images/recording_file_n.png"))
    , m_image(QStringLiteral(":/filesCenter_images/images/image_file_n.png"))
{}

QIcon FileIconProvider::icon(const QFileInfo& info) const
{
    const QString suffix = info.suffix().toLower();
    if (suffix == QLatin1String("mp4"))
        return m_recording;
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("png"))
        return m_image;
    return QFileIconProvider::icon(info);
}

bool FileIconProvider::isRecording(const QString& fileName)
{
    return fileName.endsWith(QLatin1String(".mp4"), Qt::CaseInsensitive);
}

} // namespace vemo_filesCenter
