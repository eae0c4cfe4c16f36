#pragma once

#include "VCOMMON_global.h"

class QFileDevice;

namespace VCOMMON {

/// Waits until what was written to the open file is on the disk. Not for the GUI thread.
VCOMMON_EXPORT bool syncToDisk(QFileDevice& file);

} // namespace VCOMMON
