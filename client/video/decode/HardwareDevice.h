#pragma once

#include "LibavHandles.h"

namespace vemo_decode {

/// The computer's decoding hardware, opened when it is first asked for; there may be none. Any thread.
struct HardwareDevice
{
    AVBufferRef* context = nullptr; ///< kept for the life of the process; nullptr: none
    AVHWDeviceType type = AV_HWDEVICE_TYPE_NONE;
    const char* name = "";

    static const HardwareDevice& get();

    /// The pixel format in which it gives pictures of this decoder; AV_PIX_FMT_NONE when it does not decode them.
    AVPixelFormat formatFor(const AVCodec& codec) const;
};

} // namespace vemo_decode
