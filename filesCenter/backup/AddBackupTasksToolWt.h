#pragma once

#include <SettingToolWt.h>

#include <QDate>

class QLabel;

namespace vemo_filesCenter {

class BackupTimeSegmentsSettingWt;
class RecordingsBackUpTree;

/// The side tool by which backup tasks are added to a day: one for each checked channel, all with the same time
/// segments. The store announces them. GUI thread, child of its host.
class AddBackupTasksToolWt final : public vemo_base::SettingToolWt
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AddBackupTasksToolWt)

public:
    explicit AddBackupTasksToolWt(QWidget* host);

    /// `taskCount`: tasks that the day has already.
    void setDay(const QDate& date, int taskCount);
    RecordingsBackUpTree* clientTree() const { return m_tree; }

private:
    void add();
    void showCounts();

    QDate m_date;
    int m_taskCount = 0;
    RecordingsBackUpTree* m_tree;
    BackupTimeSegmentsSettingWt* m_segments;
    QLabel* m_checkedWords;
    QLabel* m_dayWords;
};

} // namespace vemo_filesCenter
