#pragma once

#include <VmsTypes.h>

namespace vemo_filesCenter {

/// What DownloadSignals::signalDownloadEvent carries.
enum DownloadEvent : int {
    EventOther = 0,         ///< not an end
    EventLoginFailed = 1,   ///< failure
    EventConnectFailed = 2, ///< failure
    EventUnderWay = 3,      ///< not an end
    EventLimitReached = 4,  ///< failure: the device serves no more
    EventProgress = 5,      ///< `progress` in percent
    EventFinished = 6,
    EventAbnormal = 7,       ///< failure: broken off, no data, unwritable or not readable
    EventUnnamedFailure = 8, ///< failure; not produced by the worker
    EventGetUrlFailed = 9,   ///< failure; not produced by the worker
    EventDiskLow = 10,       ///< too little room: refused at start, or running short
};

/// What the media download SDK is told of a stream event; a vaws_player_event.
int playerEventOf(vms_sdk::StreamEvent event);
/// The stream is over and to be let go.
bool endsStream(vms_sdk::StreamEvent event);
/// What the module says of an event of the media download SDK, a vaws_download_event.
DownloadEvent downloadEventOf(int libraryEvent);
/// The task is over for the media download SDK.
bool endsTask(int libraryEvent);

} // namespace vemo_filesCenter
