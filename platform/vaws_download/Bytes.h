#pragma once

#include <cstddef>
#include <cstdint>

/// Big-endian fields of MP4 boxes in memory.
namespace vaws {

inline void put32(std::uint8_t* out, std::uint32_t value)
{
    out[0] = static_cast<std::uint8_t>(value >> 24);
    out[1] = static_cast<std::uint8_t>(value >> 16);
    out[2] = static_cast<std::uint8_t>(value >> 8);
    out[3] = static_cast<std::uint8_t>(value);
}

inline void put64(std::uint8_t* out, std::uint64_t value)
{
    put32(out, static_cast<std::uint32_t>(value >> 32));
    put32(out + 4, static_cast<std::uint32_t>(value));
}

inline std::uint32_t get32(const std::uint8_t* in)
{
    return static_cast<std::uint32_t>(in[0]) << 24 | static_cast<std::uint32_t>(in[1]) << 16 |
           static_cast<std::uint32_t>(in[2]) << 8 | in[3];
}

inline std::uint64_t get64(const std::uint8_t* in)
{
    return static_cast<std::uint64_t>(get32(in)) << 32 | get32(in + 4);
}

constexpr std::uint32_t fourcc(const char (&type)[5])
{
    return static_cast<std::uint32_t>(static_cast<std::uint8_t>(type[0])) << 24 |
           static_cast<std::uint32_t>(static_cast<std::uint8_t>(type[1])) << 16 |
           static_cast<std::uint32_t>(static_cast<std::uint8_t>(type[2])) << 8 | static_cast<std::uint8_t>(type[3]);
}

/// Takes big-endian fields from a block. Past the end it delivers zeros and good() turns false for ever.
class ByteReader
{
public:
    ByteReader(const std::uint8_t* data, std::size_t size)
        : m_at(data)
        , m_left(size)
    {}

    bool good() const { return m_good; }
    std::size_t left() const { return m_left; }
    const std::uint8_t* at() const { return m_at; }

    std::uint8_t u8()
    {
        const std::uint8_t* in = take(1);
        return in ? *in : std::uint8_t{0};
    }
    std::uint16_t u16()
    {
        const std::uint8_t* in = take(2);
        return in ? static_cast<std::uint16_t>(in[0] << 8 | in[1]) : std::uint16_t{0};
    }
    std::uint32_t u32()
    {
        const std::uint8_t* in = take(4);
        return in ? get32(in) : 0;
    }
    std::uint64_t u64()
    {
        const std::uint8_t* in = take(8);
        return in ? get64(in) : 0;
    }
    std::int32_t i32() { return static_cast<std::int32_t>(u32()); }
    std::int64_t i64() { return static_cast<std::int64_t>(u64()); }
    void skip(std::size_t count) { take(count); }

    /// The next `count` bytes, or nullptr when there are fewer.
    const std::uint8_t* take(std::size_t count)
    {
        if (!m_good || count > m_left) {
            m_good = false;
            return nullptr;
        }
        const std::uint8_t* in = m_at;
        m_at += count;
        m_left -= count;
        return in;
    }

    /// The next child box: its type and its payload. False at the end, and with good() false where the size lies.
    bool box(std::uint32_t& type, ByteReader& payload)
    {
        if (!m_good || m_left == 0)
            return false;
        const std::uint64_t size = u32();
        type = u32();
        std::uint64_t bytes = size - 8;
        if (size == 1)
            bytes = u64() - 16;
        if (!m_good || size == 0 || bytes > m_left) {
            m_good = false;
            return false;
        }
        payload = ByteReader(m_at, static_cast<std::size_t>(bytes));
        skip(static_cast<std::size_t>(bytes));
        return true;
    }

private:
    const std::uint8_t* m_at;
    std::size_t m_left;
    bool m_good = true;
};

} // namespace vaws
