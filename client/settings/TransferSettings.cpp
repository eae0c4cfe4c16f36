#include "TransferSettings.h"

#include <SystemConfig.h>
#include <vaws_download.h>
#include <vms_sdk.h>

namespace vemo_client {

TransferSettings::TransferSettings(QObject* parent)
    : QObject(parent)
{
    apply();
    connect(&vemo_worker::SystemConfig::instance(), &vemo_worker::SystemConfig::signalConfigChanged, this,
            [] { apply(); });
}

void TransferSettings::apply()
{
    const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    vms_sdk::set_bandwidth_limit(config.bandwidthLimit());
    vaws_download_set_file_limit(config.largestFileBytes());
    vaws_download_set_clock_track(config.clockTrack() ? 1 : 0);
}

} // namespace vemo_client
