#pragma once

#include "Bytes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

/// Where serialised bytes go. write() throws or remembers its failure, as the implementation says.
class ByteSink
{
public:
    virtual ~ByteSink() = default;
    virtual void write(const std::uint8_t* data, std::size_t size) = 0;
};

/// Collects bytes in memory.
class VectorSink final : public ByteSink
{
public:
    void write(const std::uint8_t* data, std::size_t size) override { bytes.insert(bytes.end(), data, data + size); }

    std::vector<std::uint8_t> bytes;
};

/// Serialises MP4 boxes (ISO/IEC 14496-12 clause 4.2) to a sink in one stream: the description runs twice, first to
/// learn every box's size, then to write, so that tables of any length need no memory. The description must do the same
/// both times.
class BoxWriter final
{
public:
    /// Writes what `body(BoxWriter&)` describes and returns its length; without a sink only measures.
    template <class Body>
    static std::uint64_t serialize(ByteSink* sink, Body&& body)
    {
        BoxWriter writer;
        body(writer);
        const std::uint64_t total = writer.m_position;
        if (sink) {
            writer.startWriting(*sink);
            body(writer);
            writer.flush();
        }
        return total;
    }

    template <class Body>
    static std::vector<std::uint8_t> toBytes(Body&& body)
    {
        VectorSink sink;
        serialize(&sink, body);
        return std::move(sink.bytes);
    }

    void begin(const char (&type)[5]);
    void beginFull(const char (&type)[5], std::uint8_t version, std::uint32_t flags);
    void end();

    bool measuring() const { return !m_sink; }
    std::uint64_t position() const { return m_position; }
    /// Stands for `count` bytes while measuring.
    void pass(std::uint64_t count) { m_position += count; }

    void u8(std::uint8_t value)
    {
        if (std::uint8_t* out = room(1))
            *out = value;
    }
    void u16(std::uint16_t value)
    {
        if (std::uint8_t* out = room(2)) {
            out[0] = static_cast<std::uint8_t>(value >> 8);
            out[1] = static_cast<std::uint8_t>(value);
        }
    }
    void u32(std::uint32_t value)
    {
        if (std::uint8_t* out = room(4))
            put32(out, value);
    }
    void u64(std::uint64_t value)
    {
        if (std::uint8_t* out = room(8))
            put64(out, value);
    }
    void i64(std::int64_t value) { u64(static_cast<std::uint64_t>(value)); }
    void zeros(std::size_t count);
    void bytes(const void* data, std::size_t size);
    void text(const std::string& value) { bytes(value.data(), value.size()); }

private:
    BoxWriter() = default;
    void startWriting(ByteSink& sink);
    void flush();
    std::uint8_t* room(std::size_t count)
    {
        m_position += count;
        if (!m_sink)
            return nullptr;
        if (m_fill + count > m_stage.size())
            flush();
        std::uint8_t* out = m_stage.data() + m_fill;
        m_fill += count;
        return out;
    }

    ByteSink* m_sink = nullptr;
    std::uint64_t m_position = 0;
    std::vector<std::uint64_t> m_sizes; ///< of every box, in the order of their begins
    std::vector<std::size_t> m_open;    ///< indexes into m_sizes
    std::size_t m_next = 0;             ///< the box that begins next while writing
    std::vector<std::uint8_t> m_stage;
    std::size_t m_fill = 0;
};

} // namespace vaws
