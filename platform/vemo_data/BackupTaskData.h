#pragma once

#include "BackupTaskInfo.h"
#include "vemo_data_global.h"

#include <QObject>
#include <QStringList>

namespace vemo_data {

/// Every time segment of the task's day is settled by its entries.
VEMO_DATA_EXPORT bool isBackupCovered(const BackupTaskInfo& task);

/// The persisted backup tasks. One object a process, used on the GUI thread. Writes go to the database's thread and
/// return at once, and what they did is announced by DataSignals after it is on disk; those of one turn of the event
/// loop are stored by one commit. Reads wait for the database and see every write before them. A write that fails
/// changes nothing and is told by DataSignals::signalStoreNotice. Run-time fields of a task are not stored.
class VEMO_DATA_EXPORT BackupTaskData final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupTaskData)

public:
    static constexpr int maxSegments = 96;
    static constexpr int mostEmptyLooks = 3;

    static BackupTaskData& instance();

    /// How many tasks a day may have.
    static int maxBackupTasksCntOneDay();

    /// Stores all tasks or none. False when one of them is no task (no id, date or channel, an id that is stored
    /// already, no or too many segments, invalid times) or a day would have too many.
    bool addBackupTasks(const QList<BackupTaskInfo>& tasks);
    /// Forgets the tasks; their files stay. False when the list is empty.
    bool deleteBackupTasks(const QStringList& taskIds);
    /// Replaces the task's entries; one that is not stored (deleted meanwhile) changes nothing.
    void updateBackupResults(const QString& taskId, const QList<BackupTaskInfo::FileInfo>& fileInfos);
    /// Keeps what the device was found to hold; `held` merged and in order. `isDayOver`: the day had ended when it was
    /// searched, so that a device without a recording is not asked again and again. Not announced.
    void updateBackupHeld(const QString& taskId, const QList<BackupSpan>& held, bool isDayOver);

    /// Remembers that a finished file has to get into its manifest, until it did.
    void addUnlisted(const BackupUnlisted& file);
    void removeUnlisted(const QString& filePath);
    QList<BackupUnlisted> getUnlisted() const;

    /// The tasks of the day in the order of adding.
    QList<BackupTaskInfo> getBackupTasks(const QDate& date) const;
    /// The days of the month (1 to 31) that have tasks, ascending.
    QList<int> getBackupCalendar(int year, int month) const;
    /// The tasks up to and including that day whose segments are not settled yet, oldest day first; without those whose
    /// device was found empty mostEmptyLooks times after their day.
    QList<BackupTaskInfo> getAllOpenBackupTasks(const QDate& upTo) const;
    /// Every task, oldest day first.
    QList<BackupTaskInfo> getAllBackupTasks() const;

    /// Waits until everything written before is on disk; for the end of the program. False when it can't be written.
    bool flush();

private:
    BackupTaskData();
};

} // namespace vemo_data
