#pragma once

#include <cstddef>
#include <cstdint>

namespace vms_sdk::rtsp {

/// Bits of a raw byte sequence payload, most significant first; emulation prevention bytes must be out already. Past
/// the end it delivers zeros and remembers that it did.
class BitReader
{
public:
    BitReader(const std::uint8_t* data, std::size_t bytes)
        : m_data(data)
        , m_bits(bytes * 8)
    {}

    bool good() const { return m_good; }
    std::uint32_t bits(unsigned count) ///< 32 at most
    {
        std::uint32_t value = 0;
        while (count-- > 0)
            value = value << 1 | bit();
        return value;
    }
    bool flag() { return bit() != 0; }
    void skip(std::size_t count)
    {
        m_at += count;
        if (m_at > m_bits) {
            m_at = m_bits;
            m_good = false;
        }
    }
    std::uint32_t ue() ///< Exp-Golomb (ISO/IEC 14496-10 clause 9.1)
    {
        unsigned zeros = 0;
        while (m_good && zeros < 32 && bit() == 0)
            ++zeros;
        if (!m_good || zeros >= 32) {
            m_good = false;
            return 0;
        }
        return ((std::uint32_t{1} << zeros) - 1) + bits(zeros);
    }
    std::int32_t se()
    {
        const std::uint32_t code = ue();
        const auto half = static_cast<std::int32_t>(code / 2 + (code & 1));
        return (code & 1) ? half : -half;
    }

private:
    std::uint32_t bit()
    {
        if (m_at >= m_bits) {
            m_good = false;
            return 0;
        }
        const std::uint32_t value = m_data[m_at / 8] >> (7 - m_at % 8) & 1u;
        ++m_at;
        return value;
    }

    const std::uint8_t* m_data;
    std::size_t m_bits;
    std::size_t m_at = 0;
    bool m_good = true;
};

} // namespace vms_sdk::rtsp
