#pragma once

#include <cstdint>

namespace vms_sdk::rtsp {

/// NAL unit types of ISO/IEC 14496-10 table 7-1 and of RFC 6184 table 1.
namespace h264 {
constexpr unsigned slice = 1;
constexpr unsigned idr = 5;
constexpr unsigned sei = 6;
constexpr unsigned sps = 7;
constexpr unsigned pps = 8;
constexpr unsigned accessUnitDelimiter = 9;
constexpr unsigned stapA = 24;
constexpr unsigned fuA = 28;

inline unsigned nalType(const std::uint8_t* nal)
{
    return nal[0] & 0x1Fu;
}
inline bool isPicture(unsigned type)
{
    return type >= slice && type <= idr;
}
} // namespace h264

/// NAL unit types of ISO/IEC 23008-2 table 7-1 and of RFC 7798 clause 4.4.
namespace h265 {
constexpr unsigned firstIrap = 16;
constexpr unsigned lastIrap = 23;
constexpr unsigned vps = 32;
constexpr unsigned sps = 33;
constexpr unsigned pps = 34;
constexpr unsigned accessUnitDelimiter = 35;
constexpr unsigned prefixSei = 39;
constexpr unsigned aggregation = 48;
constexpr unsigned fragmentation = 49;

inline unsigned nalType(const std::uint8_t* nal)
{
    return nal[0] >> 1 & 0x3Fu;
}
inline bool isPicture(unsigned type)
{
    return type < 32;
}
inline bool isIrap(unsigned type)
{
    return type >= firstIrap && type <= lastIrap;
}
} // namespace h265

} // namespace vms_sdk::rtsp
