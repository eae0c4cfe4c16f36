#pragma once

#include "MediaTypes.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace vaws {

/// An aligned image of a stretch of the file, whole fragments, on its way to the disk.
struct MediaBuffer
{
    explicit MediaBuffer(std::size_t bytes);
    ~MediaBuffer();
    MediaBuffer(const MediaBuffer&) = delete;
    MediaBuffer& operator=(const MediaBuffer&) = delete;

    std::uint8_t* data = nullptr;
    std::size_t capacity = 0;
    std::size_t used = 0;
    std::uint64_t fileOffset = 0;
    std::int64_t pushedBytes = 0; ///< what of the caller's bytes it stands for
    std::vector<FragmentInfo> fragments;
};

/// Buffers for reuse, shared by all tasks; safe for threads. Buffers of another size than the usual one are not kept.
class BufferPool final
{
public:
    static constexpr std::size_t usualBytes = 4u * 1024 * 1024;

    /// With room for at least `bytes`; throws std::bad_alloc.
    std::unique_ptr<MediaBuffer> take(std::size_t bytes);
    void giveBack(std::unique_ptr<MediaBuffer> buffer);
    void clear();

private:
    static constexpr std::size_t maxKept = 8;
    std::mutex m_mutex;
    std::vector<std::unique_ptr<MediaBuffer>> m_free;
};

} // namespace vaws
