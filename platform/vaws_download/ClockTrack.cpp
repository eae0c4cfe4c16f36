#include "ClockTrack.h"

#include "BoxWriter.h"
#include "ClockText.h"
#include "FragmentBuilder.h"
#include "GapTimeline.h"

#include <algorithm>
#include <vector>

namespace vaws {
namespace {

constexpr std::uint32_t timescale = videoTimescale; ///< so that texts change with pictures, to the tick
constexpr std::uint16_t soundOnlyWidth = 640;
constexpr std::uint16_t soundOnlyHeight = 360;
constexpr std::uint32_t white = 0xffffffff;
constexpr std::uint32_t halfBlack = 0x00000080;
constexpr std::uint32_t shownUnasked =
    0xc0000000; ///< all samples are forced: some players show no other text by themselves
constexpr std::int64_t nearlySecondNs = nsPerMs;            ///< a text that would last less is left out
constexpr std::int64_t longestStillNs = 3600 * nsPerSecond; ///< one picture that stands longer has no clock

/// Where the second ends in which `utcNs` lies.
std::int64_t secondAfter(std::int64_t utcNs)
{
    return ((utcNs + nearlySecondNs) / nsPerSecond + 1) * nsPerSecond;
}

/// TextSampleEntry, 3GPP TS 26.245 clause 5.16.
void sampleEntry(BoxWriter& out, const TrackFormat& format, std::uint8_t fontSize)
{
    const std::string font = "Sans-Serif";
    out.begin("tx3g");
    out.zeros(6);
    out.u16(1); // data_reference_index
    out.u32(shownUnasked);
    out.u8(1);    // centred
    out.u8(0xff); // at the bottom
    out.u32(halfBlack);
    out.u16(0); // the text box: all of the track
    out.u16(0);
    out.u16(format.height);
    out.u16(format.width);
    out.u16(0); // the style: of every character
    out.u16(0);
    out.u16(1);
    out.u8(0);
    out.u8(fontSize);
    out.u32(white);
    out.begin("ftab");
    out.u16(1);
    out.u16(1);
    out.u8(static_cast<std::uint8_t>(font.size()));
    out.text(font);
    out.end();
    out.end();
}

} // namespace

TrackFormat ClockTrack::format(std::uint32_t trackId, const TrackFormat* video)
{
    const std::uint16_t height = video && video->height > 0 ? video->height : soundOnlyHeight;
    const auto fontSize = static_cast<std::uint8_t>(std::clamp(height / 20, 10, 200));
    TrackFormat format;
    format.trackId = trackId;
    format.kind = TrackKind::Text;
    format.timescale = timescale;
    format.width = video && video->width > 0 ? video->width : soundOnlyWidth;
    format.height = static_cast<std::uint16_t>(std::min<int>(height, fontSize * 2));
    format.sampleEntry = BoxWriter::toBytes([&](BoxWriter& out) { sampleEntry(out, format, fontSize); });
    return format;
}

void ClockTrack::append(FragmentBuilder& builder, const GapTimeline& timeline, std::int64_t beginNs, std::int64_t endNs,
                        const std::string& text) const
{
    std::vector<std::uint8_t> sample{static_cast<std::uint8_t>(text.size() >> 8),
                                     static_cast<std::uint8_t>(text.size())};
    sample.insert(sample.end(), text.begin(), text.end());
    const std::int64_t mediaNs = timeline.toMediaNs(beginNs);
    FragmentBuilder::Frame frame;
    frame.track = m_track;
    frame.presentation = nsToTicks(mediaNs, timescale);
    frame.duration = static_cast<std::uint32_t>(nsToTicks(mediaNs + endNs - beginNs, timescale) - frame.presentation);
    frame.key = true;
    frame.data = sample.data();
    frame.bytes = sample.size();
    builder.append(frame);
}

void ClockTrack::advance(FragmentBuilder& builder, const GapTimeline& timeline, std::int64_t utcNs)
{
    m_begun = m_begun || m_nextNs <= utcNs;
    if (utcNs - m_nextNs > longestStillNs) {
        append(builder, timeline, m_nextNs, utcNs, {});
        m_nextNs = utcNs;
    }
    while (m_nextNs <= utcNs) {
        const std::int64_t endNs = secondAfter(m_nextNs);
        append(builder, timeline, m_nextNs, endNs, localDateTimeText(m_nextNs + nearlySecondNs));
        m_nextNs = endNs;
    }
}

void ClockTrack::beginGap(FragmentBuilder& builder, const GapTimeline& timeline, const Gap& gap)
{
    if (!gap.collapsed && m_begun)
        append(builder, timeline, gap.beginNs, gap.endNs, {});
    m_nextNs = m_begun ? gap.endNs : std::max(m_nextNs, gap.endNs);
}

} // namespace vaws
