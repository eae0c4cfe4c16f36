// The entry of the codec library.
#include "AacTranscoder.h"
#include "CodecLibrary.h"
#include "RecordCutter.h"

#include <utility>

#if defined(_WIN32)
#define VAWS_CODECS_API __declspec(dllexport)
#else
#define VAWS_CODECS_API __attribute__((visibility("default")))
#endif

namespace {

std::unique_ptr<vaws::AudioTranscoder> makeTranscoder(const vav::TrackInfo& source, std::string& error)
{
    auto transcoder = std::make_unique<vaws::AacTranscoder>();
    if (transcoder->open(source, error))
        return transcoder;
    if (error.empty())
        error = "There is no memory for the AAC encoder.";
    return nullptr;
}

std::unique_ptr<vaws::LocalCutter> makeCutter(vaws::CutList list, vaws::FrameTarget& target)
{
    return std::make_unique<vaws::RecordCutter>(std::move(list), target);
}

const vaws::CodecEntry entry{makeTranscoder, makeCutter};

} // namespace

extern "C" VAWS_CODECS_API const vaws::CodecEntry* vaws_codecs_entry()
{
    return &entry;
}
