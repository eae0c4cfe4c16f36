#include "StreamAssembler.h"

#include "ClockText.h"
#include "ParameterSets.h"
#include "SampleEntry.h"

#include <algorithm>
#include <random>
#include <utility>

namespace vaws {
namespace {

constexpr std::int64_t gapThresholdNs = nsPerSecond;  ///< a longer jump ahead is a gap of the recording
constexpr std::int64_t backwardJumpNs = nsPerSecond;  ///< a longer jump back starts a new file
constexpr std::int64_t aheadOfLeadNs = nsPerSecond;   ///< sound further ahead of the pictures than this waits for them
constexpr std::int64_t soundAfterEndNs = nsPerSecond; ///< so long pictures past the end are awaited for late sound
constexpr std::int64_t longestKeptGapNs = 12 * 3600 * nsPerSecond; ///< a sample's duration has 32 bits
constexpr std::size_t maxHeldBytes = 4u * 1024 * 1024;
constexpr std::size_t maxPrerollBytes = 32u * 1024 * 1024;
constexpr std::size_t maxTailFrames = 64;
constexpr std::int64_t encoderLeadNs = 400 * nsPerMs;
constexpr std::int64_t defaultFrameNs = 40 * nsPerMs;

std::uint64_t newToken()
{
    std::random_device random;
    return std::uint64_t{random()} << 32 | random();
}

std::uint32_t durationTicks(std::uint32_t durationUs, std::uint32_t timescale)
{
    return static_cast<std::uint32_t>((std::uint64_t{durationUs} * timescale + 500'000) / 1'000'000);
}

} // namespace

StreamAssembler::StreamAssembler(AssemblyPort& port, AssemblyRequest request)
    : m_port(port)
    , m_request(request)
    , m_continuesNs(request.beginNs)
{}

void StreamAssembler::setRequestedSpan(std::int64_t beginNs, std::int64_t endNs)
{
    m_request.beginNs = beginNs;
    m_request.endNs = endNs;
    m_continuesNs = beginNs;
}

void StreamAssembler::setFragmentLimit(std::size_t bytes)
{
    if (m_builder)
        m_builder->setFragmentLimit(bytes);
}

StreamAssembler::Outcome StreamAssembler::streamInfo(const vav::StreamInfo& info)
{
    if (m_leading >= 0 && info.tracks == m_info.tracks) {
        m_info.beginNs = info.beginNs;
        m_info.endNs = info.endNs;
        return Outcome::Going;
    }
    if (m_builder)
        closeOutput(true, 0);
    m_preroll.clear();
    m_prerollBytes = 0;
    m_info = info;
    m_slots.assign(vav::maxTracks, Slot());
    m_leading = -1;
    for (const vav::TrackInfo& track : m_info.tracks) {
        Slot& slot = m_slots[track.track];
        const bool usable =
            vav::isVideo(track.codec) || track.codec == vav::Codec::Aac || AudioTranscoder::handles(track.codec);
        if (!usable || slot.info)
            continue;
        slot.info = &track;
        if (m_leading < 0 ||
            (vav::isVideo(track.codec) && !vav::isVideo(m_slots[static_cast<std::size_t>(m_leading)].info->codec)))
            m_leading = track.track;
    }
    if (m_leading < 0) {
        m_problem = "The stream has neither pictures nor sound in a format that an MP4 file can hold.";
        return Outcome::Unusable;
    }
    return Outcome::Going;
}

StreamAssembler::Outcome StreamAssembler::frame(const vav::FrameHeader& header, const std::uint8_t* payload)
{
    if (m_leading < 0) {
        m_problem = "The stream does not begin with its description.";
        return Outcome::Unusable;
    }
    Slot& slot = m_slots[header.track];
    if (!slot.info || header.payloadBytes == 0 || header.timeNs <= 0)
        return Outcome::Going;
    return header.track == m_leading ? leadingFrame(header, payload) : otherFrame(header, payload);
}

std::int64_t StreamAssembler::typicalNs() const
{
    const Slot& slot = m_slots[static_cast<std::size_t>(m_leading)];
    if (!m_builder || !slot.written)
        return defaultFrameNs;
    return ticksToNs(m_builder->nominalTicks(), m_plan->formats[slot.format].timescale);
}

StreamAssembler::Outcome StreamAssembler::leadingFrame(const vav::FrameHeader& header, const std::uint8_t* payload)
{
    const bool video = vav::isVideo(m_slots[header.track].info->codec);
    const bool key = !video || (header.flags & vav::KeyFrame) != 0;
    if ((header.flags & vav::LossBefore) != 0)
        m_lostAhead += std::max<std::uint32_t>(header.lostBefore, 1);
    // No picture order goes back over a key frame: there the recorder's clock was set back, by however little.
    const std::int64_t orderNs = video && key ? typicalNs() / 2 : std::max(backwardJumpNs, 20 * typicalNs());
    if (m_builder && header.timeNs < m_lastLeadNs - orderNs)
        closeOutput(true, header.timeNs);
    else if (m_builder && key && m_request.maxFileBytes > 0 && m_builder->fileBytes() >= m_request.maxFileBytes)
        closeOutput(true, header.timeNs);
    if (!m_builder) {
        if (!m_begun && header.timeNs < m_request.beginNs)
            return keepPreroll(header, payload, key);
        if (!m_preroll.empty()) {
            const Outcome outcome = key ? Outcome::Going : playPreroll();
            m_preroll.clear();
            m_prerollBytes = 0;
            if (outcome != Outcome::Going)
                return outcome;
        }
    }
    if (!m_builder) {
        if (!key)
            return Outcome::Going;
        if (m_request.endNs > 0 && header.timeNs >= m_request.endNs) {
            // Nothing of the asked span came: the end of it has been passed.
            m_leadComplete = m_soundComplete = true;
            return Outcome::RangeComplete;
        }
        if (!openOutput(header, payload))
            return Outcome::Unusable;
    } else {
        noteGap(header);
    }
    if (header.timeNs > m_lastLeadNs || !m_seenLead) {
        if (m_seenLead)
            m_distanceNs = header.timeNs - m_lastLeadNs;
        m_lastLeadNs = header.timeNs;
    }
    m_seenLead = true;
    m_order.observe(header.timeNs);
    m_order.assign(header.timeNs, typicalNs());

    if (m_request.endNs > 0 && header.timeNs >= m_request.endNs) {
        if (!m_leadComplete && m_tail.size() < maxTailFrames)
            m_tail.push_back({header, std::vector<std::uint8_t>(payload, payload + header.payloadBytes)});
        const bool passed = m_order.frontier() >= m_request.endNs || (key && isIndependent(header, payload));
        m_leadComplete = m_leadComplete || passed || m_tail.size() == maxTailFrames;
        const bool soundOver = header.timeNs >= m_request.endNs + soundAfterEndNs || !hasSoundBeside();
        releaseHeld(false);
        return m_leadComplete && (m_soundComplete || soundOver) ? Outcome::RangeComplete : Outcome::Going;
    }
    if (!m_tail.empty())
        releaseTail();
    write(header, payload);
    releaseHeld(false);
    takeTranscoded();
    return Outcome::Going;
}

/// Frames before the asked begin are needed from the last key frame on only.
StreamAssembler::Outcome StreamAssembler::keepPreroll(const vav::FrameHeader& header, const std::uint8_t* payload,
                                                      bool key)
{
    if (key) {
        m_preroll.clear();
        m_prerollBytes = 0;
    }
    if (key || !m_preroll.empty()) {
        m_preroll.push_back({header, std::vector<std::uint8_t>(payload, payload + header.payloadBytes)});
        m_prerollBytes += header.payloadBytes;
    }
    return m_prerollBytes > maxPrerollBytes ? playPreroll() : Outcome::Going;
}

StreamAssembler::Outcome StreamAssembler::playPreroll()
{
    m_begun = true;
    const std::vector<HeldFrame> frames = std::exchange(m_preroll, {});
    m_prerollBytes = 0;
    for (const HeldFrame& held : frames) {
        const Outcome outcome = leadingFrame(held.header, held.payload.data());
        if (outcome != Outcome::Going)
            return outcome;
    }
    return Outcome::Going;
}

bool StreamAssembler::hasSoundBeside() const
{
    return m_plan->formats.size() > (m_clock ? 2u : 1u);
}

/// Whether nothing that is presented before this key frame can come behind it.
bool StreamAssembler::isIndependent(const vav::FrameHeader& header, const std::uint8_t* payload) const
{
    const vav::Codec codec = m_slots[header.track].info->codec;
    for (const NalUnit& nal : splitNalUnits(payload, header.payloadBytes)) {
        const int type = codec == vav::Codec::H264 ? nal.data[0] & 0x1f : (nal.data[0] >> 1) & 0x3f;
        if (codec == vav::Codec::H264 && type >= 1 && type <= 5)
            return type == 5;
        if (codec == vav::Codec::H265 && type <= 21)
            return type == 19 || type == 20;
    }
    return codec != vav::Codec::H264 && codec != vav::Codec::H265;
}

void StreamAssembler::noteGap(const vav::FrameHeader& header)
{
    const std::int64_t typical = typicalNs();
    Gap gap;
    gap.beginNs = m_lastLeadNs + typical;
    gap.endNs = header.timeNs;
    const bool flagged = (header.flags & vav::Discontinuity) != 0;
    if (flagged && header.gapBeginNs > gap.beginNs && header.gapBeginNs < gap.endNs)
        gap.beginNs = header.gapBeginNs;
    const std::int64_t length = gap.endNs - gap.beginNs;
    // Pictures that come seldom are no gaps: the distance before this one was about as long.
    const bool seldom = m_distanceNs > gapThresholdNs && length + typical <= m_distanceNs + m_distanceNs / 2;
    if (flagged ? length <= typical : (length <= gapThresholdNs || seldom))
        return;
    gap.cause = !flagged && (header.flags & vav::LossBefore) != 0 ? GapCause::LostInTransfer : GapCause::NotRecorded;
    gap.collapsed = !m_request.keepGaps || length > longestKeptGapNs;
    takeTranscoded();
    releaseHeld(false);
    if (m_clock)
        m_clock->beginGap(*m_builder, m_timeline, gap);
    m_builder->beginGap(gap);
    m_timeline.addGap(gap);
}

void StreamAssembler::releaseTail()
{
    for (const HeldFrame& held : m_tail)
        write(held.header, held.payload.data());
    m_tail.clear();
}

void StreamAssembler::write(const vav::FrameHeader& header, const std::uint8_t* payload)
{
    Slot& slot = m_slots[header.track];
    const std::int64_t mediaNs = m_timeline.toMediaNs(header.timeNs);
    m_builder->addLost(std::exchange(m_lostAhead, 0));
    if (vav::isVideo(slot.info->codec)) {
        FragmentBuilder::Frame frame;
        frame.track = slot.format;
        frame.presentation = nsToTicks(mediaNs, videoTimescale);
        frame.duration = durationTicks(header.durationUs, videoTimescale);
        frame.key = (header.flags & vav::KeyFrame) != 0;
        frame.data = payload;
        frame.bytes = header.payloadBytes;
        m_builder->append(frame);
    } else {
        writeSound(slot, mediaNs, payload, header.payloadBytes);
    }
    if (m_clock && header.track == m_leading)
        m_clock->advance(*m_builder, m_timeline, header.timeNs);
}

void StreamAssembler::writeSound(Slot& slot, std::int64_t mediaNs, const std::uint8_t* payload, std::size_t bytes)
{
    if (AudioTranscoder::handles(slot.info->codec)) {
        if (m_transcoder)
            m_transcoder->push(mediaNs, payload, bytes);
        return;
    }
    const std::uint32_t rate = m_plan->formats[slot.format].timescale;
    const std::int64_t tolerance = rate / 50; // 20 ms: less is jitter of the sender's clock
    std::int64_t ticks = nsToTicks(mediaNs, rate);
    if (slot.started && ticks <= slot.nextTicks + tolerance)
        ticks = slot.nextTicks;
    slot.started = true;
    slot.nextTicks = ticks + slot.frameTicks;
    FragmentBuilder::Frame frame;
    frame.track = slot.format;
    frame.presentation = ticks;
    frame.duration = slot.frameTicks;
    frame.key = true;
    frame.data = payload;
    frame.bytes = bytes;
    m_builder->append(frame);
}

StreamAssembler::Outcome StreamAssembler::otherFrame(const vav::FrameHeader& header, const std::uint8_t* payload)
{
    if (m_request.endNs > 0 && header.timeNs >= m_request.endNs) {
        m_soundComplete = true;
        return m_leadComplete ? Outcome::RangeComplete : Outcome::Going;
    }
    const bool ahead = !m_builder || header.timeNs > m_lastLeadNs + aheadOfLeadNs;
    if (ahead || !m_held.empty()) {
        m_held.push_back({header, std::vector<std::uint8_t>(payload, payload + header.payloadBytes)});
        m_heldBytes += header.payloadBytes;
        while (m_heldBytes > maxHeldBytes) {
            const HeldFrame oldest = std::move(m_held.front());
            m_held.pop_front();
            m_heldBytes -= oldest.payload.size();
            if (m_builder && m_slots[oldest.header.track].written)
                write(oldest.header, oldest.payload.data());
        }
        if (!ahead)
            releaseHeld(false);
        return Outcome::Going;
    }
    if (m_slots[header.track].written)
        write(header, payload);
    takeTranscoded();
    return Outcome::Going;
}

void StreamAssembler::releaseHeld(bool all)
{
    while (!m_held.empty() && m_builder && (all || m_held.front().header.timeNs <= m_lastLeadNs + aheadOfLeadNs)) {
        const HeldFrame held = std::move(m_held.front());
        m_held.pop_front();
        m_heldBytes -= held.payload.size();
        if (m_slots[held.header.track].info && m_slots[held.header.track].written)
            write(held.header, held.payload.data());
    }
}

void StreamAssembler::takeTranscoded()
{
    if (!m_transcoder || !m_builder)
        return;
    AudioTranscoder::Packet packet;
    while (m_transcoder->take(packet)) {
        for (Slot& slot : m_slots) {
            if (!slot.info || !slot.written || !AudioTranscoder::handles(slot.info->codec))
                continue;
            FragmentBuilder::Frame frame;
            frame.track = slot.format;
            frame.presentation = packet.presentation;
            frame.duration = AudioTranscoder::frameSamples;
            frame.key = true;
            frame.data = packet.bytes.data();
            frame.bytes = packet.bytes.size();
            m_builder->append(frame);
            break;
        }
    }
}

bool StreamAssembler::openOutput(const vav::FrameHeader& header, const std::uint8_t* payload)
{
    auto plan = std::make_shared<OutputPlan>();
    plan->header.token = newToken();
    plan->header.baseNs = header.timeNs;
    // A file that follows another one begins where that ended, or earlier when the recorder went back in time.
    plan->header.askedBeginNs = m_switched ? std::min(m_continuesNs, header.timeNs) : m_continuesNs;
    plan->tags = {m_info.channelName, m_info.deviceName};
    std::size_t depth = 0;
    for (std::size_t number = 0; number < m_slots.size(); ++number) {
        Slot& slot = m_slots[number];
        slot.written = slot.started = false;
        if (!slot.info)
            continue;
        const bool leading = static_cast<int>(number) == m_leading;
        vav::TrackInfo track = *slot.info;
        std::string error;
        if (leading && track.parameterSets.empty() &&
            (track.codec == vav::Codec::H264 || track.codec == vav::Codec::H265))
            track.parameterSets = parameterSetsIn(track.codec, payload, header.payloadBytes);
        if (AudioTranscoder::handles(track.codec)) {
            auto transcoder = m_transcoder ? nullptr : AudioTranscoder::create(track, error);
            if (!transcoder)
                continue;
            m_transcoder = std::move(transcoder);
            track = m_transcoder->track();
            // What the encoder puts in front of the first sound must not come before time 0.
            plan->header.leadNs = encoderLeadNs;
            if (!m_held.empty())
                plan->header.leadNs += std::max<std::int64_t>(0, header.timeNs - m_held.front().header.timeNs);
        }
        TrackFormat format;
        if (!makeTrackFormat(track, static_cast<std::uint32_t>(plan->formats.size() + 1), format, error)) {
            if (!leading)
                continue;
            m_problem = error;
            return false;
        }
        (format.isVideo() ? plan->videoCodec : plan->audioCodec) = codecName(track.codec);
        slot.format = plan->formats.size();
        slot.written = true;
        slot.frameTicks =
            track.codec == vav::Codec::Aac
                ? parseAudioSpecificConfig(track.parameterSets.data(), track.parameterSets.size()).frameSamples
                : 0;
        if (leading)
            depth = videoShape(track).reorderDepth;
        plan->formats.push_back(std::move(format));
    }
    m_clock.reset();
    if (m_request.clockTrack) {
        const TrackFormat& beside = plan->formats[m_slots[static_cast<std::size_t>(m_leading)].format];
        m_clock.emplace(plan->formats.size(), std::max(plan->header.baseNs, plan->header.askedBeginNs));
        plan->formats.push_back(ClockTrack::format(static_cast<std::uint32_t>(plan->formats.size() + 1),
                                                   beside.isVideo() ? &beside : nullptr));
    }
    m_plan = plan;
    m_timeline = GapTimeline(plan->header.baseNs, 0);
    m_order = DecodeTimes(depth);
    m_seenLead = false;
    m_distanceNs = 0;
    m_lostAhead = 0;
    m_builder =
        std::make_unique<FragmentBuilder>(m_port, plan, m_slots[static_cast<std::size_t>(m_leading)].format, depth);
    m_port.openOutput(plan);
    m_lastLeadNs = header.timeNs;
    m_begun = true;
    return true;
}

void StreamAssembler::flush()
{
    if (!m_builder)
        return;
    takeTranscoded();
    m_builder->flush();
}

void StreamAssembler::drain()
{
    if (m_transcoder)
        m_transcoder->drain();
}

void StreamAssembler::closeOutput(bool switched, std::int64_t nextNs)
{
    releaseHeld(true);
    drain();
    flush();
    m_continuesNs = m_seenLead ? m_lastLeadNs + typicalNs() : m_continuesNs;
    m_switched = true;
    m_transcoder.reset();
    m_builder.reset();
    m_plan.reset();
    m_tail.clear();
    m_port.closeOutput(switched, nextNs);
}

void StreamAssembler::finish()
{
    if (m_builder)
        closeOutput(false, 0);
}

void StreamAssembler::discard()
{
    m_transcoder.reset();
    m_builder.reset();
    m_plan.reset();
    m_held.clear();
    m_preroll.clear();
    m_tail.clear();
}

} // namespace vaws
