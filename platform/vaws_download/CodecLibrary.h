#pragma once

#include "AudioTranscoder.h"
#include "LocalCutter.h"

#include <memory>
#include <string>

namespace vaws {

/// What the codec library offers; it stands beside the SDK as a library of its own, because libav's own libraries take
/// longer to load than everything else of a program together, and a download of H.264 with AAC needs none of them. Both
/// are built from one tree: the table has no version.
struct CodecEntry
{
    std::unique_ptr<AudioTranscoder> (*transcoder)(const vav::TrackInfo& source, std::string& error);
    std::unique_ptr<LocalCutter> (*cutter)(CutList list, FrameTarget& target);
};

constexpr const char* codecEntryName = "vaws_codecs_entry"; ///< extern "C" const CodecEntry* vaws_codecs_entry()

/// Loads the codec library when it is first needed; it stays loaded. Any thread. nullptr, with a sentence in `error`,
/// where it is missing.
const CodecEntry* codecLibrary(std::string& error);

} // namespace vaws
