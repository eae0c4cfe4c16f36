#pragma once

#include "MediaFile.h"

#include <algorithm>
#include <cerrno>
#include <vector>

/// A media file in memory. With `writeLimit` it behaves as if the process were killed after so many bytes written: what
/// comes later is lost, and the call that crosses the limit is torn. With `goodCalls` every call behind so many fails.
class MemoryFile final : public vaws::MediaFile
{
public:
    int writeAt(std::uint64_t offset, const std::uint8_t* data, std::size_t size) override
    {
        if (fails())
            return EIO;
        const std::size_t taken = std::min(size, writeLimit);
        writeLimit -= taken;
        if (taken == 0)
            return 0;
        const auto at = static_cast<std::size_t>(offset);
        if (bytes.size() < at + taken)
            bytes.resize(at + taken);
        std::copy(data, data + taken, bytes.begin() + static_cast<std::ptrdiff_t>(at));
        return 0;
    }
    int readAt(std::uint64_t offset, std::uint8_t* data, std::size_t size, std::size_t& got) override
    {
        if (fails())
            return EIO;
        got = offset >= bytes.size() ? 0 : std::min<std::size_t>(size, bytes.size() - static_cast<std::size_t>(offset));
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(offset, bytes.size())), got,
                    data);
        return 0;
    }
    int length(std::uint64_t& size) override
    {
        size = bytes.size();
        return fails() ? EIO : 0;
    }
    int truncate(std::uint64_t size) override
    {
        if (fails())
            return EIO;
        if (writeLimit > 0)
            bytes.resize(static_cast<std::size_t>(size));
        return 0;
    }
    int sync() override { return fails() ? EIO : 0; }

    std::vector<std::uint8_t> bytes;
    std::size_t writeLimit = SIZE_MAX;
    std::size_t goodCalls = SIZE_MAX;

private:
    bool fails() { return goodCalls == 0 || goodCalls-- == 0; }
};
