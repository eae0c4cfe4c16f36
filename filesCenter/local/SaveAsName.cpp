#include "SaveAsName.h"

#include <SystemConfig.h>
#include <ToolsCollection.h>

namespace vemo_filesCenter {

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

} // namespace vemo_filesCenter
