#include "TaskTexts.h"

#include <BaseTools.h>

namespace vemo_filesCenter {

QString TaskTexts::channel(const vemo_data::DownloadTaskInfo& task)
{
    const vemo_base::BaseTools& tools = vemo_base::BaseTools::instance();
    if (tools.isVideoExist(task.channelId))
        return tools.getChannelName(task.channelId);
    if (!task.channelName.isEmpty())
        return tr("%1(No longer exists)").arg(task.channelName);
    return tr("Device does not exist");
}

QString TaskTexts::failure(int state)
{
    switch (state) {
    case vemo_data::TaskLoginFailed:
        return tr("Login Dev Failed");
    case vemo_data::TaskConnectFailed:
        return tr("Connect Failed");
    case vemo_data::TaskAbnormal:
        return tr("Download Abnormal");
    case vemo_data::TaskInvalidFile:
        return tr("Invalid File");
    case vemo_data::TaskGetUrlFailed:
        return tr("Get Url Failed");
    default:
        return {};
    }
}

QString TaskTexts::failureCause(int state)
{
    switch (state) {
    case vemo_data::TaskLoginFailed:
        return tr("The recorder refused the login.");
    case vemo_data::TaskConnectFailed:
        return tr("The recorder could not be reached.");
    case vemo_data::TaskAbnormal:
        return tr("The download broke off. What arrived is kept.");
    case vemo_data::TaskInvalidFile:
        return tr("The file was gone when the download ended.");
    case vemo_data::TaskGetUrlFailed:
        return tr("The recorder gave no address to replay the recording from.");
    default:
        return {};
    }
}

QString TaskTexts::size(const vemo_data::DownloadTaskInfo& task)
{
    return size(task.downloadedSize, task.beginTime, task.endTime);
}

QString TaskTexts::size(qint64 bytes, const QDateTime& begin, const QDateTime& end)
{
    constexpr qint64 kilobyte = 1024;
    constexpr qint64 megabyte = 1024 * kilobyte;
    QString text;
    if (bytes <= kilobyte)
        text = QString::number(bytes) % QStringLiteral(" B");
    else if (bytes <= megabyte)
        text = QString::number(static_cast<double>(bytes) / kilobyte, 'f', 2) % QStringLiteral(" KB");
    else
        text = QString::number(static_cast<double>(bytes) / megabyte, 'f', 2) % QStringLiteral(" MB");
    return text % QStringLiteral(" (") % vemo_base::BaseTools::instance().get2DatetimeIntervalTime(begin, end) %
           QLatin1Char(')');
}

QString TaskTexts::duration(qint64 seconds)
{
    const qint64 minutes = (seconds + 30) / 60;
    if (minutes < 1)
        return tr("less than a minute");
    if (minutes < 60)
        return tr("%1 min").arg(minutes);
    return tr("%1 h %2 min").arg(minutes / 60).arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

QString TaskTexts::rate(double bytesPerSecond)
{
    return tr("%1 MB/s").arg(bytesPerSecond / 1e6, 0, 'f', 1);
}

} // namespace vemo_filesCenter
