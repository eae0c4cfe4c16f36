#pragma once

#include "CliCommand.h"

#include <QCoreApplication>

namespace vemo_client {

/// Command lines that ask for a text, or deserve one.
class CliTell final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::CliParser)

public:
    CliTell() = delete;

    static CliCommand help(const QString& text);
    static CliCommand version();
    static CliCommand misuse(const QString& sentence);

    static QString exitCodes(); ///< for the help texts
};

} // namespace vemo_client
