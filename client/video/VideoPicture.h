#pragma once

#include <QImage>
#include <QMetaType>
#include <QSize>
#include <QString>

namespace vemo_client {

/// A decoded picture, ready to be painted.
struct VideoPicture
{
    QImage image;     ///< RGB32, scaled down to fit the decoder's target; null: none
    qint64 utcNs = 0; ///< by the recorder's clock, ns since 1970-01-01 UTC

    bool isNull() const { return image.isNull(); }
};

/// What a stream carries, as far as it is known.
struct VideoFormat
{
    QString codec;   ///< "H.264", "H.265", "MJPEG"; empty: not known
    QSize size;      ///< of the coded picture, in pixels
    QSize shape;     ///< as shown, with square pixels; only its proportions count
    double fps = 0;  ///< 0: not known
    QString decoder; ///< what decodes, such as "VAAPI"; empty: the processor

    bool operator==(const VideoFormat& other) const
    {
        return codec == other.codec && size == other.size && shape == other.shape && qFuzzyCompare(fps, other.fps) &&
               decoder == other.decoder;
    }
    bool operator!=(const VideoFormat& other) const { return !(*this == other); }
};

} // namespace vemo_client

Q_DECLARE_METATYPE(vemo_client::VideoPicture)
Q_DECLARE_METATYPE(vemo_client::VideoFormat)
