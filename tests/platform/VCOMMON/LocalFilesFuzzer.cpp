#include <scan/ImageFacts.h>
#include <scan/Mp4Facts.h>

#include <QBuffer>

#include <cstdlib>

/// Reads any bytes as a recording and as a snapshot: whatever they claim, times stay within what a calendar can show.
extern "C" int LLVMFuzzerTestOneInput(const quint8* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    const VCOMMON::Mp4Facts movie = VCOMMON::Mp4Facts::read(file);
    constexpr qint64 longestMs = 366LL * 24 * 3600 * 1000;
    if (movie.durationMs < 0 || movie.durationMs > longestMs || movie.createdUtcMs < -1)
        std::abort();
    VCOMMON::ImageFacts::read(file);
    return 0;
}
