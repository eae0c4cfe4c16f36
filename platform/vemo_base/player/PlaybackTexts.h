#pragma once

#include <SnapImageWriter.h>

#include <QCoreApplication>
#include <QString>

namespace vemo_base {

class RecordingClock;
struct PlayerState;

/// The playback dialog's texts and names. Pure, but for snapshotFolder().
class PlaybackTexts final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_base::PlaybackTexts)

public:
    PlaybackTexts() = delete;

    /// "1 gap, H.265 2560 x 1440, 1869.73 MB".
    static QString facts(const PlayerState& state, int gaps);
    /// Date and time of day, with ms on a standing picture.
    static QString clock(const RecordingClock& clock, qint64 clockMs, const QString& dateFormat, bool standing);
    /// A legal name, such as "Gate North@2026-01-08 08_12_47_120.jpg"; where the file tells no time of day, with the
    /// time from its begin.
    static QString snapshotName(const QString& channelName, const RecordingClock& clock, qint64 clockMs,
                                VCOMMON::SnapImageWriter::Format format);
    /// "Snapshots" in the client's video folder.
    static QString snapshotFolder();
};

} // namespace vemo_base
