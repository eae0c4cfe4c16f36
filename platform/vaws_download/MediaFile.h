#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vaws {

/// A file that is written and read at offsets. Every function returns 0 or an errno value. Used by one thread at a
/// time.
class MediaFile
{
public:
    virtual ~MediaFile() = default;

    /// Writes all of it, or fails.
    virtual int writeAt(std::uint64_t offset, const std::uint8_t* data, std::size_t size) = 0;
    /// Reads up to `size` bytes; fewer only at the end of the file.
    virtual int readAt(std::uint64_t offset, std::uint8_t* data, std::size_t size, std::size_t& got) = 0;
    virtual int length(std::uint64_t& bytes) = 0;
    virtual int truncate(std::uint64_t bytes) = 0;
    /// What was written is on the disk, length included.
    virtual int sync() = 0;
};

/// A plain sentence part for an errno value: "No space left on device".
std::string errorText(int code);

} // namespace vaws
