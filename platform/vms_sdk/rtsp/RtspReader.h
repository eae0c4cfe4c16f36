#pragma once

#include "RtspMessage.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace vms_sdk::rtsp {

/// Cuts the bytes of one RTSP connection into messages and interleaved packets (RFC 2326 clauses 4 and 10.12). The
/// socket is read straight into the reader's buffer, packets are handed out as views into it: no copy, no allocation a
/// packet. Single-threaded.
///
/// Use: fill writeArea() and call commit(); then call next() until it says NeedMore. After Failed the connection is of
/// no more use.
class RtspReader
{
public:
    static constexpr std::size_t maxLineBytes = 8 * 1024;
    static constexpr int maxHeaders = 128;
    static constexpr std::size_t maxBodyBytes = 128 * 1024;
    static constexpr std::size_t bufferBytes = 512 * 1024;

    enum class Event : std::uint8_t {
        NeedMore,
        Packet,  ///< channel(), packet(), packetBytes(): valid until the next call of any other function than these
        Message, ///< takeMessage()
        Failed,  ///< failure() names what was wrong
    };

    enum class Failure : std::uint8_t {
        None,
        LineTooLong,
        TooManyHeaders,
        BodyTooLong,
        BadContentLength,
        BadStartLine,
        BadHeader,
    };

    RtspReader();

    /// Where the next bytes go; never smaller than a quarter of the buffer once next() has said NeedMore.
    std::uint8_t* writeArea();
    std::size_t writeRoom() const { return bufferBytes - m_end; }
    void commit(std::size_t bytes) { m_end += bytes; }

    Event next();

    std::uint8_t channel() const { return m_channel; }
    const std::uint8_t* packet() const { return m_packet; }
    std::size_t packetBytes() const { return m_packetBytes; }
    RtspMessage takeMessage() { return std::move(m_message); }
    Failure failure() const { return m_failure; }

    /// Bytes that next() has not handed out yet.
    std::size_t pendingBytes() const { return m_end - m_begin; }
    /// The pending bytes are the beginning of an interleaved packet.
    bool insidePacket() const { return m_part == Part::Start && m_begin < m_end && m_buffer[m_begin] == '$'; }

private:
    enum class Part : std::uint8_t { Start, Headers, Body };

    Event fail(Failure failure);
    Event nextLine(bool& complete, QByteArray& line);
    Event takeLine(const QByteArray& line);
    Event endOfHeaders();

    std::unique_ptr<std::uint8_t[]> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::size_t m_scanned = 0; ///< bytes behind m_begin in which no line end was found

    Part m_part = Part::Start;
    RtspMessage m_message;
    std::size_t m_bodyLeft = 0;

    std::uint8_t m_channel = 0;
    const std::uint8_t* m_packet = nullptr;
    std::size_t m_packetBytes = 0;
    Failure m_failure = Failure::None;
};

} // namespace vms_sdk::rtsp
