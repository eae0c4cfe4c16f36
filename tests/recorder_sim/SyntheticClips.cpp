#include "SyntheticClips.h"

namespace recorder_sim {

std::shared_ptr<const MediaLoop> syntheticLoop(int width)
{
    auto video = std::make_shared<VideoClip>();
    video->codec = Codec::H264;
    video->width = width;
    video->sps = "\x67sps";
    video->pps = "\x68pps";
    for (std::uint32_t i = 0; i < loopSeconds * VideoClip::framesPerSecond; ++i) {
        const std::uint32_t gop = i / 50 * 50;
        const std::uint32_t inGop = i % 50;
        // Decoding order 0 3 1 2 6 4 5 ... 48 46 47 49
        std::uint32_t shown = inGop;
        if (inGop > 0 && inGop < 49)
            shown = inGop % 3 == 1 ? inGop + 2 : inGop - 1;
        AccessUnit unit;
        unit.presentationIndex = gop + shown;
        unit.key = inGop == 0;
        unit.nalUnits.push_back({video->bytes.size(), inGop == 0 ? std::size_t{3000} : std::size_t{100}});
        unit.sampleBytes = unit.nalUnits.front().size + 4;
        unit.md5 = std::to_string(i);
        video->bytes += unit.key ? '\x65' : '\x41';
        video->bytes.append(unit.nalUnits.front().size - 1, static_cast<char>(i));
        video->units.push_back(std::move(unit));
    }
    auto audio = std::make_shared<AudioClip>();
    audio->codec = Codec::Pcmu;
    audio->sampleRate = 8000;
    audio->channels = 1;
    audio->samplesPerUnit = 160;
    for (std::size_t i = 0; i < loopSeconds * 50; ++i) {
        audio->units.push_back({{audio->bytes.size(), 160}, std::to_string(i)});
        audio->bytes.append(160, static_cast<char>(i));
    }
    return std::make_shared<MediaLoop>(video, audio);
}

} // namespace recorder_sim
