#pragma once

#include "vemo_data_global.h"

#include <QString>

namespace vemo_data {

/// Where the client keeps settings and data. Default: the platform's config and data folders for "vemo". The
/// environment variable VEMO_DATA_DIR, or setRoot() before the first use, moves both below one folder, so that a test
/// or a second installation has a world of its own. Folders are made when asked for, open to their owner alone from the
/// beginning; a config or data folder that is found open to others is closed. Any thread.
class VEMO_DATA_EXPORT DataFolder final
{
public:
    DataFolder() = delete;

    /// Wins over the environment; an empty text takes it back. Has no effect on a store that is open.
    static void setRoot(const QString& folder);
    static QString root(); ///< empty: the platform's folders are used

    static QString configDir();
    static QString dataDir();
    static QString databaseFile();
    static QString settingsFile(); ///< made when it is missing, for its owner alone

    /// Makes the folder with all its parents; what is made is accessible to its owner only. False when it can't be
    /// made.
    static bool makePrivateFolder(const QString& path);
    /// Makes an empty file accessible to its owner only from the beginning, unless it is there already; in that case
    /// its permissions are set.
    static bool makePrivateFile(const QString& path);
};

} // namespace vemo_data
