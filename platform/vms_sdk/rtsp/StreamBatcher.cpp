#include "StreamBatcher.h"

#include <algorithm>
#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t minCapacity = StreamBatcher::targetBytes + StreamBatcher::targetBytes / 2;
constexpr std::size_t maxFirstCapacity = 1024 * 1024;

void appendPacket(QByteArray& packets, const vav::FrameHeader& header, const std::uint8_t* data)
{
    std::uint8_t head[vav::headerBytes];
    vav::writeFrameHeader(head, header);
    packets.append(reinterpret_cast<const char*>(head), static_cast<int>(vav::headerBytes));
    packets.append(reinterpret_cast<const char*>(data), static_cast<int>(header.payloadBytes));
}

const std::uint8_t* bytesOf(const QByteArray& array)
{
    return reinterpret_cast<const std::uint8_t*>(array.constData());
}

} // namespace

StreamBatcher::StreamBatcher(Emit emit)
    : m_emit(std::move(emit))
    , m_nextCapacity(minCapacity)
{}

void StreamBatcher::setStreamInfo(const vav::StreamInfo& info)
{
    const std::vector<std::uint8_t> packet = vav::encodeStreamInfo(info);
    if (packet.empty())
        return;
    m_info = QByteArray(reinterpret_cast<const char*>(packet.data()), static_cast<int>(packet.size()));
    m_hasInfo = true;
    m_infoPending = true;
}

void StreamBatcher::beginUnit()
{
    m_unitOpen = true;
    m_canReopen = false;
    m_unitBegin = m_used;
    if (m_capacity - m_used < vav::headerBytes)
        grow(vav::headerBytes);
    m_used += vav::headerBytes;
}

bool StreamBatcher::closeUnit(vav::FrameHeader header)
{
    if (!m_hasInfo) {
        dropUnit();
        return false;
    }
    header.payloadBytes = static_cast<std::uint32_t>(unitBytes());
    if (m_infoPending)
        writeInfoBefore(m_unitBegin);
    vav::writeFrameHeader(m_data + m_unitBegin, header);
    m_unitOpen = false;
    m_canReopen = true;
    afterUnit();
    return true;
}

void StreamBatcher::dropUnit()
{
    m_used = m_unitBegin;
    m_unitOpen = false;
    m_canReopen = false;
    afterUnit();
}

bool StreamBatcher::reopenUnit()
{
    if (!m_canReopen)
        return false;
    m_unitOpen = true;
    m_canReopen = false;
    return true;
}

void StreamBatcher::appendFrame(vav::FrameHeader header, const std::uint8_t* data)
{
    if (!m_hasInfo) {
        if (static_cast<std::size_t>(m_held.size()) + header.payloadBytes < maxHeldBytes)
            appendPacket(m_held, header, data);
        return;
    }
    if (m_unitOpen) {
        appendPacket(m_behindUnit, header, data);
        if (static_cast<std::size_t>(m_behindUnit.size()) >= targetBytes)
            flush();
        return;
    }
    m_canReopen = false;
    if (m_infoPending)
        writeInfoBefore(m_used);
    if (m_capacity - m_used < vav::headerBytes)
        grow(vav::headerBytes);
    vav::writeFrameHeader(m_data + m_used, header);
    m_used += vav::headerBytes;
    append(data, header.payloadBytes);
    if (m_used >= targetBytes)
        flush();
}

void StreamBatcher::discard()
{
    m_used = 0;
    m_unitBegin = 0;
    m_canReopen = false;
    m_behindUnit.clear();
    m_held.clear();
    m_infoPending = m_hasInfo;
}

void StreamBatcher::flush()
{
    if (!m_unitOpen && m_hasInfo && m_infoPending && !m_held.isEmpty())
        writeInfoBefore(m_used);
    const std::size_t complete = m_unitOpen ? m_unitBegin : m_used;
    if (complete > 0)
        emitFirst(complete);
    if (m_behindUnit.isEmpty())
        return;
    QByteArray others = std::exchange(m_behindUnit, QByteArray());
    if (m_infoPending) {
        others.prepend(m_held);
        others.prepend(m_info);
        m_held = QByteArray();
        m_infoPending = false;
    }
    m_emit(others);
}

/// Emits the first bytes of the batch; what stands behind them begins the next one.
void StreamBatcher::emitFirst(std::size_t complete)
{
    QByteArray batch = std::exchange(m_batch, QByteArray());
    const std::uint8_t* rest = m_data + complete;
    const std::size_t restBytes = m_used - complete;
    m_nextCapacity = std::clamp(complete + complete / 4, minCapacity, maxFirstCapacity);
    m_capacity = m_used = m_unitBegin = 0;
    m_data = nullptr;
    m_canReopen = false;
    if (restBytes > 0)
        append(rest, restBytes);
    batch.resize(static_cast<int>(complete));
    if (complete < static_cast<std::size_t>(batch.capacity()) / 2)
        batch.squeeze();
    m_emit(batch);
}

void StreamBatcher::grow(std::size_t bytes)
{
    const std::size_t capacity = std::max({m_nextCapacity, m_used + bytes, m_capacity * 2});
    m_batch.reserve(static_cast<int>(capacity));
    m_batch.resize(static_cast<int>(capacity));
    m_data = reinterpret_cast<std::uint8_t*>(m_batch.data());
    m_capacity = capacity;
}

/// The stream info, and behind it what waited for one, goes before what stands from `position` on.
void StreamBatcher::writeInfoBefore(std::size_t position)
{
    const auto infoBytes = static_cast<std::size_t>(m_info.size());
    const auto heldBytes = static_cast<std::size_t>(m_held.size());
    if (m_capacity - m_used < infoBytes + heldBytes)
        grow(infoBytes + heldBytes);
    std::uint8_t* at = m_data + position;
    std::memmove(at + infoBytes + heldBytes, at, m_used - position);
    std::memcpy(at, bytesOf(m_info), infoBytes);
    if (heldBytes > 0)
        std::memcpy(at + infoBytes, bytesOf(m_held), heldBytes);
    m_used += infoBytes + heldBytes;
    if (m_unitBegin >= position)
        m_unitBegin += infoBytes + heldBytes;
    m_held = QByteArray();
    m_infoPending = false;
}

void StreamBatcher::afterUnit()
{
    if (!m_behindUnit.isEmpty()) {
        m_canReopen = false;
        // The unit may have been dropped, and the info with which it was to begin still stands out.
        if (m_infoPending)
            writeInfoBefore(m_used);
        append(bytesOf(m_behindUnit), static_cast<std::size_t>(m_behindUnit.size()));
        m_behindUnit.clear();
    }
    if (m_used >= targetBytes)
        flush();
}

} // namespace vms_sdk::rtsp
