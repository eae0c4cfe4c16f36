#pragma once

#include <QString>

namespace vemo_client {

/// What the program's exit code says; the numbers are the interface of scripts.
enum class ExitCode : int {
    Done = 0,
    Failed = 1,
    Usage = 2,
    LoginRefused = 3,
    Unreachable = 4,
    LimitReached = 5,
    Disk = 6,
    NoRecording = 7,
    Incomplete = 8, ///< a playable part is there
    Interrupted = 130,
};

/// How something ended: the code, and the one sentence that tells what and which (empty when all is well).
struct Outcome
{
    ExitCode code = ExitCode::Done;
    QString sentence;
};

/// The code to leave with when several things ended differently: the one that asks most of the person.
ExitCode worse(ExitCode one, ExitCode other);

} // namespace vemo_client
