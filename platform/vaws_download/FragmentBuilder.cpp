#include "FragmentBuilder.h"

#include "Bytes.h"
#include "ClockText.h"
#include "FragmentFormat.h"
#include "GapTimeline.h"

#include <algorithm>
#include <cstring>

namespace vaws {
namespace {

constexpr std::size_t defaultFragmentLimit = 2u * 1024 * 1024;
constexpr std::size_t leastKeyFragment = 256u * 1024; ///< a key frame closes no fragment smaller than this
constexpr std::uint32_t defaultVideoTicks = videoTimescale / 25;
constexpr std::int64_t leadStepNs = 40 * nsPerMs; ///< whole ticks in every usual timescale
constexpr std::size_t paddingBytes = blockBytes + 8;

std::int64_t roundUpToStep(std::int64_t value)
{
    return (value + leadStepNs - 1) / leadStepNs * leadStepNs;
}

} // namespace

FragmentBuilder::FragmentBuilder(BufferPort& port, std::shared_ptr<OutputPlan> plan, std::size_t leading,
                                 std::size_t reorderDepth)
    : m_port(port)
    , m_plan(std::move(plan))
    , m_leading(leading)
    , m_tracks(m_plan->formats.size())
    , m_fragmentLimit(defaultFragmentLimit)
{
    for (std::size_t i = 0; i < m_tracks.size(); ++i)
        m_tracks[i].nominal = m_plan->formats[i].isVideo() ? defaultVideoTicks : 1024;
    m_tracks[m_leading].order = DecodeTimes(reorderDepth);
    m_headerBytes = headerBytes().size();
}

std::vector<std::uint8_t> FragmentBuilder::headerBytes() const
{
    Movie movie;
    movie.tags = m_plan->tags;
    const HeaderRecord& header = m_plan->header;
    movie.beginNs = std::max(header.baseNs, header.askedBeginNs);
    for (const TrackFormat& format : m_plan->formats) {
        MovieTrack track;
        track.format = format;
        // Length 0: up to the end of the movie, whatever fragments come.
        track.edits.push_back({nsToTicks(movie.beginNs - header.baseNs + header.leadNs, format.timescale), 0});
        movie.tracks.push_back(std::move(track));
    }
    return fileHeader(movie, header);
}

bool FragmentBuilder::fits(const Frame& frame) const
{
    const bool video = m_plan->formats[frame.track].isVideo();
    return m_dataBytes + m_sideBytes + frame.bytes + paddingBytes <= m_buffer->capacity - m_buffer->used &&
           fragmentHeadBytes(m_tracks.size(), m_videoSamples + (video ? 1 : 0), m_otherSamples + (video ? 0 : 1)) <=
               blockBytes;
}

void FragmentBuilder::append(const Frame& frame)
{
    const std::size_t gathered = m_dataBytes + m_sideBytes;
    if (m_open && (!fits(frame) || gathered >= m_fragmentLimit ||
                   (frame.key && frame.track == m_leading && gathered >= leastKeyFragment &&
                    m_plan->formats[m_leading].isVideo())))
        closeFragment();
    if (!m_open)
        startFragment(frame.bytes);
    Track& track = m_tracks[frame.track];
    if (frame.track == m_leading) {
        std::memcpy(m_buffer->data + m_buffer->used + m_dataBytes, frame.data, frame.bytes);
        m_dataBytes += frame.bytes;
    } else {
        track.side.insert(track.side.end(), frame.data, frame.data + frame.bytes);
        m_sideBytes += frame.bytes;
    }
    if (m_plan->formats[frame.track].isVideo()) {
        track.order.observe(frame.presentation);
        ++m_videoSamples;
    } else {
        ++m_otherSamples;
    }
    track.pending.push_back({frame.presentation, static_cast<std::uint32_t>(frame.bytes), frame.duration, frame.key});
}

void FragmentBuilder::startFragment(std::size_t bytes)
{
    const std::size_t needed = blockBytes + bytes + paddingBytes;
    if (m_buffer && needed > m_buffer->capacity - m_buffer->used)
        handOver();
    if (!m_buffer) {
        const std::size_t head = m_fileOffset == 0 ? m_headerBytes : 0;
        m_buffer = m_port.newBuffer(needed + head);
        m_buffer->fileOffset = m_fileOffset;
        m_buffer->used = head;
    }
    m_dataBytes = blockBytes;
    m_open = true;
}

void FragmentBuilder::learnNominal(Track& track)
{
    if (track.pending.back().duration != 0) {
        track.nominal = track.pending.back().duration;
        return;
    }
    if (track.pending.size() < 2)
        return;
    std::vector<std::int64_t> times;
    times.reserve(track.pending.size());
    for (const PendingSample& sample : track.pending)
        times.push_back(sample.presentation);
    std::sort(times.begin(), times.end());
    for (std::size_t i = 0; i + 1 < times.size(); ++i)
        times[i] = times[i + 1] - times[i];
    times.pop_back();
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2), times.end());
    const std::int64_t median = times[times.size() / 2];
    if (median > 0 && median < 0x7fffffff)
        track.nominal = static_cast<std::uint32_t>(median);
}

void FragmentBuilder::settleHeader()
{
    // Far enough ahead that neither the reordered pictures nor sound that came before the first picture get negative
    // times.
    std::int64_t earliestNs = 0;
    for (std::size_t i = 0; i < m_tracks.size(); ++i) {
        const Track& track = m_tracks[i];
        if (track.pending.empty())
            continue;
        std::int64_t first = track.pending.front().presentation;
        if (m_plan->formats[i].isVideo())
            first -= static_cast<std::int64_t>(track.order.depth()) * track.nominal;
        earliestNs = std::min(earliestNs, ticksToNs(first, m_plan->formats[i].timescale));
    }
    m_plan->header.leadNs = roundUpToStep(std::max(m_plan->header.leadNs, -earliestNs));
    const std::vector<std::uint8_t> header = headerBytes();
    std::copy(header.begin(), header.end(), m_buffer->data);
    m_headerSettled = true;
}

TrackRun FragmentBuilder::runOf(std::size_t index, std::uint64_t offset)
{
    Track& track = m_tracks[index];
    const TrackFormat& format = m_plan->formats[index];
    const std::int64_t lead = nsToTicks(m_plan->header.leadNs, format.timescale);
    TrackRun run;
    run.trackId = format.trackId;
    run.offset = offset;
    run.samples.reserve(track.pending.size());
    for (const PendingSample& pending : track.pending) {
        Sample sample;
        const std::int64_t presentation = std::max<std::int64_t>(pending.presentation + lead, 0);
        sample.decodeTime = track.order.assign(presentation, track.nominal);
        if (sample.decodeTime < 0)
            sample.decodeTime = 0;
        sample.compositionOffset = format.isVideo() ? static_cast<std::int32_t>(presentation - sample.decodeTime) : 0;
        sample.bytes = pending.bytes;
        sample.duration = pending.duration != 0 ? pending.duration : track.nominal;
        sample.key = pending.key;
        if (!run.samples.empty())
            run.samples.back().duration = static_cast<std::uint32_t>(sample.decodeTime - run.samples.back().decodeTime);
        run.samples.push_back(sample);
    }
    track.pending.clear();
    return run;
}

void FragmentBuilder::closeFragment()
{
    if (!m_open)
        return;
    for (Track& track : m_tracks) {
        if (!track.pending.empty())
            learnNominal(track);
    }
    if (!m_headerSettled)
        settleHeader();
    FragmentInfo info;
    info.offset = m_buffer->fileOffset + m_buffer->used;
    std::uint8_t* block = m_buffer->data + m_buffer->used;
    if (!m_tracks[m_leading].pending.empty())
        info.runs.push_back(runOf(m_leading, info.offset + blockBytes));
    for (std::size_t i = 0; i < m_tracks.size(); ++i) {
        Track& track = m_tracks[i];
        if (i == m_leading || track.pending.empty())
            continue;
        std::memcpy(block + m_dataBytes, track.side.data(), track.side.size());
        info.runs.push_back(runOf(i, info.offset + m_dataBytes));
        m_dataBytes += track.side.size();
        track.side.clear();
    }
    info.record.dataBytes = static_cast<std::uint32_t>(m_dataBytes - blockBytes);
    info.record.signature = dataSignature(block + blockBytes, info.record.dataBytes);
    info.record.syncedBytes = m_plan->syncedBytes.load(std::memory_order_relaxed);
    info.record.lostUnits = m_lostUnits;
    info.record.gap = m_gap;
    writeFragmentHead(block, info, ++m_sequence, m_plan->formats);
    info.bytes = fragmentBytes(info.record.dataBytes);
    if (const std::size_t padding = static_cast<std::size_t>(info.bytes) - m_dataBytes) {
        put32(block + m_dataBytes, static_cast<std::uint32_t>(padding));
        put32(block + m_dataBytes + 4, fourcc("free"));
        std::memset(block + m_dataBytes + 8, 0, padding - 8);
    }
    m_buffer->used += static_cast<std::size_t>(info.bytes);
    m_buffer->fragments.push_back(std::move(info));
    m_open = false;
    m_dataBytes = m_sideBytes = 0;
    m_videoSamples = m_otherSamples = 0;
    m_lostUnits = 0;
    m_gap = Gap();
}

void FragmentBuilder::beginGap(const Gap& gap)
{
    closeFragment();
    m_gap = gap;
}

void FragmentBuilder::handOver()
{
    m_fileOffset += m_buffer->used;
    m_port.submit(std::move(m_buffer));
}

void FragmentBuilder::flush()
{
    closeFragment();
    if (m_buffer && !m_buffer->fragments.empty())
        handOver();
}

} // namespace vaws
