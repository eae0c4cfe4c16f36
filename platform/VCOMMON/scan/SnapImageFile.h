#pragma once

#include "VCOMMON_global.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

namespace VCOMMON {

/// What a snapshot's file says: its channel, and when it was taken, by its EXIF part, else by its name
/// ("CHANNEL@2026-01-10 08_00_00_000.jpg", as the player names them, or "CHANNEL(2026-01-10 08_00_00).jpg", as they are
/// saved), else by the time at which it was last written.
struct VCOMMON_EXPORT SnapImageFile
{
    Q_DECLARE_TR_FUNCTIONS(VCOMMON::SnapImageFile)

public:
    QDateTime captureTime; ///< local
    qint64 bytes = 0;
    qint64 writtenUtcMs = 0;
    QString channelName;
    QString devName; ///< empty: not told
    QString problem; ///< what is wrong with the file, one sentence; empty: nothing

    /// Reads at most 129 KiB; waits for the disk, but at no pipe and no device.
    static SnapImageFile read(const QString& path);

    struct Named
    {
        QString channelName; ///< the whole name without its suffix when it is none of ours
        QDateTime time;      ///< invalid then
    };
    static Named fromName(const QString& fileName);
};

} // namespace VCOMMON
