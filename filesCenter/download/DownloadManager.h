#pragma once

#include "DownloadTasksTable.h"

#include <DownloadTaskInfo.h>

#include <QMap>
#include <QObject>
#include <QSet>

namespace vemo_filesCenter {

/// Keeps the three download tables in step with the stored tasks: every task goes to the table of its state, states
/// without a table to none. One object a process, on the GUI thread. The tables belong to the form; one that is not set
/// is passed over.
class DownloadManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DownloadManager)

public:
    static DownloadManager& instance();

    /// Null takes a table away, as its destructor does.
    void setDownloadingTable(DownloadTasksTable* table);
    void setFailedTable(DownloadTasksTable* table);
    void setSuccessTable(DownloadTasksTable* table);

    /// Hands every stored task to its table and announces the three counts. Waits for the store.
    void loadTasks();

private slots:
    void slotQuitSystem();
    void slotAddDownloadTasksToLocalDB(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void slotDeleteDownloadTasksFromLocalDB(const QMap<int, QSet<QString>>& idsByState);
    void slotUpdateDownloadTaskskInLocalDB(const QList<vemo_data::DownloadTaskInfo>& tasks);

private:
    DownloadManager();

    DownloadTasksTable* tableOf(int state) const;

    DownloadTasksTable* m_downloadingTable = nullptr;
    DownloadTasksTable* m_failedTable = nullptr;
    DownloadTasksTable* m_successTable = nullptr;
};

} // namespace vemo_filesCenter
