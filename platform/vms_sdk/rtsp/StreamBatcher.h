#pragma once

#include "vav_frame.h"

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>

namespace vms_sdk::rtsp {

/// Gathers frames into batches of whole vav_frame packets. Payload bytes are copied once, from where they were received
/// into the batch: one access unit at a time is built at the batch's end (beginUnit(), append(), closeUnit()), frames
/// of other tracks that arrive meanwhile are put behind it. A batch is emitted when it has reached targetBytes at the
/// end of an access unit.
///
/// Nothing is emitted before a stream-info packet; small frames that come earlier are held back, units that close
/// earlier are dropped, because nobody could decode them.
class StreamBatcher
{
public:
    static constexpr std::size_t targetBytes = 64 * 1024;
    static constexpr std::size_t maxHeldBytes = 1024 * 1024;

    using Emit = std::function<void(const QByteArray&)>;

    explicit StreamBatcher(Emit emit);

    /// Written before the next frame.
    void setStreamInfo(const vav::StreamInfo& info);
    bool hasStreamInfo() const { return m_hasInfo; }

    void beginUnit();
    bool isUnitOpen() const { return m_unitOpen; }
    void append(const std::uint8_t* data, std::size_t bytes)
    {
        if (m_capacity - m_used < bytes)
            grow(bytes);
        std::memcpy(m_data + m_used, data, bytes);
        m_used += bytes;
    }
    /// Payload of the open unit; valid until the next append.
    std::uint8_t* unitData() { return m_data + m_unitBegin + vav::headerBytes; }
    std::size_t unitBytes() const { return m_used - m_unitBegin - vav::headerBytes; }
    /// False when the unit came before any stream info and was dropped; a new stream info goes before it.
    bool closeUnit(vav::FrameHeader header);
    void dropUnit();
    /// Opens the unit closed last again; false when something stands behind it or it was emitted.
    bool reopenUnit();

    /// A whole small frame.
    void appendFrame(vav::FrameHeader header, const std::uint8_t* data);

    /// Forgets what was not emitted; no unit is open. The stream info goes before what comes next.
    void discard();
    /// Emits what is complete; an open unit stays.
    void flush();
    bool hasFrames() const { return (m_unitOpen ? m_unitBegin : m_used) > 0 || !m_behindUnit.isEmpty(); }

private:
    void grow(std::size_t bytes);
    void emitFirst(std::size_t complete);
    void writeInfoBefore(std::size_t position);
    void afterUnit();

    Emit m_emit;
    QByteArray m_batch;
    std::uint8_t* m_data = nullptr;
    std::size_t m_capacity = 0;
    std::size_t m_used = 0;
    std::size_t m_nextCapacity;

    bool m_unitOpen = false;
    std::size_t m_unitBegin = 0;
    bool m_canReopen = false;

    QByteArray m_behindUnit; ///< packets of other tracks that came while a unit was open
    QByteArray m_held;       ///< packets that came before the first stream info
    QByteArray m_info;
    bool m_hasInfo = false;
    bool m_infoPending = false;
};

} // namespace vms_sdk::rtsp
