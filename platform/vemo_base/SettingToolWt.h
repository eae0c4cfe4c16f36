#pragma once

#include "vemo_base_global.h"

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVariantAnimation;
class QVBoxLayout;

namespace vemo_base {

/// A tool that slides in over the trailing edge of `host`, which is veiled meanwhile: a title, a body and a foot with
/// buttons. Esc, its close button or a click beside it hide it and give the focus back. Child of the host and as large
/// as it; GUI thread. It slides in 180 ms, or at once where the desktop shows no effects.
class VEMO_BASE_EXPORT SettingToolWt : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(SettingToolWt)

public:
    static constexpr int panelWidth = 424;

    SettingToolWt(const QString& title, QWidget* host);
    ~SettingToolWt() override;

    void setTitleNote(const QString& note);
    void showSettingToolWt();
    void hideSettingToolWt();

signals:
    /// When it has slid out.
    void signalHidden();

protected:
    /// Where the tool's own widgets go; the foot takes buttons, trailing.
    QVBoxLayout* body() const { return m_body; }
    QHBoxLayout* foot() const { return m_foot; }

    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void arrange();
    void vanish();
    QRect panelRect() const;

    QWidget* m_panel;
    QLabel* m_note;
    QVBoxLayout* m_body;
    QHBoxLayout* m_foot;
    QVariantAnimation* m_slide;
    double m_shown = 0; ///< of the panel, 0 to 1
    QPointer<QWidget> m_focusBefore;
};

} // namespace vemo_base
