#pragma once

#include "ExitCode.h"

#include <FolderLock.h>

namespace vemo_client {

/// Keeps the window of the data folder, and other runs on its queue, away while this run works on the stored tasks; by
/// the same lock as the window takes. Given back with the object.
class WindowLock final
{
public:
    /// Done, or the sentence why the data folder can't be had.
    Outcome take();

private:
    vemo_data::FolderLock m_lock;
};

} // namespace vemo_client
