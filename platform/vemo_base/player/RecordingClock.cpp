#include "RecordingClock.h"

#include <QPair>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace vemo_base {

namespace {

constexpr qint64 secondMs = 1000;
constexpr qint64 minuteMs = 60 * secondMs;
constexpr qint64 hourMs = 60 * minuteMs;
/// Zones differ by whole quarters of an hour, so that what is left of a time of day is the same in all of them.
constexpr qint64 quarterMs = 15 * minuteMs;

struct ChapterText
{
    qint64 timeOfDayMs = 0;
    qint64 gapMs = 0; ///< 0: no gap in front of it
    QString cause;
};

/// "08:30:20, after 3 min 20 s not recorded" or the time alone.
bool parseChapter(const QString& title, ChapterText& chapter)
{
    static const QRegularExpression form(QStringLiteral(
        "^(\\d\\d):(\\d\\d):(\\d\\d)(?:, after (?:(\\d{1,6}) h)? ?(?:(\\d{1,6}) min)? ?(?:(\\d{1,6}) s)? (\\D.*))?$"));
    const QRegularExpressionMatch match = form.match(title);
    if (!match.hasMatch())
        return false;
    const auto number = [&match](int index) { return match.capturedRef(index).toLongLong(); };
    chapter.timeOfDayMs = number(1) * hourMs + number(2) * minuteMs + number(3) * secondMs;
    chapter.gapMs = number(4) * hourMs + number(5) * minuteMs + number(6) * secondMs;
    chapter.cause = match.captured(7);
    return true;
}

qint64 modulo(qint64 value, qint64 divisor)
{
    return (value % divisor + divisor) % divisor;
}

qint64 parseUtcMs(const QString& text)
{
    const QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
    return time.isValid() ? time.toMSecsSinceEpoch() : 0;
}

qint64 toMs(double seconds)
{
    return static_cast<qint64>(std::llround(seconds * secondMs));
}

} // namespace

RecordingClock::RecordingClock(const PlayerState& state)
    : m_durationS(std::isfinite(state.durationS) ? qMax(0.0, state.durationS) : 0)
{
    m_beginMs = parseUtcMs(state.recordingStart);
    if (m_beginMs > 0) {
        m_known = true;
        const qint64 endMs = parseUtcMs(state.recordingEnd);
        readChapters(state.chapters, endMs);
        fitToEnd(endMs);
    } else {
        m_beginMs = parseUtcMs(state.creationTime);
        m_known = m_beginMs > 0;
        m_beginMs = qMax<qint64>(m_beginMs, 0);
    }
    m_endMs = toClockMs(m_durationS);
}

void RecordingClock::readChapters(const QVector<PlayerChapter>& chapters, qint64 endMs)
{
    QVector<QPair<qint64, ChapterText>> gaps; // with the chapter's place in the file
    qint64 firstOfDay = -1;
    qint64 gapsMs = 0;
    for (const PlayerChapter& entry : chapters) {
        ChapterText chapter;
        if (!std::isfinite(entry.startS) || entry.startS < 0 || entry.startS > m_durationS ||
            !parseChapter(entry.title, chapter))
            continue;
        if (firstOfDay < 0)
            firstOfDay = chapter.timeOfDayMs;
        if (chapter.gapMs <= 0 || toMs(entry.startS) <= 0)
            continue;
        gaps.append({toMs(entry.startS), chapter});
        gapsMs += chapter.gapMs;
    }
    // A download closes its gaps, a cut from local files keeps them: the file's length tells.
    const bool closed = endMs <= m_beginMs || endMs - m_beginMs - toMs(m_durationS) > gapsMs / 2;
    qint64 closedMs = 0;
    for (const auto& [placeMs, chapter] : qAsConst(gaps)) {
        RecordingGap gap;
        gap.cause = chapter.cause;
        gap.closed = closed;
        if (closed) {
            gap.beginMs = m_beginMs + placeMs + closedMs;
            // The time of day is exact to the second, and right in every zone but for whole quarters of an hour.
            const qint64 estimate = gap.beginMs + chapter.gapMs;
            const qint64 ofDay = m_beginMs / secondMs * secondMs + chapter.timeOfDayMs - firstOfDay;
            gap.endMs = estimate + modulo(ofDay - estimate + quarterMs / 2, quarterMs) - quarterMs / 2;
            gap.endMs = qMax(gap.beginMs + 1, gap.endMs);
        } else {
            gap.endMs = m_beginMs + placeMs;
            gap.beginMs = qMax(m_beginMs, gap.endMs - chapter.gapMs);
        }
        if (!m_gaps.isEmpty() && gap.beginMs < m_gaps.last().endMs)
            continue;
        m_gaps.append(gap);
        if (closed)
            closedMs += gap.endMs - gap.beginMs;
    }
}

/// The texts count whole seconds. The file's end tells what is missing in all of them together.
void RecordingClock::fitToEnd(qint64 endMs)
{
    const auto closed =
        std::count_if(m_gaps.cbegin(), m_gaps.cend(), [](const RecordingGap& gap) { return gap.closed; });
    if (endMs <= m_beginMs || closed == 0)
        return;
    const qint64 missing = endMs - toClockMs(m_durationS);
    if (qAbs(missing) > closed * 2 * secondMs)
        return; // another meaning of the end, or a chapter that was not understood
    qint64 shift = 0;
    qint64 nth = 0;
    for (RecordingGap& gap : m_gaps) {
        gap.beginMs += shift;
        if (gap.closed)
            shift = missing * ++nth / closed;
        gap.endMs = qMax(gap.beginMs, gap.endMs + shift);
    }
}

qint64 RecordingClock::toClockMs(double mediaS) const
{
    qint64 clockMs = m_beginMs + toMs(qBound(0.0, mediaS, m_durationS));
    for (const RecordingGap& gap : m_gaps) {
        if (!gap.closed)
            continue;
        if (clockMs < gap.beginMs)
            break;
        clockMs += gap.endMs - gap.beginMs;
    }
    return clockMs;
}

double RecordingClock::toMediaS(qint64 clockMs) const
{
    qint64 mediaMs = clockMs - m_beginMs;
    for (const RecordingGap& gap : m_gaps) {
        if (!gap.closed)
            continue;
        if (clockMs < gap.beginMs)
            break;
        mediaMs -= qMin(clockMs, gap.endMs) - gap.beginMs;
    }
    return qBound(0.0, static_cast<double>(mediaMs) / secondMs, m_durationS);
}

const RecordingGap* RecordingClock::gapAt(qint64 clockMs) const
{
    const auto gap = std::find_if(m_gaps.cbegin(), m_gaps.cend(), [clockMs](const RecordingGap& candidate) {
        return clockMs >= candidate.beginMs && clockMs < candidate.endMs;
    });
    return gap == m_gaps.cend() ? nullptr : &*gap;
}

QString RecordingClock::timeText(qint64 clockMs, bool withMs) const
{
    if (m_known)
        return QDateTime::fromMSecsSinceEpoch(clockMs).toString(withMs ? QStringLiteral("HH:mm:ss.zzz")
                                                                       : QStringLiteral("HH:mm:ss"));
    const QTime time = QTime::fromMSecsSinceStartOfDay(static_cast<int>(clockMs % hourMs));
    return QString::number(clockMs / hourMs) +
           time.toString(withMs ? QStringLiteral(":mm:ss.zzz") : QStringLiteral(":mm:ss"));
}

} // namespace vemo_base
