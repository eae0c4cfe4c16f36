#include "DisabledWaitingWtManager.h"

#include "DisabledWaitingWt.h"

namespace vemo_base {

DisabledWaitingWtManager& DisabledWaitingWtManager::instance()
{
    // Never destroyed: a widget that outlives main()'s end still takes itself out.
    static auto* manager = new DisabledWaitingWtManager;
    return *manager;
}

void DisabledWaitingWtManager::destroyDisabledWaitingWt(const QUuid& uuid)
{
    // Not at once: this may be called from one of the widget's own signals.
    if (DisabledWaitingWt* widget = m_widgets.take(uuid)) {
        widget->hide();
        widget->deleteLater();
    }
}

void DisabledWaitingWtManager::updateDisabledWaitingWtDescription(const QUuid& uuid, const QString& description)
{
    if (DisabledWaitingWt* widget = m_widgets.value(uuid))
        widget->setDescription(description);
}

void DisabledWaitingWtManager::add(DisabledWaitingWt* widget)
{
    m_widgets.insert(widget->getUuid(), widget);
}

} // namespace vemo_base
