#pragma once

#include "VCOMMON_global.h"

#include <QByteArray>
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

    /// For the next copies: below this folder, which must be there and stay the same one, missing folders of
    /// destinations are made, and links among them are not followed. Without one the folders must be there.
    void setRoot(const QString& folder);
    /// Whether the next copies are read back from the disk and held against the source's SHA-256.
    void setVerified(bool verified);

    /// False when a copy is running already, or the lists differ in length.
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
    /// Where the copy went, and its SHA-256 when it was verified.
    void signalCopyFileSucceeded(const QString& id, const QString& source, const QString& target,
                                 const QByteArray& sha256);
    /// `reason` is a sentence.
    void signalCopyFileFailed(const QString& id, const QString& source, const QString& reason);
    /// Sources.
    void signalCopyFilesFinished(const QString& id, const QStringList& succeeded, const QStringList& failed);
    void signalCopyFilesCancelled(const QString& id);

private:
    class Batch;

    void end(bool isWhole, const QStringList& succeeded, const QStringList& failed);

    const QString m_id;
    QString m_root;
    bool m_verified = false;
    std::unique_ptr<Batch> m_batch;    ///< set while a batch runs
    std::unique_ptr<QThread> m_thread; ///< the same
};

} // namespace VCOMMON
