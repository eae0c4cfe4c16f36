#pragma once

#include "cli/CliCommand.h"

namespace vemo_client {

/// Shows the client's main window until it is closed; returns the exit code. Makes the QApplication.
int runWindow(int& argc, char** argv, const CliCommand& command);

} // namespace vemo_client
