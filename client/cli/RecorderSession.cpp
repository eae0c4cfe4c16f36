#include "RecorderSession.h"

#include <ClientSignals.h>
#include <DevsMgrData.h>

#include <QUuid>

#include <algorithm>

namespace vemo_client {

RecorderSession::RecorderSession(const DeviceOptions& device, QObject* parent)
    : QObject(parent)
    , m_device(device)
{
    const vms_sdk::ClientSignals& client = vms_sdk::ClientSignals::instance();
    connect(&client, &vms_sdk::ClientSignals::signalDevLoginRes, this, &RecorderSession::finishLogin);
    connect(&client, &vms_sdk::ClientSignals::signalDevCertificate, this,
            [this](const QString& devId, const QSslCertificate&, const QByteArray& keySha256, const QString& reason) {
                if (devId == m_devId)
                    fail(Failures::ofCertificate(m_device, keySha256, reason));
            });
}

void RecorderSession::open()
{
    vemo_data::DevRecord record;
    record.address = m_device.address;
    record.user = m_device.user;
    vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    m_devId = devices.addSessionDev(record);
    devices.login(m_devId, m_device.password, m_device.tls);
    m_device.password.clear();
}

vms_sdk::DevInfo RecorderSession::info() const
{
    return vemo_data::DevsMgrData::instance().getDevInfoById(m_devId);
}

bool RecorderSession::hasChannel(int channelNo) const
{
    const QList<vms_sdk::ChannelInfo> channels = info().channels;
    return std::any_of(channels.cbegin(), channels.cend(),
                       [channelNo](const vms_sdk::ChannelInfo& channel) { return channel.channelNo == channelNo; });
}

bool RecorderSession::isDirect() const
{
    return m_device.address.scheme().startsWith(QLatin1String("rtsp"));
}

QString RecorderSession::addressText() const
{
    return Failures::addressText(m_device.address);
}

Place RecorderSession::place() const
{
    return {addressText(), m_device.address.host()};
}

Place RecorderSession::place(int channelNo) const
{
    return {tr("%1, channel %2").arg(addressText()).arg(channelNo), m_device.address.host()};
}

void RecorderSession::finishLogin(const QString& devId, const vms_sdk::Error& error)
{
    if (devId != m_devId || m_open || m_failure)
        return;
    if (error) {
        fail(Failures::of(error, place()));
        return;
    }
    m_open = true;
    emit signalOpened();
}

/// Also of an open session: a stream may meet another certificate than the login did.
void RecorderSession::fail(const Outcome& outcome)
{
    if (m_failure)
        return;
    m_failure = outcome;
    emit signalFailed();
}

} // namespace vemo_client
