#pragma once

#include "ExitCode.h"

#include <FolderLock.h>

#include <memory>

namespace vemo_client {

/// A folder of its own for each verb that runs, below the data folder: what open outputs leave there for the case of a
/// crash is worked off by the next verb that takes the folder, and never by one that runs at the same time. Held as
/// long as the object lives; a folder whose process died is free again.
class VerbFolder final
{
public:
    /// Takes a free folder, first of all one in which a crash left something, and moves the client's folders below it;
    /// before anything else of the client is used.
    Outcome take();

private:
    /// Taken: the client's folders lie below it.
    vemo_data::FolderLock::Outcome lock(const QString& folder);

    std::unique_ptr<vemo_data::FolderLock> m_lock;
};

} // namespace vemo_client
