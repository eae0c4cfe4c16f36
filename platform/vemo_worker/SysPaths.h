#pragma once

#include "vemo_worker_global.h"

#include <QString>

namespace vemo_worker {

/// The client's own folders, all below those of vemo_data::DataFolder. A folder that is asked for is there, open to its
/// owner alone.
class VEMO_WORKER_EXPORT SysPaths final
{
public:
    SysPaths() = delete;

    /// Moves settings and data below one folder (the option --data); before anything else of the client is used.
    static void setRoot(const QString& folder);

    static QString configDir();
    static QString dataDir();
    static QString logDir();
    /// Work files that outlive a crash, such as the journals of open outputs.
    static QString tempDir();
};

} // namespace vemo_worker
