#include "Mp4Finalizer.h"

#include "BoxWriter.h"
#include "DirectFile.h"
#include "FragmentFormat.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace vaws {
namespace {

constexpr std::size_t partBytes = IndexPlace::partBytes;

/// Writes a stream of bytes to a file in large aligned parts. After a failure it swallows the rest.
class FileSink final : public ByteSink
{
public:
    FileSink(MediaFile& file, std::uint64_t offset)
        : m_file(file)
        , m_offset(offset)
        , m_part(allocateAligned(partBytes), &freeAligned)
    {
        if (!m_part)
            m_error = ENOMEM;
    }

    void write(const std::uint8_t* data, std::size_t size) override
    {
        while (size > 0 && m_error == 0) {
            const std::size_t count = std::min(size, partBytes - m_fill);
            std::memcpy(m_part.get() + m_fill, data, count);
            m_fill += count;
            data += count;
            size -= count;
            if (m_fill == partBytes)
                flush();
        }
    }

    void flush()
    {
        if (m_fill == 0 || m_error != 0)
            return;
        m_signature = dataSignature(m_part.get(), m_fill, m_signature);
        m_error = m_file.writeAt(m_offset, m_part.get(), m_fill);
        m_offset += m_fill;
        m_fill = 0;
    }

    int error() const { return m_error; }
    std::uint64_t signature() const { return m_signature; }

private:
    MediaFile& m_file;
    std::uint64_t m_offset;
    std::unique_ptr<std::uint8_t, void (*)(std::uint8_t*)> m_part;
    std::size_t m_fill = 0;
    std::uint64_t m_signature = 0;
    int m_error = 0;
};

} // namespace

int Mp4Finalizer::writeIndex(MediaFile& file, std::uint64_t offset, const Movie& movie, IndexPlace& place)
{
    FileSink sink(file, offset);
    place.offset = offset;
    place.bytes = BoxWriter::serialize(&sink, [&](BoxWriter& out) { MovieWriter::movie(out, movie, false); });
    sink.flush();
    place.signature = sink.signature();
    return sink.error();
}

int Mp4Finalizer::finish(MediaFile& file, std::uint64_t fragmentsEnd, const Movie& movie, SyncOrder order,
                         IndexPlace& place)
{
    std::uint64_t length = 0;
    int error = file.length(length);
    if (error == 0 && length > fragmentsEnd)
        error = file.truncate(fragmentsEnd);
    if (error == 0)
        error = writeIndex(file, fragmentsEnd, movie, place);
    auto syncStep = [&] { return order == SyncOrder::EveryStep ? file.sync() : 0; };
    if (error == 0)
        error = syncStep();
    std::uint8_t word[8];
    if (error == 0) {
        put64(word, fragmentsEnd - switchOffset);
        error = file.writeAt(switchOffset + 8, word, sizeof word);
    }
    if (error == 0)
        error = syncStep();
    if (error == 0) {
        put32(word, 1); // the length stands in the eight bytes behind
        put32(word + 4, fourcc("mdat"));
        error = file.writeAt(switchOffset, word, sizeof word);
    }
    return error == 0 ? syncStep() : error;
}

int Mp4Finalizer::revert(MediaFile& file)
{
    std::uint8_t word[8];
    put32(word, 16);
    put32(word + 4, fourcc("free"));
    const int error = file.writeAt(switchOffset, word, sizeof word);
    // A disk that takes no sync still has the header right for everyone who reads the file now.
    if (error == 0)
        file.sync();
    return error;
}

} // namespace vaws
