#pragma once

#include "VCOMMON_global.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QThread;

namespace VCOMMON {

/// Copies a list of local files, one after the other, on a thread of its own. Lives on the GUI thread, owned by its
/// parent; needs a running event loop.
///
/// Each file is copied as VCopyLocalFile copies it: under a temporary name, synced, then renamed; never over another
/// file, so of two equal destinations the second takes a name with " (2)". A file that fails is told and leaves
/// nothing, the others go on. Every accepted copyFiles() ends in exactly one signalCopyFilesFinished, an empty list
/// too, unless it is cancelled: then whole copies stay, the torn one goes, and signalCopyFilesCancelled is all that
/// comes. Destroying the object cancels and waits for the thread.
class VCOMMON_EXPORT VCopyLocalFiles final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VCopyLocalFiles)

public:
    /// `id` comes back in the signals.
    explicit VCopyLocalFiles(const QString& id, QObject* parent = nullptr);
    ~VCopyLocalFiles() override;

    /// False when a copy is running already, or the lists differ in length. Folders of destinations must be there.
    bool copyFiles(const QStringList& sources, const QStringList& destinations);
    void pauseCopyFiles();
    void continueCopyFiles();
    void cancelCopyFiles();
    bool isCopyPausing() const;

signals:
    /// `fileNumber` counts from 1; `percent` is of all files' bytes.
    void signalCopyFilesProgress(const QString& id, int fileNumber, int fileCount, int percent);
    /// Bytes of the file in hand; about ten times a second and at each file's end, then with done equal to size.
    void signalCopyFileBytes(const QString& id, qint64 doneOfFile, qint64 sizeOfFile, int finishedFiles);
    /// `reason` is a sentence.
    void signalCopyFileFailed(const QString& id, const QString& source, const QString& reason);
    /// Sources.
    void signalCopyFilesFinished(const QString& id, const QStringList& succeeded, const QStringList& failed);
    void signalCopyFilesCancelled(const QString& id);

private:
    class Batch;

    const QString m_id;
    std::unique_ptr<Batch> m_batch;
    std::unique_ptr<QThread> m_thread; ///< set while a batch runs
};

} // namespace VCOMMON
