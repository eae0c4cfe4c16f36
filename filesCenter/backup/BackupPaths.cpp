#include "BackupPaths.h"

#include <BaseTools.h>
#include <SystemConfig.h>
#include <ToolsCollection.h>

namespace vemo_filesCenter {

namespace {

using VCOMMON::ToolsCollection;

QString legal(QString name)
{
    ToolsCollection::formatLegalFileName(name, QString());
    return name;
}

} // namespace

QString BackupPaths::dayFolderName(const QDate& date)
{
    // A person's format may have slashes, which would make folders of the parts.
    QString name = vemo_base::BaseTools::instance().strDate(date, false);
    ToolsCollection::formatLegalFileName(name, QStringLiteral("-"));
    return name;
}

QString BackupPaths::channelFolderName(const vemo_data::BackupTaskInfo& task)
{
    constexpr int maxDeviceBytes = 80;
    const QString current = vemo_base::BaseTools::instance().getChannelName(task.channelId);
    QString channel = legal(current.isEmpty() ? task.channelName : current);
    QString device = legal(task.deviceNo); // comes from the device as well
    ToolsCollection::cutToBytes(device, maxDeviceBytes);
    const QString rest = QLatin1Char('@') + device + QLatin1Char('_') + QString::number(task.channelNo);
    ToolsCollection::cutToBytes(channel, ToolsCollection::maxFileNameBytes - rest.toUtf8().size());
    return channel + rest;
}

QString BackupPaths::folder(const QString& root, const vemo_data::BackupTaskInfo& task)
{
    return root % QLatin1Char('/') % dayFolderName(task.date) % QLatin1Char('/') % channelFolderName(task);
}

QString BackupPaths::fileName(const QTime& start, const QTime& end)
{
    const QString format = QStringLiteral("hhmmss");
    return start.toString(format) % QLatin1Char('-') % end.toString(format) % QStringLiteral(".mp4");
}

QString BackupPaths::filePath(const vemo_data::BackupTaskInfo& task, const QTime& start, const QTime& end)
{
    return folder(vemo_worker::SystemConfig::instance().getRecordingBackupPath(), task) % QLatin1Char('/') %
           fileName(start, end);
}

} // namespace vemo_filesCenter
