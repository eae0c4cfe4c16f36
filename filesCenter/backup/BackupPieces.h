#pragma once

#include <BackupTaskInfo.h>

#include <optional>

namespace vemo_filesCenter {

/// Which piece of a backup task comes next, and what of it the device holds. Pure.
namespace BackupPieces {

struct Piece
{
    vemo_data::BackupTaskInfo::FileInfo span; ///< times only
    int resumed = -1;                         ///< index of the unfinished entry that it is; -1: a new one
};

/// The first entry that is not settled, else what the segments leave behind the last entry; nothing when the day is
/// covered.
std::optional<Piece> next(const vemo_data::BackupTaskInfo& task);

/// The part of the piece from the first to the last recording in it, on whole seconds that take in all of them; nothing
/// when no recording touches it.
std::optional<vemo_data::BackupSpan> clip(const vemo_data::BackupSpan& piece,
                                          const QList<vms_sdk::VideoRecording>& recordings);

} // namespace BackupPieces

} // namespace vemo_filesCenter
