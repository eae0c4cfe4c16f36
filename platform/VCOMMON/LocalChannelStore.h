#pragma once

#include <QHash>
#include <QSqlDatabase>
#include <QString>

namespace VCOMMON {

/// What the records of local files say of their channel.
struct LocalChannel
{
    QString devId;
    int channelNo = 0;
    QString channelId;
    QString channelName;
    QString devName;

    bool operator==(const LocalChannel& other) const;
};

uint qHash(const LocalChannel& channel, uint seed = 0);

/// The channels of local recordings and snapshots, each stored once. Made for one job of the database, on its thread.
class LocalChannelStore final
{
public:
    explicit LocalChannelStore(const QSqlDatabase& db)
        : m_db(db)
    {}

    /// The row of the channel, made when it is not there; 0 after a failure.
    qint64 rowOf(const LocalChannel& channel);
    /// Every channel by its row.
    bool readAll(QHash<qint64, LocalChannel>* channels);

private:
    QSqlDatabase m_db;
    QHash<LocalChannel, qint64> m_rows;
};

} // namespace VCOMMON
