#include "DownloadEvents.h"

#include <vaws_download.h>

namespace vemo_filesCenter {

int playerEventOf(vms_sdk::StreamEvent event)
{
    switch (event) {
    case vms_sdk::StreamEndOfRecording:
    case vms_sdk::StreamEndByDevice:
        return VAWS_PLAYER_ENDED;
    case vms_sdk::StreamConnecting:
        return VAWS_PLAYER_CONNECTING;
    case vms_sdk::StreamPlaying:
        return VAWS_PLAYER_PLAYING;
    case vms_sdk::StreamLoginRefused:
        return VAWS_PLAYER_LOGIN_REFUSED;
    case vms_sdk::StreamLimitReached:
        return VAWS_PLAYER_LIMIT_REACHED;
    case vms_sdk::StreamBroken:
        return VAWS_PLAYER_BROKEN;
    case vms_sdk::StreamConnectFailed:
    case vms_sdk::StreamNoReplayAddress:
        break;
    }
    return VAWS_PLAYER_FAILED;
}

bool endsStream(vms_sdk::StreamEvent event)
{
    return event != vms_sdk::StreamConnecting && event != vms_sdk::StreamPlaying;
}

DownloadEvent downloadEventOf(int libraryEvent)
{
    switch (libraryEvent) {
    case VAWS_EVENT_CONNECTING:
    case VAWS_EVENT_WAITING:
    case VAWS_EVENT_PLAYING:
    case VAWS_EVENT_FILE_SWITCHED:
        return EventUnderWay;
    case VAWS_EVENT_CONNECT_FAILED:
        return EventConnectFailed;
    case VAWS_EVENT_LOGIN_FAILED:
        return EventLoginFailed;
    case VAWS_EVENT_LIMIT_REACHED:
        return EventLimitReached;
    case VAWS_EVENT_BROKEN:
    case VAWS_EVENT_NO_DATA:
    case VAWS_EVENT_WRITE_ERROR:
    case VAWS_EVENT_INVALID:
        return EventAbnormal;
    case VAWS_EVENT_PROGRESS:
        return EventProgress;
    case VAWS_EVENT_FINISHED:
        return EventFinished;
    case VAWS_EVENT_DISK_LOW:
        return EventDiskLow;
    default:
        return EventOther;
    }
}

bool endsTask(int libraryEvent)
{
    switch (downloadEventOf(libraryEvent)) {
    case EventConnectFailed:
    case EventLoginFailed:
    case EventLimitReached:
    case EventAbnormal:
    case EventFinished:
        return true;
    default:
        return false;
    }
}

} // namespace vemo_filesCenter
