#pragma once

#include <QPointer>
#include <QTimer>
#include <QUuid>
#include <QWidget>

#include <memory>

class QModelIndex;

namespace VCOMMON {
class VCopyLocalFile;
}

namespace vemo_base {
class EmptyStateWt;
class ImageViewerDlg;
class LocalPlaybackDlg;
class PageHeader;
} // namespace vemo_base

namespace vemo_filesCenter {

class FileIconProvider;
class LocalFilesModel;

namespace Ui {
class LocalFilesMgrPage;
}

/// Browser of the recordings and images of one folder: chosen, filtered by name, opened, copied elsewhere, deleted.
/// Works on the disk alone, whatever the indexes know, and follows what happens in the folder. A deletion moves the
/// file to the recycle bin where there is one. GUI thread, owned by the form.
class LocalFilesMgrPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalFilesMgrPage)

public:
    explicit LocalFilesMgrPage(QWidget* parent = nullptr);
    ~LocalFilesMgrPage() override;

private:
    void setUpControls();
    void setUpEmptyStates();
    void setUpConnections();

    void chooseDir();
    void openDir(const QString& dir);
    void openFile(const QModelIndex& index);
    void deleteFile();
    void saveFile();
    void copySmall(const QString& source, const QString& target);
    void copyLarge(const QString& source, const QString& target);
    void openMenu(const QModelIndex& index, const QPoint& globalPos);

    void countLater();
    void showContent();
    void lookForDir();

    const std::unique_ptr<Ui::LocalFilesMgrPage> m_ui;
    const std::unique_ptr<FileIconProvider> m_icons;
    LocalFilesModel* const m_model;
    VCOMMON::VCopyLocalFile* const m_copier;
    vemo_base::PageHeader* m_header = nullptr;
    QPointer<vemo_base::LocalPlaybackDlg> m_playbackDlg; ///< made when it is first needed, as the next one
    QPointer<vemo_base::ImageViewerDlg> m_imageViewerDlg;
    QString m_dir;
    QTimer m_looking; ///< whether the folder is there: not every file system tells when it goes
    QUuid m_waiting;  ///< of the copy in flight
    bool m_isDirGone = false;
    bool m_isLooking = false;
    bool m_isCounting = false;
};

} // namespace vemo_filesCenter
