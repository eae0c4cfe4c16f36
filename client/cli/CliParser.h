#pragma once

#include "CliCommand.h"

#include <QStringList>

#include <optional>

namespace vemo_client {

/// Turns the program's arguments into a command. Reads the files that the arguments name (password, certificates),
/// nothing else.
class CliParser final
{
public:
    /// `environmentPassword` is the value of VEMO_PASSWORD, if it is set.
    static CliCommand parse(const QStringList& arguments, const std::optional<QString>& environmentPassword);
};

} // namespace vemo_client
