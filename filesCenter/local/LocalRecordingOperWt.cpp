#include "LocalRecordingOperWt.h"

#include <QToolButton>

namespace vemo_filesCenter {

LocalRecordingOperWt::LocalRecordingOperWt(QWidget* parent)
    : TableOperWt(parent)
{
    QToolButton* file = addOperButton(QStringLiteral("openFileBt"), QStringLiteral("open-file"), tr("open the file"));
    QToolButton* folder =
        addOperButton(QStringLiteral("openFolderBt"), QStringLiteral("open-folder"), tr("open folder"));
    QToolButton* clean = addOperButton(QStringLiteral("cleanBt"), QStringLiteral("clean"), tr("delete file"));
    // The key is copied: a receiver may make the table let go of this widget.
    connect(file, &QToolButton::clicked, this, [this] {
        const QString filePath = getKey();
        emit signalOpenRecordingFile(filePath);
    });
    connect(folder, &QToolButton::clicked, this, [this] {
        const QString filePath = getKey();
        emit signalOpenRecordingFolder(filePath);
    });
    connect(clean, &QToolButton::clicked, this, &LocalRecordingOperWt::signalDeleteRecording);
}

} // namespace vemo_filesCenter
