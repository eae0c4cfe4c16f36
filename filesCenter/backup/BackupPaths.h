#pragma once

#include <BackupTaskInfo.h>

#include <QString>

namespace vemo_filesCenter {

/// Where backups lie: "<root>/<day>/<channel>@<device>_<channel number>/<start>-<end>.mp4", times as "hhmmss".
namespace BackupPaths {

/// The day's folder name, in the person's date format and legal as a name.
QString dayFolderName(const QDate& date);
/// The channel's present name; where no device has told one, that at creation.
QString channelName(const vemo_data::BackupTaskInfo& task);
/// The channel's folder name, by that name.
QString channelFolderName(const vemo_data::BackupTaskInfo& task);
/// The day's folder of the task's channel.
QString folder(const QString& root, const vemo_data::BackupTaskInfo& task);
/// A link stands in place of the day's or the channel's folder: what is written there lies elsewhere.
bool leadsElsewhere(const QString& filePath);
QString fileName(const QTime& start, const QTime& end);
/// Full path of a piece below the configured root.
QString filePath(const vemo_data::BackupTaskInfo& task, const QTime& start, const QTime& end);

} // namespace BackupPaths

} // namespace vemo_filesCenter
