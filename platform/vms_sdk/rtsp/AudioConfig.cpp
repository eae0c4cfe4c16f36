#include "AudioConfig.h"

#include "BitReader.h"

namespace vms_sdk::rtsp {
namespace {

constexpr std::uint32_t samplingRates[] = {96000, 88200, 64000, 48000, 44100, 32000, 24000,
                                           22050, 16000, 12000, 11025, 8000,  7350};
constexpr unsigned rateCount = sizeof samplingRates / sizeof samplingRates[0];
constexpr unsigned explicitRate = 15;

unsigned readObjectType(BitReader& reader)
{
    const unsigned type = reader.bits(5);
    return type == 31 ? 32 + reader.bits(6) : type;
}

std::uint32_t readRate(BitReader& reader)
{
    const unsigned index = reader.bits(4);
    if (index == explicitRate)
        return reader.bits(24);
    return index < rateCount ? samplingRates[index] : 0;
}

} // namespace

bool parseAudioSpecificConfig(const std::uint8_t* data, std::size_t bytes, AudioConfig& config)
{
    BitReader reader(data, bytes);
    config = AudioConfig();
    config.objectType = readObjectType(reader);
    config.samplingRate = readRate(reader);
    const unsigned channels = reader.bits(4);
    config.channels = static_cast<std::uint16_t>(channels == 7 ? 8 : channels);
    if (config.objectType == 5 || config.objectType == 29) {
        readRate(reader);
        config.objectType = readObjectType(reader);
    }
    const bool isGeneralAudio = config.objectType >= 1 && config.objectType <= 4;
    if (isGeneralAudio && reader.flag())
        config.samplesPerUnit = 960;
    return reader.good() && config.samplingRate > 0 && channels <= 7;
}

std::vector<std::uint8_t> makeAudioSpecificConfig(std::uint32_t samplingRate, unsigned channels)
{
    constexpr unsigned lowComplexity = 2;
    for (unsigned index = 0; index < rateCount; ++index) {
        if (samplingRates[index] == samplingRate && channels >= 1 && channels <= 7)
            return {static_cast<std::uint8_t>(lowComplexity << 3 | index >> 1),
                    static_cast<std::uint8_t>((index & 1) << 7 | channels << 3)};
    }
    return {};
}

} // namespace vms_sdk::rtsp
