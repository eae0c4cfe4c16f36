#pragma once

#include <BackupTaskInfo.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

namespace vemo_client {

/// Stored backup tasks as lines for programs and for people. Pure functions.
class BackupListing final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::BackupListing)

public:
    BackupListing() = delete;

    /// "finished": every segment is settled; "partial": some of it; "open": nothing yet.
    static QString stateOf(const vemo_data::BackupTaskInfo& task);
    /// id, date, channel, name, state, files (each begin, end, path, finished), held and safe in seconds, null while
    /// the recorder was never searched.
    static QJsonObject object(const vemo_data::BackupTaskInfo& task);
    static QString header();
    static QString row(const vemo_data::BackupTaskInfo& task);
};

} // namespace vemo_client
