#pragma once

#include "vemo_base_global.h"

#include <QHash>
#include <QUuid>

namespace vemo_base {

class DisabledWaitingWt;

/// Finds waiting widgets by their ids, so that whoever waits for an answer keeps an id and no pointer. One object a
/// process, GUI thread. An id whose widget has gone with its parent is no fault: nothing happens then.
class VEMO_BASE_EXPORT DisabledWaitingWtManager final
{
    Q_DISABLE_COPY_MOVE(DisabledWaitingWtManager)

public:
    static DisabledWaitingWtManager& instance();

    void destroyDisabledWaitingWt(const QUuid& uuid);
    void updateDisabledWaitingWtDescription(const QUuid& uuid, const QString& description);

    // For the waiting widgets themselves:
    void add(DisabledWaitingWt* widget);
    void remove(const QUuid& uuid) { m_widgets.remove(uuid); }

private:
    DisabledWaitingWtManager() = default;
    ~DisabledWaitingWtManager() = default;

    QHash<QUuid, DisabledWaitingWt*> m_widgets;
};

} // namespace vemo_base
