#include "LogWords.h"

#include <BaseTools.h>

namespace vemo_client {

using Kind = vemo_worker::FilesCenterLogs::Kind;

QString LogWords::kind(Kind kind)
{
    switch (kind) {
    case Kind::Download:
        return tr("Download");
    case Kind::LocalRecordDeletion:
        return tr("Recording deleted");
    case Kind::LocalCaptureDeletion:
        return tr("Snapshot deleted");
    case Kind::Backup:
        return tr("Backup");
    case Kind::Unknown:
        break;
    }
    return tr("Other");
}

QString LogWords::kindIcon(Kind kind)
{
    switch (kind) {
    case Kind::Download:
        return QStringLiteral("download-mgr");
    case Kind::LocalRecordDeletion:
        return QStringLiteral("local-recording");
    case Kind::LocalCaptureDeletion:
        return QStringLiteral("local-snapshot");
    case Kind::Backup:
        return QStringLiteral("recordings-backup");
    case Kind::Unknown:
        break;
    }
    return QStringLiteral("logs");
}

QString LogWords::device(const QString& device)
{
    const vms_sdk::DevInfo info = vemo_base::BaseTools::instance().getDevInfo(device);
    return info.name.isEmpty() ? device : info.name;
}

QString LogWords::channel(const QString& device, int channelNo, const QString& channelName)
{
    if (!channelName.isEmpty())
        return channelName;
    const QString known = vemo_base::BaseTools::instance().getChannelName(device, channelNo);
    if (!known.isEmpty())
        return known;
    return channelNo > 0 ? tr("Channel %1").arg(channelNo) : QString();
}

} // namespace vemo_client
