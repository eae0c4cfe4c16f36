#pragma once

#include "CliCommand.h"

#include <QStringList>

#include <optional>

namespace vemo_client {

/// Turns the arguments behind `vemo_client user` into a command.
class CliUserParser final
{
public:
    CliUserParser() = delete;

    /// `command` carries what stood in front of the verb.
    static CliCommand parse(const QStringList& arguments, CliCommand command,
                            const std::optional<QString>& environmentPassword);
};

} // namespace vemo_client
