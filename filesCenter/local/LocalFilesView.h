#pragma once

#include <pictures/Thumbnails.h>

#include <QHash>
#include <QListView>
#include <QPersistentModelIndex>
#include <QTimer>

namespace vemo_filesCenter {

/// The files of a folder as large icons in a grid. Asks for the pictures of the files in view, and of the row below and
/// above, and takes back what has left the view before it came. GUI thread.
class LocalFilesView final : public QListView
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalFilesView)

public:
    explicit LocalFilesView(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;
    void setRootIndex(const QModelIndex& index) override;

signals:
    void signalDeleteRequested();
    void signalMenuRequested(const QModelIndex& index, const QPoint& globalPos);

protected:
    bool event(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void askLater();
    void askForPictures();
    void showThumbnail(const vemo_base::ThumbnailKey& key);
    void takeChange(const QModelIndex& first, const QModelIndex& last);
    void setKeyboardFocus(bool byKeyboard);
    int firstRowBelow(int y) const; ///< first row whose bottom is at or below `y`

    QTimer m_asking;
    QHash<vemo_base::ThumbnailKey, QPersistentModelIndex> m_inView;
};

} // namespace vemo_filesCenter
