#include "FadingBar.h"

#include <QApplication>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QStyle>
#include <QWidget>

namespace vemo_base {

namespace {

constexpr int restMs = 3000;
constexpr int fadeMs = 180;

} // namespace

FadingBar::FadingBar(QWidget* bar, QWidget* window)
    : QObject(window)
    , m_bar(bar)
    , m_window(window)
    , m_effect(new QGraphicsOpacityEffect(bar))
    , m_animation(new QPropertyAnimation(m_effect, "opacity", this))
{
    m_effect->setEnabled(false);
    bar->setGraphicsEffect(m_effect);
    m_rest.setSingleShot(true);
    m_rest.setInterval(restMs);
    connect(&m_rest, &QTimer::timeout, this, &FadingBar::fade);
    connect(m_animation, &QPropertyAnimation::finished, m_bar, &QWidget::hide);
}

void FadingBar::setActive(bool active)
{
    if (m_active == active)
        return;
    m_active = active;
    if (active) {
        const auto children = m_window->findChildren<QWidget*>();
        for (QWidget* child : children)
            child->setMouseTracking(true);
        qApp->installEventFilter(this);
        wake();
    } else {
        qApp->removeEventFilter(this);
        wake();
        m_rest.stop();
    }
}

void FadingBar::wake()
{
    m_animation->stop();
    m_effect->setEnabled(false);
    m_bar->show();
    m_window->unsetCursor();
    m_rest.start();
}

void FadingBar::fade()
{
    // Never under the hand: an open list of speeds, a slider being dragged.
    if (QApplication::activePopupWidget() || QApplication::mouseButtons() != Qt::NoButton || m_bar->underMouse()) {
        m_rest.start();
        return;
    }
    m_window->setCursor(Qt::BlankCursor);
    if (m_window->style()->styleHint(QStyle::SH_Widget_Animation_Duration) <= 0) {
        m_bar->hide();
        return;
    }
    m_effect->setOpacity(1);
    m_effect->setEnabled(true);
    m_animation->setDuration(fadeMs);
    m_animation->setStartValue(1.0);
    m_animation->setEndValue(0.0);
    m_animation->start();
}

bool FadingBar::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::KeyPress:
        if (watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == m_window)
            wake();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace vemo_base
