#pragma once

#include "VCOMMON_global.h"

#include <QDateTime>
#include <QString>

class QIODevice;

namespace VCOMMON {

/// What a picture file says of itself: whether it is whole, when it was taken and of what (EXIF 2.32, JPEG's APP1).
/// Reads the first 128 KiB and the last KiB at most; trusts no number in the file.
struct VCOMMON_EXPORT ImageFacts
{
    enum class Kind : int { Unknown = 0, Jpeg, Bmp, Png };

    Kind kind = Kind::Unknown;
    bool isWhole = false;  ///< the end of the picture is there
    QDateTime captureTime; ///< local; invalid: not told
    QString channelName;   ///< as SnapImageWriter writes it; empty: not told, or by another program
    QString devName;       ///< likewise

    static ImageFacts read(QIODevice& device);
};

} // namespace VCOMMON
