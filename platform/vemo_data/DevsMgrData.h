#pragma once

#include "DevRecord.h"
#include "PasswordTraits.h"
#include "vemo_data_global.h"

#include <VmsTypes.h>

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QObject>
#include <QStringList>

namespace vemo_data {

/// The devices that the client knows, with their channels. One object a process, on the GUI thread. Records and the
/// last known channels are kept in the database, so that names stand while a device is offline; a session device lives
/// in memory only, for the command line. The passwords are the caller's: they pass through login() to the device client
/// SDK and are kept nowhere here. Changes are announced by DataSignals.
class VEMO_DATA_EXPORT DevsMgrData final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DevsMgrData)

public:
    static DevsMgrData& instance();

    /// Reads the stored devices; waits for the database. Without it only session devices are known.
    void load();

    /// Adds or replaces a device and stores it; returns its id. User and password in the address are dropped.
    QString addDev(const DevRecord& record);
    /// The same without storing it.
    QString addSessionDev(const DevRecord& record);
    /// Logs out and forgets the device with its channels.
    void removeDev(const QString& devId);
    /// A disabled device is logged out; who logs devices in by themselves leaves it alone.
    void setEnabled(const QString& devId, bool enabled);

    /// An empty group: none. A group is there as long as a device is in it.
    void setGroup(const QString& devId, const QString& group);
    /// Joins the groups when there is one of the new name.
    void renameGroup(const QString& from, const QString& to);
    QStringList groups() const;

    /// The name that a person gives a channel goes before the device's own; empty: the device's own again.
    void setChannelName(const QString& devId, int channelNo, const QString& name);
    /// What the device itself calls the channel.
    QString deviceChannelName(const QString& devId, int channelNo) const;

    QStringList devIds() const; ///< in the order of adding
    bool contains(const QString& devId) const;
    DevRecord devRecord(const QString& devId) const;
    /// What is known of the device, live from its session or else as last stored; an empty devId when it is not known.
    vms_sdk::DevInfo getDevInfoById(const QString& devId) const;
    vms_sdk::DevStatus getDevStatus(const QString& devId) const;
    /// As the person knows them; of an rtsp address as many as its record tells.
    QList<vms_sdk::ChannelInfo> channels(const QString& devId) const;
    /// When the device was last online, UTC, kept to half an hour over restarts; invalid: never.
    QDateTime lastSeen(const QString& devId) const;

    /// The device is reached through a cloud account: it has no address of its own.
    bool isSaasDev(const QString& devId) const;

    /// Logs in through the device client SDK; the answer comes as vms_sdk::ClientSignals::signalDevLoginRes.
    void login(const QString& devId, const QString& password, const vms_sdk::TlsPolicy& tls = {});
    /// Of the password that the device was last logged in with.
    PasswordTraits passwordTraits(const QString& devId) const;

private:
    struct Entry
    {
        DevRecord record;
        vms_sdk::DevInfo info; ///< as last told by the device
        bool session = false;
        PasswordTraits password;
        QMap<int, QString> channelNames;      ///< that a person gave
        QList<vms_sdk::ChannelInfo> channels; ///< made of the three above
        QDateTime lastSeen;
        QDateTime lastSeenStored;
    };

    DevsMgrData();

    QString insert(const DevRecord& record, bool session);
    void storeInfo(const vms_sdk::DevInfo& info);
    void takeStatus(const QString& devId, vms_sdk::DevStatus status);
    static void makeChannels(Entry* entry);

    QStringList m_order;
    QHash<QString, Entry> m_devs;
};

} // namespace vemo_data
