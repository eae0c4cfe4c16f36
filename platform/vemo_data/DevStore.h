#pragma once

#include "DevRecord.h"
#include "vemo_data_global.h"

#include <VmsTypes.h>

#include <QDateTime>
#include <QList>
#include <QMap>

class QSqlDatabase;

namespace vemo_data {

/// Devices and channels as rows of the database. Plain functions, called on the database's thread inside a transaction.
class VEMO_DATA_EXPORT DevStore final
{
public:
    DevStore() = delete;

    struct Stored
    {
        DevRecord record;
        vms_sdk::DevInfo info;           ///< as last told by the device
        QMap<int, QString> channelNames; ///< that a person gave, by channel number
        QDateTime lastSeen;              ///< UTC; invalid: never
    };

    static bool all(QSqlDatabase& db, QList<Stored>* devs);
    static bool put(QSqlDatabase& db, const DevRecord& record);
    static bool putInfo(QSqlDatabase& db, const vms_sdk::DevInfo& info); ///< replaces the channels
    static bool putLastSeen(QSqlDatabase& db, const QString& devId, const QDateTime& utc);
    /// An empty name takes it away.
    static bool putChannelName(QSqlDatabase& db, const QString& devId, int channelNo, const QString& name);
    static bool remove(QSqlDatabase& db, const QString& devId);
};

} // namespace vemo_data
