#include "AccessUnitAssembler.h"

#include "BitReader.h"
#include "ByteOrder.h"
#include "NalTypes.h"

#include <utility>

namespace vms_sdk::rtsp {
namespace {

constexpr std::size_t lengthBytes = 4;
constexpr unsigned seiRecoveryPoint = 6;

/// Whether an SEI NAL unit holds a recovery point at which decoding is right at once (ISO/IEC 14496-10 clause D.1.8).
bool hasExactRecoveryPoint(const std::uint8_t* nal, std::size_t bytes)
{
    std::size_t at = 1;
    while (at + 2 < bytes) {
        unsigned type = 0;
        std::size_t size = 0;
        while (at < bytes && nal[at] == 0xFF)
            type += nal[at++];
        if (at < bytes)
            type += nal[at++];
        while (at < bytes && nal[at] == 0xFF)
            size += nal[at++];
        if (at < bytes)
            size += nal[at++];
        if (size == 0 || size > bytes - at)
            return false;
        if (type == seiRecoveryPoint)
            return (nal[at] & 0x80) != 0; // ue(0): recovery_frame_cnt
        at += size;
    }
    return false;
}

} // namespace

AccessUnitAssembler::AccessUnitAssembler(vav::TrackInfo track, ParameterSets sets, TrackOutput& output,
                                         StreamDescription& description)
    : m_track(std::move(track))
    , m_sets(std::move(sets))
    , m_output(output)
    , m_batcher(output.batcher())
    , m_description(description)
{}

void AccessUnitAssembler::beginPacket(const TimedPacket& packet, bool startsUnit)
{
    const std::uint32_t timestamp = packet.rtp.timestamp;
    bool lossCounted = false;
    if (m_open && timestamp != m_timestamp) {
        if (!m_hasPicture && !m_damaged && !packet.lossBefore && !m_nalOpen) {
            m_timestamp = timestamp;
            m_timeNs = packet.timeNs;
        } else {
            // Without its marker nobody knows whether the end of the access unit was among the lost packets.
            if (packet.lossBefore)
                damage();
            lossCounted = m_damaged;
            close();
        }
    }
    if (m_open) {
        if (packet.lossBefore)
            damage();
    } else {
        const bool goesOn = m_hadUnit && timestamp == m_timestamp && !startsUnit && !packet.lossBefore;
        if (goesOn) {
            m_markerUnreliable = true;
            if (m_output.reopenUnit())
                m_open = true;
        }
        if (!m_open) {
            open(timestamp, packet.timeNs);
            if (packet.lossBefore && !startsUnit)
                damage();
            else if (packet.lossBefore && !lossCounted)
                m_output.noteLost(1);
        }
    }
    m_output.noteExtension(packet.rtp.replay);
}

MediaLimit AccessUnitAssembler::endPacket(bool marker)
{
    if (m_limit != MediaLimit::None)
        return m_limit;
    if (marker && !m_markerUnreliable && m_open && (m_hasPicture || m_damaged))
        close();
    return MediaLimit::None;
}

void AccessUnitAssembler::beginNal()
{
    static constexpr std::uint8_t noLength[lengthBytes] = {};
    m_nalBegin = m_batcher.unitBytes();
    m_nalOpen = true;
    if (++m_nalCount > maxNalUnits)
        m_limit = MediaLimit::TooManyNalUnits;
    append(noLength, lengthBytes);
}

void AccessUnitAssembler::append(const std::uint8_t* data, std::size_t bytes)
{
    if (m_batcher.unitBytes() + bytes > vav::maxPayloadBytes)
        m_limit = MediaLimit::UnitTooLarge;
    if (m_limit == MediaLimit::None)
        m_batcher.append(data, bytes);
}

void AccessUnitAssembler::endNal()
{
    m_nalOpen = false;
    if (m_limit != MediaLimit::None)
        return;
    const std::size_t bytes = m_batcher.unitBytes() - m_nalBegin - lengthBytes;
    std::uint8_t* at = m_batcher.unitData() + m_nalBegin;
    writeBe32(at, static_cast<std::uint32_t>(bytes));
    if (bytes > 0)
        classify(at + lengthBytes, bytes);
}

void AccessUnitAssembler::finish()
{
    if (!m_open)
        return;
    if (m_hasPicture)
        close();
    else
        drop();
}

void AccessUnitAssembler::interrupt()
{
    if (m_open)
        drop();
    m_hadUnit = false;
}

void AccessUnitAssembler::open(std::uint32_t timestamp, std::int64_t timeNs)
{
    m_open = true;
    m_timestamp = timestamp;
    m_timeNs = timeNs;
    m_damaged = false;
    m_nalOpen = false;
    m_nalCount = 0;
    m_hasPicture = false;
    m_hasIrap = false;
    m_hasRecoveryPoint = false;
    m_onlyIntra = true;
    m_parameterSets.clear();
    m_output.beginUnit();
}

void AccessUnitAssembler::close()
{
    if (m_damaged || m_nalOpen || m_limit != MediaLimit::None) {
        m_output.dropUnit();
    } else {
        if (!m_parameterSets.empty())
            applyParameterSets();
        m_output.closeUnit(m_timeNs, isKey(), 0);
    }
    m_open = false;
    m_nalOpen = false;
    m_hadUnit = true;
}

void AccessUnitAssembler::drop()
{
    m_batcher.dropUnit();
    m_open = false;
    m_nalOpen = false;
}

void AccessUnitAssembler::classify(const std::uint8_t* nal, std::size_t bytes)
{
    const bool isH264 = m_track.codec == vav::Codec::H264;
    const unsigned type = isH264 ? h264::nalType(nal) : h265::nalType(nal);
    if (m_sets.isParameterSet(type)) {
        m_parameterSets.push_back({m_batcher.unitBytes() - bytes, bytes});
    } else if (isH264) {
        classifyH264(nal, bytes, type);
    } else if (h265::isPicture(type)) {
        m_hasPicture = true;
        m_hasIrap = m_hasIrap || h265::isIrap(type);
    }
}

void AccessUnitAssembler::classifyH264(const std::uint8_t* nal, std::size_t bytes, unsigned type)
{
    if (type == h264::sei) {
        m_hasRecoveryPoint = m_hasRecoveryPoint || hasExactRecoveryPoint(nal, bytes);
    } else if (h264::isPicture(type)) {
        m_hasPicture = true;
        m_hasIrap = m_hasIrap || type == h264::idr;
        if (m_hasRecoveryPoint && m_onlyIntra) {
            BitReader reader(nal + 1, bytes - 1);
            reader.ue(); // first_mb_in_slice
            const std::uint32_t sliceType = reader.ue();
            m_onlyIntra = reader.good() && (sliceType == 2 || sliceType == 7);
        }
    }
}

void AccessUnitAssembler::applyParameterSets()
{
    std::vector<ParameterSets::Nal> nals;
    nals.reserve(m_parameterSets.size());
    for (const NalSpan& span : m_parameterSets)
        nals.push_back({m_batcher.unitData() + span.offset, span.bytes});
    if (!m_sets.apply(nals))
        return;
    m_track.parameterSets = m_sets.encoded();
    m_track.width = m_sets.width();
    m_track.height = m_sets.height();
    m_description.setTrack(m_track, m_sets.isComplete());
}

bool AccessUnitAssembler::isKey() const
{
    return m_hasIrap || (m_hasRecoveryPoint && m_onlyIntra);
}

} // namespace vms_sdk::rtsp
