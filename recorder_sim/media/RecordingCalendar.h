#pragma once

#include <QDate>
#include <QTimeZone>

#include <cstdint>
#include <vector>

namespace recorder_sim {

/// A span of UTC time in nanoseconds since 1970, end exclusive.
struct TimeSpan
{
    std::int64_t beginNs = 0;
    std::int64_t endNs = 0;
};

/// A span without gap, wholly inside or wholly outside of an alarm.
struct RecordedSpan
{
    TimeSpan span;
    bool alarm = false;
};

/// When a channel has recorded: the days, their gaps and alarms, by rules that the README of this folder tells. Every
/// recorded piece lasts a whole number of GOPs. Immutable.
class RecordingCalendar final
{
public:
    /// Days begin at midnight of the zone; channels count from 1.
    RecordingCalendar(const QDate& firstDay, int days, const QTimeZone& zone, int channel);

    /// Recorded pieces without gaps, in order.
    const std::vector<TimeSpan>& segments() const { return m_segments; }
    const std::vector<TimeSpan>& alarms() const { return m_alarms; }
    TimeSpan whole() const { return {m_segments.front().beginNs, m_segments.back().endNs}; }

    /// The segments cut at the edges of alarms, those that touch `window`.
    std::vector<RecordedSpan> spans(const TimeSpan& window) const;

private:
    std::vector<TimeSpan> m_segments;
    std::vector<TimeSpan> m_alarms;
};

} // namespace recorder_sim
