#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QtEndian>

/// Small MP4 files made by hand, of the boxes that tell a file's time.
namespace Mp4Bytes {

inline QByteArray number(quint64 value, int bytes = 4)
{
    QByteArray text(8, '\0');
    qToBigEndian<quint64>(value, text.data());
    return text.right(bytes);
}

inline QByteArray box(const char* type, const QByteArray& payload)
{
    return number(quint64(payload.size() + 8)) + QByteArray(type, 4) + payload;
}

inline quint64 since1904(const QDateTime& time)
{
    return quint64(time.toSecsSinceEpoch() + 2'082'844'800);
}

inline QByteArray tag(const char* name, const QByteArray& text)
{
    return box("----", box("mean", number(0) + "com.vemo") + box("name", number(0) + name) +
                           box("data", number(1) + number(0) + text));
}

/// The video track 1, in 1/1000 s; of version 1 where `version` is 1 << 24.
inline QByteArray track(quint32 version = 0, quint32 duration = 0)
{
    const int bytes = version == 0 ? 4 : 8;
    const QByteArray times = number(version) + number(0, bytes) + number(0, bytes);
    const QByteArray mdhd = box("mdhd", times + number(1000) + number(duration, bytes));
    return box("trak", box("tkhd", times + number(1)) + box("mdia", box("hdlr", {}) + mdhd));
}

/// One video track of 1/1000 s; `duration` in the same.
inline QByteArray movie(quint64 created1904, quint32 duration, const QByteArray& more = {})
{
    const QByteArray mvhd = box("mvhd", number(0) + number(created1904) + number(0) + number(1000) + number(duration));
    return box("moov", mvhd + track(0, duration) + more);
}

inline QByteArray tags(const QByteArray& list)
{
    return box("udta", box("meta", number(0) + box("ilst", list)));
}

/// A fragment whose track says this of itself and of its samples.
inline QByteArray fragment(const QByteArray& header, const QByteArray& run)
{
    return box("moof", box("traf", box("tfhd", header) + box("tfdt", number(0, 8)) + box("trun", run))) +
           box("mdat", "samples");
}

/// Two samples of half a second from `decodeTime` on.
inline QByteArray fragment(quint32 decodeTime, int dataBytes = 16)
{
    const QByteArray run = box("trun", number(0x100) + number(2) + number(500) + number(500));
    const QByteArray track = box("tfhd", number(0) + number(1)) + box("tfdt", number(0) + number(decodeTime)) + run;
    return box("moof", box("mfhd", number(0) + number(1)) + box("traf", track)) +
           box("mdat", QByteArray(dataBytes, 'x'));
}

inline QByteArray fileType()
{
    return box("ftyp", "isom" + number(512) + "isom");
}

} // namespace Mp4Bytes
