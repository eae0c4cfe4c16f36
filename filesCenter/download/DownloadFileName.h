#pragma once

#include <DownloadTaskInfo.h>

namespace vemo_filesCenter {

/// The bare name of the file that a user's download is saved under:
/// "<channel>@<device>_<channel number>@<begin>~<end>@<location>.mp4", legal on every desktop and, with room for what
/// is added to tell parts apart, not longer than a file name may be.
QString downloadFileName(const vemo_data::DownloadTaskInfo& task);

/// Local time as "yyyyMMddhhmmss", the form of every time that goes to the media download SDK or into a file name.
QString compactTime(const QDateTime& time);
/// The same for the media download SDK, in UTC with "Z" behind it where the clock shows that time twice.
QString unmistakableTime(const QDateTime& time);
QDateTime fromCompactTime(const QString& text); ///< invalid when the text is not such a time

} // namespace vemo_filesCenter
