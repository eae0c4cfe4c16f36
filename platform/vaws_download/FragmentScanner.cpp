#include "FragmentScanner.h"

#include "Bytes.h"
#include "FragmentFormat.h"
#include "Mp4Reader.h"

#include <algorithm>
#include <deque>

namespace vaws {
namespace {

constexpr std::size_t maxHeaderBytes = 1024 * 1024;
constexpr std::size_t maxTracks = 8;
constexpr int maxDepth = 6;

bool readTrack(ByteReader in, TrackFormat& format, int depth = 0)
{
    if (depth > maxDepth)
        return false;
    std::uint32_t type = 0;
    for (ByteReader box(nullptr, 0); in.box(type, box);) {
        if (type == fourcc("tkhd")) {
            box.skip(4 + 16);
            format.trackId = box.u32();
            box.skip(4 + 8 + 8 + 8 + 36);
            format.width = static_cast<std::uint16_t>(box.u32() >> 16);
            format.height = static_cast<std::uint16_t>(box.u32() >> 16);
        } else if (type == fourcc("mdhd")) {
            box.skip(4 + 16);
            format.timescale = box.u32();
        } else if (type == fourcc("hdlr")) {
            box.skip(8);
            const std::uint32_t handler = box.u32();
            format.kind = handler == fourcc("vide")   ? TrackKind::Video
                          : handler == fourcc("sbtl") ? TrackKind::Text
                                                      : TrackKind::Sound;
        } else if (type == fourcc("stsd")) {
            box.skip(8);
            format.sampleEntry.assign(box.at(), box.at() + box.left());
        } else if (type == fourcc("mdia") || type == fourcc("minf") || type == fourcc("stbl")) {
            if (!readTrack(box, format, depth + 1))
                return false;
        }
        if (!box.good())
            return false;
    }
    return in.good();
}

bool readTracks(ByteReader movie, std::vector<TrackFormat>& formats)
{
    std::uint32_t type = 0;
    for (ByteReader box(nullptr, 0); movie.box(type, box);) {
        if (type != fourcc("trak"))
            continue;
        TrackFormat format;
        if (!readTrack(box, format) || format.trackId != formats.size() + 1 || format.timescale == 0 ||
            format.sampleEntry.size() < 16 || formats.size() == maxTracks)
            return false;
        formats.push_back(std::move(format));
    }
    return movie.good() && !formats.empty();
}

/// Decode times go on from fragment to fragment; anything else is not what we wrote.
bool continues(const FragmentInfo& info, std::vector<std::int64_t>& lastDecode)
{
    for (const TrackRun& run : info.runs) {
        std::int64_t& last = lastDecode[run.trackId - 1];
        const std::int64_t first = run.samples.front().decodeTime;
        if (first <= last || (last >= 0 && first - last > 0xffffffffLL))
            return false;
        last = run.samples.back().decodeTime;
    }
    return true;
}

} // namespace

bool FragmentScanner::readHeader(ScanResult& result)
{
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(std::min<std::uint64_t>(m_length, maxHeaderBytes)));
    std::size_t got = 0;
    result.error = m_file.readAt(0, bytes.data(), bytes.size(), got);
    bytes.resize(got);
    if (result.error != 0 || bytes.size() < blockBytes || get32(bytes.data()) != switchOffset ||
        get32(bytes.data() + 4) != fourcc("ftyp"))
        return false;
    ByteReader in(bytes.data() + switchOffset + 16, bytes.size() - switchOffset - 16);
    std::uint32_t type = 0;
    ByteReader movie(nullptr, 0);
    ByteReader record(nullptr, 0);
    if (!in.box(type, movie) || type != fourcc("moov") || !in.box(type, record) || type != fourcc("free"))
        return false;
    m_headerBytes = static_cast<std::uint64_t>(in.at() - bytes.data());
    if (m_headerBytes % blockBytes != 0 ||
        !readHeaderRecord(bytes.data(), static_cast<std::size_t>(m_headerBytes), result.header))
        return false;
    const std::uint32_t sizeField = get32(bytes.data() + switchOffset);
    if (sizeField != 1 && sizeField != 16)
        return false;
    result.state = sizeField == 16 ? FileState::Growing : FileState::Broken;
    return readTracks(movie, result.formats);
}

bool FragmentScanner::dataIntact(const FragmentInfo& info)
{
    std::vector<std::uint8_t> data(info.record.dataBytes);
    std::size_t got = 0;
    return m_file.readAt(info.offset + blockBytes, data.data(), data.size(), got) == 0 && got == data.size() &&
           dataSignature(data.data(), data.size()) == info.record.signature;
}

void FragmentScanner::readFragments(ScanResult& result, const MovieTags& tags)
{
    result.assembly = MovieAssembly(result.formats, result.header, tags);
    result.fragmentsEnd = m_headerBytes;
    std::vector<std::int64_t> lastDecode(result.formats.size(), -1);
    std::deque<FragmentInfo> unsure; ///< behind the last sync known so far
    std::uint64_t synced = 0;
    std::uint8_t block[blockBytes];
    auto take = [&](const FragmentInfo& info) {
        result.assembly.addFragment(info);
        result.fragmentsEnd = info.offset + info.bytes;
    };
    for (std::uint64_t offset = m_headerBytes; offset + blockBytes <= m_length;) {
        std::size_t got = 0;
        FragmentInfo info;
        info.offset = offset;
        result.error = m_file.readAt(offset, block, sizeof block, got);
        if (result.error != 0 || got != sizeof block || !readFragmentHead(block, info, result.formats) ||
            info.offset + info.bytes > m_length || !continues(info, lastDecode))
            break;
        synced = std::max(synced, std::min(info.record.syncedBytes, offset));
        unsure.push_back(std::move(info));
        offset = unsure.back().offset + unsure.back().bytes;
        while (!unsure.empty() && unsure.front().offset + unsure.front().bytes <= synced) {
            take(unsure.front());
            unsure.pop_front();
        }
    }
    for (const FragmentInfo& info : unsure) {
        if (!dataIntact(info))
            break;
        take(info);
    }
}

ScanResult FragmentScanner::scan(const MovieTags& tags)
{
    ScanResult result;
    result.error = m_file.length(m_length);
    if (result.error != 0)
        return result;
    if (m_length == 0) {
        result.state = FileState::Empty;
        return result;
    }
    if (!readHeader(result)) {
        result.state = FileState::Unknown;
        return result;
    }
    if (result.state == FileState::Broken && Mp4Reader(m_file).readIndex())
        result.state = FileState::Finished;
    readFragments(result, tags);
    if (result.error == 0 && result.assembly.empty())
        result.state = FileState::Empty;
    return result;
}

} // namespace vaws
