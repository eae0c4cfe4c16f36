#pragma once

#include "CliCommand.h"

#include <QStringList>

#include <optional>

namespace vemo_client {

/// Reads what stands behind "vemo_client queue". Pure but for the password and certificate files that are named.
class CliQueueParser final
{
public:
    CliQueueParser() = delete;

    /// `arguments` without the verb, the program's name first; `command` as far as it was read before the verb.
    static CliCommand parse(const QStringList& arguments, CliCommand command,
                            const std::optional<QString>& environmentPassword);
};

} // namespace vemo_client
