#pragma once

#include "DownloadTaskInfo.h"
#include "vemo_data_global.h"

#include <optional>

namespace vemo_data {

/// Finished downloads as their files tell them, for a store that was lost: "CHANNEL@DEVICE_NO@BEGIN~END@LOCATION.mp4",
/// times as yyyyMMddhhmmss, with " (2)" or the like behind when a name was taken.
class VEMO_DATA_EXPORT FinishedFiles final
{
public:
    FinishedFiles() = delete;

    /// A record in state 3 without channel id, size and folder; nothing when the name is not one of ours.
    static std::optional<DownloadTaskInfo> fromName(const QString& fileName);
    /// The records of the folder's files in the order of their times, at most 100,000. Waits for the disk.
    static QList<DownloadTaskInfo> scan(const QString& folder);
};

} // namespace vemo_data
