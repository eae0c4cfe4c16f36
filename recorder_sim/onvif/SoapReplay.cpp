#include "onvif/SoapReplay.h"

#include "onvif/RecordingDescription.h"

namespace recorder_sim {
namespace {

constexpr auto trp = onvif_ns::replay;
constexpr auto tt = onvif_ns::schema;

SoapFault getReplayUri(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const int channel = channelOf(context.recorder, "recording", request.textAt("RecordingToken"));
    if (channel == 0)
        return noSuchRecording();
    if (context.recorder.faults.strike("no-replay", channel))
        return SoapFault::receiver("ter:Action", "ter:ActionNotSupported",
                                   QStringLiteral("No replay of this recording"));
    const XmlElement response(xml, trp, "GetReplayUriResponse");
    writeText(xml, trp, "Uri", context.rtspUrl(QStringLiteral("/replay/%1").arg(channel)));
    return {};
}

SoapFault getReplayConfiguration(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trp, "GetReplayConfigurationResponse");
    const XmlElement configuration(xml, trp, "Configuration");
    writeText(xml, tt, "SessionTimeout", QStringLiteral("PT%1S").arg(context.recorder.options.sessionTimeoutSeconds));
    return {};
}

SoapFault getServiceCapabilities(SoapContext&, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trp, "GetServiceCapabilitiesResponse");
    XmlElement all(xml, trp, "Capabilities");
    all.attribute("ReversePlayback", QStringLiteral("false")).attribute("RTP_RTSP_TCP", QStringLiteral("true"));
    return {};
}

} // namespace

const std::vector<SoapOperationEntry>& replayOperations()
{
    static const std::vector<SoapOperationEntry> operations = {
        {"GetServiceCapabilities", getServiceCapabilities, false},
        {"GetReplayUri", getReplayUri, true},
        {"GetReplayConfiguration", getReplayConfiguration, true},
    };
    return operations;
}

} // namespace recorder_sim
