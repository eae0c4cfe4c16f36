#pragma once

#include "CliCommand.h"

#include <QStringList>

namespace vemo_client {

/// Turns the arguments behind `vemo_client local` into a command.
class CliLocalParser final
{
public:
    CliLocalParser() = delete;

    /// `command` carries what stood in front of the verb.
    static CliCommand parse(const QStringList& arguments, CliCommand command);
};

} // namespace vemo_client
