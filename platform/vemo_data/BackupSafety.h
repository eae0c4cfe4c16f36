#pragma once

#include "BackupTaskInfo.h"
#include "vemo_data_global.h"

#include <QList>

namespace vemo_data {

/// How much of what a device holds is safe in files.
class VEMO_DATA_EXPORT BackupSafety final
{
public:
    /// Of one task: its segments, its entries, and what was found on its device (of the last search). Looks at no file.
    static BackupSafety of(const BackupTaskInfo& task);
    /// What the recordings hold, merged and in order.
    static QList<BackupSpan> mergedSpans(const QList<vms_sdk::VideoRecording>& recordings);

    bool isKnown = false; ///< the device was searched; without that both are 0
    qint64 held = 0;      ///< seconds that the device holds within the segments
    qint64 safe = 0;      ///< of these, seconds that lie in finished files

    void add(const BackupSafety& other);
};

} // namespace vemo_data
