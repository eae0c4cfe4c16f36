#pragma once

#include "FramelessDlg.h"

#include <QList>
#include <QPixmap>
#include <QStringList>

#include <memory>

namespace vemo_base {

/// Shows pictures, one at a time, in a window over its parent's, which is veiled meanwhile. GUI thread; whoever opens
/// it owns it and may delete it at any moment.
///
/// A dark island in both themes. Arrows, Page Up and Down, Home and End step; the wheel, + and - zoom at the pointer, a
/// double click or 0 and 1 change between fitted and actual size; dragging moves; R turns; Ctrl+C copies what is shown;
/// F fills the screen; Esc leaves. Files are loaded off the GUI thread, the shown one first, then its neighbours; what
/// can't be read says so in the place of the picture. Turning changes no file.
class VEMO_BASE_EXPORT ImageViewerDlg final : public FramelessDlg
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(ImageViewerDlg)

public:
    explicit ImageViewerDlg(QWidget* parent = nullptr);
    ~ImageViewerDlg() override;

    /// Pictures that are in memory already; shows the one at `index`.
    void setImages(const QList<QPixmap>& images, int index);
    /// Files of any number. A title for each, such as "Gate North 2026-01-10 08:14:22"; where there is none, the file's
    /// name.
    void setImageFiles(const QStringList& paths, const QStringList& titles, int index);
    int currentIndex() const;

    void setVisible(bool visible) override;

public slots:
    void done(int result) override;

signals:
    void signalShown(int index);

protected:
    void showFullScreenState(bool isFullScreen) override;
    bool takeKey(const QKeyEvent& event) override;

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace vemo_base
