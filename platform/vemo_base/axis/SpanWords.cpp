#include "SpanWords.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

namespace vemo_base {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("vemo_base::SpanWords", text);
}

} // namespace

QString SpanWords::clock(qint64 ms, const QDate& day)
{
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(ms);
    if (time.date() > day)
        return QStringLiteral("24:00:00");
    return time.time().toString(QStringLiteral("HH:mm:ss"));
}

QString SpanWords::span(const TimeSpan& span, const QDate& day)
{
    return tr("%1 To %2").arg(clock(span.beginMs, day), clock(span.endMs, day));
}

QString SpanWords::length(qint64 ms)
{
    const qint64 seconds = (qMax<qint64>(0, ms) + 500) / 1000;
    const qint64 minutes = seconds / 60;
    const qint64 hours = minutes / 60;
    if (hours > 0)
        return minutes % 60 == 0 ? tr("%1 h").arg(hours) : tr("%1 h %2 min").arg(hours).arg(minutes % 60);
    if (minutes > 0)
        return seconds % 60 == 0 ? tr("%1 min").arg(minutes) : tr("%1 min %2 s").arg(minutes).arg(seconds % 60);
    return tr("%1 s").arg(seconds);
}

QString SpanWords::share(qint64 partMs, qint64 wholeMs)
{
    constexpr qint64 minuteMs = 60'000;
    constexpr qint64 hourMs = 60 * minuteMs;
    QString part = length(partMs);
    if (partMs == 0 && wholeMs >= minuteMs)
        part = wholeMs < hourMs ? tr("%1 min").arg(0) : tr("%1 h").arg(0);
    return tr("%1 of %2").arg(part, length(wholeMs));
}

QString SpanWords::recordings(int count)
{
    return count == 1 ? tr("1 recording") : tr("%1 recordings").arg(count);
}

QString SpanWords::channels(int count)
{
    return count == 1 ? tr("1 channel") : tr("%1 channels").arg(count);
}

QString SpanWords::offset(int offsetMs)
{
    const int minutes = offsetMs / 60'000;
    return QStringLiteral("UTC%1%2:%3")
        .arg(QLatin1Char(minutes < 0 ? '-' : '+'))
        .arg(qAbs(minutes) / 60, 2, 10, QLatin1Char('0'))
        .arg(qAbs(minutes) % 60, 2, 10, QLatin1Char('0'));
}

QString SpanWords::clockNote(const DayAxis& axis, double position)
{
    const auto lies = [position](const DayAxis::Piece& piece) { return position >= piece.from && position < piece.to; };
    const QString before = offset(axis.firstOffsetMs());
    const QString behind = offset(axis.lastOffsetMs());
    const QVector<DayAxis::Piece> missing = axis.missing();
    if (std::any_of(missing.cbegin(), missing.cend(), lies))
        return tr("Clocks went forward here, from %1 to %2.").arg(before, behind);
    const QVector<DayAxis::Piece> doubled = axis.doubled();
    if (std::any_of(doubled.cbegin(), doubled.cend(), lies))
        return tr("This hour passed twice, at %1 and at %2.").arg(before, behind);
    return {};
}

QString SpanWords::swatchLine(const QColor& swatch, const QString& words)
{
    return QStringLiteral("<nobr><span style='color:%1'>&#9632;</span>&nbsp; %2</nobr>")
        .arg(swatch.name(), words.toHtmlEscaped());
}

} // namespace vemo_base
