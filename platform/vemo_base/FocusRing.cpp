#include "FocusRing.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

namespace vemo_base {

namespace {

bool isField(const QWidget* widget)
{
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QAbstractSpinBox*>(widget);
}

bool isButton(const QWidget* widget)
{
    return qobject_cast<const QPushButton*>(widget) || qobject_cast<const QToolButton*>(widget) ||
           qobject_cast<const QCheckBox*>(widget);
}

bool isKeyboard(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

} // namespace

FocusRing::FocusRing(QObject* parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

FocusRing::~FocusRing()
{
    delete m_frame;
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        show(isField(widget) || (isButton(widget) && isKeyboard(reason)) ? widget : nullptr);
    } else if (event->type() == QEvent::FocusOut && m_frame && watched == m_frame->widget()) {
        show(nullptr);
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::show(QWidget* widget)
{
    if (!widget && !m_frame)
        return;
    // An editor inside a spin box or an editable combo is ringed with the whole control.
    while (widget && isField(widget->parentWidget()))
        widget = widget->parentWidget();
    if (!m_frame)
        m_frame = new QFocusFrame;
    m_frame->setWidget(widget);
}

} // namespace vemo_base
