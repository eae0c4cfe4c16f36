#include "RtspReader.h"

#include <algorithm>
#include <cstring>

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t interleavedHeaderBytes = 4;

} // namespace

RtspReader::RtspReader()
    : m_buffer(new std::uint8_t[bufferBytes])
{}

std::uint8_t* RtspReader::writeArea()
{
    if (m_begin == m_end) {
        m_begin = m_end = 0;
    } else if (bufferBytes - m_end < bufferBytes / 4) {
        std::memmove(m_buffer.get(), m_buffer.get() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    return m_buffer.get() + m_end;
}

RtspReader::Event RtspReader::next()
{
    while (m_failure == Failure::None) {
        if (m_begin == m_end)
            return Event::NeedMore;

        if (m_part == Part::Start) {
            const std::uint8_t* at = m_buffer.get() + m_begin;
            const std::size_t left = m_end - m_begin;
            if (*at == '$') {
                if (left < interleavedHeaderBytes)
                    return Event::NeedMore;
                const std::size_t size = static_cast<std::size_t>(at[2] << 8 | at[3]);
                if (left - interleavedHeaderBytes < size)
                    return Event::NeedMore;
                m_channel = at[1];
                m_packet = at + interleavedHeaderBytes;
                m_packetBytes = size;
                m_begin += interleavedHeaderBytes + size;
                return Event::Packet;
            }
            // Some peers send empty lines between messages (RFC 2326 clause 4.1 asks to ignore them).
            if (*at == '\r' || *at == '\n') {
                ++m_begin;
                continue;
            }
        }

        if (m_part == Part::Body) {
            const std::size_t part = std::min(m_bodyLeft, m_end - m_begin);
            m_message.body.append(reinterpret_cast<const char*>(m_buffer.get() + m_begin), static_cast<int>(part));
            m_begin += part;
            m_bodyLeft -= part;
            if (m_bodyLeft > 0)
                return Event::NeedMore;
            m_part = Part::Start;
            return Event::Message;
        }

        bool complete = false;
        QByteArray line;
        if (nextLine(complete, line) == Event::Failed)
            return Event::Failed;
        if (!complete)
            return Event::NeedMore;
        const Event event = takeLine(line);
        if (event != Event::NeedMore)
            return event;
    }
    return Event::Failed;
}

RtspReader::Event RtspReader::fail(Failure failure)
{
    m_failure = failure;
    return Event::Failed;
}

RtspReader::Event RtspReader::nextLine(bool& complete, QByteArray& line)
{
    const std::uint8_t* at = m_buffer.get() + m_begin;
    const std::size_t left = m_end - m_begin;
    const void* found = std::memchr(at + m_scanned, '\n', left - m_scanned);
    const std::size_t size = found ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - at) : left;
    if (size > maxLineBytes)
        return fail(Failure::LineTooLong);
    if (!found) {
        m_scanned = left;
        return Event::NeedMore;
    }
    const std::size_t textSize = size > 0 && at[size - 1] == '\r' ? size - 1 : size;
    line = QByteArray(reinterpret_cast<const char*>(at), static_cast<int>(textSize));
    m_begin += size + 1;
    m_scanned = 0;
    complete = true;
    return Event::NeedMore;
}

RtspReader::Event RtspReader::takeLine(const QByteArray& line)
{
    if (m_part == Part::Start) {
        m_message = RtspMessage();
        if (!m_message.parseStartLine(line))
            return fail(Failure::BadStartLine);
        m_part = Part::Headers;
        return Event::NeedMore;
    }
    if (line.isEmpty())
        return endOfHeaders();
    if (line.at(0) == ' ' || line.at(0) == '\t') {
        if (m_message.headers.isEmpty())
            return fail(Failure::BadHeader);
        QByteArray& value = m_message.headers.last().second;
        if (static_cast<std::size_t>(value.size() + line.size()) > maxLineBytes)
            return fail(Failure::LineTooLong);
        value = QByteArray(value + ' ' + line.trimmed());
        return Event::NeedMore;
    }
    if (m_message.headers.size() >= maxHeaders)
        return fail(Failure::TooManyHeaders);
    if (!m_message.appendHeaderLine(line))
        return fail(Failure::BadHeader);
    return Event::NeedMore;
}

RtspReader::Event RtspReader::endOfHeaders()
{
    m_part = Part::Start;
    if (!m_message.hasHeader("Content-Length"))
        return Event::Message;
    bool isNumber = false;
    const qulonglong size = m_message.header("Content-Length").toULongLong(&isNumber);
    if (!isNumber)
        return fail(Failure::BadContentLength);
    if (size > maxBodyBytes)
        return fail(Failure::BodyTooLong);
    if (size == 0)
        return Event::Message;
    m_bodyLeft = static_cast<std::size_t>(size);
    m_part = Part::Body;
    return Event::NeedMore;
}

} // namespace vms_sdk::rtsp
