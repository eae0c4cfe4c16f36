#pragma once

#include "LoginWords.h"

#include <DevRecord.h>

#include <QDateTime>
#include <QString>

namespace vemo_client {

/// What is shown of a stored recorder, in words. A value; made on the GUI thread.
struct DeviceFacts
{
    QString devId;
    QString name; ///< never empty: its host where it has none
    LoginWords::State state;
    LoginWords::Failure failure;
    RecorderLogins::Phase phase = RecorderLogins::Phase::Unknown;
    QString address;
    QString group;
    QString maker; ///< of the device
    QString model;
    QString firmware;
    QString serialNumber;
    QString use; ///< what it can be used for, empty while that is not known
    int channels = 0;
    bool supportsBackup = false;
    QDateTime lastSeen; ///< local; invalid: never
    QStringList channelNames;

    static DeviceFacts of(const QString& devId, const RecorderLogins& logins);

    QString lastSeenWords() const;
    /// All that a filter looks through, in small letters.
    QString searchWords() const;
};

} // namespace vemo_client
