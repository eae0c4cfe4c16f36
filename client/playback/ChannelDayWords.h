#pragma once

#include "ChannelDay.h"

#include <axis/DayAxis.h>

#include <QCoreApplication>

namespace vemo_client {

/// What the time line says of a channel's day. Plain functions.
class ChannelDayWords final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::ChannelDayWords)

public:
    ChannelDayWords() = delete;

    /// Why there is nothing to see yet, or at all; empty: there is.
    static QString state(const ChannelDay& day);
    /// The recording or the gap at a time, within the day.
    static vemo_base::TimeSpan stretchAt(const vemo_base::DayAxis& axis, const ChannelDay& day, qint64 ms);
    /// The hover card of a time, as rich text.
    static QString tip(const vemo_base::DayAxis& axis, const ChannelDay& day, qint64 ms);
};

} // namespace vemo_client
