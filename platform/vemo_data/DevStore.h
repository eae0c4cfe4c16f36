#pragma once

#include "DevRecord.h"

#include <VmsTypes.h>

#include <QList>
#include <QPair>

class QSqlDatabase;

namespace vemo_data {

/// Devices and channels as rows of the database. Plain functions, called on the database's thread inside a transaction.
class DevStore final
{
public:
    DevStore() = delete;

    using Stored = QPair<DevRecord, vms_sdk::DevInfo>;

    static bool all(QSqlDatabase& db, QList<Stored>* devs);
    static bool put(QSqlDatabase& db, const DevRecord& record);
    static bool putInfo(QSqlDatabase& db, const vms_sdk::DevInfo& info); ///< replaces the channels
    static bool remove(QSqlDatabase& db, const QString& devId);
};

} // namespace vemo_data
