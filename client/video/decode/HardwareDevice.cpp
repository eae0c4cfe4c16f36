#include "HardwareDevice.h"

extern "C" {
#include <libavutil/hwcontext.h>
}

namespace vemo_decode {

namespace {

HardwareDevice open()
{
#if defined(_WIN32)
    const HardwareDevice kinds[] = {{nullptr, AV_HWDEVICE_TYPE_D3D11VA, "D3D11VA"},
                                    {nullptr, AV_HWDEVICE_TYPE_DXVA2, "DXVA2"}};
#else
    const HardwareDevice kinds[] = {{nullptr, AV_HWDEVICE_TYPE_VAAPI, "VAAPI"}};
#endif
    for (HardwareDevice device : kinds) {
        if (av_hwdevice_ctx_create(&device.context, device.type, nullptr, nullptr, 0) >= 0)
            return device;
    }
    return {};
}

} // namespace

const HardwareDevice& HardwareDevice::get()
{
    static const HardwareDevice device = open();
    return device;
}

AVPixelFormat HardwareDevice::formatFor(const AVCodec& codec) const
{
    for (int i = 0; context; ++i) {
        const AVCodecHWConfig* config = avcodec_get_hw_config(&codec, i);
        if (!config)
            break;
        if (config->device_type == type && (config->methods & AV_CODEC_HW_CONFIG_METHOD_HW_DEVICE_CTX))
            return config->pix_fmt;
    }
    return AV_PIX_FMT_NONE;
}

} // namespace vemo_decode
