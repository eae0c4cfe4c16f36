#pragma once

#include <cstdint>

namespace vms_sdk::rtsp {

inline std::uint16_t readBe16(const std::uint8_t* at)
{
    return static_cast<std::uint16_t>(at[0] << 8 | at[1]);
}

inline std::uint32_t readBe24(const std::uint8_t* at)
{
    return static_cast<std::uint32_t>(at[0]) << 16 | static_cast<std::uint32_t>(at[1]) << 8 | at[2];
}

inline std::uint32_t readBe32(const std::uint8_t* at)
{
    return static_cast<std::uint32_t>(readBe16(at)) << 16 | readBe16(at + 2);
}

inline std::uint64_t readBe64(const std::uint8_t* at)
{
    return static_cast<std::uint64_t>(readBe32(at)) << 32 | readBe32(at + 4);
}

inline void writeBe32(std::uint8_t* at, std::uint32_t value)
{
    at[0] = static_cast<std::uint8_t>(value >> 24);
    at[1] = static_cast<std::uint8_t>(value >> 16);
    at[2] = static_cast<std::uint8_t>(value >> 8);
    at[3] = static_cast<std::uint8_t>(value);
}

} // namespace vms_sdk::rtsp
