#include "ChannelDayWords.h"

#include <axis/AxisRow.h>
#include <axis/SpanWords.h>
#include <ThemeTokens.h>

namespace vemo_client {

using vemo_base::AxisRow;
using vemo_base::SpanWords;
using vemo_base::TimeSpan;
using vemo_base::Token;

QString ChannelDayWords::state(const ChannelDay& day)
{
    if (day.state == ChannelDay::State::Searching)
        return tr("Searching...");
    if (day.state == ChannelDay::State::Failed)
        return day.error.message;
    if (day.state == ChannelDay::State::Found && day.recordings.isEmpty())
        return tr("No recording on this day");
    return {};
}

TimeSpan ChannelDayWords::stretchAt(const vemo_base::DayAxis& axis, const ChannelDay& day, qint64 ms)
{
    const int index = AxisRow::recordingAt(day.recordings, ms);
    TimeSpan stretch;
    if (index < 0) {
        AxisRow::gapAt(axis, day.recordings, ms, &stretch.beginMs, &stretch.endMs);
    } else {
        stretch.beginMs = qMax(axis.beginMs(), day.recordings.at(index).begin.toMSecsSinceEpoch());
        stretch.endMs = qMin(axis.endMs(), day.recordings.at(index).end.toMSecsSinceEpoch());
    }
    return stretch;
}

QString ChannelDayWords::tip(const vemo_base::DayAxis& axis, const ChannelDay& day, qint64 ms)
{
    const QString clockNote = SpanWords::clockNote(axis, axis.positionOf(ms));
    QString text = SpanWords::clock(ms, axis.day());
    if (day.state == ChannelDay::State::Found) {
        const int index = AxisRow::recordingAt(day.recordings, ms);
        const bool isAlarm = index >= 0 && day.recordings.at(index).type != 0;
        const Token token = index < 0 ? Token::AxisNoRecording : isAlarm ? Token::AxisAlarm : Token::AxisRecording;
        const QString word = index < 0 ? tr("No recording") : isAlarm ? tr("Alarm") : tr("Recording");
        text =
            SpanWords::swatchLine(vemo_base::themeColor(vemo_base::ThemeMode::Dark, token),
                                  SpanWords::span(stretchAt(axis, day, ms), axis.day()) + QLatin1String("  ") + word);
    } else if (day.state == ChannelDay::State::Failed) {
        text = day.error.message.toHtmlEscaped();
    }
    return clockNote.isEmpty() ? text : QString(text % QLatin1String("<br>") % clockNote);
}

} // namespace vemo_client
