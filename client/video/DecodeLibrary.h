#pragma once

#include "decode/DecodeEntry.h"

namespace vemo_client {

/// The library that decodes video, loaded when it is first asked for; it stays. Takes its time the first time: any
/// thread but the GUI thread.
class DecodeLibrary final
{
public:
    DecodeLibrary() = delete;

    /// nullptr when the library is missing, which is logged.
    static std::unique_ptr<vemo_decode::Decoder> createDecoder();
};

} // namespace vemo_client
