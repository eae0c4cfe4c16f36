#include "BackupListing.h"

#include "TimeText.h"

#include <axis/SpanWords.h>
#include <BackupDay.h>
#include <BackupSafety.h>
#include <BackupTaskData.h>

#include <QJsonArray>

#include <algorithm>

namespace vemo_client {

namespace {

using vemo_data::BackupTaskInfo;
namespace BackupDay = vemo_data::BackupDay;

QString line(const QString& id, const QString& date, const QString& channel, const QString& state, const QString& rest)
{
    return id.leftJustified(38) % QLatin1String("  ") % date.leftJustified(10) % QLatin1String("  ") %
           channel.rightJustified(7) % QLatin1String("  ") % state.leftJustified(8) % QLatin1String("  ") % rest;
}

} // namespace

QString BackupListing::stateOf(const BackupTaskInfo& task)
{
    if (vemo_data::isBackupCovered(task))
        return QStringLiteral("finished");
    const bool isBegun = std::any_of(task.fileInfos.begin(), task.fileInfos.end(),
                                     [](const BackupTaskInfo::FileInfo& entry) { return entry.finished; });
    return isBegun ? QStringLiteral("partial") : QStringLiteral("open");
}

QJsonObject BackupListing::object(const BackupTaskInfo& task)
{
    QJsonArray files;
    for (const BackupTaskInfo::FileInfo& entry : task.fileInfos)
        files.append(QJsonObject{{QStringLiteral("begin"), TimeText::iso(BackupDay::startOf(task, entry))},
                                 {QStringLiteral("end"), TimeText::iso(BackupDay::endOf(task, entry))},
                                 {QStringLiteral("path"), entry.filePath},
                                 {QStringLiteral("finished"), entry.finished}});
    const vemo_data::BackupSafety safety = vemo_data::BackupSafety::of(task);
    return {{QStringLiteral("id"), task.taskId},
            {QStringLiteral("date"), task.date.toString(Qt::ISODate)},
            {QStringLiteral("channel"), task.channelNo},
            {QStringLiteral("name"), task.channelName},
            {QStringLiteral("state"), stateOf(task)},
            {QStringLiteral("files"), files},
            {QStringLiteral("held"), safety.isKnown ? QJsonValue(safety.held) : QJsonValue()},
            {QStringLiteral("safe"), safety.isKnown ? QJsonValue(safety.safe) : QJsonValue()}};
}

QString BackupListing::header()
{
    return line(tr("ID"), tr("DAY"), tr("CHANNEL"), tr("STATE"), tr("SAFE"));
}

QString BackupListing::row(const BackupTaskInfo& task)
{
    constexpr qint64 secondMs = 1000;
    const vemo_data::BackupSafety safety = vemo_data::BackupSafety::of(task);
    const QString safe = !safety.isKnown ? tr("the recorder was not asked yet")
                         : safety.held == 0
                             ? tr("nothing recorded")
                             : vemo_base::SpanWords::share(safety.safe * secondMs, safety.held * secondMs);
    return line(task.taskId, task.date.toString(Qt::ISODate), QString::number(task.channelNo), stateOf(task), safe);
}

} // namespace vemo_client
