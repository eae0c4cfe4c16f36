#include "DayAxis.h"

#include <QDateTime>

namespace vemo_base {

namespace {

constexpr double dayMs = 24 * 3600 * 1000.0;
constexpr int secondMs = 1000;

} // namespace

DayAxis::DayAxis(const QDate& day, const QTimeZone& zone)
    : m_day(day)
{
    if (!day.isValid() || !zone.isValid())
        return;
    m_wallMidnightMs = QDateTime(day, QTime(0, 0), Qt::UTC).toMSecsSinceEpoch();
    const QDateTime begin = day.startOfDay(zone);
    const QDateTime end = day.addDays(1).startOfDay(zone);
    Stretch stretch{begin.toMSecsSinceEpoch(), end.toMSecsSinceEpoch(), zone.offsetFromUtc(begin) * secondMs};
    const QTimeZone::OffsetDataList changes = zone.transitions(begin, end);
    for (const QTimeZone::OffsetData& change : changes) {
        const qint64 atMs = change.atUtc.toMSecsSinceEpoch();
        const int offsetMs = change.offsetFromUtc * secondMs;
        if (atMs <= stretch.beginMs || atMs >= end.toMSecsSinceEpoch() || offsetMs == stretch.offsetMs)
            continue;
        stretch.endMs = atMs;
        m_stretches.append(stretch);
        stretch = Stretch{atMs, end.toMSecsSinceEpoch(), offsetMs};
    }
    m_stretches.append(stretch);
}

qint64 DayAxis::beginMs() const
{
    return isValid() ? m_stretches.first().beginMs : 0;
}

qint64 DayAxis::endMs() const
{
    return isValid() ? m_stretches.last().endMs : 0;
}

int DayAxis::firstOffsetMs() const
{
    return isValid() ? m_stretches.first().offsetMs : 0;
}

int DayAxis::lastOffsetMs() const
{
    return isValid() ? m_stretches.last().offsetMs : 0;
}

double DayAxis::wallOf(const Stretch& stretch, qint64 utcMs) const
{
    return qBound(0.0, double(utcMs + stretch.offsetMs - m_wallMidnightMs) / dayMs, 1.0);
}

double DayAxis::positionOf(qint64 utcMs) const
{
    if (!isValid() || utcMs < beginMs())
        return 0;
    if (utcMs >= endMs())
        return 1;
    for (const Stretch& stretch : m_stretches) {
        if (utcMs < stretch.endMs)
            return wallOf(stretch, utcMs);
    }
    return 1;
}

qint64 DayAxis::timeAt(double position, Pass pass) const
{
    if (!isValid())
        return 0;
    const qint64 wallMs = m_wallMidnightMs + qRound64(qBound(0.0, position, 1.0) * dayMs);
    qint64 found = -1;
    qint64 change = endMs();
    for (const Stretch& stretch : m_stretches) {
        const qint64 utcMs = wallMs - stretch.offsetMs;
        if (utcMs < stretch.beginMs) {
            change = qMin(change, stretch.beginMs);
            continue;
        }
        const bool isLast = stretch.endMs == endMs();
        if (utcMs < stretch.endMs || (isLast && utcMs == stretch.endMs)) {
            found = utcMs;
            if (pass != Pass::Last)
                break;
        }
    }
    return found >= 0 ? found : change;
}

QVector<DayAxis::Piece> DayAxis::pieces(qint64 beginMs, qint64 endMs) const
{
    QVector<Piece> pieces;
    for (const Stretch& stretch : m_stretches) {
        const qint64 from = qMax(beginMs, stretch.beginMs);
        const qint64 to = qMin(endMs, stretch.endMs);
        if (from < to)
            pieces.append({wallOf(stretch, from), wallOf(stretch, to)});
    }
    return pieces;
}

QVector<DayAxis::Piece> DayAxis::missing() const
{
    QVector<Piece> pieces;
    double reached = 0;
    for (const Stretch& stretch : m_stretches) {
        const double from = wallOf(stretch, stretch.beginMs);
        if (from > reached)
            pieces.append({reached, from});
        reached = wallOf(stretch, stretch.endMs);
    }
    return pieces;
}

QVector<DayAxis::Piece> DayAxis::doubled() const
{
    QVector<Piece> pieces;
    for (int i = 1; i < m_stretches.size(); ++i) {
        const Stretch& before = m_stretches.at(i - 1);
        const Stretch& behind = m_stretches.at(i);
        const double from = wallOf(behind, behind.beginMs);
        const double to = wallOf(before, before.endMs);
        if (from < to)
            pieces.append({from, to});
    }
    return pieces;
}

int DayAxis::labelStep(double pixelsAnHour)
{
    constexpr double room = 24;
    for (const int step : {1, 2, 3, 6}) {
        if (pixelsAnHour * step >= room)
            return step;
    }
    return 12;
}

} // namespace vemo_base
