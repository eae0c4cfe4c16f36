#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vms_sdk::rtsp {

/// What an RTP/JPEG packet (RFC 2435) says of its frame.
struct JpegFrame
{
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    bool halfHeightChroma = false; ///< 4:2:0, else 4:2:2
    std::uint16_t restartInterval = 0;
    std::uint8_t luma[64] = {}; ///< quantisation tables in zig-zag order
    std::uint8_t chroma[64] = {};
};

/// The tables that a quality from 1 to 99 stands for (RFC 2435 appendix A).
void makeQuantizers(unsigned quality, std::uint8_t luma[64], std::uint8_t chroma[64]);

/// Everything of a JFIF image before its scan data, with the standard Huffman tables (RFC 2435 appendix B).
std::vector<std::uint8_t> makeJfifHeader(const JpegFrame& frame);

} // namespace vms_sdk::rtsp
