#pragma once

#include "vemo_base_global.h"

#include <QObject>
#include <QTimer>

class QGraphicsOpacityEffect;
class QPropertyAnimation;
class QWidget;

namespace vemo_base {

/// Lets a bar over a full-screen picture fade when the pointer rests for 3 s, together with the pointer, and brings
/// both back when it moves or a key is pressed. Does nothing while it is not active. Owned by the bar's window.
class VEMO_BASE_EXPORT FadingBar final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FadingBar)

public:
    FadingBar(QWidget* bar, QWidget* window);

    void setActive(bool active);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void wake();
    void fade();

    QWidget* const m_bar;
    QWidget* const m_window;
    QGraphicsOpacityEffect* const m_effect;
    QPropertyAnimation* const m_animation;
    QTimer m_rest;
    bool m_active = false;
};

} // namespace vemo_base
