#pragma once

#include "onvif/SoapService.h"

namespace recorder_sim {

/// The tracks that every recording has; the same names stand in the session description.
struct RecordingTrack
{
    const char* token;
    const char* type;
};

inline constexpr RecordingTrack recordingTracks[] = {{"VIDEO001", "Video"}, {"AUDIO001", "Audio"}};

void writeRecordingSource(QXmlStreamWriter& xml, const RecorderState& recorder, int channel); ///< tt:Source
void writeRecordingInformation(QXmlStreamWriter& xml, const char* nameSpace, const RecorderState& recorder,
                               int channel);
SoapFault noSuchRecording();

} // namespace recorder_sim
