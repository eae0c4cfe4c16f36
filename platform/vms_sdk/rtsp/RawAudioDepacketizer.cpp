#include "RawAudioDepacketizer.h"

namespace vms_sdk::rtsp {

RawAudioDepacketizer::RawAudioDepacketizer(unsigned bitsPerSample, std::uint32_t clockRate, TrackOutput& output)
    : m_bitsPerSample(bitsPerSample)
    , m_clockRate(clockRate)
    , m_output(output)
{}

MediaLimit RawAudioDepacketizer::push(const TimedPacket& packet)
{
    if (packet.lossBefore)
        m_output.noteLost(1);
    m_output.noteExtension(packet.rtp.replay);
    const std::size_t bytes = packet.rtp.payloadBytes;
    if (bytes == 0)
        return MediaLimit::None;
    const std::uint64_t samples = std::uint64_t{bytes} * 8 / m_bitsPerSample;
    const auto durationUs = static_cast<std::uint32_t>(samples * 1'000'000 / m_clockRate);
    m_output.frame(packet.timeNs, durationUs, packet.rtp.payload, bytes);
    return MediaLimit::None;
}

} // namespace vms_sdk::rtsp
