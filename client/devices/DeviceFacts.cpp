#include "DeviceFacts.h"

#include "RecorderAddress.h"

#include <BaseTools.h>
#include <DevsMgrData.h>

#include <QCoreApplication>

namespace vemo_client {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_client::DeviceFacts", text);
}

QString useOf(const vemo_data::DevRecord& record, bool isKnown, bool supportsBackup)
{
    if (record.kind == vemo_data::DevKind::RtspSource)
        return tr("Live view alone");
    if (!isKnown)
        return QString();
    return supportsBackup ? tr("Live view, playback and backup") : tr("Live view and playback");
}

} // namespace

DeviceFacts DeviceFacts::of(const QString& devId, const RecorderLogins& logins)
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    const vemo_data::DevRecord record = devices.devRecord(devId);
    const vms_sdk::DevInfo info = devices.getDevInfoById(devId);
    const RecorderLogins::Login login = logins.login(devId);
    DeviceFacts facts;
    facts.devId = devId;
    facts.name = !info.name.isEmpty() ? info.name : record.address.host();
    facts.state = LoginWords::stateOf(login, devices.getDevStatus(devId));
    facts.failure = LoginWords::failureOf(login);
    facts.phase = login.phase;
    facts.address = RecorderAddress::text(record.address);
    facts.group = record.group;
    facts.maker = info.manufacturer;
    facts.model = info.model;
    facts.firmware = info.firmware;
    facts.serialNumber = info.serialNumber;
    facts.use = useOf(record, !info.channels.isEmpty(), info.supportsBackup);
    facts.channels = info.channels.size();
    facts.supportsBackup = info.supportsBackup;
    facts.lastSeen = devices.lastSeen(devId).toLocalTime();
    facts.channelNames.reserve(info.channels.size());
    for (const vms_sdk::ChannelInfo& channel : info.channels)
        facts.channelNames.append(channel.name);
    return facts;
}

QString DeviceFacts::lastSeenWords() const
{
    if (phase == RecorderLogins::Phase::Online)
        return tr("Now");
    return lastSeen.isValid() ? vemo_base::BaseTools::instance().strDatetime(lastSeen, true, false) : tr("Never");
}

QString DeviceFacts::searchWords() const
{
    QStringList words{name, address, group, maker, model, serialNumber, state.word};
    words += channelNames;
    return words.join(QLatin1Char('\n')).toLower();
}

} // namespace vemo_client
