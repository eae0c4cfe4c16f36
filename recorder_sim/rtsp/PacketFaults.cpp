#include "rtsp/PacketFaults.h"

#include <utility>

namespace recorder_sim {
namespace {

bool isRtcp(std::string_view packet)
{
    const auto type = static_cast<unsigned char>(packet[5]);
    return type >= 200 && type <= 204;
}

bool hits(std::int64_t count, std::int64_t every)
{
    return every > 0 && count % every == 0;
}

/// Makes the RTP header lie, in three ways by turns: more padding than packet, an extension past the end, fifteen
/// CSRCs.
void layTrap(std::string& packet, std::int64_t turn)
{
    constexpr std::size_t rtp = 4;
    const auto first = static_cast<unsigned char>(packet[rtp]);
    switch (turn % 3) {
    case 0:
        packet[rtp] = static_cast<char>(first | 0x20);
        packet.back() = static_cast<char>(0xff);
        break;
    case 1:
        packet[rtp] = static_cast<char>(first | 0x10);
        if (packet.size() >= rtp + 16) {
            packet[rtp + 14] = static_cast<char>(0xff);
            packet[rtp + 15] = static_cast<char>(0xff);
        }
        break;
    default:
        packet[rtp] = static_cast<char>(first | 0x0f);
        packet.resize(rtp + 12);
        packet[2] = 0;
        packet[3] = 12;
        break;
    }
}

} // namespace

double PacketFaults::random()
{
    seed = seed * 6364136223846793005u + 1442695040888963407u;
    return static_cast<double>(seed >> 11) * 0x1p-53;
}

void PacketFaults::rewrite(std::string_view packets, std::string& out)
{
    out.clear();
    while (packets.size() >= 4) {
        const std::size_t length = static_cast<std::size_t>(static_cast<unsigned char>(packets[2])) << 8 |
                                   static_cast<unsigned char>(packets[3]);
        std::string packet(packets.substr(0, 4 + length));
        packets.remove_prefix(packet.size());
        if (packet.size() < 16 || isRtcp(packet)) {
            out += packet;
            continue;
        }
        ++m_count;
        if (lossRate > 0 && random() < lossRate) {
            ++m_lost;
            continue;
        }
        if (hits(m_count, trapEvery))
            layTrap(packet, m_count / trapEvery);
        if (m_count == tornAt)
            packet.resize(4 + length / 2);
        if (m_count == wrongLengthAt) {
            const std::size_t told = length + static_cast<std::size_t>(wrongLengthBy);
            packet[2] = static_cast<char>(told >> 8);
            packet[3] = static_cast<char>(told & 0xff);
        }
        if (hits(m_count, reorderEvery)) {
            out += std::exchange(m_held, std::string());
            m_held = std::move(packet);
            continue;
        }
        out += packet;
        if (hits(m_count, duplicateEvery))
            out += packet;
        out += std::exchange(m_held, std::string());
    }
}

} // namespace recorder_sim
