#pragma once

#include <QString>

/// Small MP4 files as the client writes them, made with the ffmpeg program: 10 s of 320 x 180 at 25 pictures a second,
/// with the recording's times in the metadata.
class PlayerClip final
{
public:
    /// 08:29:00 to 08:29:20 UTC with a gap of 10 s behind the fourth. False where ffmpeg is missing.
    static bool makeWithGap(const QString& path);
};
