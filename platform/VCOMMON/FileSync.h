#pragma once

class QFileDevice;

namespace VCOMMON {

/// Waits until what was written to the open file is on the disk. Not for the GUI thread.
bool syncToDisk(QFileDevice& file);

} // namespace VCOMMON
