// RTP and RTCP packets and the times they carry. The input is a run of packets, each behind one byte of kind and two of
// length.
#include "ReplayTimeline.h"
#include "RtcpParser.h"
#include "RtpPacket.h"
#include "SequenceTracker.h"

#include <algorithm>
#include <memory>

using namespace vms_sdk::rtsp;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ReplayTimeline timeline(size > 0 && (data[0] & 0x80) ? 1'000 : 90'000);
    timeline.setRangeBegin(1'700'000'000'000'000'000, 60'000'000'000);
    SequenceTracker tracker;
    std::int64_t newestNs = 0;
    while (size >= 3) {
        const std::uint8_t kind = data[0];
        const std::size_t bytes = std::min<std::size_t>(static_cast<std::size_t>(data[1] | data[2] << 8), size - 3);
        const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[bytes]);
        std::copy_n(data + 3, bytes, exact.get());
        data += 3 + bytes;
        size -= 3 + bytes;
        RtpPacket packet;
        RtcpReport report;
        if ((kind & 0x7F) == 0x7F) {
            timeline.restart(newestNs);
        } else if (kind & 1) {
            parseRtcp(exact.get(), bytes, report);
            if (report.hasSenderReport)
                timeline.senderReport(report.ntpTime, report.rtpTime);
            if (kind & 2)
                timeline.setRtpInfo(report.rtpTime);
        } else if (parseRtpPacket(exact.get(), bytes, packet)) {
            if (packet.payloadBytes > 0 && packet.payload[packet.payloadBytes - 1] == 0 &&
                packet.payload + packet.payloadBytes > exact.get() + bytes)
                __builtin_trap();
            tracker.update(packet.sequence, packet.ssrc);
            newestNs = std::max(newestNs, timeline.packetTime(packet, newestNs));
        }
    }
    return 0;
}
