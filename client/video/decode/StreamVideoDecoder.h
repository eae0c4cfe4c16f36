#pragma once

#include "DecodeEntry.h"
#include "LibavHandles.h"
#include "PictureScaler.h"

namespace vemo_decode {

/// The decoder over libavcodec: on the computer's hardware where that takes the stream, on the processor otherwise and
/// from the first failure of the hardware on. One thread decodes, so that pictures come without delay.
class StreamVideoDecoder final : public Decoder
{
public:
    bool open(vav::Codec codec, const std::vector<std::uint8_t>& parameterSets) override;
    void setParameterSets(const std::vector<std::uint8_t>& parameterSets) override;
    bool send(const AccessUnit& unit) override;
    void drain() override;
    std::shared_ptr<const Frame> receive() override;
    void flush() override;
    void setHurried(bool hurried) override;
    bool draw(const Frame& frame, int width, int height, std::uint8_t* pixels, int stride) override;
    const char* device() const override;

private:
    static AVPixelFormat pickFormat(AVCodecContext* context, const AVPixelFormat* offered);

    bool openCodec();
    void leaveHardware();
    bool fillPacket(const AccessUnit& unit);
    Libav<AVFrame> fetched(Libav<AVFrame> frame);

    vav::Codec m_codec = vav::Codec::Unknown;
    std::vector<std::uint8_t> m_parameterSets; ///< with start codes
    bool m_setsPending = false;                ///< they go in front of the next access unit
    bool m_usesHardware = true;                ///< until it fails
    AVPixelFormat m_hardwareFormat = AV_PIX_FMT_NONE;
    bool m_onHardware = false; ///< the latest picture came from there
    Libav<AVCodecContext> m_context;
    Libav<AVPacket> m_packet;
    PictureScaler m_scaler;
};

} // namespace vemo_decode
