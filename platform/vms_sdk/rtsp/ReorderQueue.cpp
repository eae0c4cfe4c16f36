#include "ReorderQueue.h"

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {

void ReorderQueue::add(std::uint16_t sequence, const std::uint8_t* data, std::size_t bytes)
{
    // A second copy would stay behind when the first one is taken, and fill the queue up.
    const bool isThere = std::any_of(m_packets.begin(), m_packets.end(),
                                     [sequence](const Entry& entry) { return entry.sequence == sequence; });
    if (isThere)
        return;
    m_packets.push_back({sequence, std::vector<std::uint8_t>(data, data + bytes)});
}

bool ReorderQueue::take(std::uint16_t sequence, std::vector<std::uint8_t>& packet)
{
    const auto found = std::find_if(m_packets.begin(), m_packets.end(),
                                    [sequence](const Entry& entry) { return entry.sequence == sequence; });
    if (found == m_packets.end())
        return false;
    packet = std::move(found->packet);
    m_packets.erase(found);
    return true;
}

std::vector<std::uint8_t> ReorderQueue::takeFirstAfter(std::uint16_t sequence)
{
    const auto first =
        std::min_element(m_packets.begin(), m_packets.end(), [sequence](const Entry& left, const Entry& right) {
            return static_cast<std::uint16_t>(left.sequence - sequence) <
                   static_cast<std::uint16_t>(right.sequence - sequence);
        });
    std::vector<std::uint8_t> packet = std::move(first->packet);
    m_packets.erase(first);
    return packet;
}

} // namespace vms_sdk::rtsp
