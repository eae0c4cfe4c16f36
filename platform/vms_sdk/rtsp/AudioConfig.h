#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vms_sdk::rtsp {

/// What an AudioSpecificConfig (ISO/IEC 14496-3 clause 1.6.2.1) says.
struct AudioConfig
{
    unsigned objectType = 0;
    std::uint32_t samplingRate = 0; ///< of the core coder
    std::uint16_t channels = 0;     ///< 0 when a program config element defines them
    std::uint32_t samplesPerUnit = 1024;
};

bool parseAudioSpecificConfig(const std::uint8_t* data, std::size_t bytes, AudioConfig& config);

/// The two bytes for AAC LC; empty when the rate is none of the table's or the channels are not 1 to 7.
std::vector<std::uint8_t> makeAudioSpecificConfig(std::uint32_t samplingRate, unsigned channels);

} // namespace vms_sdk::rtsp
