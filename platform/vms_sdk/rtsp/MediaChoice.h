#pragma once

#include "MediaFormat.h"
#include "SdpParser.h"

#include <vector>

namespace vms_sdk::rtsp {

/// A medium that is worth a SETUP.
struct ChosenMedium
{
    MediaFormat format;
    std::uint8_t payloadType = 0;
    QByteArray uri; ///< of its SETUP
};

/// The first video and, if wanted, the first audio medium that this client can receive. `refused` lists what it cannot.
std::vector<ChosenMedium> chooseMedia(const SdpSession& session, const QByteArray& base, bool wantAudio,
                                      QByteArray& refused);

} // namespace vms_sdk::rtsp
