#pragma once

#include "devices/ChannelRef.h"

#include <axis/TimeSpan.h>
#include <VmsTypes.h>

#include <QList>
#include <QSet>
#include <QVector>

namespace vemo_client {

/// What a channel has of a day, as far as its recorder told it.
struct ChannelDay
{
    enum class State : int { Unknown = 0, Searching, Found, Failed };

    ChannelRef channel;
    QString name;
    State state = State::Unknown;
    vms_sdk::Error error; ///< with Failed
    QList<vms_sdk::VideoRecording> recordings;
    QSet<int> chosen;                   ///< indices of recordings to be fetched
    QVector<vemo_base::TimeSpan> owned; ///< what lies on this computer's disks
};

} // namespace vemo_client
