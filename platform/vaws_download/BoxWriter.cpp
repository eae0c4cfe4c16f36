#include "BoxWriter.h"

#include <algorithm>
#include <cstring>

namespace vaws {
namespace {

constexpr std::size_t stageBytes = 64 * 1024;

}

void BoxWriter::begin(const char (&type)[5])
{
    if (measuring()) {
        m_open.push_back(m_sizes.size());
        m_sizes.push_back(m_position);
        m_position += 8;
        return;
    }
    u32(static_cast<std::uint32_t>(m_sizes[m_next++]));
    u32(fourcc(type));
}

void BoxWriter::beginFull(const char (&type)[5], std::uint8_t version, std::uint32_t flags)
{
    begin(type);
    u32(static_cast<std::uint32_t>(version) << 24 | flags);
}

void BoxWriter::end()
{
    if (!measuring())
        return;
    std::uint64_t& begin = m_sizes[m_open.back()];
    begin = m_position - begin;
    m_open.pop_back();
}

void BoxWriter::zeros(std::size_t count)
{
    static constexpr std::array<std::uint8_t, 64> nothing{};
    for (std::size_t done = 0; done < count;) {
        const std::size_t part = std::min(nothing.size(), count - done);
        bytes(nothing.data(), part);
        done += part;
    }
}

void BoxWriter::bytes(const void* data, std::size_t size)
{
    if (measuring() || size == 0) {
        m_position += size;
        return;
    }
    if (size > stageBytes) {
        flush();
        m_position += size;
        m_sink->write(static_cast<const std::uint8_t*>(data), size);
        return;
    }
    std::memcpy(room(size), data, size);
}

void BoxWriter::startWriting(ByteSink& sink)
{
    m_sink = &sink;
    m_position = 0;
    m_stage.resize(stageBytes);
}

void BoxWriter::flush()
{
    if (m_fill > 0)
        m_sink->write(m_stage.data(), m_fill);
    m_fill = 0;
}

} // namespace vaws
