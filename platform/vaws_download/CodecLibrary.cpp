#include "CodecLibrary.h"

#include "SiblingLibrary.h"

#include <mutex>

namespace vaws {

const CodecEntry* codecLibrary(std::string& error)
{
    static std::mutex mutex;
    static const CodecEntry* entry = nullptr;
    const std::lock_guard lock(mutex);
    if (!entry) {
        std::string cause;
        using Entry = const CodecEntry* (*)();
        if (const auto function = reinterpret_cast<Entry>(siblingFunction("vaws_codecs", codecEntryName, cause)))
            entry = function();
        else
            error = "The program's codec library cannot be loaded: " + cause + ".";
    }
    return entry;
}

std::unique_ptr<AudioTranscoder> AudioTranscoder::create(const vav::TrackInfo& source, std::string& error)
{
    const CodecEntry* entry = codecLibrary(error);
    return entry ? entry->transcoder(source, error) : nullptr;
}

std::unique_ptr<LocalCutter> LocalCutter::create(CutList list, FrameTarget& target, std::string& error)
{
    const CodecEntry* entry = codecLibrary(error);
    return entry ? entry->cutter(std::move(list), target) : nullptr;
}

} // namespace vaws
