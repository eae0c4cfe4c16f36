#pragma once

#include "VCOMMON_global.h"

namespace VCOMMON {

/// Lets the calling thread stand back behind the window and the downloads, for good: they get most of a busy machine,
/// it gets all of an idle one. For threads of the program's own, not for the GUI thread. Where the system refuses,
/// nothing changes.
VCOMMON_EXPORT void lowerThreadPriority();

} // namespace VCOMMON
