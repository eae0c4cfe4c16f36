#include "MediaChoice.h"
#include "SdpParser.h"

#include <cstddef>
#include <cstdint>

using namespace vms_sdk::rtsp;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    SdpSession session;
    if (!parseSdp(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)), session))
        return 0;
    QByteArray refused;
    for (const ChosenMedium& medium : chooseMedia(session, "rtsp://h/s", true, refused))
        if (medium.format.track.parameterSets.size() > vav::maxParameterSetBytes)
            __builtin_trap();
    return 0;
}
