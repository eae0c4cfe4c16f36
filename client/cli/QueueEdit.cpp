#include "QueueEdit.h"

#include "QueueListing.h"

#include <QSet>

namespace vemo_client {

namespace {

using Action = QueueOptions::Action;

bool isFor(Action action, int state)
{
    const bool failed = QueueListing::isFailed(state) || QueueListing::tableOf(state) == QLatin1String("none");
    switch (action) {
    case Action::Pause:
        return state == vemo_data::TaskWaiting;
    case Action::Resume:
        return state == vemo_data::TaskPaused;
    case Action::Cancel:
        return state == vemo_data::TaskWaiting || state == vemo_data::TaskPaused;
    case Action::Retry:
        return failed;
    case Action::Clear:
        return failed || state == vemo_data::TaskSucceeded;
    default:
        return false;
    }
}

bool removes(Action action)
{
    return action == Action::Cancel || action == Action::Clear;
}

} // namespace

QueueEdit::Plan QueueEdit::plan(const QueueOptions& options, const QList<vemo_data::DownloadTaskInfo>& tasks)
{
    Plan plan;
    QSet<QString> unknown(options.ids.cbegin(), options.ids.cend());
    for (const vemo_data::DownloadTaskInfo& task : tasks) {
        const bool named = unknown.remove(task.taskId);
        if (!named && !options.all)
            continue;
        if (!isFor(options.action, task.state)) {
            if (named)
                plan.refusals.append(tr("The task %1 is in no state for that.").arg(task.taskId));
            continue;
        }
        if (removes(options.action)) {
            plan.removed.append(task);
            continue;
        }
        vemo_data::DownloadTaskInfo changed = task;
        changed.state = options.action == Action::Pause ? vemo_data::TaskPaused : vemo_data::TaskWaiting;
        plan.changed.append(changed);
    }
    for (const QString& id : qAsConst(unknown))
        plan.refusals.append(tr("There is no task %1.").arg(id));
    return plan;
}

} // namespace vemo_client
