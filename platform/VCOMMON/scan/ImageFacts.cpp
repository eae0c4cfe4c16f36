#include "ImageFacts.h"

#include <QIODevice>
#include <QtEndian>

namespace VCOMMON {

namespace {

constexpr qint64 headBytes = 128 * 1024;
constexpr qint64 tailBytes = 1024;
constexpr quint32 maxEntries = 512;
constexpr quint32 maxTextBytes = 1024;
constexpr int dateBytes = 19; // "2026:01:10 08:00:00"

enum Tag : quint16 {
    ImageDescription = 0x010e,
    Model = 0x0110,
    Software = 0x0131,
    DateTime = 0x0132,
    ExifPart = 0x8769,
    DateTimeOriginal = 0x9003,
    OffsetTimeOriginal = 0x9011,
    SubSecTimeOriginal = 0x9291
};

/// The TIFF block of an EXIF part, read by offsets that may be anything.
class Tiff final
{
public:
    explicit Tiff(const QByteArray& bytes)
        : m_bytes(bytes)
        , m_isBigEndian(bytes.startsWith("MM"))
    {}

    quint32 number(qint64 offset, int bytes) const
    {
        if (offset < 0 || offset + bytes > m_bytes.size())
            return 0;
        const char* at = m_bytes.constData() + offset;
        if (bytes == 2)
            return m_isBigEndian ? qFromBigEndian<quint16>(at) : qFromLittleEndian<quint16>(at);
        return m_isBigEndian ? qFromBigEndian<quint32>(at) : qFromLittleEndian<quint32>(at);
    }

    /// Offset of the entry of that tag in a directory, 0 when there is none.
    qint64 entry(quint32 directory, Tag tag) const
    {
        const quint32 count = qMin(number(directory, 2), maxEntries);
        for (quint32 i = 0; i < count; ++i) {
            const qint64 at = qint64(directory) + 2 + i * 12;
            if (number(at, 2) == tag)
                return at;
        }
        return 0;
    }

    quint32 value(quint32 directory, Tag tag) const
    {
        const qint64 at = entry(directory, tag);
        return at == 0 ? 0 : number(at + 8, 4);
    }

    QByteArray text(quint32 directory, Tag tag) const
    {
        const qint64 at = entry(directory, tag);
        const quint32 length = at == 0 ? 0 : qMin(number(at + 4, 4), maxTextBytes);
        const qint64 place = length <= 4 ? at + 8 : number(at + 8, 4);
        if (length == 0 || place + length > m_bytes.size())
            return {};
        const QByteArray text = m_bytes.mid(static_cast<int>(place), static_cast<int>(length));
        const int end = text.indexOf('\0');
        return end < 0 ? text : text.left(end);
    }

private:
    const QByteArray m_bytes;
    const bool m_isBigEndian;
};

QDateTime timeOf(const Tiff& tiff)
{
    const quint32 first = tiff.number(4, 4);
    const quint32 exif = tiff.value(first, ExifPart);
    QByteArray text = exif == 0 ? QByteArray() : tiff.text(exif, DateTimeOriginal);
    const bool isOriginal = !text.isEmpty();
    if (!isOriginal)
        text = tiff.text(first, DateTime);
    QDateTime time = QDateTime::fromString(QString::fromLatin1(text.left(dateBytes)), //
                                           QStringLiteral("yyyy:MM:dd hh:mm:ss"));
    if (!time.isValid() || !isOriginal)
        return time;
    const QByteArray fraction = tiff.text(exif, SubSecTimeOriginal).trimmed().left(3);
    bool isNumber = false;
    const int digits = fraction.toInt(&isNumber);
    if (isNumber && digits >= 0)
        time = time.addMSecs(fraction.size() == 1 ? digits * 100 : fraction.size() == 2 ? digits * 10 : digits);
    // "+01:00"
    const QByteArray zone = tiff.text(exif, OffsetTimeOriginal);
    const QTime offset = QTime::fromString(QString::fromLatin1(zone.mid(1)), QStringLiteral("hh:mm"));
    if (offset.isValid() && (zone.startsWith('+') || zone.startsWith('-'))) {
        const int seconds = offset.msecsSinceStartOfDay() / 1000;
        time = QDateTime(time.date(), time.time(), Qt::OffsetFromUTC, zone.startsWith('-') ? -seconds : seconds)
                   .toLocalTime();
    }
    return time;
}

void takeExif(const Tiff& tiff, ImageFacts& facts)
{
    facts.captureTime = timeOf(tiff);
    const quint32 first = tiff.number(4, 4);
    // Other programs put other things there.
    if (!tiff.text(first, Software).startsWith("Vemo"))
        return;
    facts.channelName = QString::fromUtf8(tiff.text(first, ImageDescription));
    facts.devName = QString::fromUtf8(tiff.text(first, Model));
}

/// Looks for the EXIF part among the segments in front of the picture.
void readJpeg(const QByteArray& head, ImageFacts& facts)
{
    qint64 at = 2;
    while (at + 4 <= head.size() && static_cast<quint8>(head.at(static_cast<int>(at))) == 0xff) {
        const auto marker = static_cast<quint8>(head.at(static_cast<int>(at) + 1));
        const quint16 length = qFromBigEndian<quint16>(head.constData() + at + 2);
        if (marker == 0xda || length < 2) // the picture begins
            break;
        const QByteArray part = head.mid(static_cast<int>(at) + 4, length - 2);
        const QByteArray name("Exif\0\0", 6);
        if (marker == 0xe1 && part.startsWith(name))
            return takeExif(Tiff(part.mid(name.size())), facts);
        at += 2 + length;
    }
}

} // namespace

ImageFacts ImageFacts::read(QIODevice& device)
{
    ImageFacts facts;
    const qint64 length = device.size();
    const QByteArray head = device.seek(0) ? device.read(headBytes) : QByteArray();
    const QByteArray tail = device.seek(qMax<qint64>(0, length - tailBytes)) ? device.read(tailBytes) : QByteArray();
    if (head.startsWith("\xff\xd8\xff")) {
        facts.kind = Kind::Jpeg;
        facts.isWhole = tail.contains("\xff\xd9");
        readJpeg(head, facts);
    } else if (head.startsWith("\x89PNG\r\n\x1a\n")) {
        facts.kind = Kind::Png;
        facts.isWhole = tail.contains("IEND");
    } else if (head.startsWith("BM") && head.size() >= 6) {
        facts.kind = Kind::Bmp;
        facts.isWhole = qFromLittleEndian<quint32>(head.constData() + 2) <= length;
    }
    return facts;
}

} // namespace VCOMMON
