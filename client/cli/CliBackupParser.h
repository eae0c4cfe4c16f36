#pragma once

#include "CliCommand.h"

#include <QStringList>

#include <optional>

namespace vemo_client {

/// Reads what stands behind "vemo_client backup". Pure but for the password file that is named, and today's date.
class CliBackupParser final
{
public:
    CliBackupParser() = delete;

    /// `arguments` without the verb, the program's name first; `command` as far as it was read before the verb.
    static CliCommand parse(const QStringList& arguments, CliCommand command,
                            const std::optional<QString>& environmentPassword);
};

} // namespace vemo_client
