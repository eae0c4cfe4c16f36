#pragma once

#include "StreamClient.h"

#include <QtGlobal>

namespace vms_sdk::rtsp {

/// Why no more frames come.
enum class EndCause : int {
    ReachedEnd, ///< frames at or past the end came
    Terminal,   ///< the recorder marked the last frame, or sent RTCP BYE on all tracks
    TornDown,   ///< the recorder ended the session
    Closed,     ///< the connection ended
    Silence,    ///< nothing came for a while
    Fault,      ///< an error in what came
};

/// Where a stream stood when it ended.
struct EndPosition
{
    qint64 lastTimeNs = 0; ///< newest frame, 0 when none came
    qint64 intervalNs = 0; ///< usual distance of frames
    qint64 endNs = 0;      ///< end of what was asked for, 0 open
    qint64 recordingEndNs = 0;
    qint64 widestStepNs = 0; ///< between the last frames in presentation order; wider than usual: some are missing
};

/// The footage reaches to its end, but for `toleranceNs` beside the duration of a frame or two. The end is the
/// recording's own when it lies before the one asked for; false when there is neither.
bool isAtEnd(const EndPosition& position, qint64 toleranceNs);

/// Every frame but the last one is there. Frames that lean on later ones come behind those: when the newest frame has
/// come, some before it may still be missing.
bool isWhole(const EndPosition& position);

/// How a stream that played ended. An end in order may leave up to a second at the end, where the recorder had nothing;
/// after a break every frame but the last must be there.
StreamOutcome judgeEnd(EndCause cause, const EndPosition& position);

} // namespace vms_sdk::rtsp
