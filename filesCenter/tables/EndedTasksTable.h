#pragma once

#include "TaskPageFrame.h"
#include "TasksTableCommonOper.h"

#include "download/DownloadTasksTable.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QSet>
#include <QVector>
#include <QWidget>

#include <functional>

class QMenu;

namespace vemo_base {
class TableWidget;
}

namespace vemo_filesCenter {

/// What the pages of finished and of failed downloads have in common: rows with the newest at the top, whose fifth
/// column tells how the task ended; deletion, menus, counts. It has no signals and slots of its own, so that those of
/// a page keep their indexes. A page calls endTable() in its destructor. GUI thread.
class EndedTasksTable : public QWidget, public DownloadTasksTable
{
    Q_DECLARE_TR_FUNCTIONS(vemo_filesCenter::EndedTasksTable)
    Q_DISABLE_COPY_MOVE(EndedTasksTable)

public:
    ~EndedTasksTable() override;

    void removeTasks(const QSet<QString>& taskIds) override { removeTaskRows(taskIds); }
    bool hasTask(const QString& taskId) const override { return m_tasks.contains(taskId); }
    int taskCount() const override;
    void updateOrderNumbers() override;

    void removeTaskRows(const QSet<QString>& keys);
    /// Deletes the checked tasks when the person agrees.
    void batchDelete();

protected:
    enum Column : int { CheckColumn = 0, ChannelColumn, RangeColumn, LocationColumn, EndColumn, OperColumn };

    /// `endTitle` is the header of the fifth column, `operWidth` the room of the last one.
    EndedTasksTable(QWidget* parent, const TaskPageFrame::Look& look, const QString& endTitle,
                    const QString& objectName, int operWidth);

    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    virtual QWidget* makeOperWt(const DownloadTaskInfo& task) = 0;
    /// What the fifth column shows.
    virtual void fillEnd(int row, const DownloadTaskInfo& task) = 0;
    virtual QString endText(const DownloadTaskInfo& task) const = 0;
    virtual void showEndToolTip(const QString& key, const QPoint& globalPos) = 0;
    virtual QString summary(int count) const = 0;
    virtual void emitCount(int count) = 0;
    /// Enter on a row.
    virtual void activate(const QString& key) = 0;
    /// Asks the person and deletes the task.
    virtual void clean(const QString& key) = 0;
    virtual void fillMenu(QMenu* menu, const QString& key) = 0;
    /// The task is about to leave the table, or the person deletes it.
    virtual void letGo(const QString& key) = 0;

    void endTable();
    /// Those that are not there yet, all in one go.
    QList<DownloadTaskInfo> insertAtTop(const QList<DownloadTaskInfo>& tasks);
    void insertAtTop(const DownloadTaskInfo& task);
    void announceCount();
    void refreshSummary();
    void addEntry(QMenu* menu, const char* icon, const QString& text, bool isEnabled, const std::function<void()>& act);
    void addDetailsEntry(QMenu* menu, const QString& key);
    static void alert(const QString& text);

    TaskPageFrame* m_frame;
    vemo_base::TableWidget* m_table;
    TasksTableCommonOper m_tasks;

private:
    void fillRow(int row, const DownloadTaskInfo& task);
    void openRowMenu(int row, const QPoint& globalPos);
};

} // namespace vemo_filesCenter
