#pragma once

#include "VCOMMON_global.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

class QThread;

namespace VCOMMON {

class PausePoint;
struct CopyResult;

/// Copies one local file on a thread of its own. Lives on the GUI thread, owned by its parent.
///
/// The copy grows under a temporary name in the target's folder, gets the source's modification time, is synced and
/// then renamed; the source is never touched and an existing file never overwritten: an equal one (size and time)
/// counts as the copy, beside another one the copy takes a name with " (2)", see targetPath(). Every accepted
/// copyFile() ends in exactly one signalCopyFileFinished, unless it is cancelled: then the temporary file goes and
/// signalCopyFileCancelled is all that comes. Destroying the object cancels and waits for the thread.
class VCOMMON_EXPORT VCopyLocalFile final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VCopyLocalFile)

public:
    /// `id` comes back in the signals.
    explicit VCopyLocalFile(const QString& id, QObject* parent = nullptr);
    ~VCopyLocalFile() override;

    /// Whether the next copies are read back from the disk and held against the source's SHA-256.
    void setVerified(bool verified);
    /// False when a copy is running already.
    bool copyFile(const QString& source, const QString& target);
    void pauseCopyFile();
    void continueCopyFile();
    void cancelCopyFile();
    bool isCopyPausing() const;

    /// Where the copy went; valid once it finished well.
    QString targetPath() const { return m_targetPath; }
    /// Why it failed, as a sentence; empty otherwise.
    QString errorText() const { return m_errorText; }
    /// 32 bytes, when the copy was verified.
    QByteArray sha256() const { return m_sha256; }

signals:
    /// Bytes; about ten times a second and at the end, never for an empty file.
    void signalCopyFileProgress(const QString& id, qint64 done, qint64 total);
    void signalCopyFileFinished(const QString& source, const QString& id, bool ok);
    void signalCopyFileCancelled(const QString& id);

private:
    void report(qint64 done, qint64 total);
    void end(const CopyResult& result);

    const QString m_id;
    QString m_source;
    QString m_targetPath;
    QString m_errorText;
    QByteArray m_sha256;
    bool m_verified = false;
    std::unique_ptr<PausePoint> m_pausePoint; ///< set while a copy runs
    std::unique_ptr<QThread> m_thread;        ///< set while a copy runs
};

} // namespace VCOMMON
