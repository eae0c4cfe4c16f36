#pragma once

#include "vemo_data_global.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QVector>

#include <functional>

namespace vemo_data {

/// What is known of a download task beside its record, kept for its details and for verifying its file.
struct TaskFacts
{
    QString taskId;
    QByteArray report;      ///< JSON as vaws_download_get_report gave it at the end of the task; empty: none
    QString reason;         ///< why it failed, one sentence; empty: it did not
    QByteArray sha256;      ///< of the finished file, 32 bytes; empty: not summed yet
    qint64 sha256Bytes = 0; ///< length of the file that was summed
    QByteArray marks;       ///< of the file's chunks, see VCOMMON::FileChecksum; empty: none kept
    double seconds = 0;     ///< how long the download ran
};

/// A finished file whose checksum is not kept yet.
struct UnsummedFile
{
    QString taskId;
    QString path;
};

/// The facts of download tasks by task id. One object a process, used on the GUI thread; writes return at once and are
/// carried out in order with those of DownloadTaskData. Facts go with their task; facts whose task is never stored are
/// dropped at the next start, so they may be put before the task itself. A write that fails is told by
/// DataSignals::signalStoreNotice.
class VEMO_DATA_EXPORT TaskFactsData final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TaskFactsData)

public:
    /// A longer report is not kept.
    static constexpr int reportLimitBytes = 1024 * 1024;

    static TaskFactsData& instance();

    /// Replaces everything but the checksum, which stands unless `facts` has one.
    void put(const TaskFacts& facts);
    /// `sum` of 32 bytes; anything else forgets the checksum.
    void setSha256(const QString& taskId, const QByteArray& sum, qint64 bytes, const QByteArray& marks = QByteArray());

    /// Calls `answer` on the GUI thread with what is stored, all earlier writes included; not when `context` has gone
    /// by then. A task without facts: only the id is set.
    void get(const QString& taskId, QObject* context, std::function<void(const TaskFacts&)> answer);
    /// Finished tasks without a checksum, the newest first and at most `limit`; called back as get() does.
    void getUnsummed(int limit, QObject* context, std::function<void(const QVector<UnsummedFile>&)> answer);
    /// What get() tells, waiting for the database; for the command line.
    TaskFacts getNow(const QString& taskId);
    /// Every task's facts by task id, without marks, waiting for the database.
    QHash<QString, TaskFacts> getAllNow();

private:
    TaskFactsData();
};

} // namespace vemo_data
