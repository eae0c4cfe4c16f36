#include "media/PacketPlan.h"

#include "media/RtpPayload.h"

#include <algorithm>
#include <utility>

namespace recorder_sim {
namespace {

constexpr int dynamicVideoType = 96;
constexpr int dynamicAudioType = 97;
constexpr std::size_t keptPlans = 32;

} // namespace

bool PlanOptions::operator==(const PlanOptions& other) const
{
    return packetSize == other.packetSize && extension == other.extension && trackMask == other.trackMask &&
           senderReports == other.senderReports;
}

int PacketPlan::payloadType(int track, Codec codec)
{
    if (track == videoTrack)
        return dynamicVideoType;
    return codec == Codec::Pcmu ? 0 : codec == Codec::Pcma ? 8 : dynamicAudioType;
}

PacketPlan::PacketPlan(std::shared_ptr<const MediaLoop> loop, const PlanOptions& options)
    : m_loop(std::move(loop))
    , m_options(options)
{
    m_bytes.reserve(m_loop->video().bytes.size() * 11 / 10 + 1024 * 1024);
    for (std::uint32_t i = 0; i < m_loop->items().size(); ++i) {
        m_firstPacket.push_back(m_packets.size());
        addItem(i);
    }
    m_firstPacket.push_back(m_packets.size());
}

void PacketPlan::addItem(std::uint32_t index)
{
    const MediaItem& item = m_loop->items()[index];
    if (item.track == videoTrack && item.key && m_options.senderReports) {
        for (std::uint8_t track = 0; track < trackCount; ++track) {
            if (hasTrack(track))
                addSenderReport(index, track);
        }
    }
    if (!hasTrack(item.track))
        return;
    const bool everyPacket = m_options.extension == ExtensionMode::EveryPacket;
    const bool firstPacket = m_options.extension != ExtensionMode::None;
    std::vector<std::string> payloads;
    Codec codec = Codec::Unknown;
    if (item.track == videoTrack) {
        const VideoClip& clip = m_loop->video();
        codec = clip.codec;
        std::vector<std::string_view> nals;
        for (const Slice& slice : clip.units[item.unit].nalUnits)
            nals.push_back(clip.nal(slice));
        const std::size_t room = m_options.packetSize - rtpHeader;
        payloads = videoPayloads(codec, nals, room - (firstPacket ? extensionBytes : 0),
                                 room - (everyPacket ? extensionBytes : 0));
    } else {
        const AudioClip& clip = m_loop->audio();
        codec = clip.codec;
        std::vector<std::string_view> units;
        for (std::uint32_t i = 0; i < item.unitCount; ++i)
            units.push_back(clip.unit(item.unit + i));
        payloads.push_back(codec == Codec::Aac ? aacPayload(units) : std::string(units.front()));
    }
    // The marker ends an access unit of video and an AAC packet; for G.711 it would mean the begin of a talk spurt.
    const bool marks = item.track == videoTrack || codec == Codec::Aac;
    for (std::size_t i = 0; i < payloads.size(); ++i)
        addPacket(index, item.track, payloadType(item.track, codec), everyPacket || (firstPacket && i == 0),
                  marks && i + 1 == payloads.size(), payloads[i]);
}

void PacketPlan::addPacket(std::uint32_t item, std::uint8_t track, int payloadType, bool extension, bool marker,
                           const std::string& payload)
{
    Packet packet;
    packet.offset = static_cast<std::uint32_t>(m_bytes.size());
    packet.item = item;
    packet.payloadBytes = static_cast<std::uint16_t>(payload.size());
    packet.track = track;
    packet.kind = extension ? Kind::RtpWithExtension : Kind::Rtp;
    m_packets.push_back(packet);

    const std::size_t length = rtpHeader + (extension ? extensionBytes : 0) + payload.size();
    m_bytes += '$';
    m_bytes += '\0';
    m_bytes += static_cast<char>(length >> 8);
    m_bytes += static_cast<char>(length & 0xff);
    m_bytes += static_cast<char>(0x80 | (extension ? 0x10 : 0));
    m_bytes += static_cast<char>((marker ? 0x80 : 0) | payloadType);
    m_bytes.append(rtpHeader - 2, '\0');
    if (extension) {
        m_bytes += "\xAB\xAC";
        m_bytes += '\0';
        m_bytes += '\3';
        m_bytes.append(extensionBytes - 4, '\0');
    }
    m_bytes += payload;
}

void PacketPlan::addSenderReport(std::uint32_t item, std::uint8_t track)
{
    // RFC 3550 6.4.1 and 6.5: a sender report and an SDES packet with a CNAME, padded to 32-bit words.
    static constexpr char name[] = "recorder";
    constexpr std::size_t nameBytes = sizeof name - 1;
    constexpr std::size_t sdesBytes = (4 + 4 + 2 + nameBytes + 1 + 3) / 4 * 4;
    Packet packet;
    packet.offset = static_cast<std::uint32_t>(m_bytes.size());
    packet.item = item;
    packet.track = track;
    packet.kind = Kind::SenderReport;
    m_packets.push_back(packet);

    std::string text(interleavedHeader + 28 + sdesBytes, '\0');
    text[0] = '$';
    text[3] = static_cast<char>(28 + sdesBytes);
    char* report = text.data() + interleavedHeader;
    report[0] = static_cast<char>(0x80);
    report[1] = static_cast<char>(200);
    report[3] = 6;
    char* sdes = report + 28;
    sdes[0] = static_cast<char>(0x81);
    sdes[1] = static_cast<char>(202);
    sdes[3] = static_cast<char>(sdesBytes / 4 - 1);
    sdes[8] = 1;
    sdes[9] = static_cast<char>(nameBytes);
    std::copy(name, name + nameBytes, sdes + 10);
    m_bytes += text;
}

std::shared_ptr<const PacketPlan> PacketPlanCache::plan(const std::shared_ptr<const MediaLoop>& loop,
                                                        const PlanOptions& options)
{
    const std::lock_guard<std::mutex> guard(m_mutex);
    for (const auto& [known, plan] : m_plans) {
        if (known == loop && plan->options() == options)
            return plan;
    }
    if (m_plans.size() >= keptPlans)
        m_plans.erase(m_plans.begin());
    m_plans.emplace_back(loop, std::make_shared<PacketPlan>(loop, options));
    return m_plans.back().second;
}

} // namespace recorder_sim
