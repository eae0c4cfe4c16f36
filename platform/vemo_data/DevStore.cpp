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

bool readChannels(QSqlDatabase& db, QList<DevStore::Stored>* devs)
{
    QHash<QString, vms_sdk::DevInfo*> byId;
    for (DevStore::Stored& stored : *devs)
        byId.insert(stored.first.devId, &stored.second);
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT dev_id, channel_no, name, recording_token, profile_token FROM device_channels "
                                 "ORDER BY dev_id, channel_no"));
    if (!carryOut(query))
        return false;
    while (query.next()) {
        vms_sdk::DevInfo* info = byId.value(query.value(0).toString());
        if (!info)
            continue;
        vms_sdk::ChannelInfo channel;
        channel.channelNo = query.value(1).toInt();
        channel.name = query.value(2).toString();
        channel.recordingToken = query.value(3).toString();
        channel.profileToken = query.value(4).toString();
        info->channels.append(channel);
    }
    return true;
}

} // namespace

bool DevStore::all(QSqlDatabase& db, QList<Stored>* devs)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT dev_id, name, address, user_name, key_sha256, manufacturer, model, firmware, "
                                 "serial_number, type, supports_backup FROM devices ORDER BY seq"));
    if (!carryOut(query))
        return false;
    while (query.next()) {
        DevRecord record;
        record.devId = query.value(0).toString();
        record.name = query.value(1).toString();
        record.address = QUrl(query.value(2).toString(), QUrl::StrictMode);
        record.user = query.value(3).toString();
        record.pinnedKeySha256 = query.value(4).toByteArray();
        vms_sdk::DevInfo info;
        info.devId = record.devId;
        info.manufacturer = query.value(5).toString();
        info.model = query.value(6).toString();
        info.firmware = query.value(7).toString();
        info.serialNumber = query.value(8).toString();
        info.type = query.value(9).toInt();
        info.supportsBackup = query.value(10).toBool();
        devs->append({record, info});
    }
    return readChannels(db, devs);
}

bool DevStore::put(QSqlDatabase& db, const DevRecord& record)
{
    QSqlQuery query(db);
    query.prepare(
        QStringLiteral("INSERT INTO devices (dev_id, name, address, user_name, key_sha256) VALUES (?, ?, ?, ?, ?) "
                       "ON CONFLICT (dev_id) DO UPDATE SET name = excluded.name, address = excluded.address, "
                       "user_name = excluded.user_name, key_sha256 = excluded.key_sha256"));
    query.addBindValue(record.devId);
    query.addBindValue(text(record.name));
    query.addBindValue(text(record.address.toString(QUrl::RemoveUserInfo | QUrl::FullyEncoded)));
    query.addBindValue(text(record.user));
    query.addBindValue(record.pinnedKeySha256.isEmpty() ? QVariant(QVariant::ByteArray)
                                                        : QVariant(record.pinnedKeySha256));
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

bool DevStore::remove(QSqlDatabase& db, const QString& devId)
{
    QSqlQuery query(db);
    query.prepare(QStringLiteral("DELETE FROM devices WHERE dev_id = ?"));
    query.addBindValue(devId);
    return carryOut(query);
}

} // namespace vemo_data
