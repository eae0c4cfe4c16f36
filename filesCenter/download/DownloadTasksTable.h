#pragma once

#include <DownloadTaskInfo.h>

#include <QList>
#include <QSet>

namespace vemo_filesCenter {

using vemo_data::DownloadTaskInfo;

/// What the manager asks of a download table.
class DownloadTasksTable
{
public:
    /// Where an added task comes from.
    enum class Source { StartUp, Store };

    DownloadTasksTable() = default;
    DownloadTasksTable(const DownloadTasksTable&) = delete;
    DownloadTasksTable& operator=(const DownloadTasksTable&) = delete;
    virtual ~DownloadTasksTable() = default;

    virtual void addTask(const DownloadTaskInfo& task, Source source) = 0;
    /// As if each were added in this order, but in one go; the caller announces the count and renumbers afterwards.
    virtual void addTasks(const QList<DownloadTaskInfo>& tasks, Source source)
    {
        for (const DownloadTaskInfo& task : tasks)
            addTask(task, source);
    }
    virtual void updateTask(const DownloadTaskInfo& task) = 0;
    virtual void removeTasks(const QSet<QString>& taskIds) = 0;
    virtual bool hasTask(const QString& taskId) const = 0;
    virtual int taskCount() const = 0;
    /// After a bulk change.
    virtual void updateOrderNumbers() = 0;
    /// The downloading table's: start what waits; stop what runs and store how far it got.
    virtual void startDownloading() {}
    virtual void stopAllDownloads() {}
};

} // namespace vemo_filesCenter
