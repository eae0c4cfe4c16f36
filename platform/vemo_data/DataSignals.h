#pragma once

#include "BackupTaskInfo.h"
#include "DownloadTaskInfo.h"
#include "vemo_data_global.h"

#include <VmsTypes.h>

#include <QMap>
#include <QObject>
#include <QSet>
#include <QStringList>

namespace vemo_data {

/// What the stores announce: always after the change is on disk, always on the GUI thread. One object a process.
class VEMO_DATA_EXPORT DataSignals final : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(DataSignals)

public:
    static DataSignals& instance();

signals:
    void signalAddDownloadTasksToLocalDB(const QList<vemo_data::DownloadTaskInfo>& tasks);
    void signalUpdateDownloadTasksInLocalDB(const QList<vemo_data::DownloadTaskInfo>& tasks);
    /// Keyed by the state that the deleted tasks were in.
    void signalDeleteDownloadTasksFromLocalDB(const QMap<int, QSet<QString>>& taskIdsByState);

    void signalAddBackupTasksSuccess(const QList<vemo_data::BackupTaskInfo>& tasks);
    void signalDeleteBackupTasksSuccess(const QStringList& taskIds);
    void signalUpdateBackupResultsSuccess(const QString& taskId,
                                          const QList<vemo_data::BackupTaskInfo::FileInfo>& fileInfos);

    /// A device was added, removed, or what is known of it or of its channels changed.
    void signalDevInfoChanged(const QString& devId);
    void signalDevRemoved(const QString& devId);
    void signalDevStatusChanged(const QString& devId, vms_sdk::DevStatus status);

    /// Something about the store that a person should know: a damaged database was set aside, a change could not be
    /// saved.
    void signalStoreNotice(const QString& text);

private:
    DataSignals();
};

} // namespace vemo_data
