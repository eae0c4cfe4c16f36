#pragma once

#include "Depacketizer.h"
#include "ParameterSets.h"
#include "StreamDescription.h"
#include "TrackOutput.h"

#include <vector>

namespace vms_sdk::rtsp {

/// Puts the NAL units of H.264 or H.265 together into access units, in place at the end of the batch. An access unit
/// ends at the marker bit or where the RTP time changes, whichever comes first; a peer that sets the marker on every
/// packet is found out and then only RTP time counts. An access unit that lost a packet is dropped. NAL units without a
/// picture (parameter sets with a time of their own) go to the access unit that follows.
class AccessUnitAssembler
{
public:
    static constexpr std::size_t maxNalUnits = 4096;

    AccessUnitAssembler(vav::TrackInfo track, ParameterSets sets, TrackOutput& output, StreamDescription& description);

    /// Before the NAL units of a packet. `startsUnit`: its first NAL unit can only be the first of an access unit.
    void beginPacket(const TimedPacket& packet, bool startsUnit);
    MediaLimit endPacket(bool marker);

    void beginNal();
    void append(const std::uint8_t* data, std::size_t bytes);
    void endNal();
    bool isNalOpen() const { return m_nalOpen; }
    /// Something of the present access unit is missing or wrong.
    void damage() { m_damaged = true; }

    void finish();
    void interrupt();

private:
    void open(std::uint32_t timestamp, std::int64_t timeNs);
    void close();
    void drop();
    void classify(const std::uint8_t* nal, std::size_t bytes);
    void classifyH264(const std::uint8_t* nal, std::size_t bytes, unsigned type);
    void applyParameterSets();
    bool isKey() const;

    struct NalSpan
    {
        std::size_t offset;
        std::size_t bytes;
    };

    vav::TrackInfo m_track;
    ParameterSets m_sets;
    TrackOutput& m_output;
    StreamBatcher& m_batcher;
    StreamDescription& m_description;

    bool m_open = false;
    std::uint32_t m_timestamp = 0; ///< of the open access unit, or of the last one
    std::int64_t m_timeNs = 0;
    bool m_hadUnit = false;
    bool m_markerUnreliable = false;

    // The open access unit.
    bool m_damaged = false;
    bool m_nalOpen = false;
    std::size_t m_nalBegin = 0; ///< offset of its length in the unit
    std::size_t m_nalCount = 0;
    bool m_hasPicture = false;
    bool m_hasIrap = false;
    bool m_hasRecoveryPoint = false;
    bool m_onlyIntra = true;
    MediaLimit m_limit = MediaLimit::None;
    std::vector<NalSpan> m_parameterSets;
};

} // namespace vms_sdk::rtsp
