#pragma once

#include "CliCommand.h"

namespace vemo_client {

/// Carries out a verb of the command line from start to end, the libraries' end included; returns the exit code. Needs
/// a QCoreApplication and no window system.
int runVerb(const CliCommand& command);

} // namespace vemo_client
