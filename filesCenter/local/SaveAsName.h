#pragma once

#include <QDateTime>
#include <QString>

namespace vemo_filesCenter {

/// Names of the copies that a person saves of local files. Plain functions.
namespace SaveAsName {

/// Date in the person's format and "hh_mm_ss": colons are not for file names.
QString timeText(const QDateTime& time);

/// "channelName(timeText).suffix" as a legal name of one component, whatever the channel is called. A name that is too
/// long loses the end of the channel's name, never times or suffix.
QString fileName(const QString& channelName, const QString& timeText, const QString& suffix);

} // namespace SaveAsName

} // namespace vemo_filesCenter
