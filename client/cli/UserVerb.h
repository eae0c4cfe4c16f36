#pragma once

#include "CliCommand.h"
#include "ExitCode.h"

#include <QCoreApplication>

namespace vemo_worker {
class UserStore;
}

namespace vemo_client {

/// `vemo_client user`: adds, lists and removes those who may log in, and sets their passwords. Does its work at once,
/// without an event loop.
class UserVerb final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::UserVerb)

public:
    UserVerb() = delete;

    /// A window that is open would not notice.
    static bool changesStore(const CliCommand& command);
    static Outcome run(const CliCommand& command);

private:
    static Outcome list(const CliCommand& command, const vemo_worker::UserStore& store);
    static Outcome change(const CliCommand& command, vemo_worker::UserStore& store);
};

} // namespace vemo_client
