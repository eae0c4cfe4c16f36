#pragma once

#include "ExitCode.h"

#include <QString>

namespace vemo_client {

/// Leaves the event loop of a verb, once: what comes later changes neither exit code nor sentence. GUI thread.
class VerbExit final
{
public:
    /// The sentence, if any, goes to the standard error stream. False when the verb is over already.
    bool leave(ExitCode code, const QString& sentence = {});
    bool isOver() const { return m_left; }

private:
    bool m_left = false;
};

} // namespace vemo_client
