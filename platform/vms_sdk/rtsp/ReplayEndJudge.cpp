#include "ReplayEndJudge.h"

#include <algorithm>

namespace vms_sdk::rtsp {
namespace {

constexpr qint64 orderlyToleranceNs = 1'000'000'000;

} // namespace

bool isAtEnd(const EndPosition& position, qint64 toleranceNs)
{
    if (position.lastTimeNs == 0)
        return false;
    qint64 endNs = position.endNs;
    if (position.recordingEndNs != 0 && (endNs == 0 || position.recordingEndNs < endNs))
        endNs = position.recordingEndNs;
    return endNs != 0 && position.lastTimeNs + std::max(toleranceNs, position.intervalNs * 2) >= endNs;
}

bool isWhole(const EndPosition& position)
{
    return isAtEnd(position, 0) && position.widestStepNs <= position.intervalNs * 7 / 4;
}

StreamOutcome judgeEnd(EndCause cause, const EndPosition& position)
{
    switch (cause) {
    case EndCause::ReachedEnd:
        return StreamOutcome::EndOfRecording;
    case EndCause::Terminal: {
        const bool open = position.endNs == 0 && position.recordingEndNs == 0 && position.lastTimeNs != 0;
        return open || isAtEnd(position, orderlyToleranceNs) ? StreamOutcome::EndOfRecording
                                                             : StreamOutcome::EndByDevice;
    }
    case EndCause::TornDown:
        return isAtEnd(position, orderlyToleranceNs) ? StreamOutcome::EndOfRecording : StreamOutcome::EndByDevice;
    case EndCause::Closed:
    case EndCause::Silence:
        return isWhole(position) ? StreamOutcome::EndOfRecording : StreamOutcome::Broken;
    case EndCause::Fault:
        break;
    }
    return StreamOutcome::Broken;
}

} // namespace vms_sdk::rtsp
