#pragma once

#include "PlayerState.h"
#include "vemo_base_global.h"

#include <QDateTime>
#include <QString>
#include <QVector>

namespace vemo_base {

/// A span without footage, on the recording's clock.
struct RecordingGap
{
    qint64 beginMs = 0; ///< since 1970, UTC
    qint64 endMs = 0;
    QString cause;       ///< as the file tells it: "not recorded", "lost in transfer"
    bool closed = false; ///< the file plays on behind it; otherwise the file's time goes on through it
};

/// Maps the time of a recording's file to the recording's clock and back. A plain value, made from what the file tells:
/// its start and end (metadata com.vemo.start and com.vemo.end) and its chapters, which stand behind each gap and name
/// the clock time and the length of the gap. A file of another make has its creation time as start and no gaps, or no
/// clock at all: then clock times count from 0.
class VEMO_BASE_EXPORT RecordingClock final
{
public:
    RecordingClock() = default;
    explicit RecordingClock(const PlayerState& state);

    /// There is a time of day; otherwise clock times are ms from the file's begin.
    bool isKnown() const { return m_known; }
    qint64 beginMs() const { return m_beginMs; }
    qint64 endMs() const { return m_endMs; }
    const QVector<RecordingGap>& gaps() const { return m_gaps; }

    qint64 toClockMs(double mediaS) const;
    /// Times inside a closed gap lead to the footage behind it, those outside of the file to its ends.
    double toMediaS(qint64 clockMs) const;
    /// nullptr outside of gaps.
    const RecordingGap* gapAt(qint64 clockMs) const;

    /// "08:12:47", "0:03:07" without a clock.
    QString timeText(qint64 clockMs, bool withMs = false) const;

private:
    void readChapters(const QVector<PlayerChapter>& chapters, qint64 endMs);
    void fitToEnd(qint64 endMs);

    bool m_known = false;
    double m_durationS = 0;
    qint64 m_beginMs = 0;
    qint64 m_endMs = 0;
    QVector<RecordingGap> m_gaps; ///< in order, none overlaps another
};

} // namespace vemo_base
