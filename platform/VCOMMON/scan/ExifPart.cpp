#include "ExifPart.h"

#include "SnapImageWriter.h"
#include "ToolsCollection.h"

#include <QtEndian>

#include <libexif/exif-data.h>

#include <array>
#include <cstring>
#include <memory>

namespace VCOMMON {

namespace {

constexpr int maxTextBytes = 1024;

struct Release
{
    void operator()(ExifData* data) const { exif_data_unref(data); }
    void operator()(ExifMem* memory) const { exif_mem_unref(memory); }
    void operator()(ExifEntry* entry) const { exif_entry_unref(entry); }
};

class Part final
{
public:
    Part()
        : m_memory(exif_mem_new_default())
        , m_data(exif_data_new_mem(m_memory.get()))
    {
        if (!m_data)
            return;
        exif_data_set_byte_order(m_data.get(), EXIF_BYTE_ORDER_INTEL);
        exif_data_set_data_type(m_data.get(), EXIF_DATA_TYPE_COMPRESSED);
    }

    /// A text of the standard's type ASCII; the names of channels go in as UTF-8, as readers expect it.
    void addText(ExifIfd directory, ExifTag tag, const QString& text)
    {
        QString shortened = text;
        ToolsCollection::cutToBytes(shortened, maxTextBytes);
        const QByteArray bytes = shortened.toUtf8();
        if (!bytes.isEmpty())
            add(directory, tag, EXIF_FORMAT_ASCII, bytes.constData(), bytes.size() + 1, bytes.size() + 1);
    }

    void addNumber(ExifIfd directory, ExifTag tag, quint16 value)
    {
        const quint16 bytes = qToLittleEndian(value);
        add(directory, tag, EXIF_FORMAT_SHORT, &bytes, sizeof bytes, 1);
    }

    void addRatio(ExifIfd directory, ExifTag tag, quint32 numerator)
    {
        const std::array<quint32, 2> bytes{qToLittleEndian(numerator), qToLittleEndian<quint32>(1)};
        add(directory, tag, EXIF_FORMAT_RATIONAL, bytes.data(), sizeof bytes, 1);
    }

    void add(ExifIfd directory, ExifTag tag, ExifFormat format, const void* value, int bytes, int components)
    {
        const std::unique_ptr<ExifEntry, Release> entry(m_data ? exif_entry_new_mem(m_memory.get()) : nullptr);
        if (!entry)
            return;
        const auto size = static_cast<unsigned int>(bytes);
        entry->tag = tag;
        entry->format = format;
        entry->components = static_cast<unsigned long>(components);
        entry->data = static_cast<unsigned char*>(exif_mem_alloc(m_memory.get(), size));
        if (!entry->data)
            return;
        entry->size = size;
        memcpy(entry->data, value, size);
        exif_content_add_entry(m_data->ifd[directory], entry.get());
    }

    QByteArray toBytes() const
    {
        unsigned char* bytes = nullptr;
        unsigned int size = 0;
        if (m_data)
            exif_data_save_data(m_data.get(), &bytes, &size);
        const QByteArray part(reinterpret_cast<const char*>(bytes), static_cast<int>(size));
        exif_mem_free(m_memory.get(), bytes);
        return part;
    }

private:
    const std::unique_ptr<ExifMem, Release> m_memory;
    const std::unique_ptr<ExifData, Release> m_data;
};

/// "+01:00"
QString offsetText(int seconds)
{
    const int minutes = qAbs(seconds) / 60;
    return QStringLiteral("%1%2:%3")
        .arg(seconds < 0 ? QLatin1Char('-') : QLatin1Char('+'))
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

} // namespace

QByteArray ExifPart::make(const SnapImageFacts& facts, const QSize& pictureSize)
{
    Part part;
    constexpr quint16 inch = 2;
    constexpr quint16 centred = 1;
    constexpr quint16 sRgb = 1;
    part.addRatio(EXIF_IFD_0, EXIF_TAG_X_RESOLUTION, 96);
    part.addRatio(EXIF_IFD_0, EXIF_TAG_Y_RESOLUTION, 96);
    part.addNumber(EXIF_IFD_0, EXIF_TAG_RESOLUTION_UNIT, inch);
    part.addNumber(EXIF_IFD_0, EXIF_TAG_YCBCR_POSITIONING, centred);
    part.addNumber(EXIF_IFD_EXIF, EXIF_TAG_COLOR_SPACE, sRgb);
    part.addNumber(EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION, static_cast<quint16>(pictureSize.width()));
    part.addNumber(EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION, static_cast<quint16>(pictureSize.height()));
    part.add(EXIF_IFD_EXIF, EXIF_TAG_COMPONENTS_CONFIGURATION, EXIF_FORMAT_UNDEFINED, "\1\2\3\0", 4, 4); // Y, Cb, Cr
    part.add(EXIF_IFD_EXIF, EXIF_TAG_FLASH_PIX_VERSION, EXIF_FORMAT_UNDEFINED, "0100", 4, 4);
    // ImageFacts knows our pictures by the first word of the software's name.
    part.addText(EXIF_IFD_0, EXIF_TAG_IMAGE_DESCRIPTION, facts.channelName);
    part.addText(EXIF_IFD_0, EXIF_TAG_MODEL, facts.devName);
    part.addText(EXIF_IFD_0, EXIF_TAG_SOFTWARE,
                 QString(QStringLiteral("Vemo ") + QCoreApplication::applicationVersion()).trimmed());
    part.add(EXIF_IFD_EXIF, EXIF_TAG_EXIF_VERSION, EXIF_FORMAT_UNDEFINED, "0232", 4, 4);
    if (facts.captureTime.isValid()) {
        const QString time = facts.captureTime.toString(QStringLiteral("yyyy:MM:dd hh:mm:ss"));
        const QString offset = offsetText(facts.captureTime.offsetFromUtc());
        part.addText(EXIF_IFD_0, EXIF_TAG_DATE_TIME, time);
        part.addText(EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL, time);
        part.addText(EXIF_IFD_EXIF, EXIF_TAG_OFFSET_TIME, offset);
        part.addText(EXIF_IFD_EXIF, EXIF_TAG_OFFSET_TIME_ORIGINAL, offset);
        part.addText(EXIF_IFD_EXIF, EXIF_TAG_SUB_SEC_TIME_ORIGINAL, facts.captureTime.toString(QStringLiteral("zzz")));
    }
    return part.toBytes();
}

bool ExifPart::insert(QByteArray& jpeg, const QByteArray& part)
{
    constexpr int markerBytes = 2;
    constexpr int lengthBytes = 2;
    if (!jpeg.startsWith("\xff\xd8\xff") || part.isEmpty() || part.size() + lengthBytes > 0xffff)
        return false;
    int at = markerBytes;
    if (jpeg.mid(at, markerBytes) == QByteArray("\xff\xe0") && jpeg.size() >= at + markerBytes + lengthBytes)
        at += markerBytes + qFromBigEndian<quint16>(jpeg.constData() + at + markerBytes);
    QByteArray segment("\xff\xe1\0\0", markerBytes + lengthBytes);
    qToBigEndian(static_cast<quint16>(part.size() + lengthBytes), segment.data() + markerBytes);
    jpeg.insert(at, segment + part);
    return true;
}

} // namespace VCOMMON
