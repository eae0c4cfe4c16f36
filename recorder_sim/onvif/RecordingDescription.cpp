#include "onvif/RecordingDescription.h"

namespace recorder_sim {
namespace {

constexpr auto tt = onvif_ns::schema;

} // namespace

void writeRecordingSource(QXmlStreamWriter& xml, const RecorderState& recorder, int channel)
{
    const XmlElement source(xml, tt, "Source");
    writeText(xml, tt, "SourceId", tokenOf("source", channel));
    writeText(xml, tt, "Name", channelName(recorder, channel));
    writeText(xml, tt, "Location", QStringLiteral("Simulated"));
    writeText(xml, tt, "Description", channelName(recorder, channel));
    writeText(xml, tt, "Address", QStringLiteral("http://www.onvif.org/ver10/schema/Profile"));
}

void writeRecordingInformation(QXmlStreamWriter& xml, const char* nameSpace, const RecorderState& recorder, int channel)
{
    const TimeSpan whole = recorder.channel(channel)->calendar.whole();
    const XmlElement information(xml, nameSpace, "RecordingInformation");
    writeText(xml, tt, "RecordingToken", tokenOf("recording", channel));
    writeRecordingSource(xml, recorder, channel);
    writeText(xml, tt, "EarliestRecording", xsdTime(whole.beginNs));
    writeText(xml, tt, "LatestRecording", xsdTime(whole.endNs));
    writeText(xml, tt, "Content", QStringLiteral("Continuous"));
    for (const RecordingTrack& track : recordingTracks) {
        const XmlElement entry(xml, tt, "Track");
        writeText(xml, tt, "TrackToken", QLatin1String(track.token));
        writeText(xml, tt, "TrackType", QLatin1String(track.type));
        writeText(xml, tt, "Description", QLatin1String(track.type));
        writeText(xml, tt, "DataFrom", xsdTime(whole.beginNs));
        writeText(xml, tt, "DataTo", xsdTime(whole.endNs));
    }
    writeText(xml, tt, "RecordingStatus", QStringLiteral("Stopped"));
}

SoapFault noSuchRecording()
{
    return SoapFault::sender("ter:InvalidArgVal", "ter:NoRecording", QStringLiteral("There is no such recording"));
}

} // namespace recorder_sim
