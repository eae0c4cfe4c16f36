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

/// A media profile: the main stream of a channel, or its smaller second one.
struct Profile
{
    int channel = 0; ///< 0: none
    bool isSub = false;

    const char* kind() const { return isSub ? "sub_profile" : "profile"; }
};

Profile profileOf(SoapContext& context, const XmlNode& request)
{
    const QString token = request.textAt("ProfileToken");
    Profile profile{channelOf(context.recorder, "sub_profile", token), true};
    if (profile.channel != 0 && context.recorder.channel(profile.channel)->subLoop())
        return profile;
    return {channelOf(context.recorder, "profile", token), false};
}

void writeProfile(SoapContext& context, QXmlStreamWriter& xml, const char* element, const Profile& of)
{
    const int channel = of.channel;
    const ChannelFootage& footage = *context.recorder.channel(channel);
    const MediaLoop& loop = of.isSub ? *footage.subLoop() : *footage.loop;
    const VideoClip& video = loop.video();
    XmlElement profile(xml, trt, element);
    profile.attribute("token", tokenOf(of.kind(), channel)).attribute("fixed", QStringLiteral("true"));
    writeText(xml, tt, "Name", channelName(context.recorder, channel));
    {
        XmlElement source(xml, tt, "VideoSourceConfiguration");
        source.attribute("token", tokenOf("source_configuration", channel));
        writeText(xml, tt, "Name", channelName(context.recorder, channel));
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
        encoder.attribute("token", tokenOf(of.isSub ? "sub_video_encoder" : "video_encoder", channel));
        writeText(xml, tt, "Name", channelName(context.recorder, channel));
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
    writeText(xml, tt, "Name", channelName(context.recorder, channel));
    writeText(xml, tt, "UseCount", QStringLiteral("1"));
    writeText(xml, tt, "Encoding", loop.audio().codec == Codec::Aac ? QStringLiteral("AAC") : QStringLiteral("G711"));
    writeText(xml, tt, "SampleRate", QString::number(loop.audio().sampleRate / 1000));
}

SoapFault getProfiles(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trt, "GetProfilesResponse");
    for (int channel = 1; channel <= context.recorder.options.channels; ++channel)
        writeProfile(context, xml, "Profiles", {channel, false});
    for (int channel = 1; channel <= context.recorder.options.channels; ++channel) {
        if (context.recorder.channel(channel)->subLoop())
            writeProfile(context, xml, "Profiles", {channel, true});
    }
    return {};
}

SoapFault getProfile(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const Profile profile = profileOf(context, request);
    if (profile.channel == 0)
        return SoapFault::sender("ter:InvalidArgVal", "ter:NoProfile", QStringLiteral("There is no such profile"));
    const XmlElement response(xml, trt, "GetProfileResponse");
    writeProfile(context, xml, "Profile", profile);
    return {};
}

SoapFault getStreamUri(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const Profile profile = profileOf(context, request);
    if (profile.channel == 0)
        return SoapFault::sender("ter:InvalidArgVal", "ter:NoProfile", QStringLiteral("There is no such profile"));
    const XmlElement response(xml, trt, "GetStreamUriResponse");
    const XmlElement uri(xml, trt, "MediaUri");
    writeText(xml, tt, "Uri",
              context.rtspUrl(
                  (profile.isSub ? QStringLiteral("/live/%1/sub") : QStringLiteral("/live/%1")).arg(profile.channel)));
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
