#include "onvif/SoapMedia.h"

namespace recorder_sim {
namespace {

constexpr auto trt = onvif_ns::media;
constexpr auto tt = onvif_ns::schema;

void writeResolution(QXmlStreamWriter& xml, const VideoClip& clip)
{
    const XmlElement resolution(xml, tt, "Resolution");
    writeText(xml, tt, "Width", QString::number(clip.width));
    writeText(xml, tt, "Height", QString::number(clip.height));
}

SoapFault getVideoSources(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trt, "GetVideoSourcesResponse");
    for (int channel = 1; channel <= context.recorder.options.channels; ++channel) {
        XmlElement source(xml, trt, "VideoSources");
        source.attribute("token", tokenOf("source", channel));
        writeText(xml, tt, "Framerate", QString::number(VideoClip::framesPerSecond));
        writeResolution(xml, context.recorder.channel(channel)->loop->video());
    }
    return {};
}

void writeProfile(SoapContext& context, QXmlStreamWriter& xml, const char* element, int channel)
{
    const MediaLoop& loop = *context.recorder.channel(channel)->loop;
    const VideoClip& video = loop.video();
    XmlElement profile(xml, trt, element);
    profile.attribute("token", tokenOf("profile", channel)).attribute("fixed", QStringLiteral("true"));
    writeText(xml, tt, "Name", channelName(channel));
    {
        XmlElement source(xml, tt, "VideoSourceConfiguration");
        source.attribute("token", tokenOf("source_configuration", channel));
        writeText(xml, tt, "Name", channelName(channel));
        writeText(xml, tt, "UseCount", QStringLiteral("1"));
        writeText(xml, tt, "SourceToken", tokenOf("source", channel));
        XmlElement bounds(xml, tt, "Bounds");
        bounds.attribute("x", QStringLiteral("0"))
            .attribute("y", QStringLiteral("0"))
            .attribute("width", QString::number(video.width))
            .attribute("height", QString::number(video.height));
    }
    {
        XmlElement encoder(xml, tt, "VideoEncoderConfiguration");
        encoder.attribute("token", tokenOf("video_encoder", channel));
        writeText(xml, tt, "Name", channelName(channel));
        writeText(xml, tt, "UseCount", QStringLiteral("1"));
        writeText(xml, tt, "Encoding", video.codec == Codec::H265 ? QStringLiteral("H265") : QStringLiteral("H264"));
        writeResolution(xml, video);
        writeText(xml, tt, "Quality", QStringLiteral("5"));
        {
            const XmlElement rate(xml, tt, "RateControl");
            const auto kilobits = static_cast<qulonglong>(video.bytes.size() * 8 / loopSeconds / 1000);
            writeText(xml, tt, "FrameRateLimit", QString::number(VideoClip::framesPerSecond));
            writeText(xml, tt, "EncodingInterval", QStringLiteral("1"));
            writeText(xml, tt, "BitrateLimit", QString::number(kilobits));
        }
        writeText(xml, tt, "SessionTimeout", QStringLiteral("PT60S"));
    }
    XmlElement encoder(xml, tt, "AudioEncoderConfiguration");
    encoder.attribute("token", tokenOf("audio_encoder", channel));
    writeText(xml, tt, "Name", channelName(channel));
    writeText(xml, tt, "UseCount", QStringLiteral("1"));
    writeText(xml, tt, "Encoding", loop.audio().codec == Codec::Aac ? QStringLiteral("AAC") : QStringLiteral("G711"));
    writeText(xml, tt, "SampleRate", QString::number(loop.audio().sampleRate / 1000));
}

SoapFault getProfiles(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trt, "GetProfilesResponse");
    for (int channel = 1; channel <= context.recorder.options.channels; ++channel)
        writeProfile(context, xml, "Profiles", channel);
    return {};
}

SoapFault getProfile(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const int channel = channelOf(context.recorder, "profile", request.textAt("ProfileToken"));
    if (channel == 0)
        return SoapFault::sender("ter:InvalidArgVal", "ter:NoProfile", QStringLiteral("There is no such profile"));
    const XmlElement response(xml, trt, "GetProfileResponse");
    writeProfile(context, xml, "Profile", channel);
    return {};
}

SoapFault getStreamUri(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const int channel = channelOf(context.recorder, "profile", request.textAt("ProfileToken"));
    if (channel == 0)
        return SoapFault::sender("ter:InvalidArgVal", "ter:NoProfile", QStringLiteral("There is no such profile"));
    const XmlElement response(xml, trt, "GetStreamUriResponse");
    const XmlElement uri(xml, trt, "MediaUri");
    writeText(xml, tt, "Uri", context.rtspUrl(QStringLiteral("/live/%1").arg(channel)));
    writeText(xml, tt, "InvalidAfterConnect", QStringLiteral("false"));
    writeText(xml, tt, "InvalidAfterReboot", QStringLiteral("false"));
    writeText(xml, tt, "Timeout", QStringLiteral("PT0S"));
    return {};
}

SoapFault getServiceCapabilities(SoapContext&, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trt, "GetServiceCapabilitiesResponse");
    const XmlElement all(xml, trt, "Capabilities");
    XmlElement streaming(xml, trt, "StreamingCapabilities");
    streaming.attribute("RTP_RTSP_TCP", QStringLiteral("true"));
    return {};
}

} // namespace

const std::vector<SoapOperationEntry>& mediaOperations()
{
    static const std::vector<SoapOperationEntry> operations = {
        {"GetServiceCapabilities", getServiceCapabilities, false},
        {"GetVideoSources", getVideoSources, true},
        {"GetProfiles", getProfiles, true},
        {"GetProfile", getProfile, true},
        {"GetStreamUri", getStreamUri, true},
    };
    return operations;
}

} // namespace recorder_sim
