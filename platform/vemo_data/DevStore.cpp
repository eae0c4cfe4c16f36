#include "DevStore.h"

#include <QDebug>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace vemo_data {

namespace {

bool carryOut(QSqlQuery& query)
{
    if (query.exec())
        return true;
    qWarning().noquote() << "devices:" << query.lastError().text();
    return false;
}

QString text(const QString& value)
{
    return value.isNull() ? QStringLiteral("") : value;
}

using ById = QHash<QString, DevStore::Stored*>;

bool readChannelNames(QSqlDatabase& db, const ById& byId)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT dev_id, channel_no, name FROM device_channel_names"));
    if (!carryOut(query))
        return false;
    while (query.next()) {
        if (DevStore::Stored* stored = byId.value(query.value(0).toString()))
            stored->channelNames.insert(query.value(1).toInt(), query.value(2).toString());
    }
    return true;
}

bool readChannels(QSqlDatabase& db, const ById& byId)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT dev_id, channel_no, name, recording_token, profile_token FROM device_channels "
                                 "ORDER BY dev_id, channel_no"));
    if (!carryOut(query))
        return false;
    while (query.next()) {
        DevStore::Stored* stored = byId.value(query.value(0).toString());
        if (!stored)
            continue;
        vms_sdk::ChannelInfo channel;
        channel.channelNo = query.value(1).toInt();
        channel.name = query.value(2).toString();
        channel.recordingToken = query.value(3).toString();
        channel.profileToken = query.value(4).toString();
        stored->info.channels.append(channel);
    }
    return true;
}

} // namespace

bool DevStore::all(QSqlDatabase& db, QList<Stored>* devs)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT dev_id, name, address, user_name, key_sha256, manufacturer, model, firmware, "
                                 "serial_number, type, supports_backup, group_name, enabled, kind, channel_count, "
                                 "endpoint, last_seen_utc_ms FROM devices ORDER BY seq"));
    if (!carryOut(query))
        return false;
    while (query.next()) {
        Stored stored;
        DevRecord& record = stored.record;
        record.devId = query.value(0).toString();
        record.name = query.value(1).toString();
        record.address = QUrl(query.value(2).toString(), QUrl::StrictMode);
        record.user = query.value(3).toString();
        record.pinnedKeySha256 = query.value(4).toByteArray();
        record.group = query.value(11).toString();
        record.enabled = query.value(12).toBool();
        record.kind = DevKind(query.value(13).toInt());
        record.channelCount = query.value(14).toInt();
        record.endpoint = query.value(15).toString();
        vms_sdk::DevInfo& info = stored.info;
        info.devId = record.devId;
        info.manufacturer = query.value(5).toString();
        info.model = query.value(6).toString();
        info.firmware = query.value(7).toString();
        info.serialNumber = query.value(8).toString();
        info.type = query.value(9).toInt();
        info.supportsBackup = query.value(10).toBool();
        if (!query.value(16).isNull())
            stored.lastSeen = QDateTime::fromMSecsSinceEpoch(query.value(16).toLongLong(), Qt::UTC);
        devs->append(stored);
    }
    ById byId;
    for (Stored& stored : *devs)
        byId.insert(stored.record.devId, &stored);
    return readChannels(db, byId) && readChannelNames(db, byId);
}

bool DevStore::put(QSqlDatabase& db, const DevRecord& record)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral(
        "INSERT INTO devices (dev_id, name, address, user_name, key_sha256, group_name, enabled, kind, channel_count, "
        "endpoint) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (dev_id) DO UPDATE SET name = excluded.name, "
        "address = excluded.address, user_name = excluded.user_name, key_sha256 = excluded.key_sha256, "
        "group_name = excluded.group_name, enabled = excluded.enabled, kind = excluded.kind, "
        "channel_count = excluded.channel_count, endpoint = excluded.endpoint"));
    query.addBindValue(record.devId);
    query.addBindValue(text(record.name));
    query.addBindValue(text(record.address.toString(QUrl::RemoveUserInfo | QUrl::FullyEncoded)));
    query.addBindValue(text(record.user));
    query.addBindValue(record.pinnedKeySha256.isEmpty() ? QVariant(QVariant::ByteArray)
                                                        : QVariant(record.pinnedKeySha256));
    query.addBindValue(text(record.group));
    query.addBindValue(record.enabled ? 1 : 0);
    query.addBindValue(int(record.kind));
    query.addBindValue(record.channelCount);
    query.addBindValue(text(record.endpoint));
    return carryOut(query);
}

bool DevStore::putInfo(QSqlDatabase& db, const vms_sdk::DevInfo& info)
{
    QSqlQuery device(db);
    device.prepare(QStringLiteral("UPDATE devices SET manufacturer = ?, model = ?, firmware = ?, serial_number = ?, "
                                  "type = ?, supports_backup = ? WHERE dev_id = ?"));
    device.addBindValue(text(info.manufacturer));
    device.addBindValue(text(info.model));
    device.addBindValue(text(info.firmware));
    device.addBindValue(text(info.serialNumber));
    device.addBindValue(info.type);
    device.addBindValue(info.supportsBackup ? 1 : 0);
    device.addBindValue(info.devId);
    if (!carryOut(device))
        return false;
    if (device.numRowsAffected() == 0)
        return true; // removed meanwhile

    QSqlQuery remove(db);
    remove.prepare(QStringLiteral("DELETE FROM device_channels WHERE dev_id = ?"));
    remove.addBindValue(info.devId);
    if (!carryOut(remove))
        return false;
    QSqlQuery insert(db);
    insert.prepare(QStringLiteral("INSERT OR REPLACE INTO device_channels (dev_id, channel_no, name, recording_token, "
                                  "profile_token) VALUES (?, ?, ?, ?, ?)"));
    for (const vms_sdk::ChannelInfo& channel : info.channels) {
        insert.addBindValue(info.devId);
        insert.addBindValue(channel.channelNo);
        insert.addBindValue(text(channel.name));
        insert.addBindValue(text(channel.recordingToken));
        insert.addBindValue(text(channel.profileToken));
        if (!carryOut(insert))
            return false;
    }
    return true;
}

bool DevStore::putLastSeen(QSqlDatabase& db, const QString& devId, const QDateTime& utc)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("UPDATE devices SET last_seen_utc_ms = ? WHERE dev_id = ?"));
    query.addBindValue(utc.toMSecsSinceEpoch());
    query.addBindValue(devId);
    return carryOut(query);
}

bool DevStore::putChannelName(QSqlDatabase& db, const QString& devId, int channelNo, const QString& name)
{
    QSqlQuery query(db);
    if (name.isEmpty()) {
        query.prepare(QStringLiteral("DELETE FROM device_channel_names WHERE channel_no = ? AND dev_id = ?"));
    } else {
        // Nothing for a device that was removed meanwhile.
        query.prepare(QStringLiteral("INSERT OR REPLACE INTO device_channel_names (name, dev_id, channel_no) "
                                     "SELECT ?, dev_id, ? FROM devices WHERE dev_id = ?"));
        query.addBindValue(name);
    }
    query.addBindValue(channelNo);
    query.addBindValue(devId);
    return carryOut(query);
}

bool DevStore::remove(QSqlDatabase& db, const QString& devId)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("DELETE FROM devices WHERE dev_id = ?"));
    query.addBindValue(devId);
    return carryOut(query);
}

} // namespace vemo_data
