#pragma once

#include "MediaTypes.h"

#include <cstdint>
#include <deque>

namespace vaws {

class BoxWriter;

/// The sample tables of one track (ISO/IEC 14496-12 clause 8.6 and 8.7), kept while the file is written: about 5 to 20
/// bytes a sample. Not for several threads.
class SampleTable final
{
public:
    void append(const TrackRun& run);

    std::uint32_t sampleCount() const { return m_count; }
    std::int64_t firstDecodeTime() const { return m_firstDecode; }
    std::int64_t lastDecodeTime() const { return m_lastDecode; }
    std::int64_t firstPresentation() const { return m_firstPresentation; }
    std::int64_t lastPresentation() const { return m_lastPresentation; }
    std::int64_t presentationEnd() const { return m_presentationEnd; } ///< behind the sample shown last
    std::uint64_t decodeDuration() const;                              ///< sum of all durations

    /// The boxes of `stbl` behind `stsd`.
    void write(BoxWriter& writer) const;

private:
    struct Run
    {
        std::uint32_t count;
        std::uint32_t value;
    };
    struct Chunk
    {
        std::uint64_t offset;
        std::uint32_t samples;
    };
    static void add(std::deque<Run>& runs, std::uint32_t value);
    void writeTimes(BoxWriter& writer) const;
    void writeChunks(BoxWriter& writer) const;

    std::uint32_t m_count = 0;
    std::int64_t m_firstDecode = 0;
    std::int64_t m_lastDecode = 0;
    std::uint32_t m_lastDuration = 0;
    std::int64_t m_firstPresentation = 0;
    std::int64_t m_lastPresentation = 0;
    std::int64_t m_presentationEnd = 0;
    bool m_reordered = false;
    std::deque<std::uint32_t> m_sizes;
    std::deque<Run> m_durations;      ///< of all samples but the last
    std::deque<Run> m_offsets;        ///< composition offsets, as two's complement
    std::deque<std::uint32_t> m_keys; ///< numbers from 1
    std::deque<Chunk> m_chunks;
};

} // namespace vaws
