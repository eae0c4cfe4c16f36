#include "control/GroundTruth.h"

namespace recorder_sim {
namespace {

constexpr std::size_t partBytes = 64 * 1024;

void addLine(std::string& out, int track, Codec codec, std::int64_t utcNs, std::int64_t index, bool key,
             std::size_t size, const std::string& md5)
{
    out += "{\"track\":" + std::to_string(track) + ",\"codec\":\"" + codecName(codec) +
           "\",\"utc_ns\":" + std::to_string(utcNs) + ",\"dts_index\":" + std::to_string(index) +
           ",\"key\":" + (key ? "true" : "false") + ",\"size\":" + std::to_string(size) + ",\"md5\":\"" + md5 + "\"}\n";
}

void addItem(std::string& out, const ReplayRun& run, std::int64_t position)
{
    const MediaLoop& loop = *run.loop;
    const MediaItem& item = loop.itemAt(position);
    const std::int64_t index = loop.unitIndexAt(position);
    if (item.track == videoTrack) {
        const AccessUnit& unit = loop.video().units[item.unit];
        addLine(out, videoTrack, loop.video().codec, run.utcNs(position), index, unit.key, unit.sampleBytes, unit.md5);
        return;
    }
    const AudioClip& clip = loop.audio();
    const std::int64_t loopNs = run.originNs + loop.loopOf(position) * MediaLoop::loopNs;
    for (std::uint32_t i = 0; i < item.unitCount; ++i) {
        const std::int64_t samples = std::int64_t{item.unit + i} * clip.samplesPerUnit;
        const AudioClip::Unit& unit = clip.units[item.unit + i];
        addLine(out, audioTrack, clip.codec, loopNs + samples * nsPerSecond / clip.sampleRate, index + i, true,
                unit.slice.size, unit.md5);
    }
}

} // namespace

void writeSamples(const ReplaySchedule& schedule, const std::function<bool(const std::string& part)>& sink)
{
    std::string out;
    for (const ReplayRun& run : schedule) {
        for (std::int64_t at = run.firstPosition; at < run.endPosition; ++at) {
            if (run.isSent(at))
                addItem(out, run, at);
            if (out.size() < partBytes)
                continue;
            if (!sink(out))
                return;
            out.clear();
        }
    }
    sink(out);
}

} // namespace recorder_sim
