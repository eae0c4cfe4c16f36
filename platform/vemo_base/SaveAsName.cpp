#include "SaveAsName.h"

#include <SystemConfig.h>
#include <ToolsCollection.h>

namespace vemo_base {

namespace {

/// For " (2)", and for what a copy adds while it is written.
constexpr int roomForAdditions = 32;

} // namespace

QString SaveAsName::timeText(const QDateTime& time)
{
    const QString format = QStringLiteral("%1 hh_mm_ss").arg(vemo_worker::SystemConfig::instance().getDateFormat());
    return time.toString(format);
}

QString SaveAsName::fileName(const QString& channelName, const QString& timeText, const QString& suffix)
{
    using VCOMMON::ToolsCollection;
    const QString end = QLatin1Char('(') + timeText + QLatin1Char(')') + suffix;
    QString name = channelName;
    ToolsCollection::cutToBytes(name, ToolsCollection::maxFileNameBytes - roomForAdditions - end.toUtf8().size());
    name += end;
    return ToolsCollection::formatLegalFileName(name, QString());
}

QString SaveAsName::recording(const QString& channelName, const QDateTime& begin, const QDateTime& end)
{
    return fileName(channelName, timeText(begin) + QLatin1Char('~') + timeText(end), QStringLiteral(".mp4"));
}

QString SaveAsName::snapshot(const QString& channelName, const QDateTime& captureTime, const QString& sourcePath)
{
    const bool isBitmap = sourcePath.endsWith(QLatin1String(".bmp"), Qt::CaseInsensitive);
    return fileName(channelName, timeText(captureTime), isBitmap ? QStringLiteral(".bmp") : QStringLiteral(".jpg"));
}

} // namespace vemo_base
