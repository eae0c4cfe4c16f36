#include "DevsMgrData.h"

#include "Database.h"
#include "DataSignals.h"
#include "DevStore.h"

#include <ClientSignals.h>
#include <vms_sdk.h>

#include <QUuid>

#include <algorithm>

namespace vemo_data {

namespace {

constexpr qint64 keepSeenAfterMs = 1'800'000;

} // namespace

DevsMgrData::DevsMgrData()
{
    const vms_sdk::ClientSignals& client = vms_sdk::ClientSignals::instance();
    connect(&client, &vms_sdk::ClientSignals::signalDevInfoPush, this, &DevsMgrData::storeInfo);
    connect(&client, &vms_sdk::ClientSignals::signalDevStatusPush, &DataSignals::instance(),
            &DataSignals::signalDevStatusChanged);
    connect(&client, &vms_sdk::ClientSignals::signalDevStatusPush, this, &DevsMgrData::takeStatus);
}

DevsMgrData& DevsMgrData::instance()
{
    static DevsMgrData data;
    return data;
}

void DevsMgrData::load()
{
    QList<DevStore::Stored> stored;
    if (!Database::instance().run([&stored](QSqlDatabase& db) { return DevStore::all(db, &stored); }))
        return;
    for (const DevStore::Stored& dev : qAsConst(stored)) {
        const QString& devId = dev.record.devId;
        if (m_devs.contains(devId))
            continue;
        m_order.append(devId);
        Entry& entry = m_devs[devId];
        entry.record = dev.record;
        entry.info = dev.info;
        entry.channelNames = dev.channelNames;
        entry.lastSeen = dev.lastSeen;
        entry.lastSeenStored = dev.lastSeen;
        makeChannels(&entry);
        emit DataSignals::instance().signalDevInfoChanged(devId);
    }
}

QString DevsMgrData::insert(const DevRecord& given, bool session)
{
    DevRecord record = given;
    if (record.devId.isEmpty())
        record.devId = QUuid::createUuid().toString();
    record.address.setUserInfo(QString());

    const bool isNew = !m_devs.contains(record.devId);
    Entry& entry = m_devs[record.devId];
    const bool loggedOut = entry.record.enabled && !record.enabled;
    entry.record = record;
    entry.info.devId = record.devId;
    entry.session = session;
    makeChannels(&entry);
    if (isNew)
        m_order.append(record.devId);
    if (!session)
        Database::instance().post([record](QSqlDatabase& db) { return DevStore::put(db, record); });
    if (loggedOut && !isNew)
        vms_sdk::logout_dev_req(record.devId);
    emit DataSignals::instance().signalDevInfoChanged(record.devId);
    return record.devId;
}

QString DevsMgrData::addDev(const DevRecord& record)
{
    return insert(record, false);
}

QString DevsMgrData::addSessionDev(const DevRecord& record)
{
    return insert(record, true);
}

void DevsMgrData::removeDev(const QString& devId)
{
    const auto found = m_devs.constFind(devId);
    if (found == m_devs.constEnd())
        return;
    const bool session = found->session;
    m_devs.erase(found);
    m_order.removeOne(devId);
    vms_sdk::logout_dev_req(devId);
    if (!session)
        Database::instance().post([devId](QSqlDatabase& db) { return DevStore::remove(db, devId); });
    emit DataSignals::instance().signalDevRemoved(devId);
}

void DevsMgrData::setEnabled(const QString& devId, bool enabled)
{
    const auto found = m_devs.constFind(devId);
    if (found == m_devs.constEnd() || found->record.enabled == enabled)
        return;
    DevRecord record = found->record;
    record.enabled = enabled;
    insert(record, found->session);
}

void DevsMgrData::setGroup(const QString& devId, const QString& group)
{
    const auto found = m_devs.constFind(devId);
    if (found == m_devs.constEnd() || found->record.group == group.simplified())
        return;
    DevRecord record = found->record;
    record.group = group.simplified();
    insert(record, found->session);
}

void DevsMgrData::renameGroup(const QString& from, const QString& to)
{
    for (const QString& devId : qAsConst(m_order)) {
        if (devRecord(devId).group == from)
            setGroup(devId, to);
    }
}

QStringList DevsMgrData::groups() const
{
    QStringList names;
    for (const Entry& entry : m_devs) {
        if (!entry.record.group.isEmpty() && !names.contains(entry.record.group))
            names.append(entry.record.group);
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

void DevsMgrData::setChannelName(const QString& devId, int channelNo, const QString& given)
{
    const auto found = m_devs.find(devId);
    const QString name = given.simplified();
    if (found == m_devs.end() || found->channelNames.value(channelNo) == name)
        return;
    if (name.isEmpty())
        found->channelNames.remove(channelNo);
    else
        found->channelNames.insert(channelNo, name);
    makeChannels(&*found);
    if (!found->session)
        Database::instance().post(
            [=](QSqlDatabase& db) { return DevStore::putChannelName(db, devId, channelNo, name); });
    emit DataSignals::instance().signalDevInfoChanged(devId);
}

QString DevsMgrData::deviceChannelName(const QString& devId, int channelNo) const
{
    const QList<vms_sdk::ChannelInfo> told = m_devs.value(devId).info.channels;
    const auto channel = std::find_if(told.cbegin(), told.cend(), [channelNo](const vms_sdk::ChannelInfo& each) {
        return each.channelNo == channelNo;
    });
    return channel == told.cend() ? QString() : channel->name;
}

QStringList DevsMgrData::devIds() const
{
    return m_order;
}

bool DevsMgrData::contains(const QString& devId) const
{
    return m_devs.contains(devId);
}

DevRecord DevsMgrData::devRecord(const QString& devId) const
{
    return m_devs.value(devId).record;
}

vms_sdk::DevInfo DevsMgrData::getDevInfoById(const QString& devId) const
{
    const auto found = m_devs.constFind(devId);
    if (found == m_devs.constEnd())
        return {};
    vms_sdk::DevInfo info = found->info;
    if (!found->record.name.isEmpty())
        info.name = found->record.name;
    info.address = found->record.address;
    info.channels = found->channels;
    if (found->record.kind == DevKind::RtspSource)
        info.supportsBackup = false;
    return info;
}

vms_sdk::DevStatus DevsMgrData::getDevStatus(const QString& devId) const
{
    return m_devs.contains(devId) ? vms_sdk::dev_status(devId) : vms_sdk::DevStatus::Unknown;
}

QList<vms_sdk::ChannelInfo> DevsMgrData::channels(const QString& devId) const
{
    const auto found = m_devs.constFind(devId);
    return found == m_devs.constEnd() ? QList<vms_sdk::ChannelInfo>() : found->channels;
}

QDateTime DevsMgrData::lastSeen(const QString& devId) const
{
    return m_devs.value(devId).lastSeen;
}

bool DevsMgrData::isSaasDev(const QString& devId) const
{
    const auto found = m_devs.constFind(devId);
    return found != m_devs.constEnd() && found->record.address.isEmpty();
}

void DevsMgrData::login(const QString& devId, const QString& password, const vms_sdk::TlsPolicy& tls)
{
    const auto found = m_devs.find(devId);
    if (found == m_devs.end())
        return;
    found->password = PasswordTraits::of(password);
    vms_sdk::DevLogin login;
    login.devId = devId;
    login.name = found->record.name;
    login.address = found->record.address;
    login.user = found->record.user;
    login.password = password;
    login.tls = tls;
    if (login.tls.pinnedKeySha256.isEmpty())
        login.tls.pinnedKeySha256 = found->record.pinnedKeySha256;
    vms_sdk::login_dev_req(login);
}

PasswordTraits DevsMgrData::passwordTraits(const QString& devId) const
{
    return m_devs.value(devId).password;
}

void DevsMgrData::storeInfo(const vms_sdk::DevInfo& info)
{
    const auto found = m_devs.find(info.devId);
    if (found == m_devs.end())
        return;
    found->info = info;
    makeChannels(&*found);
    // Where it answers from now on it is the same device.
    if (!info.endpoint.isEmpty() && found->record.endpoint != info.endpoint) {
        found->record.endpoint = info.endpoint;
        if (!found->session)
            Database::instance().post([record = found->record](QSqlDatabase& db) { return DevStore::put(db, record); });
    }
    if (!found->session)
        Database::instance().post([info](QSqlDatabase& db) { return DevStore::putInfo(db, info); });
    emit DataSignals::instance().signalDevInfoChanged(info.devId);
}

void DevsMgrData::makeChannels(Entry* entry)
{
    entry->channels = entry->info.channels;
    if (entry->channels.isEmpty()) {
        for (int number = 1; number <= entry->record.channelCount; ++number) {
            vms_sdk::ChannelInfo channel;
            channel.channelNo = number;
            entry->channels.append(channel);
        }
    }
    if (entry->channelNames.isEmpty())
        return;
    for (vms_sdk::ChannelInfo& channel : entry->channels)
        channel.name = entry->channelNames.value(channel.channelNo, channel.name);
}

void DevsMgrData::takeStatus(const QString& devId, vms_sdk::DevStatus status)
{
    const auto found = m_devs.find(devId);
    if (found == m_devs.end() || status != vms_sdk::DevStatus::Online)
        return;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    found->lastSeen = now;
    const bool isDue = !found->lastSeenStored.isValid() || found->lastSeenStored.msecsTo(now) >= keepSeenAfterMs;
    if (found->session || !isDue)
        return;
    found->lastSeenStored = now;
    Database::instance().post([devId, now](QSqlDatabase& db) { return DevStore::putLastSeen(db, devId, now); });
}

} // namespace vemo_data
