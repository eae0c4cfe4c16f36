#pragma once

#include "VerbExit.h"

namespace vemo_client {

/// The stores of the data folder, for a verb that works on them. GUI thread.
class VerbStore final
{
public:
    VerbStore() = delete;

    /// Opens the database and tells what there is to tell of it. False when it can't be used; then the verb is over.
    static bool open(VerbExit* exit);
};

} // namespace vemo_client
