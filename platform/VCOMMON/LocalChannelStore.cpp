#include "LocalChannelStore.h"

#include "SqlStep.h"

#include <QSqlQuery>
#include <QVariant>

namespace VCOMMON {

bool LocalChannel::operator==(const LocalChannel& other) const
{
    return devId == other.devId && channelNo == other.channelNo && channelId == other.channelId &&
           channelName == other.channelName && devName == other.devName;
}

uint qHash(const LocalChannel& channel, uint seed)
{
    return ::qHash(channel.devId, seed) ^ ::qHash(channel.channelName, seed) ^ static_cast<uint>(channel.channelNo);
}

qint64 LocalChannelStore::rowOf(const LocalChannel& channel)
{
    const auto known = m_rows.constFind(channel);
    if (known != m_rows.constEnd())
        return *known;
    const QVariantList values{SqlStep::notNull(channel.devId), channel.channelNo, SqlStep::notNull(channel.channelId),
                              SqlStep::notNull(channel.channelName), SqlStep::notNull(channel.devName)};
    SqlStep add(m_db, "INSERT OR IGNORE INTO local_channels (dev_id, channel_no, channel_id, channel_name, dev_name) "
                      "VALUES (?, ?, ?, ?, ?)");
    SqlStep find(m_db, "SELECT id FROM local_channels WHERE dev_id = ? AND channel_no = ? AND channel_id = ? "
                       "AND channel_name = ? AND dev_name = ?");
    if (!add.run(values) || !find.run(values) || !find.query().next())
        return 0;
    return *m_rows.insert(channel, find.query().value(0).toLongLong());
}

bool LocalChannelStore::readAll(QHash<qint64, LocalChannel>* channels)
{
    SqlStep all(m_db, "SELECT id, dev_id, channel_no, channel_id, channel_name, dev_name FROM local_channels");
    if (!all.run({}))
        return false;
    QSqlQuery& query = all.query();
    while (query.next())
        channels->insert(query.value(0).toLongLong(),
                         {query.value(1).toString(), query.value(2).toInt(), query.value(3).toString(),
                          query.value(4).toString(), query.value(5).toString()});
    return true;
}

} // namespace VCOMMON
