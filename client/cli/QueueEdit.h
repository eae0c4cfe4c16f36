#pragma once

#include "CliCommand.h"

#include <DownloadTaskInfo.h>

#include <QCoreApplication>

namespace vemo_client {

/// What pause, resume, cancel, retry and clear do to stored tasks. Pure.
class QueueEdit final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_client::QueueEdit)

public:
    QueueEdit() = delete;

    struct Plan
    {
        QList<vemo_data::DownloadTaskInfo> changed; ///< with their new state
        QList<vemo_data::DownloadTaskInfo> removed;
        QStringList refusals; ///< a sentence for each id with which nothing can be done
    };

    static Plan plan(const QueueOptions& options, const QList<vemo_data::DownloadTaskInfo>& tasks);
};

} // namespace vemo_client
