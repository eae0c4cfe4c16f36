#pragma once

#include "vemo_data_global.h"

#include <QDateTime>

namespace vemo_data {

/// Turns many UTC times into local ones. Equal to QDateTime::fromMSecsSinceEpoch(), at about half of its cost, because
/// the zone is only asked for days on which its clocks change. One thread.
class VEMO_DATA_EXPORT LocalClock final
{
public:
    QDateTime toLocal(qint64 utcMs);

private:
    void enterDay(qint64 day);

    qint64 m_day = 0; ///< since 1970, UTC
    qint64 m_offsetMs = 0;
    bool m_isEntered = false;
    bool m_isUniform = false; ///< one offset all day
};

} // namespace vemo_data
