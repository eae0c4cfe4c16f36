#pragma once

#include "vemo_base_global.h"

#include <QDateTime>
#include <QString>

namespace vemo_base {

/// Names of the copies that a person saves of local files. Plain functions.
namespace SaveAsName {

/// Date in the person's format and "hh_mm_ss": colons are not for file names.
VEMO_BASE_EXPORT QString timeText(const QDateTime& time);

/// "channelName(timeText).suffix" as a legal name of one component, whatever the channel is called. A name that is too
/// long loses the end of the channel's name, never times or suffix.
VEMO_BASE_EXPORT QString fileName(const QString& channelName, const QString& timeText, const QString& suffix);

/// "Gate North(2026-01-10 08_00_00~2026-01-10 08_31_00).mp4"
VEMO_BASE_EXPORT QString recording(const QString& channelName, const QDateTime& begin, const QDateTime& end);
/// "Gate North(2026-01-10 08_14_22).jpg", or ".bmp" when the source is one.
VEMO_BASE_EXPORT QString snapshot(const QString& channelName, const QDateTime& captureTime, const QString& sourcePath);

} // namespace SaveAsName

} // namespace vemo_base
