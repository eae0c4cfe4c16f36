#include "LocalClock.h"

namespace vemo_data {

namespace {

constexpr qint64 hourMs = 3'600'000;
constexpr qint64 dayMs = 24 * hourMs;
constexpr qint64 julianDayOf1970 = 2'440'588;

qint64 dayOf(qint64 ms)
{
    return ms >= 0 ? ms / dayMs : -((-ms + dayMs - 1) / dayMs);
}

} // namespace

void LocalClock::enterDay(qint64 day)
{
    // A clock time near a change may mean two times, so the hours around the day must be without one as well.
    constexpr qint64 marginMs = 3 * hourMs;
    const int before = QDateTime::fromMSecsSinceEpoch(day * dayMs - marginMs).offsetFromUtc();
    const int after = QDateTime::fromMSecsSinceEpoch((day + 1) * dayMs + marginMs).offsetFromUtc();
    m_day = day;
    m_offsetMs = before * qint64(1000);
    m_isUniform = before == after;
    m_isEntered = true;
}

QDateTime LocalClock::toLocal(qint64 utcMs)
{
    const qint64 day = dayOf(utcMs);
    if (!m_isEntered || day != m_day)
        enterDay(day);
    if (!m_isUniform)
        return QDateTime::fromMSecsSinceEpoch(utcMs);
    const qint64 localMs = utcMs + m_offsetMs;
    const qint64 localDay = dayOf(localMs);
    return {QDate::fromJulianDay(localDay + julianDayOf1970),
            QTime::fromMSecsSinceStartOfDay(static_cast<int>(localMs - localDay * dayMs)), Qt::LocalTime};
}

} // namespace vemo_data
