#include "BackupPaths.h"

#include <BaseTools.h>
#include <DevsMgrData.h>
#include <SystemConfig.h>
#include <ToolsCollection.h>

#include <QFileInfo>

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

QString BackupPaths::channelName(const vemo_data::BackupTaskInfo& task)
{
    const QString devId = vemo_base::BaseTools::instance().formatChannelId(task.channelId).first;
    const QList<vms_sdk::ChannelInfo> channels = vemo_data::DevsMgrData::instance().channels(devId);
    for (const vms_sdk::ChannelInfo& channel : channels) {
        if (channel.channelNo == task.channelNo && !channel.name.isEmpty())
            return channel.name;
    }
    return task.channelName;
}

QString BackupPaths::channelFolderName(const vemo_data::BackupTaskInfo& task)
{
    constexpr int maxDeviceBytes = 80;
    QString channel = legal(channelName(task));
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

bool BackupPaths::leadsElsewhere(const QString& filePath)
{
    const QString channelFolder = QFileInfo(filePath).path();
    const QString dayFolder = QFileInfo(channelFolder).path();
    return QFileInfo(channelFolder).isSymLink() || QFileInfo(dayFolder).isSymLink();
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
