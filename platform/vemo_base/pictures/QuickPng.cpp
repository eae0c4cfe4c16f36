#include "QuickPng.h"

#include <png.h>

#include <QIODevice>

#include <csetjmp>

namespace vemo_base {

namespace {

constexpr int leastPacking = 1; ///< of zlib
constexpr int bitsAChannel = 8;

void writeBytes(png_structp png, png_bytep data, png_size_t size)
{
    auto* device = static_cast<QIODevice*>(png_get_io_ptr(png));
    if (device->write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) != static_cast<qint64>(size))
        png_error(png, "not taken");
}

void flushBytes(png_structp) {}

[[noreturn]] void giveUp(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

/// Has no object whose destructor a jump would leave out.
bool writeAll(png_structp png, png_infop info, QIODevice* device, const QImage& image, QVector<png_text>& texts)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    png_set_write_fn(png, device, writeBytes, flushBytes);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width()), static_cast<png_uint_32>(image.height()),
                 bitsAChannel, image.hasAlphaChannel() ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
    png_set_compression_level(png, leastPacking);
    png_set_text(png, info, texts.data(), texts.size());
    png_write_info(png, info);
    for (int y = 0; y < image.height(); ++y)
        png_write_row(png, image.constScanLine(y));
    png_write_end(png, nullptr);
    return true;
}

} // namespace

bool QuickPng::write(QIODevice* device, const QImage& image, const Texts& texts)
{
    const QImage plain =
        image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    if (plain.isNull())
        return false;
    QVector<png_text> chunks;
    for (const auto& [keyword, value] : texts) {
        png_text chunk{};
        chunk.compression = PNG_TEXT_COMPRESSION_NONE;
        chunk.key = const_cast<png_charp>(keyword.constData()); // which libpng copies
        chunk.text = const_cast<png_charp>(value.constData());
        chunk.text_length = static_cast<png_size_t>(value.size());
        chunks.append(chunk);
    }
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, giveUp, ignoreWarning);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const bool isWritten = info && writeAll(png, info, device, plain, chunks);
    png_destroy_write_struct(&png, &info);
    return isWritten;
}

} // namespace vemo_base
