#include "FragmentFormat.h"

#include "BoxWriter.h"

#include <zlib.h>

#include <algorithm>
#include <cstring>

namespace vaws {
namespace {

constexpr std::uint32_t headerMagic = fourcc("VHDR");
constexpr std::uint32_t fragmentMagic = fourcc("VFRG");
constexpr std::size_t headerRecordBytes = 4 + 8 * 4 + 4;
constexpr std::size_t fragmentRecordBytes = 4 + 4 * 3 + 8 * 2 + 4 + 8 * 2 + 4 + 4;
constexpr std::uint32_t keyFlags = 0x02000000;    ///< depends on no other
constexpr std::uint32_t nonKeyFlags = 0x01010000; ///< depends on others, no sync sample
constexpr std::size_t maxRunSamples = 4096;
constexpr std::uint32_t maxDataBytes = 64u * 1024 * 1024;

std::size_t trackHeadBytes()
{
    return 8 + 16 + 20 + 20; // traf, tfhd, tfdt, trun
}

void trackFragment(BoxWriter& out, const TrackRun& run, std::uint64_t moofOffset, bool video)
{
    out.begin("traf");
    out.beginFull("tfhd", 0, 0x020000); // offsets count from the moof
    out.u32(run.trackId);
    out.end();
    out.beginFull("tfdt", 1, 0);
    out.i64(run.samples.front().decodeTime);
    out.end();
    out.beginFull("trun", 1, video ? 0x000f01 : 0x000301);
    out.u32(static_cast<std::uint32_t>(run.samples.size()));
    out.u32(static_cast<std::uint32_t>(run.offset - moofOffset));
    for (const Sample& sample : run.samples) {
        out.u32(sample.duration);
        out.u32(sample.bytes);
        if (video) {
            out.u32(sample.key ? keyFlags : nonKeyFlags);
            out.u32(static_cast<std::uint32_t>(sample.compositionOffset));
        }
    }
    out.end();
    out.end();
}

std::vector<std::uint8_t> recordBytes(const FragmentRecord& record)
{
    std::vector<std::uint8_t> bytes = BoxWriter::toBytes([&](BoxWriter& out) {
        out.u32(fragmentMagic);
        out.u32(record.moofBytes);
        out.u32(record.moofCrc);
        out.u32(record.dataBytes);
        out.u64(record.signature);
        out.u64(record.syncedBytes);
        out.u32(record.lostUnits);
        out.i64(record.gap.beginNs);
        out.i64(record.gap.endNs);
        out.u32(static_cast<std::uint32_t>(record.gap.cause) | (record.gap.collapsed ? 0x100u : 0u));
    });
    bytes.resize(bytes.size() + 4);
    put32(bytes.data() + bytes.size() - 4, checksum(bytes.data(), bytes.size() - 4));
    return bytes;
}

bool readRecord(ByteReader in, FragmentRecord& record)
{
    const std::uint8_t* bytes = in.at();
    if (in.left() < fragmentRecordBytes || in.u32() != fragmentMagic)
        return false;
    record.moofBytes = in.u32();
    record.moofCrc = in.u32();
    record.dataBytes = in.u32();
    record.signature = in.u64();
    record.syncedBytes = in.u64();
    record.lostUnits = in.u32();
    record.gap.beginNs = in.i64();
    record.gap.endNs = in.i64();
    const std::uint32_t cause = in.u32();
    record.gap.cause = (cause & 0xff) == 2 ? GapCause::LostInTransfer : GapCause::NotRecorded;
    record.gap.collapsed = (cause & 0x100) != 0;
    return in.u32() == checksum(bytes, fragmentRecordBytes - 4);
}

bool readTrackRun(ByteReader in, std::int64_t decodeTime, bool video, std::uint64_t moofOffset, TrackRun& run)
{
    const std::uint32_t flags = in.u32() & 0xffffff;
    const std::uint32_t count = in.u32();
    if (flags != (video ? 0x000f01u : 0x000301u) || count == 0 || count > maxRunSamples)
        return false;
    run.offset = moofOffset + in.u32();
    run.samples.resize(count);
    for (Sample& sample : run.samples) {
        sample.decodeTime = decodeTime;
        sample.duration = in.u32();
        sample.bytes = in.u32();
        sample.key = !video || in.u32() == keyFlags;
        sample.compositionOffset = video ? in.i32() : 0;
        decodeTime += sample.duration;
    }
    return in.good();
}

bool readTrackFragment(ByteReader in, std::uint64_t moofOffset, const std::vector<TrackFormat>& tracks, TrackRun& run)
{
    const TrackFormat* format = nullptr;
    std::int64_t decodeTime = -1;
    std::uint32_t type = 0;
    for (ByteReader box(nullptr, 0); in.box(type, box);) {
        if (type == fourcc("tfhd")) {
            box.skip(4);
            run.trackId = box.u32();
            format = nullptr; // also where an earlier one named a track that is there
            for (const TrackFormat& track : tracks)
                format = track.trackId == run.trackId ? &track : format;
        } else if (type == fourcc("tfdt")) {
            box.skip(4);
            decodeTime = box.i64();
        } else if (type == fourcc("trun")) {
            if (!format || decodeTime < 0 || decodeTime > (std::int64_t{1} << 60) ||
                !readTrackRun(box, decodeTime, format->isVideo(), moofOffset, run))
                return false;
        }
        if (!box.good())
            return false;
    }
    return in.good() && format && !run.samples.empty();
}

/// Samples of all runs lie inside the fragment's data.
bool runsLieInside(const FragmentInfo& info)
{
    const std::uint64_t begin = info.offset + blockBytes;
    for (const TrackRun& run : info.runs) {
        std::uint64_t end = run.offset;
        for (const Sample& sample : run.samples)
            end += sample.bytes;
        if (run.offset < begin || end > begin + info.record.dataBytes)
            return false;
    }
    return true;
}

} // namespace

std::uint32_t checksum(const std::uint8_t* data, std::size_t size, std::uint32_t before)
{
    return static_cast<std::uint32_t>(crc32_z(before, data, size));
}

std::uint64_t dataSignature(const std::uint8_t* data, std::size_t size, std::uint64_t before)
{
    std::uint64_t value = before ^ (size * 0x9e3779b97f4a7c15u);
    std::size_t at = 0;
    for (; at + 64 <= size; at += 64) {
        std::uint64_t word;
        std::memcpy(&word, data + at, sizeof word);
        value = (value ^ word) * 0x9e3779b97f4a7c15u;
        value ^= value >> 29;
    }
    for (; at < size; ++at)
        value = (value ^ data[at]) * 0x100000001b3u;
    return value;
}

std::vector<std::uint8_t> fileHeader(const Movie& movie, const HeaderRecord& record)
{
    std::vector<std::uint8_t> bytes = BoxWriter::toBytes([&](BoxWriter& out) {
        MovieWriter::fileType(out);
        out.begin("free");
        out.u64(0);
        out.end();
        MovieWriter::movie(out, movie, true);
        const std::uint64_t used = out.position() + 8 + headerRecordBytes;
        const std::size_t padding = static_cast<std::size_t>(roundUpToBlock(used) - used);
        out.begin("free");
        const std::vector<std::uint8_t> body = BoxWriter::toBytes([&](BoxWriter& fields) {
            fields.u32(headerMagic);
            fields.u64(record.token);
            fields.i64(record.baseNs);
            fields.i64(record.leadNs);
            fields.i64(record.askedBeginNs);
        });
        out.bytes(body.data(), body.size());
        out.u32(checksum(body.data(), body.size()));
        out.zeros(padding);
        out.end();
    });
    return bytes;
}

bool readHeaderRecord(const std::uint8_t* header, std::size_t size, HeaderRecord& record)
{
    if (size < switchOffset + 16)
        return false;
    ByteReader in(header + switchOffset + 16, size - switchOffset - 16);
    std::uint32_t type = 0;
    for (ByteReader box(nullptr, 0); in.box(type, box);) {
        if (type != fourcc("free") || box.left() < headerRecordBytes || get32(box.at()) != headerMagic)
            continue;
        const std::uint8_t* body = box.at();
        box.skip(4);
        record.token = box.u64();
        record.baseNs = box.i64();
        record.leadNs = box.i64();
        record.askedBeginNs = box.i64();
        return box.u32() == checksum(body, headerRecordBytes - 4);
    }
    return false;
}

std::size_t fragmentHeadBytes(std::size_t tracks, std::size_t videoSamples, std::size_t otherSamples)
{
    return 8 + 16 + tracks * trackHeadBytes() + videoSamples * 16 + otherSamples * 8 + 8 + fragmentRecordBytes +
           mdatHeaderBytes;
}

void writeFragmentHead(std::uint8_t* block, FragmentInfo& info, std::uint32_t sequence,
                       const std::vector<TrackFormat>& tracks)
{
    const std::vector<std::uint8_t> moof = BoxWriter::toBytes([&](BoxWriter& out) {
        out.begin("moof");
        out.beginFull("mfhd", 0, 0);
        out.u32(sequence);
        out.end();
        for (const TrackRun& run : info.runs) {
            if (!run.samples.empty())
                trackFragment(out, run, info.offset, tracks[run.trackId - 1].isVideo());
        }
        out.end();
    });
    info.record.moofBytes = static_cast<std::uint32_t>(moof.size());
    info.record.moofCrc = checksum(moof.data(), moof.size());
    const std::vector<std::uint8_t> record = recordBytes(info.record);
    std::uint8_t* at = std::copy(moof.begin(), moof.end(), block);
    std::uint8_t* mdat = block + blockBytes - mdatHeaderBytes;
    put32(at, static_cast<std::uint32_t>(mdat - at));
    put32(at + 4, fourcc("free"));
    std::uint8_t* padding = std::copy(record.begin(), record.end(), at + 8);
    std::fill(padding, mdat, std::uint8_t{0});
    put32(mdat, static_cast<std::uint32_t>(mdatHeaderBytes + info.record.dataBytes));
    put32(mdat + 4, fourcc("mdat"));
}

bool readFragmentHead(const std::uint8_t* block, FragmentInfo& info, const std::vector<TrackFormat>& tracks)
{
    ByteReader in(block, blockBytes - mdatHeaderBytes);
    ByteReader moof(nullptr, 0);
    ByteReader free(nullptr, 0);
    std::uint32_t type = 0;
    if (!in.box(type, moof) || type != fourcc("moof") || !in.box(type, free) || type != fourcc("free") ||
        in.left() != 0 || !readRecord(free, info.record))
        return false;
    const FragmentRecord& record = info.record;
    const std::uint8_t* mdat = block + blockBytes - mdatHeaderBytes;
    if (record.dataBytes > maxDataBytes || record.moofBytes != moof.left() + 8 ||
        record.moofCrc != checksum(block, record.moofBytes) || get32(mdat + 4) != fourcc("mdat") ||
        get32(mdat) != mdatHeaderBytes + record.dataBytes)
        return false;
    info.runs.clear();
    for (ByteReader box(nullptr, 0); moof.box(type, box);) {
        TrackRun run;
        if (type != fourcc("traf"))
            continue;
        if (!readTrackFragment(box, info.offset, tracks, run))
            return false;
        info.runs.push_back(std::move(run));
    }
    info.bytes = fragmentBytes(record.dataBytes);
    return moof.good() && !info.runs.empty() && runsLieInside(info);
}

} // namespace vaws
