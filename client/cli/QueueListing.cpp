#include "QueueListing.h"

#include "DownloadReport.h"
#include "TimeText.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace vemo_client {

namespace {

constexpr double megabyte = 1e6;

QString line(const QString& id, const QString& state, const QString& channel, const QString& begin, const QString& end,
             const QString& size, const QString& rest)
{
    return id.leftJustified(36) % QLatin1String("  ") % state.leftJustified(9) % QLatin1String("  ") %
           channel.rightJustified(7) % QLatin1String("  ") % begin.leftJustified(19) % QLatin1String("  ") %
           end.leftJustified(19) % QLatin1String("  ") % size.rightJustified(9) % QLatin1String("  ") % rest;
}

QJsonValue timeOrNull(const QDateTime& time)
{
    return time.isValid() ? QJsonValue(TimeText::iso(time)) : QJsonValue();
}

} // namespace

bool QueueListing::isFailed(int state)
{
    return state >= vemo_data::TaskLoginFailed && state <= vemo_data::TaskGetUrlFailed;
}

QString QueueListing::tableOf(int state)
{
    if (state == vemo_data::TaskWaiting || state == vemo_data::TaskPaused)
        return QStringLiteral("downloading");
    if (state == vemo_data::TaskSucceeded)
        return QStringLiteral("success");
    return isFailed(state) ? QStringLiteral("failed") : QStringLiteral("none");
}

QString QueueListing::reasonOf(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts)
{
    if (tableOf(task.state) == QLatin1String("downloading") || task.state == vemo_data::TaskSucceeded)
        return {};
    if (!facts.reason.isEmpty())
        return facts.reason;
    switch (task.state) {
    case vemo_data::TaskLoginFailed:
        return tr("The recorder refused the login.");
    case vemo_data::TaskConnectFailed:
        return tr("The recorder could not be reached.");
    case vemo_data::TaskAbnormal:
        return tr("The download broke off.");
    case vemo_data::TaskInvalidFile:
        return tr("The file is missing or can't be used.");
    case vemo_data::TaskGetUrlFailed:
        return tr("The recorder gave no address to replay from.");
    default:
        return tr("The reason is not known.");
    }
}

bool QueueListing::isIncomplete(const vemo_data::TaskFacts& facts)
{
    const QList<DownloadReport::Gap> gaps = DownloadReport::fromJson(facts.report).gaps;
    return std::any_of(gaps.cbegin(), gaps.cend(),
                       [](const DownloadReport::Gap& gap) { return gap.cause == QLatin1String("lost in transfer"); });
}

QByteArray QueueListing::json(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts,
                              const QString& downloadFolder)
{
    QJsonArray gaps;
    const DownloadReport report = DownloadReport::fromJson(facts.report);
    for (const DownloadReport::Gap& gap : report.gaps)
        gaps.append(QJsonObject{{QStringLiteral("begin"), timeOrNull(gap.begin)},
                                {QStringLiteral("end"), timeOrNull(gap.end)},
                                {QStringLiteral("cause"), gap.cause}});
    // Until it is started a task has a bare name, which the folder of that time will be put before.
    const QString path =
        QFileInfo(task.savePath).isAbsolute() ? task.savePath : QDir(downloadFolder).filePath(task.savePath);
    return QJsonDocument(QJsonObject{{QStringLiteral("id"), task.taskId},
                                     {QStringLiteral("state"), task.state},
                                     {QStringLiteral("table"), tableOf(task.state)},
                                     {QStringLiteral("channel"), task.channelNo},
                                     {QStringLiteral("begin"), timeOrNull(task.beginTime)},
                                     {QStringLiteral("end"), timeOrNull(task.endTime)},
                                     {QStringLiteral("path"), path},
                                     {QStringLiteral("bytes"), task.downloadedSize},
                                     {QStringLiteral("reason"), reasonOf(task, facts)},
                                     {QStringLiteral("gaps"), gaps}})
        .toJson(QJsonDocument::Compact);
}

QString QueueListing::header()
{
    return line(tr("Id"), tr("State"), tr("Channel"), tr("Begin"), tr("End"), tr("MB"), tr("File, or reason"));
}

QString QueueListing::row(const vemo_data::DownloadTaskInfo& task, const vemo_data::TaskFacts& facts)
{
    QString state = tr("failed");
    if (task.state == vemo_data::TaskWaiting)
        state = tr("waiting");
    else if (task.state == vemo_data::TaskPaused)
        state = tr("paused");
    else if (task.state == vemo_data::TaskSucceeded)
        state = isIncomplete(facts) ? tr("partly") : tr("done");
    const QString reason = reasonOf(task, facts);
    return line(task.taskId.mid(1, task.taskId.size() - 2), state, QString::number(task.channelNo),
                TimeText::plain(task.beginTime), TimeText::plain(task.endTime),
                QString::number(double(task.downloadedSize) / megabyte, 'f', 1),
                reason.isEmpty() ? QFileInfo(task.savePath).fileName() : reason);
}

} // namespace vemo_client
