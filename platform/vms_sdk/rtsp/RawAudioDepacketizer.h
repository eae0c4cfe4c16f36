#pragma once

#include "Depacketizer.h"
#include "TrackOutput.h"

namespace vms_sdk::rtsp {

/// Audio whose packets are runs of samples (RFC 3551 clauses 4.5.4 and 4.5.14): G.711 and G.726. Each packet is one
/// frame.
class RawAudioDepacketizer final : public Depacketizer
{
public:
    /// `bitsPerSample` over all channels.
    RawAudioDepacketizer(unsigned bitsPerSample, std::uint32_t clockRate, TrackOutput& output);

    MediaLimit push(const TimedPacket& packet) override;
    void finish() override {}
    void interrupt() override {}

private:
    unsigned m_bitsPerSample;
    std::uint32_t m_clockRate;
    TrackOutput& m_output;
};

} // namespace vms_sdk::rtsp
