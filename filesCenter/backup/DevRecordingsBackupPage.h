#pragma once

#include <QDate>
#include <QPointer>
#include <QWidget>

class QPushButton;
class QScrollArea;
class QStackedLayout;
class QToolButton;

namespace vemo_base {
class DateSelectLineEdit;
class DiskFreeSpaceBar;
class EmptyStateWt;
class PageHeader;
class ProgressButton;
} // namespace vemo_base

namespace vemo_filesCenter {

class AddBackupTasksToolWt;
class BackupLegendWt;
class BackupTasksBox;

/// The page of the planned backups: the day with its tasks, a row each, and what is done with all of them at once. The
/// tasks of a day are read when the page is first shown and when the day changes; from then on the rows follow the
/// store. Nothing starts by itself. GUI thread.
class DevRecordingsBackupPage final : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DevRecordingsBackupPage)

public:
    explicit DevRecordingsBackupPage(QWidget* parent = nullptr);

    void showDate(const QDate& date);
    BackupTasksBox* box() const { return m_box; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeBar();
    QPushButton* makeButton(const QString& objectName, const QString& icon, const QString& text);
    void connectBox();

    void changeDate(const QDate& date);
    void load();
    bool hasTasks();
    void addTasks();
    void deleteTasks();
    void applyTasks();
    void exportTasks();
    void showSummary();
    void showBody();
    void markMonth(int year, int month);
    void setDiskPath();

    QDate m_date;
    bool m_isLoaded = false;
    vemo_base::PageHeader* m_header;
    vemo_base::DateSelectLineEdit* m_dateField;
    vemo_base::DiskFreeSpaceBar* m_diskFreeSpace;
    QPushButton* m_apply = nullptr;
    QPushButton* m_exportBt = nullptr;
    BackupLegendWt* m_legend;
    vemo_base::ProgressButton* m_exportProgress;
    QToolButton* m_cancelExport;
    QStackedLayout* m_body;
    QScrollArea* m_scroll;
    BackupTasksBox* m_box;
    vemo_base::EmptyStateWt* m_empty = nullptr;
    QPointer<AddBackupTasksToolWt> m_addTool;
};

} // namespace vemo_filesCenter
