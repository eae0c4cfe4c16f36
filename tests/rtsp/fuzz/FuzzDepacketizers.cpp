// Every depacketizer behind the whole receiver. The first byte chooses the codec; then packets follow, each behind a
// byte of flags (marker, lost before, other time, replay extension, other track, parameter sets known) and two of
// length.
#include "MediaReceiver.h"

#include "../RtpBuilder.h"

#include <algorithm>
#include <cstdlib>

using namespace vms_sdk::rtsp;

namespace {

SdpMedia medium(unsigned selector)
{
    static const struct
    {
        const char* type;
        const char* encoding;
        unsigned clockRate;
        const char* config;
    } kinds[] = {
        {"video", "H264", 90'000, nullptr},
        {"video", "H265", 90'000, nullptr},
        {"video", "JPEG", 90'000, nullptr},
        {"audio", "MPEG4-GENERIC", 48'000, "1190"},
        {"audio", "MPEG4-GENERIC", 1'000'000, nullptr},
        {"audio", "PCMA", 8'000, nullptr},
        {"audio", "G726-24", 8'000, nullptr},
    };
    const auto& kind = kinds[selector % std::size(kinds)];
    SdpMedia media;
    media.type = kind.type;
    media.encoding = kind.encoding;
    media.clockRate = kind.clockRate;
    media.payloadType = 96;
    if (kind.config)
        media.formatParameters.insert("config", kind.config);
    if (media.encoding == "MPEG4-GENERIC" && !kind.config)
        media.formatParameters = {{"mode", "aac-lbr"},
                                  {"config", "1388"},
                                  {"sizelength", "1"},
                                  {"indexlength", "0"},
                                  {"indexdeltalength", "0"}};
    return media;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1)
        return 0;
    bool readable = true;
    MediaReceiver receiver(
        [&readable](const QByteArray& batch) {
            vav::PacketReader reader(batch.constData(), static_cast<std::size_t>(batch.size()));
            auto status = reader.next();
            while (status == vav::PacketReader::Status::Packet)
                status = reader.next();
            readable = readable && status == vav::PacketReader::Status::End;
        },
        vav::StreamInfo());
    MediaFormat format;
    QByteArray reason;
    if (!makeMediaFormat(medium(data[0] & 0x3F), format, reason))
        return 0;
    receiver.addTrack(format, 96, 0);
    if ((data[0] & 0x40) && makeMediaFormat(medium(5), format, reason))
        receiver.addTrack(format, 96, 2);
    ++data;
    --size;
    std::uint16_t sequence[2] = {65'530, 0};
    std::uint32_t timestamp = 0xFFFFF000;
    while (size >= 3) {
        const std::uint8_t flags = data[0];
        const std::size_t bytes = std::min<std::size_t>(static_cast<std::size_t>(data[1] | data[2] << 8), size - 3);
        const unsigned track = flags >> 4 & 1;
        if (flags & 2)
            ++sequence[track];
        if (flags & 4)
            timestamp += 3'600;
        rtptest::Rtp header;
        header.marker = (flags & 1) != 0;
        header.sequence = sequence[track]++;
        header.timestamp = timestamp;
        header.withReplay = (flags & 8) != 0;
        header.ntpTime = rtptest::ntpOf(1'700'000'000'000'000'000) + std::uint64_t{timestamp};
        header.replayFlags = flags & 0xF0;
        const rtptest::Bytes packet = rtptest::rtp(header, rtptest::Bytes(data + 3, data + 3 + bytes));
        const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[packet.size()]);
        std::copy(packet.begin(), packet.end(), exact.get());
        data += 3 + bytes;
        size -= 3 + bytes;
        if (receiver.packet(static_cast<std::uint8_t>(track * 2), exact.get(), packet.size()) != MediaLimit::None)
            break;
        if ((flags & 0x60) == 0x60)
            receiver.resumed((flags & 0x80) != 0);
        if ((flags & 0xE0) == 0x20)
            receiver.flush();
    }
    receiver.finish();
    if (!readable)
        __builtin_trap();
    return 0;
}
