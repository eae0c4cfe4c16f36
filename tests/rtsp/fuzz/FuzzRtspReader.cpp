// The first two bytes choose how the rest is cut into reads.
#include "RtspHeaders.h"
#include "RtspReader.h"

#include <algorithm>
#include <cstring>

using namespace vms_sdk::rtsp;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const std::size_t piece = static_cast<std::size_t>(data[0] | data[1] << 8) + 1;
    data += 2;
    size -= 2;
    RtspReader reader;
    std::size_t sum = 0;
    while (true) {
        const RtspReader::Event event = reader.next();
        if (event == RtspReader::Event::Failed)
            return 0;
        if (event == RtspReader::Event::Packet) {
            for (std::size_t i = 0; i < reader.packetBytes(); ++i)
                sum += reader.packet()[i];
        } else if (event == RtspReader::Event::Message) {
            const RtspMessage message = reader.takeMessage();
            std::int64_t beginNs = 0;
            std::int64_t endNs = 0;
            parseClockRange(message.header("Range"), beginNs, endNs);
            parseTransport(message.header("Transport"), 0);
            parseSession(message.header("Session"));
            parseRtpInfo(message.header("RTP-Info"));
            sum += static_cast<std::size_t>(message.serialized().size());
        } else if (size == 0) {
            return sum == ~std::size_t{0} ? -1 : 0;
        } else {
            const std::size_t part = std::min({piece, size, reader.writeRoom()});
            std::memcpy(reader.writeArea(), data, part);
            reader.commit(part);
            data += part;
            size -= part;
        }
    }
}
