#include "media/RecordingCalendar.h"

#include "media/MediaLoop.h"

#include <QDateTime>
#include <QTime>

#include <algorithm>

namespace recorder_sim {
namespace {

struct DaySpan
{
    int beginSecond; ///< local time of day
    int endSecond;
};

constexpr int at(int hour, int minute, int second = 0)
{
    return (hour * 60 + minute) * 60 + second;
}

/// Gaps of one day, in order.
std::vector<DaySpan> gapsOf(int day, int channel)
{
    const int early = at(4, 0) + 600 * ((channel - 1) % 6);
    const int afternoon = at(17, 0) + 420 * (day % 5) + 60 * (channel % 4);
    const int evening = at(20, 0) + 120 * ((channel - 1) % 8);
    std::vector<DaySpan> gaps;
    gaps.push_back({early, early + 300});
    if (channel == 1)
        gaps.push_back({at(8, 30), at(8, 30, 20)});
    if (channel == 2)
        gaps.push_back({at(8, 40), at(8, 40, 20)});
    gaps.push_back({afternoon, afternoon + 90});
    gaps.push_back({evening, evening + 10 + 2 * (channel % 8)});
    return gaps;
}

std::vector<DaySpan> alarmsOf(int channel)
{
    std::vector<DaySpan> alarms;
    alarms.push_back({at(8, 15), at(8, 20)});
    alarms.push_back({at(14, 5), at(14, 6) + 60 * (channel % 3)});
    if (channel % 2 == 1)
        alarms.push_back({at(22, 10), at(22, 12)});
    return alarms;
}

std::int64_t utcNs(const QDate& day, int second, const QTimeZone& zone)
{
    return QDateTime(day, QTime(0, 0).addSecs(second), zone).toMSecsSinceEpoch() * 1'000'000;
}

} // namespace

RecordingCalendar::RecordingCalendar(const QDate& firstDay, int days, const QTimeZone& zone, int channel)
{
    std::int64_t begin = utcNs(firstDay, 0, zone);
    for (int day = 0; day < days; ++day) {
        const QDate date = firstDay.addDays(day);
        for (const DaySpan& gap : gapsOf(day, channel)) {
            m_segments.push_back({begin, utcNs(date, gap.beginSecond, zone)});
            begin = utcNs(date, gap.endSecond, zone);
        }
        for (const DaySpan& alarm : alarmsOf(channel))
            m_alarms.push_back({utcNs(date, alarm.beginSecond, zone), utcNs(date, alarm.endSecond, zone)});
    }
    m_segments.push_back({begin, utcNs(firstDay.addDays(days), 0, zone)});
    static_assert(MediaLoop::gopNs == 2 * nsPerSecond, "the gaps above begin and end at even seconds");
}

std::vector<RecordedSpan> RecordingCalendar::spans(const TimeSpan& window) const
{
    std::vector<RecordedSpan> out;
    for (const TimeSpan& segment : m_segments) {
        if (segment.endNs <= window.beginNs || segment.beginNs >= window.endNs)
            continue;
        std::int64_t begin = segment.beginNs;
        for (const TimeSpan& alarm : m_alarms) {
            const TimeSpan inside{std::max(alarm.beginNs, begin), std::min(alarm.endNs, segment.endNs)};
            if (inside.beginNs >= inside.endNs)
                continue;
            if (begin < inside.beginNs)
                out.push_back({{begin, inside.beginNs}, false});
            out.push_back({inside, true});
            begin = inside.endNs;
        }
        if (begin < segment.endNs)
            out.push_back({{begin, segment.endNs}, false});
    }
    out.erase(std::remove_if(out.begin(), out.end(),
                             [&](const RecordedSpan& s) {
                                 return s.span.endNs <= window.beginNs || s.span.beginNs >= window.endNs;
                             }),
              out.end());
    return out;
}

} // namespace recorder_sim
