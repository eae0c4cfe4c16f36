#pragma once

#include <BackupTaskInfo.h>

#include <QCoreApplication>
#include <QDate>

#include <functional>

class QWidget;

namespace vemo_filesCenter {

/// The day that backup tasks are applied to: picked from a month that marks the days with tasks. GUI thread.
class BackupTargetDay final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_filesCenter::BackupTargetDay)

public:
    BackupTargetDay() = delete;

    /// Shows the month below `button` and returns; `take` is called with the day that was picked.
    static void pick(QWidget* button, const QDate& date, const std::function<void(const QDate& day)>& take);
    /// Copies the tasks to another day, with new ids and without files, and tells that it was done. Refused, with an
    /// alert, for the day they are of and for a day that would have too many.
    static void apply(const QList<vemo_data::BackupTaskInfo>& tasks, const QDate& day);
};

} // namespace vemo_filesCenter
