#pragma once

#include "BackupTaskInfo.h"
#include "vemo_data_global.h"

#include <QDateTime>

namespace vemo_data {

/// Clock times of a day as moments, on days with a change of clocks too. A time of the hour that is skipped is the
/// moment of the change; one of the hour that passes twice is its first pass as the start of a span and its second as
/// the end, unless said otherwise, so that spans take that hour in whole. No state.
namespace BackupDay {

VEMO_DATA_EXPORT QDateTime startOf(const QDate& date, const QTime& time, bool secondPass = false);
VEMO_DATA_EXPORT QDateTime endOf(const QDate& date, const QTime& time, bool firstPass = false);
/// The clock shows the moment's time twice that day.
VEMO_DATA_EXPORT bool isDoubled(const QDateTime& moment);

VEMO_DATA_EXPORT QDateTime startOf(const BackupTaskInfo& task, const BackupTaskInfo::FileInfo& entry);
VEMO_DATA_EXPORT QDateTime endOf(const BackupTaskInfo& task, const BackupTaskInfo::FileInfo& entry);
/// Lets the entry begin or end at the moment, to the second.
VEMO_DATA_EXPORT void setStart(BackupTaskInfo::FileInfo* entry, const QDateTime& moment);
VEMO_DATA_EXPORT void setEnd(BackupTaskInfo::FileInfo* entry, const QDateTime& moment);

} // namespace BackupDay

} // namespace vemo_data
