#pragma once

#include <LocalSnapImageIndexInfo.h>
#include <pictures/Thumbnails.h>

#include <QWidget>

class QCheckBox;
class QToolButton;

namespace vemo_filesCenter {

/// One snapshot: its picture, when it was taken and how large it is, a check box, and on hover or focus the buttons
/// that enlarge, save and delete it. A box of cards makes it, fills it with one snapshot after the other as they come
/// into view, and owns it. GUI thread; the picture comes from the thumbnails when it is there.
class LocalSnapImageCard final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(LocalSnapImageCard)

public:
    static constexpr QSize cardSize{300, 170};

    explicit LocalSnapImageCard(QWidget* parent = nullptr);

    void setSnapshot(const VCOMMON::LocalSnapImageIndexInfo& info, bool isChecked);
    const VCOMMON::LocalSnapImageIndexInfo& snapshot() const { return m_info; }
    void setChecked(bool isChecked); ///< tells of no change
    /// Which thumbnail it shows, and the thumbnail.
    vemo_base::ThumbnailKey thumbnailKey() const { return m_key; }
    void setThumbnail(const vemo_base::Thumbnail& thumbnail);

    /// Asks, logs, removes file and record, and then asks for its own removal.
    void deleteSnapshot();
    void saveSnapshot();

signals: // in this order: it is the order of their indexes
    void signalCheckState(bool checked);
    void signalRequestDeleteSnapImageCard(LocalSnapImageCard* card);
    void signalEnlargeRequested(LocalSnapImageCard* card);
    void signalDragRequested(LocalSnapImageCard* card);
    void signalMenuRequested(LocalSnapImageCard* card, const QPoint& globalPos);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QToolButton* addButton(const QString& objectName, const QString& iconName, const QString& tip);
    void showButtons();
    void paintFoot(QPainter* painter) const;

    QCheckBox* m_checkBox;
    QVector<QToolButton*> m_buttons;
    VCOMMON::LocalSnapImageIndexInfo m_info;
    vemo_base::ThumbnailKey m_key;
    vemo_base::Thumbnail m_thumbnail;
    QPoint m_pressedAt;
    bool m_isHovered = false;
    bool m_showsRing = false; ///< the focus came by keyboard
};

} // namespace vemo_filesCenter
