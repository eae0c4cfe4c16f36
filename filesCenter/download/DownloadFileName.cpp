#include "DownloadFileName.h"

#include <BackupDay.h>
#include <BaseTools.h>
#include <ToolsCollection.h>

namespace vemo_filesCenter {

namespace {

/// Below 255 by what " (2)" or a part's number takes.
constexpr int maxNameBytes = 240;
constexpr int maxDevLabelBytes = 80;

QString compactFormat()
{
    return QStringLiteral("yyyyMMddhhmmss");
}

} // namespace

QString compactTime(const QDateTime& time)
{
    return time.toLocalTime().toString(compactFormat());
}

QString unmistakableTime(const QDateTime& time)
{
    if (!vemo_data::BackupDay::isDoubled(time))
        return compactTime(time);
    return time.toUTC().toString(compactFormat()) + QLatin1Char('Z');
}

QDateTime fromCompactTime(const QString& text)
{
    return QDateTime::fromString(text, compactFormat());
}

QString downloadFileName(const vemo_data::DownloadTaskInfo& task)
{
    using VCOMMON::ToolsCollection;

    QString channel = task.channelName;
    ToolsCollection::formatLegalFileName(channel, QString());
    QString device = task.devLabel; // comes from the device as well
    ToolsCollection::formatLegalFileName(device, QString());
    ToolsCollection::cutToBytes(device, maxDevLabelBytes);
    QString location = vemo_base::BaseTools::instance().strReocordingLocation(task.location);
    location.replace(QLatin1Char('/'), QLatin1Char(' '));

    const QString rest = QLatin1Char('@') + device + QLatin1Char('_') + QString::number(task.channelNo) +
                         QLatin1Char('@') + compactTime(task.beginTime) + QLatin1Char('~') + compactTime(task.endTime) +
                         QLatin1Char('@') + location + QStringLiteral(".mp4");
    ToolsCollection::cutToBytes(channel, maxNameBytes - rest.toUtf8().size());
    return channel + rest;
}

} // namespace vemo_filesCenter
