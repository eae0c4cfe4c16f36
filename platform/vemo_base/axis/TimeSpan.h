#pragma once

#include <QtGlobal>

namespace vemo_base {

/// A stretch of time in ms since 1970 UTC.
struct TimeSpan
{
    qint64 beginMs = 0;
    qint64 endMs = 0;

    qint64 lengthMs() const { return endMs - beginMs; }
    bool operator==(const TimeSpan& other) const { return beginMs == other.beginMs && endMs == other.endMs; }
    bool operator!=(const TimeSpan& other) const { return !(*this == other); }
};

} // namespace vemo_base
