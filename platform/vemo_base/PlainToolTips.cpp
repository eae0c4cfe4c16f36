#include "PlainToolTips.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace vemo_base {

PlainToolTips::PlainToolTips(QObject* parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

PlainToolTips::~PlainToolTips() = default;

QString PlainToolTips::shown(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

bool PlainToolTips::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = event->type() == QEvent::ToolTip ? qobject_cast<QWidget*>(watched) : nullptr;
    return widget ? show(widget, *static_cast<QHelpEvent*>(event)) : QObject::eventFilter(watched, event);
}

bool PlainToolTips::show(QWidget* widget, const QHelpEvent& event)
{
    QString tip = widget->toolTip();
    QRect place;
    const auto* view = qobject_cast<QAbstractItemView*>(widget->parentWidget());
    if (view && view->viewport() == widget) {
        const QModelIndex index = view->indexAt(event.pos());
        tip = index.data(Qt::ToolTipRole).toString();
        place = view->visualRect(index);
    }
    if (!Qt::mightBeRichText(tip))
        return false; // as usual
    QToolTip::showText(event.globalPos(), shown(tip), widget, place);
    return true;
}

} // namespace vemo_base
