#pragma once

#include <QByteArray>
#include <QSize>

namespace VCOMMON {

struct SnapImageFacts;

/// Makes the EXIF part of a snapshot: the content of JPEG's APP1 segment, beginning with "Exif" and two zero bytes
/// (EXIF 2.32, 4.5.4). Any thread.
class ExifPart final
{
public:
    ExifPart() = delete;

    /// Empty when there is no memory for it.
    static QByteArray make(const SnapImageFacts& facts, const QSize& pictureSize);
    /// Puts the part into a JPEG, behind its first marker and the JFIF segment if one follows; false when it is none.
    static bool insert(QByteArray& jpeg, const QByteArray& part);
};

} // namespace VCOMMON
