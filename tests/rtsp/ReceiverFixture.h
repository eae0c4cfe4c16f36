#pragma once

#include "BatchLog.h"
#include "MediaReceiver.h"

#include <optional>

namespace rtptest {

constexpr std::int64_t baseNs = 1'700'000'000'000'000'000;
constexpr std::int64_t frameNs = 40'000'000;
constexpr std::uint32_t frameTicks = 3600;

inline vms_sdk::rtsp::SdpMedia videoMedia(const QByteArray& encoding, bool withSets = true)
{
    vms_sdk::rtsp::SdpMedia media;
    media.type = "video";
    media.payloadType = 96;
    media.encoding = encoding;
    media.clockRate = 90'000;
    if (withSets && encoding == "H264") {
        const auto text = [](const Bytes& nal) {
            return QByteArray(reinterpret_cast<const char*>(nal.data()), static_cast<int>(nal.size())).toBase64();
        };
        media.formatParameters.insert("sprop-parameter-sets", text(sps640()) + ',' + text(pps()));
    }
    return media;
}

inline vms_sdk::rtsp::SdpMedia audioMedia(const QByteArray& encoding, std::uint32_t clockRate)
{
    vms_sdk::rtsp::SdpMedia media;
    media.type = "audio";
    media.payloadType = 97;
    media.encoding = encoding;
    media.clockRate = clockRate;
    return media;
}

/// A receiver with its batches logged; packets are numbered and sent on their channel by the helpers.
class ReceiverFixture
{
public:
    ReceiverFixture()
        : receiver([this](const QByteArray& batch) { log.take(batch); }, vav::StreamInfo())
    {}

    void addTrack(const vms_sdk::rtsp::SdpMedia& media)
    {
        vms_sdk::rtsp::MediaFormat format;
        QByteArray reason;
        if (!vms_sdk::rtsp::makeMediaFormat(media, format, reason))
            std::abort();
        receiver.addTrack(format, static_cast<std::uint8_t>(media.payloadType),
                          static_cast<std::uint8_t>(2 * m_tracks++));
    }

    vms_sdk::rtsp::MediaLimit send(const Bytes& payload, std::uint32_t timestamp, bool marker,
                                   std::optional<std::int64_t> ntpNs = {}, std::uint8_t flags = 0,
                                   std::uint8_t channel = 0)
    {
        Rtp header;
        header.payloadType = static_cast<std::uint8_t>(96 + channel / 2);
        header.sequence = m_sequence[channel]++;
        header.timestamp = timestamp;
        header.marker = marker;
        header.withReplay = ntpNs.has_value() || flags != 0;
        header.ntpTime = ntpNs ? ntpOf(*ntpNs) : 0;
        header.replayFlags = flags;
        return sendRaw(channel, rtp(header, payload));
    }

    vms_sdk::rtsp::MediaLimit sendRaw(std::uint8_t channel, const Bytes& packet)
    {
        // Exactly as long as the packet, so that a sanitizer sees each read past its end.
        const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[packet.size()]);
        std::copy(packet.begin(), packet.end(), exact.get());
        return receiver.packet(channel, exact.get(), packet.size());
    }

    /// One H.264 picture in one packet.
    void picture(int number, bool key, std::optional<std::int64_t> ntpNs = {}, std::uint8_t flags = 0)
    {
        send(h264Nal(key ? 5 : 1, 50, static_cast<std::uint8_t>(number)),
             static_cast<std::uint32_t>(number) * frameTicks, true, ntpNs, flags);
    }

    /// Leaves out sequence numbers.
    void lose(unsigned count, std::uint8_t channel = 0)
    {
        m_sequence[channel] = static_cast<std::uint16_t>(m_sequence[channel] + count);
    }
    std::uint16_t& sequence(std::uint8_t channel = 0) { return m_sequence[channel]; }

    BatchLog log;
    vms_sdk::rtsp::MediaReceiver receiver;

private:
    int m_tracks = 0;
    std::uint16_t m_sequence[4] = {65'530, 0, 65'530, 0};
};

} // namespace rtptest
