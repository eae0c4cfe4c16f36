#pragma once

#include <LocalSnapImageIndexInfo.h>

#include <QCoreApplication>
#include <QList>
#include <QString>

namespace vemo_filesCenter {

/// What is said of a snapshot, and what goes with its deletion; the same for one and for many. Plain functions, GUI
/// thread.
class LocalSnapImageNames final
{
    Q_DECLARE_TR_FUNCTIONS(vemo_filesCenter::LocalSnapImagesMgrPage)

public:
    LocalSnapImageNames() = delete;

    /// The channel's current name, or the one that it had.
    static QString channelName(const VCOMMON::LocalSnapImageIndexInfo& info);
    static QString captureTime(const VCOMMON::LocalSnapImageIndexInfo& info);
    /// Under which it is saved: "Gate North(2026-01-10 08_14_22).jpg", or ".bmp".
    static QString fileName(const VCOMMON::LocalSnapImageIndexInfo& info);

    static void logDeletion(const VCOMMON::LocalSnapImageIndexInfo& info);
    /// Removes the files and what is kept of their pictures. A file that will not go gets its record back, and the
    /// person is told.
    static void removeFiles(const QStringList& paths);
};

} // namespace vemo_filesCenter
