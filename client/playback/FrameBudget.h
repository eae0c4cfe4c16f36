#pragma once

#include "FrameThinner.h"

#include <QtGlobal>

namespace vemo_client {

/// Which frames of all channels together can be decoded in time: by what a core usually does, and, at more than real
/// time, by how much of the time the clock had to wait for pictures. A value.
class FrameBudget final
{
public:
    /// `pixelsASecond` of all pictures that are due, `cores` at least 1.
    FrameThinner::Keep keep(double pixelsASecond, int cores) const;
    /// The clock was looked at again. True: less is kept from now on.
    bool note(qint64 elapsedUs, bool waited);
    /// Other channels, or another speed: waits of before don't count.
    void reset();

private:
    int m_less = 0; ///< steps below what the pixels alone tell
    qint64 m_watchedUs = 0;
    qint64 m_waitedUs = 0;
};

} // namespace vemo_client
