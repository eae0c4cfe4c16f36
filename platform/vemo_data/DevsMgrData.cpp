#include "DevsMgrData.h"

#include "Database.h"
#include "DataSignals.h"
#include "DevStore.h"

#include <ClientSignals.h>
#include <vms_sdk.h>

#include <QUuid>

namespace vemo_data {

DevsMgrData::DevsMgrData()
{
    const vms_sdk::ClientSignals& client = vms_sdk::ClientSignals::instance();
    connect(&client, &vms_sdk::ClientSignals::signalDevInfoPush, this, &DevsMgrData::storeInfo);
    connect(&client, &vms_sdk::ClientSignals::signalDevStatusPush, &DataSignals::instance(),
            &DataSignals::signalDevStatusChanged);
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
        const QString& devId = dev.first.devId;
        if (m_devs.contains(devId))
            continue;
        m_order.append(devId);
        m_devs.insert(devId, Entry{dev.first, dev.second, false, {}});
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
    entry.record = record;
    entry.info.devId = record.devId;
    entry.session = session;
    if (isNew)
        m_order.append(record.devId);
    if (!session)
        Database::instance().post([record](QSqlDatabase& db) { return DevStore::put(db, record); });
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
    return info;
}

vms_sdk::DevStatus DevsMgrData::getDevStatus(const QString& devId) const
{
    return m_devs.contains(devId) ? vms_sdk::dev_status(devId) : vms_sdk::DevStatus::Unknown;
}

QList<vms_sdk::ChannelInfo> DevsMgrData::channels(const QString& devId) const
{
    return m_devs.value(devId).info.channels;
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
    if (!found->session)
        Database::instance().post([info](QSqlDatabase& db) { return DevStore::putInfo(db, info); });
    emit DataSignals::instance().signalDevInfoChanged(info.devId);
}

} // namespace vemo_data
