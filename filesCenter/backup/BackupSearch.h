#pragma once

#include <BackupTaskInfo.h>

#include <QObject>

namespace vemo_filesCenter {

using vemo_data::BackupTaskInfo;

/// The search of a backup task's recordings that goes ahead of its start: one at a time, of one task. GUI thread; owned
/// by BackupStarts. Answers of other searches change nothing. Each
/// successful start() ends in exactly one signal, unless it is abandoned.
class BackupSearch final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(BackupSearch)

public:
    explicit BackupSearch(QObject* parent = nullptr);
    ~BackupSearch() override; ///< abandons

    /// Searches the whole day of the task's channel.
    void start(const BackupTaskInfo& task);
    /// Lets the pending search go: an answer that still comes is not its own any more.
    void abandon();
    bool isPending() const { return !m_requestId.isEmpty(); }

signals:
    void signalFound(const QList<vms_sdk::VideoRecording>& recordings); ///< at least one
    /// `message` is for the task's line: the search failed, timed out or, with `isEmpty`, found nothing.
    void signalFailed(const QString& message, bool isEmpty);

private:
    void answered(const QString& requestId, int errorCode, const QList<vms_sdk::VideoRecording>& recordings);
    void timedOut(const QString& requestId);
    bool takeOwn(const QString& requestId);

    QString m_requestId; ///< empty: none pending
};

} // namespace vemo_filesCenter
