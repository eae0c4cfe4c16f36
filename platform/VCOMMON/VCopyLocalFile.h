#pragma once

#include "VCOMMON_global.h"

#include <QObject>
#include <QString>

#include <memory>

class QThread;

namespace VCOMMON {

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

signals:
    /// Bytes; about ten times a second and at the end, never for an empty file.
    void signalCopyFileProgress(const QString& id, qint64 done, qint64 total);
    void signalCopyFileFinished(const QString& source, const QString& id, bool ok);
    void signalCopyFileCancelled(const QString& id);

private:
    class Copier;

    void end(bool ok, const QString& targetPath, const QString& errorText);

    const QString m_id;
    QString m_source;
    QString m_targetPath;
    QString m_errorText;
    std::unique_ptr<Copier> m_copier;
    std::unique_ptr<QThread> m_thread; ///< set while a copy runs
};

} // namespace VCOMMON
