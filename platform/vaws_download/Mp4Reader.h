#pragma once

#include "MediaFile.h"
#include "Mp4Finalizer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vaws {

/// A track as the index on the disk says it.
struct IndexedTrack
{
    std::uint32_t trackId = 0;
    std::uint32_t samples = 0;
    std::uint64_t sampleBytes = 0;
    std::uint64_t length = 0; ///< shown, in the movie's timescale
};

/// Reads a finished file by its index: boxes in order, every table whole and in agreement with the others, every chunk
/// inside the `mdat`. Reads tables in parts, so memory does not grow with them; trusts no number in the file.
class Mp4Reader final
{
public:
    explicit Mp4Reader(MediaFile& file)
        : m_file(file)
    {}

    bool readIndex();
    const std::string& problem() const { return m_problem; } ///< a sentence when readIndex() was false
    const std::vector<IndexedTrack>& tracks() const { return m_tracks; }
    std::uint64_t movieLength() const { return m_movieLength; }

    /// The index is the very one that was written, and says what `movie` says.
    bool agrees(const Movie& movie, const IndexPlace& place);

private:
    struct Box
    {
        std::uint32_t type = 0;
        std::uint64_t payload = 0; ///< file offset
        std::uint64_t end = 0;
    };
    struct Tables;

    bool fail(const std::string& problem);
    bool read(std::uint64_t offset, std::uint8_t* data, std::size_t size);
    bool nextBox(std::uint64_t& offset, std::uint64_t end, Box& box);
    bool readMovie(const Box& movie, int depth, Tables* tables);
    bool readLeaf(const Box& box, Tables* tables);
    template <class Take>
    bool readTable(const Box& box, std::size_t head, std::size_t entryBytes, std::uint64_t count, Take&& take);
    bool finishTrack(const Tables& tables);

    MediaFile& m_file;
    std::string m_problem;
    std::uint64_t m_indexOffset = 0;
    std::uint64_t m_movieLength = 0;
    std::vector<IndexedTrack> m_tracks;
};

} // namespace vaws
