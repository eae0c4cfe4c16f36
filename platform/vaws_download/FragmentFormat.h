#pragma once

#include "MediaTypes.h"
#include "MovieWriter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// The bytes of a growing file. It begins with `ftyp`, a `free` box of 16 bytes, the `moov` of a fragmented file and
/// padding up to a whole block. A fragment is one block (`moof`, a `free` box with the FragmentRecord, the header of
/// the `mdat`) and its samples, padded to whole blocks. Finishing turns the `free` box of 16 bytes into the header of
/// one `mdat` around all of that.
namespace vaws {

constexpr std::uint64_t switchOffset = MovieWriter::fileTypeBytes; ///< of that `free` box
constexpr std::size_t mdatHeaderBytes = 8;

/// The file's beginning, whole blocks. Its length does not depend on the numbers in it.
std::vector<std::uint8_t> fileHeader(const Movie& movie, const HeaderRecord& record);

/// Reads the record that fileHeader() put into the first block. False when there is none or it is damaged.
bool readHeaderRecord(const std::uint8_t* header, std::size_t size, HeaderRecord& record);

/// Bytes of the first block that so many samples take, at most.
std::size_t fragmentHeadBytes(std::size_t tracks, std::size_t videoSamples, std::size_t otherSamples);

/// Writes a fragment's first block, `blockBytes` at `block`. Offsets of the runs are file offsets, `info.offset` is the
/// block's. Fills in `moofBytes` and `moofCrc` of the record.
void writeFragmentHead(std::uint8_t* block, FragmentInfo& info, std::uint32_t sequence,
                       const std::vector<TrackFormat>& tracks);

/// Reads a fragment's first block; `info.offset` is set by the caller. False where it is not a fragment of ours, or
/// damaged.
bool readFragmentHead(const std::uint8_t* block, FragmentInfo& info, const std::vector<TrackFormat>& tracks);

/// A value that a sector of zeros or of older content in place of the data would change: one word of every 64 bytes
/// goes in.
std::uint64_t dataSignature(const std::uint8_t* data, std::size_t size, std::uint64_t before = 0);

std::uint32_t checksum(const std::uint8_t* data, std::size_t size, std::uint32_t before = 0);

constexpr std::uint64_t roundUpToBlock(std::uint64_t bytes)
{
    return (bytes + blockBytes - 1) / blockBytes * blockBytes;
}

/// Length of a fragment, padding included: whole blocks, and never a rest too short for the header of a `free` box.
constexpr std::uint64_t fragmentBytes(std::uint32_t dataBytes)
{
    const std::uint64_t used = blockBytes + dataBytes;
    return used % blockBytes == 0 ? used : roundUpToBlock(used + 8);
}

} // namespace vaws
