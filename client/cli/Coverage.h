#pragma once

#include <QDateTime>
#include <QList>

namespace vemo_client {

/// A stretch of time, begin included, end not.
struct Span
{
    QDateTime begin;
    QDateTime end;
};

/// What of the footage that a recorder lists for a span did not arrive: what lies before the first and behind the last
/// frame, and what was lost in transfer. Stretches up to `toleranceMs` (a frame, the way to the next key frame) don't
/// count; footage listed by two recordings counts once.
QList<Span> missingFootage(const QList<Span>& listed, const Span& asked, const Span& received, const QList<Span>& lost,
                           qint64 toleranceMs);

} // namespace vemo_client
