#pragma once

#include "DecodeTimes.h"
#include "MediaBuffer.h"
#include "MovieWriter.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vaws {

/// One file to be written, as builder and writer thread share it. Everything but `syncedBytes` is settled before the
/// first buffer is handed over and constant from then on.
struct OutputPlan
{
    std::vector<TrackFormat> formats;
    HeaderRecord header;
    MovieTags tags;
    std::string videoCodec;
    std::string audioCodec;
    std::atomic<std::uint64_t> syncedBytes{0}; ///< of the file, set by the writer thread
};

/// Where a builder gets its buffers and leaves them when they are full. Called on the thread that uses the builder.
class BufferPort
{
public:
    virtual ~BufferPort() = default;
    virtual std::unique_ptr<MediaBuffer> newBuffer(std::size_t bytes) = 0;
    virtual void submit(std::unique_ptr<MediaBuffer> buffer) = 0;
};

/// Lays samples down as the file will hold them: each one is copied once, straight into the image of the file. A
/// fragment lies inside one buffer: samples of the leading track as they come, those of the others gathered behind. A
/// fragment is closed at a key frame, by size, when its first block is full, and by flush(). Not for several threads.
class FragmentBuilder final
{
public:
    /// `leading` is the index of the track whose samples go straight into the image, `reorderDepth` its own.
    FragmentBuilder(BufferPort& port, std::shared_ptr<OutputPlan> plan, std::size_t leading, std::size_t reorderDepth);

    struct Frame
    {
        std::size_t track = 0;         ///< index into the plan's formats
        std::int64_t presentation = 0; ///< ticks of media time, the lead not included
        std::uint32_t duration = 0;    ///< ticks, 0 when unknown
        bool key = false;
        const std::uint8_t* data = nullptr;
        std::size_t bytes = 0;
    };
    void append(const Frame& frame);

    /// Closes the fragment; the next one begins behind the gap.
    void beginGap(const Gap& gap);
    void addLost(std::uint32_t units) { m_lostUnits += units; }
    /// Closes the fragment and hands the buffer over.
    void flush();

    std::uint64_t fileBytes() const { return m_fileOffset + (m_buffer ? m_buffer->used + m_dataBytes : 0); }
    std::size_t bufferedBytes() const { return m_buffer ? m_buffer->used + m_dataBytes + m_sideBytes : 0; }
    std::uint32_t nominalTicks() const { return m_tracks[m_leading].nominal; }
    void setFragmentLimit(std::size_t bytes) { m_fragmentLimit = bytes; }

private:
    struct PendingSample
    {
        std::int64_t presentation;
        std::uint32_t bytes;
        std::uint32_t duration;
        bool key;
    };
    struct Track
    {
        DecodeTimes order;
        std::uint32_t nominal = 0;
        std::vector<PendingSample> pending;
        std::vector<std::uint8_t> side;
    };

    bool fits(const Frame& frame) const;
    void startFragment(std::size_t bytes);
    void closeFragment();
    void settleHeader();
    std::vector<std::uint8_t> headerBytes() const;
    TrackRun runOf(std::size_t index, std::uint64_t offset);
    void learnNominal(Track& track);
    void handOver();

    BufferPort& m_port;
    std::shared_ptr<OutputPlan> m_plan;
    std::size_t m_leading;
    std::vector<Track> m_tracks;
    std::unique_ptr<MediaBuffer> m_buffer;
    std::uint64_t m_fileOffset = 0; ///< of the buffer
    std::size_t m_headerBytes = 0;
    bool m_headerSettled = false;
    bool m_open = false;         ///< a fragment is open: its first block is at m_buffer->used
    std::size_t m_dataBytes = 0; ///< of the open fragment in the image, first block included
    std::size_t m_sideBytes = 0;
    std::size_t m_fragmentLimit;
    std::uint32_t m_sequence = 0;
    std::uint32_t m_lostUnits = 0;
    std::size_t m_videoSamples = 0; ///< of the open fragment
    std::size_t m_otherSamples = 0;
    Gap m_gap;
};

} // namespace vaws
