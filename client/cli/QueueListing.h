#pragma once

#include <DownloadTaskInfo.h>
#include <TaskFactsData.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

namespace vemo_client {

/// Stored download tasks as lines for programs and for people. Pure functions.
class QueueListing final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::QueueListing)

public:
    QueueListing() = delete;

    /// "downloading", "success", "failed", or "none" for a task that no table shows.
    static QString tableOf(int state);
    static bool isFailed(int state);
    /// Why the task failed, in one sentence; empty when it did not.
    static QString reasonOf(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts);
    /// Footage of the file was lost on its way.
    static bool isIncomplete(const vemo_data::TaskFacts& facts);

    /// One JSON object: id, state, table, channel, begin, end, path, bytes, reason, gaps.
    static QByteArray json(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts,
                           const QString& downloadFolder);
    static QString header();
    static QString row(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts);
};

} // namespace vemo_client
