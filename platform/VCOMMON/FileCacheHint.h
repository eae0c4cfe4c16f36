#pragma once

#include <QtGlobal>

class QFileDevice;

namespace VCOMMON {

/// Tells the system that an open file is read once from front to back.
void hintSequential(QFileDevice& file);
/// Lets a part of an open file go from the system's cache, so that reading a large file once pushes nothing else out.
/// Nothing happens where the system has no such call.
void dropFromCache(QFileDevice& file, qint64 offset, qint64 bytes);

} // namespace VCOMMON
