#include "DataSignals.h"

namespace vemo_data {

DataSignals::DataSignals()
{
    qRegisterMetaType<DownloadTaskInfo>();
    qRegisterMetaType<QList<DownloadTaskInfo>>();
    qRegisterMetaType<QList<BackupTaskInfo>>();
    qRegisterMetaType<QList<BackupTaskInfo::FileInfo>>();
    qRegisterMetaType<QMap<int, QSet<QString>>>();
}

DataSignals& DataSignals::instance()
{
    static DataSignals dataSignals;
    return dataSignals;
}

} // namespace vemo_data
