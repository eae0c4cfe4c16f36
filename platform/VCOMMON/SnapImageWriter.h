#pragma once

#include "VCOMMON_global.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

class QImage;

namespace VCOMMON {

/// What a snapshot says of itself beside the picture.
struct SnapImageFacts
{
    QDateTime captureTime; ///< of the picture, by the recorder's clock; any zone, kept with its offset from UTC
    QString channelName;
    int channelNo = 0;
    QString devName;
    QString devId;
};

/// Writes one still picture into a file: JPEG with an EXIF part (EXIF 2.32: capture time with milliseconds and offset,
/// the channel as image description, the recorder as camera model), or a plain BMP, whose name alone tells the rest.
/// Plain functions for any thread but the GUI's: a picture takes tens of milliseconds and waits for the disk.
/// The file appears whole under its name or not at all, and never in place of another one.
class VCOMMON_EXPORT SnapImageWriter final
{
    Q_DECLARE_TR_FUNCTIONS(VCOMMON::SnapImageWriter)

public:
    enum class Format : int { Jpeg = 0, Bmp };

    struct Result
    {
        QString path;  ///< of the file that was made: the asked one, or with " (2)" and so on where that is taken
        QString error; ///< a sentence; empty: the file is there

        bool ok() const { return error.isEmpty(); }
    };

    static constexpr int usualQuality = 92;

    SnapImageWriter() = delete;

    /// Makes the folder when it is missing. `quality` is JPEG's, 0 to 100.
    static Result write(const QString& path, const QImage& picture, const SnapImageFacts& facts, Format format,
                        int quality = usualQuality);

    /// "Gate North@2026-01-08 08_12_47_120.jpg" as a legal name of one component, whatever the channel is called.
    static QString fileName(const QString& channelName, const QDateTime& captureTime, Format format);
    /// The same with a text in place of the time, for pictures of unknown time.
    static QString fileName(const QString& channelName, const QString& timeText, Format format);
};

} // namespace VCOMMON
