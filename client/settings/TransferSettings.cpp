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
            &TransferSettings::apply);
}

void TransferSettings::apply()
{
    const vemo_worker::SystemConfig& config = vemo_worker::SystemConfig::instance();
    // The device SDK starts its threads when it is first spoken to.
    if (config.bandwidthLimit() != m_bytesPerSecond) {
        m_bytesPerSecond = config.bandwidthLimit();
        vms_sdk::set_bandwidth_limit(m_bytesPerSecond);
    }
    vaws_download_set_file_limit(config.largestFileBytes());
    vaws_download_set_clock_track(config.clockTrack() ? 1 : 0);
}

} // namespace vemo_client
