#include "RtpPacket.h"

#include "ByteOrder.h"

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t fixedHeaderBytes = 12;
constexpr std::uint16_t replayExtensionProfile = 0xABAC;
constexpr std::size_t replayExtensionBytes = 12;
constexpr std::uint64_t unixEpochInNtpSeconds = 2208988800u;

void parseReplayExtension(const std::uint8_t* data, ReplayExtension& extension)
{
    extension.present = true;
    extension.ntpTime = readBe64(data);
    const std::uint8_t flags = data[8];
    extension.cleanPoint = (flags & 0x80) != 0;
    extension.endOfSection = (flags & 0x40) != 0;
    extension.discontinuity = (flags & 0x20) != 0;
    extension.terminal = (flags & 0x10) != 0;
}

} // namespace

bool parseRtpPacket(const std::uint8_t* data, std::size_t size, RtpPacket& packet)
{
    if (size < fixedHeaderBytes || (data[0] >> 6) != 2)
        return false;
    packet.marker = (data[1] & 0x80) != 0;
    packet.payloadType = data[1] & 0x7F;
    packet.sequence = readBe16(data + 2);
    packet.timestamp = readBe32(data + 4);
    packet.ssrc = readBe32(data + 8);
    packet.replay = ReplayExtension();

    std::size_t offset = fixedHeaderBytes + std::size_t{4} * (data[0] & 0x0F);
    if (offset > size)
        return false;
    if (data[0] & 0x10) {
        if (size - offset < 4)
            return false;
        const std::uint16_t profile = readBe16(data + offset);
        const std::size_t extensionBytes = std::size_t{4} * readBe16(data + offset + 2);
        offset += 4;
        if (size - offset < extensionBytes)
            return false;
        if (profile == replayExtensionProfile && extensionBytes >= replayExtensionBytes)
            parseReplayExtension(data + offset, packet.replay);
        offset += extensionBytes;
    }
    std::size_t end = size;
    if (data[0] & 0x20) {
        const std::size_t padding = data[size - 1];
        if (padding == 0 || padding > size - offset)
            return false;
        end -= padding;
    }
    packet.payload = data + offset;
    packet.payloadBytes = end - offset;
    return true;
}

std::int64_t ntpToUnixNs(std::uint64_t ntpTime)
{
    std::uint64_t seconds = ntpTime >> 32;
    if (seconds < 0x80000000u)
        seconds += std::uint64_t{1} << 32;
    const std::uint64_t fraction = ntpTime & 0xFFFFFFFFu;
    const std::uint64_t nanoseconds = (fraction * 1'000'000'000u + 0x80000000u) >> 32;
    return static_cast<std::int64_t>((seconds - unixEpochInNtpSeconds) * 1'000'000'000u + nanoseconds);
}

} // namespace vms_sdk::rtsp
