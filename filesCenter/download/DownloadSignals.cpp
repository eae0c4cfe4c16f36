#include "DownloadSignals.h"

namespace vemo_filesCenter {

DownloadSignals::DownloadSignals() = default;

DownloadSignals& DownloadSignals::instance()
{
    static DownloadSignals downloadSignals;
    return downloadSignals;
}

} // namespace vemo_filesCenter
