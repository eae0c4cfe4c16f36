#pragma once

#include "CliCommand.h"

namespace vemo_client {

/// Carries out what needs no window system; a QCoreApplication must stand. Returns the exit code.
int runVerb(const CliCommand& command);

/// The queue is worked off by the module's pages, which are widgets: this makes the application object itself, on a
/// window system that shows nothing.
int runQueue(int& argc, char** argv, const CliCommand& command);

} // namespace vemo_client
