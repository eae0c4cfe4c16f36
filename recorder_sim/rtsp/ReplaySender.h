#pragma once

#include "media/PacketPlan.h"
#include "media/ReplaySchedule.h"
#include "rtsp/PacketFaults.h"

#include <QtGlobal>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace recorder_sim {

/// What the NTP time of RTCP sender reports says: the footage's time, the clock of now, or nothing (zero).
enum class ReportTime { Media, Wall, Zero };

/// One stream of a session as its SETUP settled it.
struct SenderTrack
{
    bool on = false;
    std::uint8_t rtpChannel = 0;
    std::uint8_t rtcpChannel = 1;
    std::uint32_t ssrc = 0;
    std::uint16_t sequence = 0;  ///< of the next packet
    std::uint32_t timeStart = 0; ///< RTP time of the first key frame played
};

/// Turns a schedule into interleaved bytes, as large pieces that are ready to be written. Used by the one thread of its
/// connection; opens no socket and never waits. Its copy of the packet plan is patched in place, which is what makes it
/// fast.
class ReplaySender final
{
public:
    struct Options
    {
        PlanOptions plan;
        bool extensionOnce = false; ///< the extension on the very first packet of each track alone
        ReportTime reportTime = ReportTime::Media;
        std::function<std::int64_t()> clockNs; ///< that paces; the steady clock when empty
        std::int64_t clockStepNs = 0;          ///< the footage's clock steps by that much, ten seconds into each range
    };

    enum class Step { Data, Wait, End };

    ReplaySender(PacketPlanCache& plans, const Options& options, const std::array<SenderTrack, trackCount>& tracks);
    ~ReplaySender();

    /// Begins to play the schedule. `speed` is in multiples of real time, 0 as fast as the bytes are taken. `cseq` is
    /// that of the PLAY request. Flags the first frames as discontinuous when something was played before.
    void play(ReplaySchedule schedule, double speed, std::uint8_t cseq);
    void pause() { m_playing = false; }
    void resume(double speed, std::uint8_t cseq);
    bool isPlaying() const { return m_playing; }
    bool hasMore() const { return m_run < m_schedule.size(); }

    /// Only key frames of video are sent (ONVIF Streaming 6.4, "Frames: intra").
    void setKeyFramesOnly(bool only) { m_keyFramesOnly = only; }
    void setByeWanted(bool wanted) { m_byeWanted = wanted; } ///< whether RTCP BYE follows the last packet
    void setPacketFaults(const PacketFaults& faults) { m_faults = faults; }

    /// The next piece to write, valid until the next call; or how long to wait; or that all is sent (RTCP BYE
    /// included).
    Step next(std::string_view& data, int& waitMs);

    const SenderTrack& track(int index) const { return m_tracks[static_cast<std::size_t>(index)]; }
    std::int64_t nextUtcNs() const; ///< presentation time of the next item; 0 when nothing is left
    std::uint32_t nextRtpTime(int track) const;
    int clockRate(int track) const;

private:
    struct PatchedPlan
    {
        std::shared_ptr<const PacketPlan> plan;
        std::string bytes;
    };

    PatchedPlan& patchedPlan(const ReplayRun& run, ExtensionMode mode);
    std::uint32_t rtpTime(int track, int clockRate, std::int64_t utcNs) const;
    std::string_view gather(const ReplayRun& run, PatchedPlan& patched, std::int64_t dueNs, bool oneItem);
    void patchItem(const ReplayRun& run, PatchedPlan& patched, const MediaItem& item, std::size_t itemIndex);
    std::uint8_t flagsOf(const ReplayRun& run, const MediaItem& item);
    void patchReport(char* packet, std::uint8_t track, std::uint32_t rtp, quint64 ntp);
    void anchorPace(std::int64_t mediaNs);
    bool isSent(const ReplayRun& run) const;
    void skipUnsent();
    std::string makeBye() const;

    PacketPlanCache& m_plans;
    Options m_options;
    std::array<SenderTrack, trackCount> m_tracks;
    std::array<std::uint32_t, trackCount> m_packetsSent{};
    std::array<std::uint32_t, trackCount> m_octetsSent{};
    std::array<bool, trackCount> m_discontinuity{};
    std::array<bool, trackCount> m_extensionDue{};
    std::vector<std::unique_ptr<PatchedPlan>> m_patched;

    ReplaySchedule m_schedule;
    std::size_t m_run = 0;
    std::int64_t m_position = 0;
    bool m_playing = false;
    bool m_endSent = true;
    bool m_byeWanted = true;
    bool m_keyFramesOnly = false;
    bool m_hasBase = false;
    std::int64_t m_baseNs = 0; ///< UTC time that timeStart stands for
    std::int64_t m_rangeBeginNs = 0;
    std::uint8_t m_cseq = 0;

    double m_speed = 0;
    std::int64_t m_paceWallNs = 0;  ///< steady clock
    std::int64_t m_paceMediaNs = 0; ///< sending time of the footage at m_paceWallNs

    PacketFaults m_faults;
    std::string m_scratch;
};

} // namespace recorder_sim
