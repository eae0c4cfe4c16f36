#include "RtcpParser.h"

#include "ByteOrder.h"

namespace vms_sdk::rtsp {
namespace {

constexpr std::uint8_t typeSenderReport = 200;
constexpr std::uint8_t typeBye = 203;
constexpr std::size_t senderInfoBytes = 28; ///< header, SSRC and sender information

} // namespace

bool parseRtcp(const std::uint8_t* data, std::size_t size, RtcpReport& report)
{
    report = RtcpReport();
    while (size > 0) {
        if (size < 4 || (data[0] >> 6) != 2)
            return false;
        const std::size_t bytes = std::size_t{4} * (readBe16(data + 2) + std::size_t{1});
        if (bytes > size)
            return false;
        if (data[1] == typeSenderReport) {
            if (bytes < senderInfoBytes)
                return false;
            report.hasSenderReport = true;
            report.senderSsrc = readBe32(data + 4);
            report.ntpTime = readBe64(data + 8);
            report.rtpTime = readBe32(data + 16);
        } else if (data[1] == typeBye) {
            report.bye = true;
        }
        data += bytes;
        size -= bytes;
    }
    return true;
}

} // namespace vms_sdk::rtsp
