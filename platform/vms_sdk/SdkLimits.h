#pragma once

#include <QtGlobal>

namespace vms_sdk {

/// How long the library waits and how much it keeps. The defaults are right for recorders on a network; a host with
/// other needs, and a test that cannot wait half a minute, sets its own before init_sdk().
struct SdkLimits
{
    int connectTimeoutMs = 10'000;
    int answerTimeoutMs = 30'000;  ///< one SOAP or RTSP answer
    int requestTimeoutMs = 30'000; ///< a search without renewal
    int silenceTimeoutMs = 9'500;  ///< a playing stream without a byte; told within 10 s, since its watch ticks
    qint64 streamCreditBytes = 12 * 1024 * 1024;
    qint64 liveCreditBytes = 4 * 1024 * 1024;
    int searchEvents = 100'000;    ///< events that one search keeps, and recordings that it looks through
    int searchRecordings = 20'000; ///< recordings that one search answers
};

} // namespace vms_sdk
