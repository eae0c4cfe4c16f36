#pragma once

#include "LibavHandles.h"

#include <cstdint>

namespace vemo_decode {

/// Scales pictures and turns them into red, green and blue, by the colours that they are told to have. Keeps what it
/// prepared for one pair of sizes. One thread at a time.
class PictureScaler final
{
public:
    bool draw(const AVFrame& from, int width, int height, std::uint8_t* pixels, int stride);

private:
    bool prepare(const AVFrame& from, int width, int height);

    Libav<SwsContext> m_context;
    int m_fromWidth = 0;
    int m_fromHeight = 0;
    int m_fromFormat = -1;
    int m_toWidth = 0;
    int m_toHeight = 0;
    int m_colorSpace = -1;
    int m_colorRange = -1;
};

} // namespace vemo_decode
