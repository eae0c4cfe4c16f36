#include "Coverage.h"

#include <algorithm>

namespace vemo_client {

namespace {

Span clipped(const Span& span, const Span& to)
{
    return {std::max(span.begin, to.begin), std::min(span.end, to.end)};
}

bool isEmpty(const Span& span)
{
    return span.begin >= span.end;
}

/// In order of time, with what overlaps or touches made one.
QList<Span> united(QList<Span> spans)
{
    std::sort(spans.begin(), spans.end(), [](const Span& a, const Span& b) { return a.begin < b.begin; });
    QList<Span> result;
    for (const Span& span : qAsConst(spans)) {
        if (!result.isEmpty() && span.begin <= result.constLast().end)
            result.last().end = std::max(result.constLast().end, span.end);
        else
            result.append(span);
    }
    return result;
}

} // namespace

QList<Span> missingFootage(const QList<Span>& listed, const Span& asked, const Span& received, const QList<Span>& lost,
                           qint64 toleranceMs)
{
    QList<Span> footage;
    for (const Span& span : listed) {
        if (const Span inside = clipped(span, asked); !isEmpty(inside))
            footage.append(inside);
    }

    QList<Span> unseen = lost;
    if (isEmpty(received)) {
        unseen = {asked};
    } else {
        unseen.append({asked.begin, received.begin});
        unseen.append({received.end, asked.end});
    }

    QList<Span> missing;
    for (const Span& span : united(footage)) {
        for (const Span& hole : qAsConst(unseen)) {
            const Span part = clipped(hole, span);
            if (!isEmpty(part) && part.begin.msecsTo(part.end) > toleranceMs)
                missing.append(part);
        }
    }
    return united(missing);
}

} // namespace vemo_client
