#pragma once

#include <QFileIconProvider>
#include <QIcon>

namespace vemo_filesCenter {

/// The icons of recordings and images, by their suffixes; other files get the desktop's. Made on the GUI thread; the
/// files model asks it on a thread of its own, where it decodes nothing.
class FileIconProvider final : public QFileIconProvider
{
public:
    FileIconProvider();

    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& info) const override;

    static bool isRecording(const QString& fileName);

private:
    const QIcon m_recording;
    const QIcon m_image;
};

} // namespace vemo_filesCenter
