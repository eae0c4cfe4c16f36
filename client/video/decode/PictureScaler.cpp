#include "PictureScaler.h"

namespace vemo_decode {

namespace {

constexpr int hdHeight = 720; ///< from here on, colours that are not told are those of high definition
constexpr int one16 = 1 << 16;

bool isFullRange(const AVFrame& frame)
{
    const auto format = AVPixelFormat(frame.format);
    return frame.color_range == AVCOL_RANGE_JPEG || format == AV_PIX_FMT_YUVJ420P || format == AV_PIX_FMT_YUVJ422P ||
           format == AV_PIX_FMT_YUVJ444P;
}

/// The format without its range, which the scaler is told apart from it.
AVPixelFormat plainFormat(AVPixelFormat format)
{
    switch (format) {
    case AV_PIX_FMT_YUVJ420P:
        return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
        return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ444P:
        return AV_PIX_FMT_YUV444P;
    default:
        return format;
    }
}

int coefficientsOf(const AVFrame& frame)
{
    switch (frame.colorspace) {
    case AVCOL_SPC_BT709:
        return SWS_CS_ITU709;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return SWS_CS_BT2020;
    case AVCOL_SPC_UNSPECIFIED:
        return frame.height >= hdHeight && !isFullRange(frame) ? SWS_CS_ITU709 : SWS_CS_ITU601;
    default:
        return SWS_CS_ITU601;
    }
}

} // namespace

bool PictureScaler::prepare(const AVFrame& from, int width, int height)
{
    if (m_context && m_fromWidth == from.width && m_fromHeight == from.height && m_fromFormat == from.format &&
        m_toWidth == width && m_toHeight == height && m_colorSpace == from.colorspace &&
        m_colorRange == from.color_range)
        return true;
    m_context.reset(sws_getContext(from.width, from.height, plainFormat(AVPixelFormat(from.format)), width, height,
                                   AV_PIX_FMT_BGRA, SWS_BILINEAR, nullptr, nullptr, nullptr));
    if (!m_context)
        return false;
    const int* coefficients = sws_getCoefficients(coefficientsOf(from));
    sws_setColorspaceDetails(m_context.get(), coefficients, isFullRange(from), coefficients, 1, 0, one16, one16);
    m_fromWidth = from.width;
    m_fromHeight = from.height;
    m_fromFormat = from.format;
    m_toWidth = width;
    m_toHeight = height;
    m_colorSpace = from.colorspace;
    m_colorRange = from.color_range;
    return true;
}

bool PictureScaler::draw(const AVFrame& from, int width, int height, std::uint8_t* pixels, int stride)
{
    if (width <= 0 || height <= 0 || !prepare(from, width, height))
        return false;
    std::uint8_t* rows[] = {pixels, nullptr, nullptr, nullptr};
    const int strides[] = {stride, 0, 0, 0};
    return sws_scale(m_context.get(), from.data, from.linesize, 0, from.height, rows, strides) == height;
}

} // namespace vemo_decode
