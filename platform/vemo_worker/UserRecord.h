#pragma once

#include "vemo_worker_global.h"

#include <QDateTime>
#include <QString>

namespace vemo_worker {

/// A person who may log in to this client, as it is shown and handed on; what proves the person stays in the store.
struct VEMO_WORKER_EXPORT UserRecord
{
    QString name;
    int powers = 0; ///< bits of Power
    bool isEnabled = true;
    QDateTime lastLogin; ///< UTC; invalid: never

    /// Administrators have every power, the one over users included.
    bool isAdministrator() const;
};

} // namespace vemo_worker
