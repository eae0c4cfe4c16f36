#include "onvif/SoapRecording.h"

#include "onvif/RecordingDescription.h"

namespace recorder_sim {
namespace {

constexpr auto trc = onvif_ns::recording;
constexpr auto tt = onvif_ns::schema;

SoapFault getRecordings(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trc, "GetRecordingsResponse");
    for (int channel = 1; channel <= context.recorder.options.channels; ++channel) {
        const XmlElement item(xml, trc, "RecordingItem");
        writeText(xml, tt, "RecordingToken", tokenOf("recording", channel));
        {
            const XmlElement configuration(xml, tt, "Configuration");
            writeRecordingSource(xml, context.recorder, channel);
            writeText(xml, tt, "Content", QStringLiteral("Continuous"));
            writeText(xml, tt, "MaximumRetentionTime", QStringLiteral("PT0S"));
        }
        const XmlElement tracks(xml, tt, "Tracks");
        for (const RecordingTrack& track : recordingTracks) {
            const XmlElement entry(xml, tt, "Track");
            writeText(xml, tt, "TrackToken", QLatin1String(track.token));
            const XmlElement configuration(xml, tt, "Configuration");
            writeText(xml, tt, "TrackType", QLatin1String(track.type));
            writeText(xml, tt, "Description", QLatin1String(track.type));
        }
    }
    return {};
}

SoapFault getRecordingConfiguration(SoapContext& context, const XmlNode& request, QXmlStreamWriter& xml)
{
    const int channel = channelOf(context.recorder, "recording", request.textAt("RecordingToken"));
    if (channel == 0)
        return noSuchRecording();
    const XmlElement response(xml, trc, "GetRecordingConfigurationResponse");
    const XmlElement configuration(xml, trc, "RecordingConfiguration");
    writeRecordingSource(xml, context.recorder, channel);
    writeText(xml, tt, "Content", QStringLiteral("Continuous"));
    writeText(xml, tt, "MaximumRetentionTime", QStringLiteral("PT0S"));
    return {};
}

SoapFault getServiceCapabilities(SoapContext& context, const XmlNode&, QXmlStreamWriter& xml)
{
    const XmlElement response(xml, trc, "GetServiceCapabilitiesResponse");
    XmlElement all(xml, trc, "Capabilities");
    all.attribute("DynamicRecordings", QStringLiteral("false"))
        .attribute("DynamicTracks", QStringLiteral("false"))
        .attribute("MaxRecordings", QString::number(context.recorder.options.channels));
    return {};
}

} // namespace

const std::vector<SoapOperationEntry>& recordingOperations()
{
    static const std::vector<SoapOperationEntry> operations = {
        {"GetServiceCapabilities", getServiceCapabilities, false},
        {"GetRecordings", getRecordings, true},
        {"GetRecordingConfiguration", getRecordingConfiguration, true},
    };
    return operations;
}

} // namespace recorder_sim
