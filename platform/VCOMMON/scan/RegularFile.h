#pragma once

class QFile;

namespace VCOMMON {

/// Opens a file of one's own folders for reading, unbuffered. Never follows a link at the end of the path, and never
/// waits at a pipe or a device: those are refused, like a folder.
bool openRegularFile(QFile& file);

} // namespace VCOMMON
