#include "MediaBuffer.h"

#include "DirectFile.h"
#include "FragmentFormat.h"

#include <algorithm>
#include <new>
#include <utility>

namespace vaws {

MediaBuffer::MediaBuffer(std::size_t bytes)
    : data(allocateAligned(bytes))
    , capacity(bytes)
{
    if (!data)
        throw std::bad_alloc();
}

MediaBuffer::~MediaBuffer()
{
    freeAligned(data);
}

std::unique_ptr<MediaBuffer> BufferPool::take(std::size_t bytes)
{
    if (bytes <= usualBytes) {
        const std::lock_guard lock(m_mutex);
        if (!m_free.empty()) {
            std::unique_ptr<MediaBuffer> buffer = std::move(m_free.back());
            m_free.pop_back();
            return buffer;
        }
    }
    return std::make_unique<MediaBuffer>(std::max(usualBytes, static_cast<std::size_t>(roundUpToBlock(bytes))));
}

void BufferPool::giveBack(std::unique_ptr<MediaBuffer> buffer)
{
    if (!buffer || buffer->capacity != usualBytes)
        return;
    buffer->used = 0;
    buffer->fileOffset = 0;
    buffer->pushedBytes = 0;
    buffer->fragments.clear();
    const std::lock_guard lock(m_mutex);
    if (m_free.size() < maxKept)
        m_free.push_back(std::move(buffer));
}

void BufferPool::clear()
{
    const std::lock_guard lock(m_mutex);
    m_free.clear();
}

} // namespace vaws
