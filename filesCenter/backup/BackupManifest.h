#pragma once

#include <BackupTaskInfo.h>

#include <QList>
#include <QObject>

namespace VCOMMON {
class FileChecksum;
}

namespace vemo_filesCenter {

/// Keeps the manifests beside the backups: sums up what was finished, one file at a time at the lowest priority, and
/// writes BackupManifestFile away from the GUI thread. One object a process, on the GUI thread; it goes with the
/// application. What was not summed up when the program ended is remembered and caught up on by the next one.
class BackupManifest final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupManifest)

public:
    explicit BackupManifest(QObject* parent);
    ~BackupManifest() override;

    static BackupManifest& instance();

    /// A finished file of the task, which keeps its name. One that is gone by its turn is left out,
    /// but made up for by the next start when its folder has no manifest.
    void add(const vemo_data::BackupTaskInfo& task, const QString& filePath);
    /// Adds the finished files of the task that its manifests don't tell of: what was to be remembered of them may
    /// never have reached the store.
    void complete(const vemo_data::BackupTaskInfo& task);
    bool isIdle() const { return m_waiting.isEmpty() && !m_busy && m_lookups == 0; }

signals:
    void signalIdle();

private:
    using Job = vemo_data::BackupUnlisted;

    void add(const Job& job);
    void startNext();
    void summed(const QByteArray& sha256, qint64 bytes);
    void forgetIfRemoved();
    /// `isListed`: it need not be remembered any more.
    void over(bool isListed);

    VCOMMON::FileChecksum* const m_checksum;
    QList<Job> m_waiting;
    Job m_current;
    int m_lookups = 0;   ///< tasks that complete() looks through
    bool m_busy = false; ///< m_current is being summed up or written
};

} // namespace vemo_filesCenter
