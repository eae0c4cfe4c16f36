#pragma once

#include <pictures/Thumbnails.h>

#include <QStyledItemDelegate>

namespace vemo_filesCenter {

/// Paints a file of the files browser: its picture, or until that is there its icon, above its name on two lines. Asks
/// nobody for a picture; what is in memory is painted. GUI thread.
class LocalFilesDelegate final : public QStyledItemDelegate
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalFilesDelegate)

public:
    static constexpr QSize iconSize{90, 90};
    static constexpr QSize cellSize{256, 128};
    static constexpr QSize pictureBox{90, 64};

    explicit LocalFilesDelegate(QObject* parent = nullptr);

    static vemo_base::ThumbnailKey thumbnailKey(const QString& path, double ratio);
    /// The name on one line or two, each as wide as `width` at most, elided in the middle. Characters that would be
    /// invisible or turn the text around are replaced.
    static QStringList nameLines(const QString& name, const QFontMetrics& metrics, int width);

    /// The whole name, below the cell.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    void paintPicture(QPainter* painter, const QRect& place, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const;
};

} // namespace vemo_filesCenter
