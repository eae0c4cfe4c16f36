#pragma once

#include "vav_frame.h"

#include <cstdint>
#include <string>

namespace vaws {

/// How a local source came to its end.
struct SourceEnd
{
    bool ok = false;
    std::string problem; ///< a sentence; also set when parts were left out
};

/// Takes what a local source reads. Called on the source's thread.
class FrameTarget
{
public:
    virtual ~FrameTarget() = default;
    virtual bool takeInfo(const vav::StreamInfo& info) = 0;
    /// Waits while the disk is behind. False: no more is wanted.
    virtual bool takeFrame(const vav::FrameHeader& header, const std::uint8_t* payload) = 0;
    virtual void sourceEnded(const SourceEnd& end) = 0;
    /// It ended because memory ran out.
    virtual void sourceWithoutMemory() = 0;
};

} // namespace vaws
