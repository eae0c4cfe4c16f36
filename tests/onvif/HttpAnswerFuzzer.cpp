#include "onvif/HttpAnswerReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace vms_sdk::onvif;

/// An HTTP answer read in one piece and in small ones: both must come to the same end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    HttpAnswerReader whole;
    whole.feed(bytes);
    const HttpAnswerReader::Status status = whole.end();
    HttpAnswerReader pieces;
    for (int i = 0; i < bytes.size(); i += 3)
        pieces.feed(bytes.mid(i, 3));
    if (pieces.end() != status || pieces.answer().body != whole.answer().body ||
        pieces.answer().status != whole.answer().status)
        std::abort();
    return 0;
}
