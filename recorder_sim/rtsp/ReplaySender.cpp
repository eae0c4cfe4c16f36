#include "rtsp/ReplaySender.h"

#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <utility>

namespace recorder_sim {
namespace {

constexpr std::size_t chunkBytes = 512 * 1024;
constexpr std::int64_t clockStepAfterNs = 10 * nsPerSecond;
constexpr std::int64_t ntpOffsetSeconds = 2'208'988'800;

std::int64_t steadyNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

std::int64_t wallNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

/// NTP time in 32.32 bits, to the nearest step.
quint64 ntpTime(std::int64_t utcNs)
{
    const std::int64_t seconds = utcNs / nsPerSecond;
    const auto rest = static_cast<std::uint64_t>(utcNs % nsPerSecond);
    const std::uint64_t fraction = ((rest << 32) + nsPerSecond / 2) / nsPerSecond;
    return (static_cast<quint64>(seconds + ntpOffsetSeconds) << 32) + fraction;
}

} // namespace

ReplaySender::ReplaySender(PacketPlanCache& plans, const Options& options,
                           const std::array<SenderTrack, trackCount>& tracks)
    : m_plans(plans)
    , m_options(options)
    , m_tracks(tracks)
{
    if (!m_options.clockNs)
        m_options.clockNs = steadyNs;
    m_options.plan.trackMask = (tracks[videoTrack].on ? 1u : 0u) | (tracks[audioTrack].on ? 2u : 0u);
}

ReplaySender::~ReplaySender() = default;

void ReplaySender::play(ReplaySchedule schedule, double speed, std::uint8_t cseq)
{
    m_discontinuity.fill(m_hasBase);
    m_extensionDue.fill(m_options.extensionOnce);
    m_schedule = std::move(schedule);
    m_run = 0;
    m_endSent = false;
    if (!m_schedule.empty()) {
        const ReplayRun& run = m_schedule.front();
        m_position = run.firstPosition;
        m_rangeBeginNs = run.utcNs(m_position);
        if (!m_hasBase)
            m_baseNs = run.utcNs(m_position);
        m_hasBase = true;
    }
    resume(speed, cseq);
}

void ReplaySender::resume(double speed, std::uint8_t cseq)
{
    m_speed = speed;
    m_cseq = cseq;
    m_playing = true;
    if (hasMore())
        anchorPace(m_schedule[m_run].originNs + m_schedule[m_run].loop->sendTimeAt(m_position));
}

void ReplaySender::anchorPace(std::int64_t mediaNs)
{
    m_paceWallNs = m_options.clockNs();
    m_paceMediaNs = mediaNs;
}

std::int64_t ReplaySender::nextUtcNs() const
{
    return hasMore() ? m_schedule[m_run].utcNs(m_position) : 0;
}

int ReplaySender::clockRate(int track) const
{
    return hasMore() ? m_schedule[m_run].loop->clockRate(track) : 90'000;
}

std::uint32_t ReplaySender::nextRtpTime(int track) const
{
    return rtpTime(track, clockRate(track), nextUtcNs());
}

std::uint32_t ReplaySender::rtpTime(int track, int clockRate, std::int64_t utcNs) const
{
    const std::int64_t passed = utcNs - m_baseNs;
    const std::int64_t ticks = passed / nsPerSecond * clockRate + passed % nsPerSecond * clockRate / nsPerSecond;
    return m_tracks[static_cast<std::size_t>(track)].timeStart + static_cast<std::uint32_t>(ticks);
}

ReplaySender::PatchedPlan& ReplaySender::patchedPlan(const ReplayRun& run, ExtensionMode mode)
{
    for (const auto& known : m_patched) {
        if (&known->plan->loop() == run.loop.get() && known->plan->options().extension == mode)
            return *known;
    }
    PlanOptions options = m_options.plan;
    options.extension = mode;
    auto made = std::make_unique<PatchedPlan>();
    made->plan = m_plans.plan(run.loop, options);
    made->bytes = made->plan->bytes();
    for (const PacketPlan::Packet& packet : made->plan->packets()) {
        const SenderTrack& track = m_tracks[packet.track];
        char* data = made->bytes.data() + packet.offset;
        const bool report = packet.kind == PacketPlan::Kind::SenderReport;
        data[1] = static_cast<char>(report ? track.rtcpChannel : track.rtpChannel);
        data += PacketPlan::interleavedHeader;
        qToBigEndian(track.ssrc, data + (report ? 4 : 8));
        if (report)
            qToBigEndian(track.ssrc, data + 32);
    }
    m_patched.push_back(std::move(made));
    return *m_patched.back();
}

ReplaySender::Step ReplaySender::next(std::string_view& data, int& waitMs)
{
    skipUnsent();
    if (!hasMore()) {
        m_playing = false;
        if (std::exchange(m_endSent, true) || !m_byeWanted)
            return Step::End;
        m_scratch = makeBye();
        data = m_scratch;
        return Step::Data;
    }
    const ReplayRun& run = m_schedule[m_run];
    std::int64_t dueNs = ReplayRange::open;
    if (m_speed > 0) {
        const std::int64_t nowNs = m_options.clockNs();
        dueNs = m_paceMediaNs + static_cast<std::int64_t>(static_cast<double>(nowNs - m_paceWallNs) * m_speed);
        const std::int64_t nextNs = run.originNs + run.loop->sendTimeAt(m_position);
        if (nextNs > dueNs) {
            waitMs = static_cast<int>(static_cast<double>(nextNs - dueNs) / m_speed / 1e6) + 1;
            return Step::Wait;
        }
    }
    const bool withExtension = m_extensionDue[run.loop->itemAt(m_position).track];
    ExtensionMode mode = m_options.plan.extension;
    if (m_options.extensionOnce)
        mode = withExtension ? ExtensionMode::AccessUnit : ExtensionMode::None;
    data =
        gather(run, patchedPlan(run, mode), dueNs, m_options.extensionOnce && (m_extensionDue[0] || m_extensionDue[1]));
    if (m_faults.any()) {
        m_faults.rewrite(data, m_scratch);
        data = m_scratch;
    }
    return Step::Data;
}

/// Whether the item at the current position is.
bool ReplaySender::isSent(const ReplayRun& run) const
{
    const MediaItem& item = run.loop->itemAt(m_position);
    return run.isSent(m_position) && (!m_keyFramesOnly || (item.track == videoTrack && item.key));
}

void ReplaySender::skipUnsent()
{
    while (hasMore()) {
        const ReplayRun& run = m_schedule[m_run];
        if (m_position >= run.endPosition) {
            const std::int64_t endedNs = run.originNs + run.loop->sendTimeAt(run.endPosition);
            if (++m_run >= m_schedule.size())
                return;
            const ReplayRun& following = m_schedule[m_run];
            m_position = following.firstPosition;
            if (m_speed > 0) {
                // A gap takes no time: the next run is due when this one has ended.
                m_paceWallNs += static_cast<std::int64_t>(static_cast<double>(endedNs - m_paceMediaNs) / m_speed);
                m_paceMediaNs = following.originNs + following.loop->sendTimeAt(m_position);
            }
            if (following.followsGap)
                m_discontinuity.fill(true);
        } else if (!isSent(run)) {
            ++m_position;
        } else {
            return;
        }
    }
}

/// Patches items from the current position on and gives their bytes: up to the end of the buffer, the run, what is due,
/// or a piece that is large enough.
std::string_view ReplaySender::gather(const ReplayRun& run, PatchedPlan& patched, std::int64_t dueNs, bool oneItem)
{
    const PacketPlan& plan = *patched.plan;
    const std::vector<MediaItem>& items = plan.loop().items();
    const auto perLoop = static_cast<std::int64_t>(items.size());
    const auto firstItem = static_cast<std::size_t>(m_position % perLoop);
    const std::size_t firstPacket = plan.firstPacketOf(firstItem);
    const std::size_t begin =
        firstPacket < plan.packets().size() ? plan.packets()[firstPacket].offset : plan.bytes().size();
    const std::int64_t loopSendNs = run.originNs + plan.loop().loopOf(m_position) * MediaLoop::loopNs;
    std::size_t end = begin;
    for (std::size_t index = firstItem; index < items.size() && end - begin < chunkBytes; ++index) {
        if (m_position >= run.endPosition || loopSendNs + items[index].sendNs > dueNs || !isSent(run))
            break;
        patchItem(run, patched, items[index], index);
        const std::size_t next = plan.firstPacketOf(index + 1);
        end = next < plan.packets().size() ? plan.packets()[next].offset : plan.bytes().size();
        ++m_position;
        if (oneItem)
            break;
    }
    return std::string_view(patched.bytes).substr(begin, end - begin);
}

std::uint8_t ReplaySender::flagsOf(const ReplayRun& run, const MediaItem& item)
{
    // ONVIF Streaming 6.3: C clean point, E end of contiguous section, D discontinuity, T terminal frame.
    std::uint8_t flags = item.key ? 0x80 : 0;
    if (m_position == run.lastPosition[item.track]) {
        if (run.endsAtGap)
            flags |= 0x40;
        if (m_run + 1 == m_schedule.size())
            flags |= 0x10;
    }
    if (std::exchange(m_discontinuity[item.track], false))
        flags |= 0x20;
    return flags;
}

void ReplaySender::patchItem(const ReplayRun& run, PatchedPlan& patched, const MediaItem& item, std::size_t itemIndex)
{
    const PacketPlan& plan = *patched.plan;
    const std::size_t last = plan.firstPacketOf(itemIndex + 1);
    std::size_t index = plan.firstPacketOf(itemIndex);
    if (index == last)
        return;
    const std::int64_t loopNs = run.originNs + plan.loop().loopOf(m_position) * MediaLoop::loopNs;
    const std::int64_t utcNs = loopNs + item.ptsNs;
    const bool stepped = utcNs - m_rangeBeginNs >= clockStepAfterNs;
    const quint64 ntp = ntpTime(utcNs + (stepped ? m_options.clockStepNs : 0));
    std::uint32_t rtp = rtpTime(item.track, plan.loop().clockRate(item.track), loopNs) + item.ticks;
    SenderTrack& track = m_tracks[item.track];
    std::uint8_t flags = 0;
    bool flagsKnown = false;
    for (; index < last; ++index) {
        const PacketPlan::Packet& packet = plan.packets()[index];
        char* data = patched.bytes.data() + packet.offset + PacketPlan::interleavedHeader;
        if (packet.kind == PacketPlan::Kind::SenderReport) {
            patchReport(data, packet.track, rtpTime(packet.track, plan.loop().clockRate(packet.track), utcNs), ntp);
            continue;
        }
        qToBigEndian(track.sequence++, data + 2);
        qToBigEndian(rtp, data + 4);
        if (packet.kind == PacketPlan::Kind::RtpWithExtension) {
            if (!std::exchange(flagsKnown, true)) {
                flags = flagsOf(run, item);
                m_extensionDue[item.track] = false;
            }
            char* extension = data + PacketPlan::rtpHeader + 4;
            qToBigEndian(ntp, extension);
            extension[8] = static_cast<char>(flags);
            extension[9] = static_cast<char>(m_cseq);
        }
        ++m_packetsSent[item.track];
        m_octetsSent[item.track] += packet.payloadBytes;
    }
}

void ReplaySender::patchReport(char* packet, std::uint8_t track, std::uint32_t rtp, quint64 ntp)
{
    const ReportTime kind = m_options.reportTime;
    qToBigEndian(kind == ReportTime::Zero   ? quint64{0}
                 : kind == ReportTime::Wall ? ntpTime(wallNs())
                                            : ntp,
                 packet + 8);
    qToBigEndian(kind == ReportTime::Zero ? quint32{0} : rtp, packet + 16);
    qToBigEndian(m_packetsSent[track], packet + 20);
    qToBigEndian(m_octetsSent[track], packet + 24);
}

std::string ReplaySender::makeBye() const
{
    // RFC 3550 6.1: a compound packet begins with a report, here an empty receiver report.
    std::string out;
    for (const SenderTrack& track : m_tracks) {
        if (!track.on)
            continue;
        std::string packet("$\0\0\x10\x80\xc9\0\1\0\0\0\0\x81\xcb\0\1\0\0\0\0", 20);
        packet[1] = static_cast<char>(track.rtcpChannel);
        qToBigEndian(track.ssrc, packet.data() + 8);
        qToBigEndian(track.ssrc, packet.data() + 16);
        out += packet;
    }
    return out;
}

} // namespace recorder_sim
