#pragma once

#include "media/MediaLoop.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace recorder_sim {

/// Which packets carry the replay header extension (ONVIF Streaming 6.3).
enum class ExtensionMode { None, AccessUnit, EveryPacket };

struct PlanOptions
{
    std::size_t packetSize = 1400; ///< of an RTP packet, its header included
    ExtensionMode extension = ExtensionMode::AccessUnit;
    unsigned trackMask = 3; ///< bit 0 video, bit 1 audio
    bool senderReports = true;

    bool operator==(const PlanOptions& other) const;
};

/// A whole loop as ready-made interleaved packets in one buffer, in sending order. Only what differs from one sending
/// to the next is left empty: channel number, SSRC, sequence number, RTP time, the extension's NTP time and flags, and
/// the times and counts of sender reports, which stand before each key frame. Immutable; a sender copies the buffer and
/// patches its copy.
class PacketPlan final
{
public:
    enum class Kind : std::uint8_t { Rtp, RtpWithExtension, SenderReport };

    struct Packet
    {
        std::uint32_t offset = 0; ///< of the '$' in the buffer
        std::uint32_t item = 0;
        std::uint16_t payloadBytes = 0; ///< without RTP header and extension
        std::uint8_t track = 0;
        Kind kind = Kind::Rtp;
    };

    static constexpr std::size_t interleavedHeader = 4;
    static constexpr std::size_t rtpHeader = 12;
    static constexpr std::size_t extensionBytes = 16;

    PacketPlan(std::shared_ptr<const MediaLoop> loop, const PlanOptions& options);

    const MediaLoop& loop() const { return *m_loop; }
    const PlanOptions& options() const { return m_options; }
    const std::string& bytes() const { return m_bytes; }
    const std::vector<Packet>& packets() const { return m_packets; }

    /// Index of the first packet of an item; the item after the last one gives the number of packets.
    std::size_t firstPacketOf(std::size_t item) const { return m_firstPacket[item]; }
    std::size_t endOffsetOf(std::size_t packet) const
    {
        return packet + 1 < m_packets.size() ? m_packets[packet + 1].offset : m_bytes.size();
    }

    static int payloadType(int track, Codec codec);

private:
    void addItem(std::uint32_t index);
    void addPacket(std::uint32_t item, std::uint8_t track, int payloadType, bool extension, bool marker,
                   const std::string& payload);
    void addSenderReport(std::uint32_t item, std::uint8_t track);
    bool hasTrack(int track) const { return m_options.trackMask >> track & 1; }

    std::shared_ptr<const MediaLoop> m_loop;
    PlanOptions m_options;
    std::string m_bytes;
    std::vector<Packet> m_packets;
    std::vector<std::size_t> m_firstPacket;
};

/// Makes each plan once; safe from any thread.
class PacketPlanCache final
{
public:
    std::shared_ptr<const PacketPlan> plan(const std::shared_ptr<const MediaLoop>& loop, const PlanOptions& options);

private:
    std::mutex m_mutex;
    std::vector<std::pair<std::shared_ptr<const MediaLoop>, std::shared_ptr<const PacketPlan>>>
        m_plans; ///< under m_mutex
};

} // namespace recorder_sim
