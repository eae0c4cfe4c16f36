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

/// One video track of 1/1000 s; `duration` in the same.
inline QByteArray movie(quint64 created1904, quint32 duration, const QByteArray& more = {})
{
    const QByteArray mvhd = box("mvhd", number(0) + number(created1904) + number(0) + number(1000) + number(duration));
    const QByteArray mdhd = box("mdhd", number(0) + number(0) + number(0) + number(1000) + number(duration));
    const QByteArray track = box("tkhd", number(0) + number(0) + number(0) + number(1)) + box("mdia", mdhd);
    return box("moov", mvhd + box("trak", track) + more);
}

inline QByteArray tags(const QByteArray& list)
{
    return box("udta", box("meta", number(0) + box("ilst", list)));
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
