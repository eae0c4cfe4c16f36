#include "SampleTable.h"

#include "BoxWriter.h"

#include <algorithm>

namespace vaws {

void SampleTable::add(std::deque<Run>& runs, std::uint32_t value)
{
    if (!runs.empty() && runs.back().value == value)
        ++runs.back().count;
    else
        runs.push_back({1, value});
}

void SampleTable::append(const TrackRun& run)
{
    if (run.samples.empty())
        return;
    for (const Sample& sample : run.samples) {
        const std::int64_t presentation = sample.decodeTime + sample.compositionOffset;
        if (m_count == 0) {
            m_firstDecode = sample.decodeTime;
            m_firstPresentation = m_lastPresentation = presentation;
        } else {
            add(m_durations, static_cast<std::uint32_t>(sample.decodeTime - m_lastDecode));
        }
        m_lastDecode = sample.decodeTime;
        m_lastDuration = sample.duration;
        m_firstPresentation = std::min(m_firstPresentation, presentation);
        m_lastPresentation = std::max(m_lastPresentation, presentation);
        m_presentationEnd = std::max(m_presentationEnd, presentation + sample.duration);
        m_reordered = m_reordered || sample.compositionOffset != 0;
        m_sizes.push_back(sample.bytes);
        add(m_offsets, static_cast<std::uint32_t>(sample.compositionOffset));
        ++m_count;
        if (sample.key)
            m_keys.push_back(m_count);
    }
    const auto samples = static_cast<std::uint32_t>(run.samples.size());
    m_chunks.push_back({run.offset, samples});
}

std::uint64_t SampleTable::decodeDuration() const
{
    return m_count == 0 ? 0 : static_cast<std::uint64_t>(m_lastDecode - m_firstDecode) + m_lastDuration;
}

void SampleTable::write(BoxWriter& writer) const
{
    writeTimes(writer);
    if (m_keys.size() != m_count) {
        writer.beginFull("stss", 0, 0);
        writer.u32(static_cast<std::uint32_t>(m_keys.size()));
        for (const std::uint32_t key : m_keys)
            writer.u32(key);
        writer.end();
    }
    writer.beginFull("stsz", 0, 0);
    writer.u32(0);
    writer.u32(m_count);
    if (writer.measuring()) {
        writer.pass(std::uint64_t{4} * m_count);
    } else {
        for (const std::uint32_t size : m_sizes)
            writer.u32(size);
    }
    writer.end();
    writeChunks(writer);
}

void SampleTable::writeTimes(BoxWriter& writer) const
{
    const bool joins = !m_durations.empty() && m_durations.back().value == m_lastDuration;
    writer.beginFull("stts", 0, 0);
    writer.u32(static_cast<std::uint32_t>(m_durations.size()) + (m_count > 0 && !joins ? 1 : 0));
    for (std::size_t i = 0; i < m_durations.size(); ++i) {
        writer.u32(m_durations[i].count + (joins && i + 1 == m_durations.size() ? 1 : 0));
        writer.u32(m_durations[i].value);
    }
    if (m_count > 0 && !joins) {
        writer.u32(1);
        writer.u32(m_lastDuration);
    }
    writer.end();
    if (!m_reordered)
        return;
    writer.beginFull("ctts", 1, 0);
    writer.u32(static_cast<std::uint32_t>(m_offsets.size()));
    if (writer.measuring()) {
        writer.pass(std::uint64_t{8} * m_offsets.size());
    } else {
        for (const Run& run : m_offsets) {
            writer.u32(run.count);
            writer.u32(run.value);
        }
    }
    writer.end();
}

void SampleTable::writeChunks(BoxWriter& writer) const
{
    std::uint32_t changes = 0;
    std::uint32_t before = 0;
    for (const Chunk& chunk : m_chunks) {
        changes += chunk.samples != before ? 1 : 0;
        before = chunk.samples;
    }
    writer.beginFull("stsc", 0, 0);
    writer.u32(changes);
    before = 0;
    std::uint32_t number = 0;
    for (const Chunk& chunk : m_chunks) {
        ++number;
        if (chunk.samples == before)
            continue;
        writer.u32(number);
        writer.u32(chunk.samples);
        writer.u32(1);
        before = chunk.samples;
    }
    writer.end();
    const bool wide = !m_chunks.empty() && m_chunks.back().offset > 0xffffffffu;
    if (wide)
        writer.beginFull("co64", 0, 0);
    else
        writer.beginFull("stco", 0, 0);
    writer.u32(static_cast<std::uint32_t>(m_chunks.size()));
    for (const Chunk& chunk : m_chunks) {
        if (wide)
            writer.u64(chunk.offset);
        else
            writer.u32(static_cast<std::uint32_t>(chunk.offset));
    }
    writer.end();
}

} // namespace vaws
