#include "StoredRecorder.h"

#include "Failures.h"

#include <DevsMgrData.h>
#include <PasswordStore.h>

#include <algorithm>

namespace vemo_client {

namespace {

constexpr int httpPort = 80;
constexpr int httpsPort = 443;
constexpr int rtspPort = 554;
constexpr int rtspsPort = 322;

int portOf(const QUrl& address)
{
    if (address.scheme() == QLatin1String("https"))
        return address.port(httpsPort);
    if (address.scheme() == QLatin1String("rtsps"))
        return address.port(rtspsPort);
    return address.port(address.scheme() == QLatin1String("rtsp") ? rtspPort : httpPort);
}

/// The device service may be left out of an address; of a replay address nothing may.
QString pathOf(const QUrl& address)
{
    const QString path = address.path(QUrl::FullyDecoded);
    const bool isDefault = path.isEmpty() || path == QLatin1String("/");
    return isDefault && address.scheme().startsWith(QLatin1String("http")) ? QStringLiteral("/onvif/device_service")
                                                                           : path;
}

} // namespace

StoredRecorder::StoredRecorder(const CliCommand& command, QObject* parent)
    : QObject(parent)
    , m_command(command)
{}

bool StoredRecorder::isSameAddress(const QUrl& one, const QUrl& other)
{
    return one.scheme() == other.scheme() && one.host() == other.host() && portOf(one) == portOf(other) &&
           pathOf(one) == pathOf(other) && one.query() == other.query();
}

bool StoredRecorder::find()
{
    const vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    const QStringList devIds = devices.devIds();
    for (const QString& devId : devIds) {
        const vemo_data::DevRecord record = devices.devRecord(devId);
        if (record.user == m_command.device.user && isSameAddress(record.address, m_command.device.address)) {
            m_devId = devId;
            return true;
        }
    }
    return false;
}

void StoredRecorder::keep()
{
    vemo_data::DevsMgrData& devices = vemo_data::DevsMgrData::instance();
    devices.load();
    const bool known = find();
    const DeviceOptions& device = m_command.device;
    if (known && !devices.channels(m_devId).isEmpty()) {
        const QList<vms_sdk::ChannelInfo> channels = devices.channels(m_devId);
        for (const int channelNo : m_command.channels) {
            const auto isIt = [channelNo](const vms_sdk::ChannelInfo& each) { return each.channelNo == channelNo; };
            if (std::none_of(channels.cbegin(), channels.cend(), isIt)) {
                emit signalFailed(Failures::unknownChannel(channelNo, channels, Failures::addressText(device.address)));
                return;
            }
        }
    }
    if (!known && !device.user.isEmpty() && !m_command.queue.hasPassword) {
        emit signalFailed({ExitCode::Usage, tr("The password is missing: give --password-file or set VEMO_PASSWORD.")});
        return;
    }
    vemo_data::DevRecord record = devices.devRecord(m_devId);
    const bool newPin = !device.tls.pinnedKeySha256.isEmpty() && device.tls.pinnedKeySha256 != record.pinnedKeySha256;
    if (!known || newPin) {
        if (!known) {
            record.name = device.address.host();
            record.address = device.address;
            record.user = device.user;
        }
        if (newPin)
            record.pinnedKeySha256 = device.tls.pinnedKeySha256;
        m_devId = devices.addDev(record);
    }
    if (m_command.queue.hasPassword && !device.user.isEmpty())
        keepPassword();
    else
        emit signalKept();
}

void StoredRecorder::keepPassword()
{
    vemo_worker::PasswordStore::instance().put(m_devId, m_command.device.password, this, [this](bool kept) {
        if (kept)
            emit signalKept();
        else
            emit signalFailed({ExitCode::Disk, tr("The password could not be kept; nothing was added to the queue.")});
    });
}

} // namespace vemo_client
