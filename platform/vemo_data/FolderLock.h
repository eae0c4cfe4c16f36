#pragma once

#include "vemo_data_global.h"

#include <QString>
#include <QtGlobal>

namespace vemo_data {

/// One process at a time on a folder, by the system's lock on a file in it. The system gives the lock back with the
/// process, however that ends, and nothing is written, so that neither what a kill left nor a slow disk delays the next
/// start; the file stays. Programs that were started by the holder do not hold it. One thread.
class VEMO_DATA_EXPORT FolderLock final
{
    Q_DISABLE_COPY_MOVE(FolderLock)

public:
    enum class Outcome : int {
        Unknown = 0,
        Taken,    ///< held until the object goes
        Held,     ///< by another process, or by another object of this one
        Unusable, ///< the file can't be made or opened, or its file system knows no locks
    };

    FolderLock() = default;
    ~FolderLock();

    /// Never waits. The file is made accessible to its owner only; one that is already held by this object stays so.
    Outcome take(const QString& path);

private:
    qintptr m_file = -1; ///< a descriptor, on Windows a HANDLE
};

} // namespace vemo_data
