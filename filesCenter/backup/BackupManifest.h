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
/// application. What was not summed up when the program ended is caught up on by addMissing() at the task's next start.
class BackupManifest final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupManifest)

public:
    explicit BackupManifest(QObject* parent);
    ~BackupManifest() override;

    static BackupManifest& instance();

    /// A finished file of the task. One that is gone by its turn is left out.
    void add(const vemo_data::BackupTaskInfo& task, const QString& filePath);
    /// Every finished file of the task that its manifest doesn't name.
    void addMissing(const vemo_data::BackupTaskInfo& task);
    bool isIdle() const { return m_waiting.isEmpty() && !m_busy && m_looking == 0; }

signals:
    void signalIdle();

private:
    struct Job
    {
        QString path;
        QString device;
        int channelNo = 0;
        QString channel;
    };

    void add(const Job& job);
    void startNext();
    void summed(const QByteArray& sha256, qint64 bytes);
    void over();

    VCOMMON::FileChecksum* const m_checksum;
    QList<Job> m_waiting;
    Job m_current;
    bool m_busy = false; ///< m_current is being summed up or written
    int m_looking = 0;   ///< manifests being read
};

} // namespace vemo_filesCenter
