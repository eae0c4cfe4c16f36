#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vms_sdk::rtsp {

/// Keeps packets that came before their predecessors until those have come, or until waiting is of no use: over TCP
/// only a recorder that mixes up its own packets needs it. Bounded; the copies are the only ones on the packet path.
class ReorderQueue
{
public:
    static constexpr std::size_t maxPackets = 32;

    bool isEmpty() const { return m_packets.empty(); }
    bool isFull() const { return m_packets.size() >= maxPackets; }
    void add(std::uint16_t sequence, const std::uint8_t* data, std::size_t bytes);
    /// Takes the packet of that number out; false when it is not there.
    bool take(std::uint16_t sequence, std::vector<std::uint8_t>& packet);
    /// Takes the one out that follows next behind `sequence`. Not for an empty queue.
    std::vector<std::uint8_t> takeFirstAfter(std::uint16_t sequence);
    void clear() { m_packets.clear(); }

private:
    struct Entry
    {
        std::uint16_t sequence;
        std::vector<std::uint8_t> packet;
    };

    std::vector<Entry> m_packets;
};

} // namespace vms_sdk::rtsp
