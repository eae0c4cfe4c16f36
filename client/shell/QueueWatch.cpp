#include "QueueWatch.h"

#include <DataSignals.h>
#include <SystemMsg.h>

#include <QStringList>

#include <algorithm>

namespace vemo_client {

QueueWatch::QueueWatch(QObject* parent)
    : QObject(parent)
{
    const vemo_data::DataSignals& data = vemo_data::DataSignals::instance();
    connect(&vemo_contact::SystemMsg::instance(), &vemo_contact::SystemMsg::signalDownloadQueueChanged, this,
            &QueueWatch::takeFigures);
    connect(&data, &vemo_data::DataSignals::signalUpdateDownloadTasksInLocalDB, this, &QueueWatch::takeTasks);
    connect(&data, &vemo_data::DataSignals::signalAddDownloadTasksToLocalDB, this, &QueueWatch::takeTasks);
}

QString QueueWatch::words(const Figures& figures)
{
    QStringList parts;
    if (figures.running > 0 || figures.waiting > 0)
        parts << tr("%1 running").arg(figures.running) << tr("%1 waiting").arg(figures.waiting);
    else if (figures.retrying > 0)
        parts << tr("%1 to be retried").arg(figures.retrying);
    else if (figures.paused > 0)
        parts << tr("%1 paused").arg(figures.paused);
    else
        parts << tr("empty");
    return parts.join(QLatin1String(", "));
}

QString QueueWatch::allWords(const Figures& figures)
{
    return tr("%1 running, %2 waiting, %3 paused, %4 to be retried")
        .arg(figures.running)
        .arg(figures.waiting)
        .arg(figures.paused)
        .arg(figures.retrying);
}

void QueueWatch::takeFigures(int running, int waiting, int paused, int retrying)
{
    const bool wasBusy = m_figures.isBusy();
    m_figures = Figures{running, waiting, paused, retrying};
    emit signalChanged();
    if (!wasBusy || m_figures.isBusy())
        return;
    const auto done = std::count(m_ended.cbegin(), m_ended.cend(), int(vemo_data::TaskSucceeded));
    const int failed = m_ended.size() - int(done);
    m_ended.clear();
    emit signalEmptied(int(done), failed);
}

void QueueWatch::takeTasks(const QList<vemo_data::DownloadTaskInfo>& tasks)
{
    for (const vemo_data::DownloadTaskInfo& task : tasks) {
        if (task.state >= vemo_data::TaskSucceeded)
            m_ended.insert(task.taskId, task.state);
        else
            m_ended.remove(task.taskId);
    }
}

} // namespace vemo_client
