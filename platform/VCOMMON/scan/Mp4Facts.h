#pragma once

#include "VCOMMON_global.h"

#include <QString>

class QIODevice;

namespace VCOMMON {

/// What an MP4 file (ISO/IEC 14496-12) says of its time and of itself, without its samples: read from box headers, the
/// movie header, the tags and, in a fragmented file, the last fragment. Trusts no number in the file; reads at most a
/// few MB and never the sample tables, so that the largest file takes milliseconds.
struct VCOMMON_EXPORT Mp4Facts
{
    bool isMp4 = false;
    bool hasMovie = false;  ///< an index with a track
    bool isCut = false;     ///< a box goes past the end of the file
    qint64 neededBytes = 0; ///< with isCut: where that box would end
    int fragments = 0;      ///< whole ones

    qint64 durationMs = 0;    ///< of the movie, or what its fragments add up to
    qint64 createdUtcMs = -1; ///< -1: not told
    qint64 beginUtcMs = -1;   ///< of the recording, by the tag com.vemo.start; -1: no such tag
    qint64 endUtcMs = -1;     ///< likewise com.vemo.end
    QString channelName;      ///< com.vemo.channel
    QString recorderName;     ///< com.vemo.recorder

    static Mp4Facts read(QIODevice& device);
};

} // namespace VCOMMON
