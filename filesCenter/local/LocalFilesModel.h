#pragma once

#include <QFileSystemModel>

namespace vemo_filesCenter {

class FileIconProvider;

/// The recordings and images of one folder, and nothing else of it; follows what happens in the folder. Files can be
/// dragged out as copies and are never renamed or overwritten from here. GUI thread; the folder is read on the model's
/// own thread.
class LocalFilesModel final : public QFileSystemModel
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalFilesModel)

public:
    /// The icons must outlive it: its thread asks them to its end.
    explicit LocalFilesModel(FileIconProvider* icons, QObject* parent = nullptr);

    /// The model's root from now on.
    QModelIndex openFolder(const QString& path);
    /// Shows the files whose names contain the keyword, by the rules of wildcards; all for an empty one.
    void setKeyword(const QString& keyword);
    /// Moves the file to the recycle bin where its disk has one, else removes it, off the GUI thread.
    void removeFile(const QModelIndex& index);

    QVariant data(const QModelIndex& index, int role) const override;
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void signalRemoveFailed(const QString& filePath);
};

} // namespace vemo_filesCenter
