#include "onvif/OnvifAnswers.h"
#include "onvif/RecordingSegmentBuilder.h"
#include "onvif/SoapAnswer.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace vms_sdk::onvif;

/// A SOAP answer from its bytes to the segments that a search makes of it, with every reader of payloads on the way.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray document(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const SoapAnswer answer = SoapAnswer::parse(document);
    const SoapElement& payload = answer.payload();
    if (answer.error() && answer.error().message.isEmpty())
        std::abort();
    answers::systemDateAndTime(payload);
    answers::services(payload);
    answers::capabilities(payload);
    answers::deviceInformation(payload);
    answers::profiles(payload);
    answers::videoSourceTokens(payload);
    answers::recordings(payload);
    answers::searchToken(payload);
    answers::recordingSearchResults(payload);
    answers::replayUri(payload);
    RecordingSegmentBuilder builder({0, 4'000'000'000'000}, 1000);
    for (const EventEntry& event : answers::eventSearchResults(payload).entries)
        builder.add(event);
    qint64 end = 0;
    for (const RecordingSegment& segment : builder.build()) {
        if (segment.beginMs < end || segment.endMs <= segment.beginMs)
            std::abort(); // segments overlap or are empty
        end = segment.endMs;
    }
    return 0;
}
