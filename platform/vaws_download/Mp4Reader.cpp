#include "Mp4Reader.h"

#include "Bytes.h"
#include "FragmentFormat.h"

#include <algorithm>

namespace vaws {
namespace {

constexpr int maxDepth = 6;
constexpr std::size_t tablePartBytes = 64 * 1024;
constexpr std::size_t maxTracks = 8;

bool isContainer(std::uint32_t type)
{
    return type == fourcc("trak") || type == fourcc("mdia") || type == fourcc("minf") || type == fourcc("stbl");
}

} // namespace

/// What the tables of one track count, each for itself.
struct Mp4Reader::Tables
{
    IndexedTrack track;
    std::uint64_t timedSamples = 0;
    std::uint64_t offsetSamples = 0;
    bool hasOffsets = false;
    std::uint64_t chunks = 0;
    std::uint64_t chunkedSamples = 0; ///< by stsc, up to the last entry's first chunk
    std::uint32_t lastFirstChunk = 0;
    std::uint32_t lastPerChunk = 0;
    bool chunksInside = true;
};

bool Mp4Reader::fail(const std::string& problem)
{
    if (m_problem.empty())
        m_problem = problem;
    return false;
}

bool Mp4Reader::read(std::uint64_t offset, std::uint8_t* data, std::size_t size)
{
    std::size_t got = 0;
    if (const int error = m_file.readAt(offset, data, size, got))
        return fail("The file could not be read back: " + errorText(error) + ".");
    return got == size || fail("The file ends before its index does.");
}

bool Mp4Reader::nextBox(std::uint64_t& offset, std::uint64_t end, Box& box)
{
    std::uint8_t head[16];
    if (end - offset < 8 || !read(offset, head, 8))
        return fail("The index is cut.");
    std::uint64_t size = get32(head);
    std::uint64_t headBytes = 8;
    box.type = get32(head + 4);
    if (size == 1) {
        if (end - offset < 16 || !read(offset, head, 16))
            return fail("The index is cut.");
        size = get64(head + 8);
        headBytes = 16;
    }
    if (size < headBytes || size > end - offset)
        return fail("A box of the index has a wrong length.");
    box.payload = offset + headBytes;
    box.end = offset + size;
    offset = box.end;
    return true;
}

bool Mp4Reader::readIndex()
{
    m_problem.clear();
    m_tracks.clear();
    std::uint64_t length = 0;
    if (const int error = m_file.length(length))
        return fail("The file could not be read back: " + errorText(error) + ".");
    std::uint64_t offset = 0;
    Box type, data, movie;
    if (!nextBox(offset, length, type) || !nextBox(offset, length, data))
        return false;
    m_indexOffset = offset;
    if (type.type != fourcc("ftyp") || data.type != fourcc("mdat") || !nextBox(offset, length, movie) ||
        movie.type != fourcc("moov") || movie.end != length)
        return fail("The file does not consist of its type, its data and its index.");
    return readMovie(movie, 0, nullptr);
}

bool Mp4Reader::readMovie(const Box& movie, int depth, Tables* tables)
{
    if (depth > maxDepth)
        return fail("The index is nested too deeply.");
    Box box;
    for (std::uint64_t offset = movie.payload; offset < movie.end;) {
        if (!nextBox(offset, movie.end, box))
            return false;
        if (box.type == fourcc("trak")) {
            Tables own;
            if (m_tracks.size() == maxTracks || !readMovie(box, depth + 1, &own) || !finishTrack(own))
                return fail("The index has a track that can't be read.");
        } else if (isContainer(box.type)) {
            if (!readMovie(box, depth + 1, tables))
                return false;
        } else if (!readLeaf(box, tables)) {
            return false;
        }
    }
    return true;
}

template <class Take>
bool Mp4Reader::readTable(const Box& box, std::size_t head, std::size_t entryBytes, std::uint64_t count, Take&& take)
{
    if (box.end - box.payload != head + count * entryBytes)
        return fail("A table of the index has a wrong length.");
    std::vector<std::uint8_t> part(tablePartBytes / entryBytes * entryBytes);
    std::uint64_t offset = box.payload + head;
    while (offset < box.end) {
        const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(part.size(), box.end - offset));
        if (!read(offset, part.data(), size))
            return false;
        for (std::size_t at = 0; at < size; at += entryBytes)
            take(part.data() + at);
        offset += size;
    }
    return true;
}

bool Mp4Reader::readLeaf(const Box& box, Tables* tables)
{
    std::uint8_t head[40] = {};
    const auto bytes = static_cast<std::size_t>(std::min<std::uint64_t>(sizeof head, box.end - box.payload));
    if (!read(box.payload, head, bytes))
        return false;
    if (box.type == fourcc("mvhd")) {
        m_movieLength = get64(head + 24);
        return head[0] == 1 || fail("The movie header has an unknown version.");
    }
    if (!tables)
        return true;
    const std::uint32_t count = get32(head + 4);
    switch (box.type) {
    case fourcc("tkhd"):
        tables->track.trackId = get32(head + 20);
        tables->track.length = get64(head + 28);
        return true;
    case fourcc("stsz"):
        tables->track.samples = get32(head + 8);
        return readTable(box, 12, 4, tables->track.samples,
                         [&](const std::uint8_t* in) { tables->track.sampleBytes += get32(in); });
    case fourcc("stts"):
        return readTable(box, 8, 8, count, [&](const std::uint8_t* in) { tables->timedSamples += get32(in); });
    case fourcc("ctts"):
        tables->hasOffsets = true;
        return readTable(box, 8, 8, count, [&](const std::uint8_t* in) { tables->offsetSamples += get32(in); });
    case fourcc("stsc"):
        return readTable(box, 8, 12, count, [&](const std::uint8_t* in) {
            const std::uint32_t first = get32(in);
            if (tables->lastFirstChunk != 0)
                tables->chunkedSamples += std::uint64_t{first - tables->lastFirstChunk} * tables->lastPerChunk;
            tables->lastFirstChunk = first;
            tables->lastPerChunk = get32(in + 4);
        });
    case fourcc("stco"):
    case fourcc("co64"): {
        const bool wide = box.type == fourcc("co64");
        tables->chunks = count;
        return readTable(box, 8, wide ? 8 : 4, count, [&](const std::uint8_t* in) {
            const std::uint64_t offset = wide ? get64(in) : get32(in);
            tables->chunksInside = tables->chunksInside && offset >= switchOffset + 16 && offset < m_indexOffset;
        });
    }
    default:
        return true;
    }
}

bool Mp4Reader::finishTrack(const Tables& tables)
{
    const std::uint64_t behindLast = std::uint64_t{tables.chunks + 1 - tables.lastFirstChunk} * tables.lastPerChunk;
    const bool consistent = tables.timedSamples == tables.track.samples && tables.chunksInside &&
                            (!tables.hasOffsets || tables.offsetSamples == tables.track.samples) &&
                            tables.lastFirstChunk != 0 && tables.chunkedSamples + behindLast == tables.track.samples &&
                            tables.track.sampleBytes < m_indexOffset;
    if (!consistent)
        return fail("The tables of the index contradict each other.");
    m_tracks.push_back(tables.track);
    return true;
}

bool Mp4Reader::agrees(const Movie& movie, const IndexPlace& place)
{
    if (!readIndex())
        return false;
    bool same =
        m_indexOffset == place.offset && m_movieLength == movie.length && m_tracks.size() == movie.tracks.size();
    for (std::size_t i = 0; same && i < m_tracks.size(); ++i) {
        same = m_tracks[i].trackId == movie.tracks[i].format.trackId && m_tracks[i].length == movie.tracks[i].length &&
               m_tracks[i].samples == movie.tracks[i].table->sampleCount();
    }
    if (!same)
        return fail("The index on the disk does not say what was written.");
    std::uint64_t signature = 0;
    std::vector<std::uint8_t> part(IndexPlace::partBytes);
    for (std::uint64_t done = 0; done < place.bytes;) {
        const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(part.size(), place.bytes - done));
        if (!read(place.offset + done, part.data(), size))
            return false;
        signature = dataSignature(part.data(), size, signature);
        done += size;
    }
    return signature == place.signature || fail("The index on the disk is not the one that was written.");
}

} // namespace vaws
