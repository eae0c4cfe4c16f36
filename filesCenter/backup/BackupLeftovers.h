#pragma once

#include <BackupTaskInfo.h>

#include <functional>

namespace vemo_filesCenter {

/// What a run that was cut off left of a piece: the entry that was being fetched, and files that hold parts of it.
class BackupLeftovers final
{
public:
    BackupLeftovers() = delete;

    /// A file of the backup folder that says itself which span it holds.
    struct Part
    {
        QString path;
        vemo_data::BackupSpan span;
    };

    /// Takes the place of the unfinished entry at `index`: a finished entry for each part, which ends where its file
    /// ends, and an unfinished one for what is left. Without a usable part the entry stays as it is. Pure.
    static void settle(vemo_data::BackupTaskInfo* task, int index, const QList<Part>& parts);
    /// The finished files of the piece that no entry claims: under the entry's own path, closed beside it when the
    /// recording changed, or renamed already. Looks at the disk; `isClaimed` by path.
    static QList<Part> find(const vemo_data::BackupTaskInfo& task, int index,
                            const std::function<bool(const QString&)>& isClaimed);
};

} // namespace vemo_filesCenter
