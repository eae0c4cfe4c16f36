#pragma once

#include "vemo_base_global.h"

#include <QDialog>
#include <QPointer>

class QSizeGrip;

namespace vemo_base {

class DimVeil;
class FadingBar;
class PlayerTitleBar;

/// What the player and the picture viewer have in common: a window without the system's frame over a dimmed one, with a
/// title bar, what is shown, a bar below it and a grip. In full screen only what is shown is seen, and the bar when the
/// pointer moves. Escape leaves full screen first, then the dialog. GUI thread.
class VEMO_BASE_EXPORT FramelessDlg : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FramelessDlg)

public:
    ~FramelessDlg() override;

public slots:
    void done(int result) override;

protected:
    static constexpr int border = 1;
    static constexpr double shareOfParent = 0.9;

    FramelessDlg(QWidget* parent, const QSize& narrowest);

    /// Children of the dialog; before it is shown, once.
    void setParts(QWidget* shown, QWidget* bar, int barHeight);
    PlayerTitleBar* titleBar() const { return m_titleBar; }
    void setFullScreen(bool on);
    /// Where the dialog may lie: the window below it, or the screen.
    QRect room() const;
    /// In the middle of that room, which is dimmed.
    void place(const QSize& size);

    virtual void showFullScreenState(bool isFullScreen) = 0;
    /// False when the key means nothing here.
    virtual bool takeKey(const QKeyEvent& event) = 0;

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void arrange();

    PlayerTitleBar* const m_titleBar;
    QSizeGrip* const m_grip;
    QWidget* m_shown = nullptr;
    QWidget* m_bar = nullptr;
    FadingBar* m_fading = nullptr; ///< hides the bar in full screen
    int m_barHeight = 0;
    QPointer<DimVeil> m_veil;
    QRect m_geometryBefore; ///< full screen
};

} // namespace vemo_base
