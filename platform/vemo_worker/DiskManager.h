#pragma once

#include "vemo_worker_global.h"

#include <QObject>
#include <QString>

#include <functional>

namespace vemo_worker {

/// Questions about the disks of this computer. One object a process, without state.
class VEMO_WORKER_EXPORT DiskManager final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DiskManager)

public:
    static DiskManager& instance();

    /// Name of the disk that holds the path, or would hold it: "D:" on Windows, the mount point elsewhere.
    QString getDiskName(const QString& path) const;
    /// The folder is there, and with `forWriting` a file can be made in it.
    bool isPathAvailable(const QString& path, bool forWriting) const;

    struct Figures
    {
        QString diskName;
        qint64 freeBytes = -1; ///< -1: can't be told
        qint64 totalBytes = -1;
    };
    /// Asks the disk that holds the path, or would hold it, on a thread of its own, since a disk may take its time; one
    /// that doesn't answer within 5 s has no name and no figures. GUI thread; `answer` is called there later, and never
    /// once `context` has gone.
    void askFigures(const QString& path, QObject* context, const std::function<void(const Figures&)>& answer) const;

    /// The path itself when it is a folder, else the nearest folder above it that is there.
    static QString existingFolderOf(const QString& path);

private:
    DiskManager();
};

} // namespace vemo_worker
