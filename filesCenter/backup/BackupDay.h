#pragma once

#include <BackupTaskInfo.h>

#include <QDateTime>

namespace vemo_filesCenter {

/// Clock times of a day as moments, on days with a change of clocks too. A time of the hour that is skipped is the
/// moment of the change; one of the hour that passes twice is its first pass as the start of a span and its second as
/// the end, unless said otherwise, so that spans take that hour in whole. No state.
namespace BackupDay {

QDateTime startOf(const QDate& date, const QTime& time, bool secondPass = false);
QDateTime endOf(const QDate& date, const QTime& time, bool firstPass = false);
/// The clock shows the moment's time twice that day.
bool isDoubled(const QDateTime& moment);

QDateTime startOf(const vemo_data::BackupTaskInfo& task, const vemo_data::BackupTaskInfo::FileInfo& entry);
QDateTime endOf(const vemo_data::BackupTaskInfo& task, const vemo_data::BackupTaskInfo::FileInfo& entry);
/// Lets the entry begin or end at the moment, to the second.
void setStart(vemo_data::BackupTaskInfo::FileInfo* entry, const QDateTime& moment);
void setEnd(vemo_data::BackupTaskInfo::FileInfo* entry, const QDateTime& moment);

} // namespace BackupDay

} // namespace vemo_filesCenter
